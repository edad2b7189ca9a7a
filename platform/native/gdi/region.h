#pragma once

#include <pixman.h>

#include <algorithm>
#include <span>
#include <utility>
#include <vector>

#include <qvui/platform/native/gdi.h>

namespace qvui::native {

/// A set of pixels, stored as a list of rectangles, with value semantics.
class Region {
public:
    Region() { pixman_region32_init(&m_region); }
    explicit Region(const RECT& rect);
    Region(const Region& other) : Region() { pixman_region32_copy(&m_region, Raw(other)); }
    Region(Region&& other) noexcept : Region() { std::swap(m_region, other.m_region); }
    Region& operator=(Region other) noexcept
    {
        std::swap(m_region, other.m_region);
        return *this;
    }
    ~Region() { pixman_region32_fini(&m_region); }

    /// Returns the union of many rectangles, computed in one step.
    static Region Of(std::span<const RECT> rects);
    /// Returns the pixels of a rectangle with elliptical corners of the given ellipse size.
    static Region RoundRect(const RECT& rect, int width, int height);

    void Intersect(const Region& other) { pixman_region32_intersect(&m_region, &m_region, Raw(other)); }
    void Unite(const Region& other) { pixman_region32_union(&m_region, &m_region, Raw(other)); }
    void Subtract(const Region& other) { pixman_region32_subtract(&m_region, &m_region, Raw(other)); }
    void ExclusiveOr(const Region& other);
    void Offset(int x, int y) { pixman_region32_translate(&m_region, x, y); }

    bool IsEmpty() const { return !pixman_region32_not_empty(Raw(*this)); }
    bool Contains(int x, int y) const { return pixman_region32_contains_point(Raw(*this), x, y, nullptr); }
    bool Meets(const RECT& rect) const;
    /// Whether the whole of a non-empty rectangle lies in the region.
    bool Holds(const RECT& rect) const;
    bool operator==(const Region& other) const { return pixman_region32_equal(Raw(*this), Raw(other)); }
    RECT Bounds() const;
    /// Returns NULLREGION, SIMPLEREGION or COMPLEXREGION.
    int Complexity() const;
    std::span<const pixman_box32_t> Boxes() const;

private:
    static pixman_region32_t* Raw(const Region& region)
    {
        return const_cast<pixman_region32_t*>(&region.m_region);
    }

    pixman_region32_t m_region;
};

RECT Normalised(RECT rect);
inline bool IsEmptyRect(const RECT& rect)
{
    return rect.left >= rect.right || rect.top >= rect.bottom;
}
/// Returns an all-zero rectangle if the two do not intersect.
inline RECT Intersection(const RECT& first, const RECT& second)
{
    const RECT result{std::max(first.left, second.left), std::max(first.top, second.top),
                      std::min(first.right, second.right), std::min(first.bottom, second.bottom)};
    return IsEmptyRect(result) ? RECT{0, 0, 0, 0} : result;
}

/// For each row of a rounded corner, from the outermost row inwards, returns its distance from the straight
/// edge, for an ellipse inscribed in a box of width × height pixels. Empty for square corners.
std::vector<int> CornerInsets(int width, int height);

}  // namespace qvui::native
