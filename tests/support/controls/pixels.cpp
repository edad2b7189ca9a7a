#include "support/controls/pixels.h"

#include <algorithm>

namespace qvui::test {
namespace {

template <class Matches>
RECT BoundsWhere(const ClientPixels& pixels, Matches matches)
{
    RECT bounds{0, 0, 0, 0};
    for (int y = 0; y < pixels.height; ++y) {
        for (int x = 0; x < pixels.width; ++x) {
            if (!matches(x, y))
                continue;
            const RECT pixel{x, y, x + 1, y + 1};
            UnionRect(&bounds, &bounds, &pixel);
        }
    }
    return bounds;
}

}  // namespace

RECT BoundsOf(const ClientPixels& pixels, std::uint32_t color)
{
    return BoundsWhere(pixels, [&](int x, int y) { return pixels.At(x, y) == color; });
}

std::string Bounds(const ClientPixels& pixels, std::uint32_t color)
{
    return Text(BoundsOf(pixels, color));
}

RECT DifferenceOf(const ClientPixels& one, const ClientPixels& other)
{
    return BoundsWhere(one, [&](int x, int y) { return one.At(x, y) != other.At(x, y); });
}

std::string Difference(const ClientPixels& one, const ClientPixels& other)
{
    return Text(DifferenceOf(one, other));
}

std::string Estimate(const ControlWindow& window)
{
    SIZE size{-1, -1};
    return window.Root().EstimateSize({0, 0}, size) ? Text(size) : "none";
}

}  // namespace qvui::test
