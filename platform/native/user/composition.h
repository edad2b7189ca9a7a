#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "native/user/window.h"

/// The text that an input method is composing. It is shown at the caret, underlined, over what is presented,
/// in every window that has a caret. It belongs to no document: when it is complete it comes as typed text,
/// and when the caret goes, it is dropped.
namespace qvui::native {

struct CompositionState {
    std::vector<std::uint32_t> pixels;  // row by row; empty while nothing is composed
    int width = 0;
    int height = 0;
};

/// Shows the text of an input method, UTF-8, with a caret before the character of the given index; an empty
/// text ends the composition. Without a caret nothing is shown.
void ShowComposition(const std::string& utf8, int caret);
/// Ends the composition here and in the input method.
void DropComposition();
/// Returns the place of the composition in client coordinates of the caret's window; empty without one.
RECT CompositionRect();

/// Puts the composition into a surface for one scope, in which it is presented.
class CompositionOverlay {
public:
    /// `damage`, in the root window's coordinates, is what will be presented.
    CompositionOverlay(Window& root, const RECT& damage);
    CompositionOverlay(const CompositionOverlay&) = delete;
    CompositionOverlay& operator=(const CompositionOverlay&) = delete;
    ~CompositionOverlay();

private:
    Window& m_root;
    Region m_area;                         // surface coordinates
    std::vector<std::uint32_t> m_covered;  // the pixels of m_area, box by box
};

}  // namespace qvui::native
