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
    bool SetDocument(CString text);
    bool IsWellFormed() const;
    const CString& GetDocument() const { return m_text; }
    /// The log of the last parse: one empty element per event.
    const CString& GetResult() const { return m_result; }
    int GetFlags() const { return m_flags; }
    void SetFlags(int flags) { m_flags = flags; }
    /// Back to the document level, before the root element.
    void ResetPosition();

    /// Each moves the cursor and returns true, or returns false and leaves it. A null name matches any
    /// element.
    bool FindElement(LPCSTR name = nullptr);
    bool FindChildElement(LPCSTR name = nullptr);
    bool IntoElement();
    bool OutOfElement();

    /// Values are empty when there is nothing to read.
    CString GetAttribute(LPCSTR name) const;
    CString GetAttribute(const CString& name) const;
    CString GetChildAttribute(LPCSTR name) const;
    /// The name of the n-th attribute of the current element, counting from 0.
    CString GetAttributeName(int index) const;
    CString GetTagName() const;
    CString GetChildTagName() const;
    CString GetChildData() const;
    /// The current element's text from its start tag to its end tag, and the white space before a "<" that
    /// follows.
    CString GetSubDocument() const;
    /// Byte offsets in the document: of the current and the current child element's start tag, and of the
    /// value of an attribute of the current element; -1 when there is none. For messages about a document.
    int GetElementOffset() const;
    int GetChildOffset() const;
    int GetAttributeOffset(LPCSTR name) const;
    /// Bytes that the index takes.
    std::size_t GetIndexSize() const;

private:
    static constexpr std::uint32_t kLongestText = 0x3FFFFFFF;  // bytes; a longer text counts as empty

    /// An element's first child has the next index: records stand in the order of their start tags.
    struct Element {
        std::uint32_t start = 0;
        std::uint32_t length = 0;
        std::uint32_t startTagLength : 30;
        std::uint32_t hasEndTag : 1;
        std::uint32_t hasChildren : 1;
        std::uint32_t parent = 0;
        std::uint32_t next = 0;

        Element() : startTagLength(0), hasEndTag(0), hasChildren(0) {}
    };
    /// Offsets in the text; the value is still escaped.
    struct Attribute {
        std::uint32_t name;
        std::uint32_t nameLength;
        std::uint32_t value;
        std::uint32_t valueLength;
    };
    class Parser;

    std::string_view Text() const { return m_text.View(); }
    std::uint32_t FirstChild(std::uint32_t element) const
    {
        return m_elements[element].hasChildren ? element + 1 : 0;
    }
    std::uint32_t FirstMatch(std::uint32_t sibling, LPCSTR name) const;
    std::string_view TagName(std::uint32_t element) const;
    bool Matches(std::uint32_t element, LPCSTR name) const;
    /// The element's attributes, read when they are first asked for; borrowed until another element's are.
    const std::vector<Attribute>& Attributes(std::uint32_t element) const;
    const Attribute* FindAttribute(std::uint32_t element, std::string_view name) const;
    CString AttributeValue(std::uint32_t element, std::string_view name) const;

    CString m_text;
    CString m_result;
    std::uint32_t m_parent = 0;
    std::uint32_t m_current = 0;
    std::uint32_t m_child = 0;
    int m_flags = 0;
    bool m_isIllFormed = false;
    std::vector<Element> m_elements;  // 0 stands for the document
    mutable std::uint32_t m_attributesOf = 0;
    mutable std::vector<Attribute> m_attributes;
};

/// Replaces character references and entities by their characters in the system code page; what is unknown or
/// has no character there stays as it is.
QVUI_API CString UnescapeXml(std::string_view text);

}  // namespace DUI
