#pragma once

#include <algorithm>
#include <cstdlib>
#include <string>

#include <qvui/platform/cstring.h>

namespace DUI {

/// Reads decimal integers from a text of which at most 126 bytes count, each one starting one character
/// behind the end of the number before ("1,2" and "1, 2" alike). What is missing or no number reads as 0.
template <std::size_t Count>
void ReadIntegerList(const CString& text, int (&values)[Count])
{
    constexpr std::size_t kLongest = 126;
    constexpr long kLargest = 0x7FFFFFFF;
    const std::string cut(text.View().substr(0, kLongest));
    const char* at = cut.c_str();
    const char* const end = at + cut.size();
    for (int& value : values) {
        char* behind = nullptr;
        const long number = at < end ? std::strtol(at, &behind, 10) : 0;
        value = static_cast<int>(std::clamp(number, -kLargest - 1, kLargest));
        at = behind && behind < end ? behind + 1 : end;
    }
}

}  // namespace DUI
