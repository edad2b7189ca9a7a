#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace qvui::skin_tool {

/// Counted from 1; the column counts characters, not bytes.
struct Position {
    int line = 1;
    int column = 1;
};

/// The place of a byte in a text of the system code page; an offset out of the text is clamped.
Position PositionOf(std::string_view text, int offset);
/// The same, starting from a byte before it whose place is known.
Position PositionOf(std::string_view text, int offset, int knownOffset, Position known);

struct Attribute {
    std::string name;
    std::string value;  // unescaped
    int nameOffset = 0;
    int valueOffset = 0;
    bool isRepeated = false;  // written again in the same tag, which the library passes over
};

/// One element of a document; its relatives are indexes, -1 for none.
struct Element {
    std::string tag;
    std::string data;  // of the root's children alone: their content, unescaped
    int offset = 0;
    int parent = -1;
    int firstChild = -1;
    int next = -1;
    std::vector<Attribute> attributes;

    /// The first attribute of that exact name; null when there is none.
    const Attribute* Find(std::string_view name) const;
    /// The value of that attribute, empty when there is none.
    std::string Value(std::string_view name) const;
};

/// What is wrong with a document as a whole.
struct DocumentProblem {
    std::string text;
    int offset = 0;
};

/// One XML document of a package, read as the library reads it, with the place of everything in it.
class Document {
public:
    /// `path` is what messages call the document.
    static Document FromFile(const std::string& path);
    static Document FromText(const std::string& path, const std::string& text);
    /// One that cannot be opened.
    static Document Unreadable(const std::string& path);

    const std::string& Path() const { return m_path; }
    /// The text in the system code page.
    const std::string& Text() const { return m_text; }
    /// False when the file cannot be opened.
    bool IsReadable() const { return m_isReadable; }
    /// False when the library gives up on the document; Problems() says why.
    bool IsWellFormed() const { return m_isReadable && m_problems.empty(); }
    const std::vector<DocumentProblem>& Problems() const { return m_problems; }

    /// In document order, the root first; none for a document that is not well formed.
    const std::vector<Element>& Elements() const { return m_elements; }
    const Element& At(int index) const { return m_elements[static_cast<std::size_t>(index)]; }
    /// The index after the last element below that one: records stand in document order.
    int EndOf(int element) const;
    /// As PositionOf; fast for places that are asked for in their order.
    Position Where(int offset) const;

private:
    void Parse();

    std::string m_path;
    std::string m_text;
    bool m_isReadable = true;
    std::vector<DocumentProblem> m_problems;
    std::vector<Element> m_elements;
    mutable int m_lastOffset = 0;  // where Where() was asked last, and what it said
    mutable Position m_lastPosition;
};

}  // namespace qvui::skin_tool
