#pragma once

#include <functional>
#include <vector>

#include <qvui/platform/platform.h>

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

/// What a child, by its number, asks of the length that is still left; 0 makes it flexible.
using AskChild = std::function<LONG(std::size_t child, LONG available)>;

/// Hands out a line among children: to each what it asks for, to the flexible ones equal shares of the rest.
/// Every child is asked twice, first to find the share and then, in the light of it, for its length.
LinearSpans DivideLine(const Line& line, std::size_t children, const AskChild& ask);

/// Lengthens the last child to the end of the line. The content keeps its length.
void FillLine(const Line& line, LinearSpans& spans);

}  // namespace DUI::layout
