// Update regions, window device contexts and showing what was drawn.

#include <algorithm>
#include <map>

#include "native/kernel/modules.h"
#include "native/user/window.h"

namespace qvui::native {
namespace {

// What a window's context has to show when it closes.
struct OpenContext {
    HWND window;
    RECT area;  // client coordinates
};

std::map<HDC, OpenContext>& OpenContexts()
{
    static std::map<HDC, OpenContext> contexts;
    return contexts;
}

POINT OriginInRoot(const Window& window)
{
    POINT origin{0, 0};
    for (const Window* at = &window; at && at->IsChild(); at = LookUpWindow(at->parent)) {
        origin.x += at->rect.left;
        origin.y += at->rect.top;
    }
    return origin;
}

HDC OpenWindowContext(Window& window, Region visible, const RECT& area)
{
    const HDC dc = OpenDeviceContext(RootOf(window)->surface, OriginInRoot(window), std::move(visible));
    OpenContexts()[dc] = {window.handle, area};
    return dc;
}

void CloseWindowContext(HDC dc)
{
    const auto open = OpenContexts().find(dc);
    if (open == OpenContexts().end())
        return;
    if (Window* window = LookUpWindow(open->second.window))
        PresentDamage(*window, open->second.area);
    OpenContexts().erase(open);
    CloseDeviceContext(dc);
}

[[maybe_unused]] const bool g_registered = RegisterBuiltInFunction(
    "User32.dll", "UpdateLayeredWindow", reinterpret_cast<FARPROC>(reinterpret_cast<void*>(&UpdateLayeredWindow)));

}  // namespace

void MarkForPaint(Window& window, const Region& region, bool erase)
{
    Region marked = region;
    marked.Intersect(Region(RECT{0, 0, window.Width(), window.Height()}));
    if (marked.IsEmpty() || !IsShown(window))
        return;
    window.update.Unite(marked);
    window.needsErase = window.needsErase || erase;
}

void PresentDamage(Window& window, const RECT& client)
{
    Window* root = RootOf(window);
    if (!root->surface || !(root->style & WS_VISIBLE))
        return;
    RECT damage = client;
    const POINT origin = OriginInRoot(window);
    OffsetRect(&damage, origin.x, origin.y);
    damage = Intersection(damage, {0, 0, root->surface->width, root->surface->height});
    if (!IsEmptyRect(damage))
        TheDisplay().Present(root->handle, *root->surface, damage);
}

}  // namespace qvui::native

using namespace qvui::native;

BOOL InvalidateRect(HWND handle, const RECT* rect, BOOL erase)
{
    Window* window = LookUpWindow(handle);
    if (!window)
        return FALSE;
    MarkForPaint(*window, Region(rect ? *rect : RECT{0, 0, window->Width(), window->Height()}), erase != FALSE);
    return TRUE;
}

BOOL InvalidateRgn(HWND handle, HRGN region, BOOL erase)
{
    Window* window = LookUpWindow(handle);
    const auto shape = FindGdiObject<RegionObject>(region);
    if (!window || (region && !shape))
        return FALSE;
    if (!shape)
        return InvalidateRect(handle, nullptr, erase);
    MarkForPaint(*window, shape->region, erase != FALSE);
    return TRUE;
}

BOOL ValidateRect(HWND handle, const RECT* rect)
{
    Window* window = LookUpWindow(handle);
    if (!window)
        return FALSE;
    window->update.Subtract(Region(rect ? *rect : RECT{0, 0, window->Width(), window->Height()}));
    window->needsErase = window->needsErase && !window->update.IsEmpty();
    return TRUE;
}

BOOL UpdateWindow(HWND handle)
{
    const Window* window = LookUpWindow(handle);
    if (!window)
        return FALSE;
    if (!window->update.IsEmpty() && IsShown(*window))
        SendMessageA(handle, WM_PAINT, 0, 0);
    return TRUE;
}

BOOL GetUpdateRect(HWND handle, RECT* rect, BOOL)
{
    const Window* window = LookUpWindow(handle);
    if (!window)
        return FALSE;
    if (rect)
        *rect = window->update.Bounds();
    return !window->update.IsEmpty();
}

HDC BeginPaint(HWND handle, PAINTSTRUCT* paint)
{
    *paint = {};
    Window* window = LookUpWindow(handle);
    if (!window)
        return nullptr;
    Region area = VisibleRegion(*window);
    area.Intersect(window->update);
    const bool erases = window->needsErase;
    window->update = Region();
    window->needsErase = false;
    paint->rcPaint = area.Bounds();
    paint->hdc = OpenWindowContext(*window, std::move(area), paint->rcPaint);
    paint->fErase = erases && SendMessageA(handle, WM_ERASEBKGND, reinterpret_cast<WPARAM>(paint->hdc), 0) == 0;
    return paint->hdc;
}

BOOL EndPaint(HWND, const PAINTSTRUCT* paint)
{
    CloseWindowContext(paint->hdc);
    return TRUE;
}

HDC GetDC(HWND handle)
{
    Window* window = LookUpWindow(handle);
    if (window)
        return OpenWindowContext(*window, VisibleRegion(*window), {0, 0, window->Width(), window->Height()});
    // The screen itself is not drawn on: a context to measure text with.
    return handle ? nullptr : CreateCompatibleDC(nullptr);
}

HDC GetWindowDC(HWND window) { return GetDC(window); }

int ReleaseDC(HWND, HDC dc)
{
    if (!OpenContexts().contains(dc))
        return DeleteDC(dc);
    CloseWindowContext(dc);
    return 1;
}

BOOL UpdateLayeredWindow(HWND handle, HDC, POINT* position, SIZE* size, HDC source, POINT* sourcePosition, COLORREF,
                         BLENDFUNCTION* blend, DWORD)
{
    Window* window = LookUpWindow(handle);
    if (!window || window->IsChild() || !(window->exStyle & WS_EX_LAYERED))
        return FALSE;
    const RECT old = window->rect;
    const POINT corner = position ? *position : POINT{old.left, old.top};
    const SIZE extent = size ? *size : SIZE{window->Width(), window->Height()};
    SetWindowPos(handle, nullptr, corner.x, corner.y, extent.cx, extent.cy, SWP_NOZORDER | SWP_NOACTIVATE);
    if (source && (window = LookUpWindow(handle)) != nullptr) {
        const HDC dc = OpenDeviceContext(window->surface, {0, 0}, Region(RECT{0, 0, extent.cx, extent.cy}));
        BitBlt(dc, 0, 0, extent.cx, extent.cy, source, sourcePosition ? sourcePosition->x : 0,
               sourcePosition ? sourcePosition->y : 0, SRCCOPY);
        CloseDeviceContext(dc);
        window->update = Region();
        PresentDamage(*window, {0, 0, extent.cx, extent.cy});
    }
    if (blend)
        TheDisplay().SetOpacity(handle, blend->SourceConstantAlpha);
    return TRUE;
}
