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

TEST_F(TrackBar, TheThumbTakesTheTooltipOnce)
{
    BarWindow window(kLying, R"(horz_trackbar tooltip="#volume")");
    EXPECT_EQ(window.bar.GetThumbButton()->GetTooltip(), "volume");
    window.bar.SetTooltip("loudness");
    EXPECT_EQ(window.bar.GetTooltip(), "loudness");
    EXPECT_EQ(window.bar.GetThumbButton()->GetTooltip(), "volume");
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
