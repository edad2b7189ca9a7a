// Text in double-byte pages and UTF-8, and text that is none.

#include <algorithm>
#include <random>

#include "platform/native_code_page.h"
#include "platform/text/text_canvas.h"

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

std::string Joined(const std::vector<std::string>& characters, std::size_t count)
{
    std::string text;
    for (std::size_t i = 0; i < count; ++i)
        text += characters[i];
    return text;
}

}  // namespace

using ScriptText = PlatformTest;

TEST_F(ScriptText, IsCutAndBrokenBetweenCharacters)
{
    for (const Script& script : kScripts) {
        const NativeCodePage codePage(script.codePage);
        TextCanvas canvas;
        const std::string text = Joined(script.characters, 6);
        const std::string three = Joined(script.characters, 3);
        const int one = canvas.Width(script.characters[0]);
        ASSERT_GT(one, 0) << script.name;
        const int bytes = static_cast<int>(script.characters[0].size());
        std::vector<int> widths(text.size());
        int fit = 0;
        SIZE size{};
        GetTextExtentExPointA(canvas, text.data(), static_cast<int>(text.size()), 2 * one + one / 2, &fit,
                              widths.data(), &size);
        EXPECT_EQ(fit, 2 * bytes) << script.name;
        for (std::size_t i = 0; i < widths.size(); ++i)
            EXPECT_EQ(widths[i], one * (static_cast<int>(i) / bytes + 1)) << script.name << ' ' << i;
        EXPECT_EQ(canvas.Modified(text, canvas.Width(three + "...") + 1, DT_SINGLELINE | DT_END_ELLIPSIS),
                  three + "...")
            << script.name;
        // With a width, the lines that the text takes then, and the widest one's width
        const Table<std::string, int, int, int> cases{
            {text, 2 * one, 3, 2 * one},
            {text, 4 * one + 1, 2, 4 * one},
            {three, one - 1, 3, one},
            {"ab" + three, canvas.Width("ab") + one, 2, std::max(canvas.Width("ab"), one) + one},
        };
        for (const auto& [whole, width, lines, widest] : cases) {
            const RECT rect = canvas.Calculated(whole, {0, 0, width, 0}, DT_WORDBREAK);
            EXPECT_EQ(RectText(rect), RectText({0, 0, widest, lines * canvas.LineHeight()}))
                << script.name << ' ' << whole;
        }
    }
}

TEST_F(ScriptText, ThatIsBrokenIsDrawnAllTheSame)
{
    std::mt19937 random(31);
    for (const Script& script : kScripts) {
        const NativeCodePage codePage(script.codePage);
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
}
