#include "document.h"

#include <algorithm>
#include <cstdlib>

#include <qvui/skin/xml/xml_document.h>

namespace qvui::skin_tool {
namespace {

using DUI::CXmlDocument;

std::string ToStd(const CString& text)
{
    return std::string(text.View());
}

/// The XML reader's result words, each in plain language; {} stands for the element's name.
struct ResultWord {
    const char* word;
    const char* meaning;
};
constexpr ResultWord kResultWords[] = {
    {"first_tag_syntax", "a \"<\" that begins no tag"},
    {"doctype_tag_syntax", "a document type declaration without its end"},
    {"exclamation_tag_syntax", "\"<!\" that begins no comment, CDATA section or document type"},
    {"comment_tag_syntax", "a comment without its \"-->\""},
    {"cdata_section_syntax", "a CDATA section without its \"]]>\""},
    {"unterminated_tag_syntax", "a tag without its \">\""},
    {"lone_end_tag", "the end tag \"</{}>\" has no element to end"},
    {"unended_start_tag", "the element \"{}\" has no end tag"},
    {"root_has_sibling", "a second top-level element \"{}\": a document has one"},
    {"no_root_element", "the document has no element"},
};

std::string Meaning(const ResultWord& word, const std::string& tag)
{
    std::string meaning = word.meaning;
    const std::size_t gap = meaning.find("{}");
    return gap == std::string::npos ? meaning : meaning.replace(gap, 2, tag);
}

// The log is a list of empty elements; in one root it is a document.
std::vector<DocumentProblem> ReadLog(const CString& log)
{
    std::vector<DocumentProblem> problems;
    CXmlDocument events;
    if (!events.SetDocument("<log>" + log + "</log>"))
        return {{"the document is not well formed", 0}};
    while (events.FindChildElement()) {
        const CString word = events.GetChildTagName();
        for (const ResultWord& known : kResultWords)
            if (word == known.word)
                problems.push_back({Meaning(known, ToStd(events.GetChildAttribute("tagname"))),
                                    std::atoi(events.GetChildAttribute("offset"))});
    }
    return problems;
}

// The current element of the reader; attributes that are written twice count once, as they do there.
Element ReadElement(const CXmlDocument& xml)
{
    Element element;
    element.tag = ToStd(xml.GetTagName());
    element.offset = xml.GetElementOffset();
    const std::string_view text = xml.GetDocument().View();
    for (int i = 0;; ++i) {
        const CString name = xml.GetAttributeName(i);
        if (name.IsEmpty())
            return element;
        const auto first = std::find_if(element.attributes.begin(), element.attributes.end(),
                                        [&](const Attribute& known) { return name == known.name.c_str(); });
        if (first != element.attributes.end()) {
            first->isRepeated = true;
            continue;
        }
        Attribute attribute;
        attribute.name = ToStd(name);
        attribute.value = ToStd(xml.GetAttribute(name));
        attribute.valueOffset = xml.GetAttributeOffset(name);
        const std::size_t place =
            text.rfind(name.View(), static_cast<std::size_t>(std::max(attribute.valueOffset, 0)));
        attribute.nameOffset =
            place == std::string_view::npos ? attribute.valueOffset : static_cast<int>(place);
        element.attributes.push_back(std::move(attribute));
    }
}

}  // namespace

Position PositionOf(std::string_view text, int offset)
{
    return PositionOf(text, offset, 0, {});
}

Position PositionOf(std::string_view text, int offset, int knownOffset, Position known)
{
    const char* const stop = text.data() + text.size();
    const std::size_t end = std::min(static_cast<std::size_t>(std::max(offset, 0)), text.size());
    Position position = known;
    for (const char* at = text.data() + knownOffset; at < text.data() + end;
         at += CharacterLength(at, stop)) {
        ++position.column;
        if (*at == '\n')
            position = {position.line + 1, 1};
    }
    return position;
}

Position Document::Where(int offset) const
{
    if (offset < m_lastOffset) {
        m_lastOffset = 0;
        m_lastPosition = {};
    }
    m_lastPosition = PositionOf(m_text, offset, m_lastOffset, m_lastPosition);
    m_lastOffset = std::clamp(offset, 0, static_cast<int>(m_text.size()));
    return m_lastPosition;
}

int Document::EndOf(int element) const
{
    for (int at = element; at >= 0; at = At(at).parent)
        if (At(at).next >= 0)
            return At(at).next;
    return static_cast<int>(m_elements.size());
}

const Attribute* Element::Find(std::string_view name) const
{
    const auto found = std::find_if(attributes.begin(), attributes.end(),
                                    [&](const Attribute& attribute) { return attribute.name == name; });
    return found == attributes.end() ? nullptr : &*found;
}

std::string Element::Value(std::string_view name) const
{
    const Attribute* const found = Find(name);
    return found ? found->value : std::string();
}

Document Document::FromFile(const std::string& path)
{
    Document document;
    document.m_path = path;
    CString text;
    CString log;
    int flags = 0;
    document.m_isReadable = CXmlDocument::ReadTextFile(path.c_str(), text, log, flags);
    document.m_text = ToStd(text);
    if (document.m_isReadable)
        document.Parse();
    return document;
}

Document Document::FromText(const std::string& path, const std::string& text)
{
    Document document;
    document.m_path = path;
    document.m_text = text;
    document.Parse();
    return document;
}

Document Document::Unreadable(const std::string& path)
{
    Document document;
    document.m_path = path;
    document.m_isReadable = false;
    return document;
}

void Document::Parse()
{
    CXmlDocument xml;
    if (!xml.SetDocument(CString(std::string_view(m_text)))) {
        m_problems = ReadLog(xml.GetResult());
        if (m_problems.empty())
            m_problems.push_back({"the document is not well formed", 0});
        return;
    }
    xml.FindElement();
    m_elements.push_back(ReadElement(xml));
    // The reader's cursor stands on the innermost open element; beside it, its last child so far.
    struct Level {
        int element;
        int lastChild;
    };
    std::vector<Level> levels{{0, -1}};
    while (!levels.empty()) {
        if (!xml.FindChildElement()) {
            xml.OutOfElement();
            levels.pop_back();
            continue;
        }
        const CString data = levels.size() == 1 ? xml.GetChildData() : CString();
        xml.IntoElement();
        const int index = static_cast<int>(m_elements.size());
        Level& level = levels.back();
        m_elements.push_back(ReadElement(xml));
        m_elements.back().data = ToStd(data);
        m_elements.back().parent = level.element;
        if (level.lastChild < 0)
            m_elements[static_cast<std::size_t>(level.element)].firstChild = index;
        else
            m_elements[static_cast<std::size_t>(level.lastChild)].next = index;
        level.lastChild = index;
        levels.push_back({index, -1});
    }
}

}  // namespace qvui::skin_tool
