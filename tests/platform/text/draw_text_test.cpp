// DrawText: where text goes, what it measures and what it returns.

#include "platform/text/text_canvas.h"

using DrawTextPlacement = PlatformTest;

TEST_F(DrawTextPlacement, CentresAndAlignsInTheRectangle)
{
    TextCanvas canvas;
    const std::string text = "Placed";
    const int width = canvas.Width(text);
    const int line = canvas.LineHeight();
    for (int height = 0; height <= 3 * line; ++height) {
        const RECT rect{40, 60, 40 + 150 + height % 2, 60 + height};
        const int middle = height / 2 - line / 2;
        const int centre = (rect.right - rect.left - width) / 2;
        const struct {
            const char* name;
            UINT format;
            POINT at;
            int result;  // 0 when not known
        } cases[] = {
            {"top", DT_SINGLELINE, {40, 60}, line},
            {"middle", DT_SINGLELINE | DT_VCENTER, {40, 60 + middle}, middle + line},
            {"bottom", DT_SINGLELINE | DT_BOTTOM, {40, 60 + height - line}, 0},
            {"centre", DT_SINGLELINE | DT_CENTER, {40 + centre, 60}, line},
            {"right", DT_SINGLELINE | DT_RIGHT, {rect.right - width, 60}, line},
            {"middle is for single lines", DT_VCENTER, {40, 60}, line},
            {"bottom is for single lines", DT_BOTTOM | DT_RIGHT, {rect.right - width, 60}, line},
        };
        for (const auto& c : cases) {
            canvas.Fill(0);
            const int result = canvas.Draw(text, rect, c.format | DT_NOCLIP);
            if (c.result != 0) {
                EXPECT_EQ(result, c.result) << c.name << ", height " << height;
            }
            TextCanvas expected;
            TextOutA(expected, c.at.x, c.at.y, text.data(), static_cast<int>(text.size()));
            ASSERT_EQ(canvas.DifferenceFrom(expected), "") << c.name << ", height " << height;
        }
    }
}

TEST_F(DrawTextPlacement, IsCutToTheRectangleUnlessAskedNotTo)
{
    TextCanvas canvas;
    const RECT rect{10, 10, 20, 15};
    canvas.Draw("Wide text", rect, DT_SINGLELINE);
    for (int y = 0; y < canvas.Canvas::Height(); ++y)
        for (int x = 0; x < canvas.Canvas::Width(); ++x) {
            const bool isInside = PtInRect(&rect, POINT{x, y}) != FALSE;
            ASSERT_TRUE(isInside || canvas.At(x, y) == 0) << x << ',' << y;
        }
    TextCanvas whole;
    whole.Draw("Wide text", rect, DT_SINGLELINE | DT_NOCLIP);
    TextCanvas expected;
    TextOutA(expected, 10, 10, "Wide text", 9);
    EXPECT_EQ(whole.DifferenceFrom(expected), "");
}

TEST_F(DrawTextPlacement, FollowsTheViewportAndTheClip)
{
    TextCanvas canvas;
    SetViewportOrgEx(canvas, 30, 20, nullptr);
    IntersectClipRect(canvas, 0, 0, 12, 100);
    canvas.Draw("Moved", {0, 0, 100, 50}, DT_SINGLELINE);
    TextCanvas expected;
    IntersectClipRect(expected, 30, 0, 42, 200);
    TextOutA(expected, 30, 20, "Moved", 5);
    EXPECT_EQ(canvas.DifferenceFrom(expected), "");
    EXPECT_NE(canvas.Picture(), TextCanvas().Picture());
}

using DrawTextCalculation = PlatformTest;

TEST_F(DrawTextCalculation, AnswersTheRectangleThatTheTextNeeds)
{
    TextCanvas canvas;
    const int line = canvas.LineHeight();
    const struct {
        const char* name;
        std::string text;
        UINT format;
        std::string widest;  // the text whose width is the rectangle's
        int lines;
    } cases[] = {
        {"one line", "Hello", 0, "Hello", 1},
        {"single line", "Hello", DT_SINGLELINE, "Hello", 1},
        {"centred", "Hello", DT_CENTER | DT_SINGLELINE, "Hello", 1},
        {"right", "Hello", DT_RIGHT | DT_SINGLELINE, "Hello", 1},
        {"two lines", "Hello\nyou", 0, "Hello", 2},
        {"carriage return", "you\rHello", 0, "Hello", 2},
        {"both", "Hello\r\nyou", 0, "Hello", 2},
        {"both, reversed", "Hello\n\ryou", 0, "Hello", 2},
        {"twice", "Hello\n\nyou", 0, "Hello", 3},
        {"trailing newline", "Hello\n", 0, "Hello", 1},
        {"newline alone", "\n", 0, "", 1},
        {"mnemonic", "&Hello", 0, "Hello", 1},
        {"no mnemonic", "&Hello", DT_NOPREFIX, "&Hello", 1},
        {"ampersand", "a && b", 0, "a & b", 1},
        {"trailing ampersand", "Hello&", 0, "Hello&", 1},
        {"hidden mnemonic", "&Hello", DT_HIDEPREFIX, "Hello", 1},
    };
    for (const auto& c : cases) {
        int result = 0;
        const RECT rect = canvas.Calculated(c.text, {7, 9, 8, 10}, c.format, &result);
        EXPECT_EQ(RectText(rect), RectText({7, 9, 7 + canvas.Width(c.widest), 9 + c.lines * line})) << c.name;
        EXPECT_EQ(result, c.lines * line) << c.name;
    }
}

TEST_F(DrawTextCalculation, CountsTheSpaceAboveVerticallyCentredText)
{
    TextCanvas canvas;
    const int offset = 50 / 2 - canvas.LineHeight() / 2;
    int result = 0;
    const RECT rect = canvas.Calculated("Hello", {7, 9, 8, 59}, DT_SINGLELINE | DT_VCENTER, &result);
    EXPECT_EQ(result, offset + canvas.LineHeight());
    EXPECT_EQ(RectText(rect), RectText({7, 9, 7 + canvas.Width("Hello"), 9 + result}));
}

TEST_F(DrawTextCalculation, OfNothing)
{
    TextCanvas canvas;
    RECT rect{7, 9, 80, 90};
    EXPECT_EQ(DrawTextA(canvas, "", -1, &rect, DT_CALCRECT | DT_SINGLELINE), canvas.LineHeight());
    EXPECT_EQ(RectText(rect), RectText({7, 9, 7, 9 + canvas.LineHeight()}));
    EXPECT_EQ(DrawTextA(canvas, "", -1, &rect, DT_CALCRECT), canvas.LineHeight());
    EXPECT_EQ(DrawTextA(canvas, "", -1, &rect, 0), canvas.LineHeight());
}

TEST_F(DrawTextCalculation, StopsAfterTheFirstLineBeyondTheRectangle)
{
    TextCanvas canvas;
    const int line = canvas.LineHeight();
    const std::string text = "one\ntwo\nthree\nfour\nfive";
    const struct {
        const char* name;
        int height;
        UINT format;
        int lines;
    } cases[] = {
        {"no height", 0, 0, 1},
        {"less than a line", line - 1, 0, 1},
        {"more than a line", line + 1, 0, 2},
        {"three and a half lines", 3 * line + line / 2, 0, 4},
        {"all", 6 * line, 0, 5},
        {"not clipped", 1, DT_NOCLIP, 5},
    };
    for (const auto& c : cases) {
        canvas.Fill(0);
        EXPECT_EQ(canvas.Draw(text, {0, 0, 100, c.height}, c.format), c.lines * line) << c.name;
    }
}

TEST_F(DrawTextCalculation, TakesLengthsAndZeroTerminatedTexts)
{
    TextCanvas canvas;
    RECT rect{0, 0, 100, 100};
    DrawTextA(canvas, "Hello", -1, &rect, DT_CALCRECT);
    EXPECT_EQ(rect.right, canvas.Width("Hello"));
    DrawTextA(canvas, "Hello", 2, &rect, DT_CALCRECT);
    EXPECT_EQ(rect.right, canvas.Width("He"));
}

using DrawTextPrefix = PlatformTest;

TEST_F(DrawTextPrefix, UnderlinesTheLastMnemonic)
{
    const struct {
        const char* name;
        const char* text;
        UINT format;
        std::string before, underlined, all;
    } cases[] = {
        {"first", "&Open", 0, "", "O", "Open"},
        {"inside", "Ex&it", 0, "Ex", "i", "Exit"},
        {"two", "&Save &as", 0, "Save ", "a", "Save as"},
        {"after an ampersand", "R&&&D", 0, "R&", "D", "R&D"},
        {"none", "R&&D", 0, "", "", "R&D"},
        {"off", "&Open", DT_NOPREFIX, "", "", "&Open"},
    };
    for (const auto& c : cases) {
        TextCanvas canvas;
        canvas.Draw(c.text, {20, 30, 300, 100}, DT_SINGLELINE | c.format);
        TextCanvas expected;
        TextOutA(expected, 20, 30, c.all.data(), static_cast<int>(c.all.size()));
        const int left = 20 + expected.Width(c.before);
        const int right = left + expected.Width(c.underlined);
        const int row = 30 + expected.Metrics().tmAscent + 1;
        for (int x = left; x < right - 1; ++x)
            expected.Set(x, row, 0x00010101);
        expected.Set(right - 1, row, canvas.At(right - 1, row));  // the targets differ in the last pixel
        EXPECT_EQ(canvas.DifferenceFrom(expected), "") << c.name;
    }
}

using DrawTextTabs = PlatformTest;

TEST_F(DrawTextTabs, ReachTheNextStop)
{
    TextCanvas canvas;
    const int average = canvas.Metrics().tmAveCharWidth;
    const struct {
        const char* name;
        std::string text;
        UINT format;
        int columns;  // the last stop, in average characters
        std::string rest;
    } cases[] = {
        {"eight characters", "a\tb", DT_EXPANDTABS, 8, "b"},
        {"two tabs", "a\t\tb", DT_EXPANDTABS, 16, "b"},
        {"at the start", "\tText", DT_EXPANDTABS, 8, "Text"},
        {"stops of four", "a\tb", DT_EXPANDTABS | DT_TABSTOP | (4 << 8), 4, "b"},
        {"stops of twenty", "a\tb", DT_EXPANDTABS | DT_TABSTOP | (20 << 8), 20, "b"},
        {"two columns", "a\tb\tc", DT_EXPANDTABS | DT_TABSTOP | (10 << 8), 20, "c"},
    };
    for (const auto& c : cases) {
        if (!(c.format & DT_TABSTOP)) {  // whose count takes the place of DT_CALCRECT
            const RECT rect = canvas.Calculated(c.text, {0, 0, 10, 10}, c.format);
            EXPECT_EQ(rect.right, c.columns * average + canvas.Width(c.rest)) << c.name;
        }
        TextCanvas drawn;
        drawn.Draw(c.text, {0, 0, 400, 100}, c.format);
        TextCanvas column;
        TextOutA(column, c.columns * average, 0, c.rest.data(), static_cast<int>(c.rest.size()));
        for (int y = 0; y < canvas.LineHeight(); ++y)
            for (int x = c.columns * average; x < 300; ++x)
                ASSERT_EQ(drawn.At(x, y), column.At(x, y)) << c.name << ' ' << x << ',' << y;
    }
}
