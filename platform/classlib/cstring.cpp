#include <qvui/platform/cstring.h>

#include <algorithm>
#include <cstdio>
#include <cstring>

namespace {

constexpr UINT kUtf8 = 65001;
constexpr int kLongestCharacter = 4;
constexpr char kBlanks[] = " \t\n\v\f\r";

char LowerAscii(char character)
{
    return character >= 'A' && character <= 'Z' ? static_cast<char>(character - 'A' + 'a') : character;
}

bool IsOneOf(std::string_view character, const char* set)
{
    return character.size() == 1 ? character[0] != '\0' && std::strchr(set, character[0]) != nullptr
                                 : std::string_view(set).find(character) != std::string_view::npos;
}

bool HasDoubleByteCharacters()
{
    return IsDBCSLeadByte(0xC0) != FALSE || IsDBCSLeadByte(0xE0) != FALSE;
}

int Utf8Length(unsigned char lead)
{
    if (lead < 0xC2)
        return 1;
    if (lead < 0xE0)
        return 2;
    if (lead < 0xF0)
        return 3;
    return lead < 0xF5 ? 4 : 1;
}

}  // namespace

int CharacterLength(const char* text, const char* end)
{
    if (text >= end || static_cast<unsigned char>(*text) < 0x80)
        return 1;
    const auto lead = static_cast<unsigned char>(*text);
    const int left = static_cast<int>(std::min<std::ptrdiff_t>(end - text, kLongestCharacter));
    if (GetACP() != kUtf8)
        return IsDBCSLeadByte(lead) ? std::min(2, left) : 1;
    // A truncated UTF-8 sequence ends before the first byte that is not a continuation byte.
    const int whole = std::min(Utf8Length(lead), left);
    int length = 1;
    while (length < whole && (static_cast<unsigned char>(text[length]) & 0xC0) == 0x80)
        ++length;
    return length;
}

bool EqualNoCase(std::string_view left, std::string_view right)
{
    return left.size() == right.size() &&
           std::equal(left.begin(), left.end(), right.begin(),
                      [](char a, char b) { return LowerAscii(a) == LowerAscii(b); });
}

CString CString::FromWide(const WCHAR* text, int length)
{
    const auto* wide = reinterpret_cast<LPCWSTR>(text);
    CString result;
    if (!text || length == 0)
        return result;
    int size = WideCharToMultiByte(CP_ACP, 0, wide, length, nullptr, 0, nullptr, nullptr);
    if (size <= 0)
        return result;
    result.m_text.resize(Size(size));
    WideCharToMultiByte(CP_ACP, 0, wide, length, result.m_text.data(), size, nullptr, nullptr);
    if (length < 0)
        result.m_text.pop_back();
    return result;
}

std::basic_string<WCHAR> CString::ToWide() const
{
    const int length = GetLength();
    if (length == 0)
        return {};
    const int size = MultiByteToWideChar(CP_ACP, 0, m_text.data(), length, nullptr, 0);
    std::basic_string<WCHAR> wide(Size(size), WCHAR());
    MultiByteToWideChar(CP_ACP, 0, m_text.data(), length, wide.data(), size);
    return wide;
}

CString CString::FromUtf8(std::string_view text)
{
    if (text.empty())
        return {};
    const int length = static_cast<int>(text.size());
    const int size = MultiByteToWideChar(kUtf8, 0, text.data(), length, nullptr, 0);
    std::basic_string<WCHAR> wide(Size(size), WCHAR());
    MultiByteToWideChar(kUtf8, 0, text.data(), length, wide.data(), size);
    return FromWide(wide.data(), size);
}

void CString::SetAt(int index, char character)
{
    if (index >= 0 && Size(index) < m_text.size())
        m_text[Size(index)] = character;
}

LPSTR CString::GetBuffer(int length)
{
    if (Size(length) > m_text.size())
        m_text.resize(Size(length));
    return m_text.data();
}

void CString::ReleaseBuffer(int length)
{
    const std::size_t size = length < 0 ? std::strlen(m_text.c_str()) : Size(length);
    m_text.resize(std::min(size, m_text.size()));
}

CString& CString::operator+=(const CString& text)
{
    m_text += text.m_text;
    return *this;
}

CString& CString::operator+=(LPCSTR text)
{
    if (text)
        m_text += text;
    return *this;
}

CString& CString::operator+=(char character)
{
    m_text += character;
    return *this;
}

void CString::Append(LPCSTR text, int length)
{
    if (text)
        m_text.append(text, Size(length));
}

int CString::Compare(LPCSTR other) const
{
    return m_text.compare(other ? other : "");
}

int CString::CompareNoCase(LPCSTR other) const
{
    return lstrcmpiA(m_text.c_str(), other ? other : "");
}

int CString::Find(LPCSTR text, int from) const
{
    return text ? FindAt(text, Size(from)) : -1;
}

int CString::Find(char character, int from) const
{
    return FindAt({&character, 1}, Size(from));
}

int CString::FindAt(std::string_view text, std::size_t from) const
{
    std::size_t found = m_text.find(text, from);
    // In a double-byte code page a match may begin at the trail byte of a character; such matches are
    // skipped.
    if (found != std::string::npos && HasDoubleByteCharacters()) {
        std::size_t start = 0;
        while (found != std::string::npos && start != found) {
            while (start < found)
                start += static_cast<std::size_t>(LengthAt(start));
            if (start > found)
                found = m_text.find(text, start);
        }
    }
    return found == std::string::npos ? -1 : static_cast<int>(found);
}

int CString::ReverseFind(char character) const
{
    int last = -1;
    for (std::size_t at = 0; at < m_text.size(); at += static_cast<std::size_t>(LengthAt(at)))
        if (m_text[at] == character)
            last = static_cast<int>(at);
    return last;
}

int CString::FindOneOf(LPCSTR set) const
{
    return set ? FindInSet(set, 0, true) : -1;
}

int CString::FindInSet(LPCSTR set, std::size_t from, bool isMember) const
{
    for (std::size_t at = from; at < m_text.size();) {
        const auto length = static_cast<std::size_t>(LengthAt(at));
        if (IsOneOf(View().substr(at, length), set) == isMember)
            return static_cast<int>(at);
        at += length;
    }
    return -1;
}

int CString::LengthAt(std::size_t at) const
{
    return CharacterLength(m_text.data() + at, m_text.data() + m_text.size());
}

CString CString::Left(int count) const
{
    return Mid(0, count);
}

CString CString::Right(int count) const
{
    const std::size_t kept = std::min(Size(count), m_text.size());
    return CString(m_text.substr(m_text.size() - kept));
}

CString CString::Mid(int first) const
{
    return Mid(first, GetLength());
}

CString CString::Mid(int first, int count) const
{
    return Size(first) >= m_text.size() ? CString() : CString(m_text.substr(Size(first), Size(count)));
}

CString& CString::MakeUpper()
{
    CharUpperBuffA(m_text.data(), static_cast<DWORD>(m_text.size()));
    return *this;
}

CString& CString::MakeLower()
{
    CharLowerBuffA(m_text.data(), static_cast<DWORD>(m_text.size()));
    return *this;
}

CString& CString::TrimLeft(LPCSTR set)
{
    const char* start = m_text.data();
    const char* end = start + m_text.size();
    const char* at = start;
    while (at < end) {
        const int length = CharacterLength(at, end);
        if (!IsOneOf({at, Size(length)}, set ? set : kBlanks))
            break;
        at += length;
    }
    m_text.erase(0, static_cast<std::size_t>(at - start));
    return *this;
}

CString& CString::TrimRight(LPCSTR set)
{
    const char* start = m_text.data();
    const char* end = start + m_text.size();
    const char* keep = start;
    for (const char* at = start; at < end;) {
        const int length = CharacterLength(at, end);
        if (!IsOneOf({at, Size(length)}, set ? set : kBlanks))
            keep = at + length;
        at += length;
    }
    m_text.resize(static_cast<std::size_t>(keep - start));
    return *this;
}

CString& CString::Trim(LPCSTR set)
{
    return TrimRight(set).TrimLeft(set);
}

int CString::Replace(LPCSTR from, LPCSTR to)
{
    const std::string_view old(from ? from : "");
    const std::string_view fresh(to ? to : "");
    if (old.empty())
        return 0;
    int count = 0;
    std::string result;
    std::size_t start = 0;
    for (std::size_t at = 0; at + old.size() <= m_text.size();) {
        if (View().substr(at, old.size()) != old) {
            at += static_cast<std::size_t>(LengthAt(at));
            continue;
        }
        result.append(m_text, start, at - start).append(fresh);
        at += old.size();
        start = at;
        ++count;
    }
    if (count > 0)
        m_text = result.append(m_text, start, std::string::npos);
    return count;
}

int CString::Remove(char character)
{
    const int before = GetLength();
    std::string kept;
    const char* end = m_text.data() + m_text.size();
    for (const char* at = m_text.data(); at < end;) {
        const int length = CharacterLength(at, end);
        if (length > 1 || *at != character)
            kept.append(at, Size(length));
        at += length;
    }
    m_text = std::move(kept);
    return before - GetLength();
}

int CString::Insert(int index, LPCSTR text)
{
    m_text.insert(std::min(Size(index), m_text.size()), text ? text : "");
    return GetLength();
}

int CString::Delete(int index, int count)
{
    if (Size(index) < m_text.size())
        m_text.erase(Size(index), Size(count));
    return GetLength();
}

CString CString::Tokenize(LPCSTR separators, int& position) const
{
    const int start = position < 0 ? -1 : FindInSet(separators, Size(position), false);
    if (start < 0) {
        position = -1;
        return {};
    }
    const int end = FindInSet(separators, Size(start), true);
    position = end < 0 ? GetLength() : end;
    return Mid(start, position - start);
}

void CString::FormatV(LPCSTR format, va_list arguments)
{
    va_list again;
    va_copy(again, arguments);
    // Most texts fit into this buffer and are formatted only once.
    char shortText[256];
    const int length = std::vsnprintf(shortText, sizeof shortText, format, arguments);
    std::string text;
    if (Size(length) < sizeof shortText) {
        text.assign(shortText, Size(length));
    } else {
        text.resize(Size(length));
        std::vsnprintf(text.data(), text.size() + 1, format, again);
    }
    va_end(again);
    m_text = std::move(text);
}

void CString::Format(LPCSTR format, ...)
{
    va_list arguments;
    va_start(arguments, format);
    FormatV(format, arguments);
    va_end(arguments);
}

void CString::AppendFormat(LPCSTR format, ...)
{
    CString addition;
    va_list arguments;
    va_start(arguments, format);
    addition.FormatV(format, arguments);
    va_end(arguments);
    m_text += addition.m_text;
}
