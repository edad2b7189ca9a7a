#include "skin/xml/parser.h"

#include <algorithm>
#include <cstring>

#include "skin/xml/scan.h"

namespace DUI {
namespace {

// Returns the position after the next `what`, or npos if there is none.
std::size_t Behind(std::string_view text, std::string_view what, std::size_t at)
{
    const std::size_t found = text.find(what, at);
    return found == std::string_view::npos ? found : found + what.size();
}

}  // namespace

CXmlDocument::Parser::Parser(CXmlDocument& document)
    : m_document(document),
      m_elements(document.m_elements),
      m_text(document.Text()),
      m_log(document.m_result)
{
}

void CXmlDocument::Parser::Run()
{
    if (m_text.size() > kLongestText)
        m_text = {};
    m_elements.emplace_back();
    m_levels.push_back({0, 0});
    while (m_at < m_text.size()) {
        const void* found = std::memchr(m_text.data() + m_at, '<', m_text.size() - m_at);
        if (!found)
            break;
        m_at = static_cast<std::size_t>(static_cast<const char*>(found) - m_text.data());
        ParseConstruct();
    }
    while (m_levels.size() > 1)
        CloseUnended(m_text.size());
    m_elements.shrink_to_fit();
    CheckRoot();
}

void CXmlDocument::Parser::ParseConstruct()
{
    const char next = m_at + 1 < m_text.size() ? m_text[m_at + 1] : '\0';
    if (next == '/')
        ParseEndTag();
    else if (next == '?')
        SkipTo("?>", 2, "unterminated_tag_syntax");
    else if (next == '!')
        ParseExclamation();
    else
        ParseStartTag();
}

void CXmlDocument::Parser::ParseExclamation()
{
    constexpr std::string_view kComment = "<!--";
    constexpr std::string_view kSection = "<![CDATA[";
    if (HasXmlAt(m_text, m_at, kComment)) {
        SkipTo("-->", kComment.size(), "comment_tag_syntax");
    } else if (HasXmlAt(m_text, m_at, kSection)) {
        SkipTo("]]>", kSection.size(), "cdata_section_syntax");
    } else if (HasXmlAt(m_text, m_at, "<!DOCTYPE")) {
        SkipDocumentType();
    } else {
        Report("exclamation_tag_syntax");
        ++m_at;
    }
}

void CXmlDocument::Parser::SkipTo(std::string_view end, std::size_t openerLength, const char* word)
{
    const std::size_t behind = Behind(m_text, end, m_at + openerLength);
    if (behind == std::string_view::npos)
        Report(word);
    m_at = std::min(behind, m_text.size());
}

// The internal subset is in brackets and may contain tags, quotations and comments.
void CXmlDocument::Parser::SkipDocumentType()
{
    int depth = 0;
    for (std::size_t at = m_at; at < m_text.size();) {
        const char character = m_text[at];
        if (character == '>' && depth <= 0) {
            m_at = at + 1;
            return;
        }
        if (character == '"' || character == '\'')
            at = Behind(m_text, {&character, 1}, at + 1);
        else if (HasXmlAt(m_text, at, "<!--"))
            at = Behind(m_text, "-->", at + 4);
        else
            ++at;
        depth += (character == '[') - (character == ']');
    }
    Report("doctype_tag_syntax");
    m_at = m_text.size();
}

void CXmlDocument::Parser::ParseStartTag()
{
    std::size_t at = SkipXmlName(m_text, m_at + 1);
    if (at == m_at + 1) {
        Report("first_tag_syntax");
        ++m_at;
        return;
    }
    while ((at = SkipXmlTagText(m_text, at)) < m_text.size() && m_text[at] != '<') {
        if (m_text[at] == '>') {
            AddElement(at + 1 - m_at, m_text[at - 1] == '/');
            m_at = at + 1;
            return;
        }
        at = XmlQuotationEnd(m_text, at);
    }
    Report("unterminated_tag_syntax");
    ++m_at;
}

void CXmlDocument::Parser::AddElement(std::size_t tagLength, bool isEmpty)
{
    const auto index = static_cast<std::uint32_t>(m_elements.size());
    Level& level = m_levels.back();
    if (level.lastChild)
        m_elements[level.lastChild].next = index;
    m_elements[level.element].hasChildren = 1;
    level.lastChild = index;
    Element element;
    element.start = static_cast<std::uint32_t>(m_at);
    element.length = static_cast<std::uint32_t>(tagLength);
    element.startTagLength = element.length & kLongestText;
    element.parent = level.element;
    m_elements.push_back(element);
    if (isEmpty)
        return;
    m_levels.push_back({index, 0});
    if (m_countsNames)
        ++m_openNames[m_document.TagName(index)];
}

void CXmlDocument::Parser::ParseEndTag()
{
    const std::size_t nameEnd = SkipXmlName(m_text, m_at + 2);
    const std::string_view name = m_text.substr(m_at + 2, nameEnd - m_at - 2);
    const std::size_t close = SkipXmlBlanks(m_text, nameEnd);
    if (close >= m_text.size() || m_text[close] != '>') {
        Report("unterminated_tag_syntax");
        ++m_at;
        return;
    }
    const std::size_t end = close + 1;
    if (!IsOpen(name)) {
        Report("lone_end_tag", name, m_at);
        m_at = end;
        return;
    }
    while (m_document.TagName(m_levels.back().element) != name)
        CloseUnended(m_at);
    Element& element = m_elements[m_levels.back().element];
    element.hasEndTag = 1;
    element.length = static_cast<std::uint32_t>(end - element.start);
    m_at = end;
    Leave();
}

bool CXmlDocument::Parser::IsOpen(std::string_view name)
{
    if (m_levels.size() > 1 && m_document.TagName(m_levels.back().element) == name)
        return true;
    if (!m_countsNames) {
        m_countsNames = true;
        for (std::size_t level = 1; level < m_levels.size(); ++level)
            ++m_openNames[m_document.TagName(m_levels[level].element)];
    }
    const auto found = m_openNames.find(name);
    return found != m_openNames.end() && found->second > 0;
}

void CXmlDocument::Parser::CloseUnended(std::size_t end)
{
    const std::uint32_t index = m_levels.back().element;
    Element& element = m_elements[index];
    Report("unended_start_tag", m_document.TagName(index), element.start);
    element.length = static_cast<std::uint32_t>(end - element.start);
    Leave();
}

void CXmlDocument::Parser::Leave()
{
    if (m_countsNames)
        --m_openNames[m_document.TagName(m_levels.back().element)];
    m_levels.pop_back();
}

void CXmlDocument::Parser::CheckRoot()
{
    const std::uint32_t root = m_document.FirstChild(0);
    const std::uint32_t sibling = m_elements[root].next;
    if (root == 0) {
        m_log.Add("no_root_element");
        m_document.m_isIllFormed = true;
    } else if (sibling != 0) {
        Report("root_has_sibling", m_document.TagName(sibling), m_elements[sibling].start);
    }
}

void CXmlDocument::Parser::Report(const char* word)
{
    m_log.Add(word, {{"offset", m_at}});
    m_document.m_isIllFormed = true;
}

void CXmlDocument::Parser::Report(const char* word, std::string_view tag, std::size_t offset)
{
    constexpr std::size_t kLongestName = 100;
    m_log.Add(word, {{"tagname", tag.substr(0, kLongestName)}, {"offset", offset}});
    m_document.m_isIllFormed = true;
}

}  // namespace DUI
