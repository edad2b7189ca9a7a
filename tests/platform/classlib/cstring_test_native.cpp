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
    const Table<UINT, std::string, int> cases{
        {936, "\xD6\xD0z", 2},       {936, "az", 1},         {936, "\xD6", 1},
        {932, "\xB1z", 1},           {932, "\x83\x5C", 2},   {1252, "\xD6\xD0", 1},
        {65001, "\xE4\xBD\xA0z", 3}, {65001, "\xC3\xBC", 2}, {65001, "\xF0\x9F\x98\x80z", 4},
        {65001, "\xE4\xBDz", 2},     {65001, "\xE4z", 1},    {65001, "\x80\x80", 1},
        {65001, "\xC3", 1}};
    for (const auto& [page, text, length] : cases) {
        const NativeCodePage codePage(page);
        EXPECT_EQ(CharacterLength(text.data(), text.data() + text.size()), length) << page << ' ' << text;
    }
}
