#pragma once

#include <qvui/layout/canvas.h>

#include "controls/owned_scroll_bar.h"
#include "layout/axis.h"
#include "layout/children.h"
#include "layout/linear_spans.h"

namespace DUI::layout {

/// What becomes of the length that the children leave.
enum class Leftover { ToLastChild, Nobody };

template <class Axis>
LinearSpans MeasureLine(const RECT& content, int position, int gap, Leftover leftover,
                        const Children& children)
{
    const Line line{LONGLONG{Axis::Start(content)} - position, Axis::Length(content), gap};
    SIZE offer = Axis::Across(content, 0);
    LinearSpans spans = DivideLine(line, children.size(), [&](std::size_t child, LONG available) {
        Axis::Along(offer) = available;
        const SIZE wanted = AskSize(*children[child].GetPtr(), offer);
        return Axis::Along(wanted);
    });
    if (leftover == Leftover::ToLastChild)
        FillLine(line, spans);
    return spans;
}

template <class Axis>
void PlaceLine(const RECT& content, const Children& children, const LinearSpans& spans)
{
    for (std::size_t i = 0; i < children.size(); ++i)
        children[i]->SetControlRect(Axis::Part(content, spans.spans[i].start, spans.spans[i].length));
}

/// Lines up the container's visible children in its content rectangle, beside its scroll bar.
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
    const Children children = VisibleChildren(container);
    const LinearSpans spans =
        MeasureLine<Axis>(content, position, container.GetPaddingWidth(), leftover, children);
    PlaceLine<Axis>(content, children, spans);
    Axis::ReportContent(container, content, spans.content);
    container.UpdateLayout(FALSE, nullptr);
}

}  // namespace DUI::layout
