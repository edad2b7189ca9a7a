#pragma once

#include <SDL.h>

#include <optional>
#include <string>

#include "native/gdi/region.h"

/// What SDL does not offer on an X server. On any other screen these do nothing.
namespace qvui::native {

/// Gives a window an outline; null takes it away.
void SetX11Shape(SDL_Window* window, const Region* shape);
/// Where on the screen the pointer was when the server made an event about it; nothing for other events.
std::optional<POINT> X11PointerOf(const SDL_SysWMEvent& event);
/// Puts a window above all others without giving it the keyboard.
void RaiseX11Window(SDL_Window* window);
/// Says that a window belongs to another one, above which it stays.
void SetX11Owner(SDL_Window* window, SDL_Window* owner);
/// The id of a visual with an alpha channel as SDL wants it in a hint; empty when the screen has none.
std::string X11AlphaVisual();

}  // namespace qvui::native
