// Windows that are not rectangles: regions and per-pixel alpha.

#include "platform/user/window_test.h"

using namespace qvui::test;

namespace {

class Shape : public WindowTest {};

}  // namespace

TEST_F(Shape, RegionBelongsToTheWindowAndCutsItsHitArea)
{
    const PlatformWindow window(Popup("w"));
    const HRGN region = CreateRectRgn(0, 0, 50, 50);
    EXPECT_NE(SetWindowRgn(window.Handle(), region, TRUE), 0);
    EXPECT_EQ(WindowFromPoint({120, 120}), window.Handle());
    EXPECT_NE(WindowFromPoint({180, 180}), window.Handle());
    const HRGN copy = CreateRectRgn(0, 0, 1, 1);
    EXPECT_EQ(GetWindowRgn(window.Handle(), copy), SIMPLEREGION);
    RECT box{};
    GetRgnBox(copy, &box);
    EXPECT_EQ(box.right, 50);
    EXPECT_NE(SetWindowRgn(window.Handle(), nullptr, TRUE), 0);
    EXPECT_EQ(WindowFromPoint({180, 180}), window.Handle());
    EXPECT_EQ(GetWindowRgn(window.Handle(), copy), ERROR);
    DeleteObject(copy);
}

TEST_F(Shape, LayeredWindowTakesPlaceSizeAndPixelsAtOnce)
{
    PlatformWindowOptions options = Hidden(Popup("w"));
    options.exStyle = WS_EX_LAYERED;
    const PlatformWindow window(options);
    BITMAPINFO info{};
    info.bmiHeader.biSize = sizeof info.bmiHeader;
    info.bmiHeader.biWidth = 30;
    info.bmiHeader.biHeight = -20;
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 32;
    void* rows = nullptr;
    const HBITMAP bitmap = CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &rows, nullptr, 0);
    ASSERT_NE(bitmap, nullptr);
    const HDC memory = CreateCompatibleDC(nullptr);
    const HGDIOBJ previous = SelectObject(memory, bitmap);
    POINT place{140, 150};
    SIZE size{30, 20};
    POINT origin{0, 0};
    BLENDFUNCTION blend{AC_SRC_OVER, 0, 200, AC_SRC_ALPHA};
    EXPECT_TRUE(UpdateLayeredWindow(window.Handle(), nullptr, &place, &size, memory, &origin, 0, &blend, ULW_ALPHA));
    RECT rect{};
    GetWindowRect(window.Handle(), &rect);
    EXPECT_EQ(rect.left, 140);
    EXPECT_EQ(rect.top, 150);
    EXPECT_EQ(rect.right, 170);
    EXPECT_EQ(rect.bottom, 170);
    const PlatformWindow plain(Popup("plain", {400, 100, 500, 200}));
    EXPECT_FALSE(UpdateLayeredWindow(plain.Handle(), nullptr, &place, &size, memory, &origin, 0, &blend, ULW_ALPHA));
    SelectObject(memory, previous);
    DeleteDC(memory);
    DeleteObject(bitmap);
}

TEST_F(Shape, UpdateLayeredWindowIsFoundAtRunTime)
{
    const HMODULE module = LoadLibraryA("User32.dll");
    ASSERT_NE(module, nullptr);
    EXPECT_NE(GetProcAddress(module, "UpdateLayeredWindow"), nullptr);
    EXPECT_EQ(GetProcAddress(module, "NoSuchFunction"), nullptr);
    FreeLibrary(module);
}
