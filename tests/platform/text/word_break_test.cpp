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

TEST_F(WordBreak, EndsParagraphsAtTheirLineBreaks)
{
    TextCanvas canvas;
    std::string many;
    for (int i = 0; i < 20000; ++i)
        many += "word ";
    EXPECT_EQ(canvas.Calculated(many, {0, 0, canvas.Width("word word "), 0}, DT_WORDBREAK).bottom,
              10000 * canvas.LineHeight());
    const int line = canvas.LineHeight();
    const int two = canvas.Width("aaa bbb ");
    const Table<const char*, std::string, int, int> cases{
        {"fits", "aaa bbb", two, 1},
        {"wraps", "aaa bbb ccc", two, 2},
        {"newline inside", "aaa\nbbb ccc", two, 2},
        {"newline where it wraps", "aaa bbb \nccc", two, 2},
        {"empty line", "aaa\n\nbbb", two, 3},
        {"a word too long", "mmmmmmmmmmmmmmmm bbb", two, 2},
        {"no-break at a tab", "a\tb\tc", 1, 1},
    };
    for (const auto& [name, text, width, lines] : cases)
        EXPECT_EQ(canvas.Calculated(text, {0, 0, width, 0}, DT_WORDBREAK).bottom, lines * line) << name;
}

TEST_F(WordBreak, SplitsLongWordsOnlyForEditControls)
{
    TextCanvas canvas;
    const RECT four{0, 0, canvas.Width("mmmm"), 0};
    EXPECT_EQ(canvas.Calculated("mmmmmmmmmm", four, DT_WORDBREAK).right, canvas.Width("mmmmmmmmmm"));
    EXPECT_EQ(RectText(canvas.Calculated("mmmmmmmmmm", four, DT_WORDBREAK | DT_EDITCONTROL)),
              RectText({0, 0, four.right, 3 * canvas.LineHeight()}));
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

TEST_F(Ellipsis, KeepsTheTailOfAPath)
{
    TextCanvas canvas;
    const std::string head = "C:\\some\\folder";
    const std::string tail = "\\file.txt";
    for (int width = canvas.Width("..." + tail); width < canvas.Width(head + tail) + 5; width += 3) {
        const bool fits = canvas.Width(head + tail) <= width;
        EXPECT_EQ(canvas.Modified(head + tail, width, DT_SINGLELINE | DT_PATH_ELLIPSIS),
                  fits ? head + tail : Shortened(canvas, head, "..." + tail, width))
            << width;
    }
}

TEST_F(Ellipsis, MarksTheLastLineThatIsDrawnWhenTextIsLeft)
{
    TextCanvas canvas;
    EXPECT_EQ(
        canvas.Modified("&Too long to fit", canvas.Width("Too long..."), DT_SINGLELINE | DT_END_ELLIPSIS),
        "Too long...")
        << "without the prefix";
    const int line = canvas.LineHeight();
    const int width = canvas.Width("first words ");
    const Table<const char*, std::string, UINT, int, std::string> cases{
        {"first line", "aa\nbb\ncc", 0, line - 1, "aa..."},
        {"enough room", "aa\nbb\ncc", 0, 4 * line, "aa\nbb\ncc"},
        {"wrapped", "first words and more words that go on", DT_WORDBREAK, 2 * line - 1,
         Shortened(canvas, "and more ", "...", width)},
    };
    for (const auto& [name, text, format, height, last] : cases)
        EXPECT_EQ(canvas.Modified(text, width, DT_END_ELLIPSIS | format, height), last) << name;
}
