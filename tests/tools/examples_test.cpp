#include <filesystem>

#include <gtest/gtest.h>

#include "qvui-skin/check.h"
#include "support/screenshot.h"

namespace qvui::skin_tool {
namespace {

namespace fs = std::filesystem;

// A copy laid out as the examples' build lays it out beside the program.
struct Example {
    const char* name;
    std::vector<std::pair<const char*, const char*>> folders;  // of the sources, and where they go
    std::vector<std::string> tags;
};

TEST(Examples, HaveCleanSkins)
{
    const std::vector<Example> examples{
        {"hello", {{"hello/skin", ""}}, {}},
        {"gallery", {{"gallery/skins", ""}, {"gallery/pages", "pages"}}, {"spinner"}},
    };
    for (const Example& example : examples) {
        const fs::path root = test::OutputPath("examples-check");
        const fs::path copy = root / (std::string(example.name) + "-skin");
        fs::remove_all(copy);
        fs::create_directories(copy);
        for (const auto& [from, to] : example.folders)
            fs::copy(fs::path(QVUI_SOURCE_DIR "/examples") / from, copy / to, fs::copy_options::recursive);
        Report report;
        const Package package((copy / "entry.xml").string(), "", report);
        Checker(package, example.tags, report).Run();
        EXPECT_TRUE(report.IsClean()) << report.ToText();
        EXPECT_GT(package.Documents().size(), 6u) << example.name;
    }
}

}  // namespace
}  // namespace qvui::skin_tool
