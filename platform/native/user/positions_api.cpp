// Moves, resizes and reorders windows.

#include <algorithm>

#include "native/user/desktop.h"
#include "native/user/focus.h"
#include "native/user/input_queue.h"
#include "native/user/painting.h"
#include "native/user/window_tree.h"

using namespace qvui::native;

namespace {

constexpr UINT kUnmoved = SWP_NOMOVE | SWP_NOSIZE;
constexpr UINT kShowing = SWP_SHOWWINDOW | SWP_HIDEWINDOW;

void GrowSurface(Window& window)
{
    auto grown = Surface::Create(std::max(window.Width(), 1), std::max(window.Height(), 1), 32, false);
    if (!grown)
        return;
    const int rows = std::min(grown->height, window.surface->height);
    const int columns = std::min(grown->width, window.surface->width);
    for (int y = 0; y < rows; ++y)
        window.surface->Load(0, y, columns, grown->Row32(y));
    window.surface = std::move(grown);
}

// The part of the client area whose pixels are kept when the size changes; empty if the class requests a full
// redraw.
RECT KeptBySize(const Window& window, const RECT& old)
{
    const int oldWidth = old.right - old.left;
    const int oldHeight = old.bottom - old.top;
    const UINT redraw = window.windowClass->definition.style;
    if (((redraw & CS_HREDRAW) && window.Width() != oldWidth) ||
        ((redraw & CS_VREDRAW) && window.Height() != oldHeight))
        return {};
    return Intersection(window.Client(), {0, 0, oldWidth, oldHeight});
}

// Moves pixels inside a top-level window's surface. They are copied out first, because the areas may overlap.
void MovePixels(const Surface& surface, Region from, POINT by)
{
    from.Intersect(Region(RECT{0, 0, surface.width, surface.height}));
    struct Strip {
        POINT at;
        std::vector<std::uint32_t> pixels;
    };
    std::vector<Strip> strips;
    for (const pixman_box32_t& box : from.Boxes())
        for (int y = box.y1; y < box.y2; ++y) {
            const int to = y + by.y;
            const int left = std::max(box.x1, -by.x);
            const int right = std::min(box.x2, surface.width - by.x);
            if (to < 0 || to >= surface.height || left >= right)
                continue;
            strips.push_back(
                {{left + by.x, to}, std::vector<std::uint32_t>(static_cast<std::size_t>(right - left))});
            surface.Load(left, y, right - left, strips.back().pixels.data());
        }
    for (const Strip& strip : strips)
        surface.Store(strip.at.x, strip.at.y, static_cast<int>(strip.pixels.size()), strip.pixels.data());
}

// Invalidates the area that a child uncovered in its parent and siblings.
void ExposeBehind(const Window& window, Region uncovered)
{
    Window* parent = window.IsChild() ? LookUpWindow(window.parent) : nullptr;
    if (!parent || uncovered.IsEmpty())
        return;
    Invalidate(*parent, uncovered, true, ChildPaint::None);
    for (const HWND sibling : parent->children) {
        Window* other = LookUpWindow(sibling);
        if (!other || other == &window || !uncovered.Meets(other->rect))
            continue;
        Region part = uncovered;
        part.Offset(-other->rect.left, -other->rect.top);
        Invalidate(*other, part, true, ChildPaint::All);
    }
}

// Moves a child's pixels as far as they were visible before and are visible now; the rest is invalidated.
void MoveChild(Window& window, const Region& shownBefore, const RECT& old)
{
    const RECT kept = KeptBySize(window, old);
    Region showsNow = VisibleRegion(window, Extent::Whole);
    Region keeps = shownBefore;
    keeps.Intersect(Region(kept));
    keeps.Intersect(showsNow);
    const POINT by{window.rect.left - old.left, window.rect.top - old.top};
    if ((by.x || by.y) && !keeps.IsEmpty()) {
        const POINT origin = OriginInRoot(window);
        Region from = keeps;
        from.Offset(origin.x - by.x, origin.y - by.y);
        MovePixels(*RootOf(window)->surface, std::move(from), by);
        PresentDamage(window, keeps.Bounds());
    }
    showsNow.Subtract(keeps);
    Invalidate(window, showsNow, true, ChildPaint::All);
    Region uncovered(old);
    uncovered.Subtract(Region(window.rect));
    ExposeBehind(window, std::move(uncovered));
}

void MoveTopLevel(Window& window, const RECT& old)
{
    TheDisplay().Move(window.handle, window.rect);
    if (window.Width() == old.right - old.left && window.Height() == old.bottom - old.top)
        return;
    GrowSurface(window);
    PresentDamage(window, window.Client());
    Region fresh(window.Client());
    fresh.Subtract(Region(KeptBySize(window, old)));
    window.paint.needsFrame = window.paint.needsFrame || !fresh.IsEmpty();
    Invalidate(window, fresh, true, ChildPaint::AsStyled);
}

void ApplyRectangle(Window& window, const WINDOWPOS& position, RECT old)
{
    const Region shownBefore = window.IsChild() ? VisibleRegion(window, Extent::Whole) : Region();
    window.rect = {position.x, position.y, position.x + position.cx, position.y + position.cy};
    Region outside = window.paint.region;
    outside.Subtract(Region(window.Client()));
    Validate(window, outside);
    if (window.IsChild())
        MoveChild(window, shownBefore, old);
    else
        MoveTopLevel(window, old);
}

// A raised child becomes visible where it was covered; a lowered child uncovers its siblings.
void ApplyOrder(Window& window, HWND insertAfter)
{
    Region before = window.IsChild() ? VisibleRegion(window, Extent::Whole) : Region();
    if (!Restack(window, insertAfter) || !window.IsChild() || !(window.style & WS_CLIPSIBLINGS))
        return;
    Region now = VisibleRegion(window, Extent::Whole);
    Region uncovered = before;
    uncovered.Subtract(now);
    now.Subtract(before);
    Invalidate(window, now, true, ChildPaint::All);
    uncovered.Offset(window.rect.left, window.rect.top);
    ExposeBehind(window, std::move(uncovered));
}

void ApplyVisibility(Window& window, bool isShown)
{
    if (!isShown) {
        ForgetPaint(window);
        const bool wasShown = IsShown(window);
        window.style &= ~WS_VISIBLE;
        if (wasShown)
            ExposeBehind(window, Region(window.rect));
    } else {
        window.style |= WS_VISIBLE;
        InvalidateTree(window);
    }
    if (!window.IsChild() && !(window.style & WS_MINIMIZE))
        TheDisplay().Show(window.handle, isShown);
}

void Apply(Window& window, const WINDOWPOS& position)
{
    if ((position.flags & kUnmoved) != kUnmoved)
        ApplyRectangle(window, position, window.rect);
    if (!(position.flags & SWP_NOZORDER))
        ApplyOrder(window, position.hwndInsertAfter);
    if (position.flags & kShowing)
        ApplyVisibility(window, (position.flags & SWP_SHOWWINDOW) != 0);
    PointerMayHaveMoved();
}

WINDOWPOS Complete(const Window& window, WINDOWPOS position)
{
    if (position.flags & SWP_NOMOVE) {
        position.x = window.rect.left;
        position.y = window.rect.top;
    }
    if (position.flags & SWP_NOSIZE) {
        position.cx = window.Width();
        position.cy = window.Height();
    }
    return position;
}

// Removes changes that have no effect.
void Reduce(const Window& window, WINDOWPOS& position)
{
    constexpr int kLargest = 32767;
    position.cx = std::clamp(position.cx, 0, kLargest);
    position.cy = std::clamp(position.cy, 0, kLargest);
    if (position.x == window.rect.left && position.y == window.rect.top)
        position.flags |= SWP_NOMOVE;
    if (position.cx == window.Width() && position.cy == window.Height())
        position.flags |= SWP_NOSIZE;
    if (window.IsVisible())
        position.flags &= ~SWP_SHOWWINDOW;
    else
        position.flags &= ~SWP_HIDEWINDOW;
    if (!(position.flags & SWP_NOZORDER)) {
        const std::vector<HWND>& siblings = SiblingsOf(window);
        const bool isTop = position.hwndInsertAfter == HWND_TOP && siblings.front() == window.handle;
        if (isTop || position.hwndInsertAfter == window.handle)
            position.flags |= SWP_NOZORDER;
    }
}

bool ChangesNothing(UINT flags)
{
    constexpr UINT kKeeps = kUnmoved | SWP_NOZORDER;
    return (flags & kKeeps) == kKeeps && !(flags & (kShowing | SWP_FRAMECHANGED));
}

bool Activates(const Window& window, UINT flags)
{
    return !window.IsChild() && !(flags & (SWP_NOACTIVATE | SWP_HIDEWINDOW)) &&
           (window.IsVisible() || (flags & SWP_SHOWWINDOW)) && IsActivatable(window);
}

void SendCalcSize(HWND handle, WINDOWPOS& position)
{
    NCCALCSIZE_PARAMS sizes{};
    sizes.rgrc[0] = {position.x, position.y, position.x + position.cx, position.y + position.cy};
    sizes.lppos = &position;
    SendMessageA(handle, WM_NCCALCSIZE, TRUE, reinterpret_cast<LPARAM>(&sizes));
}

// Erases backgrounds within the call: that of the window, and that of the parent where a child uncovered it.
void EraseChanged(HWND handle)
{
    EraseNow(handle);
    if (const Window* window = LookUpWindow(handle); window && window->IsChild())
        EraseNow(window->parent);
}

// Converts between client and screen coordinates by adding (`sign` 1) or subtracting (-1) the window's origin
// on the screen.
BOOL MoveByOrigin(HWND handle, POINT& point, int sign)
{
    const Window* const window = LookUpWindow(handle);
    if (!window)
        return FALSE;
    const POINT origin = ScreenOrigin(*window);
    point = {point.x + sign * origin.x, point.y + sign * origin.y};
    return TRUE;
}

}  // namespace

BOOL SetWindowPos(HWND handle, HWND insertAfter, int x, int y, int width, int height, UINT flags)
{
    Window* window = LookUpWindow(handle);
    if (!window)
        return FALSE;
    WINDOWPOS position = Complete(*window, {handle, insertAfter, x, y, width, height, flags});
    SendMessageA(handle, WM_WINDOWPOSCHANGING, 0, reinterpret_cast<LPARAM>(&position));
    if ((window = LookUpWindow(handle)) == nullptr)
        return FALSE;
    Reduce(*window, position);
    const bool activates = Activates(*window, position.flags);
    if (!(position.flags & SWP_NOSIZE) || (position.flags & SWP_FRAMECHANGED)) {
        SendCalcSize(handle, position);
        if ((window = LookUpWindow(handle)) == nullptr)
            return FALSE;
    }
    const bool isChange = !ChangesNothing(position.flags);
    if (isChange)
        Apply(*window, position);
    if (activates)
        ActivateWindow(handle, WA_ACTIVE);
    if (!isChange)
        return TRUE;
    EraseChanged(handle);
    SendMessageA(handle, WM_WINDOWPOSCHANGED, 0, reinterpret_cast<LPARAM>(&position));
    return TRUE;
}

BOOL MoveWindow(HWND window, int x, int y, int width, int height, BOOL)
{
    return SetWindowPos(window, nullptr, x, y, width, height, SWP_NOZORDER | SWP_NOACTIVATE);
}

BOOL BringWindowToTop(HWND window)
{
    return SetWindowPos(window, HWND_TOP, 0, 0, 0, 0, kUnmoved);
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
    *rect = window->style & WS_MINIMIZE ? RECT{} : window->Client();
    return TRUE;
}

BOOL AdjustWindowRectEx(RECT*, DWORD, BOOL, DWORD)
{
    return TRUE;
}

BOOL ClientToScreen(HWND handle, POINT* point)
{
    return MoveByOrigin(handle, *point, 1);
}

BOOL ScreenToClient(HWND handle, POINT* point)
{
    return MoveByOrigin(handle, *point, -1);
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
    // The window takes ownership of the region.
    if (region)
        DeleteObject(region);
    PointerMayHaveMoved();
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
