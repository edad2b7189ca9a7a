#include <qvui/render/render_engine.h>

#include <qvui/render/dib_section.h>

#include "render/memory_context.h"

namespace DUI {
namespace {

int Width(const RECT& rect) { return rect.right - rect.left; }
int Height(const RECT& rect) { return rect.bottom - rect.top; }

// Selects an object for one scope.
class Selection {
public:
    Selection(HDC hdc, HGDIOBJ object) : m_hDC(hdc), m_hOld(SelectObject(hdc, object)) {}
    Selection(const Selection&) = delete;
    Selection& operator=(const Selection&) = delete;
    ~Selection() { SelectObject(m_hDC, m_hOld); }

private:
    HDC m_hDC;
    HGDIOBJ m_hOld;
};

void Stroke(HDC hdc, int style, int x1, int y1, int x2, int y2, int penWidth, const CARGB& color)
{
    if (penWidth == 0)
        return;
    const HPEN pen = CreatePen(style, penWidth, color.GetColor());
    {
        const Selection selected(hdc, pen);
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
    CDibSection pixel;
    if (!pixel.Create(1, 1, 32))
        return;
    pixel.SetPixel(0, 0, color, FALSE);
    pixel.AlphaBlend(hdc, rect, TRUE, color.GetA());
}

void CDUIRenderEngine::DrawRectangleBorder(HDC hdc, const RECT& rect, const RECT& widths, const CARGB& color)
{
    if (widths.left + widths.right >= Width(rect) || widths.top + widths.bottom >= Height(rect)) {
        FillRect(hdc, rect, color);
        return;
    }
    // Top and bottom run the full width and the sides lie between, so no pixel is painted twice.
    const int top = rect.top + widths.top;
    const int bottom = rect.bottom - widths.bottom;
    FillRect(hdc, {rect.left, top, rect.left + widths.left, bottom}, color);
    FillRect(hdc, {rect.right - widths.right, top, rect.right, bottom}, color);
    FillRect(hdc, {rect.left, rect.top, rect.right, top}, color);
    FillRect(hdc, {rect.left, bottom, rect.right, rect.bottom}, color);
}

void CDUIRenderEngine::DrawRoundRectBorder(HDC hdc, const RECT& rect, int ellipseWidth, int ellipseHeight,
                                           int penWidth, const CARGB& color)
{
    if (penWidth <= 0 || IsRectEmpty(&rect))
        return;
    const HPEN pen = CreatePen(PS_INSIDEFRAME, penWidth, color.GetColor());
    {
        const Selection selectedPen(hdc, pen);
        const Selection selectedBrush(hdc, GetStockObject(NULL_BRUSH));
        RoundRect(hdc, rect.left, rect.top, rect.right - 1, rect.bottom - 1, ellipseWidth, ellipseHeight);
    }
    DeleteObject(pen);
}

void CDUIRenderEngine::DrawGradien(HDC hdc, const RECT& rect, const CARGB& from, const CARGB& to, int vertical)
{
    if (IsRectEmpty(&rect))
        return;
    const int sum = from.GetA() + to.GetA();
    const int alpha = sum / 2;
    if (sum <= 1 || alpha >= 255) {
        GradientFill(hdc, rect, from.GetColor(), to.GetColor(), vertical);
        return;
    }
    CDibSection buffer;
    if (!buffer.Create(static_cast<DWORD>(Width(rect)), static_cast<DWORD>(Height(rect)), 32))
        return;
    const MemoryContext memory(hdc, buffer.GetBitmap());
    GradientFill(memory.Get(), {0, 0, Width(rect), Height(rect)}, from.GetColor(), to.GetColor(), vertical);
    const BLENDFUNCTION blend{AC_SRC_OVER, 0, static_cast<BYTE>(alpha), AC_SRC_ALPHA};
    AlphaBlend(hdc, rect.left, rect.top, Width(rect), Height(rect), memory.Get(), 0, 0, Width(rect), Height(rect), blend);
}

void CDUIRenderEngine::GradientFill(HDC hdc, const RECT& rect, DWORD from, DWORD to, int vertical)
{
    // Alpha is full at both ends, so that a translucent gradient is opaque before its constant alpha applies.
    constexpr USHORT kOpaque = 0xFF00;
    const auto vertex = [](LONG x, LONG y, DWORD color) {
        return TRIVERTEX{x, y, static_cast<USHORT>(GetRValue(color) << 8), static_cast<USHORT>(GetGValue(color) << 8),
                         static_cast<USHORT>(GetBValue(color) << 8), kOpaque};
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
        const Selection selected(screen, font);
        ::DrawTextA(screen, text, text.GetLength(), &rect, (format & ~DT_WORDBREAK) | DT_CALCRECT | DT_SINGLELINE);
    }
    ReleaseDC(nullptr, screen);
    return {Width(rect), Height(rect)};
}

int CDUIRenderEngine::DrawTextA(HDC hdc, const char* text, int length, RECT* rect, UINT format)
{
    return ::DrawTextA(hdc, text, length, rect, format);
}

int CDUIRenderEngine::DrawVText(HDC hdc, const char* text, int, RECT* rect, UINT format)
{
    if (!rect || !text)
        return 0;
    struct Piece {
        const char* start;
        int length;
    };
    const CString whole(text);
    const char* const end = text + whole.GetLength();
    const auto isAscii = [](char character) { return static_cast<unsigned char>(character) < 0x80; };
    const auto pieceAt = [&](const char* at) {
        if (!isAscii(*at))
            return Piece{at, CharacterLength(at, end)};
        const char* next = at;
        while (next < end && isAscii(*next))
            ++next;
        return Piece{at, static_cast<int>(next - at)};
    };
    int count = 0;
    for (const char* at = text; at < end; at += pieceAt(at).length)
        ++count;
    constexpr int kGap = 2;
    TEXTMETRICA metrics{};
    GetTextMetricsA(hdc, &metrics);
    const int step = metrics.tmHeight - metrics.tmInternalLeading + kGap;
    const int total = count * step;
    int top = rect->top + (rect->bottom - total - rect->top) / 2;
    for (const char* at = text; at < end; top += step) {
        const Piece piece = pieceAt(at);
        RECT line{rect->left, top, rect->right, top + step};
        ::DrawTextA(hdc, piece.start, piece.length, &line, format);
        at += piece.length;
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
