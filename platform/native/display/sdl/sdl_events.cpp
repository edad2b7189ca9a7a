// Translates SDL events to calls of the input sink.

#include <cctype>
#include <cmath>
#include <cstring>
#include <utility>

#include "native/display/sdl/sdl_display.h"
#include "native/display/sdl/sdl_keys.h"
#include "native/display/sdl/x11_window.h"

namespace qvui::native {
namespace {

int WheelDelta(const SDL_MouseWheelEvent& wheel)
{
    const float notches = wheel.direction == SDL_MOUSEWHEEL_FLIPPED ? -wheel.preciseY : wheel.preciseY;
    return static_cast<int>(std::lround(notches * static_cast<float>(WHEEL_DELTA)));
}

bool IsPlainText(const char* text, SDL_Keycode key)
{
    return std::strlen(text) == 1 && std::tolower(static_cast<unsigned char>(*text)) == key;
}

}  // namespace

void SdlDisplay::Wait(int milliseconds, InputSink& sink)
{
    SDL_Event event;
    bool has = milliseconds == 0  ? SDL_PollEvent(&event) != 0
               : milliseconds < 0 ? SDL_WaitEvent(&event) != 0
                                  : SDL_WaitEventTimeout(&event, milliseconds) != 0;
    for (; has; has = SDL_PollEvent(&event) != 0)
        Report(event, sink);
    ReportKeyboardLoss(sink);
}

// The window may have moved since the event was created, so its current position is used only if the window
// system's own event does not contain the screen position.
POINT SdlDisplay::ToScreen(Uint32 id, int x, int y)
{
    if (const std::optional<POINT> known = std::exchange(m_pointerOfEvent, std::nullopt))
        return *known;
    int left = 0;
    int top = 0;
    if (SDL_Window* native = SDL_GetWindowFromID(id))
        SDL_GetWindowPosition(native, &left, &top);
    return {left + x, top + y};
}

void SdlDisplay::Report(const SDL_Event& event, InputSink& sink)
{
    switch (event.type) {
        case SDL_SYSWMEVENT:
            m_pointerOfEvent = X11PointerOf(event.syswm);
            // SDL suppresses a move that ends at the same window coordinates because the window moved along
            // with the pointer.
            if (m_pointerOfEvent && SDL_GetMouseFocus())
                sink.OnPointer(*m_pointerOfEvent);
            break;
        case SDL_MOUSEMOTION:
            sink.OnPointer(ToScreen(event.motion.windowID, event.motion.x, event.motion.y));
            break;
        case SDL_MOUSEBUTTONDOWN:
        case SDL_MOUSEBUTTONUP:
            if (const int button = VirtualButtonOf(event.button.button)) {
                sink.OnPointer(ToScreen(event.button.windowID, event.button.x, event.button.y));
                sink.OnButton(button, event.type == SDL_MOUSEBUTTONDOWN);
            }
            break;
        case SDL_MOUSEWHEEL:
            sink.OnWheel(WheelDelta(event.wheel));
            break;
        case SDL_KEYDOWN:
        case SDL_KEYUP:
            if (const int key = VirtualKeyOf(event.key.keysym))
                sink.OnKey(key, event.type == SDL_KEYDOWN);
            m_lastKey = event.key.keysym.sym;
            break;
        case SDL_TEXTINPUT:
            ReportText(event.text.text, sink);
            break;
        case SDL_TEXTEDITING:
            sink.OnComposition(event.edit.text, event.edit.start);
            break;
        case SDL_TEXTEDITING_EXT:
            sink.OnComposition(event.editExt.text ? event.editExt.text : "", event.editExt.start);
            SDL_free(event.editExt.text);
            break;
        case SDL_WINDOWEVENT:
            ReportWindow(event.window, sink);
            break;
        default:
            break;
    }
}

// With Ctrl or Alt a key types nothing, but X still reports its letter. The right Alt key may select a third
// level; text that differs from the key's own letter is then typed text.
void SdlDisplay::ReportText(const char* utf8, InputSink& sink) const
{
    const int modifiers = SDL_GetModState();
    const bool isThirdLevel = (modifiers & (KMOD_RALT | KMOD_MODE)) != 0;
    if ((modifiers & KMOD_LALT) || ((modifiers & KMOD_CTRL) && !isThirdLevel) ||
        (isThirdLevel && IsPlainText(utf8, m_lastKey)))
        return;
    sink.OnText(utf8);
}

void SdlDisplay::ReportPlace(HWND window, InputSink& sink) const
{
    SDL_Window* native = Find(window);
    RECT rect{};
    SDL_GetWindowPosition(native, &rect.left, &rect.top);
    int width = 0;
    int height = 0;
    SDL_GetWindowSize(native, &width, &height);
    sink.OnMoved(window, {rect.left, rect.top, rect.left + width, rect.top + height});
}

void SdlDisplay::ReportWindow(const SDL_WindowEvent& event, InputSink& sink)
{
    const HWND window = Named(event.windowID);
    if (!window)
        return;
    switch (event.event) {
        case SDL_WINDOWEVENT_MOVED:
        case SDL_WINDOWEVENT_SIZE_CHANGED:
            ReportPlace(window, sink);
            break;
        case SDL_WINDOWEVENT_MINIMIZED:
        case SDL_WINDOWEVENT_RESTORED:
            sink.OnMinimised(window, event.event == SDL_WINDOWEVENT_MINIMIZED);
            break;
        case SDL_WINDOWEVENT_CLOSE:
            sink.OnClose(window);
            break;
        case SDL_WINDOWEVENT_FOCUS_GAINED:
            m_mayHaveLostKeyboard = false;
            sink.OnActivated(window);
            break;
        case SDL_WINDOWEVENT_FOCUS_LOST:
            m_mayHaveLostKeyboard = true;
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

// The keyboard focus often moves directly from one of our windows to another. It has been lost only if no
// window of ours has it afterwards.
void SdlDisplay::ReportKeyboardLoss(InputSink& sink)
{
    if (m_mayHaveLostKeyboard && !SDL_GetKeyboardFocus()) {
        m_mayHaveLostKeyboard = false;
        sink.OnActivated(nullptr);
    }
}

}  // namespace qvui::native
