#include <cstdlib>

#include <qvui/controls/track_bar.h>

#include "controls/pixels.h"
#include "support/controls/control_test.h"

namespace qvui::test {
namespace {

using namespace DUI;
using namespace std::string_literals;

class TrackBar : public ControlTest {};

/// A window with a bar called "t"; `bar` is its tag and its attributes.
struct BarWindow : ControlWindow {
    BarWindow(SIZE client, const std::string& element)
        : ControlWindow(client, "<" + element + " name=\"t\"/>"),
          bar(Root<CDUITrackBarBase>())
    {
    }
    std::string ThumbPlace() { return Text(bar.GetThumbButton()->GetControlRect()); }

    CDUITrackBarBase& bar;
};

constexpr SIZE kLying{110, 10};
const std::string kBar = R"(horz_trackbar range="0,100" back_image="strip2" thumb_image="thumb")";

std::vector<Noticed> Moved(std::initializer_list<WPARAM> positions)
{
    std::vector<Noticed> notifications;
    for (const WPARAM position : positions)
        notifications.push_back({DUINOTIFY_TRACKPOS, "t", position, 0});
    return notifications;
}

TEST_F(TrackBar, PlacesThumbAndFilledPart)
{
    // The thumb is 10x10.
    const struct {
        const char* name;
        SIZE client;
        const char* element;
        const char* thumb;
        const char* filled;  // icon 1's green, before the thumb covers its end
    } cases[] = {
        {"half", {110, 10}, R"(horz_trackbar range="0,100" pos="50")", "50,0,60,10", "0,0,50,10"},
        {"start", {110, 10}, R"(horz_trackbar range="0,100")", "0,0,10,10", "0,0,0,0"},
        {"end", {110, 10}, R"(horz_trackbar range="0,100" pos="100")", "100,0,110,10", "0,0,100,10"},
        {"rounded down", {40, 10}, R"(horz_trackbar range="0,4" pos="1")", "7,0,17,10", "0,0,7,10"},
        {"upwards", {10, 110}, R"(vert_trackbar range="0,100" pos="20")", "0,80,10,90", "0,90,10,110"},
        {"within the margin",
         {40, 30},
         R"(horz_trackbar range="0,4" pos="2" margin="2,3,8,7")",
         "12,3,22,23",
         "2,3,12,23"},
        {"upper half over the caption",
         {110, 40},
         R"(horz_trackbar range="0,100" pos="50" percent="true")",
         "50,0,60,20",
         "0,0,50,20"},
        {"no caption upwards",
         {10, 110},
         R"(vert_trackbar range="0,100" pos="20" percent="true")",
         "0,80,10,90",
         "0,90,10,110"},
        {"an empty range", {110, 10}, R"(horz_trackbar range="5,5")", "0,0,10,10", "0,0,0,0"},
        {"a reversed range", {110, 10}, R"(horz_trackbar range="100,0" pos="50")", "50,0,60,10", "0,0,50,10"},
        {"shorter than the thumb", {6, 10}, R"(horz_trackbar range="0,100" pos="50")", "0,0,6,10", "0,0,0,0"},
    };
    for (const auto& c : cases) {
        BarWindow window(c.client, std::string(c.element) + R"( back_image="strip2" thumb_image="thumb")");
        const ClientPixels pixels = window.Paint();
        EXPECT_EQ(window.ThumbPlace(), c.thumb) << c.name;
        EXPECT_EQ(Bounds(pixels, kGrey), c.thumb) << c.name;
        EXPECT_EQ(Bounds(pixels, kGreen), c.filled) << c.name;
    }
}

TEST_F(TrackBar, ColoursRunAcrossTheTrack)
{
    ControlWindow window({256, 10}, R"(<horz_trackbar back_color="#FFFF0000,#FF0000FF"/>)");
    const ClientPixels pixels = window.Paint();
    EXPECT_EQ(pixels.At(0, 0), kRed);
    EXPECT_EQ(pixels.At(128, 3), 0x7F007Fu) << "half way from red to blue";
    EXPECT_EQ(pixels.At(128, 4), 0u);
}

TEST_F(TrackBar, CaptionStandsBelowTheFilledEnd)
{
    const struct {
        const char* name;
        int position;
        bool (*isInPlace)(const RECT& text);
    } cases[] = {
        {"pushed in at the left", 0, [](const RECT& text) { return text.left < 4 && text.right < 50; }},
        {"centred", 50, [](const RECT& text) { return std::abs((text.left + text.right) / 2 - 150) <= 3; }},
        {"pushed in at the right", 100, [](const RECT& text) { return text.right > 296 && text.left > 250; }},
    };
    ControlWindow window(
        {300, 60}, R"(<window frame_style="red"><horz_trackbar back_color="blue" range="0,100"/></window>)");
    auto& bar = window.Root<CDUITrackBarBase>();
    for (const auto& c : cases) {
        bar.SetShowPercent(FALSE);
        bar.SetPos(c.position);
        const ClientPixels without = window.Paint();
        bar.SetShowPercent(TRUE);
        const RECT text = DifferenceOf(without, window.Paint());
        EXPECT_FALSE(IsRectEmpty(&text)) << c.name;
        EXPECT_TRUE(c.isInPlace(text)) << c.name << ": " << Text(text);
        EXPECT_GE(text.top, 30) << c.name << ": in the lower half";
    }
}

TEST_F(TrackBar, JumpsToAPressOnTheTrack)
{
    const struct {
        const char* element;
        SIZE client;
        POINT press;
        int position;
    } cases[] = {
        {"horz", {110, 10}, {109, 5}, 100}, {"horz", {110, 10}, {55, 5}, 50},
        {"horz", {110, 10}, {15, 5}, 10},   {"vert", {10, 110}, {5, 0}, 100},
        {"vert", {10, 110}, {5, 55}, 50},   {"vert", {10, 110}, {5, 95}, 10},
    };
    for (const auto& c : cases) {
        BarWindow window(c.client, c.element + kBar.substr(4));
        window.mouse.Press(c.press);
        EXPECT_EQ(window.TakeNotifications(), Moved({static_cast<WPARAM>(c.position)}))
            << c.element << c.press.x;
        EXPECT_EQ(window.GetFocusControl(), &window.bar);
        window.mouse.MoveTo({20, 20}).Release();
        EXPECT_EQ(window.TakeNotifications(), Moved({})) << "a press on the track begins no drag";
    }
}

TEST_F(TrackBar, DragsTheThumb)
{
    BarWindow window(kLying, kBar);
    window.mouse.MoveTo({50, 5});
    EXPECT_EQ(window.TakeNotifications(), Moved({})) << "no button is down";
    window.mouse.Press({5, 5});
    EXPECT_EQ(window.GetFocusControl(), &window.bar) << "the thumb gives the focus to the bar";
    EXPECT_EQ(GetCapture(), window.Handle());
    window.mouse.MoveTo({25, 5}).MoveTo({25, 9}).MoveTo({35, -20}).MoveTo({-50, 5}).MoveTo({500, 5});
    EXPECT_EQ(window.TakeNotifications(), Moved({20, 30, 0, 100}));
    EXPECT_EQ(window.ThumbPlace(), "100,0,110,10");
    window.mouse.Release();
    EXPECT_EQ(GetCapture(), nullptr);
    window.mouse.MoveTo({50, 5}).Release();
    EXPECT_EQ(window.TakeNotifications(), Moved({}));
}

TEST_F(TrackBar, ABarThatIsDisabledOrDetachedLetsGoOfTheDrag)
{
    BarWindow window(kLying, kBar);
    window.mouse.Press({5, 5});
    window.bar.SetEnable(FALSE);
    window.mouse.MoveTo({25, 5});
    EXPECT_EQ(GetCapture(), nullptr);
    window.mouse.Release();
    window.bar.SetEnable(TRUE);
    window.mouse.MoveTo({45, 5});
    EXPECT_EQ(window.TakeNotifications(), Moved({}));
    window.mouse.Press({5, 5});
    ReleaseCapture();
    window.mouse.MoveTo({7, 5}).MoveTo({45, 5}).Release();
    EXPECT_EQ(window.TakeNotifications(), Moved({})) << "something else took the mouse";
    window.mouse.Press({5, 5});
    EXPECT_EQ(GetCapture(), window.Handle());
    window.bar.DetachWindow();
    EXPECT_EQ(GetCapture(), nullptr);
}

TEST_F(TrackBar, ArrowKeysOfItsDirectionMoveByTheStep)
{
    const struct {
        const char* element;
        int key;
        WPARAM position;  // from 50
    } cases[] = {
        {"horz", VK_LEFT, 43}, {"horz", VK_RIGHT, 57}, {"horz", VK_UP, 50},
        {"horz", VK_DOWN, 50}, {"vert", VK_UP, 57},    {"vert", VK_DOWN, 43},
        {"vert", VK_LEFT, 50}, {"vert", VK_RIGHT, 50}, {"vert", VK_PRIOR, 50},
    };
    for (const auto& c : cases) {
        BarWindow window({50, 50}, c.element + R"(_trackbar range="0,100" pos="50" step="7")"s);
        window.bar.SetStep(0);
        window.bar.SetFocus(TRUE);
        window.keys.Press(c.key);
        EXPECT_EQ(window.TakeNotifications(), c.position == 50 ? Moved({}) : Moved({c.position}))
            << c.element << ' ' << c.key;
        BOOL bHandled = FALSE;
        window.bar.OnDUIEvent({DUIEVENT_KEYDOWN, nullptr, {}, 0, 0, static_cast<WPARAM>(c.key), 0}, bHandled);
        EXPECT_EQ(bHandled != FALSE, c.position != 50) << c.element << ' ' << c.key;
    }
}

TEST_F(TrackBar, StopsAtTheEndsOfTheRange)
{
    BarWindow window(kLying, R"(horz_trackbar range="0,100" pos="99" step="2147483647")");
    window.bar.SetFocus(TRUE);
    window.keys.Press(VK_RIGHT).Press(VK_RIGHT).Press(VK_LEFT).Press(VK_LEFT);
    EXPECT_EQ(window.TakeNotifications(), Moved({100, 0}));
    window.bar.SetPos(70);
    window.TakeNotifications();
    window.bar.SetRange(60, 10);
    EXPECT_EQ(window.bar.GetPos(), 60);
    EXPECT_EQ(window.TakeNotifications(), Moved({})) << "a range moves the position silently";
}

TEST_F(TrackBar, TheThumbTakesTheTooltipOnce)
{
    BarWindow window(kLying, R"(horz_trackbar tooltip="#volume")");
    EXPECT_EQ(window.bar.GetThumbButton()->GetTooltip(), "volume");
    window.bar.SetTooltip("loudness");
    EXPECT_EQ(window.bar.GetTooltip(), "loudness");
    EXPECT_EQ(window.bar.GetThumbButton()->GetTooltip(), "volume");
}

TEST_F(TrackBar, ACopyHasAThumbOfItsOwn)
{
    BarWindow window(kLying, kBar + R"( pos="30" step="5")");
    ControlWindow other(kLying, window.bar.Clone());
    auto& copy = other.Root<CDUITrackBarBase>();
    EXPECT_EQ(copy.GetControlCount(), 1);
    EXPECT_NE(copy.GetThumbButton(), window.bar.GetThumbButton());
    other.mouse.Press({35, 5}).MoveTo({45, 5}).Release();
    other.keys.Press(VK_RIGHT);
    EXPECT_EQ(other.TakeNotifications(), Moved({40, 45}));
    EXPECT_EQ(window.bar.GetPos(), 30);
}

TEST_F(TrackBar, LivesWithoutItsThumb)
{
    BarWindow window(kLying, kBar);
    const CRefPtr<IDUIControl> thumb = window.bar.GetThumbButton();
    window.bar.RemoveAllControl();
    EXPECT_EQ(window.bar.GetThumbButton(), nullptr);
    window.mouse.Click({55, 5});
    EXPECT_EQ(window.TakeNotifications(), Moved({50}));
    window.Paint();
    // The thumb does not remember a bar that has gone.
    window.Close();
    BOOL bHandled = FALSE;
    thumb->OnDUIEvent({DUIEVENT_MOUSEENTER, nullptr, {}, 0, 0, 0, 0}, bHandled);
}

}  // namespace
}  // namespace qvui::test
