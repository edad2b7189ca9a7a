// Texts and pictures as scripts, and what a script cannot say.

#include <cstdio>
#include <cstring>

#include <qvui/platform/cstring.h>

#include "platform/classlib/classlib_script.h"
#include "platform/platform_test.h"
#include "support/test_files.h"

namespace {

const std::string kData = qvui::test::TestFile("platform/classlib/data/");

}  // namespace

TEST(String, IsMadeFromWhatIsGivenAndIsACopy)
{
    EXPECT_STREQ(CString("text", 2), "te");
    EXPECT_STREQ(CString("text", -2), "");
    EXPECT_STREQ(CString('x', 3), "xxx");
    EXPECT_STREQ(CString(std::string_view("view").substr(1)), "iew");
    EXPECT_STREQ("a" + CString("b") + "c", "abc");
    EXPECT_STREQ(CString("0123").Mid(2), "23");
    CString text = CString("first");
    const CString kept = text;
    text = static_cast<LPCSTR>(nullptr);
    EXPECT_STREQ(kept, "first");
    text += "x";
    text += 'y';
    text += static_cast<LPCSTR>(nullptr);
    text.Append("12345", 2);
    EXPECT_STREQ(text, "xy12");
    EXPECT_EQ(text[4], '\0');
    EXPECT_EQ(text.GetAt(-1), '\0');
    EXPECT_EQ(CString().Compare(nullptr), 0);
    EXPECT_EQ(text.Find(nullptr), -1);
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

using Images = PlatformTest;

TEST_F(Images, AndTextsGoAsTheScriptsSay)
{
    qvui::test::CheckScripts<ClasslibScript>("classlib/scripts");
}

TEST_F(Images, OfEveryFormatAreTheSameFromAFileAndFailWhenTheyAreCutOff)
{
    for (const bool areTiff : {false, true})
        for (const std::string& path : Pictures(areTiff)) {
            CImage image;
            ASSERT_EQ(image.Load(path.c_str()), S_OK) << path;
            const std::vector<std::uint32_t> pixels = PixelsOf(image);
            const Bytes whole = FileBytes(path);
            ASSERT_EQ(LoadBytes(image, whole), S_OK) << path;
            EXPECT_EQ(PixelsOf(image), pixels) << path;
            EXPECT_TRUE(FAILED(LoadBytes(image, Cut(whole, whole.size() / 2)))) << path;
            EXPECT_TRUE(image.IsNull()) << path;
            if (path.ends_with(".png"))
                ForEachCut(Cut(whole, whole.size() - 4), [&](const Bytes& cut) {
                    EXPECT_TRUE(FAILED(LoadBytes(image, cut))) << path << ", " << cut.size() << " bytes";
                });
        }
}

TEST_F(Images, AreBottomUpSectionsAndEmptyAfterAFailure)
{
    CImage image;
    ASSERT_EQ(image.Load((kData + "rgb8.png").c_str()), S_OK);
    EXPECT_EQ(image.GetPitch(), -12);
    EXPECT_EQ(image.GetBits(), image.GetPixelAddress(0, 0));
    DIBSECTION section{};
    ASSERT_EQ(GetObjectA(image, sizeof section, &section), static_cast<int>(sizeof section));
    EXPECT_EQ(static_cast<std::uint8_t*>(section.dsBm.bmBits) + 24, image.GetBits())
        << "the top row is stored last";
    EXPECT_TRUE(FAILED(image.Load((kData + "missing.png").c_str())));
    EXPECT_TRUE(image.IsNull());
    EXPECT_EQ(image.GetWidth(), 0);
    EXPECT_TRUE(FAILED(image.Load(static_cast<IStream*>(nullptr))));
}

// Without the TIFF files: the windows target's decoder reads outside of a damaged one, and may not come back.
TEST_F(Images, OfAnyBrokenFileAreReadSafely)
{
    for (const std::string& path : Pictures(false))
        LoadEveryDamage(path);
}

TEST_F(Images, AreMadeEmptyAndSavedAsPng)
{
    const std::string path = qvui::test::OutputPath("saved.png");
    for (const int bits : {24, 32}) {
        CImage image;
        ASSERT_TRUE(image.Create(4, 3, bits)) << bits;
        EXPECT_EQ(PixelsOf(image), std::vector<std::uint32_t>(12, 0)) << bits;
        for (int i = 0; i < 12; ++i)
            std::memset(image.GetPixelAddress(i % 4, i / 4), 20 * i + 1, static_cast<std::size_t>(bits / 8));
        image.SetHasAlphaChannel(bits == 32);
        ASSERT_EQ(image.Save(path.c_str()), S_OK) << bits;
        CImage again;
        ASSERT_EQ(again.Load(path.c_str()), S_OK) << bits;
        EXPECT_EQ(again.GetBPP(), bits);
        EXPECT_EQ(PixelsOf(again), PixelsOf(image)) << bits;
    }
    std::remove(path.c_str());
}

TEST_F(Images, ThatCannotBeMadeOrSavedFail)
{
    CImage image;
    EXPECT_TRUE(FAILED(image.Save((kData + "nothing.png").c_str()))) << "nothing to save";
    ASSERT_TRUE(image.Create(1, 1, 24));
    EXPECT_EQ(image.SetTransparentColor(RGB(1, 2, 3)), CLR_INVALID);
    EXPECT_EQ(image.GetTransparentColor(), RGB(1, 2, 3));
    EXPECT_TRUE(FAILED(image.Save((kData + "no/such/folder.png").c_str())));
    EXPECT_FALSE(image.Create(0, 4, 32));
    EXPECT_FALSE(image.Create(4, -4, 32));
    EXPECT_TRUE(image.IsNull());
}
