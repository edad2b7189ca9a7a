#include <qvui/render/render_engine.h>

#include <algorithm>
#include <cstring>

#include "foundation/rect.h"
#include "render/dc_scopes.h"
#include "render/memory_context.h"

namespace DUI {
namespace {

using namespace wrapping;

constexpr BLENDFUNCTION kBlendByPixels{AC_SRC_OVER, 0, 255, AC_SRC_ALPHA};

// Multiplies pixels by a constant alpha with the platform's rounding. Doing this once per colour makes the
// blend of each pixel cheaper, with identical results.
void Weigh(BYTE* pixels, int count, int alpha)
{
    for (int i = 0; i < 4 * count; ++i)
        pixels[i] = static_cast<BYTE>((pixels[i] * alpha + 127) / 255);
}

void Stroke(HDC hdc, int style, int x1, int y1, int x2, int y2, int penWidth, const CARGB& color)
{
    if (penWidth == 0)
        return;
    // Widths come from skins; larger widths make no visible difference.
    constexpr int kWidest = 0x7FFF;
    const HPEN pen = CreatePen(style, std::clamp(penWidth, -kWidest, kWidest), color.GetColor());
    {
        const SelectScope selected(hdc, pen);
        MoveToEx(hdc, x1, y1, nullptr);
        LineTo(hdc, x2, y2);
    }
    DeleteObject(pen);
}

}  // namespace

void CDUIRenderEngine::FillRect(HDC hdc, const RECT& rect, const CARGB& color)
{
    if (IsRectEmpty(&rect))
        return;
    if (color.GetA() == 0 || color.GetA() == 255) {
        SetBkColor(hdc, color.GetColor());
        ExtTextOutA(hdc, 0, 0, ETO_OPAQUE, &rect, nullptr, 0, nullptr);
        return;
    }
    static KeptSurface pixel(1, 1);
    BYTE* const bytes = pixel.Pixels();
    if (!bytes)
        return;
    color.WriteToDIB4(bytes);
    Weigh(bytes, 1, color.GetA());
    AlphaBlend(hdc, rect.left, rect.top, Width(rect), Height(rect), pixel.Context(), 0, 0, 1, 1,
               kBlendByPixels);
}

void CDUIRenderEngine::DrawRectangleBorder(HDC hdc, const RECT& rect, const RECT& widths, const CARGB& color)
{
    if (static_cast<LONGLONG>(widths.left) + widths.right >= Width(rect) ||
        static_cast<LONGLONG>(widths.top) + widths.bottom >= Height(rect)) {
        FillRect(hdc, rect, color);
        return;
    }
    // Top and bottom span the full width and the sides lie between them, so no pixel is painted twice.
    const RECT inner = Deflated(rect, widths);
    FillRect(hdc, {rect.left, inner.top, inner.left, inner.bottom}, color);
    FillRect(hdc, {inner.right, inner.top, rect.right, inner.bottom}, color);
    FillRect(hdc, {rect.left, rect.top, rect.right, inner.top}, color);
    FillRect(hdc, {rect.left, inner.bottom, rect.right, rect.bottom}, color);
}

void CDUIRenderEngine::DrawRoundRectBorder(HDC hdc, const RECT& rect, int ellipseWidth, int ellipseHeight,
                                           int penWidth, const CARGB& color)
{
    if (penWidth <= 0 || IsRectEmpty(&rect))
        return;
    // A pen of half the rectangle's size fills it; a wider one might draw outside it.
    const int widest = std::max(1, std::min(Width(rect), Height(rect)) / 2);
    const HPEN pen = CreatePen(PS_INSIDEFRAME, std::min(penWidth, widest), color.GetColor());
    {
        const SelectScope selectedPen(hdc, pen);
        const SelectScope selectedBrush(hdc, GetStockObject(NULL_BRUSH));
        RoundRect(hdc, rect.left, rect.top, rect.right - 1, rect.bottom - 1, ellipseWidth, ellipseHeight);
    }
    DeleteObject(pen);
}

void CDUIRenderEngine::DrawGradien(HDC hdc, const RECT& rect, const CARGB& from, const CARGB& to,
                                   int vertical)
{
    if (IsRectEmpty(&rect))
        return;
    const int sum = from.GetA() + to.GetA();
    const int alpha = sum / 2;
    if (sum <= 1 || alpha >= 255) {
        GradientFill(hdc, rect, from.GetColor(), to.GetColor(), vertical);
        return;
    }
    BlendGradient(hdc, rect, from, to, static_cast<BYTE>(alpha), vertical);
}

// All columns of a vertical gradient are equal, and so are all rows of a horizontal one. Blending a stretched
// one-pixel strip therefore gives the same pixels as the whole gradient. Only the part inside the clip box is
// blended.
void CDUIRenderEngine::BlendGradient(HDC hdc, const RECT& rect, const CARGB& from, const CARGB& to,
                                     BYTE alpha, int vertical)
{
    constexpr int kStrip = 4096;
    static KeptSurface column(1, kStrip);
    static KeptSurface row(kStrip, 1);
    KeptSurface& surface = vertical ? column : row;
    const HDC strip = surface.Context();
    RECT box{};
    RECT visible{};
    if (!strip || GetClipBox(hdc, &box) == ERROR || !IntersectRect(&visible, &rect, &box))
        return;
    const int end = vertical ? visible.bottom : visible.right;
    for (int start = vertical ? visible.top : visible.left; start < end;) {
        const int length = std::min(kStrip, end - start);
        const RECT whole = vertical ? RECT{0, Difference(rect.top, start), 1, Difference(rect.bottom, start)}
                                    : RECT{Difference(rect.left, start), 0, Difference(rect.right, start), 1};
        GradientFill(strip, whole, from.GetColor(), to.GetColor(), vertical);
        Weigh(surface.Pixels(), length, alpha);
        if (vertical)
            AlphaBlend(hdc, visible.left, start, Width(visible), length, strip, 0, 0, 1, length,
                       kBlendByPixels);
        else
            AlphaBlend(hdc, start, visible.top, length, Height(visible), strip, 0, 0, length, 1,
                       kBlendByPixels);
        start += length;
    }
}

void CDUIRenderEngine::GradientFill(HDC hdc, const RECT& rect, DWORD from, DWORD to, int vertical)
{
    // Alpha is opaque at both ends; only the constant alpha makes the gradient translucent.
    constexpr USHORT kOpaque = 0xFF00;
    const auto vertex = [](LONG x, LONG y, DWORD color) {
        return TRIVERTEX{x,
                         y,
                         static_cast<USHORT>(GetRValue(color) << 8),
                         static_cast<USHORT>(GetGValue(color) << 8),
                         static_cast<USHORT>(GetBValue(color) << 8),
                         kOpaque};
    };
    TRIVERTEX vertices[] = {vertex(rect.left, rect.top, from), vertex(rect.right, rect.bottom, to)};
    GRADIENT_RECT mesh{0, 1};
    ::GradientFill(hdc, vertices, 2, &mesh, 1, vertical ? GRADIENT_FILL_RECT_V : GRADIENT_FILL_RECT_H);
}

SIZE CDUIRenderEngine::GetTextIdealSize(const CString& text, HFONT font, int width, UINT format)
{
    const HDC screen = GetDC(nullptr);
    RECT rect{0, 0, width, 0};
    {
        const SelectScope selected(screen, font);
        ::DrawTextA(screen, text, text.GetLength(), &rect,
                    (format & ~DT_WORDBREAK) | DT_CALCRECT | DT_SINGLELINE);
    }
    ReleaseDC(nullptr, screen);
    return {Width(rect), Height(rect)};
}

int CDUIRenderEngine::DrawTextA(HDC hdc, const char* text, int length, RECT* rect, UINT format)
{
    return ::DrawTextA(hdc, text, length, rect, format);
}

namespace {

// Returns the length in bytes of the segment of a vertical text that starts at `text`: a run of ASCII, or one
// character.
int PieceLength(const char* text, const char* end)
{
    const auto isAscii = [](char byte) { return static_cast<unsigned char>(byte) < 0x80; };
    if (isAscii(*text))
        return static_cast<int>(std::find_if_not(text, end, isAscii) - text);
    if (GetACP() == CP_UTF8)
        return CharacterLength(text, end);
    return static_cast<int>(std::min<std::ptrdiff_t>(2, end - text));
}

}  // namespace

int CDUIRenderEngine::DrawVText(HDC hdc, const char* text, int, RECT* rect, UINT format)
{
    if (!rect || !text)
        return 0;
    const char* const end = text + std::strlen(text);
    int count = 0;
    for (const char* at = text; at < end; at += PieceLength(at, end))
        ++count;
    constexpr int kGap = 2;
    TEXTMETRICA metrics{};
    GetTextMetricsA(hdc, &metrics);
    const int step = metrics.tmHeight - metrics.tmInternalLeading + kGap;
    const int total = count * step;
    int top = Sum(rect->top, Difference(Difference(rect->bottom, total), rect->top) / 2);
    for (const char* at = text; at < end; top = Sum(top, step)) {
        const int length = PieceLength(at, end);
        RECT line{rect->left, top, rect->right, Sum(top, step)};
        ::DrawTextA(hdc, at, length, &line, format);
        at += length;
    }
    return total;
}

void CDUIRenderEngine::DrawLine(HDC hdc, int x1, int y1, int x2, int y2, int penWidth, const CARGB& color)
{
    Stroke(hdc, PS_SOLID, x1, y1, x2, y2, penWidth, color);
}

void CDUIRenderEngine::DrawDashLine(HDC hdc, int x1, int y1, int x2, int y2, int penWidth, const CARGB& color)
{
    Stroke(hdc, PS_DASH, x1, y1, x2, y2, penWidth, color);
}

CDUIRenderClip::CDUIRenderClip(HDC hdc, const RECT& rect) : m_hDC(hdc)
{
    RECT box{};
    if (GetClipBox(hdc, &box) == ERROR)
        box = {};
    m_hSaved = CreateRectRgnIndirect(&box);
    m_hClip = CreateRectRgnIndirect(&rect);
    ExtSelectClipRgn(hdc, m_hClip, RGN_AND);
}

CDUIRenderClip::~CDUIRenderClip()
{
    SelectClipRgn(m_hDC, m_hSaved);
    DeleteObject(m_hSaved);
    DeleteObject(m_hClip);
}

}  // namespace DUI
