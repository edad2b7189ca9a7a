// Chinese text; the windows target has no code page for it here.

#include <qvui/framework/html_drawer.h>

#include <gtest/gtest.h>

#include "framework/html_drawer_layout.h"

using namespace DUI::html;

namespace {

/// Ideographs 20 pixels wide, other characters 10; lines 20 high.
class WideRuler : public Ruler {
public:
    int Width(int, std::string_view text) override
    {
        int width = 0;
        for (const char c : text)
            width += (c & 0x80) == 0 ? 10 : (c & 0xC0) == 0xC0 ? 20 : 0;
        return width;
    }
    LineMetrics Metrics(int) override { return {20, 15}; }
    SIZE Image(const std::string&, int) override { return {}; }
};

TEST(HtmlLayout, WrapsChinese)
{
    struct WrapCase {
        const char* name;
        const char* text;
        int width;
        std::vector<std::string> lines;
    };
    const WrapCase cases[] = {
        {"between any two", "\u4E2D\u6587\u5B57\u7B26", 40, {"\u4E2D\u6587", "\u5B57\u7B26"}},
        {"not before a full stop", "\u4E2D\u6587\u3002\u5B57", 40, {"\u4E2D", "\u6587\u3002", "\u5B57"}},
        {"not behind a bracket", "\u4E2D\uFF08\u6587\uFF09", 65, {"\u4E2D", "\uFF08\u6587\uFF09"}},
        {"beside a word", "\u4E2D\u6587abc\u5B57", 50, {"\u4E2D\u6587", "abc\u5B57"}},
        {"style inside", "\u4E2D<b>\u6587</b>\u5B57", 40, {"\u4E2D\u6587", "\u5B57"}},
    };
    for (const WrapCase& c : cases) {
        WideRuler ruler;
        const Layout layout = LayOut(ParseMarkup(c.text), ruler, c.width, 1000);
        std::vector<std::string> lines;
        for (const Line& line : layout.lines) {
            lines.emplace_back();
            for (int i = 0; i < line.boxCount; ++i)
                lines.back() += layout.boxes[static_cast<std::size_t>(line.firstBox + i)].text;
        }
        EXPECT_EQ(lines, c.lines) << c.name;
    }
}

TEST(HtmlMarkup, NumbersMakeCharactersOfTheCodePage)
{
    EXPECT_EQ(ParseMarkup("&#20013;&#x20000;").pieces.at(0).text, "\u4E2D\U00020000");
}

}  // namespace
