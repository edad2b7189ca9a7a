// Chinese text in a double-byte code page; the windows target has none for it here.

#include <gtest/gtest.h>

#include <qvui/platform/cstring.h>

#include "native/kernel/code_pages.h"
#include "tooltip/markup/breaks.h"
#include "tooltip/markup/parser.h"

using namespace DUI::html;

namespace {

TEST(HtmlMarkup, ReadsADoubleBytePage)
{
    qvui::native::OverrideSystemCodePage(936);
    // The second byte of a character may be a letter or a bar.
    EXPECT_EQ(ParseMarkup("<b>\x81\x62\x81\x7C</b>").pieces.at(0).text, "\x81\x62\x81\x7C");
    EXPECT_EQ(ParseMarkup("&#20013;&nbsp;").pieces.at(0).text, std::string("\xD6\xD0") + kNoBreakSpace);
    EXPECT_EQ(CodePointOf("\xA1\xA3"), 0x3002u);
    qvui::native::OverrideSystemCodePage(0);
}

}  // namespace
