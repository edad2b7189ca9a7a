#pragma once

#include <vector>

#include <qvui/layout/canvas.h>

#include "controls/scrolling/owned_scroll_bar.h"
#include "layout/axis.h"
#include "layout/children.h"
#include "layout/placement/linear_spans.h"

namespace DUI::layout {

/// Who gets the length that the children leave unused.
enum class Leftover { ToLastChild, Nobody };

/// A child, held, with its span along the axis.
struct LinedChild : Span {
    explicit LinedChild(const CRefPtr<IDUIControl>& child) : control(child) {}

    CRefPtr<IDUIControl> control;
};

/// Arranges the container's visible children in its content rectangle, excluding its scroll bar.
template <class Axis>
void LayOutLine(CDUICanvas& container, Leftover leftover)
{
    if (container.GetControlCount() == 0)
        return;
    RECT content = container.GetContentRect();
    const int position = owned_scroll_bar::Reserve(Axis::ScrollBarOf(container), content);
    if (IsRectEmpty(&content)) {
        PlaceAll(container, content);
        return;
    }
    std::vector<LinedChild> children;
    children.reserve(container.GetChildren().size());
    for (const CRefPtr<IDUIControl>& child : container.GetChildren())
        if (child->IsVisible(FALSE))
            children.emplace_back(child);
    const Line line{LONGLONG{Axis::Start(content)} - position, Axis::Length(content),
                    container.GetPaddingWidth()};
    SIZE offer = Axis::Across(content, 0);
    const LONGLONG length = DivideLine(line, children, [&offer](const LinedChild& child, LONG available) {
        Axis::Along(offer) = available;
        return Axis::Along(AskSize(*child.control.GetPtr(), offer));
    });
    if (leftover == Leftover::ToLastChild)
        FillLine(line, children, length);
    for (auto child = children.cbegin(); child != children.cend(); ++child) {
        if (child + 1 != children.cend())
            PrefetchChildren(*child[1].control.GetPtr());
        child->control->SetControlRect(Axis::Part(content, child->start, child->length));
    }
    Axis::ReportContent(container, content, length);
    container.UpdateLayout(FALSE, nullptr);
}

}  // namespace DUI::layout
