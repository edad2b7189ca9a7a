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
    SelectObject(first, bitmap);
    EXPECT_TRUE(DeleteObject(bitmap)) << "while it is selected";
    EXPECT_EQ(SetPixel(first, 1, 0, RGB(9, 8, 7)), RGB(9, 8, 7));
    EXPECT_TRUE(DeleteDC(first));
}

TEST_F(Objects, AreSelectedInAFreshContextOfOnePixel)
{
    const HDC dc = CreateCompatibleDC(nullptr);
    RECT box{};
    EXPECT_EQ(GetClipBox(dc, &box), SIMPLEREGION);
    EXPECT_EQ(RectText(box), "0,0,1,1");
    EXPECT_EQ(GetBkMode(dc), OPAQUE);
    EXPECT_EQ(GetBkColor(dc), RGB(255, 255, 255));
    EXPECT_EQ(GetDeviceCaps(dc, LOGPIXELSY), 96);
    const Table<int, int> selections{
        {BLACK_BRUSH, WHITE_BRUSH}, {NULL_PEN, BLACK_PEN}, {DEFAULT_GUI_FONT, SYSTEM_FONT}};
    for (const auto& [selected, before] : selections)
        EXPECT_EQ(SelectObject(dc, GetStockObject(selected)), GetStockObject(before)) << selected;
    BITMAP description{};
    const Scoped bitmap(CreateBitmap(5, 4, 1, 32, nullptr));
    EXPECT_EQ(GetObjectA(bitmap, sizeof description, &description), static_cast<int>(sizeof description));
    EXPECT_EQ(description.bmWidthBytes, 20);
    EXPECT_EQ(description.bmBits, nullptr);
    DeleteDC(dc);
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
