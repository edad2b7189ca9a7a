#include "support/transcript.h"

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <sstream>

#include <gtest/gtest.h>

#include "support/test_files.h"

namespace qvui::test {

void ExpectTranscript(const std::string& file, const ScriptRunner& run)
{
    const std::string path = TestFile(file);
    std::stringstream script;
    script << std::ifstream(path, std::ios::binary).rdbuf();
    std::string expected = script.str();
    std::erase(expected, '\r');
    const std::string text = run(expected);
    if (std::getenv("QVUI_UPDATE_SCENARIOS"))
        std::ofstream(path, std::ios::binary) << text;
    std::istringstream was(expected), is(text);
    int number = 0;
    for (std::string expectedLine, line; ++number, std::getline(is, line);) {
        std::getline(was, expectedLine);
        ASSERT_EQ(line, expectedLine) << file << ", line " << number;
    }
    EXPECT_EQ(text, expected) << file;
    EXPECT_FALSE(text.empty()) << file;
}

ScriptRunner LineByLine(std::function<std::string(const std::string& line)> call)
{
    return [call = std::move(call)](const std::string& script) {
        std::istringstream lines(script);
        std::string text;
        for (std::string line; std::getline(lines, line);) {
            if (!line.empty() && line[0] == ' ')
                continue;
            text += line + "\n";
            if (!line.empty() && line[0] != '#')
                text += call(line);
        }
        return text;
    };
}

RECT ReadRectangle(std::istream& text)
{
    RECT rect{};
    char comma = 0;
    text >> rect.left >> comma >> rect.top >> comma >> rect.right >> comma >> rect.bottom;
    return rect;
}

POINT ReadPoint(std::istream& text)
{
    POINT point{};
    char comma = 0;
    text >> point.x >> comma >> point.y;
    return point;
}

SIZE ReadSize(std::istream& text)
{
    const POINT size = ReadPoint(text);
    return {size.x, size.y};
}

std::string ReadWord(std::istream& text)
{
    std::string word;
    text >> word;
    return word;
}

int ReadNumber(std::istream& text)
{
    int number = 0;
    text >> number;
    return number;
}

std::string ReadRest(std::istream& text)
{
    std::string rest;
    std::getline(text >> std::ws, rest);
    return rest;
}

}  // namespace qvui::test
