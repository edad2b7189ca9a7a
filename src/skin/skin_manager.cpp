#include <qvui/skin/skin_manager.h>

#include <algorithm>

#include <qvui/foundation/trace.h>
#include <qvui/skin/xml/xml_document.h>

#include "skin/source_fields.h"

namespace DUI {
namespace {

CResourceFileInfo ReadFileInfo(const CXmlDocument& xml)
{
    CResourceFileInfo info;
    ReadFields(xml, kSourceFields, info);
    return info;
}

// Iterates over the entry document's sets, which are searched one after another: a set that precedes its
// place in this order is not found.
class EntrySets {
public:
    explicit EntrySets(CXmlDocument& xml) : m_xml(xml) {}

    /// Advances to the set of the next kind.
    bool FindNext()
    {
        m_set = &SchemaOf(DocumentKind::Entry).sets[m_index++];
        return m_xml.FindChildElement(m_set->set);
    }
    /// Returns the value of the set's only attribute.
    CString Attribute() const { return m_xml.GetChildAttribute(m_set->setAttributes.front().name); }
    /// Calls `read` for every entry of the set.
    template <class Read>
    void ReadEntries(Read read)
    {
        m_xml.IntoElement();
        while (m_xml.FindChildElement(m_set->entry))
            read(ReadFileInfo(m_xml));
        m_xml.OutOfElement();
    }

private:
    CXmlDocument& m_xml;
    const SetSchema* m_set = nullptr;
    std::size_t m_index = 0;
};

bool IsNamed(const CResourceFileInfo& info, const CString& name)
{
    return !name.IsEmpty() && info.m_strName == name;
}

bool EqualLanguage(const CString& left, const CString& right)
{
    return lstrcmpiA(left, right) == 0;
}

using Infos = std::vector<CResourceFileInfo>;

const CResourceFileInfo* FindLanguage(const Infos& languages, const CString& type)
{
    const auto found = std::find_if(
        languages.begin(), languages.end(),
        [&](const CResourceFileInfo& language) { return EqualLanguage(language.m_strName, type); });
    return found == languages.end() ? nullptr : &*found;
}

template <class Observer>
int AddObserver(std::vector<Observer*>& observers, Observer* observer)
{
    if (observer && std::find(observers.begin(), observers.end(), observer) == observers.end())
        observers.push_back(observer);
    return 1;
}

// A notification in progress: a copy of a manager's observers. Observers and manager may be destroyed
// meanwhile.
class Notification {
public:
    template <class Observer>
    Notification(const IDUISkinMgr* manager, const std::vector<Observer*>& observers)
        : m_manager(manager),
          m_observers(observers.begin(), observers.end()),
          m_outer(s_innermost)
    {
        s_innermost = this;
    }
    Notification(const Notification&) = delete;
    Notification& operator=(const Notification&) = delete;
    ~Notification() { s_innermost = m_outer; }

    template <class Observer, class Call>
    void CallEach(Call call)
    {
        // Uses indices, because destroying the manager clears the copy.
        for (std::size_t i = 0; i < m_observers.size(); ++i)
            if (m_observers[i])
                call(*static_cast<Observer*>(m_observers[i]));
    }

    static void ForgetObserver(void* observer)
    {
        void* const none = nullptr;
        for (Notification* each = s_innermost; each; each = each->m_outer)
            std::replace(each->m_observers.begin(), each->m_observers.end(), observer, none);
    }
    static void EndAllOf(const IDUISkinMgr* manager)
    {
        for (Notification* each = s_innermost; each; each = each->m_outer)
            if (each->m_manager == manager)
                each->m_observers.clear();
    }

private:
    static Notification* s_innermost;

    const IDUISkinMgr* m_manager;
    std::vector<void*> m_observers;  // null for a destroyed observer
    Notification* m_outer;
};

Notification* Notification::s_innermost = nullptr;

// The manager may be destroyed during the calls.
template <class Observer, class Call>
void Notify(const IDUISkinMgr* manager, const std::vector<Observer*>& observers, Call call)
{
    Notification(manager, observers).CallEach<Observer>(call);
}

bool IsAnswer(int found)
{
    return found != 0;
}
bool IsAnswer(const CARGB& color)
{
    return !color.IsEmpty();
}
bool IsAnswer(const CDUIImageListPtr& image)
{
    return image != nullptr;
}
template <class Object>
bool IsAnswer(const CRefPtr<Object>& object)
{
    return !object.IsNull();
}

// Returns the package's own result, or the first result of the added packages if it has none.
template <class Skins, class Result, class Ask>
Result FirstAnswer(const Skins& addedSkins, Result result, Ask ask)
{
    for (const auto& added : addedSkins) {
        if (IsAnswer(result))
            break;
        result = ask(*added.second);
    }
    return result;
}

}  // namespace

IDUISkinObserver::~IDUISkinObserver()
{
    Notification::ForgetObserver(this);
}

IDUILanguageObserver::~IDUILanguageObserver()
{
    Notification::ForgetObserver(this);
}

CDUISkinMgr::~CDUISkinMgr()
{
    Notification::EndAllOf(this);
}

// --- loading -------------------------------------------------------------------------------------

int CDUISkinMgr::InitializeSkin(const CString& entryXml)
{
    const char* failure = nullptr;
    if (!ParseEntryXML(entryXml))
        failure = "CDUISkinMgr::InitializeSkin, ParseEntryXML failed";
    else if (!LoadLanguage())
        failure = "CDUISkinMgr::InitializeSkin, Load Language failed";
    else if (!LoadDUIResource())
        failure = "CDUISkinMgr::InitializeSkin, Load Resource failed";
    else if (!LoadTemplateStyle())
        failure = "CDUISkinMgr::InitializeSkin, Load template failed";
    else if (!LoadStyleResource())
        failure = "CDUISkinMgr::InitializeSkin, LoadStyleResource failed";
    if (failure)
        CTrace::TraceError("%s", failure);
    return failure == nullptr;
}

int CDUISkinMgr::ParseEntryXML(const CString& entryXml)
{
    CXmlDocument xml;
    if (!xml.SetDocument(entryXml))
        return 0;
    m_languages.clear();
    m_templates.clear();
    EntrySets sets(xml);
    if (sets.FindNext()) {
        if (m_strLanguageType.IsEmpty())
            m_strLanguageType = sets.Attribute();
        sets.ReadEntries([&](CResourceFileInfo language) { m_languages.push_back(std::move(language)); });
    }
    if (sets.FindNext()) {
        m_currentSkin.m_strName = sets.Attribute();
        sets.ReadEntries([&](CResourceFileInfo skin) {
            if (IsNamed(skin, m_currentSkin.m_strName))
                m_currentSkin = skin;
            m_skins.push_back(std::move(skin));
        });
    }
    if (sets.FindNext())
        sets.ReadEntries([&](CResourceFileInfo style) {
            if (IsNamed(style, m_currentSkin.m_strName))
                m_currentStyle = style;
            m_styles.push_back(std::move(style));
        });
    if (sets.FindNext())
        sets.ReadEntries([&](CResourceFileInfo info) { m_templates.push_back(std::move(info)); });
    if (sets.FindNext())
        m_resMgr.SetPackageFile(sets.Attribute());
    return 1;
}

int CDUISkinMgr::LoadLanguage()
{
    const CResourceFileInfo* language = nullptr;
    if (!m_strLanguageType.IsEmpty())
        language = FindLanguage(m_languages, m_strLanguageType);
    else if (!m_languages.empty())
        language = &m_languages.front();
    if (!language)
        return 0;
    m_strLanguageType = language->m_strName;
    return m_resMgr.LoadAllString(*language);
}

int CDUISkinMgr::LoadDUIResource()
{
    return m_resMgr.LoadDUIResource(m_currentSkin);
}

int CDUISkinMgr::LoadTemplateStyle()
{
    for (const CResourceFileInfo& info : m_templates)
        m_resMgr.LoadTemplateStyle(info);
    return 1;
}

int CDUISkinMgr::LoadStyleResource()
{
    return m_resMgr.LoadStyleResource(m_currentStyle);
}

void CDUISkinMgr::UninitializeSkin()
{
    m_resMgr.ClearAllString();
    m_resMgr.ClearDUIResource();
    m_resMgr.ClearTemplate();
    m_languages.clear();
    m_templates.clear();
}

// --- switching -----------------------------------------------------------------------------------

int CDUISkinMgr::SetLanguageType(const CString& type)
{
    if (EqualLanguage(type, m_strLanguageType))
        return 0;
    const CResourceFileInfo* language = FindLanguage(m_languages, type);
    if (!language)
        return 0;
    // A copy, because a callback may change the string that the caller passed.
    const CString newType = type;
    const CString oldType = m_strLanguageType;
    m_resMgr.ClearAllString();
    m_resMgr.LoadAllString(*language);
    m_strLanguageType = newType;
    for (const auto& added : m_addedSkins)
        added.second->SetLanguageType(newType);
    Notify(this, m_languageObservers,
           [&](IDUILanguageObserver& observer) { observer.OnLanguageTypeChanged(oldType, newType); });
    return 1;
}

void CDUISkinMgr::SetSkinTyle(const CString& skin)
{
    if (skin == m_currentSkin.m_strName)
        return;
    for (const CResourceFileInfo& info : m_skins)
        if (info.m_strName == skin)
            m_currentSkin = info;
    LoadDUIResource();
    for (const CResourceFileInfo& info : m_styles)
        if (info.m_strName == skin)
            m_currentStyle = info;
    LoadStyleResource();
    for (const auto& added : m_addedSkins)
        added.second->SetSkinTyle(skin);
    NotifySkinChange();
}

void CDUISkinMgr::NotifySkinChange()
{
    Notify(this, m_skinObservers, [](IDUISkinObserver& observer) { observer.OnSkinUIDataChanged(); });
}

int CDUISkinMgr::AddSkinObserver(IDUISkinObserver* observer)
{
    return AddObserver(m_skinObservers, observer);
}

int CDUISkinMgr::RemoveSkinObserver(IDUISkinObserver* observer)
{
    std::erase(m_skinObservers, observer);
    return 1;
}

int CDUISkinMgr::AddLanguageObserver(IDUILanguageObserver* observer)
{
    return AddObserver(m_languageObservers, observer);
}

int CDUISkinMgr::RemoveLanguageObserver(IDUILanguageObserver* observer)
{
    std::erase(m_languageObservers, observer);
    return 1;
}

// --- added skins ---------------------------------------------------------------------------------

int CDUISkinMgr::AddNewSkin(const CString& entryXml)
{
    std::unique_ptr<IDUISkinMgr>& added = m_addedSkins[entryXml];
    if (added)
        return 0;
    added = std::make_unique<CDUISkinMgr>();
    added->InitializeSkin(entryXml);
    added->SetSkinTyle(m_currentSkin.m_strName);
    return 1;
}

void CDUISkinMgr::RemoveSkin(const CString& entryXml)
{
    const auto found = m_addedSkins.find(entryXml);
    if (found == m_addedSkins.end())
        return;
    found->second->UninitializeSkin();
    m_addedSkins.erase(found);
}

// --- look-ups ------------------------------------------------------------------------------------

CDUIImageListPtr CDUISkinMgr::GetImage(const CString& name, int share)
{
    return FirstAnswer(m_addedSkins, m_resMgr.GetImage(name, share),
                       [&](IDUISkinMgr& skin) { return skin.GetImage(name, share); });
}

CRefPtr<CCursorObject> CDUISkinMgr::GetCursor(const CString& name, int share)
{
    return FirstAnswer(m_addedSkins, m_resMgr.GetCursor(name, share),
                       [&](IDUISkinMgr& skin) { return skin.GetCursor(name, share); });
}

CRefPtr<CFontObject> CDUISkinMgr::GetFont(const CString& name, int share)
{
    return FirstAnswer(m_addedSkins, m_resMgr.GetFont(name, share),
                       [&](IDUISkinMgr& skin) { return skin.GetFont(name, share); });
}

CARGB CDUISkinMgr::GetColor(const CString& name)
{
    return FirstAnswer(m_addedSkins, m_resMgr.GetColor(name),
                       [&](IDUISkinMgr& skin) { return skin.GetColor(name); });
}

DWORD CDUISkinMgr::GetRawColor(const CString& name)
{
    return GetColor(name).GetColor();
}

CRefPtr<CDUIFrameBK> CDUISkinMgr::GetFrameBK(const CString& name)
{
    return FirstAnswer(m_addedSkins, m_resMgr.GetFrameBK(name),
                       [&](IDUISkinMgr& skin) { return skin.GetFrameBK(name); });
}

CRefPtr<CTextStyle> CDUISkinMgr::GetTextStyle(const CString& name)
{
    return FirstAnswer(m_addedSkins, m_resMgr.GetTextStyle(name),
                       [&](IDUISkinMgr& skin) { return skin.GetTextStyle(name); });
}

int CDUISkinMgr::GetWindowTemplate(const CString& name, CString& xml)
{
    return FirstAnswer(m_addedSkins, m_resMgr.GetWindowTemplate(name, xml),
                       [&](IDUISkinMgr& skin) { return skin.GetWindowTemplate(name, xml); });
}

int CDUISkinMgr::GetMenuTemplate(const CString& name, CString& xml)
{
    return FirstAnswer(m_addedSkins, m_resMgr.GetMenuTemplate(name, xml),
                       [&](IDUISkinMgr& skin) { return skin.GetMenuTemplate(name, xml); });
}

int CDUISkinMgr::GetControlStyle(const CString& name, CString& xml)
{
    return FirstAnswer(m_addedSkins, m_resMgr.GetControlStyle(name, xml),
                       [&](IDUISkinMgr& skin) { return skin.GetControlStyle(name, xml); });
}

int CDUISkinMgr::GetStringText(const CString& id, CString& text)
{
    return FirstAnswer(m_addedSkins, m_resMgr.GetString(id, text),
                       [&](IDUISkinMgr& skin) { return skin.GetStringText(id, text); });
}

int CDUISkinMgr::GetPlugin(const CString& name, CString& xml)
{
    return FirstAnswer(m_addedSkins, m_resMgr.GetPlugin(name, xml),
                       [&](IDUISkinMgr& skin) { return skin.GetPlugin(name, xml); });
}

}  // namespace DUI
