#include <qvui/platform/platform.h>

#include "support/leak_check.h"

namespace qvui::test {
namespace {

BOOL CALLBACK CountOne(HWND, LPARAM count)
{
    ++*reinterpret_cast<std::size_t*>(count);
    return TRUE;
}

BOOL CALLBACK CountTree(HWND window, LPARAM count)
{
    char name[32] = "";
    GetClassNameA(window, name, sizeof name);
    // The system's own helpers come and go as it pleases.
    const std::string className = name;
    if (className == "IME" || className == "MSCTFIME UI" || className == "tooltips_class32" ||
        className == "#32768")
        return TRUE;
    CountOne(window, count);
    EnumChildWindows(window, CountOne, count);
    return TRUE;
}

}  // namespace

LiveObjects LiveObjects::Count()
{
    std::size_t windows = 0;
    EnumThreadWindows(GetCurrentThreadId(), CountTree, reinterpret_cast<LPARAM>(&windows));
    LiveObjects objects;
    objects.m_counts = {{"windows", windows}};
    return objects;
}

}  // namespace qvui::test
