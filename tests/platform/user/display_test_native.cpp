// What the windows look like on the display, and what the display reports about them.

#include "platform/user/layer_pixels.h"
#include "platform/user/window_test.h"
#include "support/manual_clock.h"

using namespace qvui;
using namespace qvui::test;

namespace {

class OnDisplay : public WindowTest {
protected:
    const native::HeadlessDisplay::Shown& Shown(const PlatformWindow& window) const
    {
        return *display.Find(window);
    }

    native::HeadlessDisplay& display = *native::TheHeadlessDisplay();
    native::InputSink& sink = native::TheInputSink();
};

}  // namespace

TEST_F(OnDisplay, OnlyWhatIsPaintedIsPresented)
{
    const PlatformWindow window(Popup("w", {100, 100, 140, 120}).Filled(red));
    EXPECT_EQ(display.PixelAt({100, 100}), kRed);
    EXPECT_EQ(display.PixelAt({139, 119}), kRed);
    EXPECT_EQ(display.PixelAt({140, 119}), 0U);
    Pump();
    const int before = Shown(window).presented;
    SendMessageA(window, WM_APP, 0, 0);
    MoveWindow(window, 110, 100, 40, 20, TRUE);
    Pump();
    EXPECT_EQ(Shown(window).presented, before);
    InvalidateRect(window, nullptr, FALSE);
    Pump();
    EXPECT_EQ(Shown(window).presented, before + 1);
    MoveWindow(window, 100, 100, 80, 20, TRUE);
    EXPECT_EQ(display.PixelAt({105, 105}), kRed) << "before the new strip is painted";
    Pump();
    EXPECT_EQ(display.PixelAt({179, 119}), kRed);
    ShowWindow(window, SW_HIDE);
    EXPECT_EQ(display.PixelAt({110, 110}), 0U);
}

TEST_F(OnDisplay, TitlePlaceAndKindAreKnown)
{
    const PlatformWindowOptions options = Popup("title", {10, 20, 110, 70}).Styled(WS_POPUP | WS_THICKFRAME);
    const PlatformWindow window(options);
    const auto& shown = Shown(window);
    EXPECT_EQ(shown.Title(), "title");
    SetWindowTextA(window, "other");
    EXPECT_EQ(shown.Title(), "other");
    EXPECT_EQ(shown.screen.right, 110);
    EXPECT_TRUE(shown.options.isSizable);
    EXPECT_FALSE(shown.options.isDecorated || shown.options.isPopup);
    const PlatformWindow tip(options.ExStyled(WS_EX_NOACTIVATE).Below(window));
    EXPECT_TRUE(Shown(tip).options.isPassive);
    EXPECT_EQ(Shown(tip).options.owner, window);
    EXPECT_EQ(display.Active(), window);
}

TEST_F(OnDisplay, StackingIsThatOfTheWindowsWithPopupsAboveTheirOwner)
{
    const auto shows = [&] { return display.PixelAt({130, 110}); };
    const PlatformWindow lower(Popup("lower", {100, 100, 140, 140}).Filled(red));
    const PlatformWindow upper(Popup("upper", {120, 100, 160, 140}).Filled(blue));
    EXPECT_EQ(shows(), kBlue);
    SetActiveWindow(lower);
    EXPECT_EQ(shows(), kRed);
    SetWindowPos(lower, HWND_BOTTOM, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
    EXPECT_EQ(shows(), kBlue);
    const PlatformWindow tip(Popup("tip", {120, 100, 160, 140})
                                 .Hidden()
                                 .Filled(red)
                                 .Below(lower)
                                 .ExStyled(WS_EX_TOOLWINDOW | WS_EX_NOACTIVATE));
    ShowWindow(tip, SW_SHOWNOACTIVATE);
    SetActiveWindow(upper);
    EXPECT_EQ(display.PixelAt({150, 110}), kBlue) << "below the window that is active";
    SetActiveWindow(lower);
    EXPECT_EQ(display.PixelAt({150, 110}), kRed) << "with its owner above the other one";
}

TEST_F(OnDisplay, LayersBlendByTheirAlphaOrAreOpaqueOrKeyed)
{
    const PlatformWindow below(Popup("below", {100, 100, 140, 140}).Filled(red));
    const PlatformWindow layer(Popup("layer", {100, 100, 104, 104}).ExStyled(WS_EX_LAYERED));
    LayerPixels pixels({4, 4});
    EXPECT_FALSE(pixels.Show(below, 255)) << "one that is not layered";
    pixels[0] = 0xFF0000FF;
    pixels[1] = 0x80000080;
    EXPECT_TRUE(pixels.Show(layer, 255));
    EXPECT_EQ(display.PixelAt({100, 100}), kBlue);
    EXPECT_EQ(display.PixelAt({101, 100}), 0x7F0080U);
    EXPECT_EQ(display.PixelAt({102, 100}), kRed);
    EXPECT_EQ(WindowFromPoint({101, 100}), layer);
    EXPECT_EQ(WindowFromPoint({102, 100}), below) << "what is clear takes no mouse";
    pixels.Show(layer, 128);
    Pump();
    EXPECT_EQ(display.PixelAt({100, 100}), 0x7F0080U);
    EXPECT_EQ(display.PixelAt({102, 100}), kRed) << "nothing paints over a layer";
    pixels[1] = 0x00FF00FF;
    pixels.Show(layer, 255, ULW_COLORKEY, RGB(255, 0, 255));
    EXPECT_EQ(display.PixelAt({100, 100}), kBlue);
    EXPECT_EQ(display.PixelAt({101, 100}), kRed);
    pixels.Show(layer, 255, ULW_OPAQUE);
    EXPECT_EQ(display.PixelAt({101, 100}), 0xFF00FFU);
}

TEST_F(OnDisplay, CursorAndCaptureAreAskedOfTheDisplay)
{
    for (const auto& [name, shape] : Table<LPCSTR, int>{{IDC_HAND, 32649}, {IDC_ARROW, 32512}}) {
        SetCursor(nullptr);
        EXPECT_EQ(display.CursorShape(), 0);
        SetCursor(LoadCursorA(nullptr, name));
        EXPECT_EQ(display.CursorShape(), shape);
    }
    PlatformWindow window(Popup());
    SetCapture(window);
    EXPECT_TRUE(display.IsCaptured());
    window.Destroy();
    EXPECT_FALSE(display.IsCaptured());
}

TEST_F(OnDisplay, PlacesAndCloseRequestsOfTheDisplayAreTaken)
{
    const PlatformWindow window(Popup().Answering(Answer(WM_CLOSE, 0)));
    Settle();
    sink.OnMoved(window, {120, 130, 420, 330});
    EXPECT_TRUE(log.Tells("w MOVE SIZE"));
    EXPECT_EQ(PlaceOf(window), "120,130,420,330");
    sink.OnClose(window);
    Pump();
    EXPECT_TRUE(log.Tells("w SYSCOMMAND CLOSE"));
    EnableWindow(window, FALSE);
    log.Clear();
    sink.OnClose(window);
    Pump();
    EXPECT_EQ(log.Count(WM_SYSCOMMAND), 0) << "a disabled window waits for another one";
}

TEST_F(OnDisplay, MinimisedWindowsComeBackThroughTheDisplay)
{
    const PlatformWindow window(Popup("w", {100, 100, 140, 120}).Filled(red));
    ShowWindow(window, SW_MINIMIZE);
    EXPECT_TRUE(Shown(window).isMinimised);
    EXPECT_EQ(display.PixelAt({110, 110}), 0U);
    sink.OnMinimised(window, false);
    Pump();
    EXPECT_FALSE(IsIconic(window) || Shown(window).isMinimised);
    EXPECT_EQ(display.PixelAt({110, 110}), kRed);
    sink.OnMinimised(window, true);
    EXPECT_TRUE(IsIconic(window));
}
