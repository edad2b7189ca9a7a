#pragma once

#include <qvui/controls/scroll_bar.h>
#include <qvui/layout/canvas.h>

namespace DUI {

/// Lines up its visible children from left to right. Each gets the width that it asks for ("width") or, when
/// it asks for none, an equal share of what is left; the last one is widened to the end. Each is as high as
/// the content rectangle. "padding" is the gap between neighbours.
///
/// With enable_scroll, content that is too long scrolls: a horizontal scroll bar, in the skin's control style
/// "cs_h_scrollbar" where there is one, stands at the bottom edge while it is needed.
///
/// Skin attributes: enable_scroll.
class QVUI_API CDUIHorizontalLayout : public ControlOf<CDUIHorizontalLayout, CDUICanvas> {
    friend ControlOf<CDUIHorizontalLayout, CDUICanvas>;

public:
    CDUIHorizontalLayout();
    static const ControlClass& Class();

    void SetControlRect(const RECT& rect) override;

    /// Borrowed; null when there is none.
    CDUIHorizontalSB* GetHorizontalSB() override { return m_pScrollBar.GetPtr(); }

protected:
    /// The copy has a scroll bar of its own when the source has one.
    CDUIHorizontalLayout(const CDUIHorizontalLayout& other);

    void OnCreate() override;
    void OnDestroy() override;

public:
    /// Counts when the layout is attached to a window: later it neither makes nor removes a scroll bar.
    void SetEnableScroll(int enable) { m_nEnableScroll = enable; }
    int GetEnableScroll() const { return m_nEnableScroll; }

private:
    CRefPtr<CDUIHorizontalSB> m_pScrollBar;
    int m_nEnableScroll = 0;
};

/// The same from top to bottom, with heights ("height"), a vertical scroll bar at the right edge and its
/// style "cs_v_scrollbar".
class QVUI_API CDUIVerticalLayout : public ControlOf<CDUIVerticalLayout, CDUICanvas> {
    friend ControlOf<CDUIVerticalLayout, CDUICanvas>;

public:
    CDUIVerticalLayout();
    static const ControlClass& Class();

    void SetControlRect(const RECT& rect) override;

    CDUIVerticalSB* GetVerticalSB() override { return m_pScrollBar.GetPtr(); }

protected:
    CDUIVerticalLayout(const CDUIVerticalLayout& other);

    void OnCreate() override;
    void OnDestroy() override;

public:
    void SetEnableScroll(int enable) { m_nEnableScroll = enable; }
    int GetEnableScroll() const { return m_nEnableScroll; }

private:
    CRefPtr<CDUIVerticalSB> m_pScrollBar;
    int m_nEnableScroll = 0;
};

}  // namespace DUI
