// Real windows through SDL. Nothing of SDL leaves this file.

#include <SDL.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdlib>
#include <map>
#include <string>
#include <string_view>

#include "native/display/display.h"

namespace qvui::native {
namespace {

struct KeyName {
    SDL_Keycode key;
    int virtualKey;
};
constexpr KeyName kKeys[] = {
    {SDLK_BACKSPACE, VK_BACK}, {SDLK_TAB, VK_TAB},         {SDLK_RETURN, VK_RETURN},   {SDLK_KP_ENTER, VK_RETURN},
    {SDLK_ESCAPE, VK_ESCAPE},  {SDLK_SPACE, VK_SPACE},     {SDLK_PAGEUP, VK_PRIOR},    {SDLK_PAGEDOWN, VK_NEXT},
    {SDLK_END, VK_END},        {SDLK_HOME, VK_HOME},       {SDLK_LEFT, VK_LEFT},       {SDLK_UP, VK_UP},
    {SDLK_RIGHT, VK_RIGHT},    {SDLK_DOWN, VK_DOWN},       {SDLK_INSERT, VK_INSERT},   {SDLK_DELETE, VK_DELETE},
    {SDLK_LSHIFT, VK_LSHIFT},  {SDLK_RSHIFT, VK_RSHIFT},   {SDLK_LCTRL, VK_LCONTROL},  {SDLK_RCTRL, VK_RCONTROL},
    {SDLK_LALT, VK_LMENU},     {SDLK_RALT, VK_RMENU},      {SDLK_CAPSLOCK, VK_CAPITAL}, {SDLK_KP_PLUS, VK_ADD},
    {SDLK_KP_MINUS, VK_SUBTRACT}, {SDLK_PLUS, VK_OEM_PLUS}, {SDLK_MINUS, VK_OEM_MINUS}, {SDLK_APPLICATION, VK_APPS},
};

int VirtualKey(SDL_Keycode key)
{
    if ((key >= SDLK_0 && key <= SDLK_9) || (key >= SDLK_a && key <= SDLK_z))
        return key >= SDLK_a ? key - SDLK_a + 'A' : static_cast<int>(key);
    if (key >= SDLK_F1 && key <= SDLK_F12)
        return VK_F1 + (key - SDLK_F1);
    const auto* found =
        std::find_if(std::begin(kKeys), std::end(kKeys), [key](const KeyName& entry) { return entry.key == key; });
    return found == std::end(kKeys) ? 0 : found->virtualKey;
}

struct CursorName {
    int number;
    SDL_SystemCursor cursor;
};
constexpr CursorName kCursors[] = {
    {32512, SDL_SYSTEM_CURSOR_ARROW},    {32513, SDL_SYSTEM_CURSOR_IBEAM},    {32514, SDL_SYSTEM_CURSOR_WAIT},
    {32515, SDL_SYSTEM_CURSOR_CROSSHAIR}, {32642, SDL_SYSTEM_CURSOR_SIZENWSE}, {32643, SDL_SYSTEM_CURSOR_SIZENESW},
    {32644, SDL_SYSTEM_CURSOR_SIZEWE},   {32645, SDL_SYSTEM_CURSOR_SIZENS},   {32646, SDL_SYSTEM_CURSOR_SIZEALL},
    {32648, SDL_SYSTEM_CURSOR_NO},       {32649, SDL_SYSTEM_CURSOR_HAND},
};

int ButtonOf(Uint8 button)
{
    switch (button) {
    case SDL_BUTTON_LEFT:
        return VK_LBUTTON;
    case SDL_BUTTON_RIGHT:
        return VK_RBUTTON;
    case SDL_BUTTON_MIDDLE:
        return VK_MBUTTON;
    default:
        return 0;
    }
}

class SdlDisplay final : public Display {
public:
    /// The connection to the screen ends with the process, as this driver does. Closing it through SDL would
    /// make X report, and end the process with an error for, a wake-up that SDL sent to a window just closed.
    ~SdlDisplay() override
    {
        for (const auto& [number, cursor] : m_cursors)
            SDL_FreeCursor(cursor);
        if (m_ownCursor)
            SDL_FreeCursor(m_ownCursor);
    }

    void Open(HWND window, const RECT& screen, const SurfaceOptions& options) override
    {
        Uint32 flags = SDL_WINDOW_HIDDEN;
        flags |= options.isDecorated ? 0 : SDL_WINDOW_BORDERLESS;
        flags |= options.isSizable ? SDL_WINDOW_RESIZABLE : 0;
        if (options.isPopup)
            flags |= SDL_WINDOW_SKIP_TASKBAR | (options.isPassive ? SDL_WINDOW_TOOLTIP : SDL_WINDOW_POPUP_MENU);
        SDL_Window* native =
            SDL_CreateWindow(options.title.c_str(), screen.left, screen.top, std::max(1, screen.right - screen.left),
                             std::max(1, screen.bottom - screen.top), flags);
        if (native)
            m_windows[window] = native;
    }
    void Close(HWND window) override
    {
        if (SDL_Window* native = Find(window))
            SDL_DestroyWindow(native);
        m_windows.erase(window);
    }
    void Move(HWND window, const RECT& screen) override
    {
        SDL_Window* native = Find(window);
        if (!native || m_isReporting)
            return;
        SDL_SetWindowPosition(native, screen.left, screen.top);
        SDL_SetWindowSize(native, std::max(1, screen.right - screen.left), std::max(1, screen.bottom - screen.top));
    }
    void Show(HWND window, bool isShown) override
    {
        SDL_Window* native = Find(window);
        if (!native)
            return;
        SDL_Window* const focused = SDL_GetKeyboardFocus();
        isShown ? SDL_ShowWindow(native) : SDL_HideWindow(native);
        // Without a window manager SDL gives the keyboard to every window that appears.
        if (isShown && focused && focused != native && (SDL_GetWindowFlags(native) & SDL_WINDOW_TOOLTIP))
            SDL_SetWindowInputFocus(focused);
    }
    void Activate(HWND window) override
    {
        SDL_Window* native = Find(window);
        if (native && !(SDL_GetWindowFlags(native) & SDL_WINDOW_INPUT_FOCUS))
            SDL_RaiseWindow(native);
    }
    void SetTitle(HWND window, const std::string& utf8) override
    {
        if (SDL_Window* native = Find(window))
            SDL_SetWindowTitle(native, utf8.c_str());
    }
    void SetShape(HWND, const Region*) override
    {
        // A window of this driver keeps its rectangle; what lies outside the shape is left unpainted.
    }
    void SetOpacity(HWND window, std::uint8_t alpha) override
    {
        if (SDL_Window* native = Find(window))
            SDL_SetWindowOpacity(native, static_cast<float>(alpha) / 255.0F);
    }
    void Present(HWND window, const Surface& surface, const RECT& damage) override
    {
        SDL_Window* native = Find(window);
        SDL_Surface* target = native ? SDL_GetWindowSurface(native) : nullptr;
        if (!target)
            return;
        SDL_Surface* source = SDL_CreateRGBSurfaceWithFormatFrom(surface.top, surface.width, surface.height, 32,
                                                                 static_cast<int>(surface.stride), SDL_PIXELFORMAT_RGB888);
        SDL_Rect area{damage.left, damage.top, damage.right - damage.left, damage.bottom - damage.top};
        SDL_Rect at = area;
        SDL_BlitSurface(source, &area, target, &at);
        SDL_FreeSurface(source);
        SDL_UpdateWindowSurfaceRects(native, &at, 1);
    }
    void SetCursorShape(int systemCursor) override
    {
        SDL_ShowCursor(systemCursor ? SDL_ENABLE : SDL_DISABLE);
        const auto* known = std::find_if(std::begin(kCursors), std::end(kCursors),
                                         [&](const CursorName& entry) { return entry.number == systemCursor; });
        if (known == std::end(kCursors))
            return;
        SDL_Cursor*& cursor = m_cursors[systemCursor];
        if (!cursor)
            cursor = SDL_CreateSystemCursor(known->cursor);
        SDL_SetCursor(cursor);
    }
    void SetCursorImage(const Surface& pixels, POINT hotSpot) override
    {
        SDL_Surface* image = SDL_CreateRGBSurfaceWithFormatFrom(pixels.top, pixels.width, pixels.height, 32,
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
    void SetPointer(POINT screen) override { SDL_WarpMouseGlobal(screen.x, screen.y); }
    void Capture(bool isCaptured) override { SDL_CaptureMouse(isCaptured ? SDL_TRUE : SDL_FALSE); }
    std::string ClipboardText() override
    {
        char* text = SDL_GetClipboardText();
        std::string result = text ? text : "";
        SDL_free(text);
        return result;
    }
    void SetClipboardText(const std::string& utf8) override { SDL_SetClipboardText(utf8.c_str()); }
    void Wait(int milliseconds, InputSink& sink) override
    {
        SDL_Event event;
        bool has = milliseconds == 0  ? SDL_PollEvent(&event) != 0
                   : milliseconds < 0 ? SDL_WaitEvent(&event) != 0
                                      : SDL_WaitEventTimeout(&event, milliseconds) != 0;
        for (; has; has = SDL_PollEvent(&event) != 0)
            Report(event, sink);
    }
    SIZE ScreenSize() override
    {
        SDL_Rect bounds{0, 0, 1024, 768};
        SDL_GetDisplayUsableBounds(0, &bounds);
        return {bounds.w, bounds.h};
    }
    std::vector<Screen> Screens() override
    {
        const auto toRect = [](const SDL_Rect& rect) { return RECT{rect.x, rect.y, rect.x + rect.w, rect.y + rect.h}; };
        std::vector<Screen> screens;
        for (int i = 0; i < SDL_GetNumVideoDisplays(); ++i) {
            SDL_Rect bounds{};
            SDL_Rect usable{};
            if (SDL_GetDisplayBounds(i, &bounds) == 0 && SDL_GetDisplayUsableBounds(i, &usable) == 0)
                screens.push_back({toRect(bounds), toRect(usable)});
        }
        return screens.empty() ? Display::Screens() : screens;
    }

private:
    SDL_Window* Find(HWND window) const
    {
        const auto found = m_windows.find(window);
        return found == m_windows.end() ? nullptr : found->second;
    }
    HWND Named(Uint32 id) const
    {
        for (const auto& [window, native] : m_windows)
            if (SDL_GetWindowID(native) == id)
                return window;
        return nullptr;
    }
    POINT ToScreen(Uint32 id, int x, int y) const
    {
        int left = 0;
        int top = 0;
        if (SDL_Window* native = SDL_GetWindowFromID(id))
            SDL_GetWindowPosition(native, &left, &top);
        return {left + x, top + y};
    }

    void Report(const SDL_Event& event, InputSink& sink)
    {
        switch (event.type) {
        case SDL_MOUSEMOTION:
            sink.OnPointer(ToScreen(event.motion.windowID, event.motion.x, event.motion.y));
            break;
        case SDL_MOUSEBUTTONDOWN:
        case SDL_MOUSEBUTTONUP:
            if (const int button = ButtonOf(event.button.button)) {
                sink.OnPointer(ToScreen(event.button.windowID, event.button.x, event.button.y));
                sink.OnButton(button, event.type == SDL_MOUSEBUTTONDOWN);
            }
            break;
        case SDL_MOUSEWHEEL:
            sink.OnWheel(event.wheel.y * static_cast<int>(WHEEL_DELTA));
            break;
        case SDL_KEYDOWN:
        case SDL_KEYUP:
            if (const int key = VirtualKey(event.key.keysym.sym))
                sink.OnKey(key, event.type == SDL_KEYDOWN, event.key.repeat != 0);
            break;
        case SDL_TEXTINPUT:
            if (!(SDL_GetModState() & (KMOD_ALT | KMOD_CTRL)))
                sink.OnText(event.text.text);
            break;
        case SDL_WINDOWEVENT:
            ReportWindow(event.window, sink);
            break;
        default:
            break;
        }
    }

    void ReportWindow(const SDL_WindowEvent& event, InputSink& sink)
    {
        const HWND window = Named(event.windowID);
        if (!window)
            return;
        switch (event.event) {
        case SDL_WINDOWEVENT_MOVED:
        case SDL_WINDOWEVENT_SIZE_CHANGED: {
            SDL_Window* native = Find(window);
            RECT rect{};
            SDL_GetWindowPosition(native, &rect.left, &rect.top);
            int width = 0;
            int height = 0;
            SDL_GetWindowSize(native, &width, &height);
            // The screen has decided already: telling it again would fight a drag.
            m_isReporting = true;
            sink.OnMoved(window, {rect.left, rect.top, rect.left + width, rect.top + height});
            m_isReporting = false;
            break;
        }
        case SDL_WINDOWEVENT_CLOSE:
            sink.OnClose(window);
            break;
        case SDL_WINDOWEVENT_FOCUS_GAINED:
            sink.OnActivated(window);
            break;
        case SDL_WINDOWEVENT_FOCUS_LOST:
            sink.OnActivated(nullptr);
            break;
        case SDL_WINDOWEVENT_LEAVE:
            sink.OnPointerLeft();
            break;
        case SDL_WINDOWEVENT_EXPOSED:
            sink.OnExposed(window);
            break;
        default:
            break;
        }
    }

    std::map<HWND, SDL_Window*> m_windows;
    std::map<int, SDL_Cursor*> m_cursors;
    SDL_Cursor* m_ownCursor = nullptr;
    bool m_isReporting = false;
};

}  // namespace

std::unique_ptr<Display> MakeSdlDisplay()
{
    if (!std::getenv("DISPLAY") && !std::getenv("WAYLAND_DISPLAY"))
        return nullptr;
    SDL_SetHint(SDL_HINT_NO_SIGNAL_HANDLERS, "1");
    SDL_SetHint(SDL_HINT_MOUSE_AUTO_CAPTURE, "0");
    SDL_SetHint(SDL_HINT_QUIT_ON_LAST_WINDOW_CLOSE, "0");
    if (SDL_InitSubSystem(SDL_INIT_VIDEO) != 0)
        return nullptr;
    // SDL may make a window anew, where it stood at first, when it first draws on it through the graphics card. X
    // shows pictures from memory without that.
    if (std::string_view(SDL_GetCurrentVideoDriver()) == "x11")
        SDL_SetHint(SDL_HINT_FRAMEBUFFER_ACCELERATION, "0");
    SDL_StartTextInput();
    return std::make_unique<SdlDisplay>();
}

}  // namespace qvui::native
