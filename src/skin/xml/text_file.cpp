// Reads text files in any supported encoding.

#include <algorithm>
#include <cstdio>
#include <limits>
#include <memory>
#include <string>
#include <vector>

#include <qvui/platform/file.h>
#include <qvui/skin/xml/xml_document.h>

#include "skin/xml/log.h"
#include "skin/xml/scan.h"
#include "skin/xml/tables.h"
#include "skin/xml/text_file.h"

namespace DUI {
namespace {

constexpr std::size_t kLookAhead = 1024;

struct Mark {
    std::string_view bytes;
    const char* encoding;
    int flag;
};
constexpr Mark kMarks[] = {
    {"\xEF\xBB\xBF", "UTF-8", CXmlDocument::kUtf8Preamble},
    {"\xFF\xFE", "UTF-16LE", CXmlDocument::kUtf16LeFile},
    {"\xFE\xFF", "UTF-16BE", CXmlDocument::kUtf16BeFile},
};

struct CloseFile {
    void operator()(std::FILE* file) const { std::fclose(file); }
};

bool ReadBytes(LPCSTR path, std::string& bytes)
{
    constexpr long kLargestFile = std::numeric_limits<int>::max() / 4;
    const std::unique_ptr<std::FILE, CloseFile> file(OpenPlatformFile(path, "rb"));
    if (!file || std::fseek(file.get(), 0, SEEK_END) != 0)
        return false;
    const long size = std::ftell(file.get());
    if (size < 0 || size > kLargestFile)
        return false;
    std::rewind(file.get());
    bytes.resize(static_cast<std::size_t>(size));
    bytes.resize(std::fread(bytes.data(), 1, bytes.size(), file.get()));
    return !std::ferror(file.get());
}

std::string LowerAscii(std::string_view text)
{
    std::string lower(text);
    std::transform(lower.begin(), lower.end(), lower.begin(),
                   [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c; });
    return lower;
}

// Finds the character set in an HTML head: <meta http-equiv="Content-Type" content="text/html; charset=...">.
std::string HtmlCharset(std::string_view start)
{
    constexpr std::string_view kCharset = "charset=";
    const std::string html = LowerAscii(start);
    const std::size_t head = html.find("<head", html.find("<html"));
    const std::string_view inHead = std::string_view(html).substr(0, html.find("</head"));
    for (std::size_t at = inHead.find("<meta", head); at != std::string::npos;
         at = inHead.find("<meta", at + 1)) {
        const std::string_view tag = inHead.substr(at, inHead.find('>', at) - at);
        if (FindXmlAttribute(tag, "http-equiv") != "content-type")
            continue;
        const std::string_view content = FindXmlAttribute(tag, "content");
        if (const std::size_t charset = content.find(kCharset); charset != std::string::npos) {
            const std::string_view name = content.substr(charset + kCharset.size());
            return std::string(name.substr(0, name.find_first_of("; ")));
        }
    }
    return {};
}

// Returns the encoding that the text declares.
std::string DeclaredEncoding(std::string_view start)
{
    constexpr std::string_view kDeclaration = "<?xml";
    if (start.substr(0, kDeclaration.size()) == kDeclaration && SkipXmlName(start, 2) == kDeclaration.size())
        return std::string(FindXmlAttribute(start.substr(0, start.find("?>")).substr(1), "encoding"));
    return HtmlCharset(start);
}

bool IsUtf8(const std::string& bytes)
{
    return bytes.empty() || MultiByteToWideChar(CP_UTF8, MB_ERR_INVALID_CHARS, bytes.data(),
                                                static_cast<int>(bytes.size()), nullptr, 0) > 0;
}

// Encodings with units of more than 8 bits. A text that was detected as 8-bit cannot use one, whatever it
// declares.
bool IsWide(int codePage)
{
    constexpr int kWide[] = {1200, 1201, 12000, 12001, 65005, 65006};
    return std::find(std::begin(kWide), std::end(kWide), codePage) != std::end(kWide);
}

using WideText = std::basic_string<WCHAR>;

CString ToSystem(const WideText& wide, XmlLog& log)
{
    if (wide.empty())
        return {};
    const int length = static_cast<int>(wide.size());
    const bool canAsk = GetACP() != CP_UTF8;
    BOOL lost = FALSE;
    const int size =
        WideCharToMultiByte(CP_ACP, 0, wide.data(), length, nullptr, 0, nullptr, canAsk ? &lost : nullptr);
    std::string text(static_cast<std::size_t>(std::max(size, 0)), '\0');
    WideCharToMultiByte(CP_ACP, 0, wide.data(), length, text.data(), size, nullptr, canAsk ? &lost : nullptr);
    if (lost)
        log.Add("conversion_loss");
    return CString(std::move(text));
}

CString FromWide(const std::string& bytes, bool isBigEndian, XmlLog& log)
{
    WideText wide;
    wide.reserve(bytes.size() / 2);
    for (std::size_t i = 0; i + 1 < bytes.size(); i += 2) {
        const auto low = static_cast<unsigned char>(bytes[i + (isBigEndian ? 1 : 0)]);
        const auto high = static_cast<unsigned char>(bytes[i + (isBigEndian ? 0 : 1)]);
        if (low != 0 || high != 0)
            wide += static_cast<WCHAR>(low | (high << 8));
    }
    if (isBigEndian)
        log.Add("endian_swap");
    if (const std::size_t nulls = bytes.size() / 2 - wide.size(); nulls > 0)
        log.Add("nulls_removed", {{"count", nulls}});
    log.Add("converted_to", {{"encoding", std::to_string(GetACP())}, {"length", wide.size()}});
    return ToSystem(wide, log);
}

CString FromEightBit(std::string bytes, std::string encoding, XmlLog& log)
{
    if (bytes.find('\0') != std::string::npos)
        log.Add("nulls_removed", {{"count", std::erase(bytes, '\0')}});
    if (encoding.empty()) {
        log.Add("utf8_detection");
        if (IsUtf8(bytes))
            encoding = "UTF-8";
    }
    const int codePage = FindCodePage(encoding);
    const auto target = static_cast<int>(GetACP());
    // An unknown encoding is not converted; an empty name means the system code page.
    if (codePage <= 0 || codePage == target || IsWide(codePage) || bytes.empty())
        return CString(std::move(bytes));
    const int length = static_cast<int>(bytes.size());
    const int size = MultiByteToWideChar(static_cast<UINT>(codePage), 0, bytes.data(), length, nullptr, 0);
    if (size <= 0) {
        // The platform cannot convert this encoding.
        log.Add("conversion_loss", {{"encoding", encoding}});
        return CString(std::move(bytes));
    }
    WideText wide(static_cast<std::size_t>(size), WCHAR());
    MultiByteToWideChar(static_cast<UINT>(codePage), 0, bytes.data(), length, wide.data(), size);
    // In some encodings other bytes than 0 convert to null characters.
    if (const std::size_t nulls = std::erase(wide, WCHAR()); nulls > 0)
        log.Add("nulls_removed", {{"count", nulls}});
    log.Add("converted_to", {{"encoding", std::to_string(target)}, {"length", wide.size()}});
    return ToSystem(wide, log);
}

}  // namespace

CString DecodeXmlText(std::string bytes, CString& result, int& flags)
{
    XmlLog log(result);
    std::string encoding;
    int wide = 0;
    for (const Mark& mark : kMarks)
        if (bytes.compare(0, mark.bytes.size(), mark.bytes) == 0) {
            encoding = mark.encoding;
            flags |= mark.flag;
            wide = mark.flag & (CXmlDocument::kUtf16LeFile | CXmlDocument::kUtf16BeFile);
            bytes.erase(0, mark.bytes.size());
            log.Add("bom", {{"encoding", encoding}});
            break;
        }
    if (encoding.empty()) {
        encoding = DeclaredEncoding(std::string_view(bytes).substr(0, kLookAhead));
        if (encoding.empty() && !bytes.empty() && bytes[0] == '<')
            encoding = "UTF-8";
    }
    log.Add("read", {{"encoding", encoding}, {"length", bytes.size()}});
    return wide ? FromWide(bytes, wide == CXmlDocument::kUtf16BeFile, log)
                : FromEightBit(std::move(bytes), std::move(encoding), log);
}

bool CXmlDocument::ReadTextFile(LPCSTR path, CString& text, CString& result, int& flags)
{
    std::string bytes;
    if (!ReadBytes(path, bytes)) {
        XmlLog(result).Add("file_error", {{"msg", std::string_view(path ? path : "")}});
        return false;
    }
    text = DecodeXmlText(std::move(bytes), result, flags);
    return true;
}

}  // namespace DUI
