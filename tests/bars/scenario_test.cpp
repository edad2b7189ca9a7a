#include "support/controls/scenario.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>

#include "support/controls/control_test.h"
#include "support/test_files.h"

// Every file of tests/scenarios is a script with the output that it makes. With QVUI_UPDATE_SCENARIOS=1 in
// the environment the files are written anew, to be read in review.

namespace qvui::test {
namespace {

std::vector<std::string> ScenarioNames()
{
    std::vector<std::string> names;
    for (const auto& file : std::filesystem::directory_iterator(TestFile("scenarios")))
        names.push_back(file.path().stem().string());
    std::sort(names.begin(), names.end());
    return names;
}

class ScenarioTest : public ControlTest, public testing::WithParamInterface<std::string> {};

TEST_P(ScenarioTest, GoesAsItIsWritten)
{
    const std::string path = TestFile("scenarios/" + GetParam() + ".txt");
    std::stringstream script;
    script << std::ifstream(path, std::ios::binary).rdbuf();
    std::string expected = script.str();
    std::erase(expected, '\r');
    const std::string text = Scenario().Run(expected);
    if (std::getenv("QVUI_UPDATE_SCENARIOS"))
        std::ofstream(path, std::ios::binary) << text;
    std::istringstream was(expected), is(text);
    int number = 0;
    for (std::string expectedLine, line; ++number, std::getline(is, line);) {
        std::getline(was, expectedLine);
        ASSERT_EQ(line, expectedLine) << GetParam() << ".txt, line " << number;
    }
    EXPECT_EQ(text, expected) << GetParam();
}

INSTANTIATE_TEST_SUITE_P(All, ScenarioTest, testing::ValuesIn(ScenarioNames()),
                         [](const auto& scenario) { return scenario.param; });

}  // namespace
}  // namespace qvui::test
