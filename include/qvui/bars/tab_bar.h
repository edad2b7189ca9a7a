#pragma once

#include <qvui/bars/tab_item.h>
#include <qvui/bars/tab_layout.h>
#include <qvui/framework/window/notify_target.h>
#include <qvui/layout/linear_layout.h>

namespace DUI {

/// A row or column of tabs, of which one is selected; it switches the pages of a tab layout. The tabs are its
/// children that answer "tab_item"; others may stand among them. Tabs have the lengths that they ask for, and
/// none is lengthened to the end of the bar.
///
/// The user selects by a press, with the arrow keys along the bar, Home and End while a tab has the focus,
/// and with Ctrl+Tab in the window's first bar. The keyboard skips hidden and disabled tabs and goes round at
/// the ends. The selected tab is the bar's only tab stop. When a switch takes the focus from a page, the tab
/// gets it.
///
/// The tab layout is the one named by tab_layout, anywhere in the window, or without a name the first one
/// with the same parent. Page and tab have the same number. A bar without select_index begins with the page
/// that its tab layout shows, or with the first tab.
///
/// Tabs and pages may be added, removed and moved in any order. A tab that is removed while it is selected
/// leaves the selection to the next tab, or to the one before it. While there are more tabs than pages or the
/// other way round, tab and page stay as they are; when each tab has its page again, or a page comes for the
/// selected tab, the page of the selected tab is shown. Who selects a page of the tab layout selects its tab.
///
/// With enable_scroll, tabs that do not fit scroll, and the bar brings the selected one into view when it is
/// selected and when the bar's size changes.
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

    /// It is a "tab_bar", a "tab_follower" and a "button_host".
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

    /// Tabs are counted from 0, other children are not counted; -1 when none is selected.
    int GetSelectIndex() const;
    /// Selects a tab, a hidden or disabled one too. FALSE when it is selected already or not there. Before
    /// the bar is attached to a window the number is only kept, and the result is TRUE.
    BOOL SetSelectIndex(int index, BOOL bNotify);
    /// The name of the tab layout; it is looked up whenever it is needed.
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
    bool m_isSelectedToShow = true;  // by the next layout
};

extern template class CDUITabBar<CDUIHorizontalLayout>;
extern template class CDUITabBar<CDUIVerticalLayout>;

}  // namespace DUI
