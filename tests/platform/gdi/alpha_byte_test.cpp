// Which alpha byte each operation leaves on a 32-bit surface.

#include "platform/gdi/canvas.h"

namespace {

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
