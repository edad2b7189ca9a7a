// Line breaking and ellipses.

#include <algorithm>
#include <random>

#include "platform/text/text_canvas.h"

namespace {

// The lines of a text of words with one space between them. `spaceMustFit` decides the case that is not
// known: whether a word stays when its own space does not fit any more.
std::vector<std::string> Wrapped(const TextCanvas& canvas, std::string text, int width, bool spaceMustFit)
{
    std::vector<std::string> lines;
    while (canvas.Width(text) > width) {
        std::size_t end = 0;
        for (std::size_t space = text.find(' '); space != std::string::npos;
             space = text.find(' ', space + 1))
            if (canvas.Width(text.substr(0, space + (spaceMustFit ? 1 : 0))) <= width)
                end = space + 1;
        if (end > 0) {
            lines.push_back(text.substr(0, end));
            text.erase(0, end);
            continue;
        }
        // A first word that does not fit is kept whole, and its space is dropped.
        const std::size_t space = text.find(' ');
        lines.push_back(text.substr(0, space));
        if (space == std::string::npos)
            return lines;
        text.erase(0, space + 1);
    }
    lines.push_back(text);
    return lines;
}

std::string RandomText(std::mt19937& random)
{
    std::string text;
    for (auto words = random() % 7 + 1; words > 0; --words) {
        for (auto letters = random() % 9 + 1; letters > 0; --letters)
            text += static_cast<char>('a' + random() % 26);
        if (words > 1)
            text += ' ';
    }
    return text;
}

// The longest head of `text` that leaves room for `tail`.
std::string Shortened(const TextCanvas& canvas, const std::string& text, const std::string& tail, int width)
{
    std::size_t keep = text.size();
    while (keep > 0 && canvas.Width(text.substr(0, keep) + tail) > width)
        --keep;
    return text.substr(0, keep) + tail;
}

}  // namespace

using WordBreak = PlatformTest;

TEST_F(WordBreak, PutsAsManyWordsOnALineAsFit)
{
    TextCanvas canvas(300, 260);
    std::mt19937 random(77);
    int compared = 0;
    for (int round = 0; round < 100; ++round) {
        const std::string text = RandomText(random);
        const int width = round % 20 == 0 ? 0 : static_cast<int>(random() % 200);
        const std::vector<std::string> lines = Wrapped(canvas, text, width, true);
        if (lines != Wrapped(canvas, text, width, false))
            continue;
        ++compared;
        int widest = 0;
        for (const std::string& line : lines)
            widest = std::max(widest, canvas.Width(line));
        const int height = static_cast<int>(lines.size()) * canvas.LineHeight();
        int result = 0;
        const RECT rect = canvas.Calculated(text, {5, 3, 5 + width, 4}, DT_WORDBREAK, &result);
        ASSERT_EQ(RectText(rect), RectText({5, 3, 5 + widest, 3 + height}))
            << '"' << text << "\" in " << width;
        ASSERT_EQ(result, height);
        const UINT alignment = round % 3 == 0 ? DT_LEFT : round % 3 == 1 ? DT_CENTER : DT_RIGHT;
        canvas.Fill(0);
        canvas.Draw(text, {100, 3, 100 + width, 260}, DT_WORDBREAK | DT_NOCLIP | alignment);
        TextCanvas expected(300, 260);
        int top = 3;
        for (const std::string& line : lines) {
            const std::string ink = line.substr(0, line.find_last_not_of(' ') + 1);
            const int free = width - canvas.Width(ink);
            const int half = (free - (free < 0 ? 1 : 0)) / 2;  // rounded down
            const int left = 100 + (alignment == DT_CENTER ? half : alignment == DT_RIGHT ? free : 0);
            expected.Out(left, top, ink);
            top += canvas.LineHeight();
        }
        canvas.ExpectSame(expected, text + " in " + std::to_string(width));
    }
    EXPECT_GT(compared, 30);
}

TEST_F(WordBreak, TakesLongTexts)
{
    TextCanvas canvas;
    std::string many;
    for (int i = 0; i < 20000; ++i)
        many += "word ";
    EXPECT_EQ(canvas.Calculated(many, {0, 0, canvas.Width("word word "), 0}, DT_WORDBREAK).bottom,
              10000 * canvas.LineHeight());
}

using Ellipsis = PlatformTest;

TEST_F(Ellipsis, ShortensTheEndToWhatFits)
{
    TextCanvas canvas;
    std::mt19937 random(9);
    for (int round = 0; round < 70; ++round) {
        const std::string text = RandomText(random);
        const int width = static_cast<int>(random() % 160);
        const bool fits = canvas.Width(text) <= width;
        const std::string expected = fits ? text : Shortened(canvas, text, "...", width);
        TextCanvas drawn;
        drawn.Out(10, 10, expected);
        for (const UINT format : {DT_END_ELLIPSIS, DT_WORD_ELLIPSIS}) {
            ASSERT_EQ(canvas.Modified(text, width, DT_SINGLELINE | format), expected)
                << text << " in " << width;
            canvas.Fill(0);
            canvas.Draw(text, {10, 10, 10 + width, 60}, DT_SINGLELINE | DT_NOCLIP | format);
            canvas.ExpectSame(drawn, text + " in " + std::to_string(width));
        }
        const RECT rect = canvas.Calculated(text, {0, 0, width, 10}, DT_SINGLELINE | DT_END_ELLIPSIS);
        ASSERT_EQ(rect.right, canvas.Width(expected)) << text << " in " << width;
    }
}
