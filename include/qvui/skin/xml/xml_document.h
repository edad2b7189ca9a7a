#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include <qvui/platform/cstring.h>

namespace DUI {

/// A lenient, read-only XML document over multibyte text.
///
/// Parsing keeps the text unchanged and builds an index of its elements. A cursor (parent, current element,
/// current child) moves over the index; values are extracted from the text and unescaped on request. Errors
/// do not stop the parser: each is logged as a result word and makes the document ill-formed, and the part
/// that could be read stays navigable. Depth and size are limited only by memory; nothing is recursive.
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

    /// Reads a text file in its declared or detected encoding and converts it to the system code page.
    /// Returns false if it cannot be read. Appends to the log `result`.
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
    /// Moves the cursor back to the document level, before the root element.
    void ResetPosition();

    /// Each function moves the cursor and returns true, or returns false and leaves it unchanged. A null name
    /// matches any element.
    bool FindElement(LPCSTR name = nullptr);
    bool FindChildElement(LPCSTR name = nullptr);
    bool IntoElement();
    bool OutOfElement();

    /// Values are empty if there is nothing to read.
    CString GetAttribute(LPCSTR name) const;
    CString GetAttribute(const CString& name) const;
    CString GetChildAttribute(LPCSTR name) const;
    /// Returns the name of the attribute at `index` (starting at 0) of the current element.
    CString GetAttributeName(int index) const;
    CString GetTagName() const;
    CString GetChildTagName() const;
    CString GetChildData() const;
    /// Returns the current element's text from its start tag to its end tag, including white space after it
    /// if a "<" follows.
    CString GetSubDocument() const;
    /// Byte offsets in the document, for messages: of the start tag of the current element and of the current
    /// child element, and of the value of an attribute of the current element. -1 if there is none.
    int GetElementOffset() const;
    int GetChildOffset() const;
    int GetAttributeOffset(LPCSTR name) const;
    /// Returns the memory used by the index, in bytes.
    std::size_t GetIndexSize() const;

private:
    static constexpr std::uint32_t kLongestText = 0x3FFFFFFF;  // bytes; a longer text is treated as empty

    /// Elements are stored in the order of their start tags, so the first child has the next index.
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
    /// Offsets in the text; the value is not unescaped.
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
    /// Returns the element's attributes, which are read on first request; valid until another element's are
    /// requested.
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
    std::vector<Element> m_elements;  // the document has index 0
    mutable std::uint32_t m_attributesOf = 0;
    mutable std::vector<Attribute> m_attributes;
};

/// Replaces character references and entities by their characters in the system code page. Unknown
/// references, and characters that the code page lacks, are left unchanged.
QVUI_API CString UnescapeXml(std::string_view text);

}  // namespace DUI
