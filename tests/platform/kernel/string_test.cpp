// Comparing, copying and counting; conversions between code pages and UTF-16.

#include <string>

#include <qvui/platform/platform.h>

#include "platform/platform_test.h"

namespace {

int Sign(int value)
{
    return (value > 0) - (value < 0);
}

using Wide = std::basic_string<WCHAR>;

Wide WideOf(const char16_t* units)
{
    Wide wide;
    for (; *units; ++units)
        wide += static_cast<WCHAR>(*units);
    return wide;
}

Wide ToWide(UINT codePage, const std::string& text, DWORD flags = 0)
{
    const int length = static_cast<int>(text.size());
    const int size = MultiByteToWideChar(codePage, flags, text.data(), length, nullptr, 0);
    Wide wide(static_cast<std::size_t>(size), WCHAR());
    EXPECT_EQ(MultiByteToWideChar(codePage, flags, text.data(), length, wide.data(), size), size);
    return wide;
}

std::string FromWide(UINT codePage, const Wide& wide, LPCSTR lacking, BOOL* used)
{
    const int length = static_cast<int>(wide.size());
    const int size = WideCharToMultiByte(codePage, 0, wide.data(), length, nullptr, 0, lacking, nullptr);
    std::string text(static_cast<std::size_t>(size), '\0');
    EXPECT_EQ(WideCharToMultiByte(codePage, 0, wide.data(), length, text.data(), size, lacking, used), size);
    return text;
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

using CodePages = PlatformTest;

TEST_F(CodePages, ConvertBothWays)
{
    const Table<UINT, const char*, const char16_t*> cases{
        {65001, "Gr\xC3\xBC\xC3\x9F \xE4\xBD\xA0\xE5\xA5\xBD \xF0\x9F\x98\x80",
         u"Gr\u00FC\u00DF \u4F60\u597D \U0001F600"},
        {1252, "\x80 5, na\xEFve\x81", u"\u20AC 5, na\u00EFve\u0081"},
        {1251, "\xCF\xF0\xE8\xE2\xE5\xF2", u"\u041F\u0440\u0438\u0432\u0435\u0442"},
        {936, "a\xC4\xE3\xBA\xC3z", u"a\u4F60\u597Dz"},
        {950, "\xA7\x41\xA6\x6E", u"\u4F60\u597D"},
        {932, "\x93\xFA\x96\x7B\xB1", u"\u65E5\u672C\uFF71"},
        {949, "\xC7\xD1\xB1\xDB", u"\uD55C\uAE00"},
        {28591, "\xE9\x80", u"\u00E9\u0080"},
        {20866, "\xF0\xD2", u"\u041F\u0440"},
        {437, "\x81\xE1", u"\u00FC\u00DF"},
        {20127, "plain", u"plain"},
    };
    for (const auto& [codePage, text, wide] : cases) {
        EXPECT_TRUE(IsValidCodePage(codePage)) << codePage;
        EXPECT_EQ(ToWide(codePage, text), WideOf(wide)) << codePage;
        EXPECT_EQ(ToWide(codePage, text, MB_ERR_INVALID_CHARS), WideOf(wide)) << codePage;
        BOOL used = FALSE;
        EXPECT_EQ(FromWide(codePage, WideOf(wide), nullptr, codePage == 65001 ? nullptr : &used), text)
            << codePage;
        EXPECT_FALSE(used) << codePage;
    }
    EXPECT_FALSE(IsValidCodePage(9999));
    EXPECT_EQ(MultiByteToWideChar(9999, 0, "a", 1, nullptr, 0), 0);
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_INVALID_PARAMETER));
}

TEST_F(CodePages, ReplaceWhatIsNoCharacter)
{
    const Table<const char*, const char*, const char16_t*> cases{
        {"lone byte", "a\xFFz", u"a\uFFFDz"},
        {"lone continuation", "a\x80z", u"a\uFFFDz"},
        {"cut off at the end", "a\xC3", u"a\uFFFD"},
        {"cut off before a letter", "\xC3z", u"\uFFFDz"},
        {"three bytes, one missing", "\xE4\xBDz", u"\uFFFDz"},
    };
    for (const auto& [name, text, wide] : cases) {
        EXPECT_EQ(ToWide(65001, text), WideOf(wide)) << name;
        SetLastError(0);
        EXPECT_EQ(MultiByteToWideChar(65001, MB_ERR_INVALID_CHARS, text, -1, nullptr, 0), 0) << name;
        EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_NO_UNICODE_TRANSLATION)) << name;
    }
    // An overlong form and a surrogate are no characters either; how many replacements stand for them is
    // open.
    for (const char* text : {"\xC0\x80z", "\xED\xA0\x80z", "\xF4\x90\x80\x80z"}) {
        const Wide wide = ToWide(65001, text);
        EXPECT_EQ(wide.front(), static_cast<WCHAR>(0xFFFD)) << text;
        EXPECT_EQ(wide.back(), static_cast<WCHAR>('z')) << text;
    }
    for (const UINT codePage : {932U, 936U, 949U, 950U})
        EXPECT_EQ(ToWide(codePage, "a\x81\x30z").size(), 3U)
            << codePage << ": a broken pair is one character";
}

TEST_F(CodePages, TellWhenTheyLackACharacter)
{
    const Table<UINT, const char16_t*, const char*, const char*> cases{{1252, u"a\u4F60z", nullptr, "a?z"},
                                                                       {1252, u"a\u4F60z", "*", "a*z"},
                                                                       {936, u"\u0E01z", nullptr, "?z"}};
    for (const auto& [codePage, wide, lacking, text] : cases) {
        BOOL used = FALSE;
        EXPECT_EQ(FromWide(codePage, WideOf(wide), lacking, &used), text);
        EXPECT_TRUE(used) << text;
    }
}

TEST_F(CodePages, CountTheTerminatorAndCheckTheBuffer)
{
    constexpr DWORD kTooSmall = ERROR_INSUFFICIENT_BUFFER;
    constexpr DWORD kInvalid = ERROR_INVALID_PARAMETER;
    for (const auto& [length, capacity, count, error] : Table<int, int, int, DWORD>{
             {-1, 8, 4, 0}, {2, 8, 2, 0}, {-1, 3, 0, kTooSmall}, {0, 8, 0, kInvalid}}) {
        WCHAR wide[8] = {};
        SetLastError(0);
        EXPECT_EQ(MultiByteToWideChar(1252, 0, "abc", length, wide, capacity), count) << length;
        EXPECT_EQ(GetLastError(), error) << length;
        char text[8] = {};
        const Wide source = WideOf(u"abc");
        SetLastError(0);
        EXPECT_EQ(WideCharToMultiByte(65001, 0, source.c_str(), length, text, capacity, nullptr, nullptr),
                  count)
            << length;
        EXPECT_EQ(GetLastError(), error) << length;
    }
}

TEST_F(CodePages, KnowTheirLeadBytes)
{
    const Table<UINT, int, bool> cases{{936, 0x81, true},   {936, 0xFE, true},   {936, 0x80, false},
                                       {936, 0x41, false},  {932, 0xA0, false},  {932, 0xB1, false},
                                       {932, 0xE0, true},   {949, 0xC7, true},   {950, 0xA7, true},
                                       {1252, 0xC4, false}, {65001, 0xC4, false}};
    for (const auto& [codePage, value, isLead] : cases)
        EXPECT_EQ(IsDBCSLeadByteEx(codePage, static_cast<BYTE>(value)) != FALSE, isLead)
            << codePage << ' ' << std::hex << value;
    const UINT system = GetACP();
    EXPECT_TRUE(IsValidCodePage(system));
    EXPECT_NE(system, static_cast<UINT>(CP_ACP));
    EXPECT_EQ(ToWide(CP_ACP, "plain"), ToWide(system, "plain"));
    for (int byteValue = 0; byteValue < 256; ++byteValue)
        EXPECT_EQ(IsDBCSLeadByte(static_cast<BYTE>(byteValue)),
                  IsDBCSLeadByteEx(system, static_cast<BYTE>(byteValue)));
}
