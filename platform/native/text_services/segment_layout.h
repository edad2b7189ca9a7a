#pragma once

#include <pango/pango.h>

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "native/text_services/fonts.h"
#include "native/text_services/segment.h"

namespace qvui::native {

/// How a document is laid out. Widths are pixels.
struct LayoutSettings {
    int width = 0;  // of a line; of no meaning without wrapping, except to align
    bool wraps = false;
    /// Every line is as high as the default font, whatever fonts stand in for missing characters.
    bool hasFixedLineHeight = true;
    char16_t password = 0;  // shown in place of each character; 0 shows the text

    bool operator==(const LayoutSettings&) const = default;
};

/// A line of a segment. Positions are units of the segment, coordinates pixels: x from the left of the text
/// area, y from the top of the segment.
struct LineBox {
    int first;
    int last;  // the end of its text, without a break
    int y;
    int height;
    int ascent;  // of the baseline below y
    int x;
    int width;
    PangoLayoutLine* line;
};

/// What the layout of a segment has to know of its surroundings.
struct SegmentPlace {
    bool startsParagraph = true;
    bool isRightToLeft = false;
    bool isAligned = true;  // false for parts of a line that is not wrapped, which stand side by side
};

/// One segment, shaped and divided into lines.
class SegmentLayout {
public:
    SegmentLayout(const Segment& segment, const SegmentPlace& place, const LayoutSettings& settings,
                  const ParaFormat& paragraph, FormatFonts& fonts);

    const std::vector<LineBox>& Lines() const { return m_lines; }
    int Height() const { return m_height; }
    /// The right end of the widest line.
    int Width() const { return m_width; }
    bool IsRightToLeft() const { return m_isRightToLeft; }
    int Length() const { return m_length; }
    /// Drops the last line, whose text goes to the next segment.
    void DropLastLine();

    /// The line that a position stands on; of two that it borders on the second, or the first when
    /// `atEndOfLine`.
    const LineBox& LineAt(int position, bool atEndOfLine) const;
    /// The line at a height, the nearest one outside of the segment.
    const LineBox& LineAtHeight(int y) const;
    /// From the left of the text area to the caret before a position of a line.
    int CaretX(const LineBox& line, int position) const;
    /// The position nearest to `x` on a line, between characters as people see them.
    int Hit(const LineBox& line, int x) const;
    /// The character that `x` lies on: its first unit. -1 outside the line's text.
    int CharacterAt(const LineBox& line, int x) const;
    /// The next caret position to the left or right on the screen; -1 where the segment ends before, Length()
    /// + 1 after.
    int MoveVisually(int position, bool toRight) const;
    /// The next caret position in the order of the text; stays within the segment.
    int Next(int position) const;
    int Previous(int position) const;
    /// Where a deletion backwards from a position starts: a code point or a whole character, as the script
    /// wants it.
    int Backspace(int position) const;
    bool IsWordBoundary(int position) const;
    bool IsCaretPosition(int position) const;

    struct Extent {
        int left;
        int right;
    };
    /// What [first, last) covers of a line, in several pieces where the directions are mixed.
    std::vector<Extent> Extents(const LineBox& line, int first, int last) const;
    int ByteOf(int position) const;
    int UnitOf(int byte) const;

private:
    void MakeText(std::u16string_view text, char16_t password);
    void MakeLines(const Segment& segment, const SegmentPlace& place, const LayoutSettings& settings,
                   const ParaFormat& paragraph, FormatFonts& fonts);
    const PangoLogAttr& AttributesAt(int position) const;
    int CharacterIndex(int byte) const;

    std::unique_ptr<PangoLayout, UnrefObject> m_layout;
    std::string m_utf8;
    std::vector<int> m_bytes;               // of each unit, and of the end; empty while the two count alike
    mutable std::vector<int> m_characters;  // of each byte; made when first needed; empty for ASCII
    std::vector<LineBox> m_lines;
    int m_length;
    int m_height = 0;
    int m_width = 0;
    bool m_isRightToLeft;
};

/// The direction of the first strong character; nothing when there is none.
enum class Direction : std::uint8_t { Neutral, LeftToRight, RightToLeft };
Direction FirstStrong(std::u16string_view text);

}  // namespace qvui::native
