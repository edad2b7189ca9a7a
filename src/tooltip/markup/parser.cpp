#include "tooltip/markup/parser.h"

#include <algorithm>
#include <charconv>
#include <map>
#include <optional>
#include <utility>

#include <qvui/platform/cstring.h>

namespace DUI::html {
namespace {

// Longer tags are treated as text, which limits the search for a missing end.
constexpr std::size_t kLongestTag = 1024;
constexpr std::size_t kLongestEntity = 12;
constexpr std::size_t kLongestName = 64;  // of a face or colour name
constexpr int kLargestFont = 96;
constexpr int kSmallestFont = 8;
constexpr int kWidestIndent = 2000;
constexpr char kTabSpaces[] = "    ";

bool IsLetter(char c)
{
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}
bool IsDigit(char c)
{
    return c >= '0' && c <= '9';
}
bool IsBlank(char c)
{
    return c == ' ' || c == '\t' || c == '\r' || c == '\n';
}

enum class TagKind { Bold, Italic, Underline, StrikeOut, Center, Font, LineBreak, Rule, Image, Indent };

std::optional<TagKind> TagOf(std::string_view name)
{
    static constexpr std::pair<std::string_view, TagKind> kTags[] = {
        {"b", TagKind::Bold},       {"strong", TagKind::Bold},      {"i", TagKind::Italic},
        {"em", TagKind::Italic},    {"u", TagKind::Underline},      {"s", TagKind::StrikeOut},
        {"br", TagKind::LineBreak}, {"strike", TagKind::StrikeOut}, {"center", TagKind::Center},
        {"hr", TagKind::Rule},      {"img", TagKind::Image},        {"font", TagKind::Font},
        {"ind", TagKind::Indent},
    };
    for (const auto& [known, kind] : kTags)
        if (EqualNoCase(name, known))
            return kind;
    return std::nullopt;
}

struct Attribute {
    std::string_view name;
    std::string_view value;
};

struct Tag {
    TagKind kind = TagKind::Bold;
    bool isEnd = false;
    std::vector<Attribute> attributes;
    std::size_t length = 0;  // from its '<' to after its '>'

    std::string_view Value(std::string_view name) const
    {
        for (const Attribute& attribute : attributes)
            if (EqualNoCase(attribute.name, name))
                return attribute.value;
        return {};
    }
};

/// Reads a tag from a text that begins with its '<'.
class TagReader {
public:
    explicit TagReader(std::string_view text) : m_text(text.substr(0, std::min(text.size(), kLongestTag))) {}

    /// Returns nothing for an unknown or unterminated tag; both are treated as text.
    std::optional<Tag> Read()
    {
        Tag tag;
        m_at = 1;
        tag.isEnd = Skip('/');
        const std::string_view name = Name();
        const std::optional<TagKind> kind = TagOf(name);
        if (!kind || !(IsBlank(Next()) || Next() == '>' || Next() == '/' || Next() == '='))
            return std::nullopt;
        tag.kind = *kind;
        // In <ind=40> the tag's own name is the attribute.
        if (Next() == '=')
            m_at -= name.size();
        while (!Skip('>')) {
            if (Skip('/') || SkipBlanks())
                continue;
            if (!ReadAttribute(tag))
                return std::nullopt;
        }
        tag.length = m_at;
        return tag;
    }

private:
    char Next() const { return m_at < m_text.size() ? m_text[m_at] : '\0'; }

    bool Skip(char expected)
    {
        if (Next() != expected)
            return false;
        ++m_at;
        return true;
    }

    bool SkipBlanks()
    {
        const std::size_t from = m_at;
        while (m_at < m_text.size() && IsBlank(m_text[m_at]))
            ++m_at;
        return m_at > from;
    }

    std::string_view Name()
    {
        const std::size_t from = m_at;
        while (IsLetter(Next()) || (m_at > from && (IsDigit(Next()) || Next() == '-')))
            ++m_at;
        return m_text.substr(from, m_at - from);
    }

    bool ReadAttribute(Tag& tag)
    {
        Attribute attribute{Name(), {}};
        if (attribute.name.empty())
            return false;
        SkipBlanks();
        if (Skip('=')) {
            SkipBlanks();
            const std::optional<std::string_view> value = Value();
            if (!value)
                return false;
            attribute.value = *value;
        }
        tag.attributes.push_back(attribute);
        return true;
    }

    std::optional<std::string_view> Value()
    {
        const char quote = Next();
        if (quote != '"' && quote != '\'') {
            const std::size_t from = m_at;
            while (m_at < m_text.size() && !IsBlank(Next()) && Next() != '>' && Next() != '<')
                ++m_at;
            return m_text.substr(from, m_at - from);
        }
        const std::size_t from = ++m_at;
        const std::size_t end = m_text.find(quote, from);
        if (end == std::string_view::npos)
            return std::nullopt;
        m_at = end + 1;
        return m_text.substr(from, end - from);
    }

    std::string_view m_text;
    std::size_t m_at = 0;
};

/// Reads a number that is the whole text.
std::optional<int> Number(std::string_view text, int base)
{
    int value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value, base);
    if (error != std::errc() || end != text.data() + text.size())
        return std::nullopt;
    return value;
}

/// Reads the number at the start of the text, as in "16px".
std::optional<int> LeadingNumber(std::string_view text)
{
    if (text.starts_with('+'))
        text.remove_prefix(1);
    int value = 0;
    if (std::from_chars(text.data(), text.data() + text.size(), value).ec != std::errc())
        return std::nullopt;
    return value;
}

/// Converts a code point to the system code page. Returns an empty text for an invalid character.
std::string Encode(int codePoint)
{
    if (codePoint == 0xA0)
        return std::string(1, kNoBreakSpace);
    const bool isControl = codePoint < 0x20 && codePoint != '\n' && codePoint != '\t';
    if (isControl || codePoint > 0x10FFFF || (codePoint >= 0xD800 && codePoint < 0xE000))
        return {};
    WCHAR wide[2];
    int length = 1;
    if (codePoint < 0x10000) {
        wide[0] = static_cast<WCHAR>(codePoint);
    } else {
        wide[0] = static_cast<WCHAR>(0xD800 + ((codePoint - 0x10000) >> 10));
        wide[1] = static_cast<WCHAR>(0xDC00 + ((codePoint - 0x10000) & 0x3FF));
        length = 2;
    }
    return std::string(CString::FromWide(wide, length).View());
}

struct Entity {
    std::string text;
    std::size_t length = 0;  // from '&' to after ';'; 0: not an entity
};

Entity ReadEntity(std::string_view text)
{
    static constexpr std::pair<std::string_view, int> kEntities[] = {
        {"lt", '<'}, {"gt", '>'}, {"amp", '&'}, {"quot", '"'}, {"apos", '\''}, {"nbsp", 0xA0},
    };
    const std::size_t end = text.substr(0, kLongestEntity).find(';');
    if (end == std::string_view::npos)
        return {};
    const std::string_view name = text.substr(1, end - 1);
    std::optional<int> codePoint;
    if (name.starts_with("#x") || name.starts_with("#X"))
        codePoint = Number(name.substr(2), 16);
    else if (name.starts_with('#'))
        codePoint = Number(name.substr(1), 10);
    for (const auto& [known, character] : kEntities)
        if (name == known)
            codePoint = character;
    if (!codePoint || *codePoint < 0)
        return {};
    std::string encoded = Encode(*codePoint);
    return encoded.empty() ? Entity{} : Entity{std::move(encoded), end + 1};
}

/// Collects pieces. Open tags are counted, so tags may overlap, and end tags without a start tag have no
/// effect.
class Builder {
public:
    Document Take()
    {
        Flush();
        // Adds a style, because an empty document also has a line height.
        StyleIndex();
        return std::move(m_document);
    }

    void Text(std::string_view text)
    {
        m_text += text;
        m_isAtBlockEdge = false;
    }

    /// A line break in the source. Ignored beside a rule or a centred block, where it only formats the
    /// source.
    void NewLine()
    {
        if (!std::exchange(m_isAtBlockEdge, false))
            Add(PieceKind::LineBreak);
    }

    void Add(PieceKind kind, std::string_view text = {}, int number = 0)
    {
        Flush();
        m_isAtBlockEdge = kind == PieceKind::BlockBreak;
        m_document.pieces.push_back({kind, StyleIndex(), std::string(text), number});
    }

    void Apply(const Tag& tag)
    {
        switch (tag.kind) {
            case TagKind::Bold:
                return Count(m_bold, &Style::isBold, tag.isEnd);
            case TagKind::Italic:
                return Count(m_italic, &Style::isItalic, tag.isEnd);
            case TagKind::Underline:
                return Count(m_underline, &Style::isUnderlined, tag.isEnd);
            case TagKind::StrikeOut:
                return Count(m_strikeOut, &Style::isStruckOut, tag.isEnd);
            case TagKind::Center:
                return ApplyCenter(tag);
            case TagKind::Font:
                return ApplyFont(tag);
            case TagKind::LineBreak:
                return Add(PieceKind::LineBreak);
            default:
                return AddObject(tag);
        }
    }

private:
    struct Font {
        int size;
        int sizeStep;
        std::string face;
        std::string color;
    };

    void Flush()
    {
        if (m_text.empty())
            return;
        m_document.pieces.push_back({PieceKind::Text, StyleIndex(), std::move(m_text), 0});
        m_text.clear();
    }

    int StyleIndex()
    {
        if (m_current < 0) {
            const auto [found, isNew] =
                m_known.try_emplace(m_style, static_cast<int>(m_document.styles.size()));
            if (isNew)
                m_document.styles.push_back(m_style);
            m_current = found->second;
        }
        return m_current;
    }

    Style& ChangeStyle()
    {
        Flush();
        m_current = -1;
        return m_style;
    }

    void Count(int& open, bool Style::*field, bool isEnd)
    {
        if (isEnd && open == 0)
            return;
        open += isEnd ? -1 : 1;
        if (m_style.*field != (open > 0))
            ChangeStyle().*field = open > 0;
    }

    void ApplyCenter(const Tag& tag)
    {
        if (tag.isEnd && m_center == 0)
            return;
        Add(PieceKind::BlockBreak);
        Count(m_center, &Style::isCentered, tag.isEnd);
    }

    void ApplyFont(const Tag& tag)
    {
        if (tag.isEnd) {
            if (m_fonts.empty())
                return;
            Font& font = m_fonts.back();
            Style& style = ChangeStyle();
            style.size = font.size;
            style.sizeStep = font.sizeStep;
            style.face = std::move(font.face);
            style.color = std::move(font.color);
            m_fonts.pop_back();
            return;
        }
        Style& style = ChangeStyle();
        m_fonts.push_back({style.size, style.sizeStep, style.face, style.color});
        SetName(style.face, tag.Value("face"));
        SetName(style.color, tag.Value("color"));
        ApplySize(style, tag.Value("size"));
    }

    static void SetName(std::string& name, std::string_view value)
    {
        if (!value.empty() && value.size() <= kLongestName)
            name = value;
    }

    static void ApplySize(Style& style, std::string_view text)
    {
        static constexpr int kSteps[] = {10, 13, 16, 18, 24, 32, 48};
        const bool isStep = text.starts_with('+') || text.starts_with('-');
        const std::optional<int> number = LeadingNumber(text);
        if (!number)
            return;
        if (isStep) {
            style.sizeStep = std::clamp(style.sizeStep + std::clamp(*number, -kLargestFont, kLargestFont),
                                        -kLargestFont, kLargestFont);
            return;
        }
        style.sizeStep = 0;
        style.size = *number >= 1 && *number <= static_cast<int>(std::size(kSteps))
                         ? kSteps[*number - 1]
                         : std::clamp(*number, kSmallestFont, kLargestFont);
    }

    void AddObject(const Tag& tag)
    {
        if (tag.isEnd)
            return;
        if (tag.kind == TagKind::Image) {
            Add(PieceKind::Image, tag.Value("src"),
                std::max(LeadingNumber(tag.Value("index")).value_or(0), 0));
        } else if (tag.kind == TagKind::Indent) {
            Add(PieceKind::Indent, {},
                std::clamp(LeadingNumber(tag.Value("ind")).value_or(0), 0, kWidestIndent));
        } else {
            Add(PieceKind::BlockBreak);
            Add(PieceKind::Rule);
            Add(PieceKind::BlockBreak);
        }
    }

    Document m_document;
    std::string m_text;
    Style m_style;
    int m_current = -1;  // m_style's index; -1: not determined yet
    bool m_isAtBlockEdge = false;
    std::map<Style, int> m_known;
    std::vector<Font> m_fonts;  // the font replaced by each open <font>
    int m_bold = 0;
    int m_italic = 0;
    int m_underline = 0;
    int m_strikeOut = 0;
    int m_center = 0;
};

/// Adds one character that is not markup.
std::size_t AddCharacter(Builder& builder, std::string_view text)
{
    const char c = text.front();
    if (c == '\r' || c == '\n') {
        builder.NewLine();
        return text.starts_with("\r\n") ? 2 : 1;
    }
    if (c == '\t')
        builder.Text(kTabSpaces);
    if (static_cast<unsigned char>(c) < 0x20)
        return 1;
    const auto length = static_cast<std::size_t>(CharacterLength(text.data(), text.data() + text.size()));
    builder.Text(text.substr(0, length));
    return length;
}

void AddEntity(Builder& builder, const std::string& text)
{
    if (text.front() == kNoBreakSpace || static_cast<unsigned char>(text.front()) >= 0x20)
        builder.Text(text);
    else
        AddCharacter(builder, text);
}

}  // namespace

Document ParseMarkup(std::string_view text)
{
    Builder builder;
    for (std::size_t at = 0; at < text.size();) {
        const std::string_view rest = text.substr(at);
        if (rest.front() == '<') {
            if (const std::optional<Tag> tag = TagReader(rest).Read()) {
                builder.Apply(*tag);
                at += tag->length;
                continue;
            }
        } else if (rest.front() == '&') {
            if (const Entity entity = ReadEntity(rest); entity.length > 0) {
                AddEntity(builder, entity.text);
                at += entity.length;
                continue;
            }
        }
        at += AddCharacter(builder, rest);
    }
    return builder.Take();
}

}  // namespace DUI::html
