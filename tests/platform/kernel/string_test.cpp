// Comparing, copying and counting.

#include <string>

#include <qvui/platform/platform.h>

#include "platform/platform_test.h"

namespace {

int Sign(int value)
{
    return (value > 0) - (value < 0);
}

}  // namespace

using Strings = PlatformTest;

TEST_F(Strings, CompareLikeADictionary)
{
    // With the order, and that without case
    const Table<const char*, const char*, int, int> cases{
        {"", "a", -1, -1},        {"a", "b", -1, -1},      {"a", "A", -1, 0},    {"a", "B", -1, -1},
        {"B", "a", 1, 1},         {"abc", "abcd", -1, -1}, {"Abc", "aBc", 1, 0}, {"a1", "ab", -1, -1},
        {"1", "a", -1, -1},       {"same", "same", 0, 0},  {"_a", "a", -1, -1},  {"item2", "item10", 1, 1},
        {"name", "Name2", -1, -1}};
    for (const auto& [left, right, order, orderWithoutCase] : cases) {
        EXPECT_EQ(Sign(lstrcmpA(left, right)), order) << left << " and " << right;
        EXPECT_EQ(Sign(lstrcmpiA(left, right)), orderWithoutCase) << left << " and " << right;
    }
    EXPECT_EQ(lstrcmpA(nullptr, nullptr), 0);
    EXPECT_LT(lstrcmpA(nullptr, ""), 0);
    EXPECT_GT(lstrcmpiA("", nullptr), 0);
}

TEST_F(Strings, OrderIsTotal)
{
    const std::vector<const char*> texts{"",   "_",  "-",   "1",   "12", "2",  "a",  "A",  "aB",
                                         "ab", "AB", "a_b", "a-b", "b",  "B1", "b2", "~a", "z"};
    for (const char* a : texts)
        for (const char* b : texts) {
            EXPECT_EQ(Sign(lstrcmpA(a, b)), -Sign(lstrcmpA(b, a))) << a << ' ' << b;
            EXPECT_EQ(lstrcmpA(a, b) == 0, std::string(a) == b) << a << ' ' << b;
            for (const char* c : texts)
                EXPECT_FALSE(lstrcmpA(a, b) < 0 && lstrcmpA(b, c) < 0 && lstrcmpA(a, c) >= 0) << a << b << c;
        }
}

TEST_F(Strings, CopyWhatFitsAndNumbersRound)
{
    for (const auto& [capacity, result] :
         Table<int, const char*>{{10, "hello"}, {6, "hello"}, {5, "hell"}, {1, ""}}) {
        char target[16] = "###############";
        EXPECT_EQ(lstrcpynA(target, "hello", capacity), target);
        EXPECT_STREQ(target, result) << capacity;
        EXPECT_EQ(target[capacity], '#') << "nothing is written behind the capacity";
    }
    EXPECT_EQ(lstrlenA(nullptr), 0);
    char text[] = "Mixed Case 12 [z]";
    EXPECT_EQ(CharUpperBuffA(text, 10), 10U);
    EXPECT_STREQ(text, "MIXED CASE 12 [z]");
    EXPECT_EQ(MulDiv(-1, 1, 2), -1) << "rounded away from zero";
    EXPECT_EQ(MulDiv(2000000000, 2, 4), 1000000000);
    EXPECT_EQ(MulDiv(2000000000, 2, 1), -1);
}
