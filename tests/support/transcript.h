#pragma once

#include <functional>
#include <istream>
#include <string>

#include <qvui/platform/platform.h>

namespace qvui::test {

/// Makes a script's text anew, its output with it.
using ScriptRunner = std::function<std::string(const std::string& script)>;

/// Expects a script below tests/ to make the output that its file shows: what begins with a blank is output.
/// With QVUI_UPDATE_SCENARIOS=1 in the environment the file is written anew, to be read in review.
void ExpectTranscript(const std::string& file, const ScriptRunner& run);

/// A runner that gives every line of a script to the call and appends the lines that it answers. Empty lines
/// and those that begin with "#" stay as they are.
ScriptRunner LineByLine(std::function<std::string(const std::string& line)> call);

// The parts of a line: "10,20,30,40", "10,20", "30x40", a word, a number, and the rest behind blanks.
RECT ReadRectangle(std::istream& text);
POINT ReadPoint(std::istream& text);
SIZE ReadSize(std::istream& text);
std::string ReadWord(std::istream& text);
int ReadNumber(std::istream& text);
std::string ReadRest(std::istream& text);

}  // namespace qvui::test
