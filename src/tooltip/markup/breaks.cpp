#include "tooltip/markup/breaks.h"

#include <algorithm>
#include <iterator>

#include <qvui/platform/platform.h>

namespace DUI::html {
namespace {

// Characters that must not begin a line: closing brackets and quotes, trailing punctuation, small kana.
// Sorted.
constexpr char32_t kNeverFirst[] = {
    U'!',   U'"',   U'%',   U'\'',  U')',   U',',   U'.',   U':',   U';',   U'?',   U']',   U'}',   0x2019,
    0x201D, 0x2025, 0x2026, 0x3001, 0x3002, 0x3005, 0x3009, 0x300B, 0x300D, 0x300F, 0x3011, 0x3015, 0x3017,
    0x3041, 0x3043, 0x3045, 0x3047, 0x3049, 0x3063, 0x3083, 0x3085, 0x3087, 0x308E, 0x309D, 0x309E, 0x30A1,
    0x30A3, 0x30A5, 0x30A7, 0x30A9, 0x30C3, 0x30E3, 0x30E5, 0x30E7, 0x30EE, 0x30F5, 0x30F6, 0x30FB, 0x30FC,
    0x30FD, 0x30FE, 0xFF01, 0xFF05, 0xFF09, 0xFF0C, 0xFF0E, 0xFF1A, 0xFF1B, 0xFF1F, 0xFF3D, 0xFF5D, 0xFF5E,
};
// Characters that must not end a line: opening brackets and quotes. Sorted.
constexpr char32_t kNeverLast[] = {
    U'(',   U'[',   U'{',   0x2018, 0x201C, 0x3008, 0x300A, 0x300C,
    0x300E, 0x3010, 0x3014, 0x3016, 0xFF08, 0xFF3B, 0xFF5B,
};
static_assert(std::is_sorted(std::begin(kNeverFirst), std::end(kNeverFirst)));
static_assert(std::is_sorted(std::begin(kNeverLast), std::end(kNeverLast)));

bool IsIdeograph(char32_t character)
{
    struct Range {
        char32_t first;
        char32_t last;
    };
    // Hangul is not included, because it is written with spaces and breaks at them.
    static constexpr Range kRanges[] = {
        {0x2E80, 0xA4CF}, {0xF900, 0xFAFF}, {0xFE30, 0xFE4F}, {0xFF00, 0xFFEF}, {0x20000, 0x3FFFF},
    };
    return std::any_of(std::begin(kRanges), std::end(kRanges), [=](const Range& range) {
        return character >= range.first && character <= range.last;
    });
}

template <std::size_t Count>
bool Contains(const char32_t (&characters)[Count], char32_t character)
{
    return std::binary_search(std::begin(characters), std::end(characters), character);
}

}  // namespace

char32_t CodePointOf(std::string_view character)
{
    if (character.size() == 1 && static_cast<unsigned char>(character.front()) < 0x80)
        return static_cast<unsigned char>(character.front());
    WCHAR wide[2]{};
    const int count =
        MultiByteToWideChar(CP_ACP, 0, character.data(), static_cast<int>(character.size()), wide, 2);
    if (count < 2)
        return wide[0];
    return 0x10000 + ((static_cast<char32_t>(wide[0]) & 0x3FF) << 10) + (wide[1] & 0x3FF);
}

bool MayBreakBetween(char32_t before, char32_t after)
{
    if (before == U' ' || after == U' ')
        return after != U' ';
    return (IsIdeograph(before) || IsIdeograph(after)) && !Contains(kNeverFirst, after) &&
           !Contains(kNeverLast, before);
}

}  // namespace DUI::html
