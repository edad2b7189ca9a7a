#pragma once

#include <deque>
#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "native/kernel/cursor_file.h"
#include "native/user/input.h"
#include "native/user/menus.h"
#include "native/user/window.h"

namespace qvui::native {

struct CursorObject {
    int systemCursor = 0;
    bool isShared = false;
    CursorImage image;
};

/// A request of TrackMouseEvent.
struct Tracking {
    HWND window = nullptr;  // null if there is no request
    bool leave = false;
    bool hover = false;
    DWORD hoverTime = 0;        // milliseconds
    std::int64_t hoverDue = 0;  // time of the clock in nanoseconds
    POINT restsAt{};
};

/// The text of the last key message that was removed, for TranslateMessage.
struct TypedKey {
    WPARAM key = 0;
    DWORD time = 0;
    std::string text;  // UTF-8
};

/// The previous button press, for detecting double clicks.
struct LastPress {
    HWND window = nullptr;
    int button = 0;
    POINT at{};
    DWORD time = 0;
};

struct PostedMessages {
    std::deque<MSG> posted;
    bool hasQuit = false;
    int exitCode = 0;
    POINT lastPoint{};  // pointer position at the last message that was removed
    DWORD lastTime = 0;
};

struct Timer {
    HWND window;
    UINT_PTR id;
    std::int64_t period;  // nanoseconds
    std::int64_t due;
    TIMERPROC procedure;
};

/// The caret, which marks the text insertion position.
struct CaretState {
    HWND window = nullptr;       // null if there is no caret
    RECT rect{};                 // client coordinates
    int hidden = 0;              // number of HideCaret calls without a matching ShowCaret
    bool isOn = false;           // in the visible half of its blink period
    std::int64_t toggleDue = 0;  // time of the clock in nanoseconds
};

/// What an input method is composing, as it is shown.
struct CompositionState {
    std::vector<std::uint32_t> pixels;  // row by row; empty while nothing is composed
    int width = 0;
    int height = 0;
};

/// An entry of the clipboard.
struct ClipboardItem {
    UINT format;
    HGLOBAL block;
};
struct ClipboardState {
    bool isOpen = false;
    bool isChanged = false;  // since it was opened
    std::vector<ClipboardItem> items;
    std::string desktopText;  // UTF-8, the desktop's text when the items were created
};

/// A window's device context; what was drawn on it is presented when it closes.
struct OpenContext {
    HWND window;
    RECT area;  // client coordinates
};

/// The state shared by all windows of a process: one object, created on first use and never destroyed,
/// because static objects may use their windows while the process exits. It holds only data; the functions
/// for each part are in the source files named after it.
struct Desktop {
    // Windows and their classes
    HandleTable<Window, 6> windows;
    std::vector<HWND> topLevel;  // topmost first
    std::vector<std::shared_ptr<WindowClass>> classes;
    ATOM lastClassAtom = 0xC000;
    std::vector<std::string> registeredMessages;

    // The active window and the focus
    HWND active = nullptr;
    HWND focus = nullptr;
    HWND leaving = nullptr;  // the window that is currently told that it is being deactivated

    // Input
    std::deque<InputEvent> events;  // reported by the display, not yet removed
    InputState input;
    bool pointerMayHaveMoved = false;
    HWND seenUnderPointer = nullptr;  // the topmost window under the pointer at the last check
    HWND underPointer = nullptr;      // the window that received the last mouse move
    Tracking tracking;
    LastPress lastPress;
    TypedKey typed;
    bool isAltAlone = false;  // Alt is down and no other key has been pressed since
    HandleTable<CursorObject, 7> cursors;
    std::vector<std::pair<int, HCURSOR>> systemCursors;
    HCURSOR cursor = nullptr;
    CaretState caret;
    CompositionState composition;
    ClipboardState clipboard;
    HandleTable<Menu, 8> menus;

    // Pending work
    PostedMessages messages;
    std::vector<Timer> timers;  // in the order in which they are due
    UINT_PTR nextFreeTimer = 0x7000;
    std::deque<HWND> toPaint;  // in the order of invalidation; may include windows that need no painting any
                               // more
    std::map<HDC, OpenContext> openContexts;
};
Desktop& TheDesktop();

/// Returns the window of a handle, or null.
Window* LookUpWindow(HWND window);

}  // namespace qvui::native
