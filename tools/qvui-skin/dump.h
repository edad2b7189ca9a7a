#pragma once

#include <string>

#include "package.h"

namespace qvui::skin_tool {

/// Every resource of a package with what the library makes of it: what skins have, for each skin; strings for
/// each language; the names of templates. Fonts are resolved in the package's first language. As indented
/// text in the system code page, or as JSON in UTF-8.
std::string Dump(const Package& package, bool isJson);

}  // namespace qvui::skin_tool
