#include "native/gdi/region.h"

#include <algorithm>
#include <cstring>
#include <limits>

namespace qvui::native {

Region::Region(const RECT& rect)
{
    const pixman_box32_t box{rect.left, rect.top, rect.right, rect.bottom};
    if (IsEmptyRect(rect))
        pixman_region32_init(&m_region);
    else
        pixman_region32_init_with_extents(&m_region, const_cast<pixman_box32_t*>(&box));
}

Region Region::Of(std::span<const RECT> rects)
{
    std::vector<pixman_box32_t> boxes;
    boxes.reserve(rects.size());
    for (const RECT& rect : rects)
        if (!IsEmptyRect(rect))
            boxes.push_back({rect.left, rect.top, rect.right, rect.bottom});
    Region region;
    pixman_region32_fini(&region.m_region);
    pixman_region32_init_rects(&region.m_region, boxes.data(), static_cast<int>(boxes.size()));
    return region;
}

std::vector<int> CornerInsets(int width, int height)
{
    if (width < 3 || height < 3)
        return {};
    // Traces the outline of an ellipse inscribed in a pixel box with an integer error term, as in A. Zingl,
    // "A Rasterizing Algorithm for Drawing Curves" (2012), section 3.
    std::vector<int> insets(static_cast<std::size_t>((height + 1) / 2), std::numeric_limits<int>::max());
    const long long a = width - 1;
    const long long b = height - 1;
    const long long odd = b & 1;
    long long x0 = 0;
    long long x1 = a;
    long long dx = 4 * (1 - a) * b * b;
    long long dy = 4 * (odd + 1) * a * a;
    long long error = dx + dy + odd * a * a;
    long long y0 = (b + 1) / 2;
    const long long stepY = 8 * a * a;
    const long long stepX = 8 * b * b;
    long long row = y0 - odd;  // row in the upper half; y0 walks the lower half
    const auto note = [&](long long y, long long x) {
        if (y >= 0 && y < static_cast<long long>(insets.size())) {
            int& inset = insets[static_cast<std::size_t>(y)];
            inset = std::min(inset, static_cast<int>(x));
        }
    };
    do {
        note(row, x0);
        const long long doubled = 2 * error;
        if (doubled <= dy) {
            ++y0;
            --row;
            dy += stepY;
            error += dy;
        }
        if (doubled >= dx || 2 * error > dy) {
            ++x0;
            --x1;
            dx += stepX;
            error += dx;
        }
    } while (x0 <= x1);
    for (std::size_t i = insets.size(); i-- > 0;)
        if (insets[i] == std::numeric_limits<int>::max())
            insets[i] = i + 1 < insets.size() ? insets[i + 1] : 0;
    return insets;
}

Region Region::RoundRect(const RECT& rect, int width, int height)
{
    const int w = rect.right - rect.left;
    const int h = rect.bottom - rect.top;
    const std::vector<int> insets = CornerInsets(std::min(std::abs(width), w), std::min(std::abs(height), h));
    if (IsEmptyRect(rect) || insets.empty())
        return Region(rect);
    const int corner = std::min(static_cast<int>(insets.size()), h);
    std::vector<RECT> rows;
    for (int i = 0; i < corner; ++i) {
        const int inset = insets[static_cast<std::size_t>(i)];
        rows.push_back({rect.left + inset, rect.top + i, rect.right - inset, rect.top + i + 1});
        rows.push_back({rect.left + inset, rect.bottom - 1 - i, rect.right - inset, rect.bottom - i});
    }
    if (rect.top + corner < rect.bottom - corner)
        rows.push_back({rect.left, rect.top + corner, rect.right, rect.bottom - corner});
    return Of(rows);
}

void Region::ExclusiveOr(const Region& other)
{
    Region common = *this;
    common.Intersect(other);
    Unite(other);
    Subtract(common);
}

bool Region::Holds(const RECT& rect) const
{
    const pixman_box32_t box{rect.left, rect.top, rect.right, rect.bottom};
    return !IsEmptyRect(rect) && pixman_region32_contains_rectangle(Raw(*this), &box) == PIXMAN_REGION_IN;
}

bool Region::Meets(const RECT& rect) const
{
    if (IsEmptyRect(rect))
        return false;
    pixman_box32_t box{rect.left, rect.top, rect.right, rect.bottom};
    return pixman_region32_contains_rectangle(Raw(*this), &box) != PIXMAN_REGION_OUT;
}

RECT Region::Bounds() const
{
    if (IsEmpty())
        return {0, 0, 0, 0};
    const pixman_box32_t* box = pixman_region32_extents(Raw(*this));
    return {box->x1, box->y1, box->x2, box->y2};
}

int Region::Complexity() const
{
    const int count = pixman_region32_n_rects(Raw(*this));
    return count == 0 ? NULLREGION : count == 1 ? SIMPLEREGION : COMPLEXREGION;
}

std::span<const pixman_box32_t> Region::Boxes() const
{
    int count = 0;
    const pixman_box32_t* boxes = pixman_region32_rectangles(Raw(*this), &count);
    return {boxes, static_cast<std::size_t>(count)};
}

RECT Normalised(RECT rect)
{
    if (rect.left > rect.right)
        std::swap(rect.left, rect.right);
    if (rect.top > rect.bottom)
        std::swap(rect.top, rect.bottom);
    return rect;
}

}  // namespace qvui::native
