#include "support/controls/scenario.h"

#include <algorithm>
#include <filesystem>

#include "support/controls/control_test.h"
#include "support/test_files.h"
#include "support/transcript.h"

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
    ExpectTranscript("scenarios/" + GetParam() + ".txt",
                     [](const std::string& script) { return Scenario().Run(script); });
}

INSTANTIATE_TEST_SUITE_P(All, ScenarioTest, testing::ValuesIn(ScenarioNames()),
                         [](const auto& scenario) { return scenario.param; });

}  // namespace
}  // namespace qvui::test
