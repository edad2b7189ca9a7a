#pragma once

#include <string>
#include <string_view>

namespace DUI {

/// Returns the character of an entity name in lower case, or 0 for an unknown name.
unsigned FindXmlEntity(std::string_view lowerName);

/// Returns the code page of an encoding name: 0 (the system's) for an empty name, -1 for an unknown one.
int FindCodePage(std::string_view encoding);

}  // namespace DUI
