#include "bars/tool_bar_plan.h"

#include <algorithm>

namespace DUI::layout {
namespace {

LONGLONG TotalLength(const Line& line, const std::vector<ToolItem>& items)
{
    LONGLONG total = items.empty() ? 0 : -LONGLONG{line.gap};
    for (const ToolItem& item : items)
        total += LONGLONG{item.length} + line.gap;
    return total;
}

// The number of items that fit before `end`, without a separator at the end of them.
std::size_t CountFitting(const Line& line, const std::vector<ToolItem>& items, LONGLONG end)
{
    std::size_t count = 0;
    for (LONGLONG used = 0; count < items.size(); ++count) {
        used += items[count].length;
        if (used > end)
            break;
        used += line.gap;
    }
    while (count > 0 && items[count - 1].isSeparator)
        --count;
    return count;
}

}  // namespace

ToolBarPlan PlanToolBar(const Line& line, const std::vector<ToolItem>& items, LONG overflowButton)
{
    ToolBarPlan plan;
    plan.overflows = TotalLength(line, items) > line.length;
    if (!plan.overflows) {
        for (const ToolItem& item : items)
            plan.items.push_back({0, item.length});
        DivideLine(line, plan.items, [](const Span& span, LONG) { return static_cast<LONG>(span.length); });
        return plan;
    }
    const LONGLONG lineEnd = line.start + line.length;
    const LONGLONG buttonStart = std::max(line.start, lineEnd - overflowButton);
    plan.overflowButton = {buttonStart, lineEnd - buttonStart};
    const std::size_t shown = CountFitting(line, items, buttonStart - line.gap - line.start);
    plan.items.assign(items.size(), Span{lineEnd, 0});
    LONGLONG start = line.start;
    for (std::size_t i = 0; i < shown; ++i) {
        plan.items[i] = {start, items[i].length};
        start += LONGLONG{items[i].length} + line.gap;
    }
    return plan;
}

}  // namespace DUI::layout
