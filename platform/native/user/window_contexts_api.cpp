// Device contexts of windows, and layered windows.

#include <map>

#include "native/kernel/modules.h"
#include "native/user/desktop.h"
#include "native/user/painting.h"
#include "native/user/window_tree.h"

using namespace qvui::native;

namespace {

HDC OpenWindowContext(Window& window, Region visible, const RECT& area)
{
    const HDC dc = OpenDeviceContext(RootOf(window)->surface, OriginInRoot(window), std::move(visible));
    TheDesktop().openContexts[dc] = {window.handle, area};
    return dc;
}

// The screen itself cannot be drawn on; its context is a memory context for measuring text.
HDC OpenScreenContext()
{
    static const auto& pixel = *new std::shared_ptr<Surface>(Surface::Create(1, 1, 32, false));
    const HDC dc = OpenDeviceContext(pixel, {0, 0}, Region(RECT{0, 0, 1, 1}));
    LookUpContext(dc)->isMemory = true;
    return dc;
}

void CloseWindowContext(HDC dc)
{
    const auto open = TheDesktop().openContexts.find(dc);
    if (open == TheDesktop().openContexts.end())
        return;
    if (Window* window = LookUpWindow(open->second.window))
        PresentDamage(*window, open->second.area);
    TheDesktop().openContexts.erase(open);
    CloseDeviceContext(dc);
}

[[maybe_unused]] const bool g_registered =
    RegisterBuiltInFunction("User32.dll", "UpdateLayeredWindow",
                            reinterpret_cast<FARPROC>(reinterpret_cast<void*>(&UpdateLayeredWindow)));

// Copies the pixels of a layer with their alpha. Without per-pixel alpha they become opaque, or transparent
// if they match the colour key.
void CopyLayer(Window& window, HDC source, POINT from, COLORREF key, DWORD flags)
{
    const Surface& surface = *window.surface;
    const HDC dc = OpenDeviceContext(window.surface, {0, 0}, Region(window.Client()));
    BitBlt(dc, 0, 0, window.Width(), window.Height(), source, from.x, from.y, SRCCOPY);
    CloseDeviceContext(dc);
    if (flags & ULW_ALPHA)
        return;
    constexpr std::uint32_t kOpaque = 0xFF000000;
    const std::uint32_t clear = PixelOf(key);
    for (int y = 0; y < surface.height; ++y)
        for (std::uint32_t* pixel = surface.Row32(y); pixel < surface.Row32(y) + surface.width; ++pixel)
            *pixel = (flags & ULW_COLORKEY) && (*pixel & ~kOpaque) == clear ? 0 : *pixel | kOpaque;
}

}  // namespace

HDC BeginPaint(HWND handle, PAINTSTRUCT* paint)
{
    *paint = {};
    Window* window = LookUpWindow(handle);
    if (!window)
        return nullptr;
    if (std::exchange(window->paint.needsFrame, false))
        SendMessageA(handle, WM_NCPAINT, 1, 0);
    if ((window = LookUpWindow(handle)) == nullptr)
        return nullptr;
    Region area = VisibleRegion(*window, Extent::Own);
    area.Intersect(window->paint.region);
    const bool erases = window->paint.needsErase;
    const bool wasRefused = window->paint.wasRefused;
    Validate(*window, window->paint.region);
    paint->rcPaint = area.Bounds();
    paint->hdc = OpenWindowContext(*window, std::move(area), paint->rcPaint);
    paint->fErase = erases ? SendMessageA(handle, WM_ERASEBKGND, reinterpret_cast<WPARAM>(paint->hdc), 0) == 0
                           : wasRefused;
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
        return OpenWindowContext(*window, VisibleRegion(*window, Extent::Own), window->Client());
    return handle ? nullptr : OpenScreenContext();
}

HDC GetWindowDC(HWND window)
{
    return GetDC(window);
}

int ReleaseDC(HWND, HDC dc)
{
    if (!TheDesktop().openContexts.contains(dc))
        return DeleteDC(dc);
    CloseWindowContext(dc);
    return 1;
}

BOOL UpdateLayeredWindow(HWND handle, HDC, POINT* position, SIZE* size, HDC source, POINT* sourcePosition,
                         COLORREF key, BLENDFUNCTION* blend, DWORD flags)
{
    Window* window = LookUpWindow(handle);
    if (!window || window->IsChild() || !(window->exStyle & WS_EX_LAYERED))
        return FALSE;
    const POINT corner = position ? *position : POINT{window->rect.left, window->rect.top};
    const SIZE extent = size ? *size : SIZE{window->Width(), window->Height()};
    SetWindowPos(handle, nullptr, corner.x, corner.y, extent.cx, extent.cy, SWP_NOZORDER | SWP_NOACTIVATE);
    if ((window = LookUpWindow(handle)) == nullptr)
        return FALSE;
    if (source) {
        CopyLayer(*window, source, sourcePosition ? *sourcePosition : POINT{0, 0}, key, flags);
        window->hasLayer = true;
        Validate(*window, window->paint.region);
        PresentDamage(*window, window->Client());
    }
    if (!(flags & ULW_ALPHA) || blend)
        TheDisplay().SetOpacity(handle, flags & ULW_ALPHA ? blend->SourceConstantAlpha : BYTE{255});
    return TRUE;
}
