#include "controls/text/multibyte.h"

#include <algorithm>
#include <cctype>

#include <qvui/platform/platform.h>

namespace DUI::multibyte {
namespace {

constexpr UINT kUtf8 = 65001;

bool IsHigh(char byte)
{
    return (static_cast<unsigned char>(byte) & 0x80) != 0;
}

bool IsContinuation(char byte)
{
    return (static_cast<unsigned char>(byte) & 0xC0) == 0x80;
}

char At(std::string_view text, int index)
{
    return text[static_cast<std::size_t>(index)];
}

int Size(std::string_view text)
{
    return static_cast<int>(text.size());
}

// Whether the byte at the index ends a two-byte character: an odd number of high bytes stands before it.
bool IsSecond(std::string_view text, int index)
{
    int first = index;
    while (first > 0 && IsHigh(At(text, first - 1)))
        --first;
    return (index - first) % 2 != 0;
}

enum class Kind { Blank, Word, Sign };

Kind KindAt(std::string_view text, int index)
{
    const char byte = At(text, index);
    if (byte == ' ' || byte == '\t')
        return Kind::Blank;
    const bool isWord = IsHigh(byte) || byte == '_' || std::isalnum(static_cast<unsigned char>(byte));
    return isWord ? Kind::Word : Kind::Sign;
}

}  // namespace

int LengthOf(char lead)
{
    const auto byte = static_cast<unsigned char>(lead);
    if (GetACP() != kUtf8)
        return byte >= 0x80 ? 2 : 1;
    return byte >= 0xF0 ? 4 : byte >= 0xE0 ? 3 : byte >= 0xC0 ? 2 : byte >= 0x80 ? 0 : 1;
}

bool Continues(char byte)
{
    return GetACP() != kUtf8 || IsContinuation(byte);
}

int Next(std::string_view text, int index)
{
    if (index >= Size(text))
        return Size(text);
    const int end = std::min(index + std::max(1, LengthOf(At(text, index))), Size(text));
    if (GetACP() != kUtf8)
        return end;
    int next = index + 1;
    while (next < end && IsContinuation(At(text, next)))
        ++next;
    return next;
}

int Previous(std::string_view text, int index)
{
    return index <= 0 ? 0 : Floor(text, index - 1);
}

int Floor(std::string_view text, int index)
{
    if (index <= 0 || index >= Size(text))
        return std::clamp(index, 0, Size(text));
    if (GetACP() != kUtf8)
        return IsSecond(text, index) ? index - 1 : index;
    constexpr int kMostContinuations = 3;
    for (int back = 0; back <= std::min(index, kMostContinuations); ++back)
        if (!IsContinuation(At(text, index - back)))
            return Next(text, index - back) > index ? index - back : index;
    return index;
}

int WordEnd(std::string_view text, int index)
{
    if (index >= Size(text))
        return Size(text);
    const Kind kind = KindAt(text, index);
    while (index < Size(text) && KindAt(text, index) == kind)
        index = Next(text, index);
    return index;
}

int NextWord(std::string_view text, int index)
{
    const int end = index < Size(text) && KindAt(text, index) == Kind::Blank ? index : WordEnd(text, index);
    return end < Size(text) && KindAt(text, end) == Kind::Blank ? WordEnd(text, end) : end;
}

int PreviousWord(std::string_view text, int index)
{
    while (index > 0 && KindAt(text, Previous(text, index)) == Kind::Blank)
        index = Previous(text, index);
    if (index == 0)
        return 0;
    const Kind kind = KindAt(text, Previous(text, index));
    while (index > 0 && KindAt(text, Previous(text, index)) == kind)
        index = Previous(text, index);
    return index;
}

}  // namespace DUI::multibyte
