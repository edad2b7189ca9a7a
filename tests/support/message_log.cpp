#include "support/message_log.h"

#include <cstdio>

namespace qvui::test {
namespace {

struct NamedMessage {
    UINT number;
    const char* name;
};

// clang-format off
#define QVUI_NAMED(message) {WM_##message, #message}
constexpr NamedMessage kNames[] = {
    QVUI_NAMED(NULL), QVUI_NAMED(CREATE), QVUI_NAMED(DESTROY), QVUI_NAMED(MOVE), QVUI_NAMED(SIZE),
    QVUI_NAMED(ACTIVATE), QVUI_NAMED(SETFOCUS), QVUI_NAMED(KILLFOCUS), QVUI_NAMED(ENABLE),
    QVUI_NAMED(SETREDRAW), QVUI_NAMED(SETTEXT), QVUI_NAMED(PAINT), QVUI_NAMED(CLOSE), QVUI_NAMED(QUIT), QVUI_NAMED(ERASEBKGND),
    QVUI_NAMED(SHOWWINDOW), QVUI_NAMED(CANCELMODE), QVUI_NAMED(SETCURSOR), QVUI_NAMED(MOUSEACTIVATE),
    QVUI_NAMED(GETMINMAXINFO), QVUI_NAMED(WINDOWPOSCHANGING), QVUI_NAMED(WINDOWPOSCHANGED),
    QVUI_NAMED(CONTEXTMENU), QVUI_NAMED(NCCREATE), QVUI_NAMED(NCDESTROY), QVUI_NAMED(NCCALCSIZE),
    QVUI_NAMED(NCHITTEST), QVUI_NAMED(NCPAINT), QVUI_NAMED(NCACTIVATE), QVUI_NAMED(NCMOUSEMOVE),
    QVUI_NAMED(NCLBUTTONDOWN), QVUI_NAMED(NCLBUTTONUP), QVUI_NAMED(NCLBUTTONDBLCLK), QVUI_NAMED(KEYDOWN),
    QVUI_NAMED(KEYUP), QVUI_NAMED(CHAR), QVUI_NAMED(SYSKEYDOWN), QVUI_NAMED(SYSKEYUP), QVUI_NAMED(SYSCHAR),
    QVUI_NAMED(COMMAND), QVUI_NAMED(SYSCOMMAND), QVUI_NAMED(TIMER), QVUI_NAMED(MOUSEMOVE),
    QVUI_NAMED(LBUTTONDOWN), QVUI_NAMED(LBUTTONUP), QVUI_NAMED(LBUTTONDBLCLK), QVUI_NAMED(RBUTTONDOWN),
    QVUI_NAMED(RBUTTONUP), QVUI_NAMED(RBUTTONDBLCLK), QVUI_NAMED(MBUTTONDOWN), QVUI_NAMED(MBUTTONUP),
    QVUI_NAMED(MBUTTONDBLCLK), QVUI_NAMED(MOUSEWHEEL), QVUI_NAMED(PARENTNOTIFY), QVUI_NAMED(SIZING),
    QVUI_NAMED(CAPTURECHANGED), QVUI_NAMED(MOVING), QVUI_NAMED(ENTERSIZEMOVE), QVUI_NAMED(EXITSIZEMOVE),
    QVUI_NAMED(MOUSEHOVER), QVUI_NAMED(MOUSELEAVE), QVUI_NAMED(APP),
};
#undef QVUI_NAMED
// clang-format on

}  // namespace

std::string MessageName(UINT message)
{
    for (const NamedMessage& named : kNames)
        if (named.number == message)
            return named.name;
    if (message > WM_APP && message < WM_APP + 10)
        return "APP+" + std::to_string(message - WM_APP);
    char digits[16];
    std::snprintf(digits, sizeof digits, "0x%X", static_cast<unsigned>(message));
    return digits;
}

std::optional<UINT> MessageNumber(const std::string& name)
{
    for (const NamedMessage& named : kNames)
        if (name == named.name)
            return named.number;
    if (name.rfind("APP+", 0) == 0)
        return WM_APP + static_cast<UINT>(std::stoi(name.substr(4)));
    return std::nullopt;
}

}  // namespace qvui::test
