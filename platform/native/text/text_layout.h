#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include <qvui/platform/native/text.h>

namespace qvui::native {

/// Returns the width of a UTF-8 text without tabs before each of its bytes; has one more entry than the text
/// has bytes. The result is valid until the next call.
using TextWidths = std::function<const std::vector<int>&(std::string_view utf8)>;

/// Measures lines of UTF-8 text with tabs that advance to the next of equally spaced stops.
class LineMeasure {
public:
    /// `tabStop` is in pixels, at least 1.
    LineMeasure(TextWidths widths, int tabStop) : m_text(std::move(widths)), m_tabStop(tabStop) {}

    /// As TextWidths, for a line that may contain tabs.
    const std::vector<int>& Widths(std::string_view line);
    int Width(std::string_view line) { return Widths(line).back(); }
    struct Part {
        std::string_view text;
        int left;
    };
    /// Returns the parts of a line between its tabs, each with its offset in pixels from the start of the
    /// line.
    std::vector<Part> Parts(std::string_view line);

private:
    TextWidths m_text;
    int m_tabStop;
    std::vector<int> m_widths;
};

/// One line ready for drawing: UTF-8 text with mnemonics and ellipsis resolved.
struct TextLine {
    std::string text;
    int width = 0;       // as counted for DT_CALCRECT
    int inkWidth = 0;    // without the space that ended the line, for centring and right alignment
    int underline = -1;  // byte offset of the mnemonic, or -1
    bool isShortened = false;
};

/// Splits a UTF-8 text into lines by DrawText's flags. `width` is the available width in pixels. `maxLines`
/// is the number of lines that will be drawn, or 0 for no limit.
std::vector<TextLine> LayOutText(std::string_view utf8, UINT format, int width, int maxLines,
                                 LineMeasure& measure);

/// Returns the position after the UTF-8 character at `at`.
std::size_t NextCharacter(std::string_view utf8, std::size_t at);

}  // namespace qvui::native
