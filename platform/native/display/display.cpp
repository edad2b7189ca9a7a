#include "native/display/display.h"

#include <cstdlib>
#include <string_view>

namespace qvui::native {
namespace {

std::unique_ptr<Display>& Current()
{
    static std::unique_ptr<Display> display;
    return display;
}

std::unique_ptr<Display> Make(std::string_view name)
{
    if (name == "headless")
        return MakeHeadlessDisplay();
    return name == "sdl" ? MakeSdlDisplay() : nullptr;
}

}  // namespace

Display& TheDisplay()
{
    std::unique_ptr<Display>& display = Current();
    if (!display)
        if (const char* name = std::getenv("QVUI_DISPLAY"))
            display = Make(name);
    if (!display)
        display = MakeSdlDisplay();
    if (!display)
        display = MakeHeadlessDisplay();
    return *display;
}

void UseDisplay(std::unique_ptr<Display> display)
{
    Current() = std::move(display);
}

}  // namespace qvui::native

BOOL QvuiUseDisplay(LPCSTR name)
{
    using namespace qvui::native;
    if (Current() || !name)
        return FALSE;
    Current() = Make(name);
    return Current() != nullptr;
}
