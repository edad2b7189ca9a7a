#include <string>

#include <gtest/gtest.h>

#include "tooltip/markup/parser.h"

using namespace DUI::html;

namespace {

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

// Pieces in square brackets: their style before a bar, no-break spaces as ~, line breaks as \.
std::string Dump(const Document& document)
{
    std::string dump;
    for (const Piece& piece : document.pieces) {
        std::string content = piece.text;
        switch (piece.kind) {
            case PieceKind::Text:
                for (char& c : content)
                    c = c == kNoBreakSpace ? '~' : c;
                dump += '[' + StyleText(document.styles.at(static_cast<std::size_t>(piece.style))) + content +
                        ']';
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
                dump += "{img " + content + " " + std::to_string(piece.number) + "}";
                break;
            case PieceKind::Indent:
                dump += "{ind " + std::to_string(piece.number) + "}";
                break;
        }
    }
    return dump;
}

struct MarkupCase {
    const char* name;
    const char* text;
    const char* pieces;
};

void ExpectPieces(std::initializer_list<MarkupCase> cases)
{
    for (const MarkupCase& c : cases)
        EXPECT_EQ(Dump(ParseMarkup(c.text)), c.pieces) << c.name;
}

TEST(HtmlMarkup, TagsChangeTheStyle)
{
    ExpectPieces({
        {"none", "plain  text", "[plain  text]"},
        {"each", "<b>b</b><i>i</i><u>u</u><s>s</s>", "[b|b][i|i][u|u][s|s]"},
        {"other names", "<STRONG>b</strong><em>i</EM><strike>s</strike>", "[b|b][i|i][s|s]"},
        {"nested", "a<b>b<i>c</i>d</b>e", "[a][b|b][b i|c][b|d][e]"},
        {"overlapping", "<b>a<i>b</b>c</i>d", "[b|a][b i|b][i|c][d]"},
        {"twice the same", "<b>a<b>b</b>c</b>d", "[b|abc][d]"},
        {"open at the end", "<b><i>a", "[b i|a]"},
        {"end without start", "a</b></font></center>b", "[ab]"},
        {"nothing inside", "a<b></b>b", "[a][b]"},
        {"blanks in the tag", "<b >a</b\n>b", "[b|a][b]"},
    });
}

TEST(HtmlMarkup, FontsNestAndReadTheirAttributes)
{
    ExpectPieces({
        {"quotes", "<font color=\"#FF0000\" face='My Font' size=20>a</font>b",
         "[size20 face:My Font color:#FF0000|a][b]"},
        {"letter case and blanks", "<FONT COLOR = red\tSize= \"12\" >a", "[size12 color:red|a]"},
        {"nested", "<font color=red>a<font size=20>b</font>c</font>d",
         "[color:red|a][size20 color:red|b][color:red|c][d]"},
        {"steps of old", "<font size=1>a<font size=3>b<font size=7>c", "[size10|a][size16|b][size48|c]"},
        {"relative", "<font size=+2>a<font size=-6>b</font><font size=20>c", "[step2|a][step-4|b][size20|c]"},
        {"units are ignored", "<font size=16px>a", "[size16|a]"},
        {"out of range", "<font size=0>a</font><font size=5000>b</font><font size=-999999>c",
         "[size8|a][size96|b][step-96|c]"},
        {"no numbers", "<font size=large size=>a", "[a]"},
        {"overflowing number", "<font size=99999999999999999999>a", "[a]"},
        {"unknown attribute", "<font weight=\"a>b\" color=blue>a", "[color:blue|a]"},
        {"end among other tags", "<font color=red><b>a</font>b</b>c", "[b color:red|a][b|b][c]"},
    });
}

TEST(HtmlMarkup, LinesRulesImagesAndIndents)
{
    ExpectPieces({
        {"br", "a<br>b<BR/>c<br />d", "[a]\\[b]\\[c]\\[d]"},
        {"line ends", "a\nb\r\nc\rd\n\re", "[a]\\[b]\\[c]\\[d]\\\\[e]"},
        {"tab", "a\tb", "[a    b]"},
        {"control characters",
         "a\x01\x02\x1f"
         "b",
         "[ab]"},
        {"rule", "a<hr>b", "[a]/{rule}/[b]"},
        {"source line beside a rule", "a\n<hr>\nb\n\nc", "[a]\\/{rule}/[b]\\\\[c]"},
        {"centre", "a<center>b</center>\nc", "[a]/[center|b]/[c]"},
        {"image", "<img src=\"star\" index=2>a<IMG SRC=moon>", "{img star 2}[a]{img moon 0}"},
        {"image without name", "<img><img index=-4 src=x>", "{img  0}{img x 0}"},
        {"indent", "a<ind=40>b<ind=\"7\">c<ind>d", "[a]{ind 40}[b]{ind 7}[c]{ind 0}[d]"},
        {"indent out of range", "<ind=-5><ind=999999>", "{ind 0}{ind 2000}"},
    });
}

TEST(HtmlMarkup, EntitiesStandForCharacters)
{
    ExpectPieces({
        {"named", "&lt;b&gt; &amp;amp; &quot;&apos;", "[<b> &amp; \"']"},
        {"numeric", "&#65;&#x42;&#X43;", "[ABC]"},
        {"no-break space", "a&nbsp;b&#160;c", "[a~b~c]"},
        {"line break and tab", "a&#10;b&#9;c", "[a]\\[b    c]"},
        {"unknown", "&copy; &LT; &;", "[&copy; &LT; &;]"},
        {"no semicolon", "a&b &lt &#65 AT&T&amp", "[a&b &lt &#65 AT&T&amp]"},
        {"no character", "&#0;&#xD800;&#x110000;&#-5;&#;&#x;&#6x;",
         "[&#0;&#xD800;&#x110000;&#-5;&#;&#x;&#6x;]"},
        {"too long", "&#00000000000000065;", "[&#00000000000000065;]"},
        {"not inside tags", "<img src=\"a&amp;b\">", "{img a&amp;b 0}"},
    });
}

TEST(HtmlMarkup, WhatIsNoMarkupIsText)
{
    ExpectPieces({
        {"less than", "1 < 2 <3 <= 4 <<", "[1 < 2 <3 <= 4 <<]"},
        {"unknown tag", "vector<int> <html> </div> <bold>", "[vector<int> <html> </div> <bold>]"},
        {"no end", "a <b", "[a <b]"},
        {"no end, then a tag", "<font color=red <b>x", "[<font color=red ][b|x]"},
        {"quote without end", "<font color=\"red>x", "[<font color=\"red>x]"},
        {"no attribute", "<font =red>x<b \"\">y", "[<font =red>x<b \"\">y]"},
        {"mail address", "<someone@example.org>", "[<someone@example.org>]"},
        {"comment", "<!-- no -->", "[<!-- no -->]"},
        {"nothing", "", ""},
    });
    const std::string endless = "<b " + std::string(5000, ' ') + ">x";
    EXPECT_EQ(Dump(ParseMarkup(endless)), "[" + endless + "]");
}

TEST(HtmlMarkup, ManyStylesAreTold)
{
    const Document document = ParseMarkup("<b>a</b>b<b>c</b>d<b>e");
    EXPECT_EQ(document.styles.size(), 2u);
}

}  // namespace
