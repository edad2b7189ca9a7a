#pragma once

#include <qvui/controls/scrolling/scroll_bar.h>
#include <qvui/layout/canvas.h>

namespace DUI {

/// What the two line layouts share: a scroll bar of their own, and how they lay out.
template <class Layout, class ScrollBar>
class QVUI_API CDUILinearLayout : public ControlOf<Layout, CDUICanvas> {
public:
    ~CDUILinearLayout() override;
    void SetControlRect(const RECT& rect) override;

protected:
    CDUILinearLayout();
    /// The copy has a scroll bar of its own when the source has one.
    CDUILinearLayout(const CDUILinearLayout& other);

    void OnCreate() override;
    void OnDestroy() override;

    /// Borrowed; null when there is none.
    ScrollBar* GetOwnScrollBar() const { return m_pScrollBar.GetPtr(); }

public:
    /// Counts when the layout is attached to a window: later it neither makes nor removes a scroll bar.
    void SetEnableScroll(int enable) { m_nEnableScroll = enable; }
    int GetEnableScroll() const { return m_nEnableScroll; }

private:
    CRefPtr<ScrollBar> m_pScrollBar;
    int m_nEnableScroll = 0;
};

/// Lines up its visible children from left to right. Each gets the width that it asks for ("width") or, when
/// it asks for none, an equal share of what is left; the last one is widened to the end. Each is as high as
/// the content rectangle. "padding" is the gap between neighbours.
///
/// With enable_scroll, content that is too long scrolls: a horizontal scroll bar, in the skin's control style
/// "cs_h_scrollbar" where there is one, stands at the bottom edge while it is needed. It is 9 pixels high
/// where the style does not say.
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

/// The same from top to bottom, with heights ("height"), a vertical scroll bar at the right edge and its
/// style "cs_v_scrollbar".
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
