#pragma once

#include <cstdint>
#include <vector>

#include "native/user/window.h"

namespace qvui::native {

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
