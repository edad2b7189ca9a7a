#pragma once

#include <qvui/platform/cstring.h>

namespace DUI {

// Reads values in the format of documents and templates.

/// Whether the text is "true", ignoring case.
QVUI_API BOOL IsTrue(const CString& value);

/// Reads the decimal number at the start of the text, after white space. Returns 0 if there is none, and
/// saturates to 32 bits. `end`, if not null, receives the position after the number, or `text` itself if
/// there is none. A null text is read as an empty one.
QVUI_API int ReadInteger(LPCSTR text, LPCSTR* end = nullptr);

/// Reads `count` numbers from the first `longest` bytes of the text. Each number starts one character after
/// the end of the previous one ("1,2" and "1, 2" are equivalent). Missing or invalid numbers are read as 0.
QVUI_API void ReadIntegers(const CString& text, std::size_t longest, int* values, std::size_t count);
template <std::size_t Count>
void ReadIntegers(const CString& text, std::size_t longest, int (&values)[Count])
{
    ReadIntegers(text, longest, values, Count);
}

}  // namespace DUI
