#pragma once

#include <memory>

#include <qvui/layout/linear_layout.h>
#include <qvui/render/image_list.h>

namespace DUI {

class ToolBarItems;

/// A line between the items of a tool bar ("toolbar_separator"). It shows the bar's separator_image in the
/// middle of its place; without one it draws a thin line across the bar.
class QVUI_API CDUIToolBarSeparator : public ControlOf<CDUIToolBarSeparator, CDUIControlBase> {
    friend ControlOf;

public:
    CDUIToolBarSeparator();
    static const ControlClass& Class();

    /// The image's size, or that of the thin line with the space around it; fixed sizes replace them.
    BOOL EstimateSize(SIZE available, SIZE& size) override;

    /// For the bar that it stands on.
    void SetLook(CDUIImageListPtr image, bool isBarVertical);

protected:
    CDUIToolBarSeparator(const CDUIToolBarSeparator& other) = default;

    void PaintForgnd(HDC hdc) override;

private:
    CDUIImageListPtr m_pImage;
    bool m_isBarVertical = false;
};

/// A row or column of tools: its children in the lengths that they ask for, one after another; children that
/// ask for none share what is left. Each is as broad as the bar. Buttons with toolbar_style "check" stay down
/// until the next click; "toolbar_separator" elements divide groups.
///
/// Items that do not fit get an empty rectangle, and a button at the end of the bar opens a list of those of
/// them that are buttons; to choose one activates it. The items keep their visible bit, so their shortcuts go
/// on working.
///
/// The bar is one tab stop: the arrow keys along it, Home and End move the focus among those of its buttons
/// that are tab stops when they come onto the bar (or when the bar comes into its window). They skip what is
/// hidden, disabled or without room, and go round at the ends. Other controls on the bar are tab stops of
/// their own.
///
/// Skin attributes: separator_image, overflow_image, overflow_frame, overflow_item_style. enable_scroll has
/// no effect.
template <class Layout>
class QVUI_API CDUIToolBar : public ControlOf<CDUIToolBar<Layout>, Layout> {
    friend ControlOf<CDUIToolBar<Layout>, Layout>;

public:
    CDUIToolBar();
    ~CDUIToolBar() override;
    static const ControlClass& Class();

    /// It is a "button_host", too.
    void* GetInterface(const CString& name) override;
    void SetControlRect(const RECT& rect) override;
    void DoPaint(HDC hdc, const RECT& rcPaint) override;
    IDUIControl* FindControl(FindControlProc proc, void* pData, UINT flags) override;
    void RemoveAllControl() override;

protected:
    CDUIToolBar(const CDUIToolBar& other);

    void OnCreate() override;
    void OnDestroy() override;
    LRESULT ProcessEvent(const tagDUIEvent& event, BOOL& bHandled) override;
    void AfterAddControl(CRefPtr<IDUIControl> child) override;
    void AfterRemoveControl(CRefPtr<IDUIControl> child) override;

public:
    void SetSeparatorImage(CDUIImageListPtr image);
    /// A strip with icons for the states of a button; null draws an arrowhead.
    void SetOverflowImage(CDUIImageListPtr image);
    /// The frame of the list; null draws a plain one.
    void SetOverflowFrame(CRefPtr<CDUIFrameBK> frame);
    /// The control style of the list's entries, which are buttons; empty gives them the look of their items.
    void SetOverflowItemStyle(const CString& style);

    /// Whether some items have no room.
    BOOL IsOverflowing() const;
    /// Opens the list of the items without room; FALSE when there are none.
    BOOL OpenOverflow();
    void CloseOverflow();

private:
    std::unique_ptr<ToolBarItems> m_pItems;
};

extern template class CDUIToolBar<CDUIHorizontalLayout>;
extern template class CDUIToolBar<CDUIVerticalLayout>;

}  // namespace DUI
