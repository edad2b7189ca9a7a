// The resource manager's documents: string tables, skin resources and templates.

#include "skin/document_sets.h"

namespace DUI {
namespace {

/// An attribute of an entry and the record's text that it fills.
template <class Record>
struct Field {
    const char* attribute;
    CString Record::*text;
};

// A record that is there already takes over what the entry says, missing attributes as empty texts.
template <class Record, std::size_t Count>
void ReadFields(const CXmlDocument& xml, const Field<Record> (&fields)[Count], Record& record)
{
    for (const auto& field : fields)
        record.*field.text = xml.GetChildAttribute(field.attribute);
}

// The record of the entry's name, new when there is none yet. One without a name is not kept.
template <class Record>
CRefPtr<Record> RecordOf(const CXmlDocument& xml, CNameTable<CRefPtr<Record>>& table)
{
    const CString name = xml.GetChildAttribute("name");
    if (name.IsEmpty())
        return CRefPtr<Record>(new Record);
    CRefPtr<Record>& stored = table[name];
    if (stored.IsNull())
        stored = CRefPtr<Record>(new Record);
    return stored;
}

constexpr Field<CResourceCursorData> kCursorFields[] = {
    {"name", &CResourceCursorData::m_strName},
    {"config_type", &CResourceCursorData::m_strConfigType},
    {"file_name", &CResourceCursorData::m_strFileName},
    {"resource_id", &CResourceCursorData::m_strResourceId},
    {"resource_type", &CResourceCursorData::m_strResourceType},
};

constexpr Field<CResourceFontData> kFontFields[] = {
    {"name", &CResourceFontData::m_strName},           {"facename", &CResourceFontData::m_strFaceName},
    {"italic", &CResourceFontData::m_strItalic},       {"underline", &CResourceFontData::m_strUnderline},
    {"height", &CResourceFontData::m_strHeight},       {"weight", &CResourceFontData::m_strWeight},
    {"strikeout", &CResourceFontData::m_strStrikeout},
};

constexpr Field<CResourceImageData> kImageFields[] = {
    {"name", &CResourceImageData::m_strName},
    {"config_type", &CResourceImageData::m_strConfigType},
    {"file_name", &CResourceImageData::m_strFileName},
    {"resource_id", &CResourceImageData::m_strResourceId},
    {"resource_type", &CResourceImageData::m_strResourceType},
    {"alpha", &CResourceImageData::m_strAlpha},
    {"mask_color", &CResourceImageData::m_strMaskColor},
    {"count", &CResourceImageData::m_strCount},
    {"direction", &CResourceImageData::m_strDirection},
    {"drawstyle", &CResourceImageData::m_strDrawStyle},
    {"corner", &CResourceImageData::m_strCorner},
};

}  // namespace

int CResMgr::Parse(const CString& xml, ReadDocument read)
{
    CXmlDocument document;
    if (!document.SetDocument(xml))
        return 0;
    (this->*read)(document);
    return 1;
}

int CResMgr::ParseAllString(const CString& xml)
{
    return Parse(xml, &CResMgr::ReadStrings);
}

int CResMgr::ParseDUIResource(const CString& xml)
{
    return Parse(xml, &CResMgr::ReadResources);
}

int CResMgr::ParseTemplateStyle(const CString& xml)
{
    return Parse(xml, &CResMgr::ReadTemplates);
}

int CResMgr::ParseStyleResource(const CString& xml)
{
    return Parse(xml, &CResMgr::ReadStyles);
}

void CResMgr::ReadStrings(CXmlDocument& xml)
{
    while (xml.FindChildElement("string")) {
        const CString id = xml.GetChildAttribute("id");
        CString text = xml.GetChildData();
        if (!id.IsEmpty() && !text.IsEmpty())
            m_strings.Add(id, std::move(text));
    }
}

void CResMgr::ReadTemplates(CXmlDocument& xml)
{
    static constexpr SetKind kKinds[] = {
        {"menu_template", "menu", &CResMgr::ReadMenuTemplate},
        {"window_template", "window", &CResMgr::ReadWindowTemplate},
        {"plugin_set", "plugin", &CResMgr::ReadPlugin},
    };
    ReadSets(xml, kKinds);
}

void CResMgr::ReadMenuTemplate(CXmlDocument& xml)
{
    ReadFragment(xml, m_menuTemplates);
}

void CResMgr::ReadWindowTemplate(CXmlDocument& xml)
{
    ReadFragment(xml, m_windowTemplates);
}

void CResMgr::ReadPlugin(CXmlDocument& xml)
{
    ReadFragment(xml, m_plugins);
}

void CResMgr::ReadResources(CXmlDocument& xml)
{
    static constexpr SetKind kKinds[] = {
        {"color_set", "color", &CResMgr::ReadColor},
        {"cursor_set", "cursor", &CResMgr::ReadCursor},
        {"font_set", "font", &CResMgr::ReadFont},
        {"image_set", "image", &CResMgr::ReadImage},
    };
    ReadSets(xml, kKinds);
}

void CResMgr::ReadColor(CXmlDocument& xml)
{
    const CString name = xml.GetChildAttribute("name");
    const CString value = xml.GetChildAttribute("value");
    CARGB color;
    if (!name.IsEmpty() && !value.IsEmpty() && GetColorFromString(value, color))
        m_colors[name] = color;
}

void CResMgr::ReadCursor(CXmlDocument& xml)
{
    ReadFields(xml, kCursorFields, *RecordOf(xml, m_cursors).GetPtr());
}

void CResMgr::ReadFont(CXmlDocument& xml)
{
    const CRefPtr<CResourceFontData> record = RecordOf(xml, m_fonts);
    ReadFields(xml, kFontFields, *record.GetPtr());
    if (!IsTrue(xml.GetChildAttribute("default")))
        return;
    record->m_pFont = CreateFontA(record);
    m_pDefaultFont = record->m_pFont;
}

void CResMgr::ReadImage(CXmlDocument& xml)
{
    const CRefPtr<CResourceImageData> record = RecordOf(xml, m_images);
    ReadFields(xml, kImageFields, *record.GetPtr());
    // Whoever holds the list made before sees the new picture.
    if (record->m_pImageList)
        m_loader.LoadImageFromFile(record->m_strFileName, record->m_pImageList);
}

}  // namespace DUI
