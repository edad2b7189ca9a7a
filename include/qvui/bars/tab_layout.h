#pragma once

#include <qvui/layout/canvas.h>

namespace DUI {

class IDUITabLayout;

/// Interface of a control that follows the pages of tab layouts, such as a tab bar. Returned for the
/// interface name "tab_follower".
class QVUI_API IDUITabFollower {
public:
    enum class Change { Selected, Added, Removed };
    /// Called when a tab layout of the window shows another page, or a page was added or removed. The
    /// follower may select a page during the call.
    virtual void OnPages(IDUITabLayout& pages, Change change) = 0;

protected:
    ~IDUITabFollower() = default;
};

class QVUI_API IDUITabLayout : public CDUICanvas {
public:
    /// Shows a page and hides the others. Returns 0, with nothing changed, if the page is selected already or
    /// does not exist; otherwise 1. Sends no notification.
    virtual int SetSelectIndex(int index) = 0;
    virtual int GetSelectIndex() const = 0;

protected:
    IDUITabLayout() = default;
    IDUITabLayout(const IDUITabLayout& other) = default;
};

/// Pages on top of one another, one of which is shown; each fills the content rectangle. Until the layout is
/// attached to a window, the visibility of the pages is that of their templates. The layout is usually driven
/// by a tab bar.
///
/// While attached, one page is shown as long as there are pages. Adding or removing other pages does not
/// change the page shown, only its index; if the shown page is removed, the page that takes its index is
/// shown, or the last one. SetControlIndex moves the shown page and keeps it shown.
///
/// Skin attributes: select_index.
class QVUI_API CDUITabLayout : public ControlOf<CDUITabLayout, IDUITabLayout> {
    friend ControlOf;

public:
    CDUITabLayout();
    static const ControlClass& Class();

    void SetControlRect(const RECT& rect) override;
    void RemoveAllControl() override;
    BOOL SetControlIndex(CRefPtr<IDUIControl> child, int index) override;

protected:
    CDUITabLayout(const CDUITabLayout& other) = default;

    void OnCreate() override;
    void AfterAddControl(CRefPtr<IDUIControl> child) override;
    void BeforeRemoveControl(CRefPtr<IDUIControl> child) override;
    void AfterRemoveControl(CRefPtr<IDUIControl> child) override;

public:
    int SetSelectIndex(int index) override;
    int GetSelectIndex() const override { return m_nSelectIndex; }
    /// Stores the index without any check, for use when the layout is attached to a window.
    void SetFirstIndex(int index) { m_nSelectIndex = index; }

protected:
    /// Shows only the selected page; does nothing if the index is invalid.
    void UpdateControls();
    /// Removes the focus from a page and its descendants.
    void CheckAndResetFocus(IDUIControl* page);

private:
    void TellFollowers(IDUITabFollower::Change change);

    int m_nSelectIndex = 0;
    int m_nRemoving = -1;  // the page between BeforeRemoveControl and AfterRemoveControl
};

}  // namespace DUI
