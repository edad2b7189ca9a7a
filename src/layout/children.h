#pragma once

#include <algorithm>
#include <vector>

#include <qvui/framework/control_base.h>

namespace DUI::layout {

/// Children as they are when a layout begins: held, so that a child may change the container while it is
/// placed.
using Children = std::vector<CRefPtr<IDUIControl>>;

inline Children AllChildren(const CDUIControlBase& container)
{
    return container.GetChildren();
}
/// Those that are visible themselves.
Children VisibleChildren(const CDUIControlBase& container);

/// What the child asks for in a space; 0 by 0 for a child that does not say.
inline SIZE AskSize(IDUIControl& child, SIZE available)
{
    SIZE size{0, 0};
    child.EstimateSize(available, size);
    return size;
}

/// Has the processor fetch what a layout reads of a control's children: in a window of very many controls
/// they are no longer at hand. Called one control ahead of the one that is placed.
inline void PrefetchChildren(const IDUIControl& control)
{
    constexpr int kMost = 16;
    const int count = std::min(control.GetControlCount(), kMost);
    for (int i = 0; i < count; ++i) {
        const auto* const child = reinterpret_cast<const char*>(control.GetControlByIndex(i));
        __builtin_prefetch(child);
        __builtin_prefetch(child + 64);
    }
}

/// Gives every child, visible or not, the same rectangle.
void PlaceAll(const CDUIControlBase& container, const RECT& rect);

}  // namespace DUI::layout
