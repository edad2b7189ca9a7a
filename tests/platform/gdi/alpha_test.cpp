// AlphaBlend to the bit.

#include <random>

#include "platform/gdi/canvas.h"

namespace {

constexpr BLENDFUNCTION Blend(std::uint32_t constantAlpha, bool perPixel)
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

// Blends a source of the target's size, or of one pixel.
void ExpectBlended(const Canvas& target, const Canvas& source, std::uint32_t constantAlpha, bool perPixel)
{
    const Canvas before(target.Width(), target.Height(), [&target](int x, int y) { return target.At(x, y); });
    ASSERT_TRUE(AlphaBlend(target, 0, 0, target.Width(), target.Height(), source, 0, 0, source.Width(),
                           source.Height(), Blend(constantAlpha, perPixel)));
    target.Expect(
        [&](int x, int y) {
            return Expected(source.At(x % source.Width(), y % source.Height()), before.At(x, y),
                            constantAlpha, perPixel);
        },
        (perPixel ? "per pixel, " : "constant, ") + std::to_string(constantAlpha));
}

}  // namespace

using AlphaBlending = PlatformTest;

TEST_F(AlphaBlending, IsExactForEveryPremultipliedValue)
{
    for (std::uint32_t alpha = 0; alpha < 256; alpha += 5) {
        const Canvas source(256, 256, [alpha](int x, int) {
            const std::uint32_t value = static_cast<std::uint32_t>(x) * alpha / 255;
            return (alpha << 24) | (value << 16) | ((alpha - value) << 8) | (value / 2);
        });
        const Canvas target(256, 256, [](int x, int y) {
            return 0x01010101U * static_cast<std::uint32_t>(y) ^ static_cast<std::uint32_t>(x << 8);
        });
        ExpectBlended(target, source, 255, true);
    }
}

TEST_F(AlphaBlending, IsExactForRandomPixelsAndConstantAlpha)
{
    std::mt19937 random(20);
    for (int round = 0; round < 64; ++round) {
        const std::uint32_t constantAlpha = round == 0 ? 0 : round == 1 ? 255 : random() & 0xFF;
        const bool perPixel = round % 2 == 0;
        const Canvas source(64, 64, [&](int, int) {
            const auto pixel = static_cast<std::uint32_t>(random());
            return perPixel ? Premultiplied(pixel) : pixel;
        });
        const Canvas target(64, 64, [&](int, int) { return static_cast<std::uint32_t>(random()); });
        ExpectBlended(target, source, constantAlpha, perPixel);
    }
}

TEST_F(AlphaBlending, LetsAFillBrighterThanItsAlphaSpillIntoTheNextChannel)
{
    std::mt19937 random(22);
    for (const std::uint32_t fill : {0x02030305U, 0x40646464U, 0x01FFFFFFU, 0x00FF0080U, 0x80FF00FFU})
        for (const std::uint32_t constantAlpha : {255U, 100U}) {
            const Canvas target(
                16, 16, [&](int x, int) { return x == 0 ? ~0U : static_cast<std::uint32_t>(random()); });
            ExpectBlended(target, Canvas(1, 1, [fill](int, int) { return fill; }), constantAlpha, true);
        }
}
