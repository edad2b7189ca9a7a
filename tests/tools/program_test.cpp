#include <cstdlib>
#include <filesystem>
#include <fstream>

#include <sys/wait.h>

#include <gtest/gtest.h>

#include "support/screenshot.h"
#include "support/table.h"

namespace qvui::skin_tool {
namespace {

namespace fs = std::filesystem;

int StatusOf(const std::string& arguments)
{
    const fs::path program = fs::canonical("/proc/self/exe").parent_path() / "qvui-skin";
    const int result = std::system((program.string() + " " + arguments + " >/dev/null 2>&1").c_str());
    return WIFEXITED(result) ? WEXITSTATUS(result) : -1;
}

// Scripts go by it: 0 clean, 1 findings, 2 unreadable.
TEST(Program, EndsWithAStatusThatScriptsCanUse)
{
    const fs::path folder = test::OutputPath("program");
    fs::create_directories(folder);
    const auto write = [&](const char* name, const char* text) {
        std::ofstream(folder / name) << text;
        return (folder / name).string();
    };
    write("strings.xml", "<s><string id=\"hello\">Hello</string></s>");
    write("empty.xml", "<e/>");
    const std::string clean = write("clean.xml", R"(<p>
<language_set><language name="en" config_type="file" file_name="strings.xml"/></language_set>
<skin_set default="a"><skin name="a" config_type="file" file_name="empty.xml"/></skin_set>
<style_set><style name="a" config_type="file" file_name="empty.xml"/></style_set></p>)");
    const std::string faulty = write("faulty.xml", "<p/>");
    const std::string torn = write("torn.xml", "<p>");
    const std::string sheet = " -o " + (folder / "sheet.png").string();
    const Table<std::string, int> cases{
        {"check " + clean, 0},
        {"check --json " + clean, 0},
        {"check " + faulty, 1},
        {"check " + torn, 1},
        {"check " + folder.string() + "/none.xml", 2},
        {"check", 2},
        {"dump " + clean, 0},
        {"dump --json " + torn, 2},
        {"sheet " + clean + sheet, 0},
        {"sheet --skin b " + clean + sheet, 2},
        {"sheet " + torn + sheet, 2},
        {"sheet " + clean + " -o " + folder.string() + "/none/sheet.png", 2},
    };
    for (const auto& [arguments, status] : cases)
        EXPECT_EQ(StatusOf(arguments), status) << arguments;
}

}  // namespace
}  // namespace qvui::skin_tool
