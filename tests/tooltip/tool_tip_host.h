#pragma once

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

}  // namespace qvui::test
