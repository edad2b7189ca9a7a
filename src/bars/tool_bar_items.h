#pragma once

#include <memory>
#include <set>
#include <vector>

#include <qvui/controls/button.h>
#include <qvui/layout/canvas.h>

#include "bars/tool_bar_menu.h"
#include "bars/tool_bar_overflow.h"
#include "bars/tool_bar_plan.h"

namespace DUI {

/// The direction-independent part of horizontal and vertical tool bars: the overflow button with its menu,
/// and keyboard handling. Owned by one bar.
class ToolBarItems : public IDUIButtonHost {
public:
    struct Keys {
        WPARAM backward;
        WPARAM forward;
    };
    struct Look {
        CDUIImageListPtr separator;
        CDUIImageListPtr overflow;
        CRefPtr<CDUIFrameBK> frame;
        CString itemStyle;
    };

    ToolBarItems(CDUICanvas& bar, bool isVertical, Keys keys);
    ToolBarItems(const ToolBarItems&) = delete;
    ToolBarItems& operator=(const ToolBarItems&) = delete;
    ~ToolBarItems();

    /// Restores the original tab stops in this bar's children, which are copies of another bar's children.
    void CopyTabStops(const ToolBarItems& other);

    // Called by the bar
    void OnCreate();
    void OnDestroy();
    void OnAdded(IDUIControl& child);
    void OnRemoved(IDUIControl& child);
    void ReleaseChildren();

    const Look& GetLook() const { return m_look; }
    void SetLook(const Look& look);

    /// Sets the result of the bar's last layout.
    void SetOverflow(bool overflows, const RECT& place);
    bool IsOverflowing() const { return m_overflows; }
    ToolBarOverflow& OverflowButton() { return *m_overflow.GetPtr(); }

    bool OpenMenu();
    void CloseMenu();

    // IDUIButtonHost
    void OnButtonEvent(CDUIButton& button, const tagDUIEvent& event, BOOL& bHandled) override;
    void OnButtonChanged() override { EnsureTabStop(); }

private:
    /// Keeps one usable item as tab stop.
    void EnsureTabStop();
    void Take(IDUIControl& item);
    void Release(IDUIControl& item);
    bool IsOurs(const IDUIControl* item) const { return m_keyboardItems.count(item) != 0; }
    bool IsUsable(IDUIControl& item) const;
    std::vector<IDUIControl*> UsableItems() const;
    std::vector<IDUIControl*> AllItems() const;
    void MakeTabStop(const IDUIControl* chosen);
    bool HandleKey(IDUIControl& item, const tagDUIEvent& event);
    ToolBarMenu::Items ItemsWithoutRoom() const;
    void OnActivateOverflow();

    CDUICanvas& m_bar;
    bool m_isVertical;
    Keys m_keys;
    Look m_look;
    CRefPtr<ToolBarOverflow> m_overflow;
    bool m_overflows = false;
    bool m_wasOpenAtPress = false;
    std::set<const IDUIControl*>
        m_keyboardItems;  // items that were tab stops when keyboard handling took them over
    std::shared_ptr<ToolBarMenu> m_menu;
};

}  // namespace DUI
