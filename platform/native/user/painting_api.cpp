// Exported functions for invalidating, validating and updating windows.

#include "native/user/desktop.h"
#include "native/user/painting.h"
#include "native/user/window_tree.h"

using namespace qvui::native;

namespace {

// The area that a call refers to: a region, a rectangle, or the whole client area.
std::optional<Region> AreaOf(const Window& window, const RECT* rect, HRGN region)
{
    if (!region)
        return Region(rect ? *rect : window.Client());
    const auto shape = FindGdiObject<RegionObject>(region);
    return shape ? std::optional(shape->region) : std::nullopt;
}

ChildPaint ChildPaintOf(UINT flags)
{
    return flags & RDW_ALLCHILDREN  ? ChildPaint::All
           : flags & RDW_NOCHILDREN ? ChildPaint::None
                                    : ChildPaint::AsStyled;
}

void UpdateTree(HWND handle, ChildPaint children)
{
    UpdateWindow(handle);
    const Window* window = LookUpWindow(handle);
    if (!window || children == ChildPaint::None)
        return;
    const std::vector<HWND> below = window->children;
    for (const HWND child : below)
        UpdateTree(child, children);
}

}  // namespace

BOOL RedrawWindow(HWND handle, const RECT* rect, HRGN region, UINT flags)
{
    Window* window = LookUpWindow(handle);
    const std::optional<Region> area = window ? AreaOf(*window, rect, region) : std::nullopt;
    if (!area)
        return FALSE;
    if (flags & RDW_INVALIDATE) {
        Invalidate(*window, *area, (flags & RDW_ERASE) != 0, ChildPaintOf(flags));
        window->paint.needsFrame =
            window->paint.needsFrame || ((flags & RDW_FRAME) && !window->paint.region.IsEmpty());
    } else if (flags & RDW_VALIDATE) {
        Validate(*window, *area);
    }
    if (flags & RDW_UPDATENOW)
        UpdateTree(handle, ChildPaintOf(flags));
    else if (flags & RDW_ERASENOW)
        EraseNow(handle);
    return TRUE;
}

BOOL InvalidateRect(HWND window, const RECT* rect, BOOL erase)
{
    // Fast path: when controls change one after another, most areas are already invalid.
    if (const Window* const known = rect ? LookUpWindow(window) : nullptr;
        known && known->children.empty() && (known->paint.needsErase || !erase) &&
        known->paint.region.Holds(*rect))
        return TRUE;
    return RedrawWindow(window, rect, nullptr, RDW_INVALIDATE | (erase ? RDW_ERASE : 0));
}

BOOL InvalidateRgn(HWND window, HRGN region, BOOL erase)
{
    return RedrawWindow(window, nullptr, region, RDW_INVALIDATE | (erase ? RDW_ERASE : 0));
}

BOOL ValidateRect(HWND window, const RECT* rect)
{
    return RedrawWindow(window, rect, nullptr, RDW_VALIDATE);
}

BOOL UpdateWindow(HWND handle)
{
    const Window* window = LookUpWindow(handle);
    if (!window)
        return FALSE;
    if (!window->paint.region.IsEmpty() && IsShown(*window))
        SendMessageA(handle, WM_PAINT, 0, 0);
    return TRUE;
}

BOOL GetUpdateRect(HWND handle, RECT* rect, BOOL)
{
    const Window* window = LookUpWindow(handle);
    if (!window)
        return FALSE;
    if (rect)
        *rect = window->paint.region.Bounds();
    return !window->paint.region.IsEmpty();
}
