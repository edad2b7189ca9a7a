#include <fstream>
#include <iterator>

#include <gtest/gtest.h>

#include "qvui-skin/reference.h"

namespace qvui::skin_tool {
namespace {

TEST(Reference, IsUpToDate)
{
    std::ifstream file(QVUI_SOURCE_DIR "/docs/skin-reference.md", std::ios::binary);
    const std::string written{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
    EXPECT_TRUE(written == ReferencePage())
        << "The tables have changed: \"./run reference\" writes the page anew.";
}

}  // namespace
}  // namespace qvui::skin_tool
