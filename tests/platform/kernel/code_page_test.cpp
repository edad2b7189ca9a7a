// Conversions between code pages and UTF-16.

#include <qvui/platform/platform.h>

#include "platform/platform_test.h"

namespace {

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

std::string FromWide(UINT codePage, const Wide& wide, LPCSTR defaultCharacter = nullptr, BOOL* used = nullptr)
{
    const int length = static_cast<int>(wide.size());
    const int size =
        WideCharToMultiByte(codePage, 0, wide.data(), length, nullptr, 0, defaultCharacter, nullptr);
    std::string text(static_cast<std::size_t>(size), '\0');
    EXPECT_EQ(
        WideCharToMultiByte(codePage, 0, wide.data(), length, text.data(), size, defaultCharacter, used),
        size);
    return text;
}

}  // namespace

using CodePages = PlatformTest;

TEST_F(CodePages, ConvertBothWays)
{
    struct Case {
        UINT codePage;
        const char* text;
        const char16_t* wide;
    };
    const std::vector<Case> cases{
        {65001, "Gr\xC3\xBC\xC3\x9F \xE4\xBD\xA0\xE5\xA5\xBD \xF0\x9F\x98\x80",
         u"Gr\u00FC\u00DF \u4F60\u597D \U0001F600"},
        {1252, "\x80 5, na\xEFve\x81", u"\u20AC 5, na\u00EFve\u0081"},
        {1251, "\xCF\xF0\xE8\xE2\xE5\xF2", u"\u041F\u0440\u0438\u0432\u0435\u0442"},
        {1250, "\xB9\xE6", u"\u0105\u0107"},
        {936, "a\xC4\xE3\xBA\xC3z", u"a\u4F60\u597Dz"},
        {950, "\xA7\x41\xA6\x6E", u"\u4F60\u597D"},
        {932, "\x93\xFA\x96\x7B\xB1", u"\u65E5\u672C\uFF71"},
        {949, "\xC7\xD1\xB1\xDB", u"\uD55C\uAE00"},
        {28591, "\xE9\x80", u"\u00E9\u0080"},
        {20866, "\xF0\xD2", u"\u041F\u0440"},
        {437, "\x81\xE1", u"\u00FC\u00DF"},
        {20127, "plain", u"plain"},
    };
    for (const Case& c : cases) {
        EXPECT_TRUE(IsValidCodePage(c.codePage)) << c.codePage;
        EXPECT_EQ(ToWide(c.codePage, c.text), WideOf(c.wide)) << c.codePage;
        EXPECT_EQ(ToWide(c.codePage, c.text, MB_ERR_INVALID_CHARS), WideOf(c.wide)) << c.codePage;
        BOOL used = TRUE;
        EXPECT_EQ(FromWide(c.codePage, WideOf(c.wide), nullptr, c.codePage == 65001 ? nullptr : &used),
                  c.text)
            << c.codePage;
        EXPECT_TRUE(c.codePage == 65001 || !used) << c.codePage;
    }
    EXPECT_FALSE(IsValidCodePage(9999));
    EXPECT_EQ(MultiByteToWideChar(9999, 0, "a", 1, nullptr, 0), 0);
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_INVALID_PARAMETER));
}

TEST_F(CodePages, ReplaceWhatIsNoCharacter)
{
    struct Case {
        const char* name;
        UINT codePage;
        const char* text;
        const char16_t* wide;
    };
    const std::vector<Case> cases{
        {"lone byte", 65001, "a\xFFz", u"a\uFFFDz"},
        {"lone continuation", 65001, "a\x80z", u"a\uFFFDz"},
        {"cut off at the end", 65001, "a\xC3", u"a\uFFFD"},
        {"cut off before a letter", 65001, "\xC3z", u"\uFFFDz"},
        {"three bytes, one missing", 65001, "\xE4\xBDz", u"\uFFFDz"},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(ToWide(c.codePage, c.text), WideOf(c.wide)) << c.name;
        SetLastError(0);
        EXPECT_EQ(MultiByteToWideChar(c.codePage, MB_ERR_INVALID_CHARS, c.text, -1, nullptr, 0), 0) << c.name;
        EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_NO_UNICODE_TRANSLATION)) << c.name;
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
    struct Case {
        const char* name;
        UINT codePage;
        const char16_t* wide;
        const char* defaultCharacter;
        const char* text;
    };
    const std::vector<Case> cases{
        {"question mark", 1252, u"a\u4F60z", nullptr, "a?z"},
        {"own character", 1252, u"a\u4F60z", "*", "a*z"},
        {"ideograph", 1251, u"\u4F60", "#", "#"},
        {"in a double-byte page", 936, u"\u0E01z", nullptr, "?z"},
        {"ASCII", 20127, u"x\u20ACx", "!", "x!x"},
    };
    for (const Case& c : cases) {
        BOOL used = FALSE;
        EXPECT_EQ(FromWide(c.codePage, WideOf(c.wide), c.defaultCharacter, &used), c.text) << c.name;
        EXPECT_TRUE(used) << c.name;
    }
}

TEST_F(CodePages, CountTheTerminatorAndCheckTheBuffer)
{
    WCHAR wide[8] = {};
    EXPECT_EQ(MultiByteToWideChar(1252, 0, "abc", -1, wide, 8), 4);
    EXPECT_EQ(wide[3], WCHAR());
    EXPECT_EQ(MultiByteToWideChar(1252, 0, "abc", 2, wide, 8), 2);
    EXPECT_EQ(MultiByteToWideChar(1252, 0, "abc", -1, wide, 3), 0);
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_INSUFFICIENT_BUFFER));
    char text[8] = {};
    const Wide source = WideOf(u"xyz");
    EXPECT_EQ(WideCharToMultiByte(65001, 0, source.c_str(), -1, text, 8, nullptr, nullptr), 4);
    EXPECT_STREQ(text, "xyz");
    EXPECT_EQ(WideCharToMultiByte(65001, 0, source.c_str(), -1, text, 2, nullptr, nullptr), 0);
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_INSUFFICIENT_BUFFER));
    EXPECT_EQ(MultiByteToWideChar(1252, 0, "abc", 0, wide, 8), 0);
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_INVALID_PARAMETER));
}

TEST_F(CodePages, KnowTheirLeadBytes)
{
    struct Case {
        UINT codePage;
        int byte;
        bool isLead;
    };
    for (const Case& c :
         {Case{936, 0x81, true}, Case{936, 0xFE, true}, Case{936, 0x80, false}, Case{936, 0x41, false},
          Case{932, 0x81, true}, Case{932, 0xA0, false}, Case{932, 0xB1, false}, Case{932, 0xE0, true},
          Case{949, 0xC7, true}, Case{950, 0xA7, true}, Case{1252, 0xC4, false}, Case{65001, 0xC4, false}})
        EXPECT_EQ(IsDBCSLeadByteEx(c.codePage, static_cast<BYTE>(c.byte)) != FALSE, c.isLead)
            << c.codePage << ' ' << std::hex << c.byte;
}

TEST_F(CodePages, HaveASystemPage)
{
    const UINT system = GetACP();
    EXPECT_TRUE(IsValidCodePage(system));
    EXPECT_NE(system, static_cast<UINT>(CP_ACP));
    EXPECT_EQ(ToWide(CP_ACP, "plain"), ToWide(system, "plain"));
    for (int value = 0; value < 256; ++value)
        EXPECT_EQ(IsDBCSLeadByte(static_cast<BYTE>(value)),
                  IsDBCSLeadByteEx(system, static_cast<BYTE>(value)));
}
