// Fonts, extents and the pixels of text; DrawText: where text goes, what it measures and what it returns.

#include "platform/text/text_canvas.h"

using TextMetrics = PlatformTest;

TEST_F(TextMetrics, AreThoseOfTheFontThatIsSelected)
{
    TextCanvas canvas;
    TEXTMETRICA metrics{};
    // The height is that of the em or of the cell.
    for (const auto& [height, expected] : Table<int, int>{{-16, 19}, {-12, 14}, {20, 20}, {100, 100}}) {
        const Scoped font(static_cast<HDC>(canvas), TestFont(height));
        GetTextMetricsA(canvas, &metrics);
        EXPECT_EQ(metrics.tmHeight, expected) << height << ": in DejaVu Sans";
        EXPECT_EQ(metrics.tmAscent + metrics.tmDescent, metrics.tmHeight) << height;
        SIZE size{};
        GetTextExtentPoint32A(canvas, "x", 1, &size);
        EXPECT_EQ(size.cy, metrics.tmHeight) << height;
    }
    const int normal = canvas.Width("Some text");
    LOGFONTA description{};
    GetObjectA(Scoped(TestFont(-13)), sizeof description, &description);
    description.lfWeight = FW_BOLD;
    const Scoped bold(static_cast<HDC>(canvas), CreateFontIndirectA(&description));
    EXPECT_GT(canvas.Width("Some text"), normal);
    GetTextMetricsA(canvas, &metrics);
    EXPECT_EQ(metrics.tmWeight, FW_BOLD);
}

TEST_F(TextMetrics, ExtentsGrowWithTheText)
{
    TextCanvas canvas;
    const std::string text = "Hello, wide world";
    const auto widthOf = [&](int length) {
        return canvas.Width(text.substr(0, static_cast<std::size_t>(length)));
    };
    const int length = static_cast<int>(text.size());
    for (int widest = 0; widest <= canvas.Width(text) + 3; ++widest) {
        int fit = -1;
        std::vector<int> widths(text.size(), -1);
        SIZE size{};
        ASSERT_TRUE(GetTextExtentExPointA(canvas, text.data(), length, widest, &fit, widths.data(), &size));
        EXPECT_EQ(size.cx, canvas.Width(text)) << "of the whole text";
        int expected = 0;
        while (expected < length && widthOf(expected + 1) <= widest)
            ++expected;
        ASSERT_EQ(fit, expected) << widest;
        for (int i = 0; i < fit; ++i)
            ASSERT_EQ(widths[static_cast<std::size_t>(i)], widthOf(i + 1));
    }
    EXPECT_EQ(canvas.Width(""), 0);
}

TEST_F(TextMetrics, ATextIsAsWideAsItsCharacters)
{
    std::string printable;
    for (char character = ' '; character <= '~'; ++character)
        printable += character;
    TextCanvas canvas;
    for (const int height : {-11, -16, -37}) {
        const Scoped<HFONT> font(canvas, TestFont(height));
        // A tab that is not expanded has no glyph: it makes a text one that is not of letters alone.
        const auto widthWithTab = [&canvas](const std::string& text) {
            return canvas.Calculated(text + "\t", {}, DT_SINGLELINE | DT_NOPREFIX).right;
        };
        for (const std::string& text : {printable, std::string("AVATAR To, W. office -> fj <=> 11:17")}) {
            int sum = 0;
            for (const char character : text)
                sum += canvas.Width({character});
            EXPECT_EQ(canvas.Width(text), sum) << height;
            EXPECT_EQ(widthWithTab(text) - widthWithTab(""), sum) << height;
        }
    }
}

using TextPixels = PlatformTest;

TEST_F(TextPixels, HaveNoAlphaWhereTheyTouchAndLeaveTheRest)
{
    constexpr std::uint32_t kBefore = 0xC8AABBCC;
    for (const int mode : {TRANSPARENT, OPAQUE}) {
        TextCanvas canvas(100, 40);
        canvas.Fill(kBefore);
        SetBkMode(canvas, mode);
        SetBkColor(canvas, RGB(0x10, 0x20, 0x30));
        SetTextColor(canvas, RGB(0xF0, 0xE0, 0xD0));
        canvas.Out(10, 10, "Text");
        const RECT box{10, 10, 10 + canvas.Width("Text"), 10 + canvas.LineHeight()};
        int touched = 0;
        for (int y = 0; y < 40; ++y)
            for (int x = 0; x < 100; ++x) {
                const std::uint32_t pixel = canvas.At(x, y);
                touched += pixel != kBefore ? 1 : 0;
                ASSERT_TRUE(pixel == kBefore || pixel >> 24 == 0) << x << ',' << y;
                ASSERT_FALSE(mode == OPAQUE && Holds(box, x, y) && pixel == kBefore) << x << ',' << y;
            }
        EXPECT_GT(touched, 20);
        EXPECT_LT(touched, 100 * 40 / 2);
    }
}

TEST_F(TextPixels, AreClippedToTheRectangleOfExtTextOut)
{
    TextCanvas canvas(100, 40);
    TextCanvas whole(100, 40);
    const RECT rect{12, 12, 20, 20};
    ExtTextOutA(canvas, 10, 10, ETO_CLIPPED, &rect, "Text", 4, nullptr);
    whole.Out(10, 10, "Text");
    canvas.Expect([&](int x, int y) { return Holds(rect, x, y) ? whole.At(x, y) : 0; });
}

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
        constexpr int kUnknown = 0;
        const Table<const char*, UINT, POINT, int> cases{
            {"top", DT_SINGLELINE, {40, 60}, line},
            {"middle", DT_SINGLELINE | DT_VCENTER, {40, 60 + middle}, middle + line},
            {"bottom", DT_SINGLELINE | DT_BOTTOM, {40, 60 + height - line}, kUnknown},
            {"centre", DT_SINGLELINE | DT_CENTER, {40 + centre, 60}, line},
            {"middle is for single lines", DT_VCENTER, {40, 60}, line},
            {"bottom is for single lines", DT_BOTTOM | DT_RIGHT, {rect.right - width, 60}, line},
        };
        for (const auto& [name, format, at, result] : cases) {
            canvas.Fill(0);
            const int drawn = canvas.Draw(text, rect, format | DT_NOCLIP);
            EXPECT_TRUE(drawn == result || result == kUnknown) << name << ", height " << height;
            TextCanvas expected;
            expected.Out(at.x, at.y, text);
            canvas.ExpectSame(expected, name + (", height " + std::to_string(height)));
        }
    }
}

TEST_F(DrawTextPlacement, IsCutToTheRectangleAndTheClip)
{
    TextCanvas whole;
    whole.Out(40, 30, "Wide text");
    TextCanvas canvas;
    SetViewportOrgEx(canvas, 30, 20, nullptr);
    IntersectClipRect(canvas, 0, 0, 22, 100);
    canvas.Draw("Wide text", {10, 10, 50, 15}, DT_SINGLELINE);
    canvas.Expect([&](int x, int y) { return Holds({40, 30, 52, 35}, x, y) ? whole.At(x, y) : 0; });
    EXPECT_NE(canvas.Picture(), TextCanvas().Picture());
}

using DrawTextCalculation = PlatformTest;

TEST_F(DrawTextCalculation, AnswersTheRectangleThatTheTextNeeds)
{
    TextCanvas canvas;
    const int line = canvas.LineHeight();
    // With the text whose width is the rectangle's, and the number of lines
    const Table<const char*, std::string, UINT, std::string, int> cases{
        {"one line", "Hello", 0, "Hello", 1},
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
    for (const auto& [name, text, format, widest, lines] : cases) {
        int result = 0;
        const RECT rect = canvas.Calculated(text, {7, 9, 8, 10}, format, &result);
        EXPECT_EQ(RectText(rect), RectText({7, 9, 7 + canvas.Width(widest), 9 + lines * line})) << name;
        EXPECT_EQ(result, lines * line) << name;
    }
    int result = 0;
    const RECT rect = canvas.Calculated("Hello", {7, 9, 8, 59}, DT_SINGLELINE | DT_VCENTER, &result);
    EXPECT_EQ(result, 50 / 2 - line / 2 + line) << "the space above counts";
    EXPECT_EQ(RectText(rect), RectText({7, 9, 7 + canvas.Width("Hello"), 9 + result}));
}

TEST_F(DrawTextCalculation, StopsAfterTheFirstLineBeyondTheRectangle)
{
    TextCanvas canvas;
    const int line = canvas.LineHeight();
    const Table<const char*, int, UINT, int> cases{
        {"no height", 0, 0, 1},
        {"less than a line", line - 1, 0, 1},
        {"more than a line", line + 1, 0, 2},
        {"three and a half lines", 3 * line + line / 2, 0, 4},
        {"all", 6 * line, 0, 5},
        {"not clipped", 1, DT_NOCLIP, 5},
    };
    for (const auto& [name, height, format, lines] : cases)
        EXPECT_EQ(canvas.Draw("one\ntwo\nthree\nfour\nfive", {0, 0, 100, height}, format), lines * line)
            << name;
}

TEST_F(DrawTextCalculation, TakesLengthsAndZeroTerminatedTexts)
{
    TextCanvas canvas;
    RECT rect{0, 0, 100, 100};
    DrawTextA(canvas, "Hello", -1, &rect, DT_CALCRECT);
    EXPECT_EQ(rect.right, canvas.Width("Hello"));
    DrawTextA(canvas, "Hello", 2, &rect, DT_CALCRECT);
    EXPECT_EQ(rect.right, canvas.Width("He"));
    rect = {7, 9, 80, 90};
    EXPECT_EQ(DrawTextA(canvas, "", -1, &rect, DT_CALCRECT | DT_SINGLELINE), canvas.LineHeight());
    EXPECT_EQ(RectText(rect), RectText({7, 9, 7, 9 + canvas.LineHeight()}));
    rect = {7, 9, 80, 90};
    EXPECT_EQ(DrawTextA(canvas, "Hello", 0, &rect, DT_CALCRECT), 0);
    EXPECT_EQ(RectText(rect), RectText({7, 9, 80, 90})) << "no characters";
    EXPECT_EQ(DrawTextA(canvas, nullptr, -1, &rect, 0), canvas.LineHeight());
}

using DrawTextPrefix = PlatformTest;

TEST_F(DrawTextPrefix, UnderlinesTheLastMnemonic)
{
    // With what stands before the underlined letter, that letter, and all that shows
    const Table<const char*, const char*, UINT, std::string, std::string, std::string> cases{
        {"first", "&Open", 0, "", "O", "Open"},
        {"two", "&Save &as", 0, "Save ", "a", "Save as"},
        {"after an ampersand", "R&&&D", 0, "R&", "D", "R&D"},
        {"none", "R&&D", 0, "", "", "R&D"},
        {"off", "&Open", DT_NOPREFIX, "", "", "&Open"},
    };
    for (const auto& [name, text, format, before, underlined, all] : cases) {
        TextCanvas canvas;
        canvas.Draw(text, {20, 30, 300, 100}, DT_SINGLELINE | format);
        TextCanvas expected;
        expected.Out(20, 30, all);
        const int left = 20 + expected.Width(before);
        const int right = left + expected.Width(underlined);
        const int row = 30 + expected.Metrics().tmAscent + 1;
        for (int x = left; x < right - 1; ++x)
            expected.Set(x, row, 0x00010101);
        expected.Set(right - 1, row, canvas.At(right - 1, row));  // the targets differ in the last pixel
        canvas.ExpectSame(expected, name);
    }
}

using DrawTextTabs = PlatformTest;

TEST_F(DrawTextTabs, ReachTheNextStop)
{
    TextCanvas canvas;
    const int average = canvas.Metrics().tmAveCharWidth;
    // With the last stop, in average characters, and what stands there
    const Table<const char*, std::string, UINT, int, std::string> cases{
        {"eight characters", "a\tb", DT_EXPANDTABS, 8, "b"},
        {"two tabs", "a\t\tb", DT_EXPANDTABS, 16, "b"},
        {"at the start", "\tText", DT_EXPANDTABS, 8, "Text"},
        {"stops of four", "a\tb", DT_EXPANDTABS | DT_TABSTOP | (4 << 8), 4, "b"},
        {"two columns", "a\tb\tc", DT_EXPANDTABS | DT_TABSTOP | (10 << 8), 20, "c"},
    };
    for (const auto& [name, text, format, columns, rest] : cases) {
        const int stop = columns * average;
        if (!(format & DT_TABSTOP)) {  // whose count takes the place of DT_CALCRECT
            EXPECT_EQ(canvas.Calculated(text, {0, 0, 10, 10}, format).right, stop + canvas.Width(rest))
                << name;
        }
        TextCanvas drawn;
        drawn.Draw(text, {0, 0, 400, 100}, format);
        TextCanvas column;
        column.Out(stop, 0, rest);
        for (int y = 0; y < canvas.LineHeight(); ++y)
            for (int x = stop; x < 300; ++x)
                ASSERT_EQ(drawn.At(x, y), column.At(x, y)) << name << ' ' << x << ',' << y;
    }
}
