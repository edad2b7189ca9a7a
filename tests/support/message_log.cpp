#include "support/message_log.h"

#include <algorithm>
#include <cstdio>
#include <sstream>

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
    QVUI_NAMED(SETTEXT), QVUI_NAMED(PAINT), QVUI_NAMED(CLOSE), QVUI_NAMED(QUIT), QVUI_NAMED(ERASEBKGND),
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

/// The numbers that a text of Tells names.
std::vector<UINT> NumbersIn(std::string text)
{
    std::replace(text.begin(), text.end(), ',', ' ');
    std::istringstream words(text);
    std::vector<UINT> numbers;
    for (std::string word; words >> word;) {
        for (const NamedMessage& named : kNames)
            if (word == named.name)
                numbers.push_back(named.number);
        if (word.rfind("APP+", 0) == 0)
            numbers.push_back(WM_APP + static_cast<UINT>(std::stoi(word.substr(4))));
    }
    return numbers;
}

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

std::vector<LoggedMessage> MessageLog::Only(const std::vector<UINT>& numbers) const
{
    std::vector<LoggedMessage> chosen;
    for (const LoggedMessage& message : m_messages)
        if (std::find(numbers.begin(), numbers.end(), message.message) != numbers.end())
            chosen.push_back(message);
    return chosen;
}

LoggedMessage MessageLog::Last(UINT number) const
{
    const std::vector<LoggedMessage> messages = Only({number});
    return messages.empty() ? LoggedMessage{} : messages.back();
}

testing::AssertionResult MessageLog::Tells(const std::string& text, std::vector<UINT> also) const
{
    for (const UINT number : NumbersIn(text))
        also.push_back(number);
    std::string told;
    std::string window;
    for (const LoggedMessage& message : Only(also)) {
        if (told.empty() || message.window != window)
            told += (told.empty() ? "" : ", ") + message.window;
        window = message.window;
        told.append(1, ' ').append(MessageName(message.message));
    }
    if (told == text)
        return testing::AssertionSuccess();
    return testing::AssertionFailure() << "\"" << told << "\" instead of \"" << text << "\"";
}

}  // namespace qvui::test
