#pragma once

#include <algorithm>
#include <limits>

#include <qvui/platform/platform.h>

namespace DUI {

/// The rectangle less a margin on each side, inside out where the margins are too large. Margins come from
/// skins and may be any numbers: sums are cut to the range of coordinates.
inline RECT Inset(const RECT& rect, const RECT& margin)
{
    const auto move = [](LONG edge, LONGLONG by) {
        using Limits = std::numeric_limits<LONG>;
        return static_cast<LONG>(std::clamp<LONGLONG>(edge + by, Limits::min(), Limits::max()));
    };
    return {move(rect.left, margin.left), move(rect.top, margin.top),
            move(rect.right, -LONGLONG{margin.right}), move(rect.bottom, -LONGLONG{margin.bottom})};
}

}  // namespace DUI
