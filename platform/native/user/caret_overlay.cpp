#include "native/user/caret_overlay.h"

#include "native/user/desktop.h"
#include "native/user/window_tree.h"

namespace qvui::native {

bool IsCaretShown(const CaretState& caret)
{
    return caret.window && caret.hidden == 0;
}

CaretOverlay::CaretOverlay(Window& root, const RECT& damage) : m_root(root)
{
    const CaretState& caret = TheDesktop().caret;
    Window* window = LookUpWindow(caret.window);
    if (!IsCaretShown(caret) || !caret.isOn || !window || RootOf(*window)->handle != root.handle)
        return;
    m_area = VisibleRegion(*window, Extent::Own);
    m_area.Intersect(Region(caret.rect));
    const POINT origin = OriginInRoot(*window);
    m_area.Offset(origin.x, origin.y);
    m_area.Intersect(Region(Intersection(damage, root.surface->Bounds())));
    Invert();
}

void CaretOverlay::Invert() const
{
    constexpr std::uint32_t kColours = 0x00FFFFFF;
    for (const pixman_box32_t& box : m_area.Boxes())
        for (int y = box.y1; y < box.y2; ++y)
            for (int x = box.x1; x < box.x2; ++x)
                m_root.surface->Set(x, y, m_root.surface->Get(x, y) ^ kColours);
}

}  // namespace qvui::native
