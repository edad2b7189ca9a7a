#include <climits>
#include <string>

#include <gtest/gtest.h>

#include <qvui/framework/attribute_table.h>

namespace DUI {
namespace {

bool operator==(const RECT& left, const RECT& right)
{
    return left.left == right.left && left.top == right.top && left.right == right.right &&
           left.bottom == right.bottom;
}

TEST(AttributeValues, IntegerListsTakeOneSeparatorBetweenNumbers)
{
    const std::string manyDigits(126, '0');
    const struct {
        const char* name;
        std::string text;
        RECT expected;
    } cases[] = {
        {"commas", "10,20,110,60", {10, 20, 110, 60}},
        {"blanks after the commas", "10, 20, 110, 60", {10, 20, 110, 60}},
        {"other separator", "1;2;3;4", {1, 2, 3, 4}},
        {"missing numbers", "10;20", {10, 20, 0, 0}},
        {"two separators", "1,,2,3", {1, 0, 2, 3}},
        {"empty", "", {0, 0, 0, 0}},
        {"words", "left,top", {0, 0, 0, 0}},
        {"signs", "-1,+2,-3,4", {-1, 2, -3, 4}},
        {"too large", "99999999999,-99999999999,1,2", {INT_MAX, INT_MIN, 1, 2}},
        {"cut after 127 characters", manyDigits + "12,5,6,7", {1, 0, 0, 0}},
    };
    for (const auto& c : cases)
        EXPECT_TRUE(ReadRect(c.text.c_str()) == c.expected) << c.name;
    const SIZE pair = ReadPair("60,80,100");
    EXPECT_EQ(pair.cx, 60);
    EXPECT_EQ(pair.cy, 80);
}

TEST(AttributeValues, SingleIntegersStopAtTheFirstOtherCharacter)
{
    EXPECT_EQ(ReadInteger(" 12px"), 12);
    EXPECT_EQ(ReadInteger("-3"), -3);
    EXPECT_EQ(ReadInteger("x"), 0);
    EXPECT_EQ(ReadInteger("4000000000"), INT_MAX);
}

TEST(AttributeValues, WordsAreCaseSensitiveSubstrings)
{
    constexpr WordBit kWords[] = {{"one", 1}, {"two", 2}, {"three", 4}};
    EXPECT_EQ(FindWords("three|one", kWords), 5u);
    EXPECT_EQ(FindWords("ONE two", kWords), 2u);
    EXPECT_EQ(FindFirstWord("three two", kWords), 2u);
    EXPECT_EQ(FindFirstWord("none of Two", kWords), 1u);
    EXPECT_EQ(FindFirstWord("", kWords), 0u);
}

struct Lamp {
    int brightness = 0;
    CString label;
};

TEST(AttributeTable, FindsNamesInAnyLetterCaseAndPassesOnWhatASetterDeclines)
{
    const AttributeTable<Lamp> table{
        {"label", AttributeKind::Text, "", [](Lamp& lamp, const CString& value) { lamp.label = value; }},
        {"brightness",
         {AttributeKind::Integer, "5"},
         "",
         [](Lamp& lamp, const CString& value) {
             lamp.brightness = ReadInteger(value);
             return lamp.brightness > 0;
         }},
    };
    Lamp lamp;
    EXPECT_TRUE(table.Apply(lamp, "LABEL", "desk"));
    EXPECT_EQ(lamp.label, "desk");
    EXPECT_TRUE(table.Apply(lamp, "Brightness", "7"));
    EXPECT_FALSE(table.Apply(lamp, "brightness", "0"));
    EXPECT_FALSE(table.Apply(lamp, "labe", "x"));
    EXPECT_FALSE(table.Apply(lamp, "labels", "x"));
    EXPECT_FALSE(table.Apply(lamp, "", "x"));
    ASSERT_EQ(table.Infos().size(), 2u);
    EXPECT_STREQ(table.Infos()[1].syntax.defaultValue, "5");
}

TEST(ControlClass, AnswersItsOwnNamesAndThoseOfItsBases)
{
    const ControlClass base("Base", nullptr, "", {"base", "thing"});
    const ControlClass middle("Middle", &base, "", {"middle"});
    const ControlClass closed("Closed", &middle, "", {"closed"}, nullptr, {}, false);
    EXPECT_TRUE(middle.Answers("THING"));
    EXPECT_TRUE(middle.Answers("middle"));
    EXPECT_FALSE(base.Answers("middle"));
    EXPECT_TRUE(closed.Answers("closed"));
    EXPECT_FALSE(closed.Answers("middle"));
    EXPECT_FALSE(closed.Answers(""));
}

}  // namespace
}  // namespace DUI
