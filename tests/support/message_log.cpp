#include "support/message_log.h"

#include <algorithm>
#include <cstdio>

namespace qvui::test {
namespace {

struct NamedMessage {
    UINT number;
    const char* name;
};

#define QVUI_NAMED(message) {message, #message}
constexpr NamedMessage kNames[] = {
    QVUI_NAMED(WM_NULL), QVUI_NAMED(WM_CREATE), QVUI_NAMED(WM_DESTROY), QVUI_NAMED(WM_MOVE), QVUI_NAMED(WM_SIZE),
    QVUI_NAMED(WM_ACTIVATE), QVUI_NAMED(WM_SETFOCUS), QVUI_NAMED(WM_KILLFOCUS), QVUI_NAMED(WM_ENABLE),
    QVUI_NAMED(WM_SETTEXT), QVUI_NAMED(WM_PAINT), QVUI_NAMED(WM_CLOSE), QVUI_NAMED(WM_QUIT), QVUI_NAMED(WM_ERASEBKGND),
    QVUI_NAMED(WM_SHOWWINDOW), QVUI_NAMED(WM_CANCELMODE), QVUI_NAMED(WM_SETCURSOR), QVUI_NAMED(WM_MOUSEACTIVATE),
    QVUI_NAMED(WM_GETMINMAXINFO), QVUI_NAMED(WM_WINDOWPOSCHANGING), QVUI_NAMED(WM_WINDOWPOSCHANGED),
    QVUI_NAMED(WM_CONTEXTMENU), QVUI_NAMED(WM_NCCREATE), QVUI_NAMED(WM_NCDESTROY), QVUI_NAMED(WM_NCCALCSIZE),
    QVUI_NAMED(WM_NCHITTEST), QVUI_NAMED(WM_NCPAINT), QVUI_NAMED(WM_NCACTIVATE), QVUI_NAMED(WM_NCMOUSEMOVE),
    QVUI_NAMED(WM_NCLBUTTONDOWN), QVUI_NAMED(WM_NCLBUTTONUP), QVUI_NAMED(WM_NCLBUTTONDBLCLK), QVUI_NAMED(WM_KEYDOWN),
    QVUI_NAMED(WM_KEYUP), QVUI_NAMED(WM_CHAR), QVUI_NAMED(WM_SYSKEYDOWN), QVUI_NAMED(WM_SYSKEYUP),
    QVUI_NAMED(WM_SYSCHAR), QVUI_NAMED(WM_COMMAND), QVUI_NAMED(WM_SYSCOMMAND), QVUI_NAMED(WM_TIMER),
    QVUI_NAMED(WM_MOUSEMOVE), QVUI_NAMED(WM_LBUTTONDOWN), QVUI_NAMED(WM_LBUTTONUP), QVUI_NAMED(WM_LBUTTONDBLCLK),
    QVUI_NAMED(WM_RBUTTONDOWN), QVUI_NAMED(WM_RBUTTONUP), QVUI_NAMED(WM_RBUTTONDBLCLK), QVUI_NAMED(WM_MBUTTONDOWN),
    QVUI_NAMED(WM_MBUTTONUP), QVUI_NAMED(WM_MBUTTONDBLCLK), QVUI_NAMED(WM_MOUSEWHEEL), QVUI_NAMED(WM_PARENTNOTIFY),
    QVUI_NAMED(WM_SIZING), QVUI_NAMED(WM_CAPTURECHANGED), QVUI_NAMED(WM_MOVING), QVUI_NAMED(WM_ENTERSIZEMOVE),
    QVUI_NAMED(WM_EXITSIZEMOVE), QVUI_NAMED(WM_MOUSEHOVER), QVUI_NAMED(WM_MOUSELEAVE),
};
#undef QVUI_NAMED

}  // namespace

std::string MessageName(UINT message)
{
    for (const NamedMessage& named : kNames)
        if (named.number == message)
            return named.name;
    char digits[16];
    std::snprintf(digits, sizeof digits, "0x%X", static_cast<unsigned>(message));
    return digits;
}

std::vector<LoggedMessage> MessageLog::Only(const std::vector<UINT>& numbers) const
{
    std::vector<LoggedMessage> chosen;
    for (const LoggedMessage& message : m_messages)
        if (std::find(numbers.begin(), numbers.end(), message.message) != numbers.end())
            chosen.push_back(message);
    return chosen;
}

std::vector<std::string> MessageLog::Lines(const std::vector<UINT>& numbers) const
{
    std::vector<std::string> lines;
    for (const LoggedMessage& message : Only(numbers))
        lines.push_back(message.window + " " + MessageName(message.message));
    return lines;
}

}  // namespace qvui::test
