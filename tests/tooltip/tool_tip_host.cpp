#include "tooltip/tool_tip_host.h"

#include <sstream>

#include <gtest/gtest.h>

#include "support/transcript.h"
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

std::string ToolTipScript::Do(const std::string& line)
{
    std::istringstream words(line);
    const std::string word = ReadWord(words);
    if (word == "host") {
        m_host = std::make_unique<ToolTipHost>();
        m_shown = "nothing";
        return "";
    }
    m_host->questions = 0;
    Execute(word, words);
    const bool isVisible = IsWindowVisible(m_host->tip->GetHWND()) != FALSE;
    EXPECT_EQ(isVisible, m_host->tip->IsTooltipVisible() != FALSE);
    const RECT place = m_host->Place();
    const std::string shown =
        isVisible ? m_host->Shown() + " at " + Text(POINT{place.left, place.top}) : "nothing";
    const bool hasChanged = shown != std::exchange(m_shown, shown);
    m_told += m_host->questions ? "  was asked\n" : "";
    return std::exchange(m_told, "") + (hasChanged ? "  " + shown + "\n" : "");
}

void ToolTipScript::Execute(const std::string& word, std::istream& words)
{
    ToolTipHost& host = *m_host;
    if (word == "move" || word == "held" || word == "rest") {
        const POINT point = ReadPoint(words);
        host.MoveTo(point.x, point.y, word == "held" ? MK_LBUTTON : 0);
        if (word == "rest")
            host.Fire(DUI::kToolTipShow);
    } else if (word == "pointer") {
        const POINT point = ReadPoint(words);
        SetCursorPos(point.x, point.y);
    } else if (word == "due") {
        const std::string timer = ReadWord(words);
        host.Fire(timer == "show"   ? DUI::kToolTipShow
                  : timer == "hide" ? DUI::kToolTipHide
                                    : DUI::kToolTipWatch);
    } else if (word == "relay") {
        static const std::map<std::string, UINT> messages{{"LBUTTONDOWN", WM_LBUTTONDOWN},
                                                          {"LBUTTONUP", WM_LBUTTONUP},
                                                          {"RBUTTONDOWN", WM_RBUTTONDOWN},
                                                          {"NCLBUTTONDOWN", WM_NCLBUTTONDOWN},
                                                          {"NCMOUSEMOVE", WM_NCMOUSEMOVE},
                                                          {"MOUSEWHEEL", WM_MOUSEWHEEL},
                                                          {"MOUSELEAVE", WM_MOUSELEAVE},
                                                          {"KEYDOWN", WM_KEYDOWN},
                                                          {"KEYUP", WM_KEYUP},
                                                          {"SYSKEYDOWN", WM_SYSKEYDOWN},
                                                          {"TIMER", WM_TIMER}};
        host.Relay(messages.at(ReadWord(words)));
    } else if (word == "text") {
        const int column = ReadNumber(words);
        host.texts[column] = ReadRest(words);
    } else if (word == "tool") {
        const int id = ReadNumber(words);
        const RECT rect = ReadRectangle(words);
        host.tip->AddTool(*host.window, ReadRest(words).c_str(), rect, static_cast<UINT>(id));
    } else if (word == "untool") {
        host.tip->DelTool(*host.window, static_cast<UINT>(ReadNumber(words)));
    } else if (word == "put") {
        host.tip->HideTooltip();
    } else if (word == "delays") {
        const int initial = ReadNumber(words), stay = ReadNumber(words);
        host.tip->SetDelayTime(initial, stay, ReadNumber(words));
    } else if (word == "other") {
        SetActiveWindow(m_other);
    } else if (word == "active") {
        SetActiveWindow(*host.window);
    } else if (word == "application") {
        SendMessageA(host.tip->GetHWND(), WM_ACTIVATEAPP, 0, 0);
    } else if (word == "enable") {
        EnableWindow(*host.window, ReadNumber(words));
    } else if (word == "shift") {
        MoveWindow(*host.window, 110, 100, 300, 200, TRUE);
    } else if (word == "wait") {
        m_advance(ReadNumber(words));
        m_told = Pump().dispatched ? "  a message came\n" : "";
    } else {
        ADD_FAILURE() << "no such command: " << word;
    }
}

}  // namespace qvui::test
