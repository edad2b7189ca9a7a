#include <filesystem>
#include <fstream>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include "qvui-skin/check.h"
#include "qvui-skin/dump.h"
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
        {"gallery", {{"gallery/skins", ""}, {"gallery/pages", "pages"}}, {"spinner", "tip_preview"}},
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

// Documents, pictures and cursors of a module that stands beside the application.
TEST(Examples, OfModulesAreLookedInto)
{
    const fs::path root = test::OutputPath("module-check");
    fs::create_directories(root);
    fs::copy_file(fs::canonical("/proc/self/exe").parent_path() / "skin_module_a.dll",
                  root / "skin_module_a.dll", fs::copy_options::overwrite_existing);
    const std::string module = R"x(config_type="dll" file_name="skin_module_a.dll" resource_id=)x";
    std::ofstream(root / "entry.xml") << R"x(<skin><language_set default="en">
<language name="en" )x" << module << R"x("101" resource_type="XML"/></language_set><skin_set default="a">
<skin name="a" config_type="file" file_name="resources.xml"/></skin_set><style_set>
<style name="a" )x" << module << R"x("999" resource_type="XML"/></style_set></skin>)x";
    const std::string picture = R"x( resource_type="PNG")x";
    std::ofstream(root / "resources.xml")
        << R"x(<r><cursor_set><cursor name="c" )x" << module << R"x("103"/>
<cursor name="d" )x"
        << module << R"x("7"/></cursor_set><image_set><image name="i" )x" << module << R"x("102" count="3")x"
        << picture << "/>\n<image name=\"j\" " << module << "\"777\"" << picture << "/></image_set></r>";
    Report report;
    const Package package((root / "entry.xml").string(), "", report);
    Checker(package, {}, report).Run();
    std::vector<std::string> errors;
    for (const Finding& finding : report.Findings())
        if (finding.severity != Severity::Note)
            errors.push_back(std::to_string(finding.at.line) + ": " + finding.text);
    const std::string missing = R"x(the module "skin_module_a.dll" cannot be opened, or has no resource )x";
    EXPECT_THAT(errors, testing::ElementsAre("4: " + missing + R"x("999" of the type "XML")x",
                                             "2: " + missing + R"x("7" of the type "")x",
                                             testing::HasSubstr("does not divide into 3 icons"),
                                             "3: " + missing + R"x("777" of the type "PNG")x"));
    const nlohmann::json image = nlohmann::json::parse(Dump(package, true))["skins"]["a"]["images"]["i"];
    EXPECT_EQ(image["module"], "skin_module_a.dll");
    EXPECT_EQ(image["resource_id"], "102");
}

}  // namespace
}  // namespace qvui::skin_tool
