#include <qvui/foundation/color.h>

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <limits>

#include "support/table.h"

using DUI::CARGB;
using DUI::CHLSColor;

namespace {

// AARRGGBB.
std::uint32_t Bits(const CARGB& color)
{
    std::uint8_t pixel[4];
    color.WriteToDIB4(pixel);
    return pixel[0] | (std::uint32_t{pixel[1]} << 8) | (std::uint32_t{pixel[2]} << 16) |
           (std::uint32_t{pixel[3]} << 24);
}

CHLSColor HlsOf(const std::array<int, 3>& rgb)
{
    CHLSColor color(static_cast<BYTE>(rgb[0]), static_cast<BYTE>(rgb[1]), static_cast<BYTE>(rgb[2]));
    color.ToHLS();
    return color;
}

std::array<int, 3> RgbOf(CHLSColor color)
{
    color.ToRGB();
    return {color.m_red, color.m_green, color.m_blue};
}

}  // namespace

TEST(Color, IsOnePixelInMemory)
{
    CARGB color(1, 2, 3, 4);
    ASSERT_EQ(sizeof color, 4U);
    const auto* bytes = reinterpret_cast<const unsigned char*>(&color);
    EXPECT_EQ((std::array{bytes[0], bytes[1], bytes[2], bytes[3]}), (std::array<BYTE, 4>{3, 2, 1, 4}));
    EXPECT_EQ(color.GetColor(), 0x030201U);
    color.SetColor(DWORD{0x99030201});
    EXPECT_EQ(Bits(color), 0xFF010203U) << "the high byte of a COLORREF is no alpha";
    EXPECT_TRUE(CARGB().IsEmpty());
    for (const CARGB& one : {CARGB(1, 0, 0, 0), CARGB(0, 1, 0, 0), CARGB(0, 0, 1, 0), CARGB(0, 0, 0, 1)})
        EXPECT_FALSE(one.IsEmpty()) << std::hex << Bits(one);
}

TEST(Color, WalksScanLines)
{
    unsigned char line[7] = {10, 20, 30, 40, 50, 60, 70};
    CARGB color(0, 0, 0, 99);
    unsigned char* next = color.ReadFromDIB3(line);
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
    // clang-format off
    const Table<const char*, std::uint32_t> literals{
        {"#FF336699", 0xFF336699}, {"#0000FF", 0x000000FF}, {"#0x80", 0x00000080}, {"# 80", 0x00000080},
        {"#12zz", 0x00000012}, {"#zz", 0}, {"#123456789", ~0U}, {"#FFFFFFFFFFFFFFFF", ~0U},
        {"#000000012345678", 0x12345678}, {"#-1", 0xFFFFFFFF}, {"#-2", 0xFFFFFFFE},
        {"rgb(1,2,3)", 0xFF010203}, {"RGB(1,2,3)", 0xFF010203}, {"rGb ( 1, 2, 3 ) ", 0xFF010203},
        {"rgb(1 ,2,3)", 0xFF010000}, {"rgb(300,0,0)", 0xFF2C0000}, {"rgb(-1,0,0)", 0xFFFF0000},
        {"rgb(7,8", 0xFF070800}, {"rgb", 0xFF000000}, {"rgba(1,2,3)", 0xFF000000}};
    // clang-format on
    for (const auto& [text, expected] : literals) {
        CARGB color;
        EXPECT_TRUE(DUI::ParseColorLiteral(text, color)) << text;
        EXPECT_EQ(Bits(color), expected) << text;
    }
    for (const char* text : {"#", "", "r", "rg", "red", "white"}) {
        CARGB color(1, 2, 3, 4);
        EXPECT_FALSE(DUI::ParseColorLiteral(text, color)) << text;
        EXPECT_EQ(Bits(color), 0x04010203U) << text << " leaves it alone";
    }
}

TEST(Hls, FromBytes)
{
    const Table<const char*, std::array<int, 3>, double, double, double> cases{
        {"red", {255, 0, 0}, 0, 0.5, 1},
        {"green", {0, 255, 0}, 120, 0.5, 1},
        {"blue", {0, 0, 255}, 240, 0.5, 1},
        {"magenta: red wins the tie", {255, 0, 255}, 300, 0.5, 1},
        {"cyan: green wins the tie", {0, 255, 255}, 180, 0.5, 1},
        {"grey", {128, 128, 128}, 0, 128 / 255.0, 0},
        {"white", {255, 255, 255}, 0, 1, 0},
        {"dark", {10, 20, 30}, 210, 40 / 510.0, 20 / 40.0},
        {"light", {250, 240, 230}, 30, 480 / 510.0, 20 / 30.0},
        {"just below 360", {255, 0, 1}, -60.0 / 255 + 360, 0.5, 1},
    };
    for (const auto& [name, rgb, hue, luminance, saturation] : cases) {
        const CHLSColor color = HlsOf(rgb);
        EXPECT_DOUBLE_EQ(color.m_hue, hue) << name;
        EXPECT_DOUBLE_EQ(color.m_luminance, luminance) << name;
        EXPECT_DOUBLE_EQ(color.m_saturation, saturation) << name;
    }
}

TEST(Hls, ToBytesTruncates)
{
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const Table<const char*, CHLSColor, std::array<int, 3>> cases{
        {"white", {0., 1., 1.}, {255, 255, 255}},
        {"half way to yellow", {30., 0.5, 1.}, {255, 127, 0}},
        {"half way from green to cyan", {150., 0.5, 1.}, {0, 255, 127}},
        {"violet", {270., 0.5, 1.}, {127, 0, 255}},
        {"grey", {200., 0.5, 0.}, {127, 127, 127}},
        {"dark", {0., 0.25, 0.5}, {95, 31, 31}},
        {"bright", {0., 0.75, 0.5}, {223, 159, 159}},
        {"over the limits", {400., 2., 0.}, {255, 255, 255}},
        {"below the limits", {-5., 0.5, -1.}, {127, 127, 127}},
        {"luminance that is no number", {0., nan, 0.}, {0, 0, 0}},
    };
    for (const auto& [name, color, rgb] : cases)
        EXPECT_EQ(RgbOf(color), rgb) << name;
}

TEST(Hls, CorrectionStopsShortOfTheFullCircle)
{
    const Table<double, double> hues{{359.5, 358.9999}, {359, 358.9999},  {358.99995, 358.99995},
                                     {-1, 0},           {1000, 358.9999}, {240, 240}};
    for (const auto& [given, corrected] : hues)
        EXPECT_EQ(CHLSColor(given, 0.5, 0.5).m_hue, corrected) << given;
    const CHLSColor color(0, std::numeric_limits<double>::quiet_NaN(), 5);
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
                const auto [r, g, b] = RgbOf(HlsOf({red, green, blue}));
                ASSERT_TRUE(std::abs(r - red) <= 1 && std::abs(g - green) <= 1 && std::abs(b - blue) <= 1)
                    << red << "," << green << "," << blue;
            }
}
