#pragma once

#include <qvui/layout/canvas.h>

namespace DUI {

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
/// Skin attributes: select_index.
class QVUI_API CDUITabLayout : public ControlOf<CDUITabLayout, IDUITabLayout> {
    friend ControlOf;

public:
    CDUITabLayout();
    static const ControlClass& Class();

    void SetControlRect(const RECT& rect) override;

protected:
    CDUITabLayout(const CDUITabLayout& other) = default;

    void OnCreate() override;

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
    int m_nSelectIndex = 0;
};

}  // namespace DUI
