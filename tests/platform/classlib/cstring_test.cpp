// CString with text of one-byte characters.

#include <climits>
#include <string>

#include <qvui/platform/cstring.h>

#include "platform/platform_test.h"

TEST(String, IsMadeFromWhatIsGiven)
{
    EXPECT_STREQ(CString("text", 2), "te");
    EXPECT_STREQ(CString("text", -2), "");
    EXPECT_STREQ(CString('x', 3), "xxx");
    EXPECT_STREQ(CString(std::string_view("view").substr(1)), "iew");
    EXPECT_STREQ("a" + CString("b") + "c", "abc");
    CString text = CString("first");
    const CString kept = text;
    text = static_cast<LPCSTR>(nullptr);
    EXPECT_STREQ(kept, "first");
    text += "x";
    text += 'y';
    text += static_cast<LPCSTR>(nullptr);
    text.Append("12345", 2);
    EXPECT_STREQ(text, "xy12");
}

TEST(String, Compares)
{
    const Table<const char*, const char*, int, int> cases{{"a", "b", -1, -1},      {"B", "a", -1, 1},
                                                          {"Same", "same", -1, 0}, {"ab", "a", 1, 1},
                                                          {"", "", 0, 0},          {"\xFF", "a", 1, 1}};
    const auto sign = [](int value) { return (value > 0) - (value < 0); };
    for (const auto& [one, other, order, orderWithoutCase] : cases) {
        const CString left(one);
        EXPECT_EQ(sign(left.Compare(other)), order) << one << ' ' << other;
        EXPECT_EQ(sign(left.CompareNoCase(other)), orderWithoutCase) << one << ' ' << other;
        EXPECT_EQ(left == other, order == 0);
        EXPECT_EQ(left != CString(other), order != 0);
        EXPECT_EQ(left < CString(other), order < 0);
    }
    EXPECT_EQ(CString().Compare(nullptr), 0);
    EXPECT_TRUE(EqualNoCase("Tab_Item", "tab_ITEM"));
    EXPECT_FALSE(EqualNoCase("tab", "tabs"));
    EXPECT_FALSE(EqualNoCase("a@", "a`")) << "letters only";
}

TEST(String, Finds)
{
    const Table<const char*, const char*, int, int> cases{
        {"hello", "l", 0, 2},       {"hello", "l", 3, 3}, {"hello", "l", 4, -1}, {"hello", "lo", 0, 3},
        {"hello", "hello!", 0, -1}, {"", "a", 0, -1},     {"aaa", "aa", 1, 1},   {"abc", "a", 9, -1}};
    for (const auto& [text, what, from, found] : cases) {
        EXPECT_EQ(CString(text).Find(what, from), found) << text << ' ' << what << ' ' << from;
        EXPECT_TRUE(what[1] || CString(text).Find(what[0], from) == found)
            << text << ' ' << what << ' ' << from;
    }
    EXPECT_EQ(CString("a.b.c").ReverseFind('.'), 3);
    EXPECT_EQ(CString("key=value").FindOneOf(";="), 3);
    EXPECT_EQ(CString("key").Find(nullptr), -1);
}

TEST(String, CutsOutParts)
{
    // Mid of both, Left and Right of the count
    const Table<int, int, const char*, const char*, const char*> cases{
        {2, 3, "234", "012", "789"}, {8, 9, "89", "012345678", "123456789"},
        {10, 2, "", "01", "89"},     {-1, 2, "01", "01", "89"},
        {3, -1, "", "", ""},         {0, INT_MAX, "0123456789", "0123456789", "0123456789"}};
    const CString text("0123456789");
    for (const auto& [first, count, mid, left, right] : cases) {
        EXPECT_STREQ(text.Mid(first, count), mid) << first << ' ' << count;
        EXPECT_STREQ(text.Left(count), left) << count;
        EXPECT_STREQ(text.Right(count), right) << count;
    }
    EXPECT_STREQ(text.Mid(70), "");
    EXPECT_EQ(text[10], '\0');
    EXPECT_EQ(text.GetAt(-1), '\0');
}

TEST(String, Edits)
{
    EXPECT_STREQ(CString(" \t a b\r\n").TrimLeft(), "a b\r\n");
    EXPECT_STREQ(CString(" \t a b\r\n").TrimRight(), " \t a b");
    EXPECT_STREQ(CString("xyxaxyx").Trim("xy"), "a");
    EXPECT_STREQ(CString("   ").Trim(), "");
    const Table<const char*, const char*, const char*, int, const char*> cases{
        {"a/b/c", "/", "\\", 2, "a\\b\\c"}, {"aaa", "aa", "b", 1, "ba"},     {"abc", "x", "y", 0, "abc"},
        {"abc", "", "y", 0, "abc"},         {"a--b", "-", nullptr, 2, "ab"}, {"x", "x", "xx", 1, "xx"}};
    for (const auto& [before, from, to, count, after] : cases) {
        CString text(before);
        EXPECT_EQ(text.Replace(from, to), count) << before;
        EXPECT_STREQ(text, after) << before;
    }
    CString text("0123456789");
    EXPECT_EQ(text.Delete(2, 3), 7);
    EXPECT_EQ(text.Delete(5, 99), 5);
    EXPECT_EQ(text.Delete(99), 5);
    EXPECT_EQ(text.Insert(1, "--"), 7);
    EXPECT_EQ(text.Insert(99, "!"), 8);
    EXPECT_EQ(text.Insert(-5, "?"), 9);
    EXPECT_STREQ(text, "?0--1567!");
    EXPECT_EQ(text.Remove('-'), 2);
    text.SetAt(0, '.');
    text.SetAt(70, '.');
    EXPECT_STREQ(text, ".01567!");
    EXPECT_STREQ(CString("Mixed 1").MakeUpper(), "MIXED 1");
    EXPECT_STREQ(CString("Mixed 1").MakeLower(), "mixed 1");
}

TEST(String, Tokenizes)
{
    const Table<const char*, std::vector<std::string>> cases{
        {"a,b;;c", {"a", "b", "c"}}, {",,a", {"a"}}, {"whole", {"whole"}}, {"", {}}, {";;", {}}};
    for (const auto& [text, expected] : cases) {
        std::vector<std::string> tokens;
        int position = 0;
        for (CString token = CString(text).Tokenize(",;", position); position >= 0;
             token = CString(text).Tokenize(",;", position))
            tokens.emplace_back(token.GetString());
        EXPECT_EQ(tokens, expected) << text;
        EXPECT_TRUE(CString(text).Tokenize(",;", position).IsEmpty()) << text << ": after the end";
    }
}

TEST(String, FormatsAndLendsItsBuffer)
{
    CString text("7");
    text.Format("%s-%d-%05.1f", text.GetString(), 42, 2.5);
    EXPECT_STREQ(text, "7-42-002.5");
    text.AppendFormat("[%s]", text.GetString());
    EXPECT_STREQ(text, "7-42-002.5[7-42-002.5]");
    text.Format("%s", std::string(5000, 'x').c_str());
    EXPECT_EQ(text.GetLength(), 5000);
    text = "abc";
    char* const buffer = text.GetBuffer(10);
    EXPECT_STREQ(buffer, "abc");
    buffer[3] = 'd';
    buffer[4] = '\0';
    text.ReleaseBuffer();
    EXPECT_EQ(text.GetLength(), 4);
    text.GetBuffer(10);
    text.ReleaseBuffer(2);
    EXPECT_STREQ(text, "ab");
}

TEST(String, ConvertsThroughUtf16)
{
    const std::basic_string<WCHAR> wide = CString("plain text").ToWide();
    EXPECT_EQ(wide.size(), 10U);
    EXPECT_STREQ(CString::FromWide(wide.c_str()), "plain text");
    EXPECT_STREQ(CString::FromWide(wide.c_str(), 5), "plain");
    EXPECT_TRUE(CString::FromWide(nullptr).IsEmpty());
    EXPECT_TRUE(CString::FromWide(wide.c_str(), 0).IsEmpty());
    EXPECT_TRUE(CString().ToWide().empty());
    // A letter that the Latin pages and UTF-8 have comes back whole.
    const std::basic_string<WCHAR> letter = CString::FromUtf8("\xC3\xBC").ToWide();
    EXPECT_EQ(letter, std::basic_string<WCHAR>(1, static_cast<WCHAR>(0xFC)));
    EXPECT_TRUE(CString::FromUtf8("").IsEmpty());
}
