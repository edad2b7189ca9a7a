#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include <qvui/platform/cstring.h>

namespace DUI {

/// A lenient, read-only XML document over multibyte text.
///
/// Parsing leaves the text as it is and builds an index of the elements; a cursor (parent, current element,
/// current child) moves over the index, and values are cut out of the text and unescaped when asked for.
/// Problems do not stop the parser: each is logged as a result word and makes the document ill-formed, and
/// what could be read stays navigable. Depth and size are bounded by memory alone; nothing recurses.
class QVUI_API CXmlDocument {
public:
    enum Flags : int {
        kUtf16LeFile = 1,
        kUtf8Preamble = 4,
        kIgnoreCase = 8,
        kReadFile = 16,
        kWriteFile = 32,
        kUtf16BeFile = 128,
    };

    CXmlDocument() = default;

    /// Reads a text file in whatever encoding it says or shows it is in, converted to the system code page.
    /// False when it cannot be read; `result` gets the log appended.
    static bool ReadTextFile(LPCSTR path, CString& text, CString& result, int& flags);

    /// Replaces the text and parses it; null empties the document. Returns IsWellFormed().
    bool SetDocument(LPCSTR text);
    bool SetDocument(const CString& text);
    bool IsWellFormed() const;
    const CString& GetDocument() const { return m_text; }
    /// The log of the last parse: one empty element per event.
    const CString& GetResult() const { return m_result; }
    int GetFlags() const { return m_flags; }
    void SetFlags(int flags) { m_flags = flags; }
    /// Back to the document level, before the root element.
    void ResetPosition();

    /// Each moves the cursor and returns true, or returns false and leaves it. A null name matches any element.
    bool FindElement(LPCSTR name = nullptr);
    bool FindChildElement(LPCSTR name = nullptr);
    bool IntoElement();
    bool OutOfElement();

    /// Values are empty when there is nothing to read.
    CString GetAttribute(LPCSTR name) const;
    CString GetChildAttribute(LPCSTR name) const;
    /// The name of the n-th attribute of the current element; linear over a walk in order.
    CString GetAttributeName(int index) const;
    CString GetTagName() const;
    CString GetChildTagName() const;
    CString GetChildData() const;
    /// The current element's text from its start tag to its end tag, and the white space before a "<" that follows.
    CString GetSubDocument() const;
    /// Byte offsets in the document: of the current and the current child element's start tag, and of the value
    /// of an attribute of the current element; -1 when there is none. For messages about a document.
    int GetElementOffset() const;
    int GetChildOffset() const;
    int GetAttributeOffset(LPCSTR name) const;
    /// Bytes that the index takes.
    std::size_t GetIndexSize() const;

private:
    struct Element {
        std::uint32_t start = 0;
        std::uint32_t length = 0;
        std::uint32_t startTagLength = 0;
        std::uint32_t endTagLength = 0;
        std::uint32_t parent = 0;
        std::uint32_t firstChild = 0;
        std::uint32_t next = 0;
        std::uint32_t previous = 0;
    };
    struct AttributeSpan {
        std::string_view name;
        std::string_view value;  // still escaped
        bool hasValue = false;
        std::size_t end = 0;
    };
    class Parser;

    std::string_view Text() const { return m_text.View(); }
    std::string_view TagName(std::uint32_t element) const;
    bool Matches(std::uint32_t element, LPCSTR name) const;
    bool ReadAttribute(std::uint32_t element, std::size_t position, AttributeSpan& attribute) const;
    bool FindAttribute(std::uint32_t element, LPCSTR name, AttributeSpan& attribute) const;
    CString AttributeValue(std::uint32_t element, LPCSTR name) const;

    CString m_text;
    CString m_result;
    std::uint32_t m_parent = 0;
    std::uint32_t m_current = 0;
    std::uint32_t m_child = 0;
    int m_flags = 0;
    bool m_isIllFormed = false;
    std::vector<Element> m_elements;  // 0 stands for the document
    // Where the walk over attribute names stands: the next attribute's number and position.
    mutable std::uint32_t m_walkElement = 0;
    mutable int m_walkIndex = 0;
    mutable std::size_t m_walkPosition = 0;
};

/// Replaces character references and entities by their characters in the system code page; what is unknown or
/// has no character there stays as it is.
QVUI_API CString UnescapeXml(std::string_view text);

}  // namespace DUI
