#pragma once

#include <string>

namespace qvui::native {

/// A platform path (system code page, either separator) as a path of this machine.
std::string LocalPath(const char* path);

/// As LocalPath; when there is no such file, the one whose name differs only in letter case.
std::string ExistingPath(const char* path);

}  // namespace qvui::native
