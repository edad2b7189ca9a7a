#include <filesystem>

#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include <qvui/platform/cimage.h>

#include "qvui-skin/dump.h"
#include "qvui-skin/sheet.h"
#include "support/geometry_text.h"
#include "support/leak_check.h"
#include "support/screenshot.h"
#include "support/table.h"
#include "support/test_files.h"

namespace qvui::skin_tool {
namespace {

const std::string kEntry = test::TestFile("tools/data/broken-skin/entry.xml");

TEST(Dump, ResolvesWhatTheLibraryMakesOfAPackage)
{
    const test::LeakCheck leaks;
    Report ignored;
    const Package package(kEntry, "", ignored);
    const nlohmann::json dump = nlohmann::json::parse(Dump(package, true));
    const nlohmann::json& day = dump["skins"]["day"];
    const Table<const char*, nlohmann::json, nlohmann::json> cases{
        {"a colour of one skin", day["colors"]["ink"], "#FF102030"},
        {"and of the other", dump["skins"]["night"]["colors"]["ink"], "#FFC8C8C8"},
        {"a font's face without \"#\"", day["fonts"]["text"]["face"], "DejaVu Sans"},
        {"the size of an icon", day["images"]["strip"]["icon_size"], {8, 8}},
        {"a draw style", day["images"]["strip"]["drawstyle"], "squard"},
        {"a file of another letter case", day["images"]["fine"]["icons"], 4},
        {"a missing file", day["images"]["lost"]["loads"], false},
        {"a resource of the program",
         dump["skins"]["night"]["images"]["odd"],
         {{"resource_id", "102"}, {"resource_type", "PNG"}, {"loads", false}}},
        {"the words of a format", day["text_styles"]["plain"]["format"], ""},
        {"attributes of a control style", day["control_styles"]["key"]["width"], "10"},
        {"the first of two strings", dump["languages"]["English"]["hello"], "Hello"},
        {"a string of the other language", dump["languages"]["Deutsch"]["hello"], "Hallo"},
        {"window templates", dump["templates"]["window"], {"main", "hollow", "main", "twins"}},
    };
    for (const auto& [name, value, expected] : cases)
        EXPECT_EQ(value, expected) << name;
    EXPECT_FALSE(day.contains("cursors")) << "a set out of order is not loaded";
    const std::string text = Dump(package, false);  // the same, indented
    EXPECT_EQ(text.rfind("skins:\n  day:\n    colors:\n", 0), 0u) << text.substr(0, 80);
    EXPECT_NE(text.find("\n      ink: #FF102030\n"), std::string::npos);
    EXPECT_NE(text.find("\n        icon_size: [8,8]\n"), std::string::npos);
}

TEST(Sheet, FlowsBoxesIntoRows)
{
    const Table<const char*, std::vector<SIZE>, std::string> cases{
        {"nothing", {}, ""},
        {"one row", {{40, 10}, {40, 20}}, "0,0,40,10 50,0,90,20 "},
        {"a row that is just full", {{45, 10}, {45, 10}}, "0,0,45,10 55,0,100,10 "},
        {"below the highest", {{40, 10}, {40, 20}, {40, 5}}, "0,0,40,10 50,0,90,20 0,30,40,35 "},
        {"wider than a row", {{10, 5}, {300, 5}, {10, 5}}, "0,0,10,5 0,15,300,20 0,30,10,35 "},
    };
    for (const auto& [name, sizes, places] : cases) {
        std::string found;
        for (const RECT& place : Flow(sizes, 100, 10))
            found += test::Text(place) + " ";
        EXPECT_EQ(found, places) << name;
    }
}

TEST(Sheet, DrawsASkinIntoAPicture)
{
    const test::LeakCheck leaks;
    const std::string path = test::OutputPath("sheet.png");
    std::filesystem::remove(path);
    Report ignored;
    const Package package(kEntry, "", ignored);
    EXPECT_FALSE(WriteSheet(package, "noon", path));
    EXPECT_FALSE(WriteSheet(package, "day", test::OutputPath("no-such-folder") + "/sheet.png"));
    ASSERT_TRUE(WriteSheet(package, "day", path));
    CImage sheet;
    ASSERT_EQ(sheet.Load(path.c_str()), S_OK);
    const auto* const swatch = static_cast<const BYTE*>(sheet.GetPixelAddress(60, 130));
    EXPECT_EQ(RGB(swatch[2], swatch[1], swatch[0]), RGB(0x10, 0x20, 0x30)) << "the first colour that is one";
}

}  // namespace
}  // namespace qvui::skin_tool
