#pragma once

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include <qvui/platform/native/kernel.h>
#include <qvui/platform/native/user.h>

#include "native/core/handle_table.h"
#include "native/display/display.h"
#include "native/gdi/device_context.h"

namespace qvui::native {

struct WindowClass {
    std::string name;
    WNDCLASSEXA definition{};
};

/// One window. Children are listed from the topmost down and owned by the handle table.
struct Window {
    HWND handle = nullptr;
    std::shared_ptr<WindowClass> windowClass;
    WNDPROC procedure = nullptr;
    DWORD style = 0;
    DWORD exStyle = 0;
    HWND parent = nullptr;  // of a child
    HWND owner = nullptr;   // of a popup
    std::vector<HWND> children;
    RECT rect{};      // in the parent's client area, or on the screen
    RECT restored{};  // before it was maximised or minimised
    std::string title;
    LONG_PTR id = 0;
    LONG_PTR userData = 0;
    std::map<int, LONG_PTR> extra;
    std::shared_ptr<Surface> surface;  // top-level windows only
    Region update;                     // client coordinates, waiting for WM_PAINT
    bool needsErase = false;
    std::optional<Region> shape;
    bool wasShown = false;
    bool isBeingDestroyed = false;

    bool IsChild() const { return (style & WS_CHILD) != 0; }
    int Width() const { return rect.right - rect.left; }
    int Height() const { return rect.bottom - rect.top; }
};

HandleTable<Window, 6>& Windows();
/// The window of a handle, or null.
Window* LookUpWindow(HWND window);
/// Top-level windows from the topmost down.
std::vector<HWND>& TopLevelWindows();

/// The list that a window stands in: its parent's children or the top-level windows.
std::vector<HWND>& SiblingsOf(const Window& window);
/// The top-level window that a window stands in (itself for one).
Window* RootOf(Window& window);
/// A window's client origin on the screen.
POINT ScreenOrigin(const Window& window);
/// Whether the window and all its ancestors are shown.
bool IsShown(const Window& window);
/// The part of a window that shows, in its client coordinates.
Region VisibleRegion(const Window& window);

/// The window at a point of the screen that is shown and enabled to take the mouse, children first; null for none.
HWND WindowAt(POINT screen);

// Changes that several rooms of the layer make or follow.
void MarkForPaint(Window& window, const Region& region, bool erase);
void ForgetWindow(HWND window);      // every list of handles drops it
void ActivateWindow(HWND window, int how);
void ActivateNextTo(HWND leaving);   // when the active window hides or goes
void RemoveTimersOf(HWND window);
void RemoveMessagesOf(HWND window);
void PresentDamage(Window& window, const RECT& client);
void PointerMayHaveMoved();          // a window appeared or went under the pointer
void FocusLeaves(HWND hidden);       // a window with the focus was hidden or disabled
LRESULT CallProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

}  // namespace qvui::native
