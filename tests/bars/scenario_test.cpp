#include "support/controls/scenario.h"

#include <algorithm>
#include <filesystem>

#include "support/controls/big_text.h"
#include "support/controls/control_test.h"
#include "support/target.h"
#include "support/test_files.h"
#include "support/transcript.h"

namespace qvui::test {
namespace {

std::vector<std::string> ScenarioNames()
{
    std::vector<std::string> names;
    for (const auto& file : std::filesystem::directory_iterator(TestFile("scenarios")))
        if (const std::string name = file.path().stem().string();
            name.find("_native") == std::string::npos || TargetName() == std::string("native"))
            names.push_back(name);
    std::sort(names.begin(), names.end());
    return names;
}

SkinAdditions Additions()
{
    SkinAdditions additions = BigText();
    const auto image = [](const std::string& name, const std::string& file, const char* attribute) {
        return "<image name=\"" + name + "\" config_type=\"file\" file_name=\"" + TestSkin::File(file) +
               "\" " + attribute + "/>";
    };
    // The second icon of "halves" is red on its left half and blue on its right half.
    additions.images =
        image("stretched", "dot.png", "drawstyle=\"stretch\"") + image("halves", "halves.png", "count=\"2\"");
    return additions;
}

/// Names that end in _native are of scripts for one target.
class ScenarioTest : public ControlTest, public testing::WithParamInterface<std::string> {
protected:
    ScenarioTest() : ControlTest(Additions())
    {
        WriteStrip(TestSkin::Path("halves.png"), 10, 10, {0xFF808080, 0xFF808080, 0xFFFF0000, 0xFF0000FF});
    }
};

TEST_P(ScenarioTest, GoesAsItIsWritten)
{
    ExpectTranscript("scenarios/" + GetParam() + ".txt",
                     [](const std::string& script) { return Scenario().Run(script); });
}

INSTANTIATE_TEST_SUITE_P(All, ScenarioTest, testing::ValuesIn(ScenarioNames()),
                         [](const auto& scenario) { return scenario.param; });

}  // namespace
}  // namespace qvui::test
