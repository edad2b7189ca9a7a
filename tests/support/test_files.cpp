#include "support/test_files.h"

#include <filesystem>

namespace qvui::test {

std::string TestFile(const std::string& name)
{
    return QVUI_TEST_DATA "/" + name;
}

std::string OutputPath(const std::string& name)
{
    std::filesystem::create_directories(QVUI_TEST_OUTPUT);
    return QVUI_TEST_OUTPUT "/" + name;
}

}  // namespace qvui::test
