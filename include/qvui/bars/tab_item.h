#pragma once

#include <qvui/controls/button.h>

namespace DUI {

/// A tab of a tab bar: a button that is checked while it is selected. It sends its parent DUIEVENT_ITEMCLICK
/// (a press, or an activation), DUIEVENT_ITEMDBLCLICK, DUIEVENT_ITEMHOVER and DUIEVENT_ITEMLEAVE, and
/// forwards DUIEVENT_KEYDOWN.
///
/// Skin attributes: tab_stop.
/// Notifications: DUINOTIFY_TABACTIVATE when its bar selects it.
class QVUI_API CDUITabItem : public ControlOf<CDUITabItem, CDUIButton> {
    friend ControlOf;

public:
    CDUITabItem() = default;
    static const ControlClass& Class();

    /// Selects the tab without sending DUINOTIFY_CLICK.
    BOOL Activate() override;
    /// The selected tab is never hot or pushed.
    void ModifyStatus(DWORD remove, DWORD add) override;

    /// For the tab bar: adds the tab to the window's tab stops or removes it. A tab whose tab_stop is off is
    /// never a tab stop.
    void MakeTabStop(bool isTabStop);
    /// Sets whether the keyboard can reach the tab.
    void AllowTabStop(bool isAllowed);
    bool IsTabStopAllowed() const { return m_isTabStopAllowed; }

protected:
    CDUITabItem(const CDUITabItem& other) = default;

    LRESULT ProcessEvent(const tagDUIEvent& event, BOOL& bHandled) override;

private:
    void TellParent(UINT type, tagDUIEvent event);

    bool m_isTabStopAllowed = true;
};

}  // namespace DUI
