#pragma once

#include <cstdarg>
#include <cstddef>
#include <string>
#include <string_view>
#include <utility>

#include <qvui/platform/platform.h>

/// A multibyte string in the system code page, with value semantics.
///
/// Positions and lengths count bytes. Operations that look at characters (case, trimming, searching,
/// replacing) step over whole characters, so a double-byte or UTF-8 sequence is never split, nor found inside
/// another.
class QVUI_API CString {
public:
    CString() = default;
    CString(LPCSTR text) : m_text(text ? text : "") {}
    CString(LPCSTR text, int length) : m_text(text ? std::string(text, Size(length)) : std::string()) {}
    explicit CString(char character, int repeat = 1) : m_text(Size(repeat), character) {}
    explicit CString(std::string_view text) : m_text(text) {}
    explicit CString(std::string&& text) noexcept : m_text(std::move(text)) {}

    CString& operator=(LPCSTR text)
    {
        m_text = text ? text : "";
        return *this;
    }

    /// UTF-16 text in the system code page; characters it lacks become the code page's default character.
    static CString FromWide(const WCHAR* text, int length = -1);
    /// The text as UTF-16, without a terminating zero.
    std::basic_string<WCHAR> ToWide() const;
    /// UTF-8 text in the system code page.
    static CString FromUtf8(std::string_view text);

    operator LPCSTR() const { return m_text.c_str(); }
    LPCSTR GetString() const { return m_text.c_str(); }
    std::string_view View() const { return m_text; }
    int GetLength() const { return static_cast<int>(m_text.size()); }
    bool IsEmpty() const { return m_text.empty(); }
    void Empty() { m_text.clear(); }

    /// The byte at `index`; 0 at the end and beyond.
    char GetAt(int index) const
    {
        return Size(index) < m_text.size() && index >= 0 ? m_text[Size(index)] : '\0';
    }
    char operator[](int index) const { return GetAt(index); }
    void SetAt(int index, char character);

    /// A writable buffer for at least `length` bytes and a zero; valid until ReleaseBuffer.
    LPSTR GetBuffer(int length = 0);
    /// Ends GetBuffer; the text's length is `length`, or up to the first zero byte when -1.
    void ReleaseBuffer(int length = -1);

    CString& operator+=(const CString& text);
    CString& operator+=(LPCSTR text);
    CString& operator+=(char character);
    void Append(LPCSTR text, int length);

    /// Byte-wise order: negative, 0 or positive.
    int Compare(LPCSTR other) const;
    /// As Compare, without regard to the case of letters in the system code page.
    int CompareNoCase(LPCSTR other) const;

    /// The position of the first match at or after `from`; -1 when there is none.
    int Find(LPCSTR text, int from = 0) const;
    int Find(char character, int from = 0) const;
    int ReverseFind(char character) const;
    /// The first position whose character is one of `set`.
    int FindOneOf(LPCSTR set) const;

    CString Left(int count) const;
    CString Right(int count) const;
    CString Mid(int first) const;
    CString Mid(int first, int count) const;

    CString& MakeUpper();
    CString& MakeLower();
    /// Removes white space, or the characters of `set`, from the start, the end or both.
    CString& TrimLeft(LPCSTR set = nullptr);
    CString& TrimRight(LPCSTR set = nullptr);
    CString& Trim(LPCSTR set = nullptr);

    /// Replaces every occurrence; the number of replacements.
    int Replace(LPCSTR from, LPCSTR to);
    int Remove(char character);
    int Insert(int index, LPCSTR text);
    int Delete(int index, int count = 1);
    /// The next token between characters of `separators`, starting at `position`, which moves behind it;
    /// -1 in `position` and an empty result at the end.
    CString Tokenize(LPCSTR separators, int& position) const;

#if defined(__GNUC__)
    __attribute__((format(printf, 2, 3)))
#endif
    void
    Format(LPCSTR format, ...);
#if defined(__GNUC__)
    __attribute__((format(printf, 2, 3)))
#endif
    void
    AppendFormat(LPCSTR format, ...);
    void FormatV(LPCSTR format, va_list arguments);

    friend CString operator+(const CString& left, const CString& right)
    {
        return CString(left.m_text + right.m_text);
    }
    friend CString operator+(const CString& left, LPCSTR right)
    {
        return left + CString(right);
    }
    friend CString operator+(LPCSTR left, const CString& right)
    {
        return CString(left) + right;
    }
    friend bool operator==(const CString& left, const CString& right)
    {
        return left.m_text == right.m_text;
    }
    friend bool operator!=(const CString& left, const CString& right)
    {
        return left.m_text != right.m_text;
    }
    friend bool operator==(const CString& left, LPCSTR right)
    {
        return left.m_text == (right ? right : "");
    }
    friend bool operator!=(const CString& left, LPCSTR right)
    {
        return !(left == right);
    }
    friend bool operator<(const CString& left, const CString& right)
    {
        return left.m_text < right.m_text;
    }

private:
    int FindAt(std::string_view text, std::size_t from) const;
    /// The first character at or after `from` that is, or is not, a member of `set`; -1 when there is none.
    int FindInSet(LPCSTR set, std::size_t from, bool isMember) const;
    /// The bytes of the character at a position inside the text.
    int LengthAt(std::size_t at) const;
    static std::size_t Size(int count)
    {
        return count > 0 ? static_cast<std::size_t>(count) : 0;
    }

    std::string m_text;
};

/// Whether two texts are equal without regard to the case of ASCII letters; allocates nothing.
QVUI_API bool EqualNoCase(std::string_view left, std::string_view right);

/// The length in bytes of the character that starts at `text` (at least 1 before the end, never past `end`),
/// in the system code page.
QVUI_API int CharacterLength(const char* text, const char* end);
