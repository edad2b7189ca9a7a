// The resource manager's style documents: text, frame and control styles.

#include <limits>
#include <locale>
#include <sstream>

#include <qvui/skin/document_words.h>

#include "skin/document_sets.h"
#include "skin/integer_list.h"

namespace DUI {
namespace {

using Frame = CRefPtr<CDUIFrameBK>;

// A text that is no number leaves the separator where it was.
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
    ReadIntegerList(text, sides);
    frame.SetFrameBorder({sides[0], sides[1], sides[2], sides[3]});
}

void SetRound(const CString& text, CDUIFrameBK& frame)
{
    int size[2];
    ReadIntegerList(text, size);
    frame.SetFrameRound(size[0], size[1]);
}

struct FrameAttribute {
    const char* name;
    void (*apply)(CResMgr& manager, const Frame& frame, const CString& value);
};

// In the order in which they are applied: the colours take over the separator and the direction from before.
constexpr FrameAttribute kFrameAttributes[] = {
    {"back_color", [](CResMgr& manager, const Frame& frame,
                      const CString& value) { manager.ParseFrameBKAttriColors(value, frame); }},
    {"back_sep",
     [](CResMgr&, const Frame& frame, const CString& value) { SetSeparator(value, *frame.GetPtr()); }},
    {"back_vertical",
     [](CResMgr&, const Frame& frame, const CString& value) { frame->SetBKVertical(IsTrue(value)); }},
    {"back_image", [](CResMgr& manager, const Frame& frame,
                      const CString& value) { frame->SetSkinImage(manager.GetImage(value, 1)); }},
    {"back_image_pos", [](CResMgr& manager, const Frame& frame,
                          const CString& value) { manager.ParseFrameBKImagePos(value, frame); }},
    {"border_image", [](CResMgr& manager, const Frame& frame,
                        const CString& value) { frame->SetFrameImage(manager.GetImage(value, 1)); }},
    {"border_color", [](CResMgr& manager, const Frame& frame,
                        const CString& value) { frame->SetFrameColor(manager.GetColor(value)); }},
    {"border_rect",
     [](CResMgr&, const Frame& frame, const CString& value) { SetBorder(value, *frame.GetPtr()); }},
    {"border_round",
     [](CResMgr&, const Frame& frame, const CString& value) { SetRound(value, *frame.GetPtr()); }},
};

struct StyleFont {
    const char* attribute;
    void (CTextStyle::*set)(CRefPtr<CFontObject>);
};
constexpr StyleFont kStyleFonts[] = {
    {"font", &CTextStyle::SetNormalFont},
    {"font_hover", &CTextStyle::SetHoverFont},
    {"font_select", &CTextStyle::SetSelectFont},
    {"font_disable", &CTextStyle::SetDisableFont},
};

struct StyleColor {
    const char* attribute;
    void (CTextStyle::*set)(const CARGB&);
};
constexpr StyleColor kStyleColors[] = {
    {"normal_color", &CTextStyle::SetNormalColor},
    {"disable_color", &CTextStyle::SetDisableColor},
    {"hover_color", &CTextStyle::SetHoverColor},
    {"select_color", &CTextStyle::SetSelectColor},
};

// The style of that name; whoever holds it sees what the entry changes.
template <class Style>
CRefPtr<Style> StyleOf(CNameTable<CRefPtr<Style>>& table, const CString& name)
{
    CRefPtr<Style>& style = table[name];
    if (style.IsNull())
        style = CRefPtr<Style>(new Style);
    return style;
}

// The bits of the format's word that the text begins with.
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

void CResMgr::ReadStyles(CXmlDocument& xml)
{
    static constexpr SetKind kKinds[] = {
        {"text_style_set", "text_style", &CResMgr::ReadTextStyle},
        {"frame_style_set", "frame_style", &CResMgr::ReadFrameStyle},
        {"control_style_set", "control_style", &CResMgr::ReadControlStyle},
    };
    ReadSets(xml, kKinds);
}

void CResMgr::ReadTextStyle(CXmlDocument& xml)
{
    const CString name = xml.GetChildAttribute("name");
    if (name.IsEmpty())
        return;
    const CRefPtr<CTextStyle> style = StyleOf(m_textStyles, name);
    style->SetTextFormat(ParseTextFormat(xml.GetChildAttribute("format")));
    const CString normal = xml.GetChildAttribute("font");
    for (const StyleFont& font : kStyleFonts) {
        const CString own = xml.GetChildAttribute(font.attribute);
        (style.GetPtr()->*font.set)(GetFont(own.IsEmpty() ? normal : own, 1));
    }
    for (const StyleColor& color : kStyleColors) {
        const CString value = xml.GetChildAttribute(color.attribute);
        if (!value.IsEmpty())
            (style.GetPtr()->*color.set)(GetColor(value));
    }
    if (IsTrue(xml.GetChildAttribute("default")))
        m_pDefaultTextStyle = style;
}

void CResMgr::ReadFrameStyle(CXmlDocument& xml)
{
    const CString name = xml.GetChildAttribute("name");
    if (name.IsEmpty())
        return;
    const Frame frame = StyleOf(m_frames, name);
    for (const FrameAttribute& attribute : kFrameAttributes) {
        const CString value = xml.GetChildAttribute(attribute.name);
        if (!value.IsEmpty())
            attribute.apply(*this, frame, value);
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
    for (const StyleColor& color : kStyleColors)
        (m_pDefaultTextStyle.GetPtr()->*color.set)(black);
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
        // Every word begins with it.
        if (*at == 'D' || *at == 'd')
            flags |= WordAt({at, static_cast<std::size_t>(end - at)});
    return flags;
}

void CResMgr::ParseFrameBKAttriColors(const CString& colors, const CRefPtr<CDUIFrameBK>& frame) const
{
    const int first = colors.Find(',');
    const int second = first == -1 ? -1 : colors.Find(',', first + 1);
    const CARGB start = GetColor(first == -1 ? colors : colors.Left(first));
    const CARGB end = first == -1    ? CARGB()
                      : second == -1 ? GetColor(colors.Mid(first + 1))
                                     : GetColor(colors.Mid(first + 1, second - first - 1));
    const CARGB middle = second == -1 ? CARGB() : GetColor(colors.Mid(second + 1));
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
