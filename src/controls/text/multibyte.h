#pragma once

#include <string_view>

/// Where characters begin in a text of the system code page. In UTF-8 a character is a whole sequence; in
/// every other code page a byte of 128 or above and the byte after it are one character. Indexes count bytes.
namespace DUI::multibyte {

/// Bytes of the character that begins with `lead`; 0 in UTF-8 for a byte that begins none.
int LengthOf(char lead);
/// Whether a byte can follow the first one of a character.
bool Continues(char byte);
/// The end of the character at an index, and the start of the one before it; both stay within the text.
int Next(std::string_view text, int index);
int Previous(std::string_view text, int index);
/// The start of the character that an index lies in.
int Floor(std::string_view text, int index);
/// The next start of a word, or the end; and the one before, or 0.
int NextWord(std::string_view text, int index);
int PreviousWord(std::string_view text, int index);
/// The end of the word, or of the run of blanks or signs, that begins at or holds the index.
int WordEnd(std::string_view text, int index);

}  // namespace DUI::multibyte
