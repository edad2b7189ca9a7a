// Reads the resource manager's documents: string tables, skin resources and templates.

#include <algorithm>

#include <qvui/skin/text_values.h>

#include "skin/document_sets.h"
#include "skin/source_fields.h"

namespace DUI {
namespace {

// Returns the record with the entry's name, creating it if necessary. A record without a name is not stored.
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

constexpr EntryAttribute kStringId{"id", AttributeKind::Text, "What controls call the text."};

constexpr EntryAttribute kColorName{"name", AttributeKind::Text, "What controls and styles call the colour."};
constexpr EntryAttribute kColorValue{"value", AttributeKind::LiteralColor,
                                     "The colour. With fewer than eight digits its alpha is 0."};

constexpr TextField<CResourceFontData> kFontFields[] = {
    {"name", AttributeKind::Text, "What text styles call the font.", &CResourceFontData::m_strName},
    {"facename", AttributeKind::StringId, "The typeface.", &CResourceFontData::m_strFaceName},
    {"height", AttributeKind::Integer, "The cell height in pixels; negative: the em size.",
     &CResourceFontData::m_strHeight},
    {"weight", kFontWeights, "400 is normal, 700 bold.", &CResourceFontData::m_strWeight},
    {"italic", AttributeKind::Boolean, "Whether it is italic.", &CResourceFontData::m_strItalic},
    {"underline", AttributeKind::Boolean, "Whether it is underlined.", &CResourceFontData::m_strUnderline},
    {"strikeout", AttributeKind::Boolean, "Whether it is struck out.", &CResourceFontData::m_strStrikeout},
};
constexpr EntryAttribute kFontDefault{"default", AttributeKind::Boolean,
                                      "true: the font where none is named."};

// In addition to the source fields.
constexpr TextField<CResourceImageData> kImageFields[] = {
    {"count", kIconCounts, "How many icons the picture holds; 1 without it.",
     &CResourceImageData::m_strCount},
    {"direction", AttributeKind::ChoiceAny, "vert: the icons stand one above the other, not side by side.",
     &CResourceImageData::m_strDirection, DirectionWords},
    {"drawstyle", AttributeKind::ChoiceAny,
     "How an icon fills a larger rectangle; without it, it is stretched.",
     &CResourceImageData::m_strDrawStyle, DrawStyleWords},
    {"corner", AttributeKind::IntPair,
     "Width and height of the corners that keep their size in stretch_horz, stretch_vert and squard; the "
     "first number alone counts in stretch_vert.",
     &CResourceImageData::m_strCorner},
    {"alpha", AttributeKind::Text, "Kept, but without effect.", &CResourceImageData::m_strAlpha},
    {"mask_color", AttributeKind::Text, "Kept, but without effect.", &CResourceImageData::m_strMaskColor},
};

}  // namespace

EntryAttributes StringAttributes()
{
    return {kStringId};
}

EntryAttributes ColorAttributes()
{
    return {kColorName, kColorValue};
}

EntryAttributes CursorAttributes()
{
    return SourceAttributes("What controls call the cursor.");
}

EntryAttributes FontAttributes()
{
    EntryAttributes attributes = AttributesOf(kFontFields);
    attributes.push_back(kFontDefault);
    return attributes;
}

EntryAttributes ImageAttributes()
{
    EntryAttributes attributes =
        SourceAttributes("What controls and styles call the image.", AttributesOf(kImageFields));
    for (EntryAttribute& attribute : attributes)
        if (std::string_view(attribute.name) == "config_type")
            attribute.rules.lostBySwitch = "dll|exe";
    return attributes;
}

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

// A set after one of a later kind is ignored.
void CResMgr::ReadSets(CXmlDocument& xml, DocumentKind document, std::initializer_list<ReadEntry> readers)
{
    const std::vector<SetSchema>& sets = SchemaOf(document).sets;
    auto kind = sets.begin();
    while (xml.FindChildElement()) {
        const CString set = xml.GetChildTagName();
        const auto found =
            std::find_if(kind, sets.end(), [&](const SetSchema& later) { return set == later.set; });
        if (found == sets.end())
            continue;
        kind = found;
        const ReadEntry read = readers.begin()[kind - sets.begin()];
        xml.IntoElement();
        while (xml.FindChildElement(kind->entry))
            (this->*read)(xml);
        xml.OutOfElement();
    }
}

void CResMgr::ReadStrings(CXmlDocument& xml)
{
    while (xml.FindChildElement(SchemaOf(DocumentKind::Strings).sets.front().entry)) {
        const CString id = xml.GetChildAttribute(kStringId.name);
        CString text = xml.GetChildData();
        if (!id.IsEmpty() && !text.IsEmpty())
            m_strings.Add(id, std::move(text));
    }
}

void CResMgr::ReadTemplates(CXmlDocument& xml)
{
    ReadSets(xml, DocumentKind::Templates,
             {&CResMgr::ReadMenuTemplate, &CResMgr::ReadWindowTemplate, &CResMgr::ReadPlugin});
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
    ReadSets(xml, DocumentKind::Resources,
             {&CResMgr::ReadColor, &CResMgr::ReadCursor, &CResMgr::ReadFont, &CResMgr::ReadImage});
}

void CResMgr::ReadColor(CXmlDocument& xml)
{
    const CString name = xml.GetChildAttribute(kColorName.name);
    const CString value = xml.GetChildAttribute(kColorValue.name);
    CARGB color;
    if (!name.IsEmpty() && !value.IsEmpty() && GetColorFromString(value, color))
        m_colors[name] = color;
}

void CResMgr::ReadCursor(CXmlDocument& xml)
{
    ReadFields(xml, kSourceFields, *RecordOf(xml, m_cursors).GetPtr());
}

void CResMgr::ReadFont(CXmlDocument& xml)
{
    const CRefPtr<CResourceFontData> record = RecordOf(xml, m_fonts);
    ReadFields(xml, kFontFields, *record.GetPtr());
    if (!IsTrue(xml.GetChildAttribute(kFontDefault.name)))
        return;
    record->m_pFont = CreateFontA(record);
    m_pDefaultFont = record->m_pFont;
}

void CResMgr::ReadImage(CXmlDocument& xml)
{
    const CRefPtr<CResourceImageData> record = RecordOf(xml, m_images);
    ReadFields(xml, kSourceFields, *record.GetPtr());
    ReadFields(xml, kImageFields, *record.GetPtr());
    // Users of the existing list get the new picture.
    if (record->m_pImageList)
        m_loader.LoadImageFromFile(record->m_strFileName, record->m_pImageList);
}

}  // namespace DUI
