#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "native/text_services/text_view.h"
#include "native/text_services/undo_history.h"
#include "native/text_services/words.h"

namespace qvui::native {

/// A text with a selection and a history: what editing commands do, apart from any host. Positions and
/// coordinates are those of Document and TextView. The formats that text gets are those of the text around
/// it.
class Editor {
public:
    using Position = Document::Position;

    Editor();

    const Document& Text() const { return m_document; }
    TextView& View() { return m_view; }
    const TextView& View() const { return m_view; }
    const Selection& Selected() const { return m_selection; }
    bool IsModified() const { return m_isModified; }
    void SetModified(bool isModified) { m_isModified = isModified; }
    UndoHistory& History() { return m_history; }

    /// Whether breaks are accepted; a single line is cut at its first one.
    void SetMultiLine(bool isMultiLine) { m_isMultiLine = isMultiLine; }
    bool IsMultiLine() const { return m_isMultiLine; }
    void SetRich(bool isRich) { m_isRich = isRich; }
    bool IsRich() const { return m_isRich; }
    void SetDetectsLinks(bool detects);
    bool DetectsLinks() const { return m_detectsLinks; }
    void SetPassword(bool isPassword) { m_isPassword = isPassword; }

    /// Replaces everything, unmodified and with an empty history unless `keepsUndo`; the caret goes to the
    /// start.
    void SetText(std::u16string text, bool keepsUndo = false);
    /// Replaces the selection by text in the format of the insertion point, or by a fragment with its own
    /// formats; one step of the history, or none and an empty history without `canUndo`. The caret goes after
    /// it.
    void ReplaceSelection(std::u16string_view text, bool canUndo = true);
    void ReplaceSelection(Fragment fragment, bool canUndo = true);
    /// Replaces the selection by typed characters.
    void Type(std::u16string_view text);
    /// Delete the selection, or what the caret stands before or after: a character, or up to the border of a
    /// word. False when there is nothing to delete.
    bool DeleteForward(bool byWord);
    bool DeleteBackward(bool byWord);
    void DeleteSelection();

    bool Undo();
    bool Redo();

    /// Selects from `anchor` to `active`, clamped to the text; the end of the text may include the final
    /// mark.
    void Select(Position anchor, Position active, bool atEndOfLine = false);
    void SelectAll() { Select(0, m_document.Length() + 1); }
    enum class Move {
        Left,
        Right,
        WordLeft,
        WordRight,
        LineStart,
        LineEnd,
        TextStart,
        TextEnd,
        Up,
        Down,
        PageUp,
        PageDown
    };
    /// Moves the caret, or the selection's moving end; a page is `page` pixels high.
    void MoveCaret(Move move, bool extends, int page = 0);
    /// What a drag selects at once.
    enum class Unit { Character, Word, Paragraph };
    struct Span {
        Position first;
        Position last;
    };
    Span SpanAt(Position position, Unit unit);
    Caret CaretPlace() const;
    /// The selection without the final mark.
    Span SelectedText() const;

    /// The format that typed text gets.
    CharFormat InsertionFormat() const;
    /// Of the selection, with the bits of what is the same all over it.
    struct SelectionFormat {
        CharFormat format;
        DWORD mask;
    };
    SelectionFormat FormatOfSelection() const;
    /// `change` alters a format. On an empty selection it holds for what is typed next.
    using ChangeFormat = std::function<void(CharFormat&)>;
    void FormatSelection(const ChangeFormat& change);
    void FormatRange(Position first, Position last, const ChangeFormat& change);
    void SetDefaultFormat(const CharFormat& format);
    const CharFormat& DefaultFormat() const { return m_formats[kDefaultFormat]; }
    struct ParagraphFormat {
        ParaFormat format;
        DWORD mask;
    };
    ParagraphFormat FormatOfParagraphs() const;
    void FormatParagraphs(const std::function<void(ParaFormat&)>& change);
    void SetDefaultParagraphFormat(const ParaFormat& format);

    /// The start of the first occurrence of a text from `first` on, before `last`; of the last one before
    /// `first`, after `last`, when it is looked for upwards. -1 when there is none.
    Position Find(std::u16string_view wanted, Position first, Position last, bool isDown, bool matchesCase,
                  bool isWholeWord);

    FormatPool<CharFormat>& CharFormats() { return m_document.CharFormats(); }
    FormatPool<ParaFormat>& ParaFormats() { return m_document.ParaFormats(); }
    Words WordsOfText() { return {m_document, m_view}; }

    /// Counts changes of the text.
    int Changes() const { return m_changes; }
    /// What has changed in text or formats since the last call.
    std::optional<Span> TakeDamage() { return std::exchange(m_damage, std::nullopt); }

private:
    void Replace(Position first, Position last, Fragment fragment,
                 std::optional<FormatId> tail = std::nullopt);
    UndoHistory::Step Apply(UndoHistory::Step step);
    UndoHistory::Record Invert(UndoHistory::Record record);
    Fragment Prepare(std::u16string_view text) const;
    FormatId InsertionFormatId() const;
    bool DeleteRange(Position first, Position last, bool isTyping);
    void MoveVertically(int direction, int page, bool extends);
    void DetectLinks(Position first, Position last);
    void ForgetInsertionFormat() { m_insertion.reset(); }
    void Damage(Position first, Position last, int growth = 0);

    Document m_document;
    FormatPool<CharFormat>& m_formats;
    TextView m_view;
    UndoHistory m_history;
    Selection m_selection;
    std::optional<FormatId> m_insertion;    // set on the empty selection, for what is typed next
    std::optional<std::int64_t> m_wishedX;  // that vertical movements aim at
    int m_changes = 0;
    std::optional<Span> m_damage;
    bool m_isModified = false;
    bool m_isMultiLine = true;
    bool m_isRich = true;
    bool m_detectsLinks = false;
    bool m_isPassword = false;
};

}  // namespace qvui::native
