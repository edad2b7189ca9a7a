#pragma once

#include <string>

namespace qvui::skin_tool {

/// The reference page for skin designers, in Markdown: the documents of a package, the window element and
/// every built-in tag, from the tables that the library and the checker read.
std::string ReferencePage();

}  // namespace qvui::skin_tool
