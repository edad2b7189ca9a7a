#pragma once

#include <iterator>

#include <qvui/platform/platform.h>

#include "foundation/rect.h"

namespace DUI::layout {

/// A child's place along the axis of the container that lines it up, in pixels.
struct Span {
    LONGLONG start = 0;
    LONGLONG length = 0;
};

/// The line that is handed out: where it starts, its length, and the gap between neighbours.
struct Line {
    LONGLONG start = 0;
    LONGLONG length = 0;
    int gap = 0;
};

/// Hands out a line among children: to each what it asks for, to the flexible ones equal shares of the rest.
/// `spans`, a range of Span or of what derives from it, gets their places; the result is the length of all of
/// them with the gaps between. `ask(span, available)` says what a child asks of the length that is still left
/// for it; 0 makes it flexible. Every child is asked to find the share, and once more when that has changed
/// what is left.
template <class Spans, class Ask>
LONGLONG DivideLine(const Line& line, Spans& spans, const Ask& ask)
{
    using geometry::Narrow;
    if (std::empty(spans))
        return 0;
    // Until a child is placed, its span holds what it was offered and what it asked for.
    LONGLONG rest = line.length;
    LONGLONG flexible = 0;
    for (auto& span : spans) {
        const LONG offered = Narrow(rest);
        const LONG wanted = ask(span, offered);
        span.start = offered;
        span.length = wanted;
        rest -= LONGLONG{wanted} + line.gap;
        flexible += wanted == 0;
    }
    rest += line.gap;
    const LONGLONG share = rest > 0 && flexible > 0 ? rest / flexible : 0;
    LONGLONG used = 0;
    for (auto& span : spans) {
        const LONG offered = Narrow(line.length - used);
        const LONGLONG wanted = offered == span.start ? span.length : ask(span, offered);
        span.start = line.start + used;
        span.length = wanted != 0 ? wanted : share;
        used += span.length + line.gap;
    }
    return used - line.gap;
}

/// Lengthens the last child to the end of the line that the children, this long together, do not fill.
template <class Spans>
void FillLine(const Line& line, Spans& spans, LONGLONG length)
{
    if (!std::empty(spans) && length < line.length)
        spans.back().length += line.length - length;
}

}  // namespace DUI::layout
