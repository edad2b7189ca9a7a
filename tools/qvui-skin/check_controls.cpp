#include <algorithm>

#include <qvui/bars/builtin_controls.h>
#include <qvui/framework/control_base.h>
#include <qvui/framework/window/window_mgr.h>

#include "check.h"
#include "controls.h"

namespace qvui::skin_tool {
namespace {

using DUI::AttributeInfo;
using DUI::ControlClass;

const std::string kAllSkins;

struct LibraryName {
    NameKind kind;
    const char* name;
};
// The controls that Enter and Escape activate.
constexpr const char* kLibraryControls[] = {"ok", "cancel"};
// What the library asks for by itself.
constexpr LibraryName kLibraryNames[] = {
    {NameKind::ControlStyle, "cs_v_scrollbar"},
    {NameKind::ControlStyle, "cs_h_scrollbar"},
    {NameKind::String, "ids_def_font_txt_name"},
};

}  // namespace

void Checker::UseDefaults()
{
    m_searchedNames.insert(std::begin(kLibraryControls), std::end(kLibraryControls));
    for (const LibraryName& entry : kLibraryNames)
        m_names.Use(entry.kind, entry.name);
    for (const DUI::BuiltinControl& control : DUI::BuiltinControls())
        for (const ControlClass* known = &control.describe(); known; known = known->Base())
            if (known->Attributes())
                for (const AttributeInfo& info : known->Attributes()->Infos())
                    for (const Reference& reference :
                         ReferencesOf(info.syntax.kind, info.syntax.defaultValue))
                        m_names.Use(reference.kind, reference.name);
}

void Checker::CollectControls(const Document& document, int window)
{
    for (int i = window + 1; i < document.EndOf(window); ++i) {
        const Element& element = document.At(i);
        m_controlNames.insert(element.Value("name"));
        for (const Attribute& attribute : element.attributes)
            if (const AttributeInfo* const info = FindAttributeAnywhere(attribute.name);
                info && info->syntax.kind == ValueKind::ControlName)
                m_searchedNames.insert(attribute.value);
        if (const ControlClass* const known = ClassOf(element.tag))
            m_styleUsers.emplace(element.Value("control_style"), known);
        else
            m_customStyles.insert(element.Value("control_style"));
    }
}

void Checker::CheckWindow(const PackageDocument& part, int window)
{
    const Document& document = *part.document;
    const Element& element = document.At(window);
    const DUI::AttributeList& known = DUI::CDUIWindowMgr::WindowAttributes();
    const Place place{document, element, kAllSkins};
    for (const Attribute& attribute : element.attributes)
        if (const AttributeInfo* const info = FindAttribute(known, attribute.name))
            CheckValue(place, attribute, info->syntax);
        else
            ReportUnknown(place, attribute, AttributeNames(known));
    if (element.firstChild < 0)
        m_report.Add(Severity::Error, document, element.offset,
                     "a window without a root control cannot be made");
    else if (const int second = document.At(element.firstChild).next; second >= 0)
        m_report.Add(Severity::Error, document, document.At(second).offset,
                     "a window has one root control, so this one is left out");
    ControlNames controls;
    for (int i = window + 1; i < document.EndOf(window); ++i)
        controls.insert(document.At(i).Value("name"));
    for (int i = window + 1; i < document.EndOf(window); ++i)
        CheckControl({document, document.At(i), kAllSkins, &controls});
    CheckUniqueValues(document, window);
}

void Checker::CheckControl(const Place& place)
{
    const ControlClass* const known = ClassOf(place.element.tag);
    const bool isCustom = std::find(m_tags.begin(), m_tags.end(), place.element.tag) != m_tags.end();
    if (!known && !isCustom) {
        const auto tags = [this] {
            std::vector<std::string> names = BuiltinTags();
            names.insert(names.end(), m_tags.begin(), m_tags.end());
            return names;
        };
        const std::string suggestion = m_report.Suggest(place.element.tag, tags);
        std::string text =
            "unknown element \"" + place.element.tag + "\": it is left out with all that it holds";
        if (suggestion.empty())
            text.append(", unless the application registers it (--tag ")
                .append(place.element.tag)
                .append(")");
        m_report.Add(Severity::Error, place.document, place.element.offset, std::move(text), suggestion);
    }
    CheckControlAttributes(place, known);
    CheckOrder(place, known ? *known : DUI::CDUIControlBase::Class());
}

// Without a class the control is the application's: what every control has is checked, the rest is accepted.
void Checker::CheckControlAttributes(const Place& place, const ControlClass* control)
{
    for (const Attribute& attribute : place.element.attributes) {
        const AttributeInfo* const info =
            FindAttribute(control ? *control : DUI::CDUIControlBase::Class(), attribute.name);
        if (info)
            CheckValue(place, attribute, info->syntax);
        else if (control)
            ReportUnknown(place, attribute, AttributeNames(*control));
        else
            m_names.Use(attribute.value);
    }
}

void Checker::CheckControlStyle(const PackageDocument& part, int entry)
{
    const Element& style = part.document->At(entry);
    const Place place{*part.document, style, part.name};
    const bool isCustom = m_customStyles.count(style.Value("name")) > 0;
    const auto user = m_styleUsers.find(style.Value("name"));
    for (const Attribute& attribute : style.attributes) {
        if (attribute.name == "name")
            continue;
        // Classes may mean different values by one name.
        const AttributeInfo* info =
            user == m_styleUsers.end() ? nullptr : FindAttribute(*user->second, attribute.name);
        if (!info)
            info = FindAttributeAnywhere(attribute.name);
        if (info)
            CheckValue(place, attribute, info->syntax);
        else if (isCustom)
            m_names.Use(attribute.value);
        else
            ReportUnknown(place, attribute, AllAttributeNames());
    }
    CheckStyleOrder(place);
}

}  // namespace qvui::skin_tool
