#pragma once

#include <qvui/platform/platform.h>

namespace DUI {

/// Registers the class of a small window that pops up over others, with a shadow, unless the program has it
/// already; false when that fails.
bool RegisterPopupClass(const char* className, WNDPROC procedure);

}  // namespace DUI
