#pragma once

#include <vector>

#include <qvui/framework/control.h>

namespace DUI::layout {

/// Children as they are when a layout begins: held, so that a child may change the container while it is
/// placed.
using Children = std::vector<CRefPtr<IDUIControl>>;

Children AllChildren(const IDUIControl& container);
/// Those that are visible themselves.
Children VisibleChildren(const IDUIControl& container);

/// What the child asks for in a space; 0 by 0 for a child that does not say.
inline SIZE AskSize(IDUIControl& child, SIZE available)
{
    SIZE size{0, 0};
    child.EstimateSize(available, size);
    return size;
}

/// Gives every child, visible or not, the same rectangle.
void PlaceAll(const IDUIControl& container, const RECT& rect);

}  // namespace DUI::layout
