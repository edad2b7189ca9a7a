#include <qvui/platform/kept_objects.h>

#include "native/core/live_counts.h"

void CountAsKept(std::size_t deviceContexts, std::size_t gdiObjects)
{
    using qvui::native::LeaveOutOfLiveCounts;
    using qvui::native::LiveCounts;
    LeaveOutOfLiveCounts(&LiveCounts::deviceContexts, deviceContexts);
    LeaveOutOfLiveCounts(&LiveCounts::gdiObjects, gdiObjects);
}
