// Lines and outlined shapes.

#include <algorithm>
#include <cstdlib>
#include <span>

#include "native/gdi/device_context.h"

using namespace qvui::native;

namespace {

constexpr int kDash[] = {18, 6};
constexpr int kDot[] = {3, 3};
constexpr int kDashDot[] = {9, 6, 3, 6};
constexpr int kDashDotDot[] = {9, 3, 3, 3, 3, 3};

std::span<const int> DashesOf(const PenObject& pen)
{
    switch (pen.width > 1 ? PS_SOLID : pen.style) {
    case PS_DASH:
        return kDash;
    case PS_DOT:
        return kDot;
    case PS_DASHDOT:
        return kDashDot;
    case PS_DASHDOTDOT:
        return kDashDotDot;
    default:
        return {};
    }
}

// Whether the pixel at `phase` of the dash pattern is drawn; gaps alternate with dashes.
bool IsDash(std::span<const int> dashes, int phase)
{
    int total = 0;
    for (const int dash : dashes)
        total += dash;
    phase %= total;
    bool isOn = true;
    for (const int dash : dashes) {
        if (phase < dash)
            return isOn;
        phase -= dash;
        isOn = !isOn;
    }
    return true;
}

void PutPixel(DeviceContext& context, int x, int y, std::uint32_t pixel)
{
    if (context.Drawable().Contains(x, y))
        context.Target().Set(x, y, pixel);
}

// The square of a wide pen around a point; from three pixels on its corners are cut.
void Stamp(DeviceContext& context, int x, int y, int width, std::uint32_t pixel)
{
    const int left = x - width / 2;
    const int top = y - width / 2;
    const int cut = width >= 3 ? 1 : 0;
    FillPixels(context, {left + cut, top, left + width - cut, top + width}, pixel);
    if (cut)
        FillPixels(context, {left, top + 1, left + width, top + width - 1}, pixel);
}

// Visits each pixel of a line: one per step along the major axis, the nearest minor coordinate, ties to the
// smaller one.
template <class Visit>
void WalkLine(POINT from, POINT to, bool includeEnd, Visit visit)
{
    const std::int64_t dx = static_cast<std::int64_t>(to.x) - from.x;
    const std::int64_t dy = static_cast<std::int64_t>(to.y) - from.y;
    const bool steep = std::abs(dy) > std::abs(dx);
    const std::int64_t major = steep ? dy : dx;
    const std::int64_t minor = steep ? dx : dy;
    const std::int64_t length = std::abs(major);
    for (std::int64_t i = 0; i < length + (includeEnd ? 1 : 0); ++i) {
        // ceil(minor * i / length - 1/2): nearest, ties towards minus infinity
        const std::int64_t numerator = length == 0 ? 0 : 2 * minor * i - length;
        const std::int64_t divisor = length == 0 ? 1 : 2 * length;
        const std::int64_t across =
            numerator >= 0 ? (numerator + divisor - 1) / divisor : -((-numerator) / divisor);
        const std::int64_t along = major < 0 ? -i : i;
        const int x = from.x + static_cast<int>(steep ? across : along);
        const int y = from.y + static_cast<int>(steep ? along : across);
        visit(x, y);
    }
}

// Only the part of a line near the drawable area needs walking: coordinates may be absurd.
constexpr int kFarthest = 1 << 20;
POINT Bounded(POINT point)
{
    return {std::clamp(point.x, -kFarthest, kFarthest), std::clamp(point.y, -kFarthest, kFarthest)};
}

void DrawAxisLine(DeviceContext& context, POINT from, POINT to, int width, std::uint32_t pixel)
{
    const RECT span = Normalised({from.x, from.y, to.x, to.y});
    const int low = width / 2;
    const int cut = width >= 3 ? 1 : 0;
    const RECT whole{span.left - low, span.top - low, span.right - low + width, span.bottom - low + width};
    FillPixels(context, {whole.left + cut, whole.top, whole.right - cut, whole.bottom}, pixel);
    if (cut)
        FillPixels(context, {whole.left, whole.top + 1, whole.right, whole.bottom - 1}, pixel);
}

void DrawWideLine(DeviceContext& context, POINT from, POINT to, const PenObject& pen)
{
    const std::uint32_t pixel = PixelOf(pen.colour);
    if (from.x == to.x || from.y == to.y)
        DrawAxisLine(context, from, to, pen.width, pixel);
    else
        WalkLine(from, to, true, [&](int x, int y) { Stamp(context, x, y, pen.width, pixel); });
}

void DrawThinLine(DeviceContext& context, POINT from, POINT to, const PenObject& pen)
{
    const std::uint32_t pixel = PixelOf(pen.colour);
    const std::span<const int> dashes = DashesOf(pen);
    if (dashes.empty()) {
        if (from.y == to.y) {
            const int step = to.x < from.x ? 1 : 0;
            FillPixels(context, Normalised({from.x + step, from.y, to.x + step, from.y + 1}), pixel);
        } else if (from.x == to.x) {
            const int step = to.y < from.y ? 1 : 0;
            FillPixels(context, Normalised({from.x, from.y + step, from.x + 1, to.y + step}), pixel);
        } else {
            WalkLine(from, to, false, [&](int x, int y) { PutPixel(context, x, y, pixel); });
        }
        return;
    }
    const bool fillsGaps = context.state.backMode == OPAQUE;
    WalkLine(from, to, false, [&](int x, int y) {
        if (IsDash(dashes, context.state.dashPhase++))
            PutPixel(context, x, y, pixel);
        else if (fillsGaps)
            PutPixel(context, x, y, PixelOf(context.state.backColour));
    });
}

struct Outline {
    Region whole;  // everything that the shape covers
    Region inner;  // what the pen leaves to the brush
};

void DrawOutlined(DeviceContext& context, const Outline& shape)
{
    if (context.state.brushObject && !context.state.brushObject->isNull)
        FillRegion(context, shape.inner, *context.state.brushObject);
    if (context.state.penObject->style == PS_NULL)
        return;
    Region ring = shape.whole;
    ring.Subtract(shape.inner);
    BrushObject ink;
    ink.colour = context.state.penObject->colour;
    FillRegion(context, ring, ink);
}

RECT Inset(const RECT& rect, int by) { return {rect.left + by, rect.top + by, rect.right - by, rect.bottom - by}; }

// A one-pixel rounded outline must stay connected diagonally, so each row reaches to where the row above began.
Region ThinRoundInner(const RECT& rect, int width, int height)
{
    const std::vector<int> insets =
        CornerInsets(std::min(width, rect.right - rect.left), std::min(height, rect.bottom - rect.top));
    if (insets.empty())
        return Region(Inset(rect, 1));
    std::vector<RECT> rows;
    const int corner = static_cast<int>(insets.size());
    for (int y = rect.top + 1; y < rect.bottom - 1; ++y) {
        const int fromEdge = std::min(y - rect.top, rect.bottom - 1 - y);
        int start = 1;
        if (fromEdge < corner)
            start = std::max(insets[static_cast<std::size_t>(fromEdge)] + 1,
                             insets[static_cast<std::size_t>(fromEdge - 1)]);
        rows.push_back({rect.left + start, y, rect.right - start, y + 1});
    }
    return Region::Of(rows);
}

}  // namespace

BOOL LineTo(HDC dc, int x, int y)
{
    DeviceContext* context = LookUpContext(dc);
    if (!context)
        return FALSE;
    const std::shared_ptr<PenObject> pen = context->state.penObject;
    const POINT from = Bounded(context->ToSurface(context->state.position.x, context->state.position.y));
    const POINT to = Bounded(context->ToSurface(x, y));
    context->state.position = {x, y};
    if (pen->style == PS_NULL)
        return TRUE;
    if (pen->width > 1)
        DrawWideLine(*context, from, to, *pen);
    else
        DrawThinLine(*context, from, to, *pen);
    return TRUE;
}

BOOL Rectangle(HDC dc, int left, int top, int right, int bottom)
{
    DeviceContext* context = LookUpContext(dc);
    if (!context)
        return FALSE;
    RECT rect = context->ToSurface(Normalised({left, top, right, bottom}));
    const PenObject& pen = *context->state.penObject;
    if (pen.style == PS_NULL) {
        --rect.right;
        --rect.bottom;
        DrawOutlined(*context, {Region(rect), Region(rect)});
        return TRUE;
    }
    const int width = std::max(pen.width, 1);
    // A wide solid pen is centred on the edge; one inside the frame stays within it.
    const int outwards = pen.style == PS_INSIDEFRAME || width == 1 ? 0 : width / 2;
    const RECT whole = Inset(rect, -outwards);
    DrawOutlined(*context, {Region(whole), Region(Inset(whole, width))});
    return TRUE;
}

BOOL RoundRect(HDC dc, int left, int top, int right, int bottom, int width, int height)
{
    DeviceContext* context = LookUpContext(dc);
    if (!context)
        return FALSE;
    const RECT rect = context->ToSurface(Normalised({left, top, right, bottom}));
    if (IsEmptyRect(rect))
        return TRUE;
    const PenObject& pen = *context->state.penObject;
    width = std::abs(width);
    height = std::abs(height);
    if (pen.style == PS_NULL) {
        const Region whole = Region::RoundRect(rect, width, height);
        DrawOutlined(*context, {whole, whole});
        return TRUE;
    }
    const int penWidth = std::max(pen.width, 1);
    const int outwards = pen.style == PS_INSIDEFRAME || penWidth == 1 ? 0 : penWidth / 2;
    const RECT outer = Inset(rect, -outwards);
    const Region inner = penWidth == 1
                             ? ThinRoundInner(rect, width, height)
                             : Region::RoundRect(Inset(outer, penWidth), width + 2 * (outwards - penWidth),
                                                 height + 2 * (outwards - penWidth));
    DrawOutlined(*context, {Region::RoundRect(outer, width + 2 * outwards, height + 2 * outwards), inner});
    return TRUE;
}
