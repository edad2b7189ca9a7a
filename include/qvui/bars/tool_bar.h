#pragma once

#include <memory>

#include <qvui/layout/linear_layout.h>
#include <qvui/render/image_list.h>

namespace DUI {

class ToolBarItems;

/// A separator between items of a tool bar ("toolbar_separator"). It draws the bar's separator_image centred
/// in its rectangle; without one, it draws a thin line across the bar.
class QVUI_API CDUIToolBarSeparator : public ControlOf<CDUIToolBarSeparator, CDUIControlBase> {
    friend ControlOf;

public:
    CDUIToolBarSeparator();
    static const ControlClass& Class();

    /// The image's size, or that of the thin line with its spacing; fixed sizes override them.
    BOOL EstimateSize(SIZE available, SIZE& size) override;

    /// Called by the bar that contains it.
    void SetLook(CDUIImageListPtr image, bool isBarVertical);

protected:
    CDUIToolBarSeparator(const CDUIToolBarSeparator& other) = default;

    void PaintForgnd(HDC hdc) override;

private:
    CDUIImageListPtr m_pImage;
    bool m_isBarVertical = false;
};

/// A row or column of tools: its children have the lengths that they ask for, one after another; children
/// that ask for none share the remaining length. Each is as broad as the bar. Buttons with toolbar_style
/// "check" stay down until the next click; "toolbar_separator" elements divide groups.
///
/// Items that do not fit get an empty rectangle, and an overflow button at the end of the bar opens a menu of
/// those that are buttons; choosing an entry activates the item. The items stay visible in the sense of
/// IsVisible, so their shortcuts keep working.
///
/// The bar is one tab stop: the arrow keys along it, Home and End move the focus among those of its buttons
/// that are tab stops when they are added to the bar (or when the bar is attached to its window). Hidden and
/// disabled items and items that do not fit are skipped; the focus wraps around at the ends. Other controls
/// on the bar are separate tab stops.
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

    /// Also supports the interface "button_host".
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
    /// The frame of the overflow menu; null draws a plain one.
    void SetOverflowFrame(CRefPtr<CDUIFrameBK> frame);
    /// The control style of the menu's entries, which are buttons; if empty, they look like their items.
    void SetOverflowItemStyle(const CString& style);

    /// Whether some items do not fit.
    BOOL IsOverflowing() const;
    /// Opens the overflow menu. Returns FALSE if all items fit.
    BOOL OpenOverflow();
    void CloseOverflow();

private:
    std::unique_ptr<ToolBarItems> m_pItems;
};

extern template class CDUIToolBar<CDUIHorizontalLayout>;
extern template class CDUIToolBar<CDUIVerticalLayout>;

}  // namespace DUI
