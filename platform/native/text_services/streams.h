#pragma once

#include "native/text_services/editor.h"

namespace qvui::native {

/// Reads a stream into an editor by the SF_ and SFF_ flags: replaces everything or, with SFF_SELECTION, the
/// selection. Returns what was read: bytes of text, units of RTF; 0 without a format. The stream's error is
/// set.
LRESULT StreamIn(Editor& editor, DWORD flags, EDITSTREAM& stream, int limit);
/// Writes the text or the selection. Returns the bytes written, 0 after an error.
LRESULT StreamOut(Editor& editor, DWORD flags, EDITSTREAM& stream);

/// The text of [first, last) as UTF-16 with "\r\n" for breaks.
std::u16string TextWithLineFeeds(const Editor& editor, Editor::Position first, Editor::Position last);
/// RTF as a fragment for an editor. False when it is none.
bool ReadRtf(Editor& editor, std::string_view rtf, Fragment& fragment, int most);

}  // namespace qvui::native
