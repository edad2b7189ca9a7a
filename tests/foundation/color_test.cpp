#include <qvui/foundation/color.h>

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <limits>
#include <ostream>
#include <vector>

namespace DUI {

// Colours compare and print as AARRGGBB.
static std::uint32_t Bits(const CARGB& color)
{
    std::uint8_t pixel[4];
    color.WriteToDIB4(pixel);
    return pixel[0] | (static_cast<std::uint32_t>(pixel[1]) << 8) |
           (static_cast<std::uint32_t>(pixel[2]) << 16) | (static_cast<std::uint32_t>(pixel[3]) << 24);
}

}  // namespace DUI

namespace {

using DUI::Bits;
using DUI::CARGB;
using DUI::CHLSColor;

CHLSColor HlsOf(unsigned char r, unsigned char g, unsigned char b)
{
    CHLSColor color(r, g, b);
    color.ToHLS();
    return color;
}

std::array<int, 3> RgbOf(double hue, double luminance, double saturation)
{
    CHLSColor color(hue, luminance, saturation);
    color.ToRGB();
    return {color.m_red, color.m_green, color.m_blue};
}

}  // namespace

TEST(Color, IsOnePixelInMemory)
{
    CARGB color(1, 2, 3, 4);
    EXPECT_EQ(sizeof color, 4U);
    EXPECT_EQ(Bits(color), 0x04010203U);
    const auto* bytes = reinterpret_cast<const unsigned char*>(&color);
    EXPECT_EQ((std::vector<int>{bytes[0], bytes[1], bytes[2], bytes[3]}), (std::vector<int>{3, 2, 1, 4}));
    EXPECT_EQ(color.GetColor(), 0x030201U);

    color.SetColor(DWORD{0x99030201});
    EXPECT_EQ(Bits(color), 0xFF010203U) << "the high byte of a COLORREF is no alpha";
    color.GetA() = 9;
    color.SetG(8);
    EXPECT_EQ(Bits(color), 0x09010803U);
    EXPECT_TRUE(CARGB().IsEmpty());
    for (const CARGB& one : {CARGB(1, 0, 0, 0), CARGB(0, 1, 0, 0), CARGB(0, 0, 1, 0), CARGB(0, 0, 0, 1)})
        EXPECT_FALSE(one.IsEmpty()) << std::hex << Bits(one);
}

TEST(Color, WalksScanLines)
{
    unsigned char line[7] = {10, 20, 30, 40, 50, 60, 70};
    CARGB color(0, 0, 0, 99);
    unsigned char* next = color.ReadFromDIB3(line);
    EXPECT_EQ(next, line + 3);
    EXPECT_EQ(Bits(color), 0x631E140AU) << "24 bits keep alpha";
    next = color.ReadFromDIB4(next);
    EXPECT_EQ(next, line + 7);
    EXPECT_EQ(Bits(color), 0x463C3228U);

    unsigned char written[4] = {0, 0, 0, 1};
    color.WriteToDIB3(written);
    EXPECT_EQ(written[2], 60);
    EXPECT_EQ(written[3], 1) << "three bytes only";
}

TEST(ColorLiteral, ReadsBothForms)
{
    struct Case {
        const char* text;
        bool isLiteral;
        std::uint32_t color;
    };
    constexpr std::uint32_t kUntouched = 0x12345678;
    const std::vector<Case> cases{
        {"#FF336699", true, 0xFF336699},
        {"#FF0000FF", true, 0xFF0000FF},
        {"#0000FF", true, 0x000000FF},
        {"#0x80", true, 0x00000080},
        {"# 80", true, 0x00000080},
        {"#12zz", true, 0x00000012},
        {"#zz", true, 0},
        {"#123456789", true, 0xFFFFFFFF},
        {"#FFFFFFFFFFFFFFFFFFFF", true, 0xFFFFFFFF},
        {"#000000012345678", true, 0x12345678},
        {"#-1", true, 0xFFFFFFFF},
        {"#-2", true, 0xFFFFFFFE},
        {"#", false, kUntouched},
        {"", false, kUntouched},
        {"r", false, kUntouched},
        {"rgb(1,2,3)", true, 0xFF010203},
        {"RGB(1,2,3)", true, 0xFF010203},
        {"rGb ( 1, 2, 3 ) ", true, 0xFF010203},
        {"rgb(1 ,2,3)", true, 0xFF010000},
        {"RGB (255, 128, 0)", true, 0xFFFF8000},
        {"rgb(300,0,0)", true, 0xFF2C0000},
        {"rgb(-1,0,0)", true, 0xFFFF0000},
        {"rgb(7,8", true, 0xFF070800},
        {"rgb", true, 0xFF000000},
        {"rgba(1,2,3)", true, 0xFF000000},
        {"rg", false, kUntouched},
        {"red", false, kUntouched},
        {"white", false, kUntouched},
    };
    for (const Case& c : cases) {
        CARGB color(0x34, 0x56, 0x78, 0x12);
        EXPECT_EQ(DUI::ParseColorLiteral(c.text, color), c.isLiteral ? TRUE : FALSE) << c.text;
        EXPECT_EQ(Bits(color), c.color) << c.text;
    }
}

TEST(Hls, FromBytes)
{
    struct Case {
        const char* name;
        unsigned char red, green, blue;
        double hue, luminance, saturation;
    };
    const std::vector<Case> cases{
        {"red", 255, 0, 0, 0, 0.5, 1},
        {"green", 0, 255, 0, 120, 0.5, 1},
        {"blue", 0, 0, 255, 240, 0.5, 1},
        {"magenta: red wins the tie", 255, 0, 255, 300, 0.5, 1},
        {"cyan: green wins the tie", 0, 255, 255, 180, 0.5, 1},
        {"grey", 128, 128, 128, 0, 128 / 255.0, 0},
        {"white", 255, 255, 255, 0, 1, 0},
        {"dark", 10, 20, 30, 210, 40 / 510.0, 20 / 40.0},
        {"light", 250, 240, 230, 30, 480 / 510.0, 20 / 30.0},
        {"just below 360", 255, 0, 1, -60.0 / 255 + 360, 0.5, 1},
    };
    for (const Case& c : cases) {
        const CHLSColor color = HlsOf(c.red, c.green, c.blue);
        EXPECT_DOUBLE_EQ(color.m_hue, c.hue) << c.name;
        EXPECT_DOUBLE_EQ(color.m_luminance, c.luminance) << c.name;
        EXPECT_DOUBLE_EQ(color.m_saturation, c.saturation) << c.name;
    }
}

TEST(Hls, ToBytesTruncates)
{
    struct Case {
        const char* name;
        double hue, luminance, saturation;
        std::array<int, 3> rgb;
    };
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const std::vector<Case> cases{
        {"white", 0, 1, 1, {255, 255, 255}},
        {"red", 0, 0.5, 1, {255, 0, 0}},
        {"yellow", 60, 0.5, 1, {255, 255, 0}},
        {"half way to yellow", 30, 0.5, 1, {255, 127, 0}},
        {"half way from green to cyan", 150, 0.5, 1, {0, 255, 127}},
        {"violet", 270, 0.5, 1, {127, 0, 255}},
        {"grey", 200, 0.5, 0, {127, 127, 127}},
        {"dark", 0, 0.25, 0.5, {95, 31, 31}},
        {"bright", 0, 0.75, 0.5, {223, 159, 159}},
        {"over the limits", 400, 2, 0, {255, 255, 255}},
        {"below the limits", -5, 0.5, -1, {127, 127, 127}},
        {"luminance that is no number", 0, nan, 0, {0, 0, 0}},
    };
    for (const Case& c : cases)
        EXPECT_EQ(RgbOf(c.hue, c.luminance, c.saturation), c.rgb) << c.name;
}

TEST(Hls, CorrectionStopsShortOfTheFullCircle)
{
    struct Case {
        double given, corrected;
    };
    for (const Case& c : {Case{359.5, 358.9999}, Case{359, 358.9999}, Case{358.99995, 358.99995}, Case{-1, 0},
                          Case{1000, 358.9999}, Case{240, 240}})
        EXPECT_EQ(CHLSColor(c.given, 0.5, 0.5).m_hue, c.corrected) << c.given;
    CHLSColor color(0, std::numeric_limits<double>::quiet_NaN(), 5);
    EXPECT_TRUE(std::isnan(color.m_luminance)) << "passes unchanged";
    EXPECT_EQ(color.m_saturation, 1);
    CARGB given(1, 2, 3, 200);
    EXPECT_EQ(static_cast<DWORD>(CHLSColor(given)), 0x030201U) << "a COLORREF";
    EXPECT_EQ(static_cast<DWORD>(CHLSColor(DWORD{0x030201})), 0x030201U);
}

// Truncation may lose one step per channel on the way to HLS and back, and a hue from 359 up is pulled back.
TEST(Hls, ThereAndBackStaysWithinOneStep)
{
    for (int red = 0; red < 256; red += 15)
        for (int green = 0; green < 256; green += 17)
            for (int blue = 0; blue < 256; blue += 15) {
                CHLSColor color = HlsOf(static_cast<unsigned char>(red), static_cast<unsigned char>(green),
                                        static_cast<unsigned char>(blue));
                color.ToRGB();
                ASSERT_TRUE(std::abs(color.m_red - red) <= 1 && std::abs(color.m_green - green) <= 1 &&
                            std::abs(color.m_blue - blue) <= 1)
                    << red << "," << green << "," << blue;
            }
}
