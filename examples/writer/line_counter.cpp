#include "writer/line_counter.h"

#include <algorithm>
#include <cstdlib>
#include <vector>

namespace writer {

LineCounter::Place LineCounter::Locate(DUI::CDUIRichEdit& editor, LONG position)
{
    constexpr LONG kChunk = 1 << 16;
    constexpr LONG kDistance =
        1 << 13;  // of the anchor before the position: edits at the caret stay after it
    const LONG length = editor.GetTextLength(GTL_PRECISE | GTL_NUMCHARS);
    // A long change may begin before the anchor.
    if (position < m_anchor.position || std::abs(length - m_length) >= kDistance)
        m_anchor = {};
    m_length = length;
    Anchor at = m_anchor;
    std::vector<WCHAR> buffer(static_cast<std::size_t>(std::min(kChunk, position - at.position)) + 2);
    while (at.position < position) {
        // The last part is kept short of the position, where the next anchor stands.
        const LONG wanted = std::min(kChunk, position - at.position);
        const LONG size = wanted > kDistance ? wanted - kDistance : wanted;
        if (position - at.position >= kDistance || m_anchor.position == 0)
            m_anchor = at;
        TEXTRANGEW range{{at.position, at.position + size}, buffer.data()};
        editor.TxSendMessage(EM_GETTEXTRANGE, 0, reinterpret_cast<LPARAM>(&range), nullptr);
        for (LONG i = 0; i < size; ++i)
            if (buffer[static_cast<std::size_t>(i)] == u'\r') {
                ++at.line;
                at.lineStart = at.position + i + 1;
            }
        at.position += size;
    }
    return {at.line, static_cast<int>(position - at.lineStart)};
}

}  // namespace writer
