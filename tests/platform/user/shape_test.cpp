// Windows that are not rectangles: regions and per-pixel alpha.

#include "platform/user/layer_pixels.h"
#include "platform/user/window_test.h"

using namespace qvui::test;

namespace {

class Shape : public WindowTest {};

}  // namespace

TEST_F(Shape, RegionBelongsToTheWindowAndCutsItsHitArea)
{
    const PlatformWindow window(Popup());
    EXPECT_NE(SetWindowRgn(window, CreateRectRgn(0, 0, 50, 50), TRUE), 0);
    EXPECT_EQ(WindowFromPoint({120, 120}), window);
    EXPECT_NE(WindowFromPoint({180, 180}), window);
    const HRGN copy = CreateRectRgn(0, 0, 1, 1);
    EXPECT_EQ(GetWindowRgn(window, copy), SIMPLEREGION);
    RECT box{};
    GetRgnBox(copy, &box);
    EXPECT_EQ(box.right, 50);
    EXPECT_NE(SetWindowRgn(window, nullptr, TRUE), 0);
    EXPECT_EQ(WindowFromPoint({180, 180}), window);
    EXPECT_EQ(GetWindowRgn(window, copy), ERROR);
    DeleteObject(copy);
}

TEST_F(Shape, LayeredWindowTakesPlaceSizeAndPixelsAtOnce)
{
    const PlatformWindow window(Popup().Hidden().ExStyled(WS_EX_LAYERED));
    LayerPixels pixels({30, 20});
    POINT place{140, 150};
    EXPECT_TRUE(pixels.Show(window, 200, ULW_ALPHA, 0, &place));
    EXPECT_EQ(PlaceOf(window), "140,150,170,170");
    const PlatformWindow plain(Popup("plain", kBeside));
    EXPECT_FALSE(pixels.Show(plain, 200, ULW_ALPHA, 0, &place));
}

TEST_F(Shape, UpdateLayeredWindowIsFoundAtRunTime)
{
    const HMODULE module = LoadLibraryA("User32.dll");
    ASSERT_NE(module, nullptr);
    EXPECT_NE(GetProcAddress(module, "UpdateLayeredWindow"), nullptr);
    EXPECT_EQ(GetProcAddress(module, "NoSuchFunction"), nullptr);
    FreeLibrary(module);
}
