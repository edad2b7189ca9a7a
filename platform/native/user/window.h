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
    ATOM atom = 0;
    WNDCLASSEXA definition{};
};

/// The pending painting of a window, in client coordinates.
struct PendingPaint {
    Region region;
    bool needsFrame = false;  // WM_NCPAINT is due
    bool needsErase = false;  // WM_ERASEBKGND is due
    bool wasRefused = false;  // WM_ERASEBKGND was answered with 0
    bool isListed = false;    // the window is in Desktop::toPaint
};

/// A window. Children are listed topmost first and owned by the handle table.
struct Window {
    HWND handle = nullptr;
    std::shared_ptr<WindowClass> windowClass;
    WNDPROC procedure = nullptr;
    DWORD style = 0;
    DWORD exStyle = 0;
    HWND parent = nullptr;  // of a child window
    HWND owner = nullptr;   // of a top-level window
    std::vector<HWND> children;
    RECT rect{};      // in the parent's client area, or in screen coordinates
    RECT restored{};  // rectangle before it was maximised or minimised
    std::string title;
    LONG_PTR id = 0;
    LONG_PTR userData = 0;
    std::map<int, LONG_PTR> extra;
    std::shared_ptr<Surface> surface;  // top-level windows only
    PendingPaint paint;
    std::optional<Region> shape;
    bool wasShown = false;
    bool isRedrawOff = false;
    bool hasLayer = false;  // its pixels were set by UpdateLayeredWindow, including alpha
    bool isBeingDestroyed = false;

    bool IsChild() const { return (style & WS_CHILD) != 0; }
    bool IsVisible() const { return (style & WS_VISIBLE) != 0; }
    bool IsTopmost() const { return (exStyle & WS_EX_TOPMOST) != 0; }
    int Width() const { return rect.right - rect.left; }
    int Height() const { return rect.bottom - rect.top; }
    RECT Client() const { return {0, 0, Width(), Height()}; }
};

}  // namespace qvui::native
