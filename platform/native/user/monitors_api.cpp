// The screens of the desktop. A monitor handle is the number of the screen, starting at 1.

#include <algorithm>
#include <cstdint>

#include <qvui/platform/native/user.h>

#include "native/display/display.h"

using namespace qvui::native;

namespace {

std::int64_t DistanceBetween(const RECT& rect, POINT point)
{
    const std::int64_t x = std::max({rect.left - point.x, point.x - (rect.right - 1), 0});
    const std::int64_t y = std::max({rect.top - point.y, point.y - (rect.bottom - 1), 0});
    return x * x + y * y;
}

}  // namespace

HMONITOR MonitorFromPoint(POINT screen, DWORD flags)
{
    const std::vector<Screen> screens = TheDisplay().Screens();
    const auto nearest =
        std::min_element(screens.begin(), screens.end(), [=](const Screen& left, const Screen& right) {
            return DistanceBetween(left.bounds, screen) < DistanceBetween(right.bounds, screen);
        });
    std::intptr_t number = nearest - screens.begin() + 1;
    if (!(flags & MONITOR_DEFAULTTONEAREST) && DistanceBetween(nearest->bounds, screen) > 0)
        number = flags & MONITOR_DEFAULTTOPRIMARY ? 1 : 0;
    return reinterpret_cast<HMONITOR>(number);
}

BOOL GetMonitorInfoA(HMONITOR monitor, MONITORINFO* info)
{
    const std::vector<Screen> screens = TheDisplay().Screens();
    const auto number = reinterpret_cast<std::uintptr_t>(monitor);
    if (!info || info->cbSize < sizeof *info || number == 0 || number > screens.size())
        return FALSE;
    const Screen& screen = screens[number - 1];
    info->rcMonitor = screen.bounds;
    info->rcWork = screen.workArea;
    info->dwFlags = number == 1 ? MONITORINFOF_PRIMARY : 0;
    return TRUE;
}
