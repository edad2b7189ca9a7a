// Text files in every encoding that they may say or show they are in.

#include <qvui/skin/xml/xml_document.h>

#include <map>

#include "skin/code_page.h"
#include "skin/skin_test.h"

using namespace std::string_literals;

namespace {

// A file as the reader saw it.
struct ReadResult {
    bool isRead = false;
    std::string text;
    std::vector<std::string> words;
    std::string log;
    int flags = 0;
};

ReadResult Read(const std::string& file)
{
    CString text;
    CString log;
    ReadResult result;
    result.isRead =
        DUI::CXmlDocument::ReadTextFile(SkinFolder::LibraryPath(file).c_str(), text, log, result.flags);
    result.text = text.View();
    result.log = log.View();
    result.words = LogWords(log);
    return result;
}

// UTF-16 of a text of which every byte is one character.
std::string Wide(const std::string& text, bool isBigEndian)
{
    std::string bytes;
    for (const char character : text)
        bytes += isBigEndian ? std::string{'\0', character} : std::string{character, '\0'};
    return bytes;
}

}  // namespace

class XmlTextFile : public SkinTest {};

TEST_F(XmlTextFile, IsConvertedToTheSystemCodePage)
{
    // A declaration, then "<a>" + the two characters of "Chinese" + "</a>", in each encoding, and the flags.
    const std::string utf8 = "<a>\xE4\xB8\xAD\xE6\x96\x87</a>";
    const std::string gbk = "<a>\xD6\xD0\xCE\xC4</a>";
    const std::string html =
        "<html><head><meta name='x'><meta http-equiv=\"Content-Type\" "
        "content=\"text/html; charset=gb2312\"></head></html>";
    const Table<const char*, std::string, int> cases{
        {"UTF-8 with a mark", "\xEF\xBB\xBF" + utf8, 4},
        {"UTF-8 with a mark that contradicts", "\xEF\xBB\xBF<?xml encoding='gbk'?>" + utf8, 4},
        {"UTF-8 declared", "<?xml version=\"1.0\" encoding=\"UTF-8\"?>" + utf8, 0},
        {"UTF-8 because it begins with a bracket", utf8, 0},
        {"UTF-8 recognised", " " + utf8, 0},
        {"gb2312 declared", "<?xml version='1.0' encoding='gb2312'?>" + gbk, 0},
        {"GBK declared without quotes", "<?xml encoding=GBK ?>" + gbk, 0},
        {"in an HTML head", html + gbk, 0},
        {"UTF-16LE with a mark", "\xFF\xFE" + Wide("<a>", false) + "\x2D\x4E\x87\x65" + Wide("</a>", false),
         1},
        {"UTF-16BE with a mark", "\xFE\xFF" + Wide("<a>", true) + "\x4E\x2D\x65\x87" + Wide("</a>", true),
         128},
    };
    const std::map<UINT, std::string> contents{{65001, utf8},
                                               {936, gbk},
                                               {1252,
                                                "<a>?"
                                                "?</a>"}};
    for (const UINT page : CodePages())
        if (const auto content = contents.find(page); content != contents.end()) {
            const CodePage system(page);
            for (const auto& [name, bytes, flags] : cases) {
                folder.Write("text.xml", bytes);
                const ReadResult result = Read("text.xml");
                EXPECT_TRUE(result.isRead) << name;
                EXPECT_TRUE(result.text.ends_with(content->second)) << name << ": " << result.text;
                EXPECT_EQ(result.flags, flags) << name;
            }
        }
}

TEST_F(XmlTextFile, LogsWhatItDid)
{
    // The text, and the words of the log, in code page 65001.
    const std::string late = "<?xml " + std::string(1020, ' ') + "encoding='latin1'?>\xC3\xA9";
    const std::string other = "<?xmls encoding='latin1'?>\xC3\xA9";
    const std::string latin = "<?xml encoding='latin1'?>";
    const std::string unknown = "<?xml encoding='nonsense'?>\xE9";
    const std::string wide = "<?xml encoding='utf-16'?>x";
    const std::string mac = "<?xml encoding='x-mac-ce'?>";
    const std::string europa = "<?xml encoding='x-europa'?>\x8A";
    const std::string seven = "<?xml encoding='utf-7'?>";
    const Table<const char*, std::string, std::string, std::vector<std::string>> cases{
        {"empty", "", "", {"read", "utf8_detection"}},
        {"plain", "<a/>", "<a/>", {"read"}},
        {"recognised", "a", "a", {"read", "utf8_detection"}},
        {"marked", "\xEF\xBB\xBF<a/>", "<a/>", {"bom", "read"}},
        {"a mark alone", "\xFF\xFE", "", {"bom", "read", "converted_to"}},
        {"zero bytes", "<a>\0\0x</a>"s, "<a>x</a>", {"read", "nulls_removed"}},
        {"zero units", "\xFF\xFE<\0\0\0a\0/\0>\0"s, "<a/>", {"bom", "read", "nulls_removed", "converted_to"}},
        {"big-endian", "\xFE\xFF\0<\0a\0/\0>"s, "<a/>", {"bom", "read", "endian_swap", "converted_to"}},
        {"half a unit at the end", "\xFF\xFE<\0a\0/\0>\0x"s, "<a/>", {"bom", "read", "converted_to"}},
        {"another code page", latin + "\xE9", latin + "\xC3\xA9", {"read", "converted_to"}},
        {"a converter by another name", mac + "\x8A", mac + "\xC3\xA4", {"read", "converted_to"}},
        {"a known encoding without a converter", europa, europa, {"read", "conversion_loss"}},
        {"zeros that the encoding hides",
         seven + "<a+AAA-b/>",
         seven + "<ab/>",
         {"read", "nulls_removed", "converted_to"}},
        {"an unknown encoding never converts", unknown, unknown, {"read"}},
        {"a wide encoding of a text of bytes", wide, wide, {"read"}},
        {"no encoding and no UTF-8", "\xE9", "\xE9", {"read", "utf8_detection"}},
        {"an instruction is no declaration", other, other, {"read"}},
        {"declared too far behind", late, late, {"read"}},
    };
    for (const UINT page : CodePages()) {
        if (page != 65001)
            continue;
        const CodePage system(page);
        for (const auto& [name, bytes, text, words] : cases) {
            folder.Write("text.xml", bytes);
            const ReadResult result = Read("text.xml");
            EXPECT_TRUE(result.isRead) << name;
            EXPECT_EQ(result.text, text) << name;
            EXPECT_EQ(result.words, words) << name << ": " << result.log;
        }
    }
}

TEST_F(XmlTextFile, TellsOfLostCharactersButNotInAscii)
{
    const std::string text = "<?xml version=\"1.0\" encoding=\"us-ascii\"?>\r\n<a b=\"1\"/>";
    folder.Write("lost.xml", "<?xml encoding='utf-8'?><a>\xE4\xB8\xAD</a>");
    folder.Write("plain.xml", text);
    folder.Write("wide.xml", "\xFF\xFE" + Wide(text, false));
    for (const UINT page : CodePages()) {
        const CodePage system(page);
        EXPECT_EQ(Read("plain.xml").text, text);
        EXPECT_EQ(Read("wide.xml").text, text);
        if (page != 1252)
            continue;
        const ReadResult result = Read("lost.xml");
        EXPECT_EQ(result.text, "<?xml encoding='utf-8'?><a>?</a>");
        EXPECT_EQ(result.words, (std::vector<std::string>{"read", "converted_to", "conversion_loss"}));
        EXPECT_NE(result.log.find("<converted_to encoding=\"1252\""), std::string::npos) << result.log;
    }
}

TEST_F(XmlTextFile, ThatCannotBeOpenedIsAnError)
{
    CString text("before");
    CString log("<before/>");
    int flags = 0;
    const std::string path = SkinFolder::LibraryPath("a&b.xml");
    EXPECT_FALSE(DUI::CXmlDocument::ReadTextFile(path.c_str(), text, log, flags));
    EXPECT_STREQ(text, "before");
    EXPECT_TRUE(log.View().starts_with("<before/><file_error msg=\"")) << "the log is appended to";
    EXPECT_NE(log.View().find("a&amp;b.xml"), std::string_view::npos);
    EXPECT_FALSE(DUI::CXmlDocument::ReadTextFile(nullptr, text, log, flags));
    EXPECT_FALSE(DUI::CXmlDocument::ReadTextFile(SkinFolder::LibraryPath("").c_str(), text, log, flags))
        << "a folder";
}
