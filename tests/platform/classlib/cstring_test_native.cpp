// CString where characters have several bytes.

#include <qvui/platform/cstring.h>

#include "platform/native_code_page.h"
#include "platform/platform_test.h"

namespace {

// In GBK, letters and signs whose second byte looks like another character: 0x5C is a back-slash, 0x7C a bar,
// 0x61 an a.
const std::string kBackSlash = "\x81\x5C";
const std::string kBar = "\x81\x7C";
const std::string kA = "\x81\x61";

}  // namespace

TEST(DoubleByteString, FindsWholeCharactersOnly)
{
    const NativeCodePage codePage(936);
    const CString path((kBackSlash + "\\" + kBackSlash).c_str());
    EXPECT_EQ(path.Find('\\'), 2);
    EXPECT_EQ(path.Find("\\"), 2);
    EXPECT_EQ(path.Find('\\', 3), -1);
    EXPECT_EQ(path.Find("\\", 3), -1);
    EXPECT_EQ(path.ReverseFind('\\'), 2);
    EXPECT_EQ(path.FindOneOf("/\\"), 2);
    EXPECT_EQ(path.Find(kBackSlash.c_str(), 1), 3);
    // The end of one character and the start of the next make a third one, which is not there.
    const CString two("\xD6\xD0\xCE\xC4");
    EXPECT_EQ(two.Find("\xD0\xCE"), -1);
    EXPECT_EQ(two.Find("\xCE\xC4"), 2);
    EXPECT_EQ(CString("\xD6\xD0\xCE\xD0\xCE").Find("\xD0\xCE"), -1);
}

TEST(DoubleByteString, EditsWholeCharactersOnly)
{
    const NativeCodePage codePage(936);
    CString text((kBackSlash + "\\" + kBackSlash).c_str());
    EXPECT_EQ(text.Replace("\\", "/"), 1);
    EXPECT_EQ(text, CString((kBackSlash + "/" + kBackSlash).c_str()));
    EXPECT_EQ(text.Remove('\\'), 0);
    EXPECT_EQ(text.Remove('/'), 1);
    int position = 0;
    EXPECT_EQ(CString((kBar + "|x").c_str()).Tokenize("|", position), CString(kBar.c_str()));
    EXPECT_EQ(position, 2);
    EXPECT_EQ(CString(("|" + kBar).c_str()).Trim("|"), CString(kBar.c_str()));
    EXPECT_EQ(CString((kA + "a").c_str()).MakeUpper(), CString((kA + "A").c_str()));
    EXPECT_EQ(CString((kA + "A").c_str()).CompareNoCase((kA + "a").c_str()), 0);
}

TEST(DoubleByteString, KnowsTheLengthOfItsCharacters)
{
    struct Case {
        UINT codePage;
        std::string text;
        int length;
    };
    for (const Case& c :
         {Case{936, "\xD6\xD0z", 2}, Case{936, "az", 1}, Case{936, "\xD6", 1}, Case{932, "\xB1z", 1},
          Case{932, "\x83\x5C", 2}, Case{1252, "\xD6\xD0", 1}, Case{65001, "\xE4\xBD\xA0z", 3},
          Case{65001, "\xC3\xBC", 2}, Case{65001, "\xF0\x9F\x98\x80z", 4}, Case{65001, "\xE4\xBDz", 2},
          Case{65001, "\xE4z", 1}, Case{65001, "\x80\x80", 1}, Case{65001, "\xC3", 1}}) {
        const NativeCodePage codePage(c.codePage);
        EXPECT_EQ(CharacterLength(c.text.data(), c.text.data() + c.text.size()), c.length)
            << c.codePage << ' ' << c.text;
    }
}

TEST(DoubleByteString, ConvertsThroughItsCodePage)
{
    struct Case {
        UINT codePage;
        const char* text;
    };
    const std::string utf8 = "a\xE4\xBD\xA0z";
    for (const Case& c : {Case{65001, "a\xE4\xBD\xA0z"}, Case{936, "a\xC4\xE3z"}, Case{950, "a\xA7\x41z"},
                          Case{1252, "a?z"}}) {
        const NativeCodePage codePage(c.codePage);
        const CString text = CString::FromUtf8(utf8);
        EXPECT_STREQ(text, c.text) << c.codePage;
        EXPECT_EQ(text.ToWide().size(), 3U) << c.codePage;
        EXPECT_EQ(CString::FromWide(text.ToWide().c_str()), text) << c.codePage;
    }
}
