#include "native/user/painting.h"

#include <algorithm>
#include <deque>

#include "native/user/caret_overlay.h"
#include "native/user/composition_overlay.h"
#include "native/user/desktop.h"
#include "native/user/message_filter.h"
#include "native/user/window_tree.h"

namespace qvui::native {
namespace {

void Mark(Window& window, const Region& area, bool erase)
{
    window.paint.region.Unite(area);
    window.paint.needsErase = window.paint.needsErase || erase;
    if (!std::exchange(window.paint.isListed, true))
        TheDesktop().toPaint.push_back(window.handle);
}

// `area` must lie inside the window, and the window must be visible.
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

// Parents are painted before their children, which draw on top of them.
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
    std::deque<HWND>& listed = TheDesktop().toPaint;
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
    if (IsEmptyRect(damage))
        return;
    const CaretOverlay caret(*root, damage);
    const CompositionOverlay composition(*root, damage);
    TheDisplay().Present(root->handle, *root->surface, damage);
}

}  // namespace qvui::native
