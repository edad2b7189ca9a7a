#include <gtest/gtest.h>

#include "qvui-skin/suggest.h"
#include "support/table.h"
#include "qvui-skin/values.h"

namespace qvui::skin_tool {
namespace {

TEST(Suggest, CountsTheStepsFromWordToWord)
{
    const Table<const char*, const char*, int> cases{
        {"", "", 0},          {"", "abc", 3},        {"abc", "", 3},           {"button", "button", 0},
        {"buton", "button", 1}, {"labell", "label", 1}, {"cavnas", "canvas", 1}, {"color", "colour", 1},
        {"kitten", "sitting", 3}, {"ab", "ba", 1},      {"abc", "cba", 2},
    };
    for (const auto& [from, to, distance] : cases) {
        EXPECT_EQ(EditDistance(from, to), distance) << from << " " << to;
        EXPECT_EQ(EditDistance(to, from), distance) << to << " " << from;
    }
}

TEST(Suggest, OffersTheNearestNameThatIsNearEnough)
{
    const std::vector<std::string> names{"button", "check_box", "label", "ok", "on"};
    const Table<const char*, const char*, const char*> cases{
        {"one letter lacks", "buton", "button"},
        {"another letter case", "LABEL", "label"},
        {"three steps in nine letters", "chek_bux_", "check_box"},
        {"too far", "slider", ""},
        {"one step in a short word", "o", "ok"},
        {"two steps in a short word", "xx", ""},
        {"nothing written", "", ""},
    };
    for (const auto& [name, word, nearest] : cases)
        EXPECT_EQ(Nearest(word, names), nearest) << name;
    EXPECT_EQ(Nearest("label", {}), "");
    EXPECT_EQ(Nearest(std::string(100000, 'a'), {std::string(100000, 'b')}), "");
}

TEST(Values, TellFormsThatDoNotReadAsTheirKindSays)
{
    constexpr const char* kWords = "size_x|size_y|group";
    const Table<ValueKind, const char*, bool> cases{
        {ValueKind::Integer, "12", true},
        {ValueKind::Integer, " -7 ", true},
        {ValueKind::Integer, "", true},
        {ValueKind::Integer, "12px", false},
        {ValueKind::Integer, "1.5", false},
        {ValueKind::IntPair, "1,2", true},
        {ValueKind::IntPair, "1;  2", true},
        {ValueKind::IntPair, "1", false},
        {ValueKind::IntPair, "1,2,3", false},
        {ValueKind::Rect, "1,2,3,4", true},
        {ValueKind::Rect, "1, 2, 3, -4", true},
        {ValueKind::Rect, "1,2,3", false},
        {ValueKind::Rect, "1,,3,4", false},
        {ValueKind::Boolean, "TRUE", true},
        {ValueKind::Boolean, "1", false},
        {ValueKind::Character, "x", true},
        {ValueKind::Character, "xy", false},
        {ValueKind::Number, "0.3", true},
        {ValueKind::Number, "0,3", false},
        {ValueKind::Keywords, "size_x | group", true},
        {ValueKind::Keywords, "Size_x", false},
        {ValueKind::Flags, "Size_x|GROUP", true},
        {ValueKind::Choice, "group", true},
        {ValueKind::Choice, "size_x|group", false},
        {ValueKind::ChoiceAny, "GROUP", true},
        {ValueKind::Color, "#80FF00aa", true},
        {ValueKind::Color, "#123456789", false},
        {ValueKind::Color, "#12345G", false},
        {ValueKind::Color, "rgb(1,2,3)", true},
        {ValueKind::Color, "RGB (1, 2, 3)", true},
        {ValueKind::Color, "rgb(1,2)", false},
        {ValueKind::Color, "ink", true},
        {ValueKind::LiteralColor, "ink", false},
        {ValueKind::ColorPair, "ink,#FF000000", true},
        {ValueKind::ColorPair, "ink,ink,ink", false},
        {ValueKind::Colors, "ink,,#FF000000", true},
        {ValueKind::Colors, "ink,#zz", false},
        {ValueKind::Text, "anything", true},
    };
    for (const auto& [kind, value, isRight] : cases)
        EXPECT_EQ(!CheckForm(kind, value, kWords).has_value(), isRight) << value;
}

TEST(Values, FindTheNamesTheyReferTo)
{
    const Table<ValueKind, const char*, std::vector<std::string>> cases{
        {ValueKind::StringId, "hello", {"hello"}}, {ValueKind::StringId, "#hello", {}},
        {ValueKind::Color, "ink", {"ink"}},        {ValueKind::Color, "#FF000000", {}},
        {ValueKind::Color, "rgb(1,2,3)", {}},      {ValueKind::Colors, "a,,b", {"a", "b"}},
        {ValueKind::Image, "", {}},                {ValueKind::Text, "hello", {}},
    };
    for (const auto& [kind, value, names] : cases) {
        std::vector<std::string> names;
        for (const Reference& reference : ReferencesOf(kind, value))
            names.push_back(reference.name);
        EXPECT_EQ(names, names) << value;
    }
}

}  // namespace
}  // namespace qvui::skin_tool
