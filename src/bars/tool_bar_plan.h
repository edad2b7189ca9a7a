#pragma once

#include <vector>

#include "layout/placement/linear_spans.h"

namespace DUI::layout {

/// An item of a tool bar for placement; length 0 means flexible.
struct ToolItem {
    LONG length = 0;
    bool isSeparator = false;
};

/// The positions of the items. Items that do not fit have length 0 and are placed at the line's end.
struct ToolBarPlan {
    std::vector<Span> items;
    bool overflows = false;
    Span overflowButton;
};

/// Places items one after another with the lengths that they ask for, and divides the remaining length among
/// the flexible ones. If not all items fit, room for the overflow button is reserved at the end, flexible
/// items get no length, and all items from the first that does not fit are hidden, as is a separator directly
/// before it.
ToolBarPlan PlanToolBar(const Line& line, const std::vector<ToolItem>& items, LONG overflowButton);

}  // namespace DUI::layout
