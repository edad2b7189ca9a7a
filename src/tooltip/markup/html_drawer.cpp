#include <qvui/tooltip/html_drawer.h>

#include <algorithm>
#include <optional>
#include <string>
#include <utility>

#include <qvui/render/render_engine.h>

#include "skin/skin_access.h"
#include "tooltip/markup/fonts.h"
#include "tooltip/markup/line_layout.h"
#include "tooltip/markup/parser.h"

namespace DUI {
namespace {

constexpr BYTE kRuleAlpha = 96;

std::optional<COLORREF> BasicColor(const CString& name)
{
    static constexpr std::pair<std::string_view, COLORREF> kColors[] = {
        {"black", RGB(0, 0, 0)},       {"silver", RGB(192, 192, 192)}, {"gray", RGB(128, 128, 128)},
        {"white", RGB(255, 255, 255)}, {"maroon", RGB(128, 0, 0)},     {"red", RGB(255, 0, 0)},
        {"purple", RGB(128, 0, 128)},  {"fuchsia", RGB(255, 0, 255)},  {"green", RGB(0, 128, 0)},
        {"lime", RGB(0, 255, 0)},      {"olive", RGB(128, 128, 0)},    {"yellow", RGB(255, 255, 0)},
        {"navy", RGB(0, 0, 128)},      {"blue", RGB(0, 0, 255)},       {"teal", RGB(0, 128, 128)},
        {"aqua", RGB(0, 255, 255)},
    };
    for (const auto& [known, color] : kColors)
        if (EqualNoCase(name.View(), known))
            return color;
    return std::nullopt;
}

/// Returns the colour that a tag names: a literal, a skin colour or a basic colour; otherwise the surrounding
/// text's.
COLORREF ColorOf(const std::string& text, COLORREF ordinary)
{
    if (text.empty())
        return ordinary;
    const CString name{std::string_view(text)};
    CARGB color;
    if (ParseColorLiteral(name, color))
        return color.GetColor();
    color = skin::Color(name);
    return color.IsEmpty() ? BasicColor(name).value_or(ordinary) : color.GetColor();
}

HFONT SkinFont()
{
    if (IDUISkinMgr* const manager = skin::Manager())
        if (const CRefPtr<CFontObject> font = manager->GetFont("", 1); !font.IsNull() && !font->IsNull())
            return font->GetFont();
    return static_cast<HFONT>(GetStockObject(DEFAULT_GUI_FONT));
}

/// Holds the caller's context, or the screen's if it is null.
class Context {
public:
    explicit Context(HDC hdc) : m_hDC(hdc ? hdc : GetDC(nullptr)), m_isScreen(!hdc) {}
    Context(const Context&) = delete;
    Context& operator=(const Context&) = delete;
    ~Context()
    {
        if (m_isScreen)
            ReleaseDC(nullptr, m_hDC);
    }
    HDC Get() const { return m_hDC; }

private:
    HDC m_hDC;
    bool m_isScreen;
};

}  // namespace

class CPPHtmlDrawer::Impl {
public:
    void SetText(std::string_view markup)
    {
        m_document = html::ParseMarkup(markup);
        m_isLaidOut = false;
    }

    void SetFont(HFONT font) { m_hasFont = font && GetObjectA(font, sizeof m_font, &m_font) != 0; }
    void SetTextColor(COLORREF color) { m_color = color; }

    SIZE Measure(HDC hdc, int maxWidth, int maxHeight)
    {
        FollowFont();
        const Context context(hdc);
        html::ContextRuler ruler(context.Get(), m_fonts, m_document);
        LayOut(ruler, maxWidth, maxHeight);
        return m_layout.size;
    }

    void Draw(HDC hdc, const RECT& rect)
    {
        FollowFont();
        html::ContextRuler ruler(hdc, m_fonts, m_document);
        const int width = rect.right - rect.left;
        if (!m_isLaidOut || width < m_layout.size.cx || width > m_maxWidth)
            LayOut(ruler, width, kLargestExtent);
        IntersectClipRect(hdc, rect.left, rect.top, rect.right, rect.bottom);
        SetBkMode(hdc, TRANSPARENT);
        for (const html::Line& line : m_layout.lines)
            DrawLine(hdc, ruler, line, rect);
    }

private:
    void FollowFont()
    {
        LOGFONTA base = m_font;
        if (!m_hasFont)
            GetObjectA(SkinFont(), sizeof base, &base);
        if (m_fonts.SetBase(base))
            m_isLaidOut = false;
    }

    void LayOut(html::ContextRuler& ruler, int maxWidth, int maxHeight)
    {
        m_maxWidth = std::clamp(maxWidth, 1, kLargestExtent);
        m_layout = html::LayOut(m_document, ruler, m_maxWidth, std::min(maxHeight, kLargestExtent));
        m_isLaidOut = true;
    }

    void DrawLine(HDC hdc, html::ContextRuler& ruler, const html::Line& line, const RECT& rect)
    {
        const RECT place{rect.left, rect.top + line.top, rect.right, rect.top + line.top + line.height};
        if (!RectVisible(hdc, &place))
            return;
        const int shift = rect.left + line.Shift(rect.right - rect.left);
        for (const html::Box& box : m_layout.BoxesOf(line)) {
            RECT at = box.rect;
            OffsetRect(&at, shift, rect.top);
            DrawBox(hdc, ruler, box, at, rect);
        }
    }

    void DrawBox(HDC hdc, html::ContextRuler& ruler, const html::Box& box, RECT at, const RECT& rect)
    {
        const COLORREF color = ColorOf(m_document.styles[static_cast<std::size_t>(box.style)].color, m_color);
        if (box.kind == html::PieceKind::Image) {
            if (const CDUIImageListPtr image = skin::Image(CString(std::string_view(box.text)));
                skin::IsLoaded(image))
                image->DrawImage(hdc, at, skin::IconIndex(image, box.number));
        } else if (box.kind == html::PieceKind::Rule) {
            const LONG middle = (at.top + at.bottom) / 2;
            CDUIRenderEngine::FillRect(
                hdc, {at.left, middle, rect.right, middle + 1},
                CARGB(GetRValue(color), GetGValue(color), GetBValue(color), kRuleAlpha));
        } else {
            ruler.Select(box.style);
            ::SetTextColor(hdc, color);
            TextOutA(hdc, at.left, at.top, box.text.data(), static_cast<int>(box.text.size()));
        }
    }

    html::Document m_document = html::ParseMarkup({});
    html::Layout m_layout;
    html::FontSet m_fonts;
    LOGFONTA m_font{};
    COLORREF m_color = RGB(0, 0, 0);
    int m_maxWidth = 0;
    bool m_hasFont = false;
    bool m_isLaidOut = false;
};

CPPHtmlDrawer::CPPHtmlDrawer() : m_pImpl(std::make_unique<Impl>())
{
}

CPPHtmlDrawer::~CPPHtmlDrawer() = default;

void CPPHtmlDrawer::SetText(const CString& markup)
{
    m_pImpl->SetText(markup.View());
}

void CPPHtmlDrawer::SetFont(HFONT font)
{
    m_pImpl->SetFont(font);
}

void CPPHtmlDrawer::SetTextColor(COLORREF color)
{
    m_pImpl->SetTextColor(color);
}

SIZE CPPHtmlDrawer::Measure(HDC hdc, int maxWidth, int maxHeight)
{
    return m_pImpl->Measure(hdc, maxWidth, maxHeight);
}

void CPPHtmlDrawer::Draw(HDC hdc, const RECT& rect)
{
    m_pImpl->Draw(hdc, rect);
}

CString CPPHtmlDrawer::Escape(const CString& text)
{
    CString escaped(text);
    escaped.Replace("&", "&amp;");
    escaped.Replace("<", "&lt;");
    return escaped;
}

}  // namespace DUI
