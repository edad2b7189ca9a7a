#pragma once

#include <algorithm>
#include <vector>

#include <qvui/framework/control_base.h>

namespace DUI::layout {

/// The children at the start of a layout. They are held, so that a child may change the container while it is
/// placed.
using Children = std::vector<CRefPtr<IDUIControl>>;

inline Children AllChildren(const CDUIControlBase& container)
{
    return container.GetChildren();
}
/// Returns the children whose own visible bit is set.
Children VisibleChildren(const CDUIControlBase& container);

/// Returns the size that the child asks for, or 0 by 0 if it asks for none.
inline SIZE AskSize(IDUIControl& child, SIZE available)
{
    SIZE size{0, 0};
    child.EstimateSize(available, size);
    return size;
}

/// Prefetches the data of a control's children that a layout reads, because in windows with very many
/// controls it is no longer in the processor's cache. Called one control ahead of the one being placed.
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
