// Case, comparison and the language of the system.

#include <cstdlib>
#include <cstring>
#include <cwctype>
#include <string>
#include <string_view>

#include "native/kernel/code_pages.h"

namespace {

// Changes case character by character; one whose other case has another length stays as it is.
template <class Map>
void MapCharacters(LPSTR text, DWORD length, Map map)
{
    bool plain = true;
    for (DWORD i = 0; i < length; ++i)
        plain = plain && static_cast<unsigned char>(text[i]) < 0x80;
    if (plain) {
        for (DWORD i = 0; i < length; ++i)
            text[i] = static_cast<char>(map(static_cast<unsigned char>(text[i])));
        return;
    }
    const std::string utf8 = qvui::native::SystemToUtf8({text, length});
    std::u16string wide(utf8.size() + 1, u'\0');
    const int count = MultiByteToWideChar(CP_UTF8, 0, utf8.data(), static_cast<int>(utf8.size()), wide.data(),
                                          static_cast<int>(wide.size()));
    for (int i = 0; i < count; ++i)
        wide[static_cast<std::size_t>(i)] = static_cast<char16_t>(map(wide[static_cast<std::size_t>(i)]));
    std::string result(length, '\0');
    if (WideCharToMultiByte(CP_ACP, 0, wide.data(), count, result.data(), static_cast<int>(length), nullptr,
                            nullptr) == static_cast<int>(length))
        std::memcpy(text, result.data(), length);
}

unsigned Upper(unsigned character)
{
    return static_cast<unsigned>(std::towupper(static_cast<wint_t>(character)));
}
unsigned Lower(unsigned character)
{
    return static_cast<unsigned>(std::towlower(static_cast<wint_t>(character)));
}

// Symbols stand before digits, digits before letters, letters before everything beyond ASCII.
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

// Null stands before every text.
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
    // As in a dictionary: letters first without regard to case, and small before capital when that ties.
    return CompareNullable(left, right, [](std::string_view a, std::string_view b) {
        const int folded = CompareWeights(a, b, true);
        return folded != 0 ? folded : CompareWeights(a, b, false);
    });
}

int lstrcmpiA(LPCSTR left, LPCSTR right)
{
    return CompareNullable(left, right, [](std::string_view a, std::string_view b) {
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
