#include <qvui/controls/scrolling/scroll_bar.h>

#include <climits>

#include "controls/scrolling/scroll_box.h"
#include "support/controls/control_test.h"

namespace qvui::test {
namespace {

using namespace DUI;
using Strings = std::vector<std::string>;

class ScrollBar : public ControlTest {};

/// A window with a box that has both bars and takes the focus.
class Scrolling : public ScrollBar {
protected:
    Scrolling() { box->ModifyStyle(0, DUISTYLE_TABSTOP); }

    Strings Events() { return box->TakeEvents(); }

    ScrollBox* box = new ScrollBox;
    CDUIVerticalSB& vertical = box->Vertical();
    CDUIHorizontalSB& horizontal = box->Horizontal();
    ControlWindow window{{210, 200}, CRefPtr<IDUIControl>(box)};
};

TEST_F(ScrollBar, TakesOnlyWhatTheMaskNames)
{
    ControlWindow window({10, 200}, "<vert_scrollbar/>");
    CDUIScrollBarBase& bar = window.Root<CDUIScrollBarBase>();
    SetRange(bar, 0, 300, 50, 100);
    SCROLLINFO info{sizeof(SCROLLINFO), SIF_PAGE, 7, 8, 60, 9, 10};
    bar.SetScrollBarInfo(&info);
    info = {1, 2, 3, 4, 5, 6, 7};
    bar.GetScrollBarInfo(&info);
    EXPECT_EQ((std::vector<int>{static_cast<int>(info.cbSize), static_cast<int>(info.fMask), info.nMin,
                                info.nMax, static_cast<int>(info.nPage), info.nPos, info.nTrackPos}),
              (std::vector<int>{1, 2, 0, 300, 60, 100, 7}));
}

TEST_F(Scrolling, DraggingATrackWithoutRoomIsHarmless)
{
    window.Resize({26, 26});
    SetRange(horizontal, 0, 300, 2, 100);  // the thumb fills the track: no pixel is left for the range
    EXPECT_EQ(horizontal.OnHScrollEvent(SB_THUMBTRACK, 0), 0);
    EXPECT_EQ(Events(), Strings());
    EXPECT_EQ(horizontal.OnHScrollEvent(SB_THUMBTRACK, 1), 2);
    EXPECT_EQ(horizontal.OnHScrollEvent(SB_THUMBTRACK, -1), 1);
    EXPECT_EQ(Events(), (Strings{"h 5 300", "h 5 0"}));
}

TEST_F(ScrollBar, SinksStopAtTheEndsOfTheRange)
{
    CRefPtr<ScrollBox> box = new ScrollBox;
    SetRange(box->Vertical(), 10, 20, 5, 10);
    for (const unsigned code : {SB_LINEUP, SB_PAGEUP, SB_LINEDOWN, SB_PAGEDOWN, SB_TOP})
        EXPECT_EQ(box->Vertical().OnVScrollEvent(code, 0), 0);
    EXPECT_EQ(box->TakeEvents(), (Strings{"v 1 0"})) << "a line down reaches the end";
    SetRange(box->Vertical(), 10, 20, 5, 20);
    for (const unsigned code : {SB_LINEDOWN, SB_PAGEDOWN, SB_PAGEUP})
        box->Vertical().OnVScrollEvent(code, 0);
    EXPECT_EQ(box->TakeEvents(), Strings{"v 2 0"});
    box->Vertical().SetScrollOwner(static_cast<IDUIControl*>(nullptr));
    EXPECT_EQ(box->Vertical().OnVScrollEvent(SB_THUMBTRACK, 50), 0);
}

TEST_F(Scrolling, APressInsideThePagingLoopBeginsNoOther)
{
    SetRange(horizontal, 0, 30000, 200, 0);
    window.mouse.MoveTo({180, 195});
    for (int i = 0; i < 50; ++i)
        PostAt(window, WM_LBUTTONDOWN, {180, 195});
    PostAt(window, WM_LBUTTONUP, {180, 195});
    window.mouse.Press();
    const Strings events = Events();
    EXPECT_GE(events.size(), 1U);
    // One for the release, and one for each tenth of a second that fifty messages may take on a slow machine.
    EXPECT_LT(events.size(), 50U);
    window.mouse.Release();
}

TEST_F(Scrolling, PagingEndsWithTheLoopTheCaptureAndTheWindow)
{
    SetRange(vertical, 0, 300000, 200, 0);
    window.mouse.MoveTo({205, 180});
    Pump();
    PostQuitMessage(7);
    window.mouse.Press();
    EXPECT_EQ(Pump().exitCode, 0) << "the quit was passed on";
    window.mouse.Release();
    Events();
    const PlatformWindow other;
    box->onScroll = [&] { SetCapture(other); };
    window.mouse.Press({205, 180});
    EXPECT_EQ(Events(), Strings{"v 3 0"});
    EXPECT_EQ(GetCapture(), other);
    ReleaseCapture();
    window.mouse.Release();
    box->onScroll = nullptr;
    PostMessageA(window.Handle(), WM_CLOSE, 0, 0);
    window.mouse.Press();
    EXPECT_EQ(window.GetRootControl(), nullptr);
}

TEST_F(ScrollBar, AScrollHandlerMayRemoveEverything)
{
    for (const bool isDrag : {false, true}) {
        for (const bool closes : {false, true}) {
            CRefPtr<CDUIControlBase> root = new CDUIControlBase;
            CRefPtr<ScrollBox> box = new ScrollBox;
            ScrollBox& borrowed = *box.GetPtr();
            root->AddControl(box.GetPtr());
            ControlWindow window({210, 200}, CRefPtr<IDUIControl>(root.GetPtr()));
            SetRange(borrowed.Vertical(), 0, 300, 200, 0);
            box = nullptr;
            borrowed.onScroll = [&] {
                if (closes)
                    window.Close();
                root->RemoveAllControl();
            };
            if (isDrag) {
                window.mouse.Press({205, 10}).MoveTo({205, 50}).Release();
            } else {
                window.mouse.MoveTo({205, 180});
                PostAt(window, WM_LBUTTONUP, {205, 180});
                window.mouse.Press().Release();
            }
            EXPECT_EQ(root->GetControlCount(), 0) << isDrag << closes;
        }
    }
}

TEST_F(ScrollBar, FindsItsOwnerByNameAndForgetsItWhenItGoes)
{
    CRefPtr<CDUIControlBase> root = new CDUIControlBase;
    CRefPtr<CDUIVerticalSB> bar = new CDUIVerticalSB;
    bar->SetAttribute("notifier", "box");
    const auto newBox = [] {
        CRefPtr<ScrollBox> box = new ScrollBox;
        box->SetName("box");
        return box;
    };
    CRefPtr<ScrollBox> box = newBox();
    root->AddControl(box.GetPtr());
    root->AddControl(bar.GetPtr());
    ControlWindow window({50, 200}, CRefPtr<IDUIControl>(root.GetPtr()));
    SetRange(*bar.GetPtr(), 0, 300, 200, 100);
    EXPECT_EQ(bar->GetScrollOwner(), box.GetPtr());
    bar->OnVScrollEvent(SB_LINEDOWN, 0);
    EXPECT_EQ(box->TakeEvents(), Strings{"v 1 0"});

    root->RemoveControl(box.GetPtr());
    box = nullptr;
    EXPECT_EQ(bar->GetScrollOwner(), nullptr);
    EXPECT_EQ(bar->OnVScrollEvent(SB_LINEDOWN, 0), 0);

    box = newBox();
    root->AddControl(box.GetPtr());
    window.GetControlByName("box", TRUE);
    EXPECT_EQ(bar->GetScrollOwner(), box.GetPtr());
}

}  // namespace
}  // namespace qvui::test
