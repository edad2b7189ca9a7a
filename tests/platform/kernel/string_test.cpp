// Comparing, copying and counting.

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
    struct Case {
        const char* left;
        const char* right;
        int order;
        int orderWithoutCase;
    };
    const std::vector<Case> cases{
        {"", "", 0, 0},
        {"", "a", -1, -1},
        {"a", "b", -1, -1},
        {"a", "A", -1, 0},
        {"a", "B", -1, -1},
        {"B", "a", 1, 1},
        {"abc", "abcd", -1, -1},
        {"Abc", "aBc", 1, 0},
        {"a1", "ab", -1, -1},
        {"1", "a", -1, -1},
        {"same", "same", 0, 0},
        {"_a", "a", -1, -1},
        {"item2", "item10", 1, 1},
        {"name", "Name2", -1, -1},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(Sign(lstrcmpA(c.left, c.right)), c.order) << c.left << " and " << c.right;
        EXPECT_EQ(Sign(lstrcmpA(c.right, c.left)), -c.order) << c.right << " and " << c.left;
        EXPECT_EQ(Sign(lstrcmpiA(c.left, c.right)), c.orderWithoutCase) << c.left << " and " << c.right;
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

TEST_F(Strings, CopyWhatFits)
{
    struct Case {
        const char* source;
        int capacity;
        const char* result;
    };
    for (const Case& c : {Case{"hello", 10, "hello"}, Case{"hello", 6, "hello"}, Case{"hello", 5, "hell"},
                          Case{"hello", 1, ""}, Case{"", 3, ""}}) {
        char target[16] = "###############";
        EXPECT_EQ(lstrcpynA(target, c.source, c.capacity), target);
        EXPECT_STREQ(target, c.result) << c.capacity;
        EXPECT_EQ(target[c.capacity], '#') << "nothing is written behind the capacity";
    }
    EXPECT_EQ(lstrlenA("four"), 4);
    EXPECT_EQ(lstrlenA(nullptr), 0);
}

TEST_F(Strings, ChangeCaseOfWhatTheyAreTold)
{
    char text[] = "Mixed Case 12 [z]";
    EXPECT_EQ(CharUpperBuffA(text, 10), 10U);
    EXPECT_STREQ(text, "MIXED CASE 12 [z]");
}

TEST_F(Strings, MulDivRoundsAndChecks)
{
    struct Case {
        int number, numerator, denominator, result;
    };
    for (const Case& c :
         {Case{9, 96, 72, 12}, Case{1, 1, 2, 1}, Case{-1, 1, 2, -1}, Case{5, 3, -2, -8}, Case{7, 1, 3, 2},
          Case{2000000000, 2, 4, 1000000000}, Case{2000000000, 2, 1, -1}, Case{1, 1, 0, -1}})
        EXPECT_EQ(MulDiv(c.number, c.numerator, c.denominator), c.result)
            << c.number << " * " << c.numerator << " / " << c.denominator;
}
