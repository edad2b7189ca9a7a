#pragma once

#include <qvui/platform/platform.h>

namespace DUI {

/// The timers of a tooltip's window.
enum ToolTipTimer : UINT_PTR {
    kToolTipShow = 1,   // the pointer has rested
    kToolTipHide = 2,   // the tooltip has stayed long enough
    kToolTipWatch = 3,  // while it shows: has its host moved or lost the activation, or its tool the pointer?
};

}  // namespace DUI
