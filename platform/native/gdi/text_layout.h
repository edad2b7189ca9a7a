#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include <qvui/platform/native/text.h>

namespace qvui::native {

/// What laying out a text needs to know of a font.
struct TextMeasure {
    int height = 0;
    int averageWidth = 0;
    /// The widths of the text before each byte, one more entry than bytes; valid until the next call.
    std::function<const std::vector<int>&(std::string_view utf8)> widths;
};

/// One line as it is to be drawn: UTF-8 text with mnemonics and ellipsis resolved.
struct TextLine {
    std::string text;
    int width = 0;       // as counted in the calculated rectangle
    int inkWidth = 0;    // without the space that ended the line; for centring and right alignment
    int underline = -1;  // byte of the mnemonic, -1 without one
};

/// Splits a UTF-8 text into lines by DrawText's flags, in a space `width` pixels wide. `maxLines` is the number
/// of lines that will be drawn when the space is bounded below, 0 when it is not.
std::vector<TextLine> LayOutText(std::string_view utf8, UINT format, int width, int maxLines,
                                 const TextMeasure& measure);

}  // namespace qvui::native
