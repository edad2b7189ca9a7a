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

/// Appearance and behaviour of a top-level window.
struct SurfaceOptions {
    bool isDecorated = false;  // the display draws a caption and borders around it
    bool isSizable = false;
    bool isPopup = false;    // not shown in a task list
    bool isPassive = false;  // a popup that never receives the keyboard focus, not even when shown
    bool isLayered = false;  // its pixels have (premultiplied) alpha
    HWND owner = nullptr;    // the window that it belongs to and stays above
    std::string title;       // UTF-8
};

/// One screen of the desktop.
struct Screen {
    RECT bounds{};
    RECT workArea{};  // excludes areas reserved by the desktop, such as a task bar
};

/// Receives the events of a display driver; implemented by the user layer. Coordinates are screen pixels.
class InputSink {
public:
    virtual ~InputSink() = default;
    virtual void OnPointer(POINT screen) = 0;
    virtual void OnPointerLeft() = 0;
    /// `button` is VK_LBUTTON, VK_RBUTTON or VK_MBUTTON.
    virtual void OnButton(int button, bool isDown) = 0;
    /// `delta` is in units of WHEEL_DELTA per notch; positive away from the user.
    virtual void OnWheel(int delta) = 0;
    virtual void OnKey(int virtualKey, bool isDown) = 0;
    /// Typed text, UTF-8: directly after the key press that produced it, or on its own from an input method.
    virtual void OnText(const std::string& utf8) = 0;
    /// The text that an input method is composing, UTF-8, with its caret before the character of the given
    /// index; empty when it is not composing any more.
    virtual void OnComposition(const std::string& utf8, int caret) = 0;
    virtual void OnMoved(HWND window, const RECT& screen) = 0;
    virtual void OnMinimised(HWND window, bool isMinimised) = 0;
    virtual void OnClose(HWND window) = 0;
    /// One of our windows received the keyboard focus, or all of them lost it (null).
    virtual void OnActivated(HWND window) = 0;
    virtual void OnExposed(HWND window) = 0;
};

/// Interface between the user layer and a screen. A driver shows surfaces and reports input; it knows nothing
/// of messages, focus or paint order. Windows are identified by their handles.
class Display {
public:
    virtual ~Display() = default;

    virtual void Open(HWND window, const RECT& screen, const SurfaceOptions& options) = 0;
    virtual void Close(HWND window) = 0;
    virtual void Move(HWND window, const RECT& screen) = 0;
    virtual void Show(HWND window, bool isShown) = 0;
    virtual void Minimise(HWND window, bool isMinimised) = 0;
    /// Raises a window above all others without changing the keyboard focus.
    virtual void Raise(HWND window) = 0;
    /// Gives a window the keyboard focus.
    virtual void Activate(HWND window) = 0;
    virtual void SetTitle(HWND window, const std::string& utf8) = 0;
    /// Clips the window to a shape; null removes the shape.
    virtual void SetShape(HWND window, const Region* shape) = 0;
    virtual void SetOpacity(HWND window, std::uint8_t alpha) = 0;
    /// Shows the part `damage` of the window's surface, in window coordinates.
    virtual void Present(HWND window, const Surface& surface, const RECT& damage) = 0;
    /// Shows a system cursor (IDC_* number), or none for 0.
    virtual void SetCursorShape(int systemCursor) = 0;
    /// Shows an application-defined cursor (straight alpha).
    virtual void SetCursorImage(const Surface& pixels, POINT hotSpot) = 0;
    /// Returns the screen position of the pointer, even if it is over none of our windows.
    virtual POINT Pointer() = 0;
    virtual void SetPointer(POINT screen) = 0;
    virtual void Capture(bool isCaptured) = 0;
    virtual std::string ClipboardText() = 0;
    virtual void SetClipboardText(const std::string& utf8) = 0;
    /// Tells where text is being entered, in window coordinates: an input method shows its candidates beside
    /// it.
    virtual void SetTextArea(HWND window, const RECT& area) = 0;
    /// Ends what an input method is composing, without a result.
    virtual void DropComposition() = 0;
    /// Waits for input and reports it; returns after `milliseconds` (-1: no limit) if there is none.
    virtual void Wait(int milliseconds, InputSink& sink) = 0;
    virtual SIZE ScreenSize() = 0;
    /// Returns the screens, the primary one first; never empty.
    virtual std::vector<Screen> Screens()
    {
        const SIZE size = ScreenSize();
        return {{{0, 0, size.cx, size.cy}, {0, 0, size.cx, size.cy}}};
    }
};

/// Returns the driver in use, which the first call selects.
Display& TheDisplay();
/// Replaces the selected driver. Call before any window exists.
void UseDisplay(std::unique_ptr<Display> display);
/// Returns the sink that drivers report to.
InputSink& TheInputSink();

std::unique_ptr<Display> MakeHeadlessDisplay();
/// Returns null if no screen is available.
std::unique_ptr<Display> MakeSdlDisplay();

}  // namespace qvui::native
