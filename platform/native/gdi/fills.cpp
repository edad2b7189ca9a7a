// Solid and pattern fills, gradients and single pixels.

#include <algorithm>
#include <array>

#include "native/gdi/device_context.h"

namespace qvui::native {
namespace {

constexpr std::uint32_t kColourBits = 0x00FFFFFF;

void FillPart(const Surface& surface, const RECT& part, std::uint32_t pixel)
{
    if (surface.bitsPerPixel != 32) {
        for (int y = part.top; y < part.bottom; ++y)
            for (int x = part.left; x < part.right; ++x)
                surface.Set(x, y, pixel);
        return;
    }
    const auto count = static_cast<std::size_t>(part.right - part.left);
    const std::ptrdiff_t stride = surface.stride;
    std::uint8_t* row = surface.Row(part.top) + part.left * sizeof pixel;
    for (int y = part.top; y < part.bottom; ++y, row += stride)
        Repeat(pixel, count, reinterpret_cast<std::uint32_t*>(row));
}

int Modulo(int value, int divisor)
{
    const int rest = value % divisor;
    return rest < 0 ? rest + divisor : rest;
}

// The pattern starts at the brush origin in device coordinates; the viewport does not move it.
void FillWithPattern(DeviceContext& context, const RECT& part, const Surface& pattern)
{
    const int originX =
        Saturated(static_cast<std::int64_t>(context.state.brushOrigin.x) + context.Origin().x);
    const int originY =
        Saturated(static_cast<std::int64_t>(context.state.brushOrigin.y) + context.Origin().y);
    for (int y = part.top; y < part.bottom; ++y) {
        const std::uint32_t* row = pattern.Row32(Modulo(y - originY, pattern.height));
        int start = Modulo(part.left - originX, pattern.width);
        for (int x = part.left; x < part.right; start = 0) {
            const int count = std::min(pattern.width - start, static_cast<int>(part.right) - x);
            context.Target().Store(x, y, count, row + start);
            x += count;
        }
    }
}

template <class Change>
void ChangePixels(DeviceContext& context, const RECT& rect, Change change)
{
    ForEachDrawable(context, rect, [&](const RECT& part) {
        for (int y = part.top; y < part.bottom; ++y)
            for (int x = part.left; x < part.right; ++x)
                context.Target().Set(x, y, change(context.Target().Get(x, y), x, y));
    });
}

}  // namespace

void FillPixels(DeviceContext& context, const RECT& rect, std::uint32_t pixel)
{
    ForEachDrawable(context, rect, [&](const RECT& part) { FillPart(context.Target(), part, pixel); });
}

void FillOpaqueRectangle(DeviceContext& context, RECT rect)
{
    FillPixels(context, context.ToSurface(Normalised(rect)), PixelOf(context.state.backColour));
}

void FillRectangle(DeviceContext& context, const RECT& rect, const BrushObject& brush)
{
    if (brush.isNull)
        return;
    if (brush.pattern)
        ForEachDrawable(context, rect,
                        [&](const RECT& part) { FillWithPattern(context, part, *brush.pattern); });
    else
        FillPixels(context, rect, PixelOf(brush.colour));
}

void FillRegion(DeviceContext& context, const Region& region, const BrushObject& brush)
{
    for (const pixman_box32_t& box : region.Boxes())
        FillRectangle(context, {box.x1, box.y1, box.x2, box.y2}, brush);
}

}  // namespace qvui::native

using namespace qvui::native;

int FillRect(HDC dc, const RECT* rect, HBRUSH brush)
{
    DeviceContext* context = LookUpContext(dc);
    const auto* const fill = PeekGdiObject<BrushObject>(brush);
    if (!context || !fill || !rect)
        return 0;
    FillRectangle(*context, context->ToSurface(*rect), *fill);
    return 1;
}

int FrameRect(HDC dc, const RECT* rect, HBRUSH brush)
{
    if (IsEmptyRect(*rect))
        return 0;
    const RECT r = *rect;
    const RECT edges[] = {{r.left, r.top, r.right, r.top + 1},
                          {r.left, r.bottom - 1, r.right, r.bottom},
                          {r.left, r.top, r.left + 1, r.bottom},
                          {r.right - 1, r.top, r.right, r.bottom}};
    for (const RECT& edge : edges)
        if (!FillRect(dc, &edge, brush))
            return 0;
    return 1;
}

BOOL InvertRect(HDC dc, const RECT* rect)
{
    DeviceContext* context = LookUpContext(dc);
    if (!context)
        return FALSE;
    ChangePixels(*context, context->ToSurface(*rect), [](std::uint32_t pixel, int, int) { return ~pixel; });
    return TRUE;
}

BOOL DrawFocusRect(HDC dc, const RECT* rect)
{
    DeviceContext* context = LookUpContext(dc);
    if (!context)
        return FALSE;
    const RECT r = context->ToSurface(Normalised(*rect));
    if (IsEmptyRect(r))
        return TRUE;
    const auto dotted = [&r](std::uint32_t pixel, int x, int y) {
        return ((x - (r.right - 1)) + (y - r.top)) % 2 == 0 ? pixel ^ kColourBits : pixel;
    };
    ChangePixels(*context, {r.left, r.top, r.right, r.top + 1}, dotted);
    if (r.bottom - r.top > 1)
        ChangePixels(*context, {r.left, r.bottom - 1, r.right, r.bottom}, dotted);
    ChangePixels(*context, {r.left, r.top + 1, r.left + 1, r.bottom - 1}, dotted);
    if (r.right - r.left > 1)
        ChangePixels(*context, {r.right - 1, r.top + 1, r.right, r.bottom - 1}, dotted);
    return TRUE;
}

BOOL PatBlt(HDC dc, int x, int y, int width, int height, DWORD operation)
{
    DeviceContext* context = LookUpContext(dc);
    if (!context)
        return FALSE;
    const RECT rect = Normalised(context->ToSurface(x, y, width, height));
    const std::uint32_t brush = PixelOf(context->state.brushObject->colour);
    switch (operation) {
        case PATCOPY:
            FillRectangle(*context, rect, *context->state.brushObject);
            return TRUE;
        case BLACKNESS:
            FillPixels(*context, rect, 0);
            return TRUE;
        case WHITENESS:
            FillPixels(*context, rect, 0xFFFFFFFF);
            return TRUE;
        case DSTINVERT:
            ChangePixels(*context, rect, [](std::uint32_t pixel, int, int) { return ~pixel; });
            return TRUE;
        case PATINVERT:
            ChangePixels(*context, rect, [brush](std::uint32_t pixel, int, int) { return pixel ^ brush; });
            return TRUE;
        default:
            return FALSE;
    }
}

COLORREF SetPixel(HDC dc, int x, int y, COLORREF colour)
{
    DeviceContext* context = LookUpContext(dc);
    if (!context)
        return CLR_INVALID;
    const POINT at = context->ToSurface(x, y);
    if (!context->Drawable().Contains(at.x, at.y))
        return CLR_INVALID;
    context->Target().Set(at.x, at.y, PixelOf(colour));
    return colour;
}

COLORREF GetPixel(HDC dc, int x, int y)
{
    DeviceContext* context = LookUpContext(dc);
    if (!context)
        return CLR_INVALID;
    const POINT at = context->ToSurface(x, y);
    return context->Drawable().Contains(at.x, at.y) ? ColourOf(context->Target().Get(at.x, at.y))
                                                    : CLR_INVALID;
}

// --- gradients ---------------------------------------------------------------------------------------------

namespace {

struct GradientEnd {
    int position;
    std::array<int, 4> components;  // blue, green, red, alpha, 16 bits each
};

GradientEnd EndOf(const TRIVERTEX& vertex, bool vertical)
{
    return {vertical ? vertex.y : vertex.x, {vertex.Blue, vertex.Green, vertex.Red, vertex.Alpha}};
}

// The pixels of a gradient one after another. Each component is interpolated in 16 bits and then cut to its
// high byte; the end colour is never reached. Quotients grow by a fraction at every step, without a division
// for each.
class GradientSteps {
public:
    GradientSteps(const GradientEnd& first, const GradientEnd& last, int position)
        : m_length(last.position - first.position)
    {
        const std::int64_t step = position - first.position;
        for (std::size_t i = 0; i < m_components.size(); ++i) {
            const std::int64_t difference = last.components[i] - first.components[i];
            const std::int64_t sum = first.components[i] * m_length + difference * step;
            const std::int64_t rest = difference % m_length;
            m_components[i] = {sum / m_length, sum % m_length, difference / m_length - (rest < 0),
                               rest < 0 ? rest + m_length : rest};
        }
    }
    std::uint32_t Next()
    {
        std::uint32_t pixel = 0;
        for (std::size_t i = 0; i < m_components.size(); ++i) {
            Component& component = m_components[i];
            pixel |= static_cast<std::uint32_t>((component.value >> 8) & 0xFF) << (8 * i);
            component.rest += component.restStep;
            const bool carries = component.rest >= m_length;
            component.rest -= carries ? m_length : 0;
            component.value += component.step + carries;
        }
        return pixel;
    }

private:
    struct Component {
        std::int64_t value;
        std::int64_t rest;
        std::int64_t step;
        std::int64_t restStep;
    };
    std::int64_t m_length;
    std::array<Component, 4> m_components;
};

void DrawGradient(DeviceContext& context, const TRIVERTEX& a, const TRIVERTEX& b, bool vertical)
{
    const POINT corner = context.ToSurface(a.x, a.y);
    const POINT opposite = context.ToSurface(b.x, b.y);
    const RECT rect = Normalised({corner.x, corner.y, opposite.x, opposite.y});
    GradientEnd first = EndOf(a, vertical);
    GradientEnd last = EndOf(b, vertical);
    first.position = vertical ? corner.y : corner.x;
    last.position = vertical ? opposite.y : opposite.x;
    if (last.position < first.position)
        std::swap(first, last);
    std::vector<std::uint32_t> row;
    ForEachDrawable(context, rect, [&](const RECT& part) {
        const int count = part.right - part.left;
        if (!vertical) {
            row.resize(static_cast<std::size_t>(count));
            GradientSteps steps(first, last, part.left);
            for (std::uint32_t& pixel : row)
                pixel = steps.Next();
        }
        GradientSteps steps(first, last, vertical ? part.top : first.position);
        for (int y = part.top; y < part.bottom; ++y) {
            if (vertical)
                FillPart(context.Target(), {part.left, y, part.right, y + 1}, steps.Next());
            else
                context.Target().Store(part.left, y, count, row.data());
        }
    });
}

}  // namespace

BOOL GradientFill(HDC dc, TRIVERTEX* vertices, ULONG vertexCount, void* mesh, ULONG meshCount, ULONG mode)
{
    DeviceContext* context = LookUpContext(dc);
    if (!context || !vertices || !mesh || mode > GRADIENT_FILL_RECT_V)
        return FALSE;
    const auto* rects = static_cast<const GRADIENT_RECT*>(mesh);
    for (ULONG i = 0; i < meshCount; ++i)
        if (rects[i].UpperLeft >= vertexCount || rects[i].LowerRight >= vertexCount)
            return FALSE;
    for (ULONG i = 0; i < meshCount; ++i)
        DrawGradient(*context, vertices[rects[i].UpperLeft], vertices[rects[i].LowerRight],
                     mode == GRADIENT_FILL_RECT_V);
    return TRUE;
}
