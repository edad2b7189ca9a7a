#include <algorithm>
#include <random>
#include <sstream>
#include <string>

#include <gtest/gtest.h>

#include <qvui/platform/cstring.h>

#include "support/geometry_text.h"
#include "support/target.h"
#include "support/transcript.h"
#include "tooltip/markup/breaks.h"
#include "tooltip/markup/line_layout.h"

using namespace DUI::html;
using namespace qvui::test;

namespace {

/// A font of cells: 10 pixels wide, those of several bytes 20, and 20 high, ascent 15; with a size all of
/// these are as many pixels as the size says. The image "star" is 30×40, every other one missing.
class CellRuler : public Ruler {
public:
    explicit CellRuler(const Document& document) : m_document(document) {}

    int Width(int style, std::string_view text) override
    {
        const int size = Size(style);
        int width = 0;
        for (const char *at = text.data(), *end = at + text.size(); at < end;) {
            const int length = CharacterLength(at, end);
            width += size ? size : length == 1 ? 10 : 20;
            at += length;
        }
        return width;
    }
    LineMetrics Metrics(int style) override
    {
        const int size = Size(style);
        return size ? LineMetrics{size, size} : LineMetrics{20, 15};
    }
    SIZE Image(const std::string& name, int) override { return name == "star" ? SIZE{30, 40} : SIZE{0, 0}; }

private:
    int Size(int style) const { return m_document.styles.at(static_cast<std::size_t>(style)).size; }

    const Document& m_document;
};

std::string StyleText(const Style& style)
{
    std::string text;
    for (const auto& [isOn, name] : {std::pair(style.isBold, "b"),
                                     {style.isItalic, "i"},
                                     {style.isUnderlined, "u"},
                                     {style.isStruckOut, "s"},
                                     {style.isCentered, "center"}})
        if (isOn)
            text += std::string(name) + " ";
    if (style.size)
        text += "size" + std::to_string(style.size) + " ";
    if (style.sizeStep)
        text += "step" + std::to_string(style.sizeStep) + " ";
    text += style.face.empty() ? "" : "face:" + style.face + " ";
    text += style.color.empty() ? "" : "color:" + style.color + " ";
    if (!text.empty())
        text.back() = '|';
    return text;
}

std::string Dump(const Document& document)
{
    std::string dump;
    for (const Piece& piece : document.pieces) {
        const std::string number = " " + std::to_string(piece.number) + "}";
        const Style& style = document.styles.at(static_cast<std::size_t>(piece.style));
        switch (piece.kind) {
            case PieceKind::Text:
                dump += "[" + StyleText(style) + piece.text + "]";
                break;
            case PieceKind::LineBreak:
                dump += '\\';
                break;
            case PieceKind::BlockBreak:
                dump += '/';
                break;
            case PieceKind::Rule:
                dump += "{rule}";
                break;
            case PieceKind::Image:
                dump += "{img " + piece.text + number;
                break;
            case PieceKind::Indent:
                dump += "{ind" + number;
                break;
        }
    }
    std::replace(dump.begin(), dump.end(), kNoBreakSpace, '~');
    return dump;
}

Layout LayOutMarkup(const std::string& text, int maxWidth, int maxHeight = 32767)
{
    const Document document = ParseMarkup(text);
    CellRuler ruler(document);
    return LayOut(document, ruler, maxWidth, maxHeight);
}

std::string Dump(const Layout& layout, int space)
{
    std::string dump;
    for (const Line& line : layout.lines) {
        dump += dump.empty() ? "" : " | ";
        const char* gap = "";
        for (const Box& box : layout.BoxesOf(line)) {
            const std::string text = box.kind == PieceKind::Rule ? "---" : box.text;
            dump += gap + text + "@" + Text(POINT{box.rect.left + line.Shift(space), box.rect.top});
            gap = " ";
        }
    }
    std::replace(dump.begin(), dump.end(), kNoBreakSpace, '~');
    return dump;
}

/// \n, \r, \t and \xNN stand for their characters.
std::string Unescape(const std::string& text)
{
    std::string result;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] != '\\' || i + 1 == text.size()) {
            result += text[i];
            continue;
        }
        const char kind = text[++i];
        result += kind == 'n'   ? '\n'
                  : kind == 'r' ? '\r'
                  : kind == 't' ? '\t'
                                : static_cast<char>(std::stoi(text.substr(i + 1, 2), nullptr, 16));
        i += kind == 'x' ? 2 : 0;
    }
    return result;
}

TEST(HtmlMarkup, BecomesPiecesAndLines)
{
    std::string markup;
    const auto run = [&markup](const std::string& line) -> std::string {
        std::istringstream words(line);
        const std::string command = ReadWord(words);
        if (command == "text") {
            markup = Unescape(ReadRest(words));
            return "  " + (markup.empty() ? "nothing" : Dump(ParseMarkup(markup))) + "\n";
        }
        if (command == "break") {
            const auto before = static_cast<char32_t>(std::stoi(ReadWord(words), nullptr, 16));
            const auto after = static_cast<char32_t>(std::stoi(ReadWord(words), nullptr, 16));
            return MayBreakBetween(before, after) ? "  yes\n" : "  no\n";
        }
        const SIZE space = ReadSize(words);
        const Layout layout = LayOutMarkup(markup, space.cx, space.cy ? space.cy : 32767);
        return "    " + Dump(layout, space.cx) + "  size " + Text(layout.size) + "\n";
    };
    ExpectTranscript("tooltip/markup.txt", LineByLine(run));
    if (TargetName() == std::string("native"))  // whose code page is UTF-8
        ExpectTranscript("tooltip/markup_utf8.txt", LineByLine(run));
}

// Whatever the words and styles, every character appears once and in order, nothing overflows, and a text
// keeps its lines when it is laid out in the width that it took.
TEST(HtmlMarkup, LosesNothingAndStaysInside)
{
    std::mt19937 random(7);
    const char* const parts[] = {"a", "bc", "defghijklmn", " ", "  ", "\n", "<b>", "</b>", "<i>", "</i>"};
    for (int round = 0; round < 400; ++round) {
        std::string markup, letters, shown;
        for (int i = 0; i < 60; ++i) {
            const std::string part = parts[random() % std::size(parts)];
            markup += part;
            letters += part[0] == '<' || part[0] == '\n' ? "" : part;
        }
        const int width = 10 + static_cast<int>(random() % 200);
        const Layout layout = LayOutMarkup(markup, width);
        for (const Box& box : layout.boxes) {
            shown += box.text;
            EXPECT_LE(box.rect.right, width);
        }
        std::erase(shown, ' ');
        std::erase(letters, ' ');
        ASSERT_EQ(shown, letters) << markup << " in " << width;
        for (std::size_t i = 1; i < layout.lines.size(); ++i)
            ASSERT_EQ(layout.lines[i].top, layout.lines[i - 1].top + layout.lines[i - 1].height);
        ASSERT_EQ(Dump(layout, 0), Dump(LayOutMarkup(markup, layout.size.cx), 0)) << markup;
    }
}

TEST(HtmlMarkup, EndsOnHostileTexts)
{
    for (const char* const unit : {"<", "<b \"", "<img \"", "&#", "x", " ", "\n", "<hr>", "<b>x", "<center>",
                                   "<ind=500>x", "<font face=f size=2>x", "<img src=star>", "</font>"}) {
        std::string text;
        while (text.size() < 100000)
            text += unit;
        const Layout layout = LayOutMarkup(text, 900);
        EXPECT_LE(layout.size.cx, 900) << unit;
        EXPECT_LT(layout.size.cy, 32767 + 100) << unit;
        EXPECT_LE(ParseMarkup(text).styles.size(), 3u) << unit;  // equal styles are one
    }
    const std::string endless = "<b " + std::string(5000, ' ') + ">x";
    EXPECT_EQ(Dump(ParseMarkup(endless)), "[" + endless + "]");
}

}  // namespace
