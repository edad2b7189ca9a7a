// CString with text of one-byte characters.

#include <climits>
#include <map>

#include <qvui/platform/cstring.h>

#include "platform/platform_test.h"

namespace {

struct Search {
    const char* text;
    const char* what;
    int from;
    int found;
};

std::vector<std::string> Tokens(const CString& text, LPCSTR separators)
{
    std::vector<std::string> tokens;
    int position = 0;
    for (CString token = text.Tokenize(separators, position); position >= 0;
         token = text.Tokenize(separators, position))
        tokens.emplace_back(token.GetString());
    return tokens;
}

}  // namespace

TEST(String, IsMadeFromWhatIsGiven)
{
    EXPECT_TRUE(CString().IsEmpty());
    EXPECT_TRUE(CString(static_cast<LPCSTR>(nullptr)).IsEmpty());
    EXPECT_STREQ(CString("text"), "text");
    EXPECT_STREQ(CString("text", 2), "te");
    EXPECT_STREQ(CString("text", -2), "");
    EXPECT_STREQ(CString('x', 3), "xxx");
    EXPECT_STREQ(CString(std::string_view("view").substr(1)), "iew");
    CString copy = CString("first");
    const CString kept = copy;
    copy = "second";
    EXPECT_STREQ(kept, "first");
    copy = static_cast<LPCSTR>(nullptr);
    EXPECT_TRUE(copy.IsEmpty());
    EXPECT_STREQ(CString() + "a" + CString("b") + "c", "abc");
    EXPECT_STREQ("a" + CString("b"), "ab");
    copy += "x";
    copy += 'y';
    copy += CString("z");
    copy += static_cast<LPCSTR>(nullptr);
    copy.Append("12345", 2);
    EXPECT_STREQ(copy, "xyz12");
    copy.Empty();
    EXPECT_EQ(copy.GetLength(), 0);
}

TEST(String, Compares)
{
    struct Case {
        const char* left;
        const char* right;
        int order, orderWithoutCase;
    };
    for (const Case& c : {Case{"a", "b", -1, -1}, Case{"B", "a", -1, 1}, Case{"Same", "same", -1, 0},
                          Case{"ab", "a", 1, 1}, Case{"", "", 0, 0}, Case{"\xFF", "a", 1, 1}}) {
        const CString left(c.left);
        EXPECT_EQ((left.Compare(c.right) > 0) - (left.Compare(c.right) < 0), c.order)
            << c.left << ' ' << c.right;
        EXPECT_EQ((left.CompareNoCase(c.right) > 0) - (left.CompareNoCase(c.right) < 0), c.orderWithoutCase)
            << c.left << ' ' << c.right;
        EXPECT_EQ(left == c.right, c.order == 0);
        EXPECT_EQ(left != CString(c.right), c.order != 0);
        EXPECT_EQ(left < CString(c.right), c.order < 0);
    }
    EXPECT_EQ(CString().Compare(nullptr), 0);
    EXPECT_TRUE(CString() == static_cast<LPCSTR>(nullptr));
    EXPECT_TRUE(EqualNoCase("Tab_Item", "tab_ITEM"));
    EXPECT_FALSE(EqualNoCase("tab", "tabs"));
    EXPECT_FALSE(EqualNoCase("a@", "a`")) << "letters only";
}

TEST(String, Finds)
{
    for (const Search& c :
         {Search{"hello", "l", 0, 2}, Search{"hello", "l", 3, 3}, Search{"hello", "l", 4, -1},
          Search{"hello", "lo", 0, 3}, Search{"hello", "hello!", 0, -1}, Search{"", "a", 0, -1},
          Search{"aaa", "aa", 1, 1}, Search{"abc", "a", 9, -1}}) {
        EXPECT_EQ(CString(c.text).Find(c.what, c.from), c.found) << c.text << ' ' << c.what << ' ' << c.from;
        if (c.what[1] == '\0') {
            EXPECT_EQ(CString(c.text).Find(c.what[0], c.from), c.found)
                << c.text << ' ' << c.what << ' ' << c.from;
        }
    }
    EXPECT_EQ(CString("a.b.c").ReverseFind('.'), 3);
    EXPECT_EQ(CString("abc").ReverseFind('.'), -1);
    EXPECT_EQ(CString("key=value").FindOneOf(";="), 3);
    EXPECT_EQ(CString("key").FindOneOf(";="), -1);
    EXPECT_EQ(CString("key").Find(nullptr), -1);
}

TEST(String, CutsOutParts)
{
    struct Case {
        int first, count;
        const char* mid;
        const char* left;   // of `count`
        const char* right;  // of `count`
    };
    const CString text("0123456789");
    for (const Case& c :
         {Case{2, 3, "234", "012", "789"}, Case{0, 0, "", "", ""}, Case{8, 9, "89", "012345678", "123456789"},
          Case{10, 2, "", "01", "89"}, Case{-1, 2, "01", "01", "89"}, Case{3, -1, "", "", ""},
          Case{0, INT_MAX, "0123456789", "0123456789", "0123456789"}}) {
        EXPECT_STREQ(text.Mid(c.first, c.count), c.mid) << c.first << ' ' << c.count;
        EXPECT_STREQ(text.Left(c.count), c.left) << c.count;
        EXPECT_STREQ(text.Right(c.count), c.right) << c.count;
    }
    EXPECT_STREQ(text.Mid(7), "789");
    EXPECT_STREQ(text.Mid(70), "");
    EXPECT_EQ(text[9], '9');
    EXPECT_EQ(text[10], '\0');
    EXPECT_EQ(text.GetAt(-1), '\0');
}

TEST(String, Trims)
{
    struct Case {
        const char* text;
        const char* set;
        const char* left;
        const char* right;
        const char* both;
    };
    for (const Case& c :
         {Case{" \t a b\r\n", nullptr, "a b\r\n", " \t a b", "a b"}, Case{"   ", nullptr, "", "", ""},
          Case{"\"quoted\"", "\"", "quoted\"", "\"quoted", "quoted"},
          Case{"xyxaxyx", "xy", "axyx", "xyxa", "a"}, Case{"", nullptr, "", "", ""}}) {
        EXPECT_STREQ(CString(c.text).TrimLeft(c.set), c.left);
        EXPECT_STREQ(CString(c.text).TrimRight(c.set), c.right);
        EXPECT_STREQ(CString(c.text).Trim(c.set), c.both);
    }
}

TEST(String, Edits)
{
    struct Case {
        const char* text;
        const char* from;
        const char* to;
        int count;
        const char* result;
    };
    for (const Case& c : {Case{"a/b/c", "/", "\\", 2, "a\\b\\c"}, Case{"aaa", "aa", "b", 1, "ba"},
                          Case{"abc", "x", "y", 0, "abc"}, Case{"abc", "", "y", 0, "abc"},
                          Case{"a--b", "-", nullptr, 2, "ab"}, Case{"x", "x", "xx", 1, "xx"}}) {
        CString text(c.text);
        EXPECT_EQ(text.Replace(c.from, c.to), c.count) << c.text;
        EXPECT_STREQ(text, c.result) << c.text;
    }
    CString text("0123456789");
    EXPECT_EQ(text.Delete(2, 3), 7);
    EXPECT_STREQ(text, "0156789");
    EXPECT_EQ(text.Delete(5, 99), 5);
    EXPECT_EQ(text.Delete(99), 5);
    EXPECT_EQ(text.Insert(1, "--"), 7);
    EXPECT_STREQ(text, "0--1567");
    EXPECT_EQ(text.Insert(99, "!"), 8);
    EXPECT_EQ(text.Insert(-5, "?"), 9);
    EXPECT_STREQ(text, "?0--1567!");
    EXPECT_EQ(text.Remove('-'), 2);
    EXPECT_STREQ(text, "?01567!");
    text.SetAt(0, '.');
    text.SetAt(70, '.');
    EXPECT_STREQ(text, ".01567!");
    EXPECT_STREQ(CString("Mixed 1").MakeUpper(), "MIXED 1");
    EXPECT_STREQ(CString("Mixed 1").MakeLower(), "mixed 1");
}

TEST(String, Tokenizes)
{
    EXPECT_EQ(Tokens("a,b;;c", ",;"), (std::vector<std::string>{"a", "b", "c"}));
    EXPECT_EQ(Tokens(",,a", ","), (std::vector<std::string>{"a"}));
    EXPECT_EQ(Tokens("whole", ","), (std::vector<std::string>{"whole"}));
    EXPECT_TRUE(Tokens("", ",").empty());
    EXPECT_TRUE(Tokens(";;", ";").empty());
    int position = -1;
    EXPECT_TRUE(CString("a").Tokenize(",", position).IsEmpty());
}

TEST(String, Formats)
{
    CString text("7");
    text.Format("%s-%d-%05.1f", text.GetString(), 42, 2.5);
    EXPECT_STREQ(text, "7-42-002.5");
    text.AppendFormat("[%s]", text.GetString());
    EXPECT_STREQ(text, "7-42-002.5[7-42-002.5]");
    const std::string filler(5000, 'x');
    text.Format("%s", filler.c_str());
    EXPECT_EQ(text.GetLength(), 5000);
}

TEST(String, LendsItsBuffer)
{
    CString text("abc");
    char* buffer = text.GetBuffer(10);
    EXPECT_STREQ(buffer, "abc");
    buffer[3] = 'd';
    buffer[4] = '\0';
    text.ReleaseBuffer();
    EXPECT_STREQ(text, "abcd");
    EXPECT_EQ(text.GetLength(), 4);
    text.GetBuffer(10);
    text.ReleaseBuffer(2);
    EXPECT_STREQ(text, "ab");
}

TEST(String, ConvertsThroughUtf16)
{
    const CString text("plain text");
    const std::basic_string<WCHAR> wide = text.ToWide();
    EXPECT_EQ(wide.size(), 10U);
    EXPECT_EQ(CString::FromWide(wide.c_str()), text);
    EXPECT_STREQ(CString::FromWide(wide.c_str(), 5), "plain");
    EXPECT_TRUE(CString::FromWide(nullptr).IsEmpty());
    EXPECT_TRUE(CString::FromWide(wide.c_str(), 0).IsEmpty());
    EXPECT_TRUE(CString().ToWide().empty());
    // A letter that the Latin pages and UTF-8 have comes back whole.
    const CString letter = CString::FromUtf8("\xC3\xBC");
    EXPECT_EQ(letter.ToWide().size(), 1U);
    EXPECT_EQ(letter.ToWide()[0], static_cast<WCHAR>(0xFC));
    EXPECT_TRUE(CString::FromUtf8("").IsEmpty());
}
