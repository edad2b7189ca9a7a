#pragma once

#include <qvui/bars/tab_item.h>
#include <qvui/bars/tab_layout.h>
#include <qvui/framework/window/notify_target.h>
#include <qvui/layout/linear_layout.h>

namespace DUI {

/// A row or column of tabs, one of which is selected; it switches the pages of a tab layout. The tabs are the
/// children that return a "tab_item" interface; other children are allowed among them. Each tab has the
/// length that it asks for; none is extended to the end of the bar.
///
/// The user selects a tab by pressing it, with the arrow keys along the bar, Home and End while a tab has the
/// focus, and with Ctrl+Tab in the window's first bar. Keyboard selection skips hidden and disabled tabs and
/// wraps around at the ends. The selected tab is the bar's only tab stop. If a switch takes the focus from a
/// page, the tab receives it.
///
/// The tab layout is the one named by tab_layout, anywhere in the window, or without a name the first one
/// with the same parent. A tab and its page have the same index. A bar without select_index starts with the
/// page that its tab layout shows, or with the first tab.
///
/// Tabs and pages may be added, removed and moved in any order. If the selected tab is removed, the next tab
/// is selected, or the previous one if there is none. While the numbers of tabs and pages differ, the
/// selected tab and the shown page are not changed; when each tab has its page again, or a page is added for
/// the selected tab, the page of the selected tab is shown. Selecting a page of the tab layout selects its
/// tab.
///
/// With enable_scroll, tabs that do not fit can be scrolled, and the bar scrolls the selected tab into view
/// when it is selected and when the bar's size changes.
///
/// Skin attributes: tab_layout, select_index.
/// Notifications: DUINOTIFY_TABACTIVATE (wParam 1, sender the tab) when the user selects another tab.
template <class Layout>
class QVUI_API CDUITabBar : public ControlOf<CDUITabBar<Layout>, Layout>,
                            public IDUITabBar,
                            public IDUITabFollower,
                            public IDUIButtonHost {
    friend ControlOf<CDUITabBar<Layout>, Layout>;

public:
    CDUITabBar();
    static const ControlClass& Class();

    /// Supports the interfaces "tab_bar", "tab_follower" and "button_host".
    void* GetInterface(const CString& name) override;
    void SetControlRect(const RECT& rect) override;
    BOOL SetControlIndex(CRefPtr<IDUIControl> child, int index) override;
    void RemoveAllControl() override;

protected:
    CDUITabBar(const CDUITabBar& other);

    void OnCreate() override;
    LRESULT ProcessEvent(const tagDUIEvent& event, BOOL& bHandled) override;
    void AfterAddControl(CRefPtr<IDUIControl> child) override;
    void BeforeRemoveControl(CRefPtr<IDUIControl> child) override;
    void AfterRemoveControl(CRefPtr<IDUIControl> child) override;

public:
    BOOL MoveSelection(BOOL bForward, BOOL bNotify) override;
    void OnPages(IDUITabLayout& pages, Change change) override;
    void OnButtonEvent(CDUIButton&, const tagDUIEvent&, BOOL&) override {}
    void OnButtonChanged() override { UpdateTabStops(); }

    /// Tabs are counted from 0, ignoring other children; -1 if none is selected.
    int GetSelectIndex() const;
    /// Selects a tab, even a hidden or disabled one. Returns FALSE if it is selected already or does not
    /// exist. Before the bar is attached to a window, only stores the index and returns TRUE.
    BOOL SetSelectIndex(int index, BOOL bNotify);
    /// The name of the tab layout, which is looked up on each use.
    void SetTabLayoutName(const CString& name) { m_strTabLayout = name; }
    const CString& GetTabLayoutName() const { return m_strTabLayout; }

private:
    CDUITabItem* ItemOf(int childIndex) const;
    CDUITabItem* ItemOfNumber(int number) const;
    int GetItemCount() const;
    int FindItem(int childIndex, int step, bool goesRound) const;
    CDUITabItem* GetSelected(int* childIndex = nullptr) const;
    CDUITabItem* FirstItem(IDUITabLayout* pages) const;
    BOOL Select(CDUITabItem* item, BOOL bNotify);
    void MarkSelected(const CDUITabItem* selected);
    static void Release(CDUITabItem& item);
    void UpdateTabStops();
    void FollowPages();
    bool ScrollToSelected();
    bool HandleKey(const tagDUIEvent& event);
    IDUITabLayout* FindTabLayout();

    CString m_strTabLayout;
    int m_nFirstIndex = -1;
    int m_nRemoving = -1;            // the child between BeforeRemoveControl and AfterRemoveControl
    bool m_isSelectedToShow = true;  // the next layout scrolls to the selected tab
};

extern template class CDUITabBar<CDUIHorizontalLayout>;
extern template class CDUITabBar<CDUIVerticalLayout>;

}  // namespace DUI
