#pragma once

#include <string>

namespace qvui::native {

/// Converts a platform path (system code page, either separator) to a path of this machine.
std::string LocalPath(const char* path);

/// As LocalPath; if there is no such file, returns the path of one that differs only in letter case.
std::string ExistingPath(const char* path);

}  // namespace qvui::native
