#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include <qvui/platform/native/kernel.h>
#include <qvui/platform/native/user.h>

#include "native/gdi/region.h"
#include "native/gdi/surface.h"

namespace qvui::native {

/// How a top-level window wants to appear.
struct SurfaceOptions {
    bool isDecorated = false;  // the display draws caption and borders around it
    bool isSizable = false;
    bool isPopup = false;    // takes no place in a task list
    bool isPassive = false;  // a popup that never takes the keyboard, not even when it is shown
    bool isLayered = false;  // its pixels carry (premultiplied) alpha
    HWND owner = nullptr;    // the window that it belongs to
    std::string title;       // UTF-8
};

/// One of the screens that the desktop spans.
struct Screen {
    RECT bounds{};
    RECT workArea{};  // without what belongs to the desktop itself, like its task bar
};

/// What a display driver reports; coordinates are screen pixels. The user layer implements it.
class InputSink {
public:
    virtual ~InputSink() = default;
    virtual void OnPointer(POINT screen) = 0;
    virtual void OnPointerLeft() = 0;
    /// `button`: VK_LBUTTON, VK_RBUTTON or VK_MBUTTON.
    virtual void OnButton(int button, bool isDown) = 0;
    /// In units of WHEEL_DELTA per notch; positive away from the user.
    virtual void OnWheel(int delta) = 0;
    virtual void OnKey(int virtualKey, bool isDown) = 0;
    /// Text that was typed, UTF-8: right after the press that typed it, or by itself from an input method.
    virtual void OnText(const std::string& utf8) = 0;
    virtual void OnMoved(HWND window, const RECT& screen) = 0;
    virtual void OnMinimised(HWND window, bool isMinimised) = 0;
    virtual void OnClose(HWND window) = 0;
    /// The display gave the keyboard to one of our windows, or took it away (null).
    virtual void OnActivated(HWND window) = 0;
    virtual void OnExposed(HWND window) = 0;
};

/// What stands between the window system here and the screen. A driver shows surfaces and reports input; it
/// knows nothing of messages, focus or paint order. Windows are named by their handles.
class Display {
public:
    virtual ~Display() = default;

    virtual void Open(HWND window, const RECT& screen, const SurfaceOptions& options) = 0;
    virtual void Close(HWND window) = 0;
    virtual void Move(HWND window, const RECT& screen) = 0;
    virtual void Show(HWND window, bool isShown) = 0;
    virtual void Minimise(HWND window, bool isMinimised) = 0;
    /// Puts a window above all others; the keyboard stays where it is.
    virtual void Raise(HWND window) = 0;
    /// Gives a window the keyboard.
    virtual void Activate(HWND window) = 0;
    virtual void SetTitle(HWND window, const std::string& utf8) = 0;
    /// Gives the window an outline; null takes it away.
    virtual void SetShape(HWND window, const Region* shape) = 0;
    virtual void SetOpacity(HWND window, std::uint8_t alpha) = 0;
    /// Shows a part of the window's surface, in window coordinates.
    virtual void Present(HWND window, const Surface& surface, const RECT& damage) = 0;
    /// A system cursor's number (IDC_*), 0 for none.
    virtual void SetCursorShape(int systemCursor) = 0;
    /// A cursor of its own pixels (straight alpha).
    virtual void SetCursorImage(const Surface& pixels, POINT hotSpot) = 0;
    /// Where the pointer is, also while it is over none of our windows.
    virtual POINT Pointer() = 0;
    virtual void SetPointer(POINT screen) = 0;
    virtual void Capture(bool isCaptured) = 0;
    virtual std::string ClipboardText() = 0;
    virtual void SetClipboardText(const std::string& utf8) = 0;
    /// Reports input until there was some or `milliseconds` (-1: no limit) have passed.
    virtual void Wait(int milliseconds, InputSink& sink) = 0;
    virtual SIZE ScreenSize() = 0;
    /// The main screen first; never empty.
    virtual std::vector<Screen> Screens()
    {
        const SIZE size = ScreenSize();
        return {{{0, 0, size.cx, size.cy}, {0, 0, size.cx, size.cy}}};
    }
};

/// The driver in use; chosen at the first call.
Display& TheDisplay();
/// Puts a driver in place of the chosen one, before any window exists.
void UseDisplay(std::unique_ptr<Display> display);
/// Where drivers report to.
InputSink& TheInputSink();

std::unique_ptr<Display> MakeHeadlessDisplay();
/// Null when no screen can be reached.
std::unique_ptr<Display> MakeSdlDisplay();

}  // namespace qvui::native
