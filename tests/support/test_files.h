#pragma once

#include <string>

namespace qvui::test {

/// The path of a file below the folder of the tests. Its own source alone is compiled with that folder's
/// name, so that the others compile to the same in every checkout.
std::string TestFile(const std::string& name);

/// A file in the test-output folder of the build directory, which exists afterwards.
std::string OutputPath(const std::string& fileName);

}  // namespace qvui::test
