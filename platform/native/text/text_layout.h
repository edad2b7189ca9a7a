#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include <qvui/platform/native/text.h>

namespace qvui::native {

/// The widths of a UTF-8 text without tabs before each of its bytes, one more entry than bytes; valid until
/// the next call.
using TextWidths = std::function<const std::vector<int>&(std::string_view utf8)>;

/// Measures lines of UTF-8 text in which tabs reach the next of equally spaced stops.
class LineMeasure {
public:
    /// `tabStop` is in pixels, at least 1.
    LineMeasure(TextWidths widths, int tabStop) : m_text(std::move(widths)), m_tabStop(tabStop) {}

    /// As TextWidths, for a line that may hold tabs.
    const std::vector<int>& Widths(std::string_view line);
    int Width(std::string_view line) { return Widths(line).back(); }
    struct Part {
        std::string_view text;
        int left;
    };
    /// The parts of a line between its tabs, with the pixels from the line's start to each.
    std::vector<Part> Parts(std::string_view line);

private:
    TextWidths m_text;
    int m_tabStop;
    std::vector<int> m_widths;
};

/// One line as it is to be drawn: UTF-8 text with mnemonics and ellipsis resolved.
struct TextLine {
    std::string text;
    int width = 0;       // as counted in the calculated rectangle
    int inkWidth = 0;    // without the space that ended the line; for centring and right alignment
    int underline = -1;  // byte of the mnemonic, -1 without one
    bool isShortened = false;
};

/// Splits a UTF-8 text into lines by DrawText's flags, in a space `width` pixels wide. `maxLines` is the
/// number of lines that will be drawn when the space is bounded below, 0 when it is not.
std::vector<TextLine> LayOutText(std::string_view utf8, UINT format, int width, int maxLines,
                                 LineMeasure& measure);

/// The byte behind the UTF-8 character at `at`.
std::size_t NextCharacter(std::string_view utf8, std::size_t at);

}  // namespace qvui::native
