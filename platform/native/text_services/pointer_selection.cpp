#include "native/text_services/pointer_selection.h"

namespace qvui::native {

void PointerSelection::Press(Caret at, Editor::Unit unit, bool extends)
{
    m_isDragging = true;
    m_unit = unit;
    if (extends) {
        const Editor::Position anchor = m_editor.Selected().anchor;
        m_origin = {anchor, anchor};
        Drag(at);
        return;
    }
    m_origin = m_editor.SpanAt(at.position, unit);
    m_editor.Select(m_origin.first, m_origin.last, unit == Editor::Unit::Character && at.atEndOfLine);
}

// The selection always holds what the press selected, and whole units up to the pointer.
void PointerSelection::Drag(Caret at)
{
    const Editor::Span here = m_editor.SpanAt(at.position, m_unit);
    if (at.position < m_origin.first)
        m_editor.Select(m_origin.last, here.first, at.atEndOfLine);
    else
        m_editor.Select(
            m_origin.first,
            std::max(m_origin.last,
                     here.first < at.position || here.first == here.last ? here.last : at.position),
            at.atEndOfLine);
}

}  // namespace qvui::native
