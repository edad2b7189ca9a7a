#pragma once

#include <vector>

#include <qvui/framework/control_factory.h>

namespace DUI {

/// The built-in tags in the order of their registration.
QVUI_API const std::vector<BuiltinControl>& BuiltinControls();

}  // namespace DUI
