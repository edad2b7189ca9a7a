#pragma once

#include <functional>
#include <string>
#include <vector>

#include "controls/scrolling/scroll_box.h"
#include "support/controls/control_test.h"

// What tests of list boxes and tree views have in common.

namespace qvui::test {

/// "1 a": sub-code and row of each notification since the last call; all must have this code.
inline std::vector<std::string> Noted(ControlWindow& window, UINT code)
{
    std::vector<std::string> result;
    for (const Noticed& noticed : window.TakeNotifications()) {
        EXPECT_EQ(noticed.code, code);
        result.push_back(std::to_string(noticed.wParam) + " " +
                         reinterpret_cast<DUI::IDUIControl*>(noticed.lParam)->GetText().GetString());
    }
    return result;
}

inline void ScrollTo(DUI::CDUIControlBase& view, int position)
{
    SCROLLINFO info{sizeof(SCROLLINFO), SIF_POS, 0, 0, 0, position, 0};
    view.GetVerticalSB()->SetScrollBarInfo(&info);
    view.UpdateLayout(TRUE, nullptr);
}

/// Does something to a view in a canvas, over and over: each time a handler of
/// another notification takes away the row that it tells of, all rows, the view or the window. The address
/// sanitizer is the judge.
inline void TakeAnythingAway(const std::string& view, UINT code, const std::vector<WPARAM>& subCodes,
                             const std::function<void(ControlWindow&)>& act)
{
    using namespace DUI;
    const struct {
        const char* name;
        void (*act)(ControlWindow& window, IDUIControl& view, CRefPtr<IDUIControl> row);
    } deeds[] = {
        {"its row", [](auto&, auto&, CRefPtr<IDUIControl> row) { row->GetParent()->RemoveControl(row); }},
        {"all rows", [](auto&, auto& rows, auto) { rows.RemoveAllControl(); }},
        {"the view", [](auto&, auto& rows, auto) { rows.GetParent()->RemoveAllControl(); }},
        {"the window", [](auto& window, auto&, auto) { window.Close(); }},
    };
    for (const auto& deed : deeds)
        for (const WPARAM subCode : subCodes) {
            SCOPED_TRACE(std::string(deed.name) + " at " + std::to_string(subCode));
            ControlWindow window({100, 200}, "<canvas>" + view + "</canvas>");
            IDUIControl& rows = *window.Root().GetControlByIndex(0);
            bool isDone = false;
            window.OnNotify([&](const tagDUINotify& notify) {
                if (notify.nCode != code || notify.wParam != subCode || isDone)
                    return;
                isDone = true;
                deed.act(window, rows, reinterpret_cast<IDUIControl*>(notify.lParam));
            });
            act(window);
            EXPECT_TRUE(isDone);
            window.OnNotify(nullptr);
        }
}

}  // namespace qvui::test
