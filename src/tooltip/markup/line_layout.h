#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include <qvui/platform/platform.h>

#include "tooltip/markup/parser.h"

/// Line layout: turns parsed pieces into positioned boxes; text extents come from a Ruler.
namespace DUI::html {

struct LineMetrics {
    int height = 0;
    int ascent = 0;  // from the top to the baseline
};

/// Measures in pixels; `style` is an index into the document's styles.
class Ruler {
public:
    virtual ~Ruler() = default;
    virtual int Width(int style, std::string_view text) = 0;
    virtual LineMetrics Metrics(int style) = 0;
    /// Returns 0×0 for a missing image.
    virtual SIZE Image(const std::string& name, int index) = 0;
};

/// An element to draw. A rule has no width: it spans the drawing area.
struct Box {
    PieceKind kind = PieceKind::Text;  // Text, Image or Rule
    int style = 0;
    std::string text;
    int number = 0;
    RECT rect{};  // for a line that starts at the left edge
};

struct Line {
    int firstBox = 0;
    int boxCount = 0;
    int width = 0;
    int top = 0;
    int height = 0;
    bool isCentered = false;

    /// Returns the offset of its boxes from the left edge of an area `space` pixels wide.
    int Shift(int space) const { return isCentered && space > width ? (space - width) / 2 : 0; }
};

struct Layout {
    std::vector<Box> boxes;
    std::vector<Line> lines;
    SIZE size{};

    std::span<Box> BoxesOf(const Line& line)
    {
        return std::span(boxes).subspan(static_cast<std::size_t>(line.firstBox),
                                        static_cast<std::size_t>(line.boxCount));
    }
    std::span<const Box> BoxesOf(const Line& line) const
    {
        return std::span(boxes).subspan(static_cast<std::size_t>(line.firstBox),
                                        static_cast<std::size_t>(line.boxCount));
    }
};

/// Fills lines up to `maxWidth` pixels. A line breaks where MayBreakBetween allows it, and inside a word only
/// if the word is longer than a line. Spaces at the end of a line take no room. Lines that would begin at or
/// below `maxHeight` are omitted.
Layout LayOut(const Document& document, Ruler& ruler, int maxWidth, int maxHeight);

}  // namespace DUI::html
