// What the other tests stand on must itself be able to fail.

#include <gtest/gtest-spi.h>

#include <gmock/gmock.h>

#include "platform/platform_test.h"
#include "support/platform_window.h"
#include "support/pointer_and_keys.h"
#include "support/screenshot.h"

using namespace qvui::test;
using Support = PlatformTest;

TEST_F(Support, GoldenComparisonTellsWrongPixels)
{
    CImage image;
    ASSERT_TRUE(image.Create(8, 4, 24));
    const std::string path = OutputPath("black.png");
    ASSERT_EQ(image.Save(path.c_str()), S_OK);
    const auto matches = [&](const CImage& picture, GoldenTolerance tolerance = {}) {
        return MatchesPicture(picture, path, "support/black", tolerance);
    };
    EXPECT_TRUE(matches(image));
    static_cast<std::uint8_t*>(image.GetPixelAddress(3, 1))[1] = 10;
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

TEST_F(Support, PointerAndKeysSendWhatTheyNameAndLogsAndPumpsCanFail)
{
    const LiveObjects before = LiveObjects::Count();
    PlatformWindow window;
    EXPECT_THAT(before.Leaked(LiveObjects::Count()), testing::HasSubstr("1 windows"));
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
    EXPECT_EQ(window.Log().Last(WM_MOUSEWHEEL).lParam, MAKELPARAM(105, 106));
    keys.Hold(VK_SHIFT);
    EXPECT_LT(GetKeyState(VK_SHIFT), 0);
    keys.LetGo(VK_SHIFT);
    EXPECT_GE(GetKeyState(VK_SHIFT), 0);
    window.SetHandler(Answer(WM_PAINT, 0));  // never validates
    InvalidateRect(window, nullptr, FALSE);
    EXPECT_NONFATAL_FAILURE(Pump(), "without end");
    window.SetHandler({});
    PostQuitMessage(7);
    EXPECT_EQ(Pump().exitCode, 7);
}
