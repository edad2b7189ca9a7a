// Chinese text; the windows target has no code page for it here.

#include <string>
#include <vector>

#include <gtest/gtest.h>

#include <qvui/platform/cstring.h>

#include "native/kernel/code_pages.h"
#include "tooltip/markup/line_layout.h"

using namespace DUI::html;

namespace {

/// Ideographs 20 pixels wide, other characters 10; lines 20 high.
class WideRuler : public Ruler {
public:
    int Width(int, std::string_view text) override
    {
        int width = 0;
        for (const char* at = text.data(); at < text.data() + text.size();) {
            const int length = CharacterLength(at, text.data() + text.size());
            width += length == 1 ? 10 : 20;
            at += length;
        }
        return width;
    }
    LineMetrics Metrics(int) override { return {20, 15}; }
    SIZE Image(const std::string&, int) override { return {}; }
};

std::vector<std::string> LinesOf(const char* text, int width)
{
    WideRuler ruler;
    const Layout layout = LayOut(ParseMarkup(text), ruler, width, 1000);
    std::vector<std::string> lines;
    for (const Line& line : layout.lines) {
        lines.emplace_back();
        for (const Box& box : layout.BoxesOf(line))
            lines.back() += box.text;
    }
    return lines;
}

TEST(HtmlLayout, WrapsChinese)
{
    const struct {
        const char* name;
        const char* text;
        int width;
        std::vector<std::string> lines;
    } cases[] = {
        {"between any two", "\u4E2D\u6587\u5B57\u7B26", 40, {"\u4E2D\u6587", "\u5B57\u7B26"}},
        {"not before a full stop", "\u4E2D\u6587\u3002\u5B57", 40, {"\u4E2D", "\u6587\u3002", "\u5B57"}},
        {"not behind a bracket", "\u4E2D\uFF08\u6587\uFF09", 65, {"\u4E2D", "\uFF08\u6587\uFF09"}},
        {"beside a word", "\u4E2D\u6587abc\u5B57", 50, {"\u4E2D\u6587", "abc\u5B57"}},
        {"style inside", "\u4E2D<b>\u6587</b>\u5B57", 40, {"\u4E2D\u6587", "\u5B57"}},
    };
    for (const auto& c : cases)
        EXPECT_EQ(LinesOf(c.text, c.width), c.lines) << c.name;
}

/// A system code page for one scope.
class CodePage {
public:
    explicit CodePage(UINT codePage) { qvui::native::OverrideSystemCodePage(codePage); }
    CodePage(const CodePage&) = delete;
    CodePage& operator=(const CodePage&) = delete;
    ~CodePage() { qvui::native::OverrideSystemCodePage(0); }
};

TEST(HtmlLayout, WrapsInADoubleBytePage)
{
    const CodePage codePage(936);
    // Two ideographs, a full stop and one more, each 20 pixels wide.
    EXPECT_EQ(LinesOf("\xD6\xD0\xCE\xC4\xA1\xA3\xD7\xD6", 50),
              (std::vector<std::string>{"\xD6\xD0", "\xCE\xC4\xA1\xA3", "\xD7\xD6"}));
    // The second byte of a character may be a letter or a bar.
    EXPECT_EQ(LinesOf("<b>\x81\x62\x81\x7C</b>", 500), (std::vector<std::string>{"\x81\x62\x81\x7C"}));
    EXPECT_EQ(ParseMarkup("&#20013;&nbsp;").pieces.at(0).text, std::string("\xD6\xD0") + kNoBreakSpace);
}

TEST(HtmlMarkup, NumbersMakeCharactersOfTheCodePage)
{
    EXPECT_EQ(ParseMarkup("&#20013;&#x20000;").pieces.at(0).text, "\u4E2D\U00020000");
}

}  // namespace
