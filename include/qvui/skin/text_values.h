#pragma once

#include <qvui/platform/cstring.h>

namespace DUI {

// Values as documents and templates write them.

/// "true" in any letter case.
QVUI_API BOOL IsTrue(const CString& value);

/// The decimal number that the text begins with, after white space; 0 when there is none. A number beyond 32
/// bits becomes the nearest one that they hold. `end`, when given, receives the position after the number, or
/// `text` itself when there is none. A null text reads as an empty one.
QVUI_API int ReadInteger(LPCSTR text, LPCSTR* end = nullptr);

/// Reads `count` numbers from the first `longest` bytes of the text, each one starting one character after
/// the end of the one before ("1,2" and "1, 2" alike). What is missing or no number reads as 0.
QVUI_API void ReadIntegers(const CString& text, std::size_t longest, int* values, std::size_t count);
template <std::size_t Count>
void ReadIntegers(const CString& text, std::size_t longest, int (&values)[Count])
{
    ReadIntegers(text, longest, values, Count);
}

}  // namespace DUI
