#include <qvui/skin/xml/xml_document.h>

#include "skin/xml/parser.h"
#include "skin/xml/scan.h"

namespace DUI {
namespace {

std::string_view ViewOf(LPCSTR name)
{
    return name ? std::string_view(name) : std::string_view();
}

}  // namespace

bool CXmlDocument::SetDocument(LPCSTR text)
{
    return SetDocument(CString(text));
}

bool CXmlDocument::SetDocument(CString text)
{
    if (m_flags & (kReadFile | kWriteFile))
        return false;
    m_text = std::move(text);
    m_result.Empty();
    m_elements.clear();
    m_isIllFormed = false;
    m_attributesOf = 0;
    ResetPosition();
    Parser(*this).Run();
    return IsWellFormed();
}

bool CXmlDocument::IsWellFormed() const
{
    if (m_flags & kWriteFile)
        return true;
    if (m_isIllFormed || m_elements.empty())
        return false;
    const std::uint32_t root = FirstChild(0);
    return root != 0 && m_elements[root].next == 0;
}

void CXmlDocument::ResetPosition()
{
    m_parent = m_current = m_child = 0;
}

// --- navigation ----------------------------------------------------------------------------------

bool CXmlDocument::FindElement(LPCSTR name)
{
    if (m_elements.empty())
        return false;
    const std::uint32_t found =
        FirstMatch(m_current ? m_elements[m_current].next : FirstChild(m_parent), name);
    if (!found)
        return false;
    m_current = found;
    m_child = 0;
    return true;
}

bool CXmlDocument::FindChildElement(LPCSTR name)
{
    if (m_current == 0 && !FindElement())
        return false;
    const std::uint32_t found = FirstMatch(m_child ? m_elements[m_child].next : FirstChild(m_current), name);
    if (!found)
        return false;
    m_child = found;
    m_current = m_elements[found].parent;
    m_parent = m_elements[m_current].parent;
    return true;
}

std::uint32_t CXmlDocument::FirstMatch(std::uint32_t sibling, LPCSTR name) const
{
    while (sibling && !Matches(sibling, name))
        sibling = m_elements[sibling].next;
    return sibling;
}

bool CXmlDocument::IntoElement()
{
    if (m_current == 0)
        return false;
    m_parent = m_current;
    m_current = m_child;
    m_child = 0;
    return true;
}

bool CXmlDocument::OutOfElement()
{
    if (m_parent == 0)
        return false;
    m_child = m_current;
    m_current = m_parent;
    m_parent = m_elements[m_current].parent;
    return true;
}

bool CXmlDocument::Matches(std::uint32_t element, LPCSTR name) const
{
    if (!name)
        return true;
    constexpr std::string_view kPathStops = " =/[]";
    const std::string_view tag = TagName(element);
    const std::string_view wanted(name);
    const std::string_view start = wanted.substr(0, tag.size());
    const bool isEqual = m_flags & kIgnoreCase ? EqualNoCase(start, tag) : start == tag;
    return isEqual &&
           (wanted.size() == tag.size() || kPathStops.find(wanted[tag.size()]) != std::string_view::npos);
}

// --- values --------------------------------------------------------------------------------------

std::string_view CXmlDocument::TagName(std::uint32_t element) const
{
    const std::size_t start = m_elements[element].start + 1;
    return Text().substr(start, SkipXmlName(Text(), start) - start);
}

const std::vector<CXmlDocument::Attribute>& CXmlDocument::Attributes(std::uint32_t index) const
{
    if (m_attributesOf == index)
        return m_attributes;
    m_attributesOf = index;
    m_attributes.clear();
    const Element& element = m_elements[index];
    const std::string_view tag = Text().substr(element.start, element.startTagLength - 1);
    const auto offset = [this](std::string_view part) {
        return static_cast<std::uint32_t>(part.data() - Text().data());
    };
    XmlAttribute attribute;
    for (std::size_t at = SkipXmlName(tag, 1); ReadXmlAttribute(tag, at, attribute); at = attribute.end) {
        m_attributes.push_back({offset(attribute.name), static_cast<std::uint32_t>(attribute.name.size()),
                                offset(attribute.value), static_cast<std::uint32_t>(attribute.value.size())});
    }
    return m_attributes;
}

const CXmlDocument::Attribute* CXmlDocument::FindAttribute(std::uint32_t element, std::string_view name) const
{
    if (element == 0 || name.empty())
        return nullptr;
    const char* const text = Text().data();
    const bool ignoresCase = (m_flags & kIgnoreCase) != 0;
    for (const Attribute& attribute : Attributes(element)) {
        if (attribute.nameLength != name.size())
            continue;
        const std::string_view found(text + attribute.name, attribute.nameLength);
        if (ignoresCase ? EqualNoCase(found, name) : found[0] == name[0] && found == name)
            return &attribute;
    }
    return nullptr;
}

CString CXmlDocument::AttributeValue(std::uint32_t element, std::string_view name) const
{
    const Attribute* found = FindAttribute(element, name);
    return found ? UnescapeXml(Text().substr(found->value, found->valueLength)) : CString();
}

CString CXmlDocument::GetAttribute(LPCSTR name) const
{
    return AttributeValue(m_current, ViewOf(name));
}

CString CXmlDocument::GetAttribute(const CString& name) const
{
    return AttributeValue(m_current, name.View());
}

CString CXmlDocument::GetChildAttribute(LPCSTR name) const
{
    return AttributeValue(m_child, ViewOf(name));
}

CString CXmlDocument::GetAttributeName(int index) const
{
    if (m_current == 0 || index < 0)
        return {};
    const std::vector<Attribute>& attributes = Attributes(m_current);
    if (static_cast<std::size_t>(index) >= attributes.size())
        return {};
    const Attribute& attribute = attributes[static_cast<std::size_t>(index)];
    return CString(Text().substr(attribute.name, attribute.nameLength));
}

CString CXmlDocument::GetTagName() const
{
    return m_current ? CString(TagName(m_current)) : CString();
}

CString CXmlDocument::GetChildTagName() const
{
    return m_child ? CString(TagName(m_child)) : CString();
}

CString CXmlDocument::GetChildData() const
{
    constexpr std::string_view kOpen = "<![CDATA[";
    constexpr std::string_view kClose = "]]>";
    if (m_child == 0)
        return {};
    const Element& element = m_elements[m_child];
    std::string_view content = Text().substr(element.start, element.length).substr(element.startTagLength);
    if (element.hasEndTag)
        content = content.substr(0, content.rfind('<'));
    const std::size_t first = SkipXmlBlanks(content, 0);
    if (HasXmlAt(content, first, kOpen)) {
        const std::size_t start = first + kOpen.size();
        const std::size_t close = content.find(kClose, start);
        if (close != std::string_view::npos &&
            SkipXmlBlanks(content, close + kClose.size()) == content.size())
            return CString(content.substr(start, close - start));
    }
    return UnescapeXml(content);
}

CString CXmlDocument::GetSubDocument() const
{
    if (m_current == 0 || (m_flags & (kReadFile | kWriteFile)))
        return {};
    const Element& element = m_elements[m_current];
    std::size_t end = element.start + element.length;
    const std::size_t next = SkipXmlBlanks(Text(), end);
    if (next < Text().size() && Text()[next] == '<')
        end = next;
    return CString(Text().substr(element.start, end - element.start));
}

int CXmlDocument::GetElementOffset() const
{
    return m_current ? static_cast<int>(m_elements[m_current].start) : -1;
}

int CXmlDocument::GetChildOffset() const
{
    return m_child ? static_cast<int>(m_elements[m_child].start) : -1;
}

int CXmlDocument::GetAttributeOffset(LPCSTR name) const
{
    const Attribute* found = FindAttribute(m_current, ViewOf(name));
    return found ? static_cast<int>(found->value) : -1;
}

std::size_t CXmlDocument::GetIndexSize() const
{
    return m_elements.capacity() * sizeof(Element);
}

}  // namespace DUI
