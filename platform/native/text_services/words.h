#pragma once

#include "native/text_services/text_view.h"

namespace qvui::native {

/// Words as the platform's edit controls count them: a run of letters and digits or of punctuation with the
/// spaces after it; a break is a word of its own. Scripts without spaces are divided where the shaper finds a
/// boundary.
class Words {
public:
    using Position = Document::Position;

    Words(const Document& document, TextView& view) : m_document(document), m_view(view) {}

    /// The start of the next word; the end of the text after the last one.
    Position Next(Position position) const;
    /// The start of the word before a position.
    Position Previous(Position position) const;
    struct Span {
        Position first;
        Position last;
    };
    /// The word that holds a position, with its spaces.
    Span Around(Position position) const;
    /// The same without spaces; empty beside a word.
    Span Bare(Position position) const;

private:
    enum class Kind { Space, Letter, Punctuation, Break };
    Kind KindAt(Position position) const;
    bool IsBorder(Position position) const;

    const Document& m_document;
    TextView& m_view;
};

}  // namespace qvui::native
