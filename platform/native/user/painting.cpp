#include "native/user/painting.h"

#include <algorithm>
#include <deque>

#include "native/user/queue.h"
#include "native/user/window_tree.h"

namespace qvui::native {
namespace {

// The windows that have something to paint, in the order in which that came up. Those that have been painted
// or destroyed since are dropped when they are met.
std::deque<HWND>& Listed()
{
    static auto& windows = *new std::deque<HWND>();
    return windows;
}

void Mark(Window& window, const Region& area, bool erase)
{
    window.paint.region.Unite(area);
    window.paint.needsErase = window.paint.needsErase || erase;
    if (!std::exchange(window.paint.isListed, true))
        Listed().push_back(window.handle);
}

// `area` lies inside the window, which shows.
void MarkWithChildren(Window& window, const Region& area, bool erase, ChildPaint children)
{
    if (window.isRedrawOff)
        return;
    Mark(window, area, erase);
    if (children == ChildPaint::None ||
        (children == ChildPaint::AsStyled && (window.style & WS_CLIPCHILDREN)))
        return;
    for (const HWND handle : window.children) {
        Window* child = LookUpWindow(handle);
        if (!child || !child->IsVisible() || !area.Meets(child->rect))
            continue;
        Region part = area;
        part.Offset(-child->rect.left, -child->rect.top);
        part.Intersect(Region(child->Client()));
        MarkWithChildren(*child, part, erase, children);
    }
}

// A parent is painted before its children, which draw on top of it.
HWND TopmostPendingAncestor(HWND handle)
{
    HWND result = handle;
    for (const Window* at = LookUpWindow(handle); at && at->IsChild();) {
        at = LookUpWindow(at->parent);
        if (at && !at->paint.region.IsEmpty())
            result = at->handle;
    }
    return result;
}

bool HasPaint(HWND handle)
{
    Window* window = LookUpWindow(handle);
    if (!window)
        return false;
    if (!window->paint.region.IsEmpty() && IsShown(*window))
        return true;
    window->paint = {};
    return false;
}

}  // namespace

void Invalidate(Window& window, const Region& area, bool erase, ChildPaint children)
{
    Region marked = area;
    marked.Intersect(Region(window.Client()));
    if (!marked.IsEmpty() && IsShown(window))
        MarkWithChildren(window, marked, erase, children);
}

void InvalidateTree(Window& window)
{
    if (!IsShown(window))
        return;
    window.paint.needsFrame = true;
    if (!IsEmptyRect(window.Client()))
        Mark(window, Region(window.Client()), true);
    for (const HWND child : window.children)
        if (Window* below = LookUpWindow(child); below && below->IsVisible())
            InvalidateTree(*below);
}

void Validate(Window& window, const Region& area)
{
    window.paint.region.Subtract(area);
    if (window.paint.region.IsEmpty())
        window.paint.needsErase = window.paint.wasRefused = window.paint.needsFrame = false;
}

void ForgetPaint(Window& window)
{
    Validate(window, window.paint.region);
    for (const HWND child : window.children)
        if (Window* below = LookUpWindow(child))
            ForgetPaint(*below);
}

void EraseNow(HWND handle)
{
    Window* window = LookUpWindow(handle);
    if (!window || window->paint.region.IsEmpty() || !IsShown(*window))
        return;
    if (std::exchange(window->paint.needsFrame, false))
        SendMessageA(handle, WM_NCPAINT, 1, 0);
    if ((window = LookUpWindow(handle)) == nullptr || !std::exchange(window->paint.needsErase, false))
        return;
    Region area = VisibleRegion(*window, Extent::Own);
    area.Intersect(window->paint.region);
    const RECT bounds = area.Bounds();
    const HDC dc = OpenDeviceContext(RootOf(*window)->surface, OriginInRoot(*window), std::move(area));
    const bool isErased = SendMessageA(handle, WM_ERASEBKGND, reinterpret_cast<WPARAM>(dc), 0) != 0;
    CloseDeviceContext(dc);
    if ((window = LookUpWindow(handle)) == nullptr)
        return;
    window->paint.wasRefused = window->paint.wasRefused || !isErased;
    if (isErased)
        PresentDamage(*window, bounds);
}

HWND NextToPaint(HWND within)
{
    std::deque<HWND>& listed = Listed();
    const MessageFilter filter{within, 0, 0};
    for (std::size_t i = 0; i < listed.size();) {
        if (!HasPaint(listed[i])) {
            listed.erase(listed.begin() + static_cast<std::ptrdiff_t>(i));
            continue;
        }
        const HWND candidate = TopmostPendingAncestor(listed[i]);
        if (filter.AcceptsWindow(candidate))
            return candidate;
        ++i;
    }
    return nullptr;
}

void PresentDamage(Window& window, const RECT& client)
{
    Window* root = RootOf(window);
    if (!root->surface || !root->IsVisible())
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

namespace {

// The area of a call: a region, a rectangle, or all of the window.
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
    // Most of what is marked is marked already, when controls change one after another.
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
