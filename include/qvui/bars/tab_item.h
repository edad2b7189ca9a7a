#pragma once

#include <qvui/controls/button.h>

namespace DUI {

/// A tab of a tab bar: a button that is checked while it is selected. It tells its parent what happens to it
/// with DUIEVENT_ITEMCLICK (a press, or an activation), DUIEVENT_ITEMDBLCLICK, DUIEVENT_ITEMHOVER and
/// DUIEVENT_ITEMLEAVE, and passes its DUIEVENT_KEYDOWN on.
///
/// Skin attributes: tab_stop.
/// Notifications: DUINOTIFY_TABACTIVATE when its bar selects it.
class QVUI_API CDUITabItem : public ControlOf<CDUITabItem, CDUIButton> {
    friend ControlOf;

public:
    CDUITabItem() = default;
    static const ControlClass& Class();

    /// Selects the tab; no DUINOTIFY_CLICK.
    BOOL Activate() override;
    /// A tab is never hot or pushed while it is selected.
    void ModifyStatus(DWORD remove, DWORD add) override;

    /// For the tab bar: puts the tab among the window's tab stops, or takes it away from them. A tab whose
    /// tab_stop is off never gets there.
    void MakeTabStop(bool isTabStop);
    /// Whether the keyboard may reach the tab.
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
