#include "native/kernel/code_pages.h"

#include <iconv.h>
#include <langinfo.h>
#include <locale.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <map>
#include <utility>

#include <qvui/platform/cstring.h>

namespace qvui::native {
namespace {

struct CodePageName {
    UINT codePage;
    const char* name;
};

// Converter names of code pages. Numbers that are not listed are tried as "CP" and the number. A page that
// the converter lacks is mapped to the nearest one that it has: for 10001 to 10003, 10008, 10021, 20002 and
// 20105 the set that the page extends, and for 10079 a set with an eth instead of a d with a stroke.
constexpr CodePageName kNames[] = {
    {37, "IBM037"},         {10000, "MACINTOSH"},    {10001, "SHIFT_JIS"},
    {10002, "BIG5"},        {10003, "EUC-KR"},       {10008, "EUC-CN"},
    {10017, "MAC-UK"},      {10021, "TIS-620"},      {10029, "MAC-CENTRALEUROPE"},
    {10079, "MAC-IS"},      {20002, "BIG5"},         {20105, "ASCII"},
    {20106, "DIN_66003"},   {20107, "SEN_850200_B"}, {20108, "NS_4551-1"},
    {20261, "T.61-8BIT"},   {20269, "ISO_6937"},     {20273, "IBM273"},
    {20277, "IBM277"},      {20278, "IBM278"},       {20280, "IBM280"},
    {20284, "IBM284"},      {20285, "IBM285"},       {20290, "IBM290"},
    {20297, "IBM297"},      {20420, "IBM420"},       {20423, "IBM423"},
    {20424, "IBM424"},      {20871, "IBM871"},       {20880, "IBM880"},
    {20905, "IBM905"},      {38598, "ISO-8859-8"},   {50221, "ISO-2022-JP-3"},
    {1200, "UTF-16LE"},     {1201, "UTF-16BE"},      {12000, "UTF-32LE"},
    {12001, "UTF-32BE"},    {20127, "ASCII"},        {20866, "KOI8-R"},
    {21866, "KOI8-U"},      {20932, "EUC-JP"},       {28591, "ISO-8859-1"},
    {28592, "ISO-8859-2"},  {28593, "ISO-8859-3"},   {28594, "ISO-8859-4"},
    {28595, "ISO-8859-5"},  {28596, "ISO-8859-6"},   {28597, "ISO-8859-7"},
    {28598, "ISO-8859-8"},  {28599, "ISO-8859-9"},   {28603, "ISO-8859-13"},
    {28605, "ISO-8859-15"}, {932, "CP932"},          {936, "GBK"},
    {949, "UHC"},           {950, "BIG5"},           {50220, "ISO-2022-JP"},
    {50225, "ISO-2022-KR"}, {51932, "EUC-JP"},       {51936, "EUC-CN"},
    {51949, "EUC-KR"},      {52936, "HZ"},           {54936, "GB18030"},
    {65000, "UTF-7"},       {65001, "UTF-8"},
};

constexpr UINT kUtf16 = 1200;
constexpr UINT kUtf8 = 65001;
constexpr UINT kAscii = 20127;
constexpr std::string_view kReplacement = "\xEF\xBF\xBD";  // U+FFFD in UTF-8

// Whether bytes below 0x80 are ASCII in a code page, as in all common text encodings. Most texts are pure
// ASCII and then need no converter.
bool HoldsAscii(UINT codePage)
{
    constexpr UINT kPages[] = {kUtf8, kAscii, 874, 932, 936, 949, 950, 20866, 21866, 54936};
    return (codePage >= 1250 && codePage <= 1258) || (codePage >= 28591 && codePage <= 28605) ||
           std::find(std::begin(kPages), std::end(kPages), codePage) != std::end(kPages);
}

template <class Unit>
bool IsAscii(const Unit* text, std::size_t size)
{
    Unit bits = 0;
    for (std::size_t i = 0; i < size; ++i)
        bits = static_cast<Unit>(bits | text[i]);
    return (bits & ~Unit{0x7F}) == 0;
}

// Copies ASCII between character widths, following the capacity rules that both directions share.
template <class From, class To>
int CopyAscii(const From* from, std::size_t size, To* to, int capacity)
{
    if (capacity == 0)
        return static_cast<int>(size);
    if (size > static_cast<std::size_t>(capacity)) {
        SetLastError(ERROR_INSUFFICIENT_BUFFER);
        return 0;
    }
    std::transform(from, from + size, to, [](From unit) { return static_cast<To>(unit); });
    return static_cast<int>(size);
}

std::string NameOf(UINT codePage)
{
    for (const CodePageName& entry : kNames)
        if (entry.codePage == codePage)
            return entry.name;
    return "CP" + std::to_string(codePage);
}

UINT CodePageOf(const std::string& codeset)
{
    static constexpr CodePageName kCodesets[] = {
        {kUtf8, "UTF-8"},      {936, "GBK"},          {936, "GB2312"},        {950, "BIG5"},
        {932, "SHIFT_JIS"},    {20932, "EUC-JP"},     {949, "EUC-KR"},        {54936, "GB18030"},
        {28591, "ISO-8859-1"}, {28592, "ISO-8859-2"}, {28605, "ISO-8859-15"}, {1251, "CP1251"},
        {1252, "CP1252"},      {20866, "KOI8-R"},
    };
    for (const CodePageName& entry : kCodesets)
        if (codeset == entry.name)
            return entry.codePage;
    // The plain "C" locale reports ASCII; UTF-8 is used instead because it represents every text.
    return kUtf8;
}

UINT CodePageOfLocale()
{
    const locale_t locale = newlocale(LC_CTYPE_MASK, "", nullptr);
    if (!locale)
        return kUtf8;
    const UINT codePage = CodePageOf(nl_langinfo_l(CODESET, locale));
    freelocale(locale);
    return codePage;
}

UINT g_override = 0;

class Converter {
public:
    Converter(UINT from, UINT to) : m_descriptor(iconv_open(NameOf(to).c_str(), NameOf(from).c_str())) {}
    Converter(const Converter&) = delete;
    Converter& operator=(const Converter&) = delete;
    ~Converter()
    {
        if (IsUsable())
            iconv_close(m_descriptor);
    }
    bool IsUsable() const { return m_descriptor != reinterpret_cast<iconv_t>(static_cast<INT_PTR>(-1)); }
    iconv_t Descriptor() const { return m_descriptor; }

private:
    iconv_t m_descriptor;
};

// Converters are expensive to open, so one is cached per pair of code pages.
const Converter& ConverterOf(UINT from, UINT to)
{
    static auto& converters = *new std::map<std::pair<UINT, UINT>, Converter>();
    return converters.try_emplace({from, to}, from, to).first->second;
}

// Converts all of `input`. At input that cannot be converted, `replace(position, rest)` returns the
// replacement text and the number of bytes to skip. Returns false if there is no converter for the pair.
template <class Replace>
bool Convert(UINT from, UINT to, std::string_view input, std::string& output, Replace replace)
{
    const Converter& opened = ConverterOf(from, to);
    if (!opened.IsUsable())
        return false;
    const iconv_t converter = opened.Descriptor();
    iconv(converter, nullptr, nullptr, nullptr, nullptr);
    char* in = const_cast<char*>(input.data());
    std::size_t left = input.size();
    char chunk[4096];
    while (left > 0) {
        char* out = chunk;
        std::size_t room = sizeof chunk;
        const std::size_t result = iconv(converter, &in, &left, &out, &room);
        output.append(chunk, sizeof chunk - room);
        if (result != static_cast<std::size_t>(-1) || errno == E2BIG)
            continue;
        std::size_t skip = replace(std::string_view(in, left), output);
        skip = std::min(skip, left);
        in += skip;
        left -= skip;
        iconv(converter, nullptr, nullptr, nullptr, nullptr);
    }
    char* out = chunk;
    std::size_t room = sizeof chunk;
    iconv(converter, nullptr, nullptr, &out, &room);
    output.append(chunk, sizeof chunk - room);
    return true;
}

UINT Resolve(UINT codePage)
{
    return codePage == CP_ACP || codePage == 3 || codePage == 1 ? GetACP() : codePage;
}

std::string_view Bytes(LPCWSTR wide, std::size_t length)
{
    return {reinterpret_cast<const char*>(wide), length * sizeof(WCHAR)};
}

// Bytes that a Windows code page leaves undefined map to the control characters with the same number.
bool IsUndefinedControl(UINT codePage, unsigned number)
{
    const bool isWindowsPage = codePage == 874 || (codePage >= 1250 && codePage <= 1258);
    if (!isWindowsPage || number < 0x80 || number > 0x9F)
        return false;
    const char byte = static_cast<char>(number);
    std::string ignored;
    bool isDefined = true;
    Convert(codePage, kUtf16, {&byte, 1}, ignored, [&isDefined](std::string_view, std::string&) {
        isDefined = false;
        return std::size_t{1};
    });
    return !isDefined;
}

// The well-formed UTF-8 sequences: ranges of the first two bytes; all further bytes are 80 to BF.
struct Utf8Form {
    unsigned char firstLead, lastLead;
    std::size_t length;
    unsigned char firstSecond, lastSecond;
};
constexpr Utf8Form kUtf8Forms[] = {
    {0x00, 0x7F, 1, 0, 0},       {0xC2, 0xDF, 2, 0x80, 0xBF}, {0xE0, 0xE0, 3, 0xA0, 0xBF},
    {0xE1, 0xEC, 3, 0x80, 0xBF}, {0xED, 0xED, 3, 0x80, 0x9F}, {0xEE, 0xEF, 3, 0x80, 0xBF},
    {0xF0, 0xF0, 4, 0x90, 0xBF}, {0xF1, 0xF3, 4, 0x80, 0xBF}, {0xF4, 0xF4, 4, 0x80, 0x8F},
};

struct Utf8Sequence {
    std::size_t length;  // at least 1
    bool isWhole;
};

// Reads the character at the start of a text, or the valid part of an incomplete one.
Utf8Sequence ReadUtf8(std::string_view text)
{
    const auto byte = [text](std::size_t at) { return static_cast<unsigned char>(text[at]); };
    for (const Utf8Form& form : kUtf8Forms) {
        if (byte(0) < form.firstLead || byte(0) > form.lastLead)
            continue;
        std::size_t length = 1;
        while (length < std::min(form.length, text.size()) &&
               byte(length) >= (length == 1 ? form.firstSecond : 0x80) &&
               byte(length) <= (length == 1 ? form.lastSecond : 0xBF))
            ++length;
        return {length, length == form.length};
    }
    return {1, false};
}

// The length of the invalid character at the start of a text; an invalid double-byte character counts as two
// bytes.
std::size_t BrokenLength(UINT codePage, std::string_view text)
{
    if (codePage == kUtf8)
        return ReadUtf8(text).length;
    return text.size() > 1 && IsDBCSLeadByteEx(codePage, static_cast<BYTE>(text[0])) ? 2 : 1;
}

// Returns text of a UTF-8 system code page with invalid sequences replaced.
std::string ValidUtf8(std::string_view text)
{
    std::string result;
    result.reserve(text.size());
    const char* end = text.data() + text.size();
    for (const char* at = text.data(); at < end;) {
        const auto length = static_cast<std::size_t>(CharacterLength(at, end));
        const std::string_view character(at, length);
        const Utf8Sequence sequence = ReadUtf8(character);
        result += sequence.isWhole && sequence.length == length ? character : kReplacement;
        at += length;
    }
    return result;
}

constexpr bool IsHighSurrogate(WCHAR unit)
{
    return unit >= 0xD800 && unit < 0xDC00;
}
constexpr bool IsLowSurrogate(WCHAR unit)
{
    return unit >= 0xDC00 && unit < 0xE000;
}

}  // namespace

void OverrideSystemCodePage(UINT codePage)
{
    g_override = codePage;
}

std::string SystemToUtf8(std::string_view text)
{
    const UINT system = GetACP();
    if (system == kUtf8)
        return ValidUtf8(text);
    std::string result;
    Convert(system, kUtf8, text, result, [system](std::string_view rest, std::string& out) {
        const auto number = static_cast<unsigned char>(rest[0]);
        if (IsUndefinedControl(system, number))
            out.append({static_cast<char>(0xC2), static_cast<char>(number)});
        else
            out += kReplacement;
        return BrokenLength(system, rest);
    });
    return result;
}

std::string Utf8ToSystem(std::string_view text)
{
    std::string result;
    const UINT system = GetACP();
    if (system == kUtf8 || text.empty())
        return std::string(text);
    Convert(kUtf8, system, text, result, [](std::string_view rest, std::string& out) {
        out += '?';
        std::size_t length = 1;
        while (length < rest.size() && (static_cast<unsigned char>(rest[length]) & 0xC0) == 0x80)
            ++length;
        return length;
    });
    return result;
}

}  // namespace qvui::native

using namespace qvui::native;

UINT GetACP()
{
    static const UINT fromLocale = CodePageOfLocale();
    return g_override ? g_override : fromLocale;
}

BOOL IsValidCodePage(UINT codePage)
{
    return ConverterOf(Resolve(codePage), kUtf16).IsUsable();
}

int MultiByteToWideChar(UINT codePage, DWORD flags, LPCSTR text, int length, LPWSTR wide, int capacity)
{
    if (!text || length == 0 || capacity < 0) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return 0;
    }
    const std::size_t size = length < 0 ? std::strlen(text) + 1 : static_cast<std::size_t>(length);
    codePage = Resolve(codePage);
    if (HoldsAscii(codePage) && IsAscii(text, size))
        return CopyAscii(text, size, wide, capacity);
    std::string units;
    bool invalid = false;
    const WCHAR replacement = codePage == kUtf8 || codePage == kAscii ? u'\uFFFD' : u'?';
    const auto replace = [&](std::string_view rest, std::string& out) {
        const WCHAR control = static_cast<unsigned char>(rest[0]);
        const bool isControl = IsUndefinedControl(codePage, control);
        invalid = invalid || !isControl;
        out.append(Bytes(isControl ? &control : &replacement, 1));
        return BrokenLength(codePage, rest);
    };
    const bool known = Convert(codePage, kUtf16, {text, size}, units, replace);
    if (!known || (invalid && (flags & MB_ERR_INVALID_CHARS))) {
        SetLastError(known ? ERROR_NO_UNICODE_TRANSLATION : ERROR_INVALID_PARAMETER);
        return 0;
    }
    const int count = static_cast<int>(units.size() / sizeof(WCHAR));
    if (capacity == 0)
        return count;
    if (count > capacity) {
        SetLastError(ERROR_INSUFFICIENT_BUFFER);
        return 0;
    }
    std::memcpy(wide, units.data(), units.size());
    return count;
}

int WideCharToMultiByte(UINT codePage, DWORD, LPCWSTR wide, int length, LPSTR text, int capacity,
                        LPCSTR defaultCharacter, BOOL* usedDefault)
{
    if (!wide || length == 0 || capacity < 0) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return 0;
    }
    std::size_t size = static_cast<std::size_t>(length);
    if (length < 0)
        for (size = 1; wide[size - 1]; ++size) {
        }
    codePage = Resolve(codePage);
    if (HoldsAscii(codePage) && IsAscii(wide, size)) {
        if (usedDefault)
            *usedDefault = FALSE;
        return CopyAscii(wide, size, text, capacity);
    }
    std::string bytes;
    bool replaced = false;
    const std::string substitute(codePage == kUtf8  ? kReplacement
                                 : defaultCharacter ? defaultCharacter
                                                    : "?");
    const auto replace = [&](std::string_view rest, std::string& out) {
        WCHAR pair[2] = {};
        std::memcpy(pair, rest.data(), std::min(rest.size(), sizeof pair));
        const bool isControl = IsUndefinedControl(codePage, pair[0]);
        replaced = replaced || !isControl;
        out.append(isControl ? std::string(1, static_cast<char>(pair[0])) : substitute);
        return IsHighSurrogate(pair[0]) && IsLowSurrogate(pair[1]) ? sizeof pair : sizeof(WCHAR);
    };
    const bool known = Convert(kUtf16, codePage, Bytes(wide, size), bytes, replace);
    if (usedDefault)
        *usedDefault = replaced && codePage != kUtf8;
    if (!known) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return 0;
    }
    if (capacity == 0)
        return static_cast<int>(bytes.size());
    if (bytes.size() > static_cast<std::size_t>(capacity)) {
        SetLastError(ERROR_INSUFFICIENT_BUFFER);
        return 0;
    }
    std::memcpy(text, bytes.data(), bytes.size());
    return static_cast<int>(bytes.size());
}

BOOL IsDBCSLeadByteEx(UINT codePage, BYTE byte)
{
    switch (Resolve(codePage)) {
        case 932:
            return (byte >= 0x81 && byte <= 0x9F) || (byte >= 0xE0 && byte <= 0xFC);
        case 936:
        case 949:
        case 950:
        case 54936:
            return byte >= 0x81 && byte <= 0xFE;
        default:
            return FALSE;
    }
}

BOOL IsDBCSLeadByte(BYTE byte)
{
    return IsDBCSLeadByteEx(CP_ACP, byte);
}
