#pragma once

#include <qvui/layout/canvas.h>

namespace DUI {

class IDUITabLayout;

/// What follows the pages of tab layouts, as tab bars do. A control that does so gives it for the interface
/// name "tab_follower".
class QVUI_API IDUITabFollower {
public:
    enum class Change { Selected, Added, Removed };
    /// A tab layout of the window shows another page than before, or a page was added to it or removed. The
    /// follower may select a page in the call.
    virtual void OnPages(IDUITabLayout& pages, Change change) = 0;

protected:
    ~IDUITabFollower() = default;
};

class QVUI_API IDUITabLayout : public CDUICanvas {
public:
    /// Shows the page and hides the others. 0, with nothing changed, for an index that is selected already or
    /// that no page has; otherwise 1. Sends no notification.
    virtual int SetSelectIndex(int index) = 0;
    virtual int GetSelectIndex() const = 0;

protected:
    IDUITabLayout() = default;
    IDUITabLayout(const IDUITabLayout& other) = default;
};

/// Pages on top of one another, of which one is shown; each fills the content rectangle. Until the layout is
/// attached to a window the pages are as visible as their templates say. A tab bar drives it.
///
/// While it is attached, one page is shown as long as there are pages. Pages that are added before the shown
/// one or removed leave that one shown, and its index is counted anew; when it is removed itself, the page
/// that comes to stand in its place is shown, or the last one. SetControlIndex moves the shown page and goes
/// on showing it.
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
    /// Stores the index as it is, for the time when the layout is attached to a window.
    void SetFirstIndex(int index) { m_nSelectIndex = index; }

protected:
    /// Shows the selected page alone; nothing when no page has the index.
    void UpdateControls();
    /// Takes the focus away from a page and what is inside it.
    void CheckAndResetFocus(IDUIControl* page);

private:
    void TellFollowers(IDUITabFollower::Change change);

    int m_nSelectIndex = 0;
    int m_nRemoving = -1;  // the page between BeforeRemoveControl and AfterRemoveControl
};

}  // namespace DUI
