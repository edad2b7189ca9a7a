#include <qvui/skin/xml_document.h>

#include <algorithm>
#include <array>
#include <cstring>

#include "skin/xml_log.h"
#include "skin/xml_tables.h"

namespace DUI {
namespace {

enum CharacterClass : unsigned char { kBlank = 1, kNameEnd = 2 };

constexpr std::array<unsigned char, 256> MakeClasses()
{
    std::array<unsigned char, 256> classes{};
    for (const char blank : {' ', '\t', '\n', '\r'})
        classes[static_cast<unsigned char>(blank)] = kBlank | kNameEnd;
    for (const char end : {'<', '>', '=', '\\', '/', '?', '!', '"', '\'', ';'})
        classes[static_cast<unsigned char>(end)] = kNameEnd;
    return classes;
}
constexpr std::array<unsigned char, 256> kClasses = MakeClasses();

bool IsBlank(char character) { return kClasses[static_cast<unsigned char>(character)] & kBlank; }
bool EndsName(char character) { return kClasses[static_cast<unsigned char>(character)] & kNameEnd; }

std::size_t SkipBlanks(std::string_view text, std::size_t at)
{
    while (at < text.size() && IsBlank(text[at]))
        ++at;
    return at;
}

std::size_t SkipName(std::string_view text, std::size_t at)
{
    while (at < text.size() && !EndsName(text[at]))
        ++at;
    return at;
}

bool StartsWith(std::string_view text, std::size_t at, std::string_view what)
{
    return text.compare(at, what.size(), what) == 0;
}

}  // namespace

/// One pass over the text; open elements are found again through their parent index.
class CXmlDocument::Parser {
public:
    explicit Parser(CXmlDocument& document)
        : m_document(document), m_text(document.Text()), m_log(document.m_result)
    {
    }

    void Run()
    {
        m_document.m_elements.emplace_back();
        m_lastChild.push_back(0);
        while (m_at < m_text.size()) {
            const void* found = std::memchr(m_text.data() + m_at, '<', m_text.size() - m_at);
            if (!found)
                break;
            m_at = static_cast<std::size_t>(static_cast<const char*>(found) - m_text.data());
            ParseConstruct();
        }
        while (m_open != 0)
            EndUnended(m_text.size());
        CheckRoot();
    }

private:
    void ParseConstruct()
    {
        const char next = m_at + 1 < m_text.size() ? m_text[m_at + 1] : '\0';
        if (next == '/')
            ParseEndTag();
        else if (next == '?')
            SkipTo("?>", "unterminated_tag_syntax");
        else if (next == '!')
            ParseExclamation();
        else
            ParseStartTag();
    }

    void ParseExclamation()
    {
        if (StartsWith(m_text, m_at, "<!--"))
            SkipTo("-->", "comment_tag_syntax");
        else if (StartsWith(m_text, m_at, "<![CDATA["))
            SkipTo("]]>", "cdata_section_syntax");
        else if (StartsWith(m_text, m_at, "<!DOCTYPE"))
            SkipDocumentType();
        else
            SkipWithError("exclamation_tag_syntax");
    }

    void SkipTo(std::string_view end, const char* word)
    {
        const std::size_t found = m_text.find(end, m_at + 2);
        if (found == std::string_view::npos)
            Error(word), m_at = m_text.size();
        else
            m_at = found + end.size();
    }

    // The internal subset stands in brackets and may hold tags of its own.
    void SkipDocumentType()
    {
        int depth = 0;
        char quote = 0;
        for (std::size_t at = m_at; at < m_text.size(); ++at) {
            const char character = m_text[at];
            if (quote)
                quote = character == quote ? '\0' : quote;
            else if (character == '"' || character == '\'')
                quote = character;
            else if (character == '[')
                ++depth;
            else if (character == ']')
                --depth;
            else if (character == '>' && depth <= 0) {
                m_at = at + 1;
                return;
            }
        }
        Error("doctype_tag_syntax");
        m_at = m_text.size();
    }

    void SkipWithError(const char* word)
    {
        Error(word);
        ++m_at;
    }

    void ParseEndTag()
    {
        const std::size_t nameEnd = SkipName(m_text, m_at + 2);
        const std::string_view name = m_text.substr(m_at + 2, nameEnd - m_at - 2);
        const std::size_t close = SkipBlanks(m_text, nameEnd);
        if (close >= m_text.size() || m_text[close] != '>') {
            SkipWithError("unterminated_tag_syntax");
            return;
        }
        std::uint32_t opener = m_open;
        while (opener != 0 && m_document.TagName(opener) != name)
            opener = m_document.m_elements[opener].parent;
        if (opener == 0) {
            m_log.Add("lone_end_tag", "tagname", name, "offset", m_at);
            m_document.m_isIllFormed = true;
            m_at = close + 1;
            return;
        }
        while (m_open != opener)
            EndUnended(m_at);
        Element& element = m_document.m_elements[m_open];
        element.endTagLength = static_cast<std::uint32_t>(close + 1 - m_at);
        m_at = close + 1;
        element.length = static_cast<std::uint32_t>(m_at - element.start);
        Leave();
    }

    void EndUnended(std::size_t end)
    {
        Element& element = m_document.m_elements[m_open];
        m_log.Add("unended_start_tag", "tagname", m_document.TagName(m_open), "offset", element.start);
        m_document.m_isIllFormed = true;
        element.length = static_cast<std::uint32_t>(end - element.start);
        Leave();
    }

    void Leave()
    {
        m_open = m_document.m_elements[m_open].parent;
        m_lastChild.pop_back();
    }

    void ParseStartTag()
    {
        const std::size_t nameEnd = SkipName(m_text, m_at + 1);
        if (nameEnd == m_at + 1) {
            SkipWithError("first_tag_syntax");
            return;
        }
        std::size_t at = nameEnd;
        while (at < m_text.size() && m_text[at] != '>' && m_text[at] != '<') {
            if (m_text[at] == '"' || m_text[at] == '\'') {
                const std::size_t quote = m_text.find(m_text[at], at + 1);
                if (quote == std::string_view::npos)
                    break;
                at = quote;
            }
            ++at;
        }
        if (at >= m_text.size() || m_text[at] != '>') {
            SkipWithError("unterminated_tag_syntax");
            return;
        }
        const bool isEmpty = m_text[at - 1] == '/';
        AddElement(at + 1 - m_at, isEmpty);
        m_at = at + 1;
    }

    void AddElement(std::size_t tagLength, bool isEmpty)
    {
        const auto index = static_cast<std::uint32_t>(m_document.m_elements.size());
        Element element;
        element.start = static_cast<std::uint32_t>(m_at);
        element.startTagLength = static_cast<std::uint32_t>(tagLength);
        element.length = element.startTagLength;
        element.parent = m_open;
        element.previous = m_lastChild.back();
        if (element.previous)
            m_document.m_elements[element.previous].next = index;
        else
            m_document.m_elements[m_open].firstChild = index;
        m_lastChild.back() = index;
        m_document.m_elements.push_back(element);
        if (isEmpty)
            return;
        m_open = index;
        m_lastChild.push_back(0);
    }

    void CheckRoot()
    {
        const std::uint32_t root = m_document.m_elements[0].firstChild;
        if (root == 0) {
            m_log.Add("no_root_element");
            m_document.m_isIllFormed = true;
        } else if (const std::uint32_t sibling = m_document.m_elements[root].next) {
            m_log.Add("root_has_sibling", "tagname", m_document.TagName(sibling), "offset",
                      m_document.m_elements[sibling].start);
            m_document.m_isIllFormed = true;
        }
    }

    void Error(const char* word)
    {
        m_log.Add(word, "offset", m_at);
        m_document.m_isIllFormed = true;
    }

    CXmlDocument& m_document;
    std::string_view m_text;
    XmlLog m_log;
    std::size_t m_at = 0;
    std::uint32_t m_open = 0;                // the innermost open element, 0 at the document level
    std::vector<std::uint32_t> m_lastChild;  // per open level, the last child so far
};

bool CXmlDocument::SetDocument(LPCSTR text) { return SetDocument(CString(text)); }

bool CXmlDocument::SetDocument(const CString& text)
{
    if (m_flags & (kReadFile | kWriteFile))
        return false;
    m_text = text;
    m_result.Empty();
    m_elements.clear();
    m_isIllFormed = false;
    ResetPosition();
    m_walkElement = 0;
    Parser(*this).Run();
    return IsWellFormed();
}

bool CXmlDocument::IsWellFormed() const
{
    if (m_flags & kWriteFile)
        return true;
    if (m_isIllFormed || m_elements.empty())
        return false;
    const std::uint32_t root = m_elements[0].firstChild;
    return root != 0 && m_elements[root].next == 0;
}

void CXmlDocument::ResetPosition() { m_parent = m_current = m_child = 0; }

bool CXmlDocument::FindElement(LPCSTR name)
{
    if (m_elements.empty())
        return false;
    std::uint32_t found = m_current ? m_elements[m_current].next : m_elements[m_parent].firstChild;
    while (found && !Matches(found, name))
        found = m_elements[found].next;
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
    std::uint32_t found = m_child ? m_elements[m_child].next : m_elements[m_current].firstChild;
    while (found && !Matches(found, name))
        found = m_elements[found].next;
    if (!found)
        return false;
    m_child = found;
    m_current = m_elements[found].parent;
    m_parent = m_elements[m_current].parent;
    return true;
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

std::string_view CXmlDocument::TagName(std::uint32_t element) const
{
    const std::size_t start = m_elements[element].start + 1;
    return Text().substr(start, SkipName(Text(), start) - start);
}

bool CXmlDocument::Matches(std::uint32_t element, LPCSTR name) const
{
    if (!name)
        return true;
    const std::string_view tag = TagName(element);
    const std::size_t length = tag.size();
    const bool isEqual = m_flags & kIgnoreCase
                             ? std::strlen(name) >= length && EqualNoCase(tag, {name, length})
                             : std::strncmp(name, tag.data(), length) == 0;
    // A path-like name stops at one of these.
    return isEqual && std::strchr(" =/[]", name[length]) != nullptr;
}

// Reads the attribute at or after `position`, an offset in the start tag. False at its end.
bool CXmlDocument::ReadAttribute(std::uint32_t index, std::size_t position, AttributeSpan& attribute) const
{
    const Element& element = m_elements[index];
    const std::string_view tag = Text().substr(element.start, element.startTagLength - 1);
    std::size_t at = SkipBlanks(tag, position);
    // Stray punctuation between attributes is passed over.
    while (at < tag.size() && EndsName(tag[at])) {
        if (tag[at] == '"' || tag[at] == '\'')
            at = std::min(tag.find(tag[at], at + 1), tag.size() - 1);
        at = SkipBlanks(tag, at + 1);
    }
    if (at >= tag.size())
        return false;
    const std::size_t nameEnd = SkipName(tag, at);
    attribute.name = tag.substr(at, nameEnd - at);
    attribute.value = {};
    attribute.end = nameEnd;
    attribute.hasValue = false;
    at = SkipBlanks(tag, nameEnd);
    if (at >= tag.size() || tag[at] != '=')
        return true;
    at = SkipBlanks(tag, at + 1);
    attribute.hasValue = true;
    if (at < tag.size() && (tag[at] == '"' || tag[at] == '\'')) {
        const std::size_t close = std::min(tag.find(tag[at], at + 1), tag.size());
        attribute.value = tag.substr(at + 1, close - at - 1);
        attribute.end = std::min(close + 1, tag.size());
    } else {
        const std::size_t close = SkipName(tag, at);
        attribute.value = tag.substr(at, close - at);
        attribute.end = close;
    }
    return true;
}

bool CXmlDocument::FindAttribute(std::uint32_t element, LPCSTR name, AttributeSpan& attribute) const
{
    if (element == 0 || !name)
        return false;
    const std::string_view wanted(name);
    std::size_t position = 1 + TagName(element).size();
    while (ReadAttribute(element, position, attribute)) {
        if (m_flags & kIgnoreCase ? EqualNoCase(attribute.name, wanted) : attribute.name == wanted)
            return true;
        position = attribute.end;
    }
    return false;
}

CString CXmlDocument::AttributeValue(std::uint32_t element, LPCSTR name) const
{
    AttributeSpan attribute;
    return FindAttribute(element, name, attribute) ? UnescapeXml(attribute.value) : CString();
}

CString CXmlDocument::GetAttribute(LPCSTR name) const { return AttributeValue(m_current, name); }

CString CXmlDocument::GetChildAttribute(LPCSTR name) const { return AttributeValue(m_child, name); }

CString CXmlDocument::GetAttributeName(int index) const
{
    if (m_current == 0 || index < 0)
        return {};
    if (m_walkElement != m_current || index < m_walkIndex) {
        m_walkElement = m_current;
        m_walkIndex = 0;
        m_walkPosition = 1 + TagName(m_current).size();
    }
    AttributeSpan attribute;
    while (ReadAttribute(m_current, m_walkPosition, attribute)) {
        m_walkPosition = attribute.end;
        if (m_walkIndex++ == index)
            return CString(attribute.name);
    }
    return {};
}

CString CXmlDocument::GetTagName() const { return m_current ? CString(TagName(m_current)) : CString(); }

CString CXmlDocument::GetChildTagName() const { return m_child ? CString(TagName(m_child)) : CString(); }

CString CXmlDocument::GetChildData() const
{
    if (m_child == 0)
        return {};
    const Element& element = m_elements[m_child];
    const std::size_t start = element.start + element.startTagLength;
    const std::size_t end = element.start + element.length - element.endTagLength;
    if (end <= start)
        return {};
    const std::string_view content = Text().substr(start, end - start);
    constexpr std::string_view kOpen = "<![CDATA[";
    constexpr std::string_view kClose = "]]>";
    const std::size_t first = SkipBlanks(content, 0);
    if (StartsWith(content, first, kOpen)) {
        const std::size_t close = content.find(kClose, first + kOpen.size());
        return CString(content.substr(first + kOpen.size(), close - first - kOpen.size()));
    }
    return UnescapeXml(content);
}

CString CXmlDocument::GetSubDocument() const
{
    if (m_current == 0 || (m_flags & (kReadFile | kWriteFile)))
        return {};
    const Element& element = m_elements[m_current];
    std::size_t end = element.start + element.length;
    const std::size_t next = SkipBlanks(Text(), end);
    if (next < Text().size() && Text()[next] == '<')
        end = next;
    return CString(Text().substr(element.start, end - element.start));
}

int CXmlDocument::GetElementOffset() const { return m_current ? static_cast<int>(m_elements[m_current].start) : -1; }

int CXmlDocument::GetChildOffset() const { return m_child ? static_cast<int>(m_elements[m_child].start) : -1; }

int CXmlDocument::GetAttributeOffset(LPCSTR name) const
{
    AttributeSpan attribute;
    return FindAttribute(m_current, name, attribute) ? static_cast<int>(attribute.value.data() - Text().data()) : -1;
}

std::size_t CXmlDocument::GetIndexSize() const { return m_elements.capacity() * sizeof(Element); }

// --- unescaping ---------------------------------------------------------------------------------------------

namespace {

constexpr std::size_t kLongestReference = 9;
constexpr unsigned kFirstPairCharacter = 0x10000;
constexpr unsigned kLastCharacter = 0x10FFFF;

// The character that the text between "&" and ";" names; 0 for none.
unsigned ReferencedCharacter(std::string_view name)
{
    if (name.empty() || name[0] != '#') {
        std::string lower(name);
        std::transform(lower.begin(), lower.end(), lower.begin(),
                       [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c; });
        return FindXmlEntity(lower);
    }
    const bool isHexadecimal = name.size() > 1 && (name[1] == 'x' || name[1] == 'X');
    unsigned value = 0;
    for (const char character : name.substr(isHexadecimal ? 2 : 1)) {
        const char lower = static_cast<char>(character | 0x20);
        unsigned digit = 99;
        if (character >= '0' && character <= '9')
            digit = static_cast<unsigned>(character - '0');
        else if (isHexadecimal && lower >= 'a' && lower <= 'f')
            digit = static_cast<unsigned>(lower - 'a' + 10);
        if (digit == 99)
            return 0;
        value = value * (isHexadecimal ? 16 : 10) + digit;
        if (value > kLastCharacter)
            return 0;
    }
    return value;
}

// The character in the system code page; empty when the code page lacks it.
CString ToSystem(unsigned character)
{
    WCHAR units[2] = {static_cast<WCHAR>(character), 0};
    int count = 1;
    if (character >= kFirstPairCharacter) {
        units[0] = static_cast<WCHAR>(0xD800 + ((character - kFirstPairCharacter) >> 10));
        units[1] = static_cast<WCHAR>(0xDC00 + ((character - kFirstPairCharacter) & 0x3FF));
        count = 2;
    }
    char bytes[16];
    BOOL usedDefault = FALSE;
    // The UTF-8 conversion knows no default character and refuses to be asked for it.
    const bool canAsk = GetACP() != CP_UTF8;
    const int length = WideCharToMultiByte(CP_ACP, 0, units, count, bytes, static_cast<int>(sizeof bytes), nullptr,
                                           canAsk ? &usedDefault : nullptr);
    return usedDefault ? CString() : CString(bytes, length);
}

}  // namespace

CString UnescapeXml(std::string_view text)
{
    std::size_t ampersand = text.find('&');
    if (ampersand == std::string_view::npos)
        return CString(text);
    std::string result;
    result.reserve(text.size());
    const char* const end = text.data() + text.size();
    for (std::size_t at = 0; at < text.size();) {
        if (text[at] != '&') {
            const auto length = static_cast<std::size_t>(CharacterLength(text.data() + at, end));
            result.append(text, at, length);
            at += length;
            continue;
        }
        std::size_t close = at + 1;
        while (close < text.size() && close - at <= kLongestReference && text[close] != ';' &&
               static_cast<unsigned char>(text[close]) < 0x80)
            ++close;
        const bool isReference = close < text.size() && close - at <= kLongestReference && text[close] == ';';
        const unsigned character = isReference ? ReferencedCharacter(text.substr(at + 1, close - at - 1)) : 0;
        const CString converted = character ? ToSystem(character) : CString();
        if (converted.IsEmpty()) {
            result += '&';
            ++at;
        } else {
            result.append(converted.View());
            at = close + 1;
        }
    }
    return CString(std::move(result));
}

}  // namespace DUI
