#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include <qvui/framework/attribute_table.h>

namespace qvui::skin_tool {

/// What a package gives names to.
enum class NameKind { String, Color, Font, Image, Cursor, TextStyle, FrameStyle, ControlStyle };
constexpr int kNameKinds = 8;
/// "image", "text style" and so on.
const char* NameOf(NameKind kind);

/// The kinds of the library's attribute tables, and those that only the documents of a package have.
enum class ValueKind {
    Text,
    Character,
    StringId,
    Boolean,
    Integer,
    IntPair,
    Rect,
    Keywords,
    Choice,
    Color,
    ColorPair,
    Image,
    Cursor,
    TextStyle,
    FrameStyle,
    ControlStyle,
    ControlName,
    Ignored,
    // documents alone
    Font,
    LiteralColor,
    Colors,      // one to three, commas between
    Number,      // decimal, with a fraction
    ChoiceAny,   // one of the keywords, in any letter case
    Flags,       // any of the keywords, in any letter case
    FileName,
};
ValueKind FromTable(DUI::AttributeKind kind);
/// "integer", "image name" and so on, for readers.
const char* Describe(ValueKind kind);

struct ValueProblem {
    std::string text;
    std::string suggestion;
};

/// What is wrong with the form of a value; nothing for one that reads as its kind says. Whether names exist is
/// not asked here. `keywords` are separated by "|".
std::optional<ValueProblem> CheckForm(ValueKind kind, const std::string& value, std::string_view keywords);

/// The names that a value of the kind refers to.
struct Reference {
    NameKind kind;
    std::string name;
};
std::vector<Reference> ReferencesOf(ValueKind kind, const std::string& value);

std::vector<std::string> Split(std::string_view text, char separator);

}  // namespace qvui::skin_tool
