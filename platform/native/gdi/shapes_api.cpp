// Lines and outlined shapes.

#include <algorithm>
#include <cstdlib>
#include <numeric>
#include <span>

#include "native/gdi/device_context.h"
#include "native/gdi/fills.h"

using namespace qvui::native;

namespace {

constexpr int kDash[] = {18, 6};
constexpr int kDot[] = {3, 3};
constexpr int kDashDot[] = {9, 6, 3, 6};
constexpr int kDashDotDot[] = {9, 3, 3, 3, 3, 3};

// Returns the lengths of a pen's dashes and gaps. Empty for a solid pen; wide pens are always solid.
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

// Draws the pixels of a thin line in order. The gaps between dashes take the background colour, or are left
// out in transparent mode.
class ThinStroke {
public:
    ThinStroke(DeviceContext& context, const PenObject& pen, int phase)
        : m_context(context),
          m_dashes(DashesOf(pen)),
          m_ink(PixelOf(pen.colour)),
          m_period(std::accumulate(m_dashes.begin(), m_dashes.end(), 0)),
          m_phase(phase)
    {
    }

    void Put(int x, int y)
    {
        const bool isInk = IsInk();
        ++m_phase;
        if ((isInk || m_context.state.backMode == OPAQUE) && m_context.Drawable().Contains(x, y))
            m_context.Target().Set(x, y, isInk ? m_ink : PixelOf(m_context.state.backColour));
    }
    // Skips pixels that are not visible.
    void Skip(std::int64_t count)
    {
        if (m_period > 0)
            m_phase = static_cast<int>((m_phase + count) % m_period);
    }
    bool IsDashed() const { return m_period > 0; }
    int Phase() const { return m_phase; }

private:
    bool IsInk()
    {
        if (m_period == 0)
            return true;
        m_phase %= m_period;
        int rest = m_phase;
        std::size_t dash = 0;
        while (rest >= m_dashes[dash])
            rest -= m_dashes[dash++];
        return dash % 2 == 0;
    }

    DeviceContext& m_context;
    std::span<const int> m_dashes;
    std::uint32_t m_ink;
    int m_period;
    int m_phase;
};

// The pixels of a line: one per step along the major axis, at the nearest minor coordinate (ties go to the
// smaller one).
class LineSteps {
public:
    LineSteps(POINT from, POINT to)
        : m_from(from),
          m_isSteep(std::abs(Difference(from.y, to.y)) > std::abs(Difference(from.x, to.x))),
          m_major(m_isSteep ? Difference(from.y, to.y) : Difference(from.x, to.x)),
          m_minor(m_isSteep ? Difference(from.x, to.x) : Difference(from.y, to.y))
    {
    }

    std::int64_t Length() const { return std::abs(m_major); }
    POINT At(std::int64_t step) const
    {
        const std::int64_t along = m_major < 0 ? -step : step;
        const std::int64_t across =
            Length() == 0 ? 0 : CeilDivide(2 * m_minor * step - Length(), 2 * Length());
        return {m_from.x + static_cast<int>(m_isSteep ? across : along),
                m_from.y + static_cast<int>(m_isSteep ? along : across)};
    }
    // The steps [first, last) within 0 … `count` whose major coordinate lies inside `bounds`.
    std::pair<std::int64_t, std::int64_t> Inside(const RECT& bounds, std::int64_t count) const
    {
        const std::int64_t start = m_isSteep ? m_from.y : m_from.x;
        const std::int64_t low = m_isSteep ? bounds.top : bounds.left;
        const std::int64_t high = m_isSteep ? bounds.bottom : bounds.right;
        const std::int64_t first = m_major < 0 ? start - high + 1 : low - start;
        const std::int64_t last = m_major < 0 ? start - low + 1 : high - start;
        return {std::clamp<std::int64_t>(first, 0, count), std::clamp<std::int64_t>(last, 0, count)};
    }

private:
    static std::int64_t Difference(int from, int to) { return static_cast<std::int64_t>(to) - from; }
    static std::int64_t CeilDivide(std::int64_t value, std::int64_t divisor)
    {
        return value >= 0 ? (value + divisor - 1) / divisor : -(-value / divisor);
    }

    POINT m_from;
    bool m_isSteep;
    std::int64_t m_major;
    std::int64_t m_minor;
};

RECT Inset(const RECT& rect, int by)
{
    return {rect.left + by, rect.top + by, rect.right - by, rect.bottom - by};
}

// The area that a square pen covers between two points in one row or column. Without the corners for a pen of
// three or more pixels.
Region StampedPath(const RECT& span, int width)
{
    const RECT whole{span.left - width / 2, span.top - width / 2, span.right - width / 2 + width,
                     span.bottom - width / 2 + width};
    if (width < 3)
        return Region(whole);
    const RECT parts[] = {{whole.left + 1, whole.top, whole.right - 1, whole.bottom},
                          {whole.left, whole.top + 1, whole.right, whole.bottom - 1}};
    return Region::Of(parts);
}

void FillWithInk(DeviceContext& context, const Region& region, const PenObject& pen)
{
    for (const pixman_box32_t& box : region.Boxes())
        FillPixels(context, {box.x1, box.y1, box.x2, box.y2}, PixelOf(pen.colour));
}

void DrawWideLine(DeviceContext& context, POINT from, POINT to, const PenObject& pen)
{
    if (from.x == to.x || from.y == to.y) {
        FillWithInk(context, StampedPath(Normalised({from.x, from.y, to.x, to.y}), pen.width), pen);
        return;
    }
    const LineSteps steps(from, to);
    const auto [first, last] =
        steps.Inside(Inset(context.Drawable().Bounds(), -pen.width), steps.Length() + 1);
    for (std::int64_t step = first; step < last; ++step) {
        const POINT at = steps.At(step);
        FillWithInk(context, StampedPath({at.x, at.y, at.x, at.y}, pen.width), pen);
    }
}

void DrawThinLine(DeviceContext& context, POINT from, POINT to, ThinStroke& stroke)
{
    const LineSteps steps(from, to);
    const auto [first, last] = steps.Inside(context.Drawable().Bounds(), steps.Length());
    stroke.Skip(first);
    for (std::int64_t step = first; step < last; ++step) {
        const POINT at = steps.At(step);
        stroke.Put(at.x, at.y);
    }
    stroke.Skip(steps.Length() - std::max(first, last));
}

struct Outline {
    Region whole;  // the area that the shape covers
    Region inner;  // the part of it inside the pen, filled by the brush
};

void FillInside(DeviceContext& context, const Region& inner)
{
    if (context.state.brushObject)
        FillRegion(context, inner, *context.state.brushObject);
}

void DrawOutlined(DeviceContext& context, const Outline& shape)
{
    FillInside(context, shape.inner);
    Region ring = shape.whole;
    ring.Subtract(shape.inner);
    FillWithInk(context, ring, *context.state.penObject);
}

// Starts at the top right corner and runs counter-clockwise.
void DrawDashedRectangle(DeviceContext& context, const RECT& rect, ThinStroke& stroke)
{
    FillInside(context, Region(Inset(rect, 1)));
    const LONG right = rect.right - 1;
    const LONG bottom = rect.bottom - 1;
    const POINT corners[] = {{right, rect.top}, {rect.left, rect.top}, {rect.left, bottom}, {right, bottom}};
    for (std::size_t i = 0; i < std::size(corners); ++i)
        DrawThinLine(context, corners[i], corners[(i + 1) % std::size(corners)], stroke);
}

void FillWithoutPen(DeviceContext& context, const RECT& rect)
{
    FillInside(context, Region({rect.left, rect.top, rect.right - 1, rect.bottom - 1}));
}

bool IsSquare(int cornerWidth, int cornerHeight)
{
    return CornerInsets(cornerWidth, cornerHeight).empty();
}

// A one-pixel rounded outline must be connected diagonally, so each row extends to the start of the row
// above.
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

// A wide solid pen is centred on the edge; an inside-frame pen stays within it.
Outline RoundOutline(const RECT& rect, int width, int height, const PenObject& pen)
{
    if (pen.width <= 1)
        return {Region::RoundRect(rect, width, height), ThinRoundInner(rect, width, height)};
    const int outwards = pen.style == PS_INSIDEFRAME ? 0 : pen.width / 2;
    const int inwards = pen.width - outwards;
    return {Region::RoundRect(Inset(rect, -outwards), width + 2 * outwards, height + 2 * outwards),
            Region::RoundRect(Inset(rect, inwards), width - 2 * inwards, height - 2 * inwards)};
}

}  // namespace

BOOL LineTo(HDC dc, int x, int y)
{
    DeviceContext* context = LookUpContext(dc);
    if (!context)
        return FALSE;
    const std::shared_ptr<PenObject> pen = context->state.penObject;
    const POINT from = context->ToSurface(context->state.position.x, context->state.position.y);
    const POINT to = context->ToSurface(x, y);
    context->state.position = {x, y};
    if (pen->style == PS_NULL)
        return TRUE;
    ThinStroke stroke(*context, *pen, context->state.dashPhase);
    if (pen->width > 1)
        DrawWideLine(*context, from, to, *pen);
    else if (from.y == to.y && from.x != to.x && !stroke.IsDashed())
        FillPixels(*context, {std::min(from.x, to.x + 1), from.y, std::max(to.x, from.x + 1), from.y + 1},
                   PixelOf(pen->colour));
    else
        DrawThinLine(*context, from, to, stroke);
    context->state.dashPhase = stroke.Phase();
    return TRUE;
}

BOOL Rectangle(HDC dc, int left, int top, int right, int bottom)
{
    DeviceContext* context = LookUpContext(dc);
    if (!context)
        return FALSE;
    const RECT rect = context->ToSurface(Normalised({left, top, right, bottom}));
    if (IsEmptyRect(rect))
        return TRUE;
    const PenObject& pen = *context->state.penObject;
    ThinStroke stroke(*context, pen, 0);
    if (pen.style == PS_NULL) {
        FillWithoutPen(*context, rect);
    } else if (stroke.IsDashed()) {
        DrawDashedRectangle(*context, rect, stroke);
    } else if (pen.width <= 1 || pen.style == PS_INSIDEFRAME) {
        DrawOutlined(*context, {Region(rect), Region(Inset(rect, std::max(pen.width, 1)))});
    } else {
        const RECT corners{rect.left, rect.top, rect.right - 1, rect.bottom - 1};
        const int low = pen.width / 2;
        const int high = pen.width - low;
        DrawOutlined(*context,
                     {StampedPath(corners, pen.width), Region({corners.left + high, corners.top + high,
                                                               corners.right - low, corners.bottom - low})});
    }
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
    width = std::min(std::abs(width), rect.right - rect.left);
    height = std::min(std::abs(height), rect.bottom - rect.top);
    if (IsSquare(width, height))
        return Rectangle(dc, left, top, right, bottom);
    const PenObject& pen = *context->state.penObject;
    if (pen.style == PS_NULL)
        FillInside(*context, Region::RoundRect(rect, width, height));
    else
        DrawOutlined(*context, RoundOutline(rect, width, height, pen));
    return TRUE;
}
