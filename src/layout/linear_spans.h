#pragma once

#include <cstddef>
#include <vector>

#include <qvui/platform/platform.h>

#include "controls/geometry.h"

namespace DUI::layout {

/// A child's place along the axis of the container that lines it up, in pixels.
struct Span {
    LONGLONG start = 0;
    LONGLONG length = 0;
};

/// Places in the order of the children, and the length of all of them with the gaps between.
struct LinearSpans {
    std::vector<Span> spans;
    LONGLONG content = 0;
};

/// The line that is handed out: where it starts, its length, and the gap between neighbours.
struct Line {
    LONGLONG start = 0;
    LONGLONG length = 0;
    int gap = 0;
};

/// Hands out a line among children: to each what it asks for, to the flexible ones equal shares of the rest.
/// `ask(child, available)` says what a child, by its number, asks of the length that is still left for it; 0
/// makes it flexible. Every child is asked to find the share, and once more when that has changed what is
/// left.
template <class Ask>
LinearSpans DivideLine(const Line& line, std::size_t children, const Ask& ask)
{
    using geometry::Narrow;
    LinearSpans result;
    std::vector<Span>& spans = result.spans;
    spans.reserve(children);
    // Until a child is placed, its span holds what it was offered and what it asked for.
    LONGLONG rest = line.length;
    LONGLONG flexible = 0;
    for (std::size_t i = 0; i < children; ++i) {
        if (i > 0)
            rest -= line.gap;
        const LONG offered = Narrow(rest);
        const LONG wanted = ask(i, offered);
        spans.push_back({offered, wanted});
        rest -= wanted;
        flexible += wanted == 0;
    }
    const LONGLONG share = rest > 0 && flexible > 0 ? rest / flexible : 0;
    LONGLONG used = 0;
    for (std::size_t i = 0; i < children; ++i) {
        const LONG offered = Narrow(line.length - used);
        const LONGLONG wanted = offered == spans[i].start ? spans[i].length : ask(i, offered);
        spans[i] = {line.start + used, wanted != 0 ? wanted : share};
        used += spans[i].length + line.gap;
    }
    result.content = children > 0 ? used - line.gap : 0;
    return result;
}

/// Lengthens the last child to the end of the line. The content keeps its length.
inline void FillLine(const Line& line, LinearSpans& spans)
{
    if (!spans.spans.empty() && spans.content < line.length)
        spans.spans.back().length += line.length - spans.content;
}

}  // namespace DUI::layout
