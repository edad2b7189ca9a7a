// Reads the resource manager's style documents: text, frame and control styles.

#include <locale>
#include <sstream>

#include <qvui/skin/text_values.h>

#include "skin/document_sets.h"
#include "skin/entry_fields.h"

namespace DUI {
namespace {

using Frame = CRefPtr<CDUIFrameBK>;

constexpr std::size_t kLongestList = 126;

// A text that is not a number leaves the separator unchanged.
void SetSeparator(const CString& text, CDUIFrameBK& frame)
{
    std::istringstream stream{std::string(text.View())};
    stream.imbue(std::locale::classic());
    double position = 0;
    if (stream >> position)
        frame.SetBKSepPos(position);
}

void SetBorder(const CString& text, CDUIFrameBK& frame)
{
    int sides[4];
    ReadIntegers(text, kLongestList, sides);
    frame.SetFrameBorder({sides[0], sides[1], sides[2], sides[3]});
}

void SetRound(const CString& text, CDUIFrameBK& frame)
{
    int size[2];
    ReadIntegers(text, kLongestList, size);
    frame.SetFrameRound(size[0], size[1]);
}

using FrameField = EntryField<void (*)(CResMgr& manager, const Frame& frame, const CString& value)>;

// In the order in which they are applied: the colours use the separator and direction that were set before.
constexpr FrameField kFrameFields[] = {
    {"back_color",
     AttributeKind::Colors,
     "One colour, or a gradient: start, end, middle. A skin with fewer colours keeps the gradient of the "
     "skin that is switched from, unless it repeats its colour (`a,a`).",
     [](CResMgr& manager, const Frame& frame, const CString& value) {
         manager.ParseFrameBKAttriColors(value, frame);
     },
     nullptr,
     {.isFill = true, .emptyIsNone = true, .stays = ""}},
    {"back_sep",
     AttributeKind::Number,
     "Where the middle colour stands: up to 1 a share of the length, above it pixels.",
     [](CResMgr&, const Frame& frame, const CString& value) { SetSeparator(value, *frame.GetPtr()); },
     nullptr,
     {.stays = "0.5", .shownBy = "back_color"}},
    {"back_vertical",
     AttributeKind::Boolean,
     "Whether the gradient runs from top to bottom.",
     [](CResMgr&, const Frame& frame, const CString& value) { frame->SetBKVertical(IsTrue(value)); },
     nullptr,
     {.stays = "true", .shownBy = "back_color"}},
    {"back_image",
     AttributeKind::Image,
     "The image over the colours.",
     [](CResMgr& manager, const Frame& frame, const CString& value) {
         frame->SetSkinImage(manager.GetImage(value, 1));
     },
     nullptr,
     {.stays = ""}},
    {"back_image_pos",
     AttributeKind::Choice,
     "Where that image stands.",
     [](CResMgr& manager, const Frame& frame, const CString& value) {
         manager.ParseFrameBKImagePos(value, frame);
     },
     ImagePositionWords,
     {.stays = "left_top", .shownBy = "back_image"}},
    {"border_image",
     AttributeKind::Image,
     "The image that the border is cut from.",
     [](CResMgr& manager, const Frame& frame, const CString& value) {
         frame->SetFrameImage(manager.GetImage(value, 1));
     },
     nullptr,
     {.stays = "", .shownBy = "border_rect"}},
    {"border_color",
     AttributeKind::Color,
     "The border's colour.",
     [](CResMgr& manager, const Frame& frame, const CString& value) {
         frame->SetFrameColor(manager.GetColor(value));
     },
     nullptr,
     {.emptyIsNone = true, .stays = "", .shownBy = "border_rect"}},
    {"border_rect",
     AttributeKind::Rect,
     "The border's thickness on each side.",
     [](CResMgr&, const Frame& frame, const CString& value) { SetBorder(value, *frame.GetPtr()); },
     nullptr,
     {.stays = "0,0,0,0"}},
    {"border_round",
     AttributeKind::IntPair,
     "Width and height of the ellipse that rounds the corners.",
     [](CResMgr&, const Frame& frame, const CString& value) { SetRound(value, *frame.GetPtr()); },
     nullptr,
     {.stays = "0,0", .shownBy = "border_rect"}},
};

constexpr EntryField<void (CTextStyle::*)(CRefPtr<CFontObject>)> kFontFields[] = {
    {"font", AttributeKind::Font, "The font.", &CTextStyle::SetNormalFont},
    {"font_hover", AttributeKind::Font, "Below the pointer; without it, as font.", &CTextStyle::SetHoverFont},
    {"font_select", AttributeKind::Font, "Selected or pressed; without it, as font.",
     &CTextStyle::SetSelectFont},
    {"font_disable", AttributeKind::Font, "Disabled; without it, as font.", &CTextStyle::SetDisableFont},
};

constexpr AttributeRules kStays{.stays = ""};
constexpr EntryField<void (CTextStyle::*)(const CARGB&)> kColorFields[] = {
    {"normal_color", AttributeKind::Color, "The text's colour.", &CTextStyle::SetNormalColor, nullptr,
     kStays},
    {"hover_color", AttributeKind::Color, "Below the pointer.", &CTextStyle::SetHoverColor, nullptr, kStays},
    {"select_color", AttributeKind::Color, "Selected or pressed.", &CTextStyle::SetSelectColor, nullptr,
     kStays},
    {"disable_color", AttributeKind::Color, "Disabled.", &CTextStyle::SetDisableColor, nullptr, kStays},
};

constexpr EntryAttribute kName{"name", AttributeKind::Text, "What controls call the style."};
constexpr EntryAttribute kFormat{"format", AttributeKind::Flags, "Alignment and line breaks.",
                                 TextFormatWords};
constexpr EntryAttribute kDefault{"default", AttributeKind::Boolean, "true: the style where none is named."};

// Returns the style with that name, creating it if necessary. All its holders see changes made by the entry.
template <class Style>
CRefPtr<Style> StyleOf(CNameTable<CRefPtr<Style>>& table, const CString& name)
{
    CRefPtr<Style>& style = table[name];
    if (style.IsNull())
        style = CRefPtr<Style>(new Style);
    return style;
}

// Returns the flags of the format word at the start of the text.
DWORD WordAt(std::string_view text)
{
    for (const DocumentWord& entry : TextFormatWords()) {
        const std::string_view word = entry.word;
        if (EqualNoCase(text.substr(0, word.size()), word))
            return static_cast<DWORD>(entry.value);
    }
    return 0;
}

}  // namespace

EntryAttributes TextStyleAttributes()
{
    EntryAttributes attributes{kName, kFormat};
    attributes.insert(attributes.end(), std::begin(kFontFields), std::end(kFontFields));
    attributes.insert(attributes.end(), std::begin(kColorFields), std::end(kColorFields));
    attributes.push_back(kDefault);
    return attributes;
}

EntryAttributes FrameStyleAttributes()
{
    EntryAttributes attributes{kName};
    attributes.insert(attributes.end(), std::begin(kFrameFields), std::end(kFrameFields));
    return attributes;
}

void CResMgr::ReadStyles(CXmlDocument& xml)
{
    ReadSets(xml, DocumentKind::Styles,
             {&CResMgr::ReadTextStyle, &CResMgr::ReadFrameStyle, &CResMgr::ReadControlStyle});
}

void CResMgr::ReadTextStyle(CXmlDocument& xml)
{
    const CString name = xml.GetChildAttribute(kName.name);
    if (name.IsEmpty())
        return;
    const CRefPtr<CTextStyle> style = StyleOf(m_textStyles, name);
    style->SetTextFormat(ParseTextFormat(xml.GetChildAttribute(kFormat.name)));
    const CString normal = xml.GetChildAttribute(kFontFields[0].name);
    for (const auto& font : kFontFields) {
        const CString own = xml.GetChildAttribute(font.name);
        (style.GetPtr()->*font.target)(GetFont(own.IsEmpty() ? normal : own, 1));
    }
    for (const auto& color : kColorFields) {
        const CString value = xml.GetChildAttribute(color.name);
        if (!value.IsEmpty())
            (style.GetPtr()->*color.target)(GetColor(value));
    }
    if (IsTrue(xml.GetChildAttribute(kDefault.name)))
        m_pDefaultTextStyle = style;
}

void CResMgr::ReadFrameStyle(CXmlDocument& xml)
{
    const CString name = xml.GetChildAttribute(kName.name);
    if (name.IsEmpty())
        return;
    const Frame frame = StyleOf(m_frames, name);
    for (const FrameField& field : kFrameFields) {
        const CString value = xml.GetChildAttribute(field.name);
        if (!value.IsEmpty())
            field.target(*this, frame, value);
    }
}

void CResMgr::ReadControlStyle(CXmlDocument& xml)
{
    ReadFragment(xml, m_controlStyles);
}

CRefPtr<CTextStyle> CResMgr::GetTextStyle(const CString& name)
{
    const CRefPtr<CTextStyle>* found = name.IsEmpty() ? nullptr : m_textStyles.Find(name);
    return found ? *found : GetDefaultTextStyle();
}

CRefPtr<CTextStyle> CResMgr::GetDefaultTextStyle()
{
    if (!m_pDefaultTextStyle.IsNull())
        return m_pDefaultTextStyle;
    if (const CRefPtr<CTextStyle>* first = m_textStyles.First()) {
        m_pDefaultTextStyle = *first;
        return m_pDefaultTextStyle;
    }
    const CARGB black(0, 0, 0, 255);
    m_pDefaultTextStyle = CRefPtr<CTextStyle>(new CTextStyle);
    m_pDefaultTextStyle->SetNormalFont(GetDefaultFont());
    for (const auto& color : kColorFields)
        (m_pDefaultTextStyle.GetPtr()->*color.target)(black);
    return m_pDefaultTextStyle;
}

CRefPtr<CDUIFrameBK> CResMgr::GetFrameBK(const CString& name) const
{
    const Frame* found = m_frames.Find(name);
    return found ? *found : Frame();
}

DWORD CResMgr::ParseTextFormat(const CString& format)
{
    DWORD flags = 0;
    const std::string_view text = format.View();
    const char* const end = text.data() + text.size();
    for (const char* at = text.data(); at < end; at += CharacterLength(at, end))
        // Every format word begins with this letter.
        if (*at == 'D' || *at == 'd')
            flags |= WordAt({at, static_cast<std::size_t>(end - at)});
    return flags;
}

void CResMgr::ParseFrameBKAttriColors(const CString& colors, const CRefPtr<CDUIFrameBK>& frame) const
{
    CARGB pieces[3];
    int from = 0;
    for (CARGB& piece : pieces) {
        const int comma = colors.Find(',', from);
        piece = GetColor(comma == -1 ? colors.Mid(from) : colors.Mid(from, comma - from));
        if (comma == -1)
            break;
        from = comma + 1;
    }
    const auto& [start, end, middle] = pieces;
    if (frame.IsNull() || start.IsEmpty())
        return;
    if (end.IsEmpty())
        frame->SetBKColor(start);
    else if (middle.IsEmpty())
        frame->SetBKColor(start, end, frame->GetBKVertical());
    else
        frame->SetBKColor(start, end, middle, frame->GetBKSepPos(), frame->GetBKVertical());
}

void CResMgr::ParseFrameBKImagePos(const CString& position, const CRefPtr<CDUIFrameBK>& frame) const
{
    if (frame.IsNull())
        return;
    CFrameBKImagePos place = frame->GetSkinImagePos();
    place.kind = 0;
    for (const DocumentWord& entry : ImagePositionWords())
        if (position.Find(entry.word) != -1) {
            place.kind = entry.value;
            break;
        }
    frame->SetSkinImagePos(place);
}

}  // namespace DUI
