#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include <qvui/platform/platform.h>

#include "tooltip/markup/parser.h"

/// From pieces to places: pure arithmetic on what a Ruler measures.
namespace DUI::html {

struct LineMetrics {
    int height = 0;
    int ascent = 0;  // from the top to the base line
};

/// Measures in pixels; `style` is an index into the document's styles.
class Ruler {
public:
    virtual ~Ruler() = default;
    virtual int Width(int style, std::string_view text) = 0;
    virtual LineMetrics Metrics(int style) = 0;
    /// 0×0 for an image that is not there.
    virtual SIZE Image(const std::string& name, int index) = 0;
};

/// Something to draw. A rule has no width: it spans what is drawn on.
struct Box {
    PieceKind kind = PieceKind::Text;  // Text, Image or Rule
    int style = 0;
    std::string text;
    int number = 0;
    RECT rect{};  // as if its line began at the left edge
};

struct Line {
    int firstBox = 0;
    int boxCount = 0;
    int width = 0;
    int top = 0;
    int height = 0;
    bool isCentered = false;

    /// How far its boxes stand from the left edge of a space that is `width` pixels wide.
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

/// Fills lines up to `maxWidth` pixels. A line ends where MayBreakBetween allows it, and inside a word only
/// when the word is longer than a line. Spaces that end a line take no room. Lines that would begin at or
/// below `maxHeight` are left out.
Layout LayOut(const Document& document, Ruler& ruler, int maxWidth, int maxHeight);

}  // namespace DUI::html
