#pragma once

#include <functional>
#include <istream>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include <qvui/tooltip/tool_tip.h>

#include "support/platform_window.h"

namespace qvui::test {

/// A window of 300×200 at 100,100 with a tooltip that has one tool, the whole client area, as a window
/// manager sets it up. It answers by columns of 100 pixels: "one", "two" and nothing.
class ToolTipHost {
public:
    ToolTipHost();
    ToolTipHost(const ToolTipHost&) = delete;
    ToolTipHost& operator=(const ToolTipHost&) = delete;

    /// What a message loop does with a message: relay, and then send it.
    void Relay(UINT message, WPARAM wParam = 0, LPARAM lParam = 0);
    /// The pointer goes to a client point, and its move is relayed.
    void MoveTo(int x, int y, WPARAM keys = 0);
    /// A timer of the tooltip's window comes due.
    void Fire(UINT_PTR timer) const;
    /// Moves to a point, rests there and says what shows then.
    std::string RestAt(int x, int y);

    /// The text that shows; empty while nothing does.
    std::string Shown() const { return tip->IsTooltipVisible() ? lastAnswer : ""; }
    RECT Place() const;
    SIZE Size() const { return {Place().right - Place().left, Place().bottom - Place().top}; }

    std::map<int, std::string> texts{{0, "one"}, {1, "two"}, {2, ""}};  // by column
    int questions = 0;
    DUI::NM_TOOLTIP_DISPLAY lastQuestion{};
    std::string lastAnswer;
    std::function<void(DUI::NM_TOOLTIP_DISPLAY&)> onAsked;  // after the answer was filled in
    std::unique_ptr<PlatformWindow> window;
    std::unique_ptr<DUI::CPPToolTip> tip;

private:
    std::optional<LRESULT> Answer(const LoggedMessage& message);
};

/// A tooltip by commands: "host" opens one; "move X,Y" and "held X,Y" (with the button) and "rest X,Y" move
/// the pointer, "pointer X,Y" unnoticed; "due show|hide|watch" are its timers, "relay MESSAGE" a message by
/// its number; "text COLUMN TEXT", "tool ID L,T,R,B TEXT", "untool ID", "put away" and "delays INITIAL STAY
/// NEXT" are the application's, "other", "active", "enable 0|1" and "shift" what happens to the host. "wait
/// MILLISECONDS" needs a clock. Each answers what shows when that has changed, and whether the owner was
/// asked.
class ToolTipScript {
public:
    explicit ToolTipScript(std::function<void(int)> advance = nullptr) : m_advance(std::move(advance)) {}

    std::string Do(const std::string& line);

private:
    void Execute(const std::string& word, std::istream& words);

    std::function<void(int)> m_advance;
    PlatformWindow m_other{{.place = {500, 400, 510, 410}}};
    std::unique_ptr<ToolTipHost> m_host;
    std::string m_shown;
    std::string m_told;
};

}  // namespace qvui::test
