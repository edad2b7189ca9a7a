#pragma once

#include <qvui/qvui.h>

namespace writer {

/// Counts the lines of a text by its line ends, without laying it out, so that it stays fast in a long text.
/// Counting goes on from an anchor before the last answer.
class LineCounter {
public:
    struct Place {
        int line;  // from 0
        int column;
    };
    /// The line and column of a position.
    Place Locate(DUI::CDUIRichEdit& editor, LONG position);

private:
    struct Anchor {
        LONG position = 0;
        LONG lineStart = 0;
        int line = 0;
    };
    Anchor m_anchor;
    LONG m_length = 0;  // of the text at the last answer
};

}  // namespace writer
