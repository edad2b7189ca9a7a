// What the windows look like on the display, and what the display reports about them.

#include "platform/user/window_test.h"
#include "support/manual_clock.h"

using namespace qvui;
using namespace qvui::test;
using testing::ElementsAre;

namespace {

class OnDisplay : public WindowTest {
protected:
    ~OnDisplay() override
    {
        DeleteObject(red);
        DeleteObject(blue);
    }

    PlatformWindowOptions Filled(PlatformWindowOptions options, HBRUSH brush)
    {
        options.background = brush;
        return options;
    }
    const native::HeadlessDisplay::Shown& Shown(const PlatformWindow& window) const { return *display.Find(window.Handle()); }

    /// Gives a layered window of 4 × 4 pixels their premultiplied values.
    static void SetLayer(HWND window, const std::vector<std::uint32_t>& pixels, BYTE opacity, DWORD flags = ULW_ALPHA,
                         COLORREF key = 0)
    {
        BITMAPINFO info{};
        info.bmiHeader.biSize = sizeof info.bmiHeader;
        info.bmiHeader.biWidth = 4;
        info.bmiHeader.biHeight = -4;
        info.bmiHeader.biPlanes = 1;
        info.bmiHeader.biBitCount = 32;
        void* rows = nullptr;
        const HBITMAP bitmap = CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &rows, nullptr, 0);
        std::copy(pixels.begin(), pixels.end(), static_cast<std::uint32_t*>(rows));
        const HDC memory = CreateCompatibleDC(nullptr);
        const HGDIOBJ previous = SelectObject(memory, bitmap);
        SIZE size{4, 4};
        POINT origin{0, 0};
        BLENDFUNCTION blend{AC_SRC_OVER, 0, opacity, AC_SRC_ALPHA};
        EXPECT_TRUE(UpdateLayeredWindow(window, nullptr, nullptr, &size, memory, &origin, key, &blend, flags));
        SelectObject(memory, previous);
        DeleteDC(memory);
        DeleteObject(bitmap);
    }

    native::HeadlessDisplay& display = *native::TheHeadlessDisplay();
    const HBRUSH red = CreateSolidBrush(RGB(255, 0, 0));
    const HBRUSH blue = CreateSolidBrush(RGB(0, 0, 255));
};

}  // namespace

TEST_F(OnDisplay, PaintedPixelsArePresented)
{
    const PlatformWindow window(Filled(Popup("w", {100, 100, 140, 120}), red));
    EXPECT_EQ(display.PixelAt({100, 100}), 0xFF0000U);
    EXPECT_EQ(display.PixelAt({139, 119}), 0xFF0000U);
    EXPECT_EQ(display.PixelAt({140, 119}), 0U);
    ShowWindow(window.Handle(), SW_HIDE);
    EXPECT_EQ(display.PixelAt({100, 100}), 0U);
}

TEST_F(OnDisplay, NothingIsPresentedWithoutDrawing)
{
    const PlatformWindow window(Filled(Popup("w", {100, 100, 140, 120}), red));
    Pump();
    const int before = Shown(window).presented;
    Pump();
    SendMessageA(window.Handle(), WM_APP, 0, 0);
    MoveWindow(window.Handle(), 110, 100, 40, 20, TRUE);
    Pump();
    EXPECT_EQ(Shown(window).presented, before);
    InvalidateRect(window.Handle(), nullptr, FALSE);
    Pump();
    EXPECT_EQ(Shown(window).presented, before + 1);
}

TEST_F(OnDisplay, GrownWindowsKeepWhatTheyShow)
{
    const PlatformWindow window(Filled(Popup("w", {100, 100, 140, 120}), red));
    MoveWindow(window.Handle(), 100, 100, 80, 20, TRUE);
    EXPECT_EQ(display.PixelAt({105, 105}), 0xFF0000U) << "before the new strip is painted";
    Pump();
    EXPECT_EQ(display.PixelAt({179, 119}), 0xFF0000U);
}

TEST_F(OnDisplay, TitlePlaceAndKindAreKnown)
{
    PlatformWindowOptions options = Popup("title", {10, 20, 110, 70});
    options.style = WS_POPUP | WS_THICKFRAME;
    const PlatformWindow window(options);
    const auto& shown = Shown(window);
    EXPECT_EQ(shown.Title(), "title");
    SetWindowTextA(window.Handle(), "other");
    EXPECT_EQ(shown.Title(), "other");
    EXPECT_EQ(shown.screen.right, 110);
    EXPECT_TRUE(shown.options.isSizable);
    EXPECT_FALSE(shown.options.isDecorated);
    EXPECT_FALSE(shown.options.isPopup);
    EXPECT_EQ(display.Active(), window.Handle());
    options.exStyle = WS_EX_NOACTIVATE;
    options.parent = window.Handle();
    const PlatformWindow tip(options);
    EXPECT_TRUE(Shown(tip).options.isPassive);
    EXPECT_EQ(Shown(tip).options.owner, window.Handle());
    EXPECT_EQ(display.Active(), window.Handle());
}

TEST_F(OnDisplay, StackingIsThatOfTheWindows)
{
    const PlatformWindow lower(Filled(Popup("lower", {100, 100, 140, 140}), red));
    const PlatformWindow upper(Filled(Popup("upper", {120, 100, 160, 140}), blue));
    EXPECT_EQ(display.PixelAt({130, 110}), 0x0000FFU);
    SetActiveWindow(lower.Handle());
    EXPECT_EQ(display.PixelAt({130, 110}), 0xFF0000U);
    SetWindowPos(lower.Handle(), HWND_BOTTOM, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
    EXPECT_EQ(display.PixelAt({130, 110}), 0x0000FFU);
}

TEST_F(OnDisplay, OwnedPopupsStayAboveTheirActivatedOwner)
{
    const PlatformWindow owner(Filled(Popup("owner", {100, 100, 140, 140}), red));
    PlatformWindowOptions options = Hidden(Filled(Popup("tip", {120, 100, 160, 140}), blue));
    options.parent = owner.Handle();
    options.exStyle = WS_EX_TOOLWINDOW | WS_EX_NOACTIVATE;
    const PlatformWindow tip(options);
    const PlatformWindow other(Filled(Popup("other", {100, 100, 160, 140}), red));
    ShowWindow(tip.Handle(), SW_SHOWNOACTIVATE);
    EXPECT_EQ(display.PixelAt({130, 110}), 0xFF0000U) << "below the window that is active";
    SetActiveWindow(owner.Handle());
    Pump();
    EXPECT_EQ(display.PixelAt({130, 110}), 0x0000FFU);
}

TEST_F(OnDisplay, ShapeCutsTheWindow)
{
    const PlatformWindow lower(Filled(Popup("lower", {100, 100, 140, 140}), red));
    const PlatformWindow upper(Filled(Popup("upper", {100, 100, 140, 140}), blue));
    SetWindowRgn(upper.Handle(), CreateRoundRectRgn(0, 0, 40, 40, 30, 30), TRUE);
    Pump();
    EXPECT_EQ(display.PixelAt({101, 101}), 0xFF0000U);
    EXPECT_EQ(display.PixelAt({120, 120}), 0x0000FFU);
    SetWindowRgn(upper.Handle(), nullptr, TRUE);
    EXPECT_EQ(display.PixelAt({101, 101}), 0x0000FFU);
}

TEST_F(OnDisplay, LayeredPixelsBlendByTheirAlpha)
{
    const PlatformWindow below(Filled(Popup("below", {100, 100, 140, 140}), red));
    PlatformWindowOptions options = Popup("layer", {100, 100, 104, 104});
    options.exStyle = WS_EX_LAYERED;
    const PlatformWindow layer(options);
    std::vector<std::uint32_t> pixels(16, 0);
    pixels[0] = 0xFF0000FF;
    pixels[1] = 0x80000080;
    SetLayer(layer.Handle(), pixels, 255);
    EXPECT_EQ(display.PixelAt({100, 100}), 0x0000FFU);
    EXPECT_EQ(display.PixelAt({101, 100}), 0x7F0080U);
    EXPECT_EQ(display.PixelAt({102, 100}), 0xFF0000U);
    EXPECT_EQ(WindowFromPoint({101, 100}), layer.Handle());
    EXPECT_EQ(WindowFromPoint({102, 100}), below.Handle()) << "what is clear takes no mouse";
    SetLayer(layer.Handle(), pixels, 128);
    EXPECT_EQ(display.PixelAt({100, 100}), 0x7F0080U);
    Pump();
    EXPECT_EQ(display.PixelAt({102, 100}), 0xFF0000U) << "nothing paints over a layer";
}

TEST_F(OnDisplay, LayersWithoutAlphaAreOpaqueOrKeyed)
{
    const PlatformWindow below(Filled(Popup("below", {100, 100, 140, 140}), red));
    PlatformWindowOptions options = Popup("layer", {100, 100, 104, 104});
    options.exStyle = WS_EX_LAYERED;
    const PlatformWindow layer(options);
    std::vector<std::uint32_t> pixels(16, 0x00FF00FF);
    pixels[0] = 0x000000FF;
    SetLayer(layer.Handle(), pixels, 255, ULW_COLORKEY, RGB(255, 0, 255));
    EXPECT_EQ(display.PixelAt({100, 100}), 0x0000FFU);
    EXPECT_EQ(display.PixelAt({101, 100}), 0xFF0000U);
    SetLayer(layer.Handle(), pixels, 255, ULW_OPAQUE);
    EXPECT_EQ(display.PixelAt({101, 100}), 0xFF00FFU);
}

TEST_F(OnDisplay, CursorFollowsSetCursor)
{
    SetCursor(LoadCursorA(nullptr, IDC_HAND));
    EXPECT_EQ(display.CursorShape(), 32649);
    SetCursor(nullptr);
    EXPECT_EQ(display.CursorShape(), 0);
    SetCursor(LoadCursorA(nullptr, IDC_ARROW));
    EXPECT_EQ(display.CursorShape(), 32512);
}

TEST_F(OnDisplay, CaptureIsAskedOfTheDisplay)
{
    PlatformWindow window(Popup("w"));
    SetCapture(window.Handle());
    EXPECT_TRUE(display.IsCaptured());
    window.Destroy();
    EXPECT_FALSE(display.IsCaptured());
}

TEST_F(OnDisplay, PlacesThatTheDisplayDecidesAreTaken)
{
    const PlatformWindow window(Popup("w"));
    Settle();
    native::TheInputSink().OnMoved(window.Handle(), {120, 130, 420, 330});
    EXPECT_THAT(log.Lines({WM_MOVE, WM_SIZE}), ElementsAre("w WM_MOVE", "w WM_SIZE"));
    RECT rect{};
    GetWindowRect(window.Handle(), &rect);
    EXPECT_EQ(rect.left, 120);
    EXPECT_EQ(rect.bottom, 330);
}

TEST_F(OnDisplay, CloseRequestIsASystemCommand)
{
    PlatformWindow window(Popup("w"));
    window.SetHandler([](const LoggedMessage& message) -> std::optional<LRESULT> {
        return message.message == WM_CLOSE ? std::optional<LRESULT>(0) : std::nullopt;
    });
    Settle();
    native::TheInputSink().OnClose(window.Handle());
    Pump();
    EXPECT_THAT(log.Lines({WM_SYSCOMMAND, WM_CLOSE}), ElementsAre("w WM_SYSCOMMAND", "w WM_CLOSE"));
    EnableWindow(window.Handle(), FALSE);
    log.Clear();
    native::TheInputSink().OnClose(window.Handle());
    Pump();
    EXPECT_EQ(log.Count(WM_SYSCOMMAND), 0) << "a disabled window waits for another one";
}

TEST_F(OnDisplay, MinimisedWindowsComeBackThroughTheDisplay)
{
    const PlatformWindow window(Filled(Popup("w", {100, 100, 140, 120}), red));
    ShowWindow(window.Handle(), SW_MINIMIZE);
    EXPECT_TRUE(Shown(window).isMinimised);
    EXPECT_EQ(display.PixelAt({110, 110}), 0U);
    native::TheInputSink().OnMinimised(window.Handle(), false);
    Pump();
    EXPECT_FALSE(IsIconic(window.Handle()));
    EXPECT_FALSE(Shown(window).isMinimised);
    EXPECT_EQ(display.PixelAt({110, 110}), 0xFF0000U);
    native::TheInputSink().OnMinimised(window.Handle(), true);
    EXPECT_TRUE(IsIconic(window.Handle()));
}

TEST_F(OnDisplay, AnswersForAClipboardAndScreens)
{
    display.SetClipboardText("text");
    EXPECT_EQ(display.ClipboardText(), "text");
    EXPECT_EQ(GetSystemMetrics(SM_CXSCREEN), display.ScreenSize().cx);
}
