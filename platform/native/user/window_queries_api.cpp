// Queries of the window tree.

#include <algorithm>

#include "native/user/desktop.h"
#include "native/user/window_tree.h"

using namespace qvui::native;

HWND GetParent(HWND handle)
{
    const Window* window = LookUpWindow(handle);
    if (!window)
        return nullptr;
    return window->IsChild() ? window->parent : window->style & WS_POPUP ? window->owner : nullptr;
}

HWND GetDesktopWindow()
{
    return nullptr;
}

HWND GetAncestor(HWND handle, UINT which)
{
    Window* window = LookUpWindow(handle);
    if (!window)
        return nullptr;
    if (which == GA_PARENT)
        return window->IsChild() ? window->parent : nullptr;
    return (which == GA_ROOTOWNER ? RootOwnerOf(*window) : RootOf(*window))->handle;
}

HWND GetWindow(HWND handle, UINT relation)
{
    const Window* window = LookUpWindow(handle);
    if (!window)
        return nullptr;
    if (relation == GW_OWNER)
        return window->owner;
    if (relation == GW_CHILD)
        return window->children.empty() ? nullptr : window->children.front();
    const std::vector<HWND>& siblings = SiblingsOf(*window);
    const auto at = std::find(siblings.begin(), siblings.end(), handle);
    switch (relation) {
        case GW_HWNDFIRST:
            return siblings.front();
        case GW_HWNDLAST:
            return siblings.back();
        case GW_HWNDNEXT:
            return at + 1 == siblings.end() ? nullptr : *(at + 1);
        case GW_HWNDPREV:
            return at == siblings.begin() ? nullptr : *(at - 1);
        default:
            return nullptr;
    }
}

BOOL IsChild(HWND parent, HWND handle)
{
    for (const Window* window = LookUpWindow(handle); window && window->IsChild();
         window = LookUpWindow(window->parent))
        if (window->parent == parent)
            return TRUE;
    return FALSE;
}

BOOL IsWindowEnabled(HWND handle)
{
    const Window* window = LookUpWindow(handle);
    return window && !(window->style & WS_DISABLED);
}

BOOL IsWindowVisible(HWND handle)
{
    for (const Window* window = LookUpWindow(handle); window;) {
        if (!window->IsVisible())
            return FALSE;
        if (!window->IsChild())
            return TRUE;
        window = LookUpWindow(window->parent);
    }
    return FALSE;
}

BOOL IsIconic(HWND handle)
{
    const Window* window = LookUpWindow(handle);
    return window && (window->style & WS_MINIMIZE);
}

BOOL IsZoomed(HWND handle)
{
    const Window* window = LookUpWindow(handle);
    return window && (window->style & WS_MAXIMIZE);
}

HWND GetNextDlgTabItem(HWND dialog, HWND control, BOOL previous)
{
    const Window* parent = LookUpWindow(dialog);
    if (!parent)
        return nullptr;
    const std::vector<HWND>& children = parent->children;
    const auto isStop = [](HWND child) {
        const Window* window = LookUpWindow(child);
        return window && (window->style & WS_TABSTOP) && window->IsVisible() &&
               !(window->style & WS_DISABLED);
    };
    const auto count = static_cast<std::ptrdiff_t>(children.size());
    const std::ptrdiff_t from = std::find(children.begin(), children.end(), control) - children.begin();
    // Without a control of this window as starting point, forward starts at the first child and backward at
    // the last.
    const std::ptrdiff_t start = from < count ? from : previous ? count : -1;
    for (std::ptrdiff_t step = 1; step <= count; ++step) {
        const std::ptrdiff_t at = ((previous ? start - step : start + step) + count) % count;
        if (isStop(children[static_cast<std::size_t>(at)]))
            return children[static_cast<std::size_t>(at)];
    }
    return control;
}
