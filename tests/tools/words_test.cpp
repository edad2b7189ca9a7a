#include <gtest/gtest.h>

#include "qvui-skin/suggest.h"
#include "qvui-skin/values.h"
#include "support/table.h"

namespace qvui::skin_tool {
namespace {

TEST(Suggest, CountsTheStepsFromWordToWord)
{
    const Table<const char*, const char*, int> cases{
        {"", "", 0},
        {"", "abc", 3},
        {"abc", "", 3},
        {"button", "button", 0},
        {"buton", "button", 1},
        {"labell", "label", 1},
        {"cavnas", "canvas", 1},
        {"color", "colour", 1},
        {"kitten", "sitting", 3},
        {"ab", "ba", 1},
        {"abc", "cba", 2},
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
    using Texts = std::vector<const char*>;
    const Table<ValueKind, Texts, Texts> cases{
        // right and wrong
        {ValueKind::Integer, {"12", " -7 ", ""}, {"12px", "1.5", "99999999999", "-2147483649"}},
        {ValueKind::IntPair, {"1,2", "1;  2"}, {"1", "1,2,3"}},
        {ValueKind::Rect, {"1,2,3,4", "1, 2, 3, -4"}, {"1,2,3", "1,,3,4"}},
        {ValueKind::Boolean, {"TRUE"}, {"1"}},
        {ValueKind::Character, {"x"}, {"xy"}},
        {ValueKind::Number, {"0.3"}, {"0,3"}},
        {ValueKind::Keywords, {"size_x | group"}, {"Size_x"}},
        {ValueKind::Flags, {"Size_x|GROUP"}, {"Size_z"}},
        {ValueKind::Choice, {"group"}, {"size_x|group"}},
        {ValueKind::ChoiceAny, {"GROUP"}, {"groups"}},
        {ValueKind::Color,
         {"#80FF00aa", "rgb(1,2,3)", "rGb ( 1, 2, 3 )", "ink"},
         {"#123456789", "#12345G", "rgb(1,2)", "rgb(1,2,256)", "rgb(-1,2,3)", "rgb_ink"}},
        {ValueKind::LiteralColor, {"#FF000000"}, {"ink"}},
        {ValueKind::ColorPair, {"ink,#FF000000"}, {"ink,ink,ink"}},
        {ValueKind::Colors, {"ink,,#FF000000"}, {"ink,#zz"}},
        {ValueKind::Text, {"anything"}, {}},
    };
    const auto isRight = [](ValueKind kind, const char* text) {
        return !CheckForm(kind, text, "size_x|size_y|group").has_value();
    };
    for (const auto& [kind, right, wrong] : cases) {
        for (const char* text : right)
            EXPECT_TRUE(isRight(kind, text)) << text;
        for (const char* text : wrong)
            EXPECT_FALSE(isRight(kind, text)) << text;
    }
}

TEST(Values, OfIntegersStayInTheirRange)
{
    const Table<const char*, IntegerRange, const char*> cases{
        {"0", {0, 999}, ""},
        {"999", {0, 999}, ""},
        {"-1", {0, 999}, R"("-1" is out of range: write a number from 0 to 999)"},
        {"1000", {0, 999}, R"("1000" is out of range: write a number from 0 to 999)"},
        {"0", {1}, R"("0" is out of range: write a number from 1)"},
        {"2147483647", {1}, ""},
        {"2147483648", {}, R"("2147483648" is too large a number)"},
    };
    for (const auto& [value, range, problem] : cases)
        EXPECT_EQ(CheckForm(ValueKind::Integer, value, "", range).value_or(ValueProblem{}).text, problem)
            << value;
}

TEST(Values, FindTheNamesTheyReferTo)
{
    const Table<ValueKind, const char*, std::vector<std::string>> cases{
        {ValueKind::StringId, "hello", {"hello"}},
        {ValueKind::StringId, "#hello", {}},
        {ValueKind::Color, "ink", {"ink"}},
        {ValueKind::Color, "#FF000000", {}},
        {ValueKind::Color, "rgb(1,2,3)", {}},
        {ValueKind::Colors, "a,,b", {"a", "b"}},
        {ValueKind::Image, "", {}},
        {ValueKind::Text, "hello", {}},
    };
    for (const auto& [kind, value, expected] : cases) {
        std::vector<std::string> names;
        for (const Reference& reference : ReferencesOf(kind, value))
            names.push_back(reference.name);
        EXPECT_EQ(names, expected) << value;
    }
}

}  // namespace
}  // namespace qvui::skin_tool
