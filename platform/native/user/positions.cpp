// Showing, moving and sizing windows.

#include <algorithm>

#include "native/kernel/code_pages.h"
#include "native/user/window.h"

using namespace qvui::native;

namespace {

// Growing keeps what is there and asks only for the new strip, unless the class wants everything.
void ResizeSurface(Window& window, const RECT& old)
{
    const int width = window.Width();
    const int height = window.Height();
    if (!window.IsChild()) {
        auto grown = Surface::Create(std::max(width, 1), std::max(height, 1), 32, false);
        const int rows = std::min(grown->height, window.surface->height);
        const int columns = std::min(grown->width, window.surface->width);
        for (int y = 0; y < rows; ++y)
            window.surface->Load(0, y, columns, grown->Row32(y));
        window.surface = std::move(grown);
    }
    Region fresh(RECT{0, 0, width, height});
    const UINT redraw = window.windowClass->definition.style;
    const bool wholeWidth = (redraw & CS_HREDRAW) && width != old.right - old.left;
    const bool wholeHeight = (redraw & CS_VREDRAW) && height != old.bottom - old.top;
    if (!wholeWidth && !wholeHeight)
        fresh.Subtract(Region(RECT{0, 0, old.right - old.left, old.bottom - old.top}));
    window.update.Intersect(Region(RECT{0, 0, width, height}));
    MarkForPaint(window, fresh, true);
}

void ExposeUnder(const Window& window, const RECT& area)
{
    if (!window.IsChild())
        return;
    if (Window* parent = LookUpWindow(window.parent))
        MarkForPaint(*parent, Region(area), true);
    for (const HWND sibling : SiblingsOf(window)) {
        Window* other = LookUpWindow(sibling);
        if (!other || other == &window)
            continue;
        Region uncovered(area);
        uncovered.Offset(-other->rect.left, -other->rect.top);
        MarkForPaint(*other, uncovered, true);
    }
}

void MarkTree(Window& window)
{
    MarkForPaint(window, Region(RECT{0, 0, window.Width(), window.Height()}), true);
    for (const HWND child : window.children)
        if (Window* below = LookUpWindow(child); below && (below->style & WS_VISIBLE))
            MarkTree(*below);
}

void Restack(Window& window, HWND insertAfter)
{
    std::vector<HWND>& siblings = SiblingsOf(window);
    std::erase(siblings, window.handle);
    const auto below = std::find(siblings.begin(), siblings.end(), insertAfter);
    siblings.insert(below == siblings.end() ? siblings.begin() : below + 1, window.handle);
}

void SetShown(Window& window, bool isShown)
{
    window.style = isShown ? window.style | WS_VISIBLE : window.style & ~WS_VISIBLE;
    if (!window.IsChild())
        TheDisplay().Show(window.handle, isShown);
    if (isShown)
        MarkTree(window);
    else
        ExposeUnder(window, window.rect);
    PointerMayHaveMoved();
}

// The position change itself, between WM_WINDOWPOSCHANGING and WM_WINDOWPOSCHANGED.
void ApplyPosition(Window& window, WINDOWPOS& position, const RECT& old)
{
    window.rect = {position.x, position.y, position.x + position.cx, position.y + position.cy};
    if (!(position.flags & SWP_NOZORDER))
        Restack(window, position.hwndInsertAfter);
    if (!(position.flags & (SWP_NOMOVE | SWP_NOSIZE)) || !(position.flags & SWP_NOMOVE) ||
        !(position.flags & SWP_NOSIZE)) {
        if (!window.IsChild())
            TheDisplay().Move(window.handle, window.rect);
        else
            ExposeUnder(window, old);
    }
    if (!(position.flags & SWP_NOSIZE))
        ResizeSurface(window, old);
    if (position.flags & SWP_SHOWWINDOW)
        SetShown(window, true);
    if (position.flags & SWP_HIDEWINDOW)
        SetShown(window, false);
}

RECT WorkArea()
{
    const SIZE screen = TheDisplay().ScreenSize();
    return {0, 0, screen.cx, screen.cy};
}

void SendFirstSize(HWND handle)
{
    Window* window = LookUpWindow(handle);
    if (!window || window->wasShown)
        return;
    window->wasShown = true;
    if (window->IsChild() || (window->style & WS_POPUP))
        return;
    const WPARAM how = window->style & WS_MAXIMIZE ? SIZE_MAXIMIZED : SIZE_RESTORED;
    const LPARAM size = MAKELPARAM(window->Width(), window->Height());
    const LPARAM corner = MAKELPARAM(window->rect.left, window->rect.top);
    SendMessageA(handle, WM_SIZE, how, size);
    SendMessageA(handle, WM_MOVE, 0, corner);
}

void Resize(HWND handle, const RECT& rect, UINT flags)
{
    SetWindowPos(handle, nullptr, rect.left, rect.top, rect.right - rect.left, rect.bottom - rect.top,
                 flags | SWP_NOZORDER | SWP_FRAMECHANGED);
}

void ChangeState(HWND handle, int command)
{
    Window* window = LookUpWindow(handle);
    const DWORD special = WS_MAXIMIZE | WS_MINIMIZE;
    if (!(window->style & special))
        window->restored = window->rect;
    const UINT show = window->style & WS_VISIBLE ? 0 : SWP_SHOWWINDOW;
    switch (command) {
    case SW_SHOWMAXIMIZED: {
        window->style = (window->style & ~special) | WS_MAXIMIZE;
        RECT area = WorkArea();
        MINMAXINFO limits{};
        limits.ptMaxSize = {area.right, area.bottom};
        SendMessageA(handle, WM_GETMINMAXINFO, 0, reinterpret_cast<LPARAM>(&limits));
        area = {limits.ptMaxPosition.x, limits.ptMaxPosition.y, limits.ptMaxPosition.x + limits.ptMaxSize.x,
                limits.ptMaxPosition.y + limits.ptMaxSize.y};
        Resize(handle, area, show);
        break;
    }
    case SW_MINIMIZE:
    case SW_SHOWMINIMIZED:
        window->style |= WS_MINIMIZE;
        TheDisplay().Show(handle, false);
        SendMessageA(handle, WM_SIZE, SIZE_MINIMIZED, 0);
        ActivateNextTo(handle);
        break;
    default: {
        const bool wasMinimised = (window->style & WS_MINIMIZE) != 0;
        window->style &= ~special;
        if (wasMinimised)
            TheDisplay().Show(handle, true);
        Resize(handle, window->restored, show);
        if (wasMinimised && (window = LookUpWindow(handle)) != nullptr) {
            const LPARAM size = MAKELPARAM(window->Width(), window->Height());
            MarkTree(*window);
            SendMessageA(handle, WM_SIZE, SIZE_RESTORED, size);
        }
    }
    }
}

}  // namespace

BOOL ShowWindow(HWND handle, int command)
{
    Window* window = LookUpWindow(handle);
    if (!window)
        return FALSE;
    const bool wasShown = (window->style & WS_VISIBLE) != 0;
    const bool isSpecial = (window->style & (WS_MAXIMIZE | WS_MINIMIZE)) != 0;
    const bool isChange = command == SW_SHOWMAXIMIZED || command == SW_MINIMIZE || command == SW_SHOWMINIMIZED ||
                          ((command == SW_RESTORE || command == SW_SHOWNORMAL) && isSpecial);
    if (isChange) {
        ChangeState(handle, command);
    } else {
        const bool shows = command != SW_HIDE;
        if (shows == wasShown)
            return wasShown;
        SendMessageA(handle, WM_SHOWWINDOW, shows, 0);
        SetWindowPos(handle, nullptr, 0, 0, 0, 0,
                     SWP_NOMOVE | SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE |
                         static_cast<UINT>(shows ? SWP_SHOWWINDOW : SWP_HIDEWINDOW));
    }
    window = LookUpWindow(handle);
    const bool activates = command != SW_HIDE && command != SW_SHOWNOACTIVATE && command != SW_SHOWNA &&
                           command != SW_MINIMIZE && command != SW_SHOWMINIMIZED;
    if (window && activates && !window->IsChild() && !(window->exStyle & WS_EX_NOACTIVATE))
        ActivateWindow(handle, WA_ACTIVE);
    if (command != SW_HIDE)
        SendFirstSize(handle);
    return wasShown;
}

BOOL SetWindowPos(HWND handle, HWND insertAfter, int x, int y, int width, int height, UINT flags)
{
    Window* window = LookUpWindow(handle);
    if (!window)
        return FALSE;
    const RECT old = window->rect;
    WINDOWPOS position{handle, insertAfter, x, y, width, height, flags};
    if (flags & SWP_NOMOVE) {
        position.x = old.left;
        position.y = old.top;
    }
    if (flags & SWP_NOSIZE) {
        position.cx = window->Width();
        position.cy = window->Height();
    }
    SendMessageA(handle, WM_WINDOWPOSCHANGING, 0, reinterpret_cast<LPARAM>(&position));
    if ((window = LookUpWindow(handle)) == nullptr)
        return FALSE;
    constexpr int kLargest = 32767;
    position.cx = std::clamp(position.cx, 0, kLargest);
    position.cy = std::clamp(position.cy, 0, kLargest);
    if (position.x == old.left && position.y == old.top)
        position.flags |= SWP_NOMOVE;
    if (position.cx == old.right - old.left && position.cy == old.bottom - old.top)
        position.flags |= SWP_NOSIZE;
    if (!(position.flags & SWP_NOSIZE) || (position.flags & SWP_FRAMECHANGED)) {
        NCCALCSIZE_PARAMS sizes{};
        sizes.rgrc[0] = {position.x, position.y, position.x + position.cx, position.y + position.cy};
        sizes.lppos = &position;
        SendMessageA(handle, WM_NCCALCSIZE, TRUE, reinterpret_cast<LPARAM>(&sizes));
        if ((window = LookUpWindow(handle)) == nullptr)
            return FALSE;
    }
    constexpr UINT kNothing = SWP_NOMOVE | SWP_NOSIZE | SWP_NOZORDER;
    if ((position.flags & kNothing) == kNothing &&
        !(position.flags & (SWP_SHOWWINDOW | SWP_HIDEWINDOW | SWP_FRAMECHANGED)))
        return TRUE;
    ApplyPosition(*window, position, old);
    SendMessageA(handle, WM_WINDOWPOSCHANGED, 0, reinterpret_cast<LPARAM>(&position));
    if (position.flags & SWP_HIDEWINDOW) {
        FocusLeaves(handle);
        ActivateNextTo(handle);
    } else if (!(flags & SWP_NOACTIVATE) && (window = LookUpWindow(handle)) != nullptr && !window->IsChild() &&
               (window->style & WS_VISIBLE)) {
        ActivateWindow(handle, WA_ACTIVE);
    }
    return TRUE;
}

BOOL MoveWindow(HWND window, int x, int y, int width, int height, BOOL)
{
    return SetWindowPos(window, nullptr, x, y, width, height, SWP_NOZORDER | SWP_NOACTIVATE);
}

BOOL GetWindowRect(HWND handle, RECT* rect)
{
    const Window* window = LookUpWindow(handle);
    if (!window)
        return FALSE;
    const POINT origin = ScreenOrigin(*window);
    *rect = {origin.x, origin.y, origin.x + window->Width(), origin.y + window->Height()};
    return TRUE;
}

BOOL GetClientRect(HWND handle, RECT* rect)
{
    const Window* window = LookUpWindow(handle);
    if (!window)
        return FALSE;
    *rect = {0, 0, window->Width(), window->Height()};
    return TRUE;
}

BOOL AdjustWindowRectEx(RECT*, DWORD, BOOL, DWORD) { return TRUE; }

BOOL ClientToScreen(HWND handle, POINT* point)
{
    const Window* window = LookUpWindow(handle);
    if (!window)
        return FALSE;
    const POINT origin = ScreenOrigin(*window);
    *point = {point->x + origin.x, point->y + origin.y};
    return TRUE;
}

BOOL ScreenToClient(HWND handle, POINT* point)
{
    const Window* window = LookUpWindow(handle);
    if (!window)
        return FALSE;
    const POINT origin = ScreenOrigin(*window);
    *point = {point->x - origin.x, point->y - origin.y};
    return TRUE;
}

int SetWindowRgn(HWND handle, HRGN region, BOOL redraw)
{
    Window* window = LookUpWindow(handle);
    const auto shape = FindGdiObject<RegionObject>(region);
    if (!window || (region && !shape))
        return 0;
    window->shape = shape ? std::optional<Region>(shape->region) : std::nullopt;
    if (!window->IsChild())
        TheDisplay().SetShape(handle, window->shape ? &*window->shape : nullptr);
    // The window owns the region from now on.
    if (region)
        DeleteObject(region);
    if (redraw)
        InvalidateRect(handle, nullptr, TRUE);
    return 1;
}

int GetWindowRgn(HWND handle, HRGN region)
{
    const Window* window = LookUpWindow(handle);
    const auto target = FindGdiObject<RegionObject>(region);
    if (!window || !target || !window->shape)
        return ERROR;
    target->region = *window->shape;
    return target->region.Complexity();
}
