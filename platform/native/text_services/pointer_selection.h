#pragma once

#include "native/text_services/editor.h"

namespace qvui::native {

/// Selecting with the pointer: by characters, words or paragraphs, as often as was pressed.
class PointerSelection {
public:
    explicit PointerSelection(Editor& editor) : m_editor(editor) {}

    /// `extends`: the selection goes on to the press.
    void Press(Caret at, Editor::Unit unit, bool extends);
    void Drag(Caret at);
    void Release() { m_isDragging = false; }
    bool IsDragging() const { return m_isDragging; }
    Editor::Unit LastUnit() const { return m_unit; }

private:
    Editor& m_editor;
    Editor::Unit m_unit = Editor::Unit::Character;
    Editor::Span m_origin{};  // that the press selected
    bool m_isDragging = false;
};

}  // namespace qvui::native
