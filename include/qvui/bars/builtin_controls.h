#pragma once

#include <vector>

#include <qvui/framework/control_factory.h>

namespace DUI {

/// Returns the built-in tags in registration order.
QVUI_API const std::vector<BuiltinControl>& BuiltinControls();

}  // namespace DUI
