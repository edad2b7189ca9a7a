#include <cstdlib>

#include <qvui/controls/track_bar.h>

#include "controls/pixels.h"
#include "support/controls/control_test.h"

namespace qvui::test {
namespace {

using namespace DUI;

class TrackBar : public ControlTest {};

CDUITrackBarBase* RootBar(ControlWindow& window)
{
    return dynamic_cast<CDUITrackBarBase*>(window.GetRootControl());
}

std::vector<Noticed> Moved(std::initializer_list<WPARAM> positions)
{
    std::vector<Noticed> notifications;
    for (const WPARAM position : positions)
        notifications.push_back({DUINOTIFY_TRACKPOS, "t", position, 0});
    return notifications;
}

TEST_F(TrackBar, PlacesThumbAndFilledPart)
{
    struct Case {
        const char* name;
        SIZE client;
        const char* element;
        const char* thumb;
        const char* filled;  // icon 1's green, before the thumb covers its end
    };
    // The thumb is 10x10.
    const Case cases[] = {
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
    for (const Case& c : cases) {
        ControlWindow window(c.client,
                             std::string("<") + c.element + " back_image=\"strip2\" thumb_image=\"thumb\"/>");
        const ClientPixels pixels = window.Paint();
        EXPECT_EQ(Text(RootBar(window)->GetThumbButton()->GetControlRect()), c.thumb) << c.name;
        EXPECT_EQ(Bounds(pixels, kGrey), c.thumb) << c.name;
        EXPECT_EQ(Bounds(pixels, kGreen), c.filled) << c.name;
    }
}

TEST_F(TrackBar, WithoutAThumbImageTheFilledPartEndsAtThePosition)
{
    ControlWindow window({100, 10}, R"(<horz_trackbar back_image="strip2" range="0,100" pos="40"/>)");
    EXPECT_EQ(Bounds(window.Paint(), kGreen), "0,0,40,10");
    const RECT thumb = RootBar(window)->GetThumbButton()->GetControlRect();
    EXPECT_TRUE(IsRectEmpty(&thumb));
}

TEST_F(TrackBar, DrawsColoursInsteadOfAnImage)
{
    struct Case {
        const char* name;
        SIZE client;
        const char* element;
        const char* red;
        const char* blue;
        std::uint32_t below;
    };
    const Case cases[] = {
        {"a band of 4 pixels",
         {2, 10},
         R"(horz_trackbar back_color="#FFFF0000,#FFFF0000")",
         "0,0,2,4",
         "0,0,0,0",
         0},
        {"the whole height", {2, 10}, R"(vert_trackbar back_color="red,red")", "0,0,2,10", "0,0,0,0", kRed},
        {"one colour", {2, 10}, R"(horz_trackbar back_color="blue")", "0,0,0,0", "0,0,2,4", 0},
        {"an image after all",
         {2, 10},
         R"(horz_trackbar back_color="blue" back_image="strip2")",
         "0,0,2,10",
         "0,0,0,0",
         kRed},
        {"a single icon is no track", {2, 10}, R"(horz_trackbar back_image="dot")", "0,0,0,0", "0,0,0,0", 0},
    };
    for (const Case& c : cases) {
        ControlWindow window(c.client, std::string("<") + c.element + "/>");
        const ClientPixels pixels = window.Paint();
        EXPECT_EQ(Bounds(pixels, kRed), c.red) << c.name;
        EXPECT_EQ(Bounds(pixels, kBlue), c.blue) << c.name;
        EXPECT_EQ(pixels.At(0, 9), c.below) << c.name;
    }
    ControlWindow window({256, 10}, R"(<horz_trackbar back_color="#FFFF0000,#FF0000FF"/>)");
    const ClientPixels pixels = window.Paint();
    EXPECT_EQ(pixels.At(0, 0), kRed);
    EXPECT_EQ(pixels.At(128, 3), 0x7F007Fu) << "half way from red to blue";
    EXPECT_EQ(pixels.At(128, 4), 0u);
}

TEST_F(TrackBar, CaptionStandsBelowTheFilledEnd)
{
    struct Case {
        const char* name;
        int position;
        bool (*isInPlace)(const RECT& text);
    };
    const Case cases[] = {
        {"pushed in at the left", 0, [](const RECT& text) { return text.left < 4 && text.right < 50; }},
        {"centred", 50, [](const RECT& text) { return std::abs((text.left + text.right) / 2 - 150) <= 3; }},
        {"pushed in at the right", 100, [](const RECT& text) { return text.right > 296 && text.left > 250; }},
    };
    ControlWindow window(
        {300, 60}, R"(<window frame_style="red"><horz_trackbar back_color="blue" range="0,100"/></window>)");
    CDUITrackBarBase* const bar = RootBar(window);
    for (const Case& c : cases) {
        bar->SetShowPercent(FALSE);
        bar->SetPos(c.position);
        const ClientPixels without = window.Paint();
        bar->SetShowPercent(TRUE);
        const RECT text = DifferenceOf(without, window.Paint());
        EXPECT_FALSE(IsRectEmpty(&text)) << c.name;
        EXPECT_TRUE(c.isInPlace(text)) << c.name << ": " << Text(text);
        EXPECT_GE(text.top, 30) << c.name << ": in the lower half";
    }
}

TEST_F(TrackBar, JumpsToAPressOnTheTrack)
{
    struct Case {
        const char* element;
        SIZE client;
        POINT press;
        int position;
    };
    const Case cases[] = {
        {"horz_trackbar", {110, 10}, {109, 5}, 100}, {"horz_trackbar", {110, 10}, {55, 5}, 50},
        {"horz_trackbar", {110, 10}, {15, 5}, 10},   {"vert_trackbar", {10, 110}, {5, 0}, 100},
        {"vert_trackbar", {10, 110}, {5, 55}, 50},   {"vert_trackbar", {10, 110}, {5, 95}, 10},
    };
    for (const Case& c : cases) {
        ControlWindow window(c.client,
                             std::string("<") + c.element +
                                 R"( name="t" range="0,100" back_image="strip2" thumb_image="thumb"/>)");
        window.mouse.Press(c.press);
        EXPECT_EQ(window.TakeNotifications(), Moved({static_cast<WPARAM>(c.position)}))
            << c.element << c.press.x;
        EXPECT_EQ(window.GetFocusControl(), RootBar(window));
        window.mouse.MoveTo({20, 20}).Release();
        EXPECT_EQ(window.TakeNotifications(), Moved({})) << "a press on the track begins no drag";
    }
}

TEST_F(TrackBar, DragsTheThumb)
{
    ControlWindow window(
        {110, 10}, R"(<horz_trackbar name="t" range="0,100" back_image="strip2" thumb_image="thumb"/>)");
    CDUITrackBarBase* const bar = RootBar(window);
    window.mouse.MoveTo({50, 5});
    EXPECT_EQ(window.TakeNotifications(), Moved({})) << "no button is down";
    window.mouse.Press({5, 5});
    EXPECT_EQ(window.GetFocusControl(), bar) << "the thumb gives the focus to the bar";
    EXPECT_EQ(GetCapture(), window.Handle());
    window.mouse.MoveTo({25, 5}).MoveTo({25, 9}).MoveTo({35, -20}).MoveTo({-50, 5}).MoveTo({500, 5});
    EXPECT_EQ(window.TakeNotifications(), Moved({20, 30, 0, 100}));
    EXPECT_EQ(Text(bar->GetThumbButton()->GetControlRect()), "100,0,110,10");
    window.mouse.Release();
    EXPECT_EQ(GetCapture(), static_cast<HWND>(nullptr));
    window.mouse.MoveTo({50, 5}).Release();
    EXPECT_EQ(window.TakeNotifications(), Moved({}));
}

TEST_F(TrackBar, ABarThatIsDisabledOrDetachedLetsGoOfTheDrag)
{
    ControlWindow window(
        {110, 10}, R"(<horz_trackbar name="t" range="0,100" back_image="strip2" thumb_image="thumb"/>)");
    CDUITrackBarBase* const bar = RootBar(window);
    window.mouse.Press({5, 5});
    bar->SetEnable(FALSE);
    window.mouse.MoveTo({25, 5});
    EXPECT_EQ(GetCapture(), static_cast<HWND>(nullptr));
    window.mouse.Release();
    bar->SetEnable(TRUE);
    window.mouse.MoveTo({45, 5});
    EXPECT_EQ(window.TakeNotifications(), Moved({}));
    window.mouse.Press({5, 5});
    EXPECT_EQ(GetCapture(), window.Handle());
    bar->DetachWindow();
    EXPECT_EQ(GetCapture(), static_cast<HWND>(nullptr));
}

TEST_F(TrackBar, ArrowKeysOfItsDirectionMoveByTheStep)
{
    struct Case {
        const char* element;
        int key;
        WPARAM position;  // from 50
    };
    const Case cases[] = {
        {"horz_trackbar", VK_LEFT, 43}, {"horz_trackbar", VK_RIGHT, 57}, {"horz_trackbar", VK_UP, 50},
        {"horz_trackbar", VK_DOWN, 50}, {"vert_trackbar", VK_UP, 57},    {"vert_trackbar", VK_DOWN, 43},
        {"vert_trackbar", VK_LEFT, 50}, {"vert_trackbar", VK_RIGHT, 50}, {"vert_trackbar", VK_PRIOR, 50},
    };
    for (const Case& c : cases) {
        ControlWindow window({50, 50},
                             std::string("<") + c.element + R"( name="t" range="0,100" pos="50" step="7"/>)");
        RootBar(window)->SetStep(0);
        RootBar(window)->SetFocus(TRUE);
        window.keys.Press(c.key);
        EXPECT_EQ(window.TakeNotifications(), c.position == 50 ? Moved({}) : Moved({c.position}))
            << c.element << ' ' << c.key;
        BOOL bHandled = FALSE;
        RootBar(window)->OnDUIEvent({DUIEVENT_KEYDOWN, nullptr, {}, 0, 0, static_cast<WPARAM>(c.key), 0},
                                    bHandled);
        EXPECT_EQ(bHandled != FALSE, c.position != 50) << c.element << ' ' << c.key;
    }
}

TEST_F(TrackBar, StopsAtTheEndsOfTheRange)
{
    ControlWindow window({110, 10}, R"(<horz_trackbar name="t" range="0,100" pos="99" step="2147483647"/>)");
    CDUITrackBarBase* const bar = RootBar(window);
    bar->SetFocus(TRUE);
    window.keys.Press(VK_RIGHT).Press(VK_RIGHT).Press(VK_LEFT).Press(VK_LEFT);
    EXPECT_EQ(window.TakeNotifications(), Moved({100, 0}));
    bar->SetPos(70);
    window.TakeNotifications();
    bar->SetRange(60, 10);
    EXPECT_EQ(bar->GetPos(), 60);
    EXPECT_EQ(window.TakeNotifications(), Moved({})) << "a range moves the position silently";
}

TEST_F(TrackBar, TheThumbTakesTheTooltipOnce)
{
    ControlWindow window({110, 10}, R"(<horz_trackbar tooltip="#volume"/>)");
    CDUITrackBarBase* const bar = RootBar(window);
    EXPECT_EQ(bar->GetThumbButton()->GetTooltip(), "volume");
    bar->SetTooltip("loudness");
    EXPECT_EQ(bar->GetTooltip(), "loudness");
    EXPECT_EQ(bar->GetThumbButton()->GetTooltip(), "volume");
}

TEST_F(TrackBar, EstimatesTrackAndThumb)
{
    struct Case {
        const char* attributes;
        SIZE expected;
    };
    const Case cases[] = {
        {R"(margin="1,2,3,4")", {4, 6}},
        {R"(back_image="strip2")", {20, 10}},
        {R"(back_image="strip2" thumb_image="strip")", {20, 20}},
        {R"(back_image="expander" thumb_image="strip" margin="1,2,3,4")", {24, 26}},
        {R"(back_image="strip2" height="30")", {20, 30}},
    };
    for (const Case& c : cases) {
        ControlWindow window({20, 20}, std::string("<vert_trackbar ") + c.attributes + "/>");
        SIZE size{};
        EXPECT_TRUE(RootBar(window)->EstimateSize({0, 0}, size)) << c.attributes;
        EXPECT_EQ(size.cx, c.expected.cx) << c.attributes;
        EXPECT_EQ(size.cy, c.expected.cy) << c.attributes;
    }
}

TEST_F(TrackBar, ACopyHasAThumbOfItsOwn)
{
    ControlWindow window({110, 10}, R"(<horz_trackbar name="t" range="0,100" pos="30" step="5"
        back_image="strip2" thumb_image="thumb"/>)");
    ControlWindow other({110, 10}, window.GetRootControl()->Clone());
    ASSERT_EQ(RootBar(other)->GetControlCount(), 1);
    EXPECT_NE(RootBar(other)->GetThumbButton(), RootBar(window)->GetThumbButton());
    other.mouse.Press({35, 5}).MoveTo({45, 5}).Release();
    EXPECT_EQ(other.TakeNotifications(), Moved({40}));
    other.keys.Press(VK_RIGHT);
    EXPECT_EQ(other.TakeNotifications(), Moved({45}));
    EXPECT_EQ(RootBar(window)->GetPos(), 30);
}

TEST_F(TrackBar, LivesWithoutItsThumb)
{
    ControlWindow window(
        {110, 10}, R"(<horz_trackbar name="t" range="0,100" back_image="strip2" thumb_image="thumb"/>)");
    const CRefPtr<IDUIControl> thumb = RootBar(window)->GetThumbButton();
    RootBar(window)->RemoveAllControl();
    EXPECT_EQ(RootBar(window)->GetThumbButton(), nullptr);
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
