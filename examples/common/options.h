#pragma once

#include <string>
#include <vector>

namespace example {

/// What the example programs take on their command lines; empty means not given.
struct Options {
    std::string screenshot;          // --screenshot FILE: write a picture and end
    std::string skin;                // --skin NAME
    std::string language;            // --language NAME
    std::string page;                // --page NAME, of the gallery
    bool isLayered = false;          // --layered, of the gallery
    std::vector<std::string> files;  // any other words, of the writer
};

/// Reads a command line; false, after telling the usage, when it has anything else on it.
bool ReadOptions(int argc, char** argv, Options& options);

/// Starts the library with a skin package beside the program and switches to the skin and language asked for.
/// False, after saying on standard error which file and why, when the package or a name in it is of no use.
bool StartWithSkin(const char* entryDocument, const Options& options);

}  // namespace example
