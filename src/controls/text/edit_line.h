#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace DUI {

/// The content of a single-line field: its text in the system code page, the caret, the selection and what
/// can be undone. It knows no window and no font. Indexes count bytes and never lie within a character.
class EditLine {
public:
    static constexpr int kNoLimit = -1;

    const std::string& Text() const { return m_text; }
    int Length() const { return static_cast<int>(m_text.size()); }
    int Caret() const { return m_caret; }
    int SelectionStart() const { return m_selectionStart; }
    int SelectionEnd() const { return m_selectionEnd; }
    bool HasSelection() const { return m_selectionStart < m_selectionEnd; }
    std::string SelectedText() const;
    int Limit() const { return m_limit; }

    /// A new text, which nothing of before can be undone in; the caret stays as far as it can.
    void SetText(std::string_view text);
    /// The most bytes that input may bring the text to, or kNoLimit.
    void SetLimit(int bytes) { m_limit = bytes; }
    /// Whether input turns the whole text to capitals.
    void SetUppercase(bool isOn) { m_isUppercase = isOn; }

    // Selecting
    void SelectAll();
    void ClearSelection();
    /// Selects what lies between two indexes, with the caret at the second.
    void Select(int from, int to);
    /// A press of the pointer: the caret goes there and a selection by keys will start there.
    void Press(int index);
    /// Moves the caret; `extends` selects up to it from where the selection began.
    void MoveTo(int index, bool extends);
    void MoveToStart(bool extends);
    void MoveToEnd(bool extends);

    // Editing. False: the text is as before.
    /// One byte of input: a character may come in several.
    bool Type(char byte);
    /// Whether a character has begun whose other bytes have not come.
    static bool IsCharacterPending() { return s_pendingBytes > 0; }
    /// Puts a text in place of the selection, cut at the limit; line ends become blanks, other control
    /// characters go.
    bool Paste(std::string_view text);
    bool DeleteSelection();
    /// Deletes the selection, or else what lies between the caret and an index.
    bool DeleteTo(int index);

    bool CanUndo() const { return !m_undo.empty(); }
    bool Undo();
    bool Redo();

private:
    struct Change {
        int at;
        std::string removed;
        std::string inserted;
        bool joinsPrevious;  // undone together with the one before
    };

    void Replace(int at, int count, std::string_view inserted, bool joins);
    void Put(int at, std::size_t count, std::string_view inserted);
    bool CanGrowLast(int at) const;
    void Capitalize();
    int Room() const;

    // Input comes to one window at a time, so one place holds what is missing of a character.
    static int s_pendingBytes;

    std::string m_text;
    int m_caret = 0;
    int m_selectionStart = 0;
    int m_selectionEnd = 0;
    int m_anchor = -1;  // where a selection by keys started; negative when unset
    int m_limit = kNoLimit;
    bool m_isUppercase = false;
    bool m_isTyping = false;  // the last change was typed, and more of it is undone with it
    std::vector<Change> m_undo;
    std::vector<Change> m_redo;
};

}  // namespace DUI
