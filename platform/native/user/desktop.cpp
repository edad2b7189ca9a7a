#include "native/user/desktop.h"

#include "native/core/live_counts.h"

namespace qvui::native {
namespace {

[[maybe_unused]] const bool g_counted = RegisterLiveCount(
    &LiveCounts::icons, [] { return TheDesktop().cursors.LiveCount() - TheDesktop().systemCursors.size(); });

}  // namespace

Desktop& TheDesktop()
{
    static auto& desktop = *new Desktop();
    return desktop;
}

Window* LookUpWindow(HWND window)
{
    return TheDesktop().windows.Peek(window);
}

}  // namespace qvui::native
