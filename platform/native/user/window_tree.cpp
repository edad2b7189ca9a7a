#include "native/user/window_tree.h"

#include <algorithm>

#include "native/user/desktop.h"

namespace qvui::native {
namespace {

bool IsOwnedBy(HWND window, HWND owner)
{
    for (const Window* at = LookUpWindow(window); at && at->owner; at = LookUpWindow(at->owner))
        if (at->owner == owner)
            return true;
    return false;
}

void SetTopmost(Window& window, bool isTopmost)
{
    window.exStyle = isTopmost ? window.exStyle | WS_EX_TOPMOST : window.exStyle & ~WS_EX_TOPMOST;
}

bool IsTopmostHandle(HWND handle)
{
    const Window* window = LookUpWindow(handle);
    return window && window->IsTopmost();
}

// Applies a changed z-order to the display: windows at the bottom that did not change stay, the others are
// raised in order.
void ShowOrder(const std::vector<HWND>& before, const std::vector<HWND>& now)
{
    auto old = before.rbegin();
    auto at = now.rbegin();
    while (at != now.rend() && old != before.rend() && *at == *old) {
        ++at;
        ++old;
    }
    for (; at != now.rend(); ++at)
        if (const Window* window = LookUpWindow(*at); window && window->IsVisible())
            TheDisplay().Raise(*at);
}

// Windows that are reordered together: the window and the windows that it owns in front, then the rest of its
// ownership chain.
struct Group {
    std::vector<HWND> front;
    std::vector<HWND> behind;
};

Group TakeGroup(std::vector<HWND>& order, Window& window)
{
    const HWND rootOwner = RootOwnerOf(window)->handle;
    Group group;
    for (const HWND handle : order)
        if (handle == window.handle || IsOwnedBy(handle, window.handle))
            group.front.push_back(handle);
        else if (handle == rootOwner || IsOwnedBy(handle, rootOwner))
            group.behind.push_back(handle);
    std::erase_if(order, [&](HWND handle) {
        return std::find(group.front.begin(), group.front.end(), handle) != group.front.end() ||
               std::find(group.behind.begin(), group.behind.end(), handle) != group.behind.end();
    });
    return group;
}

// Topmost windows stay above all others, whatever position was requested.
void SplitBands(std::vector<HWND>& order)
{
    std::stable_partition(order.begin(), order.end(), IsTopmostHandle);
}

void RestackTopLevel(Window& window, HWND insertAfter)
{
    std::vector<HWND>& order = TheDesktop().topLevel;
    Window* const neighbour = LookUpWindow(insertAfter);
    if (neighbour && RootOwnerOf(*neighbour) == RootOwnerOf(window))
        return;  // owners and owned windows keep their relative order
    Group group = TakeGroup(order, window);
    if (insertAfter == HWND_TOPMOST || insertAfter == HWND_NOTOPMOST || insertAfter == HWND_BOTTOM)
        for (const HWND member : group.front)
            SetTopmost(*LookUpWindow(member), insertAfter == HWND_TOPMOST);
    group.front.insert(group.front.end(), group.behind.begin(), group.behind.end());
    auto at = order.begin();
    if (insertAfter == HWND_BOTTOM) {
        at = order.end();
    } else if (const auto above = std::find(order.begin(), order.end(), insertAfter); above != order.end()) {
        at = above + 1;
    }
    order.insert(at, group.front.begin(), group.front.end());
    SplitBands(order);
}

void RestackChild(Window& window, HWND insertAfter)
{
    std::vector<HWND>& order = SiblingsOf(window);
    std::erase(order, window.handle);
    const auto above = std::find(order.begin(), order.end(), insertAfter);
    order.insert(insertAfter == HWND_BOTTOM ? order.end()
                 : above == order.end()     ? order.begin()
                                            : above + 1,
                 window.handle);
}

// A layered window can be hit only where it is not fully transparent.
bool IsInside(const Window& window, POINT point)
{
    if (!PtInRect(&window.rect, point))
        return false;
    const POINT inside{point.x - window.rect.left, point.y - window.rect.top};
    if (window.shape && !window.shape->Contains(inside.x, inside.y))
        return false;
    return !window.hasLayer || (window.surface->Get(inside.x, inside.y) >> 24) != 0;
}

void CollectAt(const std::vector<HWND>& windows, POINT point, std::vector<HWND>& found)
{
    for (const HWND handle : windows) {
        const Window* window = LookUpWindow(handle);
        if (!window || !window->IsVisible() || (window->style & (WS_DISABLED | WS_MINIMIZE)) ||
            !IsInside(*window, point))
            continue;
        CollectAt(window->children, {point.x - window->rect.left, point.y - window->rect.top}, found);
        found.push_back(handle);
    }
}

void SubtractShown(Region& region, HWND handle, POINT offset)
{
    const Window* covering = LookUpWindow(handle);
    if (!covering || !covering->IsVisible())
        return;
    RECT covered = covering->rect;
    OffsetRect(&covered, offset.x, offset.y);
    if (region.Meets(covered))
        region.Subtract(Region(covered));
}

}  // namespace

std::vector<HWND>& SiblingsOf(const Window& window)
{
    Window* parent = window.IsChild() ? LookUpWindow(window.parent) : nullptr;
    return parent ? parent->children : TheDesktop().topLevel;
}

Window* RootOf(Window& window)
{
    Window* root = &window;
    while (root->IsChild()) {
        Window* parent = LookUpWindow(root->parent);
        if (!parent)
            break;
        root = parent;
    }
    return root;
}

Window* RootOwnerOf(Window& window)
{
    Window* root = RootOf(window);
    while (Window* owner = LookUpWindow(root->owner))
        root = owner;
    return root;
}

POINT ScreenOrigin(const Window& window)
{
    POINT origin{window.rect.left, window.rect.top};
    for (const Window* at = &window; at->IsChild();) {
        at = LookUpWindow(at->parent);
        if (!at)
            break;
        origin.x += at->rect.left;
        origin.y += at->rect.top;
    }
    return origin;
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

bool IsShown(const Window& window)
{
    for (const Window* at = &window; at; at = at->IsChild() ? LookUpWindow(at->parent) : nullptr)
        if (!at->IsVisible() || (at->style & WS_MINIMIZE))
            return false;
    return true;
}

Region VisibleRegion(const Window& window, Extent extent)
{
    if (!IsShown(window))
        return Region();
    RECT area = window.Client();
    POINT offset{0, 0};
    for (const Window* at = &window; at->IsChild();) {
        const Window* parent = LookUpWindow(at->parent);
        if (!parent)
            break;
        offset.x += at->rect.left;
        offset.y += at->rect.top;
        area = Intersection(area,
                            {-offset.x, -offset.y, parent->Width() - offset.x, parent->Height() - offset.y});
        at = parent;
    }
    Region visible(area);
    if (extent == Extent::Own && (window.style & WS_CLIPCHILDREN))
        for (const HWND child : window.children)
            SubtractShown(visible, child, {0, 0});
    if (window.IsChild() && (window.style & WS_CLIPSIBLINGS))
        for (const HWND sibling : SiblingsOf(window)) {
            if (sibling == window.handle)
                break;
            SubtractShown(visible, sibling, {-window.rect.left, -window.rect.top});
        }
    return visible;
}

void AddToTree(Window& window)
{
    std::vector<HWND>& siblings = SiblingsOf(window);
    siblings.push_back(window.handle);
    if (window.IsChild())
        return;
    if (IsTopmostHandle(window.owner))
        SetTopmost(window, true);
    RestackTopLevel(window, HWND_TOP);
}

void RemoveFromTree(const Window& window)
{
    std::erase(SiblingsOf(window), window.handle);
}

bool Restack(Window& window, HWND insertAfter)
{
    const bool wasTopmost = window.IsTopmost();
    const std::vector<HWND> before = SiblingsOf(window);
    if (insertAfter == window.handle)
        return false;
    if (window.IsChild())
        RestackChild(window, insertAfter);
    else
        RestackTopLevel(window, insertAfter);
    const std::vector<HWND>& now = SiblingsOf(window);
    if (now == before)
        return wasTopmost != window.IsTopmost();
    if (!window.IsChild())
        ShowOrder(before, now);
    return true;
}

std::vector<HWND> WindowsAt(POINT screen)
{
    std::vector<HWND> found;
    for (const HWND handle : TheDesktop().topLevel) {
        const Window* window = LookUpWindow(handle);
        constexpr DWORD kPasses = WS_EX_TRANSPARENT | WS_EX_LAYERED;
        if (!window || !window->IsVisible() || (window->style & WS_MINIMIZE) ||
            (window->exStyle & kPasses) == kPasses || !IsInside(*window, screen))
            continue;
        if (window->style & WS_DISABLED)
            break;
        CollectAt(window->children, {screen.x - window->rect.left, screen.y - window->rect.top}, found);
        found.push_back(handle);
    }
    return found;
}

HWND WindowAt(POINT screen)
{
    const std::vector<HWND> found = WindowsAt(screen);
    return found.empty() ? nullptr : found.front();
}

}  // namespace qvui::native
