#pragma once

#include <vector>

#include "layout/placement/linear_spans.h"

namespace DUI::layout {

/// An item of a tool bar as its bar places it: 0 long when it is flexible.
struct ToolItem {
    LONG length = 0;
    bool isSeparator = false;
};

/// Where the items stand. Those that do not fit have no length and stand at the line's end.
struct ToolBarPlan {
    std::vector<Span> items;
    bool overflows = false;
    Span overflowButton;
};

/// Places items one after another as long as they ask for, and shares what is left among the flexible ones.
/// When there is not enough for all, room for the overflow button is kept at the end, flexible items get
/// nothing, and from the first item that does not fit on none is shown, nor a separator right before it.
ToolBarPlan PlanToolBar(const Line& line, const std::vector<ToolItem>& items, LONG overflowButton);

}  // namespace DUI::layout
