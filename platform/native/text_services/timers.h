#pragma once

#include <qvui/platform/native/types.h>

namespace qvui::native {

/// The timers that the services ask their host for.
inline constexpr UINT kMeasureTimer = 0x5153;
inline constexpr UINT kDragTimer = 0x5154;

}  // namespace qvui::native
