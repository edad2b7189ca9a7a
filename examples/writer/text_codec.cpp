#include "writer/text_codec.h"

#include <limits>

namespace writer {
namespace {

constexpr std::string_view kUtf8Mark = "\xEF\xBB\xBF";
constexpr UINT kLatin1 = 28591;
constexpr UINT kUtf8 = 65001;

UINT CodePage()
{
    return GetACP() == kUtf8 ? kLatin1 : GetACP();
}

// nullopt for bytes that are not valid in the code page.
std::optional<std::u16string> FromCodePage(UINT codePage, std::string_view bytes)
{
    if (bytes.empty())
        return std::u16string();
    if (bytes.size() > static_cast<std::size_t>(std::numeric_limits<int>::max()))
        return std::nullopt;
    const auto size = static_cast<int>(bytes.size());
    const int length = MultiByteToWideChar(codePage, MB_ERR_INVALID_CHARS, bytes.data(), size, nullptr, 0);
    if (length <= 0)
        return std::nullopt;
    std::u16string text(static_cast<std::size_t>(length), u'\0');
    MultiByteToWideChar(codePage, MB_ERR_INVALID_CHARS, bytes.data(), size,
                        reinterpret_cast<LPWSTR>(text.data()), length);
    return text;
}

// nullopt for characters that the code page lacks: the bytes are read back and compared.
std::optional<std::string> ToCodePage(UINT codePage, std::u16string_view text)
{
    if (text.empty())
        return std::string();
    const auto wide = reinterpret_cast<LPCWSTR>(text.data());
    const auto size = static_cast<int>(text.size());
    const int length = WideCharToMultiByte(codePage, 0, wide, size, nullptr, 0, nullptr, nullptr);
    if (length <= 0)
        return std::nullopt;
    std::string bytes(static_cast<std::size_t>(length), '\0');
    WideCharToMultiByte(codePage, 0, wide, size, bytes.data(), length, nullptr, nullptr);
    const std::optional<std::u16string> back = FromCodePage(codePage, bytes);
    return back && *back == text ? std::optional(std::move(bytes)) : std::nullopt;
}

std::u16string FromUtf16(std::string_view bytes, bool isBig)
{
    std::u16string text(bytes.size() / 2, u'\0');
    for (std::size_t i = 0; i < text.size(); ++i) {
        const auto first = static_cast<unsigned char>(bytes[2 * i]);
        const auto second = static_cast<unsigned char>(bytes[2 * i + 1]);
        text[i] = static_cast<char16_t>(isBig ? first << 8 | second : second << 8 | first);
    }
    return text;
}

std::string ToUtf16(std::u16string_view text, bool isBig)
{
    std::string bytes = isBig ? "\xFE\xFF" : "\xFF\xFE";
    bytes.reserve(2 * text.size() + 2);
    for (const char16_t unit : text) {
        const auto high = static_cast<char>(unit >> 8);
        const auto low = static_cast<char>(unit & 0xFF);
        bytes += isBig ? high : low;
        bytes += isBig ? low : high;
    }
    return bytes;
}

std::u16string FromBytes(std::string_view bytes)
{
    std::u16string text;
    text.reserve(bytes.size());
    for (const char byte : bytes)
        text += static_cast<char16_t>(static_cast<unsigned char>(byte));
    return text;
}

std::optional<std::string> ToBytes(std::u16string_view text)
{
    std::string bytes;
    bytes.reserve(text.size());
    for (const char16_t unit : text) {
        if (unit > 0xFF)
            return std::nullopt;
        bytes += static_cast<char>(unit);
    }
    return bytes;
}

// The first encoding that can hold the bytes, with their text.
std::pair<Encoding, std::u16string> Detect(std::string_view bytes)
{
    const bool isEven = bytes.size() % 2 == 0;
    if (isEven && bytes.substr(0, 2) == "\xFF\xFE")
        return {Encoding::Utf16Le, FromUtf16(bytes.substr(2), false)};
    if (isEven && bytes.substr(0, 2) == "\xFE\xFF")
        return {Encoding::Utf16Be, FromUtf16(bytes.substr(2), true)};
    const bool hasMark = bytes.substr(0, kUtf8Mark.size()) == kUtf8Mark;
    if (auto text = FromCodePage(kUtf8, hasMark ? bytes.substr(kUtf8Mark.size()) : bytes))
        return {hasMark ? Encoding::Utf8Bom : Encoding::Utf8, std::move(*text)};
    if (auto text = FromCodePage(CodePage(), bytes))
        if (const auto back = ToCodePage(CodePage(), *text); back && *back == bytes)
            return {Encoding::CodePage, std::move(*text)};
    return {Encoding::Bytes, FromBytes(bytes)};
}

// A view of the line end at a position; empty when there is none.
std::u16string_view LineEndAt(std::u16string_view text, std::size_t at)
{
    if (text[at] == u'\n')
        return text.substr(at, 1);
    if (text[at] != u'\r')
        return {};
    return text.substr(at, at + 1 < text.size() && text[at + 1] == u'\n' ? 2 : 1);
}

std::u16string_view Characters(LineEnd lineEnd)
{
    return lineEnd == LineEnd::CrLf ? u"\r\n" : lineEnd == LineEnd::Lf ? u"\n" : u"\r";
}

}  // namespace

DecodedText Decode(std::string_view bytes)
{
    DecodedText decoded;
    auto [encoding, raw] = Detect(bytes);
    decoded.encoding = encoding;
    decoded.text.reserve(raw.size());
    bool isFirst = true;
    for (std::size_t at = 0; at < raw.size();) {
        const std::u16string_view end = LineEndAt(raw, at);
        if (end.empty()) {
            decoded.text += raw[at++];
            continue;
        }
        const LineEnd kind = end.size() == 2 ? LineEnd::CrLf : end == u"\n" ? LineEnd::Lf : LineEnd::Cr;
        decoded.isExact = decoded.isExact && (isFirst || kind == decoded.lineEnd);
        if (isFirst)
            decoded.lineEnd = kind;
        isFirst = false;
        decoded.text += u'\r';
        at += end.size();
    }
    return decoded;
}

std::optional<std::string> Encode(std::u16string_view text, Encoding encoding, LineEnd lineEnd)
{
    std::u16string raw;
    raw.reserve(text.size() + text.size() / 16);
    for (std::size_t at = 0; at < text.size();) {
        const std::u16string_view end = LineEndAt(text, at);
        if (end.empty())
            raw += text[at];
        else
            raw += Characters(lineEnd);
        at += end.empty() ? 1 : end.size();
    }
    switch (encoding) {
        case Encoding::Utf16Le:
        case Encoding::Utf16Be:
            return ToUtf16(raw, encoding == Encoding::Utf16Be);
        case Encoding::CodePage:
            return ToCodePage(CodePage(), raw);
        case Encoding::Bytes:
            return ToBytes(raw);
        default:
            break;
    }
    std::optional<std::string> bytes = ToCodePage(kUtf8, raw);
    if (bytes && encoding == Encoding::Utf8Bom)
        bytes->insert(0, kUtf8Mark);
    return bytes;
}

const char* NameOf(Encoding encoding)
{
    constexpr const char* kNames[] = {"UTF-8", "UTF-8 BOM", "UTF-16 LE", "UTF-16 BE", "Code page", "Bytes"};
    return kNames[static_cast<int>(encoding)];
}

const char* NameOf(LineEnd lineEnd)
{
    constexpr const char* kNames[] = {"CRLF", "LF", "CR"};
    return kNames[static_cast<int>(lineEnd)];
}

}  // namespace writer
