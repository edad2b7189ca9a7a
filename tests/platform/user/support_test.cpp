// What the other tests stand on must itself be able to fail.

#include <gtest/gtest-spi.h>

#include <gmock/gmock.h>

#include "support/leak_check.h"
#include "support/platform_window.h"
#include "support/pointer_and_keys.h"
#include "support/screenshot.h"

using namespace qvui::test;

TEST(Support, LeakCheckNamesWhatIsLeft)
{
    const LiveObjects before = LiveObjects::Count();
    {
        const PlatformWindow window;
        EXPECT_THAT(before.Leaked(LiveObjects::Count()), testing::HasSubstr("1 windows"));
    }
    EXPECT_EQ(before.Leaked(LiveObjects::Count()), "");
}

TEST(Support, ClientPixelsShowWhatWasPainted)
{
    const LeakCheck leaks;
    const HBRUSH red = CreateSolidBrush(RGB(255, 0, 0));
    {
        PlatformWindow window({.place = {50, 60, 90, 80}, .background = red});
        const ClientPixels pixels = ReadClient(window);
        EXPECT_EQ(pixels.width, 40);
        EXPECT_EQ(pixels.height, 20);
        EXPECT_EQ(pixels.At(0, 0), 0xFF0000U);
        EXPECT_EQ(pixels.At(39, 19), 0xFF0000U);
        EXPECT_EQ(pixels.At(40, 19), 0xFFFFFFFFU);
    }
    DeleteObject(red);
}

TEST(Support, GoldenComparisonTellsWrongPixels)
{
    const LeakCheck leaks;
    CImage image;
    ASSERT_TRUE(image.Create(8, 4, 24));
    const auto paint = [&](int x, int value) {
        static_cast<std::uint8_t*>(image.GetPixelAddress(x, 1))[1] = static_cast<std::uint8_t>(value);
    };
    const std::string path = OutputPath("black.png");
    ASSERT_EQ(image.Save(path.c_str()), S_OK);
    const auto matches = [&](const CImage& picture, GoldenTolerance tolerance = {}) {
        return MatchesPicture(picture, path, "support/black", tolerance);
    };
    EXPECT_TRUE(matches(image));
    paint(3, 10);
    EXPECT_FALSE(matches(image));
    EXPECT_FALSE(matches(image, {.channel = 9}));
    EXPECT_TRUE(matches(image, {.channel = 10}));
    EXPECT_FALSE(matches(image, {.wrongPixels = 0.03}));
    EXPECT_TRUE(matches(image, {.wrongPixels = 0.04}));
    CImage small;
    ASSERT_TRUE(small.Create(7, 4, 24));
    EXPECT_FALSE(matches(small, {.channel = 255}));
    EXPECT_FALSE(MatchesPicture(small, path + ".none", "support/none"));
}

TEST(Support, PointerAndKeysSendWhatTheyName)
{
    const LeakCheck leaks;
    PlatformWindow window;
    Pump();
    window.Log().Clear();
    MessagePointer(window).Click({5, 6}).Wheel(-1);
    MessageKeys keys(window);
    keys.Press(VK_TAB).Type("a").PressWithAlt('x');
    EXPECT_TRUE(
        window.Log().Tells("window MOUSEMOVE LBUTTONDOWN LBUTTONUP MOUSEWHEEL KEYDOWN CHAR KEYUP CHAR "
                           "SYSKEYDOWN SYSCHAR SYSKEYUP"));
    EXPECT_FALSE(window.Log().Tells("window KEYDOWN KEYUP", {WM_CHAR}));
    EXPECT_FALSE(window.Log().Tells("window KEYUP KEYDOWN"));
    const LoggedMessage wheel = window.Log().Last(WM_MOUSEWHEEL);
    EXPECT_EQ(wheel.lParam, MAKELPARAM(105, 106));
    EXPECT_EQ(static_cast<SHORT>(HIWORD(wheel.wParam)), -120);
    POINT pointer{};
    GetCursorPos(&pointer);
    EXPECT_EQ(Text(pointer), "105,106");
    keys.Hold(VK_SHIFT);
    EXPECT_LT(GetKeyState(VK_SHIFT), 0);
    EXPECT_GE(GetKeyState(VK_CONTROL), 0);
    keys.LetGo(VK_SHIFT);
    EXPECT_GE(GetKeyState(VK_SHIFT), 0);
}

TEST(Support, PumpFailsOnMessagesWithoutEnd)
{
    PlatformWindow window;
    window.SetHandler(Answer(WM_PAINT, 0));  // never validates
    InvalidateRect(window, nullptr, FALSE);
    EXPECT_NONFATAL_FAILURE(Pump(), "without end");
    window.SetHandler({});
    PostQuitMessage(7);
    EXPECT_EQ(Pump().exitCode, 7);
}
