// Reading a text file in whatever encoding it is in.

#include <algorithm>
#include <cstdio>
#include <limits>
#include <memory>
#include <string>
#include <vector>

#include <qvui/platform/file.h>
#include <qvui/skin/xml_document.h>

#include "skin/xml_log.h"
#include "skin/xml_tables.h"

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
    const std::unique_ptr<std::FILE, CloseFile> file(OpenPlatformFile(path, "rb"));
    if (!file)
        return false;
    char chunk[65536];
    while (const std::size_t count = std::fread(chunk, 1, sizeof chunk, file.get())) {
        bytes.append(chunk, count);
        if (bytes.size() > static_cast<std::size_t>(std::numeric_limits<int>::max()) / 4)
            return false;
    }
    return !std::ferror(file.get());
}

// A value after `name` in a tag: name, blanks, "=", quote, value.
std::string QuotedValue(std::string_view tag, std::string_view name)
{
    const std::size_t at = tag.find(name);
    if (at == std::string_view::npos)
        return {};
    const std::size_t open = tag.find_first_of("\"'", at + name.size());
    const std::size_t close = open == std::string_view::npos ? open : tag.find(tag[open], open + 1);
    return close == std::string_view::npos ? std::string() : std::string(tag.substr(open + 1, close - open - 1));
}

// The encoding that the text itself names, in an XML declaration or in an HTML head.
std::string DeclaredEncoding(std::string_view start)
{
    if (start.substr(0, 5) == "<?xml")
        return QuotedValue(start.substr(0, start.find("?>")), "encoding");
    std::string lower(start);
    std::transform(lower.begin(), lower.end(), lower.begin(),
                   [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c; });
    if (lower.find("<html") == std::string::npos)
        return {};
    for (std::size_t at = lower.find("<meta"); at != std::string::npos; at = lower.find("<meta", at + 1)) {
        const std::string_view tag = std::string_view(lower).substr(at, lower.find('>', at) - at);
        if (QuotedValue(tag, "http-equiv") != "content-type")
            continue;
        const std::string content = QuotedValue(tag, "content");
        const std::size_t charset = content.find("charset=");
        if (charset != std::string::npos)
            return content.substr(charset + 8, content.find_first_of("; ", charset) - charset - 8);
    }
    return {};
}

bool IsUtf8(const std::string& bytes)
{
    return bytes.empty() || MultiByteToWideChar(CP_UTF8, MB_ERR_INVALID_CHARS, bytes.data(),
                                                static_cast<int>(bytes.size()), nullptr, 0) > 0;
}

using WideText = std::basic_string<WCHAR>;

CString ToSystem(const WideText& wide, XmlLog& log)
{
    if (wide.empty())
        return {};
    const int length = static_cast<int>(wide.size());
    const bool canAsk = GetACP() != CP_UTF8;
    BOOL lost = FALSE;
    const int size = WideCharToMultiByte(CP_ACP, 0, wide.data(), length, nullptr, 0, nullptr, canAsk ? &lost : nullptr);
    std::string text(static_cast<std::size_t>(std::max(size, 0)), '\0');
    WideCharToMultiByte(CP_ACP, 0, wide.data(), length, text.data(), size, nullptr, canAsk ? &lost : nullptr);
    if (lost)
        log.Add("conversion_loss");
    return CString(std::move(text));
}

WideText WideOf(const std::string& bytes, bool isBigEndian, XmlLog& log)
{
    WideText wide;
    std::size_t nulls = 0;
    for (std::size_t i = 0; i + 1 < bytes.size(); i += 2) {
        const auto low = static_cast<unsigned char>(bytes[i + (isBigEndian ? 1 : 0)]);
        const auto high = static_cast<unsigned char>(bytes[i + (isBigEndian ? 0 : 1)]);
        if (low == 0 && high == 0)
            ++nulls;
        else
            wide += static_cast<WCHAR>(low | (high << 8));
    }
    if (isBigEndian)
        log.Add("endian_swap");
    if (nulls > 0)
        log.Add("nulls_removed", "count", nulls);
    return wide;
}

CString FromEightBit(std::string bytes, std::string encoding, XmlLog& log)
{
    const std::size_t before = bytes.size();
    std::erase(bytes, '\0');
    if (bytes.size() != before)
        log.Add("nulls_removed", "count", before - bytes.size());
    if (encoding.empty()) {
        log.Add("utf8_detection");
        if (IsUtf8(bytes))
            encoding = "UTF-8";
    }
    const int codePage = FindCodePage(encoding);
    const auto target = static_cast<int>(GetACP());
    // An unknown encoding never converts; an empty one stands for the system's.
    if (codePage <= 0 || codePage == target || bytes.empty())
        return CString(std::move(bytes));
    const int length = static_cast<int>(bytes.size());
    const int size = MultiByteToWideChar(static_cast<UINT>(codePage), 0, bytes.data(), length, nullptr, 0);
    if (size <= 0)
        return CString(std::move(bytes));
    WideText wide(static_cast<std::size_t>(size), WCHAR());
    MultiByteToWideChar(static_cast<UINT>(codePage), 0, bytes.data(), length, wide.data(), size);
    log.Add("converted_to", "encoding", std::to_string(target), "length", wide.size());
    return ToSystem(wide, log);
}

}  // namespace

bool CXmlDocument::ReadTextFile(LPCSTR path, CString& text, CString& result, int& flags)
{
    XmlLog log(result);
    std::string bytes;
    if (!ReadBytes(path, bytes)) {
        log.Add("file_error", "msg", path ? path : "");
        return false;
    }
    std::string encoding;
    for (const Mark& mark : kMarks)
        if (bytes.compare(0, mark.bytes.size(), mark.bytes) == 0) {
            encoding = mark.encoding;
            flags |= mark.flag;
            bytes.erase(0, mark.bytes.size());
            log.Add("bom", "encoding", encoding);
            break;
        }
    if (encoding.empty()) {
        encoding = DeclaredEncoding(std::string_view(bytes).substr(0, kLookAhead));
        if (encoding.empty() && !bytes.empty() && bytes[0] == '<')
            encoding = "UTF-8";
    }
    log.Add("read", "encoding", encoding, "length", bytes.size());
    const bool isWide = flags & (kUtf16LeFile | kUtf16BeFile);
    if (!isWide) {
        text = FromEightBit(std::move(bytes), std::move(encoding), log);
        return true;
    }
    const WideText wide = WideOf(bytes, (flags & kUtf16BeFile) != 0, log);
    log.Add("converted_to", "encoding", std::to_string(GetACP()), "length", wide.size());
    text = ToSystem(wide, log);
    return true;
}

}  // namespace DUI
