#pragma once

#include <functional>
#include <string>
#include <vector>

#include <qvui/controls/scrolling/scroll_bar.h>

#include "support/controls/control_window.h"

namespace qvui::test {

/// A container that shows scroll bars at its edges, 10 pixels thick, and writes down what they send.
class ScrollBox : public DUI::CDUIControlBase {
public:
    ScrollBox()
    {
        // Like every scrolling container the box is no parent of its bars.
        for (DUI::CDUIScrollBarBase* const bar : {static_cast<DUI::CDUIScrollBarBase*>(&Vertical()),
                                                  static_cast<DUI::CDUIScrollBarBase*>(&Horizontal())})
            bar->SetScrollOwner(this);
    }

    ~ScrollBox() override
    {
        for (DUI::CDUIScrollBarBase* const bar : {static_cast<DUI::CDUIScrollBarBase*>(&Vertical()),
                                                  static_cast<DUI::CDUIScrollBarBase*>(&Horizontal())})
            bar->SetScrollOwner(static_cast<DUI::IDUIControl*>(nullptr));
    }

    DUI::CDUIVerticalSB& Vertical() { return *m_vertical.GetPtr(); }
    DUI::CDUIHorizontalSB& Horizontal() { return *m_horizontal.GetPtr(); }
    DUI::CDUIVerticalSB* GetVerticalSB() override { return m_vertical.GetPtr(); }
    DUI::CDUIHorizontalSB* GetHorizontalSB() override { return m_horizontal.GetPtr(); }
    int GetScrollLineStep() override { return 30; }

    void SetControlRect(const RECT& rect) override
    {
        StoreControlRect(rect);
        m_vertical->SetControlRect({rect.right - 10, rect.top, rect.right, rect.bottom});
        m_horizontal->SetControlRect({rect.left, rect.bottom - 10, rect.right - 10, rect.bottom});
    }

    /// "v 2 0" for DUIEVENT_VSCROLL with SB_PAGEUP, since the last call.
    std::vector<std::string> TakeEvents() { return std::exchange(m_events, {}); }
    /// Runs on every scroll event, before the box moves the bar.
    std::function<void()> onScroll;

protected:
    void OnCreate() override
    {
        m_vertical->AttachWindow(GetControlMgr());
        m_horizontal->AttachWindow(GetControlMgr());
    }
    void OnDestroy() override
    {
        m_vertical->DetachWindow();
        m_horizontal->DetachWindow();
    }
    LRESULT ProcessEvent(const DUI::tagDUIEvent& event, BOOL& bHandled) override
    {
        if (event.Type == DUI::DUIEVENT_VSCROLL || event.Type == DUI::DUIEVENT_HSCROLL) {
            m_events.push_back((event.Type == DUI::DUIEVENT_VSCROLL ? "v " : "h ") +
                               std::to_string(event.wParam) + " " + std::to_string(event.lParam));
            if (const auto call = onScroll)
                call();
        }
        return CDUIControlBase::ProcessEvent(event, bHandled);
    }

private:
    DUI::CRefPtr<DUI::CDUIVerticalSB> m_vertical = new DUI::CDUIVerticalSB;
    DUI::CRefPtr<DUI::CDUIHorizontalSB> m_horizontal = new DUI::CDUIHorizontalSB;
    std::vector<std::string> m_events;
};

inline void SetRange(DUI::CDUIScrollBarBase& bar, int minimum, int maximum, unsigned page, int position)
{
    SCROLLINFO info{sizeof(SCROLLINFO), SIF_RANGE | SIF_PAGE | SIF_POS, minimum, maximum, page, position, 0};
    bar.SetScrollBarInfo(&info);
}

inline int PositionOf(DUI::CDUIScrollBarBase& bar)
{
    SCROLLINFO info{};
    bar.GetScrollBarInfo(&info);
    return info.nPos;
}

/// Posts a message that arrives while a press is being handled.
inline void PostAt(ControlWindow& window, UINT message, POINT point)
{
    PostMessageA(window.Handle(), message, 0,
                 MAKELPARAM(static_cast<WORD>(point.x), static_cast<WORD>(point.y)));
}

}  // namespace qvui::test
