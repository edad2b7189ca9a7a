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

/// What was asked for with TrackMouseEvent.
struct Tracking {
    HWND window = nullptr;  // null: nobody asked
    bool leave = false;
    bool hover = false;
    DWORD hoverTime = 0;        // milliseconds
    std::int64_t hoverDue = 0;  // nanoseconds of the clock
    POINT restsAt{};
};

/// What the key message that was taken out last types, for TranslateMessage.
struct TypedKey {
    WPARAM key = 0;
    DWORD time = 0;
    std::string text;  // UTF-8
};

/// The press that another one may make a double click of.
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
    POINT lastPoint{};  // where the pointer was at the message that was taken out last
    DWORD lastTime = 0;
};

struct Timer {
    HWND window;
    UINT_PTR id;
    std::int64_t period;  // nanoseconds
    std::int64_t due;
    TIMERPROC procedure;
};

/// The blinking mark where text goes in.
struct CaretState {
    HWND window = nullptr;       // null: there is none
    RECT rect{};                 // client coordinates
    int hidden = 0;              // how often it was hidden and not shown again
    bool isOn = false;           // in the half of its period in which it shows
    std::int64_t toggleDue = 0;  // nanoseconds of the clock
};

/// A format on the clipboard.
struct ClipboardItem {
    UINT format;
    HGLOBAL block;
};
struct ClipboardState {
    bool isOpen = false;
    bool isChanged = false;  // since it was opened
    std::vector<ClipboardItem> items;
    std::string desktopText;  // UTF-8, as the desktop had it when the items were made
};

/// What a window's device context has to show when it closes.
struct OpenContext {
    HWND window;
    RECT area;  // client coordinates
};

/// Everything that the windows of a process share: one object, made on first use and never destroyed, because
/// static objects may ask about their windows while the process ends. It holds data alone; what is done with
/// a part of it stands in the source of that name.
struct Desktop {
    // Windows and their classes
    HandleTable<Window, 6> windows;
    std::vector<HWND> topLevel;  // from the topmost down
    std::vector<std::shared_ptr<WindowClass>> classes;
    ATOM lastClassAtom = 0xC000;
    std::vector<std::string> registeredMessages;

    // The active window and the focus
    HWND active = nullptr;
    HWND focus = nullptr;
    HWND leaving = nullptr;  // the window that is being told that it is no longer active

    // Input
    std::deque<InputEvent> events;  // reported by the display and not taken out yet
    InputState input;
    bool pointerMayHaveMoved = false;
    HWND seenUnderPointer = nullptr;  // the frontmost window there when that was last looked at
    HWND underPointer = nullptr;      // the window that last got a move
    Tracking tracking;
    LastPress lastPress;
    TypedKey typed;
    bool isAltAlone = false;  // Alt is down and no other key came since
    HandleTable<CursorObject, 7> cursors;
    std::vector<std::pair<int, HCURSOR>> systemCursors;
    HCURSOR cursor = nullptr;
    CaretState caret;
    ClipboardState clipboard;
    HandleTable<Menu, 8> menus;

    // What waits
    PostedMessages messages;
    std::vector<Timer> timers;  // in the order in which they are due
    UINT_PTR nextFreeTimer = 0x7000;
    std::deque<HWND> toPaint;  // in the order in which that came up; may hold some that need not any more
    std::map<HDC, OpenContext> openContexts;
};
Desktop& TheDesktop();

/// The window of a handle, or null.
Window* LookUpWindow(HWND window);

}  // namespace qvui::native
