// AlphaBlend to the bit, and which alpha byte each operation leaves on a 32-bit surface.

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

// Blends the whole source onto a target of the same size.
void ExpectBlended(const Canvas& target, const Canvas& source, std::uint32_t constantAlpha, bool perPixel)
{
    const Canvas before(target.Width(), target.Height(), [&target](int x, int y) { return target.At(x, y); });
    ASSERT_TRUE(AlphaBlend(target, 0, 0, target.Width(), target.Height(), source, 0, 0, target.Width(),
                           target.Height(), Blend(constantAlpha, perPixel)));
    target.Expect(
        [&](int x, int y) { return Expected(source.At(x, y), before.At(x, y), constantAlpha, perPixel); },
        (perPixel ? "per pixel, " : "constant, ") + std::to_string(constantAlpha));
}

constexpr std::uint32_t kBefore = 0xC1112233;
constexpr std::uint32_t kSource = 0x5A0F8040;
constexpr COLORREF kInk = RGB(0x0A, 0x0B, 0x0C);
constexpr std::uint32_t kInkPixel = 0x000A0B0C;
const RECT kArea{2, 2, 6, 6};

// Every case draws on {2,2,6,6} with a pen and a brush of the ink's colour; no other pixel may change.
struct AlphaByteCase {
    const char* name;
    std::function<void(HDC target, HDC source)> draw;
    std::uint32_t expected;
};

AlphaByteCase Blit(const char* name, DWORD operation, std::uint32_t expected)
{
    return {name, [=](HDC dc, HDC source) { BitBlt(dc, 2, 2, 4, 4, source, 2, 2, operation); }, expected};
}

AlphaByteCase Stretch(const char* name, int mode, int size, std::uint32_t expected)
{
    return {name,
            [=](HDC dc, HDC source) {
                SetStretchBltMode(dc, mode);
                StretchBlt(dc, 2, 2, 4, 4, source, 0, 0, size, size, SRCCOPY);
            },
            expected};
}

void StretchRows(HDC target, HDC)
{
    const BITMAPINFO info = BitmapInfo(1, 1);
    StretchDIBits(target, 2, 2, 4, 4, 0, 0, 1, 1, &kSource, &info, DIB_RGB_COLORS, SRCCOPY);
}

void OpaqueText(HDC target, HDC)
{
    SetBkColor(target, kInk);
    ExtTextOutA(target, 0, 0, ETO_OPAQUE, &kArea, "", 0, nullptr);
}

const std::vector<AlphaByteCase> kCases{
    {"ETO_OPAQUE", OpaqueText, kInkPixel},
    {"SetPixel", [](HDC dc, HDC) { SetPixel(dc, 2, 2, kInk); }, kInkPixel},
    {"LineTo", [](HDC dc, HDC) { MoveToEx(dc, 2, 2, nullptr), LineTo(dc, 6, 2); }, kInkPixel},
    {"Rectangle", [](HDC dc, HDC) { Rectangle(dc, 2, 2, 6, 6); }, kInkPixel},
    {"RoundRect", [](HDC dc, HDC) { RoundRect(dc, 2, 2, 6, 6, 1, 1); }, kInkPixel},
    Blit("PATCOPY", PATCOPY, kInkPixel),
    Blit("PATINVERT", PATINVERT, kBefore ^ kInkPixel),
    Blit("SRCCOPY", SRCCOPY, kSource),
    Blit("SRCPAINT", SRCPAINT, kBefore | kSource),
    Blit("SRCAND", SRCAND, kBefore& kSource),
    Blit("SRCINVERT", SRCINVERT, kBefore ^ kSource),
    Blit("DSTINVERT", DSTINVERT, ~kBefore),
    Blit("WHITENESS", WHITENESS, 0xFFFFFFFF),
    Blit("BLACKNESS", BLACKNESS, 0),
    {"StretchDIBits", StretchRows, kSource},
    {"TransparentBlt", [](HDC dc, HDC source) { TransparentBlt(dc, 2, 2, 4, 4, source, 0, 0, 4, 4, kInk); },
     kSource & 0x00FFFFFF},
    Stretch("StretchBlt", BLACKONWHITE, 2, kSource),
    Stretch("HALFTONE, enlarging", HALFTONE, 2, kSource & 0x00FFFFFF),
    Stretch("HALFTONE, same size", HALFTONE, 4, kSource),
};

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
            const Canvas source(1, 1, [fill](int, int) { return fill; });
            const Canvas target(
                16, 16, [&](int x, int) { return x == 0 ? ~0U : static_cast<std::uint32_t>(random()); });
            const Canvas before(16, 16, [&](int x, int y) { return target.At(x, y); });
            ASSERT_TRUE(AlphaBlend(target, 0, 0, 16, 16, source, 0, 0, 1, 1, Blend(constantAlpha, true)));
            target.Expect([&](int x, int y) { return Expected(fill, before.At(x, y), constantAlpha, true); },
                          std::to_string(fill));
        }
}

TEST_F(AlphaBlending, RefusesWhatItCannotDrawAndDrawsNothingThen)
{
    struct Place {
        int x, y, width, height;
    };
    const Table<const char*, Place, Place, BOOL> cases{
        {"negative width", {4, 0, -2, 2}, {0, 0, 2, 2}, FALSE},
        {"negative height", {0, 4, 2, -2}, {0, 0, 2, 2}, FALSE},
        {"negative source width", {0, 0, 2, 2}, {2, 0, -2, 2}, FALSE},
        {"source left of its bitmap", {0, 0, 2, 2}, {-1, 0, 2, 2}, FALSE},
        {"source beyond its bitmap", {0, 0, 2, 2}, {3, 3, 2, 1}, FALSE},
        {"no width", {0, 0, 0, 2}, {0, 0, 2, 2}, TRUE},
        {"no source height", {0, 0, 2, 2}, {0, 0, 2, 0}, TRUE},
    };
    const auto blend = [](HDC target, const Place& to, HDC source, const Place& from) {
        return AlphaBlend(target, to.x, to.y, to.width, to.height, source, from.x, from.y, from.width,
                          from.height, Blend(255, true));
    };
    const Canvas source(4, 4, [](int, int) { return 0xFFFFFFFFU; });
    for (const auto& [name, to, from, result] : cases) {
        const Canvas target(8, 8);
        EXPECT_EQ(blend(target, to, source, from), result) << name;
        target.Expect([](int, int) { return 0U; }, name);
    }
    const Canvas target(2, 1);
    const Canvas coarse(4, 1, PlacePixel, 24);
    SetViewportOrgEx(coarse, 1, 0, nullptr);
    EXPECT_FALSE(blend(target, {0, 0, 2, 1}, coarse, {1, 0, 2, 1})) << "alpha of a 24-bit source";
    EXPECT_TRUE(AlphaBlend(target, 0, 0, 2, 1, coarse, 1, 0, 2, 1, Blend(255, false)));
    target.Expect([](int x, int) { return PlacePixel(2 + x, 0); }, "from its own origin", kColourBits);
    const Canvas both(8, 8, [](int, int) { return 0x80808080U; });
    EXPECT_FALSE(blend(both, {1, 1, 4, 4}, both, {0, 0, 4, 4})) << "overlap";
    EXPECT_TRUE(blend(both, {4, 4, 4, 4}, both, {0, 0, 4, 4})) << "two parts of one bitmap";
}

using AlphaByte = PlatformTest;

TEST_F(AlphaByte, IsWhatTheOperationIsKnownToWrite)
{
    for (const AlphaByteCase& c : kCases) {
        const Canvas target(8, 8, [](int, int) { return kBefore; });
        const Canvas source(8, 8, [](int, int) { return kSource; });
        const Scoped brush(static_cast<HDC>(target), CreateSolidBrush(kInk));
        const Scoped pen(static_cast<HDC>(target), CreatePen(PS_SOLID, 1, kInk));
        c.draw(target, source);
        EXPECT_EQ(target.At(2, 2), c.expected) << c.name;
        EXPECT_EQ(target.At(1, 1), kBefore) << c.name;
        EXPECT_EQ(target.At(6, 6), kBefore) << c.name;
    }
}

TEST_F(AlphaByte, DoesNotExistOnSurfacesOf24Bits)
{
    const Canvas source(5, 3, [](int x, int y) { return 0xFF000000U | PlacePixel(x, y); });
    const Canvas target(5, 3, 24);
    BitBlt(target, 0, 0, 5, 3, source, 0, 0, SRCCOPY);
    target.Expect(PlacePixel);
    BitBlt(source, 1, 0, 4, 3, target, 0, 0, SRCCOPY);
    EXPECT_EQ(source.At(2, 1) & 0xFFFFFF, PlacePixel(1, 1));
}
