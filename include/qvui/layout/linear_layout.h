#pragma once

#include <qvui/controls/scrolling/scroll_bar.h>
#include <qvui/layout/canvas.h>

namespace DUI {

/// Common base of the two linear layouts: owns the scroll bar and lays out the children.
template <class Layout, class ScrollBar>
class QVUI_API CDUILinearLayout : public ControlOf<Layout, CDUICanvas> {
public:
    ~CDUILinearLayout() override;
    void SetControlRect(const RECT& rect) override;

protected:
    CDUILinearLayout();
    /// The copy has its own scroll bar if the source has one.
    CDUILinearLayout(const CDUILinearLayout& other);

    void OnCreate() override;
    void OnDestroy() override;

    /// Not owned by the caller; null if there is none.
    ScrollBar* GetOwnScrollBar() const { return m_pScrollBar.GetPtr(); }

public:
    /// Evaluated when the layout is attached to a window; later changes neither create nor remove a scroll
    /// bar.
    void SetEnableScroll(int enable) { m_nEnableScroll = enable; }
    int GetEnableScroll() const { return m_nEnableScroll; }

private:
    CRefPtr<ScrollBar> m_pScrollBar;
    int m_nEnableScroll = 0;
};

/// Arranges its visible children from left to right. Each gets the width that it asks for ("width") or, if it
/// asks for none, an equal share of the remaining width; the last child is extended to the end. Each is as
/// high as the content rectangle. "padding" is the gap between neighbours.
///
/// With enable_scroll, content that is too long scrolls: a horizontal scroll bar, in the skin's control style
/// "cs_h_scrollbar" if it exists, is shown at the bottom edge while it is needed. It is 9 pixels high unless
/// the style sets a height.
///
/// Skin attributes: enable_scroll.
class QVUI_API CDUIHorizontalLayout : public CDUILinearLayout<CDUIHorizontalLayout, CDUIHorizontalSB> {
    friend ControlOf;

public:
    CDUIHorizontalLayout() = default;
    static const ControlClass& Class();

    CDUIHorizontalSB* GetHorizontalSB() override { return GetOwnScrollBar(); }

protected:
    CDUIHorizontalLayout(const CDUIHorizontalLayout& other) = default;
};

/// The same from top to bottom, with heights ("height"), and a vertical scroll bar at the right edge in the
/// control style "cs_v_scrollbar".
class QVUI_API CDUIVerticalLayout : public CDUILinearLayout<CDUIVerticalLayout, CDUIVerticalSB> {
    friend ControlOf;

public:
    CDUIVerticalLayout() = default;
    static const ControlClass& Class();

    CDUIVerticalSB* GetVerticalSB() override { return GetOwnScrollBar(); }

protected:
    CDUIVerticalLayout(const CDUIVerticalLayout& other) = default;
};

extern template class CDUILinearLayout<CDUIHorizontalLayout, CDUIHorizontalSB>;
extern template class CDUILinearLayout<CDUIVerticalLayout, CDUIVerticalSB>;

}  // namespace DUI
