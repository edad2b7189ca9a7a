#include "tooltip/markup/fonts.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>

#include <qvui/platform/cstring.h>

#include "skin/skin_access.h"

namespace DUI::html {
namespace {

constexpr std::size_t kMostFonts = 128;
constexpr int kDefaultSize = 12;
constexpr LONG kSmallestSize = 4;
constexpr LONG kLargestSize = 200;

void CopyFaceName(char (&face)[LF_FACESIZE], const std::string& name)
{
    const std::size_t length = std::min(name.size(), std::size(face) - 1);
    std::memcpy(face, name.data(), length);
    face[length] = '\0';
}

LONG HeightOf(const Style& style, LONG base)
{
    const LONG height = style.size > 0 ? -style.size : base == 0 ? -kDefaultSize : base;
    const LONG size = std::clamp<LONG>(std::abs(height) + style.sizeStep, kSmallestSize, kLargestSize);
    return height < 0 ? -size : size;
}

}  // namespace

bool FontSet::SetBase(const LOGFONTA& base)
{
    if (std::memcmp(&base, &m_base, sizeof base) == 0)
        return false;
    Clear();
    m_base = base;
    return true;
}

void FontSet::Clear()
{
    for (const auto& [style, font] : m_fonts)
        DeleteObject(font);
    m_fonts.clear();
    m_last = nullptr;
}

HFONT FontSet::Get(const Style& style)
{
    Style key = style;
    key.color.clear();
    key.isCentered = false;
    if (const auto found = m_fonts.find(key); found != m_fonts.end())
        return found->second;
    if (m_fonts.size() >= kMostFonts)
        return m_last;
    LOGFONTA description = m_base;
    description.lfHeight = HeightOf(style, m_base.lfHeight);
    if (style.isBold)
        description.lfWeight = FW_BOLD;
    description.lfItalic = description.lfItalic || style.isItalic;
    description.lfUnderline = description.lfUnderline || style.isUnderlined;
    description.lfStrikeOut = description.lfStrikeOut || style.isStruckOut;
    if (!style.face.empty())
        CopyFaceName(description.lfFaceName, style.face);
    m_last = CreateFontIndirectA(&description);
    m_fonts.emplace(std::move(key), m_last);
    return m_last;
}

ContextRuler::ContextRuler(HDC hdc, FontSet& fonts, const Document& document)
    : m_hDC(hdc),
      m_saved(hdc),
      m_fonts(fonts),
      m_document(document)
{
}

void ContextRuler::Select(int style)
{
    if (style == m_selected)
        return;
    m_selected = style;
    SelectObject(m_hDC, m_fonts.Get(m_document.styles[static_cast<std::size_t>(style)]));
}

int ContextRuler::Width(int style, std::string_view text)
{
    Select(style);
    SIZE extent{};
    GetTextExtentPoint32A(m_hDC, text.data(), static_cast<int>(text.size()), &extent);
    return extent.cx;
}

LineMetrics ContextRuler::Metrics(int style)
{
    const auto [found, isNew] = m_metrics.try_emplace(style);
    if (isNew) {
        Select(style);
        TEXTMETRICA metrics{};
        GetTextMetricsA(m_hDC, &metrics);
        found->second = {metrics.tmHeight + metrics.tmExternalLeading, metrics.tmAscent};
    }
    return found->second;
}

SIZE ContextRuler::Image(const std::string& name, int)
{
    const CDUIImageListPtr image = skin::Image(CString(std::string_view(name)));
    return skin::IsLoaded(image) ? SIZE{image->GetIconWidth(), image->GetIconHeight()} : SIZE{};
}

}  // namespace DUI::html
