// AlphaBlend to the bit.

#include <random>

#include "platform/gdi/canvas.h"

namespace {

constexpr BLENDFUNCTION Blend(int constantAlpha, bool perPixel)
{
    return {AC_SRC_OVER, 0, static_cast<BYTE>(constantAlpha), static_cast<BYTE>(perPixel ? AC_SRC_ALPHA : 0)};
}

// What one pixel becomes; `constantAlpha` weighs a premultiplied source or, without alpha, its plain bytes.
std::uint32_t Expected(std::uint32_t source, std::uint32_t destination, std::uint32_t constantAlpha,
                       bool perPixel)
{
    const std::uint32_t alpha = Over255(Channel(source, 3) * constantAlpha);
    std::uint32_t result = 0;
    for (int i = 0; i < 4; ++i) {
        const std::uint32_t s = Channel(source, i);
        const std::uint32_t d = Channel(destination, i);
        const std::uint32_t blended = perPixel ? Over255(s * constantAlpha) + Over255(d * (255 - alpha))
                                               : Over255(s * constantAlpha + d * (255 - constantAlpha));
        result |= blended << (8 * i);
    }
    return result;
}

std::uint32_t Premultiplied(std::uint32_t pixel)
{
    std::uint32_t result = pixel & 0xFF000000;
    for (int i = 0; i < 3; ++i)
        result |= Over255(Channel(pixel, i) * Channel(pixel, 3)) << (8 * i);
    return result;
}

// The number of pixels of `canvas` that differ from what blending `source` onto `before` gives; the first
// one's values are reported.
int Mismatches(const Canvas& canvas, const std::vector<std::uint32_t>& source,
               const std::vector<std::uint32_t>& before, std::uint32_t constantAlpha, bool perPixel)
{
    const std::vector<std::uint32_t> after = canvas.Pixels();
    int count = 0;
    for (std::size_t i = 0; i < after.size(); ++i) {
        const std::uint32_t expected = Expected(source[i], before[i], constantAlpha, perPixel);
        if (after[i] != expected && count++ == 0)
            ADD_FAILURE() << std::hex << source[i] << " on " << before[i] << " gave " << after[i] << ", not "
                          << expected << ", constant alpha " << constantAlpha;
    }
    return count;
}

}  // namespace

using AlphaBlending = PlatformTest;

TEST_F(AlphaBlending, IsExactForEveryPremultipliedValue)
{
    Canvas target(256, 256);
    Canvas source(256, 256);
    for (std::uint32_t alpha = 0; alpha < 256; alpha += 5) {
        source.Paint([alpha](int x, int) {
            const std::uint32_t value = static_cast<std::uint32_t>(x) * alpha / 255;
            return (alpha << 24) | (value << 16) | ((alpha - value) << 8) | (value / 2);
        });
        target.Paint([](int x, int y) {
            return 0x01010101U * static_cast<std::uint32_t>(y) ^ static_cast<std::uint32_t>(x << 8);
        });
        const std::vector<std::uint32_t> before = target.Pixels();
        ASSERT_TRUE(AlphaBlend(target, 0, 0, 256, 256, source, 0, 0, 256, 256, Blend(255, true)));
        ASSERT_EQ(Mismatches(target, source.Pixels(), before, 255, true), 0) << "alpha " << alpha;
    }
}

TEST_F(AlphaBlending, IsExactForRandomPixelsAndConstantAlpha)
{
    std::mt19937 random(20);
    Canvas target(64, 64);
    Canvas source(64, 64);
    for (int round = 0; round < 64; ++round) {
        const std::uint32_t constantAlpha = round == 0 ? 0 : round == 1 ? 255 : random() & 0xFF;
        const bool perPixel = round % 2 == 0;
        source.Paint([&](int, int) {
            const auto pixel = static_cast<std::uint32_t>(random());
            return perPixel ? Premultiplied(pixel) : pixel;
        });
        target.Paint([&](int, int) { return static_cast<std::uint32_t>(random()); });
        const std::vector<std::uint32_t> before = target.Pixels();
        const BLENDFUNCTION blend = Blend(static_cast<int>(constantAlpha), perPixel);
        ASSERT_TRUE(AlphaBlend(target, 0, 0, 64, 64, source, 0, 0, 64, 64, blend));
        ASSERT_EQ(Mismatches(target, source.Pixels(), before, constantAlpha, perPixel), 0) << perPixel;
    }
}

TEST_F(AlphaBlending, WritesTheRectangleInsideTheClipAndNothingElse)
{
    Canvas target(8, 4);
    Canvas source(4, 4);
    source.Fill(0xFF0000FF);
    IntersectClipRect(target, 0, 1, 5, 3);
    EXPECT_TRUE(AlphaBlend(target, 3, -1, 4, 4, source, 0, 0, 4, 4, Blend(255, true)));
    EXPECT_EQ(target.Picture(), "........\n...##...\n...##...\n........\n");
}

TEST_F(AlphaBlending, ReadsTheSourceThroughItsOwnOriginAndAlphaOfA24BitSourceAsNone)
{
    Canvas target(2, 1);
    Canvas source(4, 1, 24);
    source.Paint([](int x, int) { return static_cast<std::uint32_t>(0x111111 * x); });
    SetViewportOrgEx(source, 1, 0, nullptr);
    EXPECT_TRUE(AlphaBlend(target, 0, 0, 2, 1, source, 1, 0, 2, 1, Blend(255, false)));
    EXPECT_EQ(target.At(0, 0) & 0xFFFFFF, 0x222222U);
    EXPECT_EQ(target.At(1, 0) & 0xFFFFFF, 0x333333U);
}

TEST_F(AlphaBlending, RefusesWhatItCannotDrawAndDrawsNothingThen)
{
    struct Case {
        const char* name;
        RECT destination;  // left, top, width, height
        RECT source;
        BOOL result;
    };
    const std::vector<Case> cases{
        {"negative width", {4, 0, -2, 2}, {0, 0, 2, 2}, FALSE},
        {"negative height", {0, 4, 2, -2}, {0, 0, 2, 2}, FALSE},
        {"negative source width", {0, 0, 2, 2}, {2, 0, -2, 2}, FALSE},
        {"source left of its bitmap", {0, 0, 2, 2}, {-1, 0, 2, 2}, FALSE},
        {"source beyond its bitmap", {0, 0, 2, 2}, {3, 3, 2, 1}, FALSE},
        {"no width", {0, 0, 0, 2}, {0, 0, 2, 2}, TRUE},
        {"no source height", {0, 0, 2, 2}, {0, 0, 2, 0}, TRUE},
    };
    for (const Case& c : cases) {
        Canvas target(8, 8);
        Canvas source(4, 4);
        source.Fill(0xFFFFFFFF);
        EXPECT_EQ(AlphaBlend(target, c.destination.left, c.destination.top, c.destination.right,
                             c.destination.bottom, source, c.source.left, c.source.top, c.source.right,
                             c.source.bottom, Blend(255, true)),
                  c.result)
            << c.name;
        EXPECT_EQ(target.Pixels(), std::vector<std::uint32_t>(64, 0)) << c.name;
    }
    Canvas both(8, 8);
    both.Fill(0x80808080);
    EXPECT_FALSE(AlphaBlend(both, 1, 1, 4, 4, both, 0, 0, 4, 4, Blend(255, true))) << "overlap";
    EXPECT_TRUE(AlphaBlend(both, 4, 4, 4, 4, both, 0, 0, 4, 4, Blend(255, true)))
        << "two parts of one bitmap";
    Canvas opaque(4, 4, 24);
    EXPECT_FALSE(AlphaBlend(both, 0, 0, 4, 4, opaque, 0, 0, 4, 4, Blend(255, true)))
        << "alpha of a 24-bit source";
}
