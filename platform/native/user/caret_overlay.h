#pragma once

#include "native/user/window.h"

namespace qvui::native {

struct CaretState;

bool IsCaretShown(const CaretState& caret);

/// Inverts the caret's pixels in a surface for one scope, in which it is presented: the surface itself never
/// holds the caret, so that nothing that is drawn can leave parts of it behind.
class CaretOverlay {
public:
    /// `damage`, in the root window's coordinates, is what will be presented.
    CaretOverlay(Window& root, const RECT& damage);
    CaretOverlay(const CaretOverlay&) = delete;
    CaretOverlay& operator=(const CaretOverlay&) = delete;
    ~CaretOverlay() { Invert(); }

private:
    void Invert() const;

    Window& m_root;
    Region m_area;  // surface coordinates
};

}  // namespace qvui::native
