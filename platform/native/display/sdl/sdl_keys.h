#pragma once

#include <SDL.h>

namespace qvui::native {

/// Returns the virtual key of a key press, or 0 if there is none. Letters are mapped by the label on the key;
/// on keyboards of non-Latin scripts they are mapped by position, so that shortcuts such as Ctrl+C use the
/// same keys.
int VirtualKeyOf(const SDL_Keysym& keysym);

/// Returns VK_LBUTTON, VK_RBUTTON or VK_MBUTTON, or 0 for other buttons.
int VirtualButtonOf(Uint8 button);

}  // namespace qvui::native
