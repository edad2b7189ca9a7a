#pragma once

#include <iterator>

#include <qvui/platform/platform.h>

#include "foundation/rect.h"

namespace DUI::layout {

/// A child's position and length along the axis of its container, in pixels.
struct Span {
    LONGLONG start = 0;
    LONGLONG length = 0;
};

/// The line to be divided: its start, its length, and the gap between neighbours.
struct Line {
    LONGLONG start = 0;
    LONGLONG length = 0;
    int gap = 0;
};

/// Divides a line among children: each gets the length that it asks for, and flexible children share the rest
/// equally. The results are stored in `spans`, a range of Span or of a derived class; returns the total
/// length including gaps. `ask(span, available)` returns the length that a child asks for, given the length
/// still available; 0 makes it flexible. Every child is asked once to compute the share, and again if that
/// has changed the available length.
template <class Spans, class Ask>
LONGLONG DivideLine(const Line& line, Spans& spans, const Ask& ask)
{
    using geometry::Narrow;
    if (std::empty(spans))
        return 0;
    // Until a child is placed, its span holds the length it was offered and the length it asked for.
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

/// Extends the last child to the end of the line if the children, of total length `length`, do not fill it.
template <class Spans>
void FillLine(const Line& line, Spans& spans, LONGLONG length)
{
    if (!std::empty(spans) && length < line.length)
        spans.back().length += line.length - length;
}

}  // namespace DUI::layout
