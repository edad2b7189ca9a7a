// Selecting, deleting and describing objects, and handles that are not alive.

#include "platform/gdi/canvas.h"

using Objects = PlatformTest;

TEST_F(Objects, AreDeletedOnce)
{
    Canvas canvas(2, 2);
    const Table<const char*, HGDIOBJ> objects{{"brush", CreateSolidBrush(0)},
                                              {"pen", CreatePen(PS_SOLID, 1, 0)},
                                              {"bitmap", CreateBitmap(1, 1, 1, 32, nullptr)},
                                              {"region", CreateRectRgn(0, 0, 1, 1)}};
    for (const auto& [name, object] : objects) {
        EXPECT_TRUE(DeleteObject(object)) << name;
        EXPECT_FALSE(DeleteObject(object)) << name;
        EXPECT_EQ(SelectObject(canvas, object), nullptr) << name;
    }
    EXPECT_FALSE(DeleteObject(nullptr));
    for (const int stock : {WHITE_BRUSH, NULL_BRUSH, BLACK_PEN, NULL_PEN, SYSTEM_FONT, DEFAULT_GUI_FONT}) {
        EXPECT_TRUE(DeleteObject(GetStockObject(stock))) << stock;
        EXPECT_NE(SelectObject(canvas, GetStockObject(stock)), nullptr) << stock << " lives on";
    }
}

TEST_F(Objects, MayBeDeletedWhileSelected)
{
    Canvas canvas(2, 1);
    const HBRUSH brush = CreateSolidBrush(RGB(1, 2, 3));
    const HGDIOBJ old = SelectObject(canvas, brush);
    EXPECT_TRUE(DeleteObject(brush));
    EXPECT_NE(SelectObject(canvas, old), nullptr);
    const HDC dc = CreateCompatibleDC(nullptr);
    const HBITMAP bitmap = CreateBitmap(2, 1, 1, 32, nullptr);
    SelectObject(dc, bitmap);
    EXPECT_TRUE(DeleteObject(bitmap));
    EXPECT_EQ(SetPixel(dc, 1, 0, RGB(9, 8, 7)), RGB(9, 8, 7));
    EXPECT_TRUE(DeleteDC(dc));
}

TEST_F(Objects, ABitmapBelongsToOneContextAtATime)
{
    const HDC first = CreateCompatibleDC(nullptr);
    const HDC second = CreateCompatibleDC(nullptr);
    const HBITMAP bitmap = CreateBitmap(4, 3, 1, 32, nullptr);
    const HGDIOBJ initial = SelectObject(first, bitmap);
    EXPECT_EQ(SelectObject(second, bitmap), nullptr);
    EXPECT_EQ(SelectObject(first, bitmap), bitmap) << "again into the same one";
    EXPECT_EQ(SelectObject(first, initial), bitmap);
    EXPECT_EQ(SelectObject(second, bitmap), initial);
    DeleteDC(second);
    EXPECT_EQ(SelectObject(first, bitmap), initial) << "free again";
    DeleteDC(first);
    EXPECT_TRUE(DeleteObject(bitmap));
}

TEST_F(Objects, AFreshContextHasOnePixelAndTheDefaults)
{
    const HDC dc = CreateCompatibleDC(nullptr);
    RECT box{};
    EXPECT_EQ(GetClipBox(dc, &box), SIMPLEREGION);
    EXPECT_EQ(RectText(box), "0,0,1,1");
    EXPECT_EQ(GetBkMode(dc), OPAQUE);
    EXPECT_EQ(GetBkColor(dc), RGB(255, 255, 255));
    EXPECT_EQ(GetTextColor(dc), RGB(0, 0, 0));
    EXPECT_EQ(GetDeviceCaps(dc, BITSPIXEL), 32);
    EXPECT_EQ(GetDeviceCaps(dc, LOGPIXELSY), 96);
    const Table<int, int> selections{
        {BLACK_BRUSH, WHITE_BRUSH}, {NULL_PEN, BLACK_PEN}, {DEFAULT_GUI_FONT, SYSTEM_FONT}};
    for (const auto& [selected, before] : selections)
        EXPECT_EQ(SelectObject(dc, GetStockObject(selected)), GetStockObject(before)) << selected;
    const Scoped region(CreateRectRgn(0, 0, 1, 1));
    EXPECT_EQ(reinterpret_cast<INT_PTR>(SelectObject(dc, static_cast<HRGN>(region))), SIMPLEREGION);
    DeleteDC(dc);
}

TEST_F(Objects, DescribeThemselves)
{
    const Scoped bitmap(CreateBitmap(5, 4, 1, 32, nullptr));
    DIBSECTION section{};
    EXPECT_EQ(GetObjectA(bitmap, 0, nullptr), static_cast<int>(sizeof(BITMAP)));
    EXPECT_EQ(GetObjectA(bitmap, sizeof section, &section), static_cast<int>(sizeof(BITMAP)));
    EXPECT_EQ(section.dsBm.bmWidthBytes, 20);
    EXPECT_EQ(section.dsBm.bmBits, nullptr);
    const Scoped brush(CreateSolidBrush(RGB(1, 2, 3)));
    LOGBRUSH logical{};
    EXPECT_EQ(GetObjectA(brush, sizeof logical, &logical), static_cast<int>(sizeof logical));
    EXPECT_EQ(logical.lbColor, RGB(1, 2, 3));
    const Scoped pen(CreatePen(PS_DOT, 3, RGB(4, 5, 6)));
    LOGPEN outline{};
    EXPECT_EQ(GetObjectA(pen, sizeof outline, &outline), static_cast<int>(sizeof outline));
    EXPECT_EQ(outline.lopnWidth.x, 3);
}

TEST_F(Objects, ThatAreNotAliveFailCleanly)
{
    Canvas canvas(2, 2);
    const HDC stale = CreateCompatibleDC(nullptr);
    DeleteDC(stale);
    EXPECT_FALSE(DeleteDC(stale));
    EXPECT_EQ(SaveDC(stale), 0);
    EXPECT_FALSE(RestoreDC(stale, -1));
    EXPECT_FALSE(BitBlt(canvas, 0, 0, 1, 1, stale, 0, 0, SRCCOPY));
    EXPECT_FALSE(BitBlt(stale, 0, 0, 1, 1, canvas, 0, 0, SRCCOPY));
    EXPECT_FALSE(LineTo(stale, 1, 1));
    EXPECT_EQ(GetPixel(stale, 0, 0), CLR_INVALID);
    EXPECT_EQ(GetPixel(canvas, 5, 5), CLR_INVALID);
    EXPECT_EQ(SetTextColor(stale, 0), CLR_INVALID);
    EXPECT_EQ(SelectClipRgn(stale, nullptr), ERROR);
    EXPECT_EQ(CreatePatternBrush(nullptr), nullptr);
}

using Rectangles = PlatformTest;

TEST_F(Rectangles, IntersectAndUnite)
{
    const Table<const char*, RECT, RECT, std::string, std::string> cases{
        {"overlap", {0, 0, 4, 4}, {2, 1, 9, 9}, "2,1,4,4", "0,0,9,9"},
        {"touching", {0, 0, 4, 4}, {4, 0, 9, 9}, "0,0,0,0", "0,0,9,9"},
        {"one empty", {3, 3, 3, 9}, {1, 1, 5, 5}, "0,0,0,0", "1,1,5,5"},
        {"both empty", {3, 3, 3, 9}, {1, 1, 1, 5}, "0,0,0,0", "0,0,0,0"},
    };
    const std::string none = "0,0,0,0";
    for (const auto& [name, first, second, intersection, all] : cases) {
        RECT result{7, 7, 7, 7};
        EXPECT_EQ(IntersectRect(&result, &first, &second) != FALSE, intersection != none) << name;
        EXPECT_EQ(RectText(result), intersection) << name;
        EXPECT_EQ(UnionRect(&result, &first, &second) != FALSE, all != none) << name;
        EXPECT_EQ(RectText(result), all) << name;
    }
}
