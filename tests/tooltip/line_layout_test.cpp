#include <algorithm>
#include <random>
#include <string>

#include <gtest/gtest.h>

#include <qvui/platform/cstring.h>

#include "tooltip/markup/breaks.h"
#include "tooltip/markup/line_layout.h"

using namespace DUI::html;

namespace {

/// A font of cells: 10 pixels wide and 20 high, ascent 15; with a size both are as many pixels as the size
/// says. The image "star" is 30×40, every other one missing.
class CellRuler : public Ruler {
public:
    explicit CellRuler(const Document& document) : m_document(document) {}

    int Width(int style, std::string_view text) override
    {
        int count = 0;
        for (const char* at = text.data(); at < text.data() + text.size(); ++count)
            at += CharacterLength(at, text.data() + text.size());
        const int size = Size(style);
        return count * (size ? size : 10);
    }
    LineMetrics Metrics(int style) override
    {
        const int size = Size(style);
        return size ? LineMetrics{size, size} : LineMetrics{20, 15};
    }
    SIZE Image(const std::string& name, int) override { return name == "star" ? SIZE{30, 40} : SIZE{0, 0}; }

private:
    int Size(int style) const { return m_document.styles.at(static_cast<std::size_t>(style)).size; }

    const Document& m_document;
};

struct LaidOut {
    Document document;
    Layout layout;
};

LaidOut LayOutMarkup(const std::string& text, int maxWidth, int maxHeight = 32767)
{
    LaidOut result{ParseMarkup(text), {}};
    CellRuler ruler(result.document);
    result.layout = LayOut(result.document, ruler, maxWidth, maxHeight);
    return result;
}

// Each box as text@left,top, boxes of a line divided by blanks and lines by bars.
std::string Dump(const Layout& layout, int space)
{
    std::string dump;
    for (const Line& line : layout.lines) {
        dump += dump.empty() ? "" : " | ";
        const char* gap = "";
        for (const Box& box : layout.BoxesOf(line)) {
            dump += gap + (box.kind == PieceKind::Rule ? std::string("---") : box.text) + "@" +
                    std::to_string(box.rect.left + line.Shift(space)) + "," + std::to_string(box.rect.top);
            gap = " ";
        }
    }
    return dump;
}

struct LayoutCase {
    const char* name;
    const char* text;
    int maxWidth;
    const char* boxes;
    SIZE size;
};

void ExpectLayouts(std::initializer_list<LayoutCase> cases)
{
    for (const LayoutCase& c : cases) {
        const Layout layout = LayOutMarkup(c.text, c.maxWidth).layout;
        EXPECT_EQ(Dump(layout, c.maxWidth), c.boxes) << c.name;
        EXPECT_EQ(layout.size.cx, c.size.cx) << c.name;
        EXPECT_EQ(layout.size.cy, c.size.cy) << c.name;
    }
}

TEST(HtmlLayout, WrapsBetweenWords)
{
    ExpectLayouts({
        {"fits", "ab cd", 50, "ab cd@0,0", {50, 20}},
        {"one pixel short", "ab cd", 49, "ab@0,0 | cd@0,20", {20, 40}},
        {"the space hangs", "abcd ef", 40, "abcd@0,0 | ef@0,20", {40, 40}},
        {"many spaces", "ab    cd", 45, "ab@0,0 | cd@0,20", {20, 40}},
        {"spaces are kept", "a  b", 100, "a  b@0,0", {40, 20}},
        {"spaces at the end", "ab   ", 100, "ab@0,0", {20, 20}},
        {"greedy", "a b c d e f", 50, "a b c@0,0 | d e f@0,20", {50, 40}},
        {"long word", "abcdefghij", 40, "abcd@0,0 | efgh@0,20 | ij@0,40", {40, 60}},
        {"long word behind a short one", "a bcdefg", 40, "a@0,0 | bcde@0,20 | fg@0,40", {40, 60}},
        {"long word before a short one", "bcdef g", 40, "bcde@0,0 | f g@0,20", {40, 40}},
        {"nothing fits", "ab", 5, "a@0,0 | b@0,20", {10, 40}},
        {"no width", "ab", 0, "a@0,0 | b@0,20", {10, 40}},
        {"no-break space", "a b&nbsp;c", 40, "a@0,0 | b c@0,20", {30, 40}},
        {"nothing", "", 40, "", {0, 0}},
    });
}

TEST(HtmlLayout, BreaksLinesWhereItIsTold)
{
    ExpectLayouts({
        {"two lines", "a\nb", 100, "a@0,0 | b@0,20", {10, 40}},
        {"empty line", "a\n\nb", 100, "a@0,0 |  | b@0,40", {10, 60}},
        {"at the end", "a\n", 100, "a@0,0", {10, 20}},
        {"only a break", "\n", 100, "", {0, 20}},
        {"centre", "abcdef<center>ab</center>c", 100, "abcdef@0,0 | ab@40,20 | c@0,40", {60, 60}},
        {"centre of wrapped lines", "<center>abc de", 45, "abc@7,0 | de@12,20", {30, 40}},
        {"rule", "ab<hr>c", 100, "ab@0,0 | ---@0,20 | c@0,29", {20, 49}},
        {"only rules", "<hr><hr>", 100, "---@0,0 | ---@0,9", {0, 18}},
    });
}

TEST(HtmlLayout, StylesShareALine)
{
    ExpectLayouts({
        {"next to each other", "a<b>b</b>c", 100, "a@0,0 b@10,0 c@20,0", {30, 20}},
        {"a word of two styles stays whole", "aa b<b>b</b>", 40, "aa@0,0 | b@0,20 b@10,20", {20, 40}},
        {"a break between styles", "a <b>bcd</b>", 40, "a@0,0 | bcd@0,20", {30, 40}},
        {"a long word of many styles", "<b>ab</b>cd<b>ef", 30, "ab@0,0 c@20,0 | d@0,20 ef@10,20", {30, 40}},
        {"one base line", "a<font size=40>b</font>c", 100, "a@0,25 b@10,0 c@50,25", {60, 45}},
        {"smaller text", "a<font size=8>b</font>", 100, "a@0,0 b@10,7", {18, 20}},
        {"an empty line in its font", "a<font size=40>\n\n</font>b", 100, "a@0,0 |  | b@0,60", {10, 80}},
    });
}

TEST(HtmlLayout, ImagesStandInTheMiddleOfTheLine)
{
    ExpectLayouts({
        {"beside text", "a<img src=star>b", 100, "a@0,10 star@10,0 b@40,10", {50, 40}},
        {"alone", "<img src=star>", 100, "star@0,0", {30, 40}},
        {"breaks before", "ab<img src=star>", 45, "ab@0,0 | star@0,20", {30, 60}},
        {"breaks behind", "<img src=star>ab", 45, "star@0,0 | ab@0,40", {30, 60}},
        {"too wide", "<img src=star>", 10, "star@0,0", {30, 40}},
        {"missing", "a<img src=none>b", 100, "a@0,0 none@10,10 b@10,0", {20, 20}},
        {"beside large text", "<img src=star><font size=60>b", 100, "star@0,10 b@30,0", {90, 60}},
    });
}

TEST(HtmlLayout, IndentsHangUntilTheLineIsBroken)
{
    ExpectLayouts({
        {"column", "a<ind=50>b", 200, "a@0,0 b@50,0", {60, 20}},
        {"wrapped", "a<ind=50>bb cc dd", 100, "a@0,0 bb cc@50,0 | dd@50,20", {100, 40}},
        {"passed already", "abcdef<ind=30>gh ij", 85, "abcdefgh@0,0 | ij@30,20", {80, 40}},
        {"ends with the line", "<ind=50>a\nb", 200, "a@50,0 | b@0,20", {60, 40}},
        {"at most half", "<ind=90>a", 100, "a@50,0", {60, 20}},
        {"ends with a part", "<ind=50><hr>b", 200, "---@0,0 | b@0,9", {10, 29}},
    });
}

TEST(HtmlLayout, StopsBelowTheHeight)
{
    EXPECT_EQ(Dump(LayOutMarkup("a\nb\nc\nd", 100, 40).layout, 100), "a@0,0 | b@0,20");
    EXPECT_EQ(Dump(LayOutMarkup("a b c d", 10, 41).layout, 100), "a@0,0 | b@0,20 | c@0,40");
    EXPECT_EQ(Dump(LayOutMarkup("abcdef", 10, 30).layout, 100), "a@0,0 | b@0,20");
}

TEST(HtmlBreaks, IdeographsBreakBesidePunctuationRules)
{
    const struct {
        const char* name;
        char32_t before;
        char32_t after;
        bool mayBreak;
    } cases[] = {
        {"letters", U'a', U'b', false},
        {"behind a space", U' ', U'b', true},
        {"before a space", U'a', U' ', false},
        {"between spaces", U' ', U' ', false},
        {"ideographs", 0x4E2D, 0x6587, true},
        {"kana", 0x3042, 0x30AB, true},
        {"beyond the first plane", 0x20000, 0x20001, true},
        {"letter and ideograph", U'a', 0x4E2D, true},
        {"ideograph and digit", 0x4E2D, U'5', true},
        {"before a full stop", 0x4E2D, 0x3002, false},
        {"behind a full stop", 0x3002, 0x4E2D, true},
        {"behind an opening bracket", 0xFF08, 0x4E2D, false},
        {"before an opening bracket", 0x4E2D, 0xFF08, true},
        {"before a closing quote", 0x3002, 0x201D, false},
        {"behind an opening quote", 0x201C, 0x4E2D, false},
        {"before a western comma", 0x4E2D, U',', false},
        {"small kana", 0x30AB, 0x30C3, false},
        {"hangul", 0xD55C, 0xAE00, false},
        {"accented letters", 0xE9, 0xE8, false},
    };
    for (const auto& c : cases)
        EXPECT_EQ(MayBreakBetween(c.before, c.after), c.mayBreak) << c.name;
}

std::string WithoutSpaces(std::string text)
{
    std::erase(text, ' ');
    return text;
}

// Whatever the words and styles, every character appears once and in order, and only what cannot be divided
// overflows.
TEST(HtmlLayout, LosesNothingAndStaysInside)
{
    std::mt19937 random(7);
    const char* const parts[] = {"a", "bc", "defghijklmn", " ", "  ", "\n", "<b>", "</b>", "<i>", "</i>"};
    for (int round = 0; round < 400; ++round) {
        std::string markup;
        std::string letters;
        for (int i = 0; i < 60; ++i) {
            const std::string part = parts[random() % std::size(parts)];
            markup += part;
            letters += part[0] == '<' || part[0] == '\n' ? "" : part;
        }
        const int width = 10 + static_cast<int>(random() % 200);
        const Layout layout = LayOutMarkup(markup, width).layout;
        std::string shown;
        for (const Box& box : layout.boxes) {
            shown += box.text;
            EXPECT_LE(box.rect.right, width);
        }
        ASSERT_EQ(WithoutSpaces(shown), WithoutSpaces(letters)) << markup << " in " << width;
        for (std::size_t i = 1; i < layout.lines.size(); ++i)
            ASSERT_EQ(layout.lines[i].top, layout.lines[i - 1].top + layout.lines[i - 1].height);
    }
}

// A text that was measured keeps its lines when it is laid out in the width that it took.
TEST(HtmlLayout, TakesTheSameLinesInItsOwnWidth)
{
    std::mt19937 random(11);
    for (int round = 0; round < 200; ++round) {
        std::string text;
        for (int i = 0; i < 80; ++i)
            text += random() % 4 ? static_cast<char>('a' + random() % 26) : ' ';
        const Layout first = LayOutMarkup(text, 10 + static_cast<int>(random() % 300)).layout;
        const Layout second = LayOutMarkup(text, first.size.cx).layout;
        ASSERT_EQ(Dump(first, 0), Dump(second, 0)) << text;
    }
}

TEST(HtmlLayout, EndsOnHostileTexts)
{
    const char* const units[] = {"<",
                                 "<b \"",
                                 "<img \"",
                                 "&#",
                                 "x",
                                 " ",
                                 "\n",
                                 "<hr>",
                                 "<b>x",
                                 "<center>",
                                 "<ind=500>x",
                                 "<font face=f size=2>x",
                                 "<img src=star>",
                                 "</font>",
                                 "<b><i>x</b></i>"};
    for (const char* const unit : units) {
        std::string text;
        while (text.size() < 100000)
            text += unit;
        const LaidOut result = LayOutMarkup(text, 900);
        EXPECT_LE(result.layout.size.cx, 900) << unit;
        EXPECT_LT(result.layout.size.cy, 32767 + 100) << unit;
    }
}

}  // namespace
