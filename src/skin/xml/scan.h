#pragma once

// Character classes of markup, and reading of the attributes of a tag.

#include <array>
#include <cstddef>
#include <string_view>

namespace DUI {

enum XmlCharacterClass : unsigned char {
    kXmlBlank = 1,
    kXmlNameEnd = 2,
    kXmlTagStop = 4,  // ends a tag, or starts a quotation that may contain any character
};

constexpr std::array<unsigned char, 256> MakeXmlClasses()
{
    std::array<unsigned char, 256> classes{};
    for (const char blank : {' ', '\t', '\n', '\r'})
        classes[static_cast<unsigned char>(blank)] = kXmlBlank | kXmlNameEnd;
    for (const char end : {'<', '>', '=', '\\', '/', '?', '!', '"', '\'', ';'})
        classes[static_cast<unsigned char>(end)] = kXmlNameEnd;
    for (const char stop : {'<', '>', '"', '\''})
        classes[static_cast<unsigned char>(stop)] |= kXmlTagStop;
    return classes;
}
inline constexpr std::array<unsigned char, 256> kXmlClasses = MakeXmlClasses();

inline bool IsXml(char character, XmlCharacterClass what)
{
    return (kXmlClasses[static_cast<unsigned char>(character)] & what) != 0;
}

inline std::size_t SkipXmlBlanks(std::string_view text, std::size_t at)
{
    while (at < text.size() && IsXml(text[at], kXmlBlank))
        ++at;
    return at;
}

inline std::size_t SkipXmlName(std::string_view text, std::size_t at)
{
    while (at < text.size() && !IsXml(text[at], kXmlNameEnd))
        ++at;
    return at;
}

/// Skips to the next bracket or quote.
inline std::size_t SkipXmlTagText(std::string_view text, std::size_t at)
{
    while (at < text.size() && !IsXml(text[at], kXmlTagStop))
        ++at;
    return at;
}

inline bool HasXmlAt(std::string_view text, std::size_t at, std::string_view what)
{
    return text.compare(at, what.size(), what) == 0;
}

inline bool IsXmlQuote(char character)
{
    return character == '"' || character == '\'';
}

/// Returns the position after the quotation that starts at `at`, or the text's end for an unterminated one.
inline std::size_t XmlQuotationEnd(std::string_view text, std::size_t at)
{
    const std::size_t close = text.find(text[at], at + 1);
    return close == std::string_view::npos ? text.size() : close + 1;
}

/// Views into the tag. The value is not unescaped; it is empty for an attribute without "=".
struct XmlAttribute {
    std::string_view name;
    std::string_view value;
    std::size_t end = 0;  // the position after the attribute
};

std::size_t SkipXmlStrays(std::string_view tag, std::size_t at);

/// Reads the first attribute at or after `position`; `tag` is a tag without its closing bracket. Returns
/// false if there is none.
inline bool ReadXmlAttribute(std::string_view tag, std::size_t position, XmlAttribute& attribute)
{
    std::size_t at = SkipXmlBlanks(tag, position);
    if (at < tag.size() && IsXml(tag[at], kXmlNameEnd))
        at = SkipXmlStrays(tag, at);
    if (at >= tag.size())
        return false;
    const std::size_t nameEnd = SkipXmlName(tag, at);
    attribute.name = tag.substr(at, nameEnd - at);
    attribute.value = tag.substr(nameEnd, 0);
    attribute.end = nameEnd;
    at = SkipXmlBlanks(tag, nameEnd);
    if (at >= tag.size() || tag[at] != '=')
        return true;
    at = SkipXmlBlanks(tag, at + 1);
    if (at < tag.size() && IsXmlQuote(tag[at])) {
        attribute.end = XmlQuotationEnd(tag, at);
        const bool isClosed = attribute.end > at + 1 && tag[attribute.end - 1] == tag[at];
        attribute.value = tag.substr(at + 1, attribute.end - at - (isClosed ? 2 : 1));
    } else {
        attribute.end = SkipXmlName(tag, at);
        attribute.value = tag.substr(at, attribute.end - at);
    }
    return true;
}

/// Returns the value, not unescaped, of the first attribute with that name, or an empty view.
std::string_view FindXmlAttribute(std::string_view tag, std::string_view name);

}  // namespace DUI
