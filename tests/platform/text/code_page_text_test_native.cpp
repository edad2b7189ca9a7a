// Text in double-byte pages and UTF-8, and text that is none.

#include <algorithm>
#include <random>

#include "platform/native_code_page.h"
#include "platform/text/text_script.h"

namespace {

struct Script {
    const char* name;
    UINT codePage;
    std::vector<std::string> characters;
};

// Six ideographs, each of the same width.
const std::vector<Script> kScripts{
    {"GBK", 936, {"\xD6\xD0", "\xCE\xC4", "\xD7\xD6", "\xB7\xFB", "\xB2\xE2", "\xCA\xD4"}},
    {"Shift-JIS", 932, {"\x93\xFA", "\x96\x7B", "\x8C\xEA", "\x8E\x9A", "\x95\x5C", "\x8E\xA6"}},
    {"UTF-8", 65001, {"\u4E2D", "\u6587", "\u5B57", "\u7B26", "\u6D4B", "\u8BD5"}},
};

}  // namespace

using ScriptText = PlatformTest;

TEST_F(ScriptText, GoesAsTheScriptsSay)
{
    qvui::test::CheckScripts<InCodePages<TextScript>>("text/native_scripts");
}

TEST_F(ScriptText, ThatIsBrokenIsDrawnAllTheSame)
{
    std::mt19937 random(31);
    for (const Script& script : kScripts) {
        qvui::native::OverrideSystemCodePage(script.codePage);
        TextCanvas canvas(80, 60);
        for (int round = 0; round < 200; ++round) {
            std::string text;
            for (auto count = random() % 12; count > 0; --count)
                text += random() % 2 ? script.characters[random() % 6]
                                     : std::string(1, static_cast<char>(random()));
            text.resize(text.size() - std::min<std::size_t>(text.size(), random() % 3));
            const int length = static_cast<int>(text.size());
            int fit = -1;
            std::vector<int> widths(text.size() + 1);
            SIZE size{};
            ASSERT_TRUE(GetTextExtentExPointA(canvas, text.data(), length, 50, &fit, widths.data(), &size));
            ASSERT_GE(fit, 0);
            ASSERT_LE(fit, length);
            ASSERT_TRUE(length == 0 || widths[text.size() - 1] == size.cx);
            canvas.Out(0, 0, text);
            for (const UINT format :
                 {DT_WORDBREAK | DT_EXPANDTABS, DT_SINGLELINE | DT_END_ELLIPSIS, DT_PATH_ELLIPSIS})
                canvas.Modified(text, 40, format);
        }
    }
    qvui::native::OverrideSystemCodePage(0);
}
