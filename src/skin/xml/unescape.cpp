// Resolves character references and entities.

#include <algorithm>
#include <string>

#include <qvui/skin/xml/xml_document.h>

#include "skin/xml/tables.h"

namespace DUI {
namespace {

constexpr std::size_t kLongestName = 9;
constexpr unsigned kFirstPairCharacter = 0x10000;
constexpr unsigned kLastCharacter = 0x10FFFF;

// Returns the value of a digit, or 99 for any other character.
unsigned DigitOf(char character)
{
    if (character >= '0' && character <= '9')
        return static_cast<unsigned>(character - '0');
    const char lower = static_cast<char>(character | 0x20);
    return lower >= 'a' && lower <= 'f' ? static_cast<unsigned>(lower - 'a' + 10) : 99;
}

unsigned NumberedCharacter(std::string_view digits, unsigned base)
{
    unsigned value = 0;
    for (const char character : digits) {
        const unsigned digit = DigitOf(character);
        value = value * base + digit;
        if (digit >= base || value > kLastCharacter)
            return 0;
    }
    return value;
}

// Returns the character that the text between "&" and ";" denotes, or 0 if there is none.
unsigned ReferencedCharacter(std::string_view name)
{
    if (name.substr(0, 2) == "#x" || name.substr(0, 2) == "#X")
        return NumberedCharacter(name.substr(2), 16);
    if (name.substr(0, 1) == "#")
        return NumberedCharacter(name.substr(1), 10);
    char lower[kLongestName];
    const auto lowerAscii = [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c; };
    std::transform(name.begin(), name.end(), lower, lowerAscii);
    return FindXmlEntity({lower, name.size()});
}

bool IsHalfPair(unsigned character)
{
    return character >= 0xD800 && character < 0xE000;
}

// Appends a character in the system code page. Returns false if the code page lacks it.
bool AppendCharacter(unsigned character, std::string& text)
{
    if (character == 0 || IsHalfPair(character))
        return false;
    if (character < 0x80) {
        // ASCII is the same in every system code page.
        text += static_cast<char>(character);
        return true;
    }
    WCHAR units[2] = {static_cast<WCHAR>(character), 0};
    int count = 1;
    if (character >= kFirstPairCharacter) {
        units[0] = static_cast<WCHAR>(0xD800 + ((character - kFirstPairCharacter) >> 10));
        units[1] = static_cast<WCHAR>(0xDC00 + ((character - kFirstPairCharacter) & 0x3FF));
        count = 2;
    }
    char bytes[16];
    BOOL usedDefault = FALSE;
    // WideCharToMultiByte rejects a default-character argument for UTF-8.
    const bool canAsk = GetACP() != CP_UTF8;
    const int length = WideCharToMultiByte(CP_ACP, 0, units, count, bytes, static_cast<int>(sizeof bytes),
                                           nullptr, canAsk ? &usedDefault : nullptr);
    if (usedDefault || length <= 0)
        return false;
    text.append(bytes, static_cast<std::size_t>(length));
    return true;
}

// Returns the length of the name after an "&" if a ";" ends it within the limit, otherwise npos.
std::size_t NameLength(std::string_view text)
{
    for (std::size_t length = 0; length <= kLongestName && length < text.size(); ++length) {
        if (text[length] == ';')
            return length;
        if (static_cast<unsigned char>(text[length]) > 127)
            break;
    }
    return std::string_view::npos;
}

}  // namespace

CString UnescapeXml(std::string_view text)
{
    std::size_t ampersand = text.find('&');
    if (ampersand == std::string_view::npos)
        return CString(text);
    std::string result;
    result.reserve(text.size());
    std::size_t copied = 0;
    // "&" is not a trail byte in any multibyte code page.
    for (; ampersand != std::string_view::npos; ampersand = text.find('&', ampersand + 1)) {
        const std::size_t length = NameLength(text.substr(ampersand + 1));
        if (length == std::string_view::npos)
            continue;
        result.append(text, copied, ampersand - copied);
        copied = ampersand;
        if (AppendCharacter(ReferencedCharacter(text.substr(ampersand + 1, length)), result)) {
            ampersand += length + 1;
            copied = ampersand + 1;
        }
    }
    return CString(std::move(result.append(text, copied)));
}

}  // namespace DUI
