#include <qvui/skin/text_values.h>

#include <algorithm>
#include <cstdlib>
#include <limits>
#include <string>

namespace DUI {

BOOL IsTrue(const CString& value)
{
    return EqualNoCase(value.View(), "true");
}

int ReadInteger(LPCSTR text, LPCSTR* end)
{
    constexpr long long kLeast = std::numeric_limits<int>::min();
    constexpr long long kMost = std::numeric_limits<int>::max();
    char* after = nullptr;
    // Parsed as long long, so that the result does not depend on the width of long.
    const long long number = text ? std::strtoll(text, &after, 10) : 0;
    if (end)
        *end = after;
    return static_cast<int>(std::clamp(number, kLeast, kMost));
}

void ReadIntegers(const CString& text, std::size_t longest, int* values, std::size_t count)
{
    const std::string cut(text.View().substr(0, longest));
    LPCSTR at = cut.c_str();
    const LPCSTR end = at + cut.size();
    for (std::size_t i = 0; i < count; ++i) {
        LPCSTR after = end;
        values[i] = at < end ? ReadInteger(at, &after) : 0;
        at = after < end ? after + 1 : end;
    }
}

}  // namespace DUI
