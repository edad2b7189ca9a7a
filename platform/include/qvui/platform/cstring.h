#pragma once

#include <cstdarg>
#include <cstddef>
#include <string>
#include <string_view>
#include <utility>

#include <qvui/platform/platform.h>

/// A multibyte string in the system code page, with value semantics.
///
/// Positions and lengths are in bytes. Operations that look at characters (case, trimming, searching,
/// replacing) step over whole characters, so a double-byte or UTF-8 sequence is never split or matched inside
/// another one.
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

    /// Converts UTF-16 text to the system code page. Characters that it lacks become its default character.
    static CString FromWide(const WCHAR* text, int length = -1);
    /// Returns the text as UTF-16, without a terminating zero.
    std::basic_string<WCHAR> ToWide() const;
    /// Converts UTF-8 text to the system code page.
    static CString FromUtf8(std::string_view text);

    operator LPCSTR() const { return m_text.c_str(); }
    LPCSTR GetString() const { return m_text.c_str(); }
    std::string_view View() const { return m_text; }
    int GetLength() const { return static_cast<int>(m_text.size()); }
    bool IsEmpty() const { return m_text.empty(); }
    void Empty() { m_text.clear(); }

    /// Returns the byte at `index`, or 0 if `index` is negative or not less than the length.
    char GetAt(int index) const
    {
        return Size(index) < m_text.size() && index >= 0 ? m_text[Size(index)] : '\0';
    }
    char operator[](int index) const { return GetAt(index); }
    void SetAt(int index, char character);

    /// Returns a writable buffer for at least `length` bytes and a terminating zero, valid until
    /// ReleaseBuffer.
    LPSTR GetBuffer(int length = 0);
    /// Ends the use of the buffer. The text's length becomes `length`, or the offset of the first zero byte
    /// if `length` is -1.
    void ReleaseBuffer(int length = -1);

    CString& operator+=(const CString& text);
    CString& operator+=(LPCSTR text);
    CString& operator+=(char character);
    void Append(LPCSTR text, int length);

    /// Compares bytes. Returns a negative number, 0 or a positive number.
    int Compare(LPCSTR other) const;
    /// Like Compare, ignoring letter case in the system code page.
    int CompareNoCase(LPCSTR other) const;

    /// Returns the position of the first match at or after `from`, or -1 if there is none.
    int Find(LPCSTR text, int from = 0) const;
    int Find(char character, int from = 0) const;
    int ReverseFind(char character) const;
    /// Returns the position of the first character that is in `set`, or -1 if there is none.
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

    /// Replaces every occurrence and returns the number of replacements.
    int Replace(LPCSTR from, LPCSTR to);
    int Remove(char character);
    int Insert(int index, LPCSTR text);
    int Delete(int index, int count = 1);
    /// Returns the next token between characters of `separators` and moves `position`, its starting point,
    /// past the token. At the end, returns an empty string and sets `position` to -1.
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
    /// Returns the position of the first character at or after `from` that is (or is not) in `set`, or -1 if
    /// there is none.
    int FindInSet(LPCSTR set, std::size_t from, bool isMember) const;
    /// Returns the length in bytes of the character at position `at`.
    int LengthAt(std::size_t at) const;
    static std::size_t Size(int count)
    {
        return count > 0 ? static_cast<std::size_t>(count) : 0;
    }

    std::string m_text;
};

/// Compares two texts, ignoring the case of ASCII letters. Does not allocate memory.
QVUI_API bool EqualNoCase(std::string_view left, std::string_view right);

/// Returns the length in bytes of the character at `text`, in the system code page: at least 1 before `end`,
/// and never past `end`.
QVUI_API int CharacterLength(const char* text, const char* end);
