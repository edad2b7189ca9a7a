#pragma once

#include <compare>
#include <string>
#include <string_view>
#include <vector>

/// Parses tooltip markup into a list of pieces, independent of fonts and pixels.
namespace DUI::html {

/// Text attributes. Unset fields mean the drawer's own font and colour.
struct Style {
    bool isBold = false;
    bool isItalic = false;
    bool isUnderlined = false;
    bool isStruckOut = false;
    bool isCentered = false;
    int size = 0;      // em size in pixels; 0: the drawer's own
    int sizeStep = 0;  // added to the size, in pixels
    std::string face;
    std::string color;  // as written

    auto operator<=>(const Style&) const = default;
};

enum class PieceKind {
    Text,
    LineBreak,
    BlockBreak,  // ends the line unless it is empty
    Rule,
    Image,
    Indent,
};

struct Piece {
    PieceKind kind = PieceKind::Text;
    int style = 0;     // index into Document::styles
    std::string text;  // text in the system code page, or the image's name
    int number = 0;    // the image's icon index, or the indent's column in pixels
};

struct Document {
    std::vector<Style> styles;
    std::vector<Piece> pieces;
};

/// Represents a no-break space in the text of pieces, because not every code page has one.
inline constexpr char kNoBreakSpace = '\x01';

/// Parses markup. Never fails: invalid markup is text. Takes linear time for any input.
Document ParseMarkup(std::string_view text);

}  // namespace DUI::html
