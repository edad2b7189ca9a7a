// Fonts, extents and the pixels of text.

#include "platform/text/text_canvas.h"

using TextMetrics = PlatformTest;

TEST_F(TextMetrics, HeightsAreOfTheEmOrOfTheCell)
{
    struct Case {
        int height;
        int expected;  // tmHeight in DejaVu Sans
    };
    Canvas canvas(10, 10);
    for (const Case& c : {Case{-16, 19}, Case{-12, 14}, Case{20, 20}, Case{33, 33}, Case{100, 100}}) {
        const Scoped font(canvas, TestFont(c.height));
        TEXTMETRICA metrics{};
        EXPECT_TRUE(GetTextMetricsA(canvas, &metrics));
        EXPECT_EQ(metrics.tmHeight, c.expected) << c.height;
        EXPECT_EQ(metrics.tmAscent + metrics.tmDescent, metrics.tmHeight) << c.height;
        EXPECT_GT(metrics.tmAveCharWidth, 0) << c.height;
        SIZE size{};
        GetTextExtentPoint32A(canvas, "x", 1, &size);
        EXPECT_EQ(size.cy, metrics.tmHeight) << c.height;
    }
}

TEST_F(TextMetrics, FollowTheFontThatIsSelected)
{
    TextCanvas canvas;
    const int normal = canvas.Width("Some text");
    LOGFONTA description{};
    const Scoped font(TestFont(-13));
    EXPECT_EQ(GetObjectA(font, sizeof description, &description), static_cast<int>(sizeof description));
    EXPECT_EQ(description.lfHeight, -13);
    EXPECT_STREQ(description.lfFaceName, "DejaVu Sans");
    description.lfWeight = FW_BOLD;
    description.lfItalic = TRUE;
    description.lfUnderline = TRUE;
    const Scoped bold(canvas, CreateFontIndirectA(&description));
    EXPECT_GT(canvas.Width("Some text"), normal);
    TEXTMETRICA metrics{};
    GetTextMetricsA(canvas, &metrics);
    EXPECT_EQ(metrics.tmWeight, FW_BOLD);
    EXPECT_NE(metrics.tmItalic, 0);
    EXPECT_NE(metrics.tmUnderlined, 0);
    EXPECT_EQ(metrics.tmStruckOut, 0);
}

TEST_F(TextMetrics, ExtentsGrowWithTheText)
{
    TextCanvas canvas;
    const std::string text = "Hello, wide world";
    const int length = static_cast<int>(text.size());
    for (int widest = 0; widest <= canvas.Width(text) + 3; ++widest) {
        int fit = -1;
        std::vector<int> widths(text.size(), -1);
        SIZE size{};
        ASSERT_TRUE(GetTextExtentExPointA(canvas, text.data(), length, widest, &fit, widths.data(), &size));
        EXPECT_EQ(size.cx, canvas.Width(text)) << "of the whole text";
        int expected = 0;
        while (expected < length &&
               canvas.Width(text.substr(0, static_cast<std::size_t>(expected) + 1)) <= widest)
            ++expected;
        ASSERT_EQ(fit, expected) << widest;
        for (int i = 0; i < fit; ++i)
            ASSERT_EQ(widths[static_cast<std::size_t>(i)],
                      canvas.Width(text.substr(0, static_cast<std::size_t>(i) + 1)));
    }
    SIZE size{5, 5};
    EXPECT_TRUE(GetTextExtentPoint32A(canvas, "", 0, &size));
    EXPECT_EQ(size.cx, 0);
}

TEST_F(TextMetrics, ATextIsAsWideAsItsCharacters)
{
    std::string printable;
    for (char character = ' '; character <= '~'; ++character)
        printable += character;
    TextCanvas canvas;
    for (const int height : {-11, -16, -37}) {
        const Scoped<HFONT> font(TestFont(height));
        const HGDIOBJ previous = SelectObject(canvas, font);
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
        SelectObject(canvas, previous);
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
        TextOutA(canvas, 10, 10, "Text", 4);
        const RECT box{10, 10, 10 + canvas.Width("Text"), 10 + canvas.LineHeight()};
        int touched = 0;
        for (int y = 0; y < 40; ++y)
            for (int x = 0; x < 100; ++x) {
                const std::uint32_t pixel = canvas.At(x, y);
                touched += pixel != kBefore ? 1 : 0;
                ASSERT_TRUE(pixel == kBefore || pixel >> 24 == 0) << x << ',' << y;
                if (mode == OPAQUE && PtInRect(&box, POINT{x, y})) {
                    ASSERT_NE(pixel, kBefore) << x << ',' << y;
                }
            }
        EXPECT_GT(touched, 20);
        EXPECT_LT(touched, 100 * 40 / 2);
    }
}

TEST_F(TextPixels, TakeTheTextColour)
{
    TextCanvas canvas(60, 40);
    const Scoped font(canvas, TestFont(-30));
    SetTextColor(canvas, RGB(0x12, 0x34, 0x56));
    TextOutA(canvas, 2, 2, "I", 1);
    int full = 0;
    for (const std::uint32_t pixel : canvas.Pixels())
        full += pixel == 0x00123456 ? 1 : 0;
    EXPECT_GT(full, 20) << "a stem this thick has pixels that are covered whole";
}

TEST_F(TextPixels, AreClippedToTheRectangleOfExtTextOut)
{
    TextCanvas canvas(100, 40);
    const RECT rect{12, 12, 20, 20};
    ExtTextOutA(canvas, 10, 10, ETO_CLIPPED, &rect, "Text", 4, nullptr);
    for (int y = 0; y < 40; ++y)
        for (int x = 0; x < 100; ++x)
            ASSERT_TRUE(canvas.At(x, y) == 0 || PtInRect(&rect, POINT{x, y})) << x << ',' << y;
    EXPECT_NE(canvas.Picture(), TextCanvas(100, 40).Picture());
    ExtTextOutA(canvas, 10, 10, ETO_OPAQUE | ETO_CLIPPED, &rect, "", 0, nullptr);
    EXPECT_EQ(canvas.At(12, 12), 0x00FFFFFFU);
    EXPECT_EQ(canvas.At(20, 20), 0U);
}
