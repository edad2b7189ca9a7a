#include <gtest/gtest.h>

#include <qvui/platform/cstring.h>

#include "qvui-skin/document.h"
#include "support/table.h"

namespace qvui::skin_tool {
namespace {

TEST(Document, TellsLineAndColumnInCharacters)
{
    const std::string text(CString::FromUtf8("one\ntwo \xC3\xA4\xC3\xB6 x\r\n\nend").View());
    const auto at = [&text](const char* what) { return static_cast<int>(text.find(what)); };
    const Table<const char*, int, int, int> cases{
        {"the start", 0, 1, 1},
        {"the end of a line", 3, 1, 4},
        {"a line's first", 4, 2, 1},
        {"behind two-byte characters", at("x"), 2, 8},
        {"an empty line", at("\n\n") + 1, 3, 1},
        {"the last line", at("end"), 4, 1},
        {"behind the text", 1000, 4, 4},
        {"before the text", -1, 1, 1},
    };
    for (const auto& [name, offset, line, column] : cases) {
        const Position place = PositionOf(text, offset);
        EXPECT_EQ(place.line, line) << name;
        EXPECT_EQ(place.column, column) << name;
    }
}

TEST(Document, KeepsElementsInOrderWithTheirRelativesAndPlaces)
{
    const Document document =
        Document::FromText("x.xml", "<a>\n <b k='1' k='2' K=\"&lt;\"><c/></b>\n <d>text</d>\n</a>");
    ASSERT_TRUE(document.IsWellFormed());
    ASSERT_EQ(document.Elements().size(), 4u);
    const Element& b = document.At(1);
    EXPECT_EQ(document.At(0).firstChild, 1);
    EXPECT_EQ(b.firstChild, 2);
    EXPECT_EQ(b.next, 3);
    EXPECT_EQ(document.At(2).parent, 1);
    EXPECT_EQ(document.At(3).next, -1);
    EXPECT_EQ(document.At(3).data, "text");
    EXPECT_EQ(b.Value("k"), "1");
    EXPECT_EQ(b.Value("K"), "<");
    EXPECT_EQ(document.Where(b.Find("K")->nameOffset).column, 17);
    EXPECT_EQ(document.Where(b.Find("K")->valueOffset).column, 20);
    EXPECT_EQ(document.Where(document.At(3).offset).line, 3);
}

TEST(Document, SaysWhyItIsNotWellFormed)
{
    const Table<const char*, const char*, int> cases{
        {"", "the document has no element", 1},
        {"<a>\n<b>\n</a>", "the element \"b\" has no end tag", 2},
        {"<a/>\n<b/>", "a second top-level element \"b\": a document has one", 2},
        {"<a>\n</b></a>", "the end tag \"</b>\" has no element to end", 2},
        {"<a>\n<!-- </a>", "a comment without its \"-->\"", 2},
    };
    for (const auto& [text, problem, line] : cases) {
        const Document document = Document::FromText("x.xml", text);
        EXPECT_FALSE(document.IsWellFormed()) << text;
        EXPECT_TRUE(document.Elements().empty()) << text;
        ASSERT_FALSE(document.Problems().empty()) << text;
        EXPECT_EQ(document.Problems().front().text, problem) << text;
        EXPECT_EQ(document.Where(document.Problems().front().offset).line, line) << text;
    }
    EXPECT_FALSE(Document::FromFile("no-such-directory/no.xml").IsReadable());
}

TEST(Document, ReadsDeepTextsWithoutRecursion)
{
    constexpr int kDepth = 20000;
    std::string text;
    for (const char* tag : {"<e>", "</e>"})
        for (int i = 0; i < kDepth; ++i)
            text += tag;
    EXPECT_EQ(Document::FromText("x.xml", text).Elements().size(), static_cast<std::size_t>(kDepth));
}

}  // namespace
}  // namespace qvui::skin_tool
