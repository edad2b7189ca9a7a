#pragma once

#include <SDL.h>

namespace qvui::native {

/// The virtual key of a key press, 0 for a key that has none. Letters go by what is printed on the key,
/// except on keyboards of other scripts, where they go by position, so that Ctrl+C is the same key for
/// everybody.
int VirtualKeyOf(const SDL_Keysym& keysym);

/// VK_LBUTTON, VK_RBUTTON or VK_MBUTTON; 0 for other buttons.
int VirtualButtonOf(Uint8 button);

}  // namespace qvui::native
