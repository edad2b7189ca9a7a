#include "values.h"

#include <algorithm>
#include <cctype>
#include <cstdio>
#include <cstdlib>

#include <qvui/platform/cstring.h>

#include "suggest.h"

namespace qvui::skin_tool {
namespace {

using Problem = std::optional<ValueProblem>;

Problem Wrong(const std::string& value, const std::string& what, std::string suggestion = "")
{
    return ValueProblem{"\"" + value + "\" is " + what, std::move(suggestion)};
}

bool IsBlank(char character)
{
    return std::isspace(static_cast<unsigned char>(character)) != 0;
}

// Whether the text is `count` decimal numbers with one character, and perhaps blanks, between.
bool IsIntegerList(const std::string& text, int count)
{
    const char* at = text.c_str();
    for (int i = 0; i < count; ++i) {
        char* end = nullptr;
        if (i > 0 && *at)
            ++at;
        std::strtoll(at, &end, 10);
        if (end == at)
            return false;
        at = end;
    }
    return std::all_of(at, text.c_str() + text.size(), IsBlank);
}

Problem CheckIntegers(const std::string& value, int count)
{
    constexpr const char* kMeanings[] = {"", "no whole number", "no pair of whole numbers", "",
                                         "not four whole numbers"};
    return IsIntegerList(value, count) ? Problem() : Wrong(value, kMeanings[count]);
}

Problem CheckInteger(const std::string& value, IntegerRange range)
{
    if (Problem problem = CheckIntegers(value, 1))
        return problem;
    if (range.Holds(std::strtoll(value.c_str(), nullptr, 10)))
        return {};
    const std::string bounds = RangeText(range);
    return Wrong(value, bounds.empty() ? "too large a number" : "out of range: write a number " + bounds);
}

Problem CheckNumber(const std::string& value)
{
    char* end = nullptr;
    std::strtod(value.c_str(), &end);
    return end != value.c_str() && std::all_of(end, end + std::string_view(end).size(), IsBlank)
               ? Problem()
               : Wrong(value, "no number");
}

bool SameWord(std::string_view left, std::string_view right, bool ignoresCase)
{
    return ignoresCase ? EqualNoCase(left, right) : left == right;
}

// Words of letters, digits, "_" and "-"; everything else separates.
std::vector<std::string> WordsOf(const std::string& text)
{
    std::vector<std::string> words(1);
    for (const char character : text) {
        const bool isInWord =
            std::isalnum(static_cast<unsigned char>(character)) || character == '_' || character == '-';
        if (isInWord)
            words.back() += character;
        else if (!words.back().empty())
            words.emplace_back();
    }
    if (words.back().empty())
        words.pop_back();
    return words;
}

// The list itself while it is short enough to read.
std::string NoneOf(const std::vector<std::string>& known)
{
    constexpr std::size_t kMostTold = 8;
    if (known.size() > kMostTold)
        return "no word that counts here";
    std::string text = "none of";
    for (std::size_t i = 0; i < known.size(); ++i)
        text += (i == 0 ? " " : ", ") + known[i];
    return text;
}

Problem CheckWords(const std::string& value, std::string_view keywords, bool ignoresCase, bool isOne)
{
    const std::vector<std::string> known = Split(keywords, '|');
    const std::vector<std::string> words = isOne ? std::vector<std::string>{value} : WordsOf(value);
    for (const std::string& word : words) {
        const bool isKnown = std::any_of(known.begin(), known.end(), [&](const std::string& keyword) {
            return SameWord(keyword, word, ignoresCase);
        });
        if (!isKnown)
            return Wrong(word, NoneOf(known), Nearest(word, known));
    }
    return {};
}

// Names that begin with "rgb" are none: the library takes them for literals.
bool LooksLiteral(const std::string& color)
{
    return color.size() > 1 && (color[0] == '#' || EqualNoCase(color.substr(0, 3), "rgb"));
}

bool IsHexColor(const std::string& color)
{
    return color.size() <= 9 && std::all_of(color.begin() + 1, color.end(),
                                            [](unsigned char digit) { return std::isxdigit(digit) != 0; });
}

bool IsRgbColor(const std::string& color)
{
    int red = 0;
    int green = 0;
    int blue = 0;
    int end = 0;
    constexpr IntegerRange kByte{0, 255};
    return std::sscanf(color.c_str() + 3, " (%d,%d,%d )%n", &red, &green, &blue, &end) == 3 && end > 0 &&
           kByte.Holds(red) && kByte.Holds(green) && kByte.Holds(blue);
}

Problem NoColor(const std::string& value)
{
    return Wrong(value, "no colour: write #AARRGGBB, or rgb(r,g,b) with numbers from 0 to 255");
}

Problem CheckColor(const std::string& color)
{
    if (!LooksLiteral(color) || (color[0] == '#' ? IsHexColor(color) : IsRgbColor(color)))
        return {};
    return NoColor(color);
}

Problem CheckColors(const std::string& value, std::size_t most)
{
    const std::vector<std::string> parts = Split(value, ',');
    if (parts.size() > most)
        return Wrong(value, "more than " + std::to_string(most) + " colours");
    for (const std::string& part : parts)
        if (Problem problem = CheckColor(part))
            return problem;
    return {};
}

struct KindInfo {
    ValueKind kind;
    const char* description;
};
constexpr KindInfo kKinds[] = {
    {ValueKind::Text, "text"},
    {ValueKind::Character, "one character"},
    {ValueKind::StringId, "string id, or `#` and text"},
    {ValueKind::Boolean, "`true` or `false`"},
    {ValueKind::Integer, "whole number"},
    {ValueKind::IntPair, "two whole numbers"},
    {ValueKind::Rect, "left, top, right, bottom"},
    {ValueKind::Keywords, "any of"},
    {ValueKind::Choice, "one of"},
    {ValueKind::Color, "colour"},
    {ValueKind::ColorPair, "two colours, a comma between"},
    {ValueKind::Image, "image"},
    {ValueKind::Cursor, "cursor"},
    {ValueKind::TextStyle, "text style"},
    {ValueKind::FrameStyle, "frame style"},
    {ValueKind::ControlStyle, "control style"},
    {ValueKind::ControlName, "name of a control"},
    {ValueKind::Ignored, "without effect"},
    {ValueKind::Font, "font"},
    {ValueKind::LiteralColor, "`#AARRGGBB` or `rgb(r,g,b)`"},
    {ValueKind::Colors, "one to three colours, commas between"},
    {ValueKind::Number, "number"},
    {ValueKind::ChoiceAny, "one of"},
    {ValueKind::Flags, "any of"},
    {ValueKind::FileName, "file name"},
};

struct ReferringKind {
    ValueKind kind;
    NameKind names;
};
constexpr ReferringKind kReferring[] = {
    {ValueKind::StringId, NameKind::String},
    {ValueKind::Color, NameKind::Color},
    {ValueKind::ColorPair, NameKind::Color},
    {ValueKind::Colors, NameKind::Color},
    {ValueKind::Image, NameKind::Image},
    {ValueKind::Cursor, NameKind::Cursor},
    {ValueKind::TextStyle, NameKind::TextStyle},
    {ValueKind::FrameStyle, NameKind::FrameStyle},
    {ValueKind::ControlStyle, NameKind::ControlStyle},
    {ValueKind::Font, NameKind::Font},
};

}  // namespace

const char* NameOf(NameKind kind)
{
    constexpr const char* kNames[kNameKinds] = {"string", "colour",     "font",        "image",
                                                "cursor", "text style", "frame style", "control style"};
    return kNames[static_cast<int>(kind)];
}

const char* Describe(ValueKind kind)
{
    for (const KindInfo& info : kKinds)
        if (info.kind == kind)
            return info.description;
    return "";
}

std::vector<std::string> Split(std::string_view text, char separator)
{
    std::vector<std::string> parts;
    std::size_t start = 0;
    for (;;) {
        const std::size_t end = text.find(separator, start);
        parts.emplace_back(text.substr(start, end - start));
        if (end == std::string_view::npos)
            return parts;
        start = end + 1;
    }
}

std::string KeywordsOf(const EntryAttribute& attribute)
{
    std::string keywords;
    if (attribute.words)
        for (const DUI::DocumentWord& word : attribute.words())
            keywords.append(keywords.empty() ? "" : "|").append(word.word);
    return keywords;
}

std::string RangeText(IntegerRange range)
{
    constexpr IntegerRange kAll;
    if (range.most != kAll.most)
        return "from " + std::to_string(range.least) + " to " + std::to_string(range.most);
    return range.least == kAll.least ? "" : "from " + std::to_string(range.least);
}

Problem CheckForm(ValueKind kind, const std::string& value, std::string_view keywords, IntegerRange range)
{
    // An empty value is an attribute that is not set.
    if (value.empty())
        return {};
    switch (kind) {
        case ValueKind::Character:
            return CharacterLength(value.data(), value.data() + value.size()) ==
                           static_cast<int>(value.size())
                       ? Problem()
                       : Wrong(value, "more than one character, and the first one alone counts");
        case ValueKind::Boolean:
            return CheckWords(value, "true|false", true, true)
                       ? Wrong(value, "neither \"true\" nor \"false\"")
                       : Problem();
        case ValueKind::Integer:
            return CheckInteger(value, range);
        case ValueKind::IntPair:
            return CheckIntegers(value, 2);
        case ValueKind::Rect:
            return CheckIntegers(value, 4);
        case ValueKind::Number:
            return CheckNumber(value);
        case ValueKind::Keywords:
            return CheckWords(value, keywords, false, false);
        case ValueKind::Flags:
            return CheckWords(value, keywords, true, false);
        case ValueKind::Choice:
            return CheckWords(value, keywords, false, true);
        case ValueKind::ChoiceAny:
            return CheckWords(value, keywords, true, true);
        case ValueKind::Color:
            return CheckColor(value);
        case ValueKind::LiteralColor:
            return LooksLiteral(value) ? CheckColor(value) : NoColor(value);
        case ValueKind::ColorPair:
            return CheckColors(value, 2);
        case ValueKind::Colors:
            return CheckColors(value, 3);
        default:
            return {};
    }
}

std::vector<Reference> ReferencesOf(ValueKind kind, const std::string& value)
{
    const auto* const referring =
        std::find_if(std::begin(kReferring), std::end(kReferring),
                     [kind](const ReferringKind& entry) { return entry.kind == kind; });
    if (referring == std::end(kReferring))
        return {};
    const bool isList = kind == ValueKind::ColorPair || kind == ValueKind::Colors;
    std::vector<Reference> references;
    for (const std::string& name : isList ? Split(value, ',') : std::vector<std::string>{value}) {
        const bool isLiteral = referring->names == NameKind::String  ? name[0] == '#'
                               : referring->names == NameKind::Color ? LooksLiteral(name)
                                                                     : false;
        if (!name.empty() && !isLiteral)
            references.push_back({referring->names, name});
    }
    return references;
}

}  // namespace qvui::skin_tool
