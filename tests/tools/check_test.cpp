#include <algorithm>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include "qvui-skin/check.h"
#include "support/table.h"
#include "support/test_files.h"

namespace qvui::skin_tool {
namespace {

const std::string kData = test::TestFile("tools/data/");

// What the check says of a package in the data folder, one line each and without the folder's name.
std::vector<std::string> Lines(const Report& report)
{
    std::vector<std::string> lines;
    for (std::string line : Split(report.ToText(), '\n')) {
        if (line.rfind(kData, 0) == 0)
            line.erase(0, kData.size());
        if (!line.empty())
            lines.push_back(line);
    }
    return lines;
}

Report CheckPackage(const std::string& entry, std::vector<std::string> tags = {},
                    const std::string& root = "")
{
    Report report;
    const Package package(entry, root, report);
    Checker(package, std::move(tags), report).Run();
    return report;
}

TEST(Check, FindsEveryFaultOfABrokenPackageInItsPlace)
{
    const std::vector<std::string> expected{
        R"x(broken-skin/deutsch.xml:4:3: warning: without "id" nothing can refer to this string)x",
        R"x(broken-skin/english.xml:3:3: warning: the string "only_english" is missing in the language "Deutsch": nothing is shown there; define it in each language)x",
        R"x(broken-skin/english.xml:4:3: warning: the string "hello" stands in line 2 already, and that one counts)x",
        R"x(broken-skin/english.xml:5:3: warning: a string without text does not count)x",
        R"x(broken-skin/entry.xml:1:1: error: the skin "night" has no style document)x",
        R"x(broken-skin/entry.xml:1:1: warning: the style document "dusk" belongs to no skin and is never loaded)x",
        R"x(broken-skin/entry.xml:5:5: warning: a second language "english": the first one counts)x",
        R"x(broken-skin/entry.xml:9:5: warning: a second skin "day": it takes the place of the first one)x",
        R"x(broken-skin/entry.xml:14:5: warning: without "name" nothing can refer to this style)x",
        R"x(broken-skin/entry.xml:20:57: error: the file "broken-skin\gone.xml" cannot be opened)x",
        R"x(broken-skin/entry.xml:21:41: warning: config_type: "flie" is none of file, dll, exe; did you mean "file"?)x",
        R"x(broken-skin/entry.xml:22:21: error: without a config_type nothing is loaded)x",
        R"x(broken-skin/entry.xml:23:5: note: a resource of the program: not looked at)x",
        R"x(broken-skin/entry.xml:25:3: error: a second "skin_set" is not seen: the first one alone is read)x",
        R"x(broken-skin/eve.xml:4:5: warning: without "back_image" a switch from the skin "day" leaves its value in place; write it in each skin)x",
        R"x(broken-skin/eve.xml:4:42: note: back_color: #80FFC040 overflows into a wrong colour where the ground is brighter than 169 of 255, since a channel is above the alpha; write #80806020)x",
        R"x(broken-skin/eve.xml:4:42: warning: back_color: a switch from the skin "day" leaves its gradient in place, which has more colours; write "#80FFC040,#80FFC040,#80FFC040")x",
        R"x(broken-skin/eve.xml:4:82: note: border_color: "#000000" has the alpha 0: fills are opaque all the same, gradients blend, and black is no colour; write #FF000000)x",
        R"x(broken-skin/eve.xml:4:82: warning: border_color: "#000000" is no colour, and nothing is painted with it; write #FF000000)x",
        R"x(broken-skin/eve.xml:8:5: note: no document refers to the control style "lone")x",
        R"x(broken-skin/eve.xml:8:5: note: the control style "lone" is not in the skin "day", where the one of the skin before stays, or none is found; define it in each skin)x",
        R"x(broken-skin/eve.xml:8:32: warning: "pos" has no effect, since "range" after it sets it anew; write "range" first)x",
        R"x(broken-skin/night.xml:5:5: error: unknown element "colour"; did you mean "color"?)x",
        R"x(broken-skin/night.xml:8:5: note: no document refers to the cursor "arrow")x",
        R"x(broken-skin/night.xml:8:5: note: the cursor "arrow" is not in the skin "day", "eve", where the one of the skin before stays, or none is found; define it in each skin)x",
        R"x(broken-skin/night.xml:8:56: error: the file "broken-skin\strip.png" is no cursor that can be read)x",
        R"x(broken-skin/night.xml:9:5: note: no document refers to the cursor "lens")x",
        R"x(broken-skin/night.xml:9:5: note: the cursor "lens" is not in the skin "day", "eve", where the one of the skin before stays, or none is found; define it in each skin)x",
        R"x(broken-skin/night.xml:9:55: error: the file "broken-skin\lens.cur" cannot be opened)x",
        R"x(broken-skin/night.xml:10:5: note: no document refers to the cursor "glove")x",
        R"x(broken-skin/night.xml:10:5: note: the cursor "glove" is not in the skin "day", "eve", where the one of the skin before stays, or none is found; define it in each skin)x",
        R"x(broken-skin/night.xml:10:5: error: without a config_type nothing is loaded)x",
        R"x(broken-skin/night.xml:12:31: error: unknown element "size")x",
        R"x(broken-skin/night.xml:14:5: note: a resource of the program: not looked at)x",
        R"x(broken-skin/night.xml:14:38: warning: config_type: the picture goes blank on a switch to this skin, which reads pictures from files alone; write config_type="file")x",
        R"x(broken-skin/night.xml:14:44: note: a resource of the program: not looked at)x",
        R"x(broken-skin/night.xml:14:79: warning: config_type: the picture goes blank on a switch to this skin, which reads pictures from files alone; write config_type="file")x",
        R"x(broken-skin/night.xml:14:85: note: a resource of the program: not looked at)x",
        R"x(broken-skin/night.xml:14:116: warning: config_type: the picture goes blank on a switch to this skin, which reads pictures from files alone; write config_type="file")x",
        R"x(broken-skin/night.xml:15:5: note: a resource of the program: not looked at)x",
        R"x(broken-skin/night.xml:15:37: warning: config_type: the picture goes blank on a switch to this skin, which reads pictures from files alone; write config_type="file")x",
        R"x(broken-skin/night.xml:15:43: error: without a config_type nothing is loaded)x",
        R"x(broken-skin/resources.xml:4:30: warning: value: "#GG0000" is no colour: write #AARRGGBB, or rgb(r,g,b) with numbers from 0 to 255)x",
        R"x(broken-skin/resources.xml:7:5: note: no document refers to the font "text")x",
        R"x(broken-skin/resources.xml:7:55: warning: height: "tall" is no whole number)x",
        R"x(broken-skin/resources.xml:7:61: warning: "font" has no attribute "defalt"; did you mean "default"?)x",
        R"x(broken-skin/resources.xml:10:5: note: no document refers to the image "strip")x",
        R"x(broken-skin/resources.xml:10:115: warning: the corners do not fit into an icon of 8 x 8 pixels)x",
        R"x(broken-skin/resources.xml:11:113: warning: the corners do not fit into an icon of 32 x 8 pixels)x",
        R"x(broken-skin/resources.xml:12:83: warning: a picture of 32 x 8 pixels does not divide into 3 icons)x",
        R"x(broken-skin/resources.xml:12:113: warning: corner: "5;5" counts as 0,0: the comma stands right behind the first number)x",
        R"x(broken-skin/resources.xml:13:54: error: the file "broken-skin\lost.png" cannot be opened)x",
        R"x(broken-skin/resources.xml:13:83: warning: count: "0" is out of range: write a number from 1)x",
        R"x(broken-skin/resources.xml:14:54: error: the file "broken-skin\torn.xml" is no picture that can be read)x",
        R"x(broken-skin/resources.xml:15:100: warning: drawstyle: "strech" is none of stretch, stretch_horz, stretch_vert, squard, tile; did you mean "stretch"?)x",
        R"x(broken-skin/resources.xml:17:3: error: "cursor_set" is out of order and is not seen: the order is color_set, cursor_set, font_set, image_set)x",
        R"x(broken-skin/styles.xml:3:5: warning: without "hover_color" a switch from the skin "eve" leaves its value in place; write it in each skin)x",
        R"x(broken-skin/styles.xml:3:38: warning: format: "DT_VCENTRE" is no word that counts here; did you mean "DT_VCENTER"?)x",
        R"x(broken-skin/styles.xml:3:64: error: there is no font "txt"; did you mean "text"?)x",
        R"x(broken-skin/styles.xml:3:83: error: there is no colour "inkk"; did you mean "ink"?)x",
        R"x(broken-skin/styles.xml:6:5: warning: without "border_rect" a switch from the skin "eve" leaves its value in place; write border_rect="0,0,0,0" in this one)x",
        R"x(broken-skin/styles.xml:6:73: error: there is no image "stripe"; did you mean "strip"?)x",
        R"x(broken-skin/styles.xml:6:91: warning: back_sep: "half" is no number)x",
        R"x(broken-skin/styles.xml:6:113: warning: back_image_pos: "centre" is none of left_top, left_bottom, right_bottom, right_top, center; did you mean "center"?)x",
        R"x(broken-skin/styles.xml:9:43: error: there is no text style "plane"; did you mean "plain"?)x",
        R"x(broken-skin/styles.xml:9:50: warning: "control_style" has no attribute "back_imge"; did you mean "back_image"?)x",
        R"x(broken-skin/styles.xml:10:5: note: no document refers to the control style "spare")x",
        R"x(broken-skin/styles.xml:10:5: note: the control style "spare" is not in the skin "eve", where the one of the skin before stays, or none is found; define it in each skin)x",
        R"x(broken-skin/styles.xml:10:33: error: unknown element "width")x",
        R"x(broken-skin/torn.xml:3:25: error: the element "canvas" has no end tag)x",
        R"x(broken-skin/windows.xml:3:38: error: there is no frame style "cart"; did you mean "card"?)x",
        R"x(broken-skin/windows.xml:3:54: warning: nc_style: "sizenc" is none of layered, custom_nc, region_nc, size_nc; did you mean "size_nc"?)x",
        R"x(broken-skin/windows.xml:3:72: warning: "window" has no attribute "colour")x",
        R"x(broken-skin/windows.xml:4:28: warning: margin: "1,2,3" is not four whole numbers)x",
        R"x(broken-skin/windows.xml:4:44: warning: padding: "4 px" is no whole number)x",
        R"x(broken-skin/windows.xml:5:33: error: there is no string "helo"; did you mean "hello"?)x",
        R"x(broken-skin/windows.xml:5:54: error: there is no control style "kee"; did you mean "key"?)x",
        R"x(broken-skin/windows.xml:5:67: error: there is no cursor "hand")x",
        R"x(broken-skin/windows.xml:5:83: warning: tab_stop: "yes" is neither "true" nor "false")x",
        R"x(broken-skin/windows.xml:5:98: warning: shortcut: "OK" is more than one character, and the first one alone counts)x",
        R"x(broken-skin/windows.xml:6:9: error: unknown element "buton": it is left out with all that it holds; did you mean "button"?)x",
        R"x(broken-skin/windows.xml:6:42: error: there is no string "unknown")x",
        R"x(broken-skin/windows.xml:7:60: warning: dock_style: "left" is none of dock_left, dock_right, dock_top, dock_bottom)x",
        R"x(broken-skin/windows.xml:8:9: error: unknown element "Label": it is left out with all that it holds; did you mean "label"?)x",
        R"x(broken-skin/windows.xml:9:27: warning: the skin "night" has no image "fine": after a switch to it the one of the skin before stays; define it in each skin)x",
        R"x(broken-skin/windows.xml:9:33: warning: "picturebox" has no attribute "normal_icon")x",
        R"x(broken-skin/windows.xml:10:34: error: there is no control "pagse"; did you mean "pages"?)x",
        R"x(broken-skin/windows.xml:11:25: note: "enable_arrow" has no effect on "horz_scrollbar")x",
        R"x(broken-skin/windows.xml:13:16: warning: "gauge" has "needle" more than once: the first one counts)x",
        R"x(broken-skin/windows.xml:13:36: warning: width: "wide" is no whole number)x",
        R"x(broken-skin/windows.xml:17:7: error: a window has one root control, so this one is left out)x",
        R"x(broken-skin/windows.xml:19:5: error: a window without a root control cannot be made)x",
        R"x(broken-skin/windows.xml:20:5: warning: the window "main" stands in line 3 already, and this one replaces it)x",
        R"x(broken-skin/windows.xml:24:102: note: "want_return" has no effect as long as this window has no control "ok": give one that name, or leave the attribute out)x",
        R"x(broken-skin/windows.xml:25:35: warning: name: "cancel" stands in line 24 already, and only one of the two is found; write another name)x",
        R"x(broken-skin/windows.xml:25:43: warning: "pos" has no effect, since "range" after it sets it anew; write "range" first)x",
        R"x(broken-skin/windows.xml:25:82: warning: shortcut: "A" stands in line 24 already, and only one of the two is found; write another shortcut)x",
        R"x(broken-skin/windows.xml:25:101: warning: "back_image" has no effect, since "back_color" after it sets it anew; leave one of the two out)x",
        R"x(broken-skin/windows.xml:25:157: note: "tab_layout" has no effect as long as this window has no control "pages": give one that name, or leave the attribute out)x",
        R"x(broken-skin/windows.xml:26:38: note: border_color: #80F00000 overflows into a wrong colour where the ground is brighter than 179 of 255, since a channel is above the alpha; write #80780000)x",
        R"x(broken-skin/windows.xml:26:58: warning: "width" has no effect, since "control_style" after it sets it anew; write "control_style" first)x",
        R"x(broken-skin/windows.xml:28:27: note: shortcut: "a" stands in line 24 already, and only one of the two is found, that which is shown and enabled; write another shortcut unless that is meant)x",
    };
    const Report report = CheckPackage(kData + "broken-skin/entry.xml", {"gauge"});
    EXPECT_THAT(Lines(report), testing::ElementsAreArray(expected));
    EXPECT_FALSE(report.IsClean());
}

TEST(Check, AcceptsNothingButRegisteredTags)
{
    const auto unknownTags = [](std::vector<std::string> tags) {
        const Report report = CheckPackage(kData + "broken-skin/entry.xml", std::move(tags));
        std::vector<std::string> found;
        for (const Finding& finding : report.Findings())
            if (finding.text.find("it is left out with all that it holds") != std::string::npos)
                found.push_back(finding.text);
        return found;
    };
    // Only where it is no misspelling is it likely to be the application's own.
    EXPECT_THAT(unknownTags({}),
                testing::UnorderedElementsAre(testing::EndsWith("(--tag gauge)"),
                                              testing::EndsWith("it holds"), testing::EndsWith("it holds")));
    EXPECT_EQ(unknownTags({"gauge"}).size(), 2u);
    EXPECT_THAT(unknownTags({"gauge", "buton", "Label"}), testing::IsEmpty());
}

TEST(Check, FindsTheDirectoryThatNamesAreRelativeTo)
{
    const Table<const char*, std::vector<std::string>, const char*> cases{
        {"a/my-skin/entry.xml", {"my-skin\\x.xml"}, "a/"},
        {"a/my-skin/entry.xml", {".\\My-Skin/x.xml"}, "a/"},
        {"a/my-skin/entry.xml", {"x.xml", "deep\\y.xml"}, "a/my-skin/"},
        {"a/my-skin/entry.xml", {"my-skin2\\x.xml"}, "a/my-skin/"},
        {"a/my-skin/entry.xml", {}, "a/my-skin/"},
        {"my-skin/entry.xml", {"my-skin/x.xml"}, "."},
    };
    for (const auto& [entry, names, expected] : cases) {
        std::string root = FindRoot(entry, names);
        std::replace(root.begin(), root.end(), '\\', '/');
        EXPECT_EQ(root, expected) << entry << " " << (names.empty() ? "" : names.front());
    }
}

TEST(Check, TakesAnotherRootAndAMissingEntry)
{
    Report report;
    EXPECT_FALSE(Package(kData + "broken-skin/no.xml", "", report).IsFound());
    // With a wrong root nothing is where its name says.
    const Report wrong = CheckPackage(kData + "broken-skin/entry.xml", {}, kData + "broken-skin");
    EXPECT_THAT(Lines(wrong),
                testing::Contains(testing::HasSubstr(
                    "entry.xml:3:60: error: the file \"broken-skin\\english.xml\" cannot be opened")));
}

TEST(Check, WritesFindingsAsJson)
{
    const Document document = Document::FromText("a.xml", "<a>\n<b/></a>");
    Report report;
    report.Add(Severity::Note, document, 4, "say \"this\"", "that");
    report.Add(Severity::Error, document, 0, "first");
    report.Add(Severity::Error, document, 0, "first");
    const nlohmann::json list = nlohmann::json::parse(report.ToJson());
    ASSERT_EQ(list.size(), 2u);
    EXPECT_EQ(list[0]["severity"], "error");
    EXPECT_EQ(list[1]["line"], 2);
    EXPECT_EQ(list[1]["text"], "say \"this\"");
    EXPECT_EQ(list[1]["suggestion"], "that");
    EXPECT_EQ(report.ToText(),
              "a.xml:1:1: error: first\na.xml:2:1: note: say \"this\"; did you mean \"that\"?\n");
}

}  // namespace
}  // namespace qvui::skin_tool
