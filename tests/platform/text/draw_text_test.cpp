// Fonts, extents and the pixels of text.

#include "platform/text/text_script.h"

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

using TextDrawing = PlatformTest;

TEST_F(TextDrawing, GoesAsTheScriptsSay)
{
    qvui::test::CheckScripts<TextScript>("text/scripts");
}
