// Letter case, comparison and the system language.

#include <locale.h>
#include <wctype.h>

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <cwctype>
#include <string>
#include <string_view>

#include <qvui/platform/cstring.h>
#include <qvui/platform/native/kernel.h>

namespace {

// A locale with the case of every letter, independent of the program's own. Null if the system has none.
locale_t LetterLocale()
{
    static const locale_t locale = newlocale(LC_CTYPE_MASK, "C.UTF-8", nullptr);
    return locale;
}

wint_t Upper(wint_t character)
{
    return LetterLocale() ? towupper_l(character, LetterLocale()) : std::towupper(character);
}

wint_t Lower(wint_t character)
{
    return LetterLocale() ? towlower_l(character, LetterLocale()) : std::towlower(character);
}

using CaseMap = wint_t (*)(wint_t);

// Maps the case of one character. An invalid character, or one whose other case has a different length, is
// left unchanged.
void MapCharacter(LPSTR text, int length, CaseMap map)
{
    WCHAR wide[2];
    if (MultiByteToWideChar(CP_ACP, MB_ERR_INVALID_CHARS, text, length, wide, 2) != 1)
        return;
    const WCHAR mapped = static_cast<WCHAR>(map(wide[0]));
    char result[4];
    if (mapped != wide[0] &&
        WideCharToMultiByte(CP_ACP, 0, &mapped, 1, result, sizeof result, nullptr, nullptr) == length)
        std::memcpy(text, result, static_cast<std::size_t>(length));
}

void MapCharacters(LPSTR text, DWORD length, CaseMap map)
{
    for (LPSTR end = text + length; text < end;) {
        const int size = CharacterLength(text, end);
        if (static_cast<unsigned char>(*text) < 0x80)
            *text = static_cast<char>(map(static_cast<unsigned char>(*text)));
        else
            MapCharacter(text, size, map);
        text += size;
    }
}

bool IsAscii(std::string_view text)
{
    return std::all_of(text.begin(), text.end(),
                       [](char byte) { return static_cast<unsigned char>(byte) < 0x80; });
}

// Symbols sort before digits, digits before letters, and letters before non-ASCII characters.
int Weight(unsigned char byte, bool foldCase)
{
    if (byte >= 0x80)
        return 0x400 + byte;
    const bool isUpper = byte >= 'A' && byte <= 'Z';
    if (isUpper || (byte >= 'a' && byte <= 'z'))
        return 0x200 + 2 * ((byte | 0x20) - 'a') + (isUpper && !foldCase ? 1 : 0);
    return (byte >= '0' && byte <= '9' ? 0x100 : 0) + byte;
}

int CompareWeights(std::string_view left, std::string_view right, bool foldCase)
{
    const std::size_t common = std::min(left.size(), right.size());
    for (std::size_t i = 0; i < common; ++i) {
        const int difference = Weight(static_cast<unsigned char>(left[i]), foldCase) -
                               Weight(static_cast<unsigned char>(right[i]), foldCase);
        if (difference != 0)
            return difference;
    }
    return left.size() == right.size() ? 0 : left.size() < right.size() ? -1 : 1;
}

int Sign(int value)
{
    return (value > 0) - (value < 0);
}

// Null sorts before every text.
template <class Compare>
int CompareNullable(LPCSTR left, LPCSTR right, Compare compare)
{
    if (!left || !right)
        return (left != nullptr) - (right != nullptr);
    return Sign(compare(std::string_view(left), std::string_view(right)));
}

}  // namespace

DWORD CharUpperBuffA(LPSTR text, DWORD length)
{
    MapCharacters(text, length, Upper);
    return length;
}

DWORD CharLowerBuffA(LPSTR text, DWORD length)
{
    MapCharacters(text, length, Lower);
    return length;
}

int lstrlenA(LPCSTR text)
{
    return text ? static_cast<int>(std::strlen(text)) : 0;
}

int lstrcmpA(LPCSTR left, LPCSTR right)
{
    // Dictionary order: compared ignoring case first; on a tie, lower case sorts before upper case.
    return CompareNullable(left, right, [](std::string_view a, std::string_view b) {
        const int folded = CompareWeights(a, b, true);
        return folded != 0 ? folded : CompareWeights(a, b, false);
    });
}

int lstrcmpiA(LPCSTR left, LPCSTR right)
{
    return CompareNullable(left, right, [](std::string_view a, std::string_view b) {
        if (a == b)
            return 0;
        if (IsAscii(a) && IsAscii(b))
            return CompareWeights(a, b, true);
        std::string lowerA(a);
        std::string lowerB(b);
        CharLowerBuffA(lowerA.data(), static_cast<DWORD>(lowerA.size()));
        CharLowerBuffA(lowerB.data(), static_cast<DWORD>(lowerB.size()));
        return CompareWeights(lowerA, lowerB, true);
    });
}

LPSTR lstrcpynA(LPSTR target, LPCSTR source, int capacity)
{
    if (capacity <= 0)
        return target;
    const std::size_t length = std::min(std::strlen(source), static_cast<std::size_t>(capacity - 1));
    std::memcpy(target, source, length);
    target[length] = '\0';
    return target;
}

LANGID GetSystemDefaultLangID()
{
    struct Language {
        const char* locale;
        LANGID id;
    };
    static constexpr Language kLanguages[] = {
        {"zh_CN", 2052}, {"zh_TW", 1028}, {"zh_HK", 3076}, {"zh_SG", 4100}, {"ja", 1041}, {"ko", 1042},
        {"de", 1031},    {"fr", 1036},    {"es", 3082},    {"it", 1040},    {"ru", 1049}, {"pt_BR", 1046},
    };
    constexpr LANGID kEnglish = 1033;
    for (const char* variable : {"LC_ALL", "LC_CTYPE", "LANG"}) {
        const char* value = std::getenv(variable);
        if (!value || !*value)
            continue;
        for (const Language& language : kLanguages)
            if (std::strncmp(value, language.locale, std::strlen(language.locale)) == 0)
                return language.id;
        break;
    }
    return kEnglish;
}
