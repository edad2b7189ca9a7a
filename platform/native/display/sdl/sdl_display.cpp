#include "native/display/sdl/sdl_display.h"

#include <algorithm>
#include <cstdlib>
#include <iterator>
#include <string_view>

#include "native/display/sdl/x11_window.h"

namespace qvui::native {
namespace {

struct CursorName {
    int number;
    SDL_SystemCursor cursor;
};
constexpr CursorName kCursors[] = {
    {32512, SDL_SYSTEM_CURSOR_ARROW},    {32513, SDL_SYSTEM_CURSOR_IBEAM},
    {32514, SDL_SYSTEM_CURSOR_WAIT},     {32515, SDL_SYSTEM_CURSOR_CROSSHAIR},
    {32642, SDL_SYSTEM_CURSOR_SIZENWSE}, {32643, SDL_SYSTEM_CURSOR_SIZENESW},
    {32644, SDL_SYSTEM_CURSOR_SIZEWE},   {32645, SDL_SYSTEM_CURSOR_SIZENS},
    {32646, SDL_SYSTEM_CURSOR_SIZEALL},  {32648, SDL_SYSTEM_CURSOR_NO},
    {32649, SDL_SYSTEM_CURSOR_HAND},     {32650, SDL_SYSTEM_CURSOR_WAITARROW},
};

Uint32 WindowFlags(const SurfaceOptions& options)
{
    Uint32 flags = SDL_WINDOW_HIDDEN;
    flags |= options.isDecorated ? 0 : SDL_WINDOW_BORDERLESS;
    flags |= options.isSizable ? SDL_WINDOW_RESIZABLE : 0;
    if (options.isPopup)
        flags |= SDL_WINDOW_SKIP_TASKBAR | (options.isPassive ? SDL_WINDOW_TOOLTIP : SDL_WINDOW_POPUP_MENU);
    return flags;
}

int Length(LONG low, LONG high)
{
    return std::max(1, high - low);
}

// Returns the region of pixels that are not fully transparent.
Region OpaqueRegion(const Surface& surface)
{
    std::vector<RECT> runs;
    for (int y = 0; y < surface.height; ++y) {
        const std::uint32_t* row = surface.Row32(y);
        for (int x = 0; x < surface.width; ++x) {
            if (row[x] >> 24 == 0)
                continue;
            const int first = x;
            while (x < surface.width && row[x] >> 24 != 0)
                ++x;
            runs.push_back({first, y, x, y + 1});
        }
    }
    return Region::Of(runs);
}

}  // namespace

SdlDisplay::SdlDisplay(std::unique_ptr<LateWakeUpGuard> guard)
    : m_guard(std::move(guard)),
      m_alphaVisual(X11AlphaVisual())
{
    SDL_StartTextInput();
    SDL_EventState(SDL_SYSWMEVENT, SDL_ENABLE);
}

SdlDisplay::~SdlDisplay()
{
    for (const auto& [number, cursor] : m_cursors)
        SDL_FreeCursor(cursor);
    if (m_ownCursor)
        SDL_FreeCursor(m_ownCursor);
    SDL_QuitSubSystem(SDL_INIT_VIDEO);
}

SDL_Window* SdlDisplay::Find(HWND window) const
{
    const auto found = m_windows.find(window);
    return found == m_windows.end() ? nullptr : found->second.native;
}

HWND SdlDisplay::Named(Uint32 id) const
{
    for (const auto& [window, shown] : m_windows)
        if (SDL_GetWindowID(shown.native) == id)
            return window;
    return nullptr;
}

void SdlDisplay::Open(HWND window, const RECT& screen, const SurfaceOptions& options)
{
    const bool hasAlpha = options.isLayered && !m_alphaVisual.empty();
    if (hasAlpha)
        SDL_SetHint(SDL_HINT_VIDEO_X11_WINDOW_VISUALID, m_alphaVisual.c_str());
    SDL_Window* native =
        SDL_CreateWindow(options.title.c_str(), screen.left, screen.top, Length(screen.left, screen.right),
                         Length(screen.top, screen.bottom), WindowFlags(options));
    if (hasAlpha)
        SDL_SetHint(SDL_HINT_VIDEO_X11_WINDOW_VISUALID, nullptr);
    if (!native)
        return;
    m_windows[window] = {native, options};
    if (SDL_Window* owner = Find(options.owner))
        SetX11Owner(native, owner);
}

void SdlDisplay::Close(HWND window)
{
    if (SDL_Window* native = Find(window))
        SDL_DestroyWindow(native);
    m_windows.erase(window);
}

void SdlDisplay::Move(HWND window, const RECT& screen)
{
    SDL_Window* native = Find(window);
    if (!native)
        return;
    // A position that the window already has is not requested again, because that would disturb a drag by the
    // user.
    POINT corner{};
    SDL_GetWindowPosition(native, &corner.x, &corner.y);
    if (corner.x != screen.left || corner.y != screen.top)
        SDL_SetWindowPosition(native, screen.left, screen.top);
    SIZE size{};
    SDL_GetWindowSize(native, &size.cx, &size.cy);
    const int width = Length(screen.left, screen.right);
    const int height = Length(screen.top, screen.bottom);
    if (size.cx != width || size.cy != height)
        SDL_SetWindowSize(native, width, height);
}

void SdlDisplay::Show(HWND window, bool isShown)
{
    const auto found = m_windows.find(window);
    if (found == m_windows.end())
        return;
    SDL_Window* native = found->second.native;
    if (!isShown) {
        SDL_HideWindow(native);
        return;
    }
    SDL_Window* keyboard = SDL_GetKeyboardFocus();
    SDL_SetHint(SDL_HINT_WINDOW_NO_ACTIVATION_WHEN_SHOWN, found->second.options.isPassive ? "1" : "0");
    SDL_ShowWindow(native);
    RaiseX11Window(native);
    // Without a window manager, SDL gives the keyboard focus to every window that is shown.
    if (found->second.options.isPassive && keyboard && keyboard != native)
        SDL_SetWindowInputFocus(keyboard);
}

void SdlDisplay::Minimise(HWND window, bool isMinimised)
{
    SDL_Window* native = Find(window);
    if (!native || ((SDL_GetWindowFlags(native) & SDL_WINDOW_MINIMIZED) != 0) == isMinimised)
        return;
    if (isMinimised)
        SDL_MinimizeWindow(native);
    else
        SDL_RestoreWindow(native);
}

void SdlDisplay::Raise(HWND window)
{
    if (SDL_Window* native = Find(window))
        RaiseX11Window(native);
}

void SdlDisplay::Activate(HWND window)
{
    SDL_Window* native = Find(window);
    if (!native || (SDL_GetWindowFlags(native) & SDL_WINDOW_INPUT_FOCUS) ||
        !(SDL_GetWindowFlags(native) & SDL_WINDOW_SHOWN))
        return;
    SDL_RaiseWindow(native);
    SDL_SetWindowInputFocus(native);
}

void SdlDisplay::SetTitle(HWND window, const std::string& utf8)
{
    if (SDL_Window* native = Find(window))
        SDL_SetWindowTitle(native, utf8.c_str());
}

void SdlDisplay::SetShape(HWND window, const Region* shape)
{
    if (SDL_Window* native = Find(window))
        SetX11Shape(native, shape);
}

void SdlDisplay::SetOpacity(HWND window, std::uint8_t alpha)
{
    if (SDL_Window* native = Find(window))
        SDL_SetWindowOpacity(native, static_cast<float>(alpha) / 255.0F);
}

void SdlDisplay::Present(HWND window, const Surface& surface, const RECT& damage)
{
    const auto found = m_windows.find(window);
    SDL_Surface* target = found == m_windows.end() ? nullptr : SDL_GetWindowSurface(found->second.native);
    if (!target)
        return;
    const bool isLayered = found->second.options.isLayered;
    SDL_Surface* source = SDL_CreateRGBSurfaceWithFormatFrom(
        surface.top, surface.width, surface.height, 32, static_cast<int>(surface.stride),
        isLayered ? SDL_PIXELFORMAT_ARGB8888 : SDL_PIXELFORMAT_RGB888);
    SDL_SetSurfaceBlendMode(source, SDL_BLENDMODE_NONE);
    SDL_Rect area{damage.left, damage.top, damage.right - damage.left, damage.bottom - damage.top};
    SDL_Rect at = area;
    SDL_BlitSurface(source, &area, target, &at);
    SDL_FreeSurface(source);
    SDL_UpdateWindowSurfaceRects(found->second.native, &at, 1);
    // Without a compositor, alpha is not blended; the window is then at least clipped to its opaque pixels.
    if (isLayered) {
        const Region opaque = OpaqueRegion(surface);
        SetX11Shape(found->second.native, &opaque);
    }
}

void SdlDisplay::SetCursorShape(int systemCursor)
{
    SDL_ShowCursor(systemCursor ? SDL_ENABLE : SDL_DISABLE);
    const auto* known = std::find_if(std::begin(kCursors), std::end(kCursors),
                                     [&](const CursorName& entry) { return entry.number == systemCursor; });
    if (!systemCursor)
        return;
    SDL_Cursor*& cursor = m_cursors[systemCursor];
    if (!cursor)
        cursor =
            SDL_CreateSystemCursor(known == std::end(kCursors) ? SDL_SYSTEM_CURSOR_ARROW : known->cursor);
    SDL_SetCursor(cursor);
}

void SdlDisplay::SetCursorImage(const Surface& pixels, POINT hotSpot)
{
    SDL_Surface* image =
        SDL_CreateRGBSurfaceWithFormatFrom(pixels.top, pixels.width, pixels.height, 32,
                                           static_cast<int>(pixels.stride), SDL_PIXELFORMAT_ARGB8888);
    SDL_Cursor* cursor = image ? SDL_CreateColorCursor(image, hotSpot.x, hotSpot.y) : nullptr;
    SDL_FreeSurface(image);
    if (!cursor)
        return;
    SDL_ShowCursor(SDL_ENABLE);
    SDL_SetCursor(cursor);
    if (m_ownCursor)
        SDL_FreeCursor(m_ownCursor);
    m_ownCursor = cursor;
}

POINT SdlDisplay::Pointer()
{
    POINT point{};
    SDL_GetGlobalMouseState(&point.x, &point.y);
    return point;
}

void SdlDisplay::SetPointer(POINT screen)
{
    SDL_WarpMouseGlobal(screen.x, screen.y);
}

void SdlDisplay::Capture(bool isCaptured)
{
    SDL_CaptureMouse(isCaptured ? SDL_TRUE : SDL_FALSE);
}

std::string SdlDisplay::ClipboardText()
{
    char* text = SDL_GetClipboardText();
    std::string result = text ? text : "";
    SDL_free(text);
    return result;
}

void SdlDisplay::SetTextArea(HWND, const RECT& area)
{
    const SDL_Rect rect{static_cast<int>(area.left), static_cast<int>(area.top),
                        static_cast<int>(area.right - area.left), static_cast<int>(area.bottom - area.top)};
    SDL_SetTextInputRect(&rect);
}

void SdlDisplay::SetClipboardText(const std::string& utf8)
{
    SDL_SetClipboardText(utf8.c_str());
}

SIZE SdlDisplay::ScreenSize()
{
    SDL_Rect bounds{0, 0, 1024, 768};
    SDL_GetDisplayUsableBounds(0, &bounds);
    return {bounds.w, bounds.h};
}

std::vector<Screen> SdlDisplay::Screens()
{
    const auto toRect = [](const SDL_Rect& rect) {
        return RECT{rect.x, rect.y, rect.x + rect.w, rect.y + rect.h};
    };
    std::vector<Screen> screens;
    for (int i = 0; i < SDL_GetNumVideoDisplays(); ++i) {
        SDL_Rect bounds{};
        SDL_Rect usable{};
        if (SDL_GetDisplayBounds(i, &bounds) == 0 && SDL_GetDisplayUsableBounds(i, &usable) == 0)
            screens.push_back({toRect(bounds), toRect(usable)});
    }
    return screens.empty() ? Display::Screens() : screens;
}

std::unique_ptr<Display> MakeSdlDisplay()
{
    if (!std::getenv("DISPLAY") && !std::getenv("WAYLAND_DISPLAY"))
        return nullptr;
    SDL_SetHint(SDL_HINT_NO_SIGNAL_HANDLERS, "1");
    SDL_SetHint(SDL_HINT_IME_SUPPORT_EXTENDED_TEXT, "1");
    SDL_SetHint(SDL_HINT_MOUSE_AUTO_CAPTURE, "0");
    SDL_SetHint(SDL_HINT_MOUSE_FOCUS_CLICKTHROUGH, "1");
    SDL_SetHint(SDL_HINT_QUIT_ON_LAST_WINDOW_CLOSE, "0");
    auto guard = std::make_unique<LateWakeUpGuard>();
    if (SDL_InitSubSystem(SDL_INIT_VIDEO) != 0)
        return nullptr;
    guard->CoverSdl();
    // When SDL first draws on a window through the graphics card, it may recreate the window at its initial
    // position. X shows pictures from memory without acceleration.
    if (std::string_view(SDL_GetCurrentVideoDriver()) == "x11")
        SDL_SetHint(SDL_HINT_FRAMEBUFFER_ACCELERATION, "0");
    return std::make_unique<SdlDisplay>(std::move(guard));
}

}  // namespace qvui::native
