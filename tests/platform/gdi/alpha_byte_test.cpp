// Which alpha byte each operation leaves on a 32-bit surface.

#include "platform/gdi/canvas.h"

namespace {

constexpr std::uint32_t kBefore = 0xC1112233;
constexpr std::uint32_t kSource = 0x5A0F8040;
constexpr COLORREF kInk = RGB(0x0A, 0x0B, 0x0C);
constexpr std::uint32_t kInkPixel = 0x000A0B0C;
const RECT kArea{2, 2, 6, 6};

struct AlphaByteCase {
    const char* name;
    std::function<void(HDC target, HDC source)> draw;
    std::uint32_t expected;
};

void WithBrush(HDC target, const std::function<void()>& draw)
{
    const Scoped brush(target, CreateSolidBrush(kInk));
    draw();
}

void WithPen(HDC target, const std::function<void()>& draw)
{
    const Scoped pen(target, CreatePen(PS_SOLID, 1, kInk));
    draw();
}

void Blit(HDC target, HDC source, DWORD operation)
{
    BitBlt(target, 2, 2, 4, 4, source, 2, 2, operation);
}

void Gradient(HDC target)
{
    TRIVERTEX ends[] = {{2, 2, 0x1000, 0x2000, 0x3000, 0x4000}, {6, 6, 0x1000, 0x2000, 0x3000, 0x8000}};
    GRADIENT_RECT mesh{0, 1};
    GradientFill(target, ends, 2, &mesh, 1, GRADIENT_FILL_RECT_H);
}

void Pattern(HDC target)
{
    const std::uint32_t pixels[] = {kSource, kSource, kSource, kSource};
    const Scoped bitmap(CreateBitmap(2, 2, 1, 32, pixels));
    const Scoped brush(CreatePatternBrush(bitmap));
    FillRect(target, &kArea, brush);
}

void StretchRows(HDC target)
{
    const std::uint32_t pixel = kSource;
    const BITMAPINFO info = BitmapInfo(1, 1, 32);
    StretchDIBits(target, 2, 2, 4, 4, 0, 0, 1, 1, &pixel, &info, DIB_RGB_COLORS, SRCCOPY);
}

void Halftone(HDC target, HDC source, int size)
{
    SetStretchBltMode(target, HALFTONE);
    StretchBlt(target, 2, 2, 4, 4, source, 0, 0, size, size, SRCCOPY);
}

const std::vector<AlphaByteCase> kCases{
    {"FillRect",
     [](HDC dc, HDC) {
         const Scoped b(CreateSolidBrush(kInk));
         FillRect(dc, &kArea, b);
     },
     kInkPixel},
    {"FrameRect",
     [](HDC dc, HDC) {
         const Scoped b(CreateSolidBrush(kInk));
         FrameRect(dc, &kArea, b);
     },
     kInkPixel},
    {"ETO_OPAQUE",
     [](HDC dc, HDC) {
         SetBkColor(dc, kInk);
         ExtTextOutA(dc, 0, 0, ETO_OPAQUE, &kArea, "", 0, nullptr);
     },
     kInkPixel},
    {"PATCOPY", [](HDC dc, HDC) { WithBrush(dc, [=] { PatBlt(dc, 2, 2, 4, 4, PATCOPY); }); }, kInkPixel},
    {"SetPixel", [](HDC dc, HDC) { SetPixel(dc, 2, 2, kInk); }, kInkPixel},
    {"LineTo",
     [](HDC dc, HDC) {
         WithPen(dc, [=] {
             MoveToEx(dc, 2, 2, nullptr);
             LineTo(dc, 6, 2);
         });
     },
     kInkPixel},
    {"Rectangle", [](HDC dc, HDC) { WithPen(dc, [=] { Rectangle(dc, 2, 2, 6, 6); }); }, kInkPixel},
    {"RoundRect", [](HDC dc, HDC) { WithPen(dc, [=] { RoundRect(dc, 2, 2, 6, 6, 1, 1); }); }, kInkPixel},
    {"SRCCOPY", [](HDC dc, HDC source) { Blit(dc, source, SRCCOPY); }, kSource},
    {"StretchBlt", [](HDC dc, HDC source) { StretchBlt(dc, 2, 2, 4, 4, source, 0, 0, 2, 2, SRCCOPY); },
     kSource},
    {"StretchDIBits", [](HDC dc, HDC) { StretchRows(dc); }, kSource},
    {"SRCPAINT", [](HDC dc, HDC source) { Blit(dc, source, SRCPAINT); }, kBefore | kSource},
    {"SRCAND", [](HDC dc, HDC source) { Blit(dc, source, SRCAND); }, kBefore& kSource},
    {"SRCINVERT", [](HDC dc, HDC source) { Blit(dc, source, SRCINVERT); }, kBefore ^ kSource},
    {"PATINVERT", [](HDC dc, HDC) { WithBrush(dc, [=] { PatBlt(dc, 2, 2, 4, 4, PATINVERT); }); },
     kBefore ^ kInkPixel},
    {"InvertRect", [](HDC dc, HDC) { InvertRect(dc, &kArea); }, ~kBefore},
    {"DSTINVERT", [](HDC dc, HDC) { PatBlt(dc, 2, 2, 4, 4, DSTINVERT); }, ~kBefore},
    {"WHITENESS", [](HDC dc, HDC) { PatBlt(dc, 2, 2, 4, 4, WHITENESS); }, 0xFFFFFFFF},
    {"BLACKNESS", [](HDC dc, HDC source) { Blit(dc, source, BLACKNESS); }, 0},
    {"pattern brush", [](HDC dc, HDC) { Pattern(dc); }, kSource},
    {"GradientFill", [](HDC dc, HDC) { Gradient(dc); }, 0x40102030},
    {"TransparentBlt", [](HDC dc, HDC source) { TransparentBlt(dc, 2, 2, 4, 4, source, 0, 0, 4, 4, kInk); },
     kSource & 0x00FFFFFF},
    {"HALFTONE, enlarging", [](HDC dc, HDC source) { Halftone(dc, source, 2); }, kSource & 0x00FFFFFF},
    {"HALFTONE, same size", [](HDC dc, HDC source) { Halftone(dc, source, 4); }, kSource},
};

}  // namespace

using AlphaByte = PlatformTest;

TEST_F(AlphaByte, IsWhatTheOperationIsKnownToWrite)
{
    for (const AlphaByteCase& c : kCases) {
        Canvas target(8, 8);
        Canvas source(8, 8);
        target.Fill(kBefore);
        source.Fill(kSource);
        c.draw(target, source);
        EXPECT_EQ(target.At(2, 2), c.expected) << c.name;
        EXPECT_EQ(target.At(1, 1), kBefore) << c.name;
        EXPECT_EQ(target.At(6, 6), kBefore) << c.name;
    }
}

TEST_F(AlphaByte, OfAPixelThatTransparentBltLeavesOutBecomesZero)
{
    Canvas target(4, 1);
    Canvas source(4, 1);
    target.Fill(kBefore);
    source.Fill(kInkPixel);
    source.Set(1, 0, 0x00FF0000);
    EXPECT_TRUE(TransparentBlt(target, 0, 0, 3, 1, source, 0, 0, 3, 1, kInk));
    EXPECT_EQ(target.Pixels(),
              (std::vector<std::uint32_t>{kBefore & 0xFFFFFF, 0xFF0000, kBefore & 0xFFFFFF, kBefore}));
}

TEST_F(AlphaByte, SurvivesADeviceBitmapAndStartsAsZero)
{
    Canvas section(3, 2);
    EXPECT_EQ(section.Pixels(), std::vector<std::uint32_t>(6, 0));
    section.Paint([](int x, int y) { return 0x80000000U + static_cast<std::uint32_t>(x * 16 + y); });
    const std::vector<std::uint32_t> before = section.Pixels();
    const HDC dc = CreateCompatibleDC(nullptr);
    {
        const Scoped bitmap(dc, CreateBitmap(3, 2, 1, 32, nullptr));
        BitBlt(dc, 0, 0, 3, 2, section, 0, 0, SRCCOPY);
        section.Fill(0);
        BitBlt(section, 0, 0, 3, 2, dc, 0, 0, SRCCOPY);
    }
    DeleteDC(dc);
    EXPECT_EQ(section.Pixels(), before);
}

TEST_F(AlphaByte, DoesNotExistOnSurfacesOf24Bits)
{
    Canvas target(5, 3, 24);
    Canvas source(5, 3, 32);
    source.Paint(
        [](int x, int y) { return 0xFF000000U | static_cast<std::uint32_t>(x * 0x010203 + y * 0x101010); });
    BitBlt(target, 0, 0, 5, 3, source, 0, 0, SRCCOPY);
    std::vector<std::uint32_t> expected = source.Pixels();
    for (std::uint32_t& pixel : expected)
        pixel &= 0xFFFFFF;
    EXPECT_EQ(target.Pixels(), expected);
    source.Fill(0x12345678);
    BitBlt(source, 0, 0, 5, 3, target, 0, 0, SRCCOPY);
    EXPECT_EQ(source.At(2, 1) & 0xFFFFFF, expected[7]);
}

TEST_F(AlphaByte, FillsStopBeforeTheRightAndBottomEdge)
{
    struct Case {
        const char* name;
        RECT rect;
        const char* picture;
    };
    const std::vector<Case> cases{
        {"inside", {1, 1, 3, 2}, "....\n.##.\n....\n"},
        {"empty", {1, 1, 1, 3}, "....\n....\n....\n"},
        {"beyond every edge", {-5, -5, 50, 50}, "####\n####\n####\n"},
        {"outside", {4, 0, 9, 3}, "....\n....\n....\n"},
    };
    const Scoped brush(CreateSolidBrush(kInk));
    for (const Case& c : cases) {
        Canvas canvas(4, 3);
        EXPECT_NE(FillRect(canvas, &c.rect, brush), 0) << c.name;
        EXPECT_EQ(canvas.Picture(), c.picture) << c.name;
    }
    Canvas canvas(4, 3);
    SetBkColor(canvas, kInk);
    const RECT inverted{3, 2, 1, 1};
    ExtTextOutA(canvas, 0, 0, ETO_OPAQUE, &inverted, "", 0, nullptr);
    EXPECT_EQ(canvas.Picture(), "....\n.##.\n....\n");
}

TEST_F(AlphaByte, FramesAndFocusRectangles)
{
    struct Case {
        const char* name;
        RECT rect;
        const char* picture;
    };
    const std::vector<Case> cases{
        {"ring", {1, 0, 5, 3}, ".####.\n.#..#.\n.####.\n......\n"},
        {"one row", {1, 1, 5, 2}, "......\n.####.\n......\n......\n"},
        {"one pixel", {2, 2, 3, 3}, "......\n......\n..#...\n......\n"},
    };
    const Scoped brush(CreateSolidBrush(kInk));
    for (const Case& c : cases) {
        Canvas canvas(6, 4);
        FrameRect(canvas, &c.rect, brush);
        EXPECT_EQ(canvas.Picture(), c.picture) << c.name;
        canvas.Paint([](int x, int y) {
            return 0x10203040U * static_cast<std::uint32_t>(x) + 0x01030507U * static_cast<std::uint32_t>(y);
        });
        const std::vector<std::uint32_t> before = canvas.Pixels();
        DrawFocusRect(canvas, &c.rect);
        DrawFocusRect(canvas, &c.rect);
        EXPECT_EQ(canvas.Pixels(), before) << c.name;
    }
    Canvas canvas(8, 8);
    const RECT ring{1, 1, 7, 7};
    DrawFocusRect(canvas, &ring);
    EXPECT_NE(canvas.Pixels(), std::vector<std::uint32_t>(64, 0));
}
