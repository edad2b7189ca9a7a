#pragma once

#include <SDL.h>

#include <optional>
#include <string>

#include "native/gdi/region.h"

/// Window functions that SDL lacks on an X server. They do nothing on other window systems.
namespace qvui::native {

/// Clips a window to a shape; null removes the shape.
void SetX11Shape(SDL_Window* window, const Region* shape);
/// Returns the screen position of the pointer when the server created a pointer event; nothing for other
/// events.
std::optional<POINT> X11PointerOf(const SDL_SysWMEvent& event);
/// Raises a window above all others without giving it the keyboard focus.
void RaiseX11Window(SDL_Window* window);
/// Makes a window owned by another one, above which it stays.
void SetX11Owner(SDL_Window* window, SDL_Window* owner);
/// Returns the id of a visual with an alpha channel, in the format of SDL's hint. Empty if the screen has
/// none.
std::string X11AlphaVisual();

}  // namespace qvui::native
