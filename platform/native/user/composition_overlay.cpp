#include "native/user/composition_overlay.h"

#include <algorithm>

#include "native/user/desktop.h"
#include "native/user/window_tree.h"

namespace qvui::native {

RECT CompositionRect()
{
    const CompositionState& composition = TheDesktop().composition;
    const CaretState& caret = TheDesktop().caret;
    RECT client{};
    if (composition.pixels.empty() || !GetClientRect(caret.window, &client))
        return {};
    // A long one moves to the left as far as it can, so that its end stays in sight.
    const LONG left = std::max<LONG>(0, std::min(caret.rect.left, client.right - composition.width));
    return {left, caret.rect.top, left + composition.width, caret.rect.top + composition.height};
}

CompositionOverlay::CompositionOverlay(Window& root, const RECT& damage) : m_root(root)
{
    const CompositionState& composition = TheDesktop().composition;
    Window* const window = LookUpWindow(TheDesktop().caret.window);
    if (composition.pixels.empty() || !window || RootOf(*window)->handle != root.handle)
        return;
    RECT place = CompositionRect();
    m_area = VisibleRegion(*window, Extent::Own);
    m_area.Intersect(Region(place));
    const POINT origin = OriginInRoot(*window);
    OffsetRect(&place, origin.x, origin.y);
    m_area.Offset(origin.x, origin.y);
    m_area.Intersect(Region(Intersection(damage, root.surface->Bounds())));
    for (const pixman_box32_t& box : m_area.Boxes())
        for (int y = box.y1; y < box.y2; ++y) {
            const auto count = static_cast<std::size_t>(box.x2 - box.x1);
            m_covered.resize(m_covered.size() + count);
            root.surface->Load(box.x1, y, box.x2 - box.x1, &m_covered[m_covered.size() - count]);
            const auto first = (y - place.top) * composition.width + box.x1 - place.left;
            root.surface->Store(box.x1, y, box.x2 - box.x1,
                                &composition.pixels[static_cast<std::size_t>(first)]);
        }
}

CompositionOverlay::~CompositionOverlay()
{
    std::size_t next = 0;
    for (const pixman_box32_t& box : m_area.Boxes())
        for (int y = box.y1; y < box.y2; ++y) {
            m_root.surface->Store(box.x1, y, box.x2 - box.x1, &m_covered[next]);
            next += static_cast<std::size_t>(box.x2 - box.x1);
        }
}

}  // namespace qvui::native
