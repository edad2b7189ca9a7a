#pragma once

#include <compare>
#include <string>
#include <string_view>
#include <vector>

/// The markup of tooltips as a list of pieces. It knows nothing of fonts and pixels.
namespace DUI::html {

/// How text looks; the drawer's own font and colour where a field says nothing.
struct Style {
    bool isBold = false;
    bool isItalic = false;
    bool isUnderlined = false;
    bool isStruckOut = false;
    bool isCentered = false;
    int size = 0;      // em size in pixels; 0: the drawer's own
    int sizeStep = 0;  // pixels larger than that
    std::string face;
    std::string color;  // as written

    auto operator<=>(const Style&) const = default;
};

enum class PieceKind {
    Text,
    LineBreak,
    BlockBreak,  // ends the line unless nothing stands on it
    Rule,
    Image,
    Indent,
};

struct Piece {
    PieceKind kind = PieceKind::Text;
    int style = 0;     // index into Document::styles
    std::string text;  // in the system code page, or the image's name
    int number = 0;    // the image's icon, the indent's column in pixels
};

struct Document {
    std::vector<Style> styles;
    std::vector<Piece> pieces;
};

/// Stands for a no-break space in the text of pieces, since not every code page has one.
inline constexpr char kNoBreakSpace = '\x01';

/// Never fails: what is no markup is text. Takes time in proportion to the text's length, whatever it holds.
Document ParseMarkup(std::string_view text);

}  // namespace DUI::html
