#include "tooltip/tool_tip_host.h"

#include "tooltip/tool_tip_timers.h"

namespace qvui::test {

ToolTipHost::ToolTipHost()
{
    window = std::make_unique<PlatformWindow>(PlatformWindowOptions{
        .place = {100, 100, 400, 300}, .handler = [this](auto& message) { return Answer(message); }});
    SetActiveWindow(*window);
    tip = std::make_unique<DUI::CPPToolTip>();
    tip->Create(*window);
    tip->AddTool(*window, "", {0, 0, 300, 200}, 1);
}

std::optional<LRESULT> ToolTipHost::Answer(const LoggedMessage& message)
{
    if (message.message != WM_NOTIFY)
        return std::nullopt;
    auto& question = *reinterpret_cast<DUI::NM_TOOLTIP_DISPLAY*>(message.lParam);
    ++questions;
    lastQuestion = question;
    POINT client = question.pt;
    ScreenToClient(message.handle, &client);
    if (question.ti->sTooltip.IsEmpty())
        question.ti->sTooltip = texts[client.x / 100].c_str();
    lastAnswer = question.ti->sTooltip;
    if (onAsked)
        onAsked(question);
    return 0;
}

void ToolTipHost::Relay(UINT message, WPARAM wParam, LPARAM lParam)
{
    MSG msg{*window, message, wParam, lParam, 0, {}};
    tip->RelayEvent(&msg);
}

void ToolTipHost::MoveTo(int x, int y, WPARAM keys)
{
    POINT screen{x, y};
    ClientToScreen(*window, &screen);
    SetCursorPos(screen.x, screen.y);
    Relay(WM_MOUSEMOVE, keys, MAKELPARAM(x, y));
}

void ToolTipHost::Fire(UINT_PTR timer) const
{
    SendMessageA(tip->GetHWND(), WM_TIMER, timer, 0);
}

std::string ToolTipHost::RestAt(int x, int y)
{
    MoveTo(x, y);
    Fire(DUI::kToolTipShow);
    return Shown();
}

RECT ToolTipHost::Place() const
{
    RECT place{};
    GetWindowRect(tip->GetHWND(), &place);
    return place;
}

}  // namespace qvui::test
