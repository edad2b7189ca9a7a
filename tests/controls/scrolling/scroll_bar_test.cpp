#include <qvui/controls/scrolling/scroll_bar.h>

#include <climits>

#include "controls/pixels.h"
#include "controls/scrolling/scroll_box.h"
#include "support/controls/control_test.h"

namespace qvui::test {
namespace {

using namespace DUI;
using Strings = std::vector<std::string>;

class ScrollBar : public ControlTest {};

std::string ThumbOf(CDUIScrollBarBase& bar)
{
    return Text(bar.GetControlByIndex(1)->GetControlRect());
}

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

TEST_F(ScrollBar, SizesAndPlacesTheThumb)
{
    const struct {
        const char* name;
        const char* tag;
        SIZE client;
        int minimum, maximum;
        unsigned page;
        int position;
        const char* thumb;
    } cases[] = {
        {"in proportion, at the start", "vert", {10, 200}, 0, 300, 200, 0, "0,0,10,80"},
        {"in the middle", "vert", {10, 200}, 0, 300, 200, 150, "0,60,10,140"},
        {"at the end", "vert", {10, 200}, 0, 300, 200, 300, "0,120,10,200"},
        {"position beyond the range", "vert", {10, 200}, 0, 300, 200, 500, "0,120,10,200"},
        {"position before the range", "vert", {10, 200}, 100, 400, 200, 5, "0,0,10,80"},
        {"shortest thumb upright ends before the track", "vert", {10, 216}, 0, 800, 8, 800, "0,198,10,214"},
        {"shortest thumb lying reaches the end", "horz", {216, 10}, 0, 800, 8, 800, "200,0,216,10"},
        {"lying, in proportion", "horz", {200, 10}, 0, 300, 200, 150, "60,0,140,10"},
        {"track shorter than any thumb", "horz", {10, 10}, 0, 300, 200, 0, "0,0,0,10"},
        {"exactly the shortest thumb fits", "horz", {16, 10}, 0, 300, 2, 300, "0,0,16,10"},
        {"no page", "vert", {10, 200}, 0, 300, 0, 150, "0,0,10,0"},
        {"no range", "vert", {10, 200}, 0, 0, 200, 0, "0,0,10,0"},
        {"inverted range", "vert", {10, 200}, 300, 0, 200, 300, "0,0,10,0"},
        {"the widest range", "horz", {200, 10}, INT_MIN, INT_MAX, INT_MAX, INT_MAX, "134,0,200,10"},
    };
    for (const auto& c : cases) {
        ControlWindow window(c.client, std::string("<") + c.tag + "_scrollbar/>");
        CDUIScrollBarBase& bar = window.Root<CDUIScrollBarBase>();
        SetRange(bar, c.minimum, c.maximum, c.page, c.position);
        EXPECT_EQ(ThumbOf(bar), c.thumb) << c.name;
    }
}

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

TEST_F(ScrollBar, PaintsTrackThumbAndMark)
{
    ControlWindow window(
        {20, 200},
        OnBlue(R"(<vert_scrollbar back_image="strip2" thumb_image="strip" thumb_mark="expander"/>)"));
    CDUIScrollBarBase& bar = window.Root<CDUIScrollBarBase>();
    SetRange(bar, 0, 300, 200, 150);
    // The track is strip2's red icon, the hot thumb strip's green one, the mark red again.
    EXPECT_EQ(bar.GetFixedSize().cx, 20);
    window.mouse.MoveTo({10, 100});
    const ClientPixels hot = window.Paint();
    EXPECT_EQ(Bounds(hot, kGreen), "0,60,20,140");
    EXPECT_EQ(hot.At(10, 100), kRed);
}

TEST_F(ScrollBar, HasNoArrowsWhateverTheSkinSays)
{
    ControlWindow plain({10, 100}, OnBlue(R"(<vert_scrollbar thumb_image="thumb"/>)"));
    ControlWindow arrows({10, 100}, OnBlue(R"(<vert_scrollbar enable_arrow="true" arrow_image1="strip"
        thumb_image="thumb" arrow_image2="strip"/>)"));
    for (ControlWindow* const window : {&plain, &arrows})
        SetRange(window->Root<CDUIScrollBarBase>(), 0, 300, 200, 0);
    EXPECT_EQ(Difference(plain.Paint(), arrows.Paint()), "0,0,0,0");
}

TEST_F(Scrolling, ADisabledBarHasNoThumbAndIgnoresPresses)
{
    SetRange(vertical, 0, 300, 200, 0);
    vertical.SetEnable(FALSE);
    EXPECT_FALSE(vertical.GetControlByIndex(1)->IsVisible(FALSE));
    window.mouse.Click({205, 150});
    EXPECT_EQ(Events(), Strings());
    vertical.SetEnable(TRUE);
    EXPECT_TRUE(vertical.GetControlByIndex(1)->IsVisible(FALSE));
}

// --- the protocol ------------------------------------------------------------------------------------------

TEST_F(Scrolling, ShowsAndHidesByTheContent)
{
    const struct {
        const char* name;
        bool isShown;
        int content, extra;
        int result;
        bool isShownAfter;
        int maximum, position;  // 77 and 33 before
    } cases[] = {
        {"too much content, hidden", false, 300, 0, TRUE, true, 100, 0},
        {"too much content, shown", true, 300, 5, FALSE, true, 105, 33},
        {"content fits, shown", true, 150, 5, TRUE, false, 77, 33},
        {"content fits exactly, hidden", false, 200, 5, FALSE, false, 77, 33},
        {"less room for the position", true, 220, 0, FALSE, true, 20, 20},
    };
    for (const auto& c : cases) {
        for (const bool isVertical : {true, false}) {
            SCOPED_TRACE(std::string(c.name) + (isVertical ? ", vertical" : ", horizontal"));
            CDUIScrollBarBase& bar = isVertical ? static_cast<CDUIScrollBarBase&>(vertical)
                                                : static_cast<CDUIScrollBarBase&>(horizontal);
            SetRange(bar, 0, 77, 50, 33);
            bar.SetVisible(c.isShown);
            const RECT view{0, 0, 200, 200};
            const int result = isVertical ? box->ProcessVerticalSB(view, c.content, c.extra)
                                          : box->ProcessHorizontalSB(view, c.content, c.extra);
            SCROLLINFO info{};
            bar.GetScrollBarInfo(&info);
            EXPECT_EQ(result, c.result);
            EXPECT_EQ(bar.IsVisible(FALSE) != FALSE, c.isShownAfter);
            EXPECT_EQ(info.nMax, c.maximum);
            EXPECT_EQ(info.nPos, c.position);
            EXPECT_EQ(info.nPage, c.maximum == 77 ? 50U : 200U);
        }
    }
}

TEST_F(Scrolling, CodesMoveThePosition)
{
    const struct {
        const char* name;
        WPARAM code;
        LPARAM value;
        int expected;  // from 500 in 0..1000; a line is 30, the box 210 by 200
        int expectedAcross;
    } cases[] = {
        {"line up", SB_LINEUP, 0, 470, 470},       {"line down", SB_LINEDOWN, 0, 530, 530},
        {"page up", SB_PAGEUP, 0, 300, 290},       {"page down", SB_PAGEDOWN, 0, 700, 710},
        {"thumb", SB_THUMBTRACK, 123, 123, 123},   {"thumb beyond", SB_THUMBTRACK, 1 << 30, 1000, 1000},
        {"thumb before", SB_THUMBTRACK, -9, 0, 0}, {"no such code", SB_BOTTOM, 4, 500, 500},
    };
    for (const auto& c : cases) {
        BOOL bHandled = FALSE;
        tagDUIEvent event;
        event.wParam = c.code;
        event.lParam = c.value;
        event.Type = DUIEVENT_VSCROLL;
        SetRange(vertical, 0, 1000, 200, 500);
        box->OnDUIEvent(event, bHandled);
        EXPECT_EQ(PositionOf(vertical), c.expected) << c.name;
        event.Type = DUIEVENT_HSCROLL;
        SetRange(horizontal, 0, 1000, 200, 500);
        box->OnDUIEvent(event, bHandled);
        EXPECT_EQ(PositionOf(horizontal), c.expectedAcross) << c.name;
    }
}

TEST_F(Scrolling, TheWheelMovesOneLineOfTheFirstBarShown)
{
    SetRange(vertical, 0, 300, 200, 100);
    SetRange(horizontal, 0, 300, 200, 100);
    box->SetFocus(TRUE);
    window.mouse.MoveTo({50, 50}).Wheel(1);
    EXPECT_EQ(PositionOf(vertical), 70);
    window.mouse.Wheel(-3);
    EXPECT_EQ(PositionOf(vertical), 100) << "the size of the delta does not count";
    EXPECT_EQ(PositionOf(horizontal), 100);
    vertical.SetVisible(FALSE);
    window.mouse.Wheel(1);
    EXPECT_EQ(PositionOf(horizontal), 70);
    horizontal.SetVisible(FALSE);
    window.mouse.Wheel(1);
    EXPECT_EQ(PositionOf(horizontal), 70);
}

TEST_F(ScrollBar, TheWheelReachesTheContainerBelowThePointer)
{
    ControlWindow window({300, 100}, R"(<horz_layout><button name="focus" width="100"/>
        <vert_layout name="left" width="100" enable_scroll="true"><button height="500"/></vert_layout>
        <vert_layout name="right" width="100" enable_scroll="true"><button height="500"/></vert_layout></horz_layout>)");
    window.Find("focus")->SetFocus(TRUE);
    const auto positions = [&] {
        Strings result;
        for (const char* const name : {"left", "right"})
            result.push_back(std::to_string(
                PositionOf(*dynamic_cast<CDUIControlBase*>(window.Find(name))->GetVerticalSB())));
        return result;
    };
    window.mouse.MoveTo({250, 50}).Wheel(-1);
    EXPECT_EQ(positions(), (Strings{"0", "100"}));
    window.mouse.MoveTo({150, 50}).Wheel(-1).Wheel(-1);
    EXPECT_EQ(positions(), (Strings{"200", "100"}));
    window.mouse.MoveTo({50, 50}).Wheel(-1);
    EXPECT_EQ(positions(), (Strings{"200", "100"}));
}

TEST_F(ScrollBar, TheWheelMovesTheInnermostContainerThatCanMove)
{
    ControlWindow window({100, 100}, R"(<vert_layout name="left" enable_scroll="true">
        <vert_layout name="right" height="80" enable_scroll="true"><button name="focus" height="200"/></vert_layout>
        <canvas height="220"/></vert_layout>)");
    window.Find("focus")->SetFocus(TRUE);
    const auto wheel = [&](int x, int y, int notches) {
        window.mouse.MoveTo({x, y}).Wheel(notches);
        Strings result;
        for (const char* const name : {"left", "right"})
            result.push_back(std::to_string(
                PositionOf(*dynamic_cast<CDUIControlBase*>(window.Find(name))->GetVerticalSB())));
        return result;
    };
    EXPECT_EQ(wheel(10, 10, -1), (Strings{"0", "100"}));
    EXPECT_EQ(wheel(10, 10, -1), (Strings{"0", "120"}));
    EXPECT_EQ(wheel(10, 10, 1), (Strings{"0", "20"}));
    EXPECT_EQ(wheel(10, 10, 1), (Strings{"0", "0"}));
    EXPECT_EQ(wheel(10, 10, 1), (Strings{"0", "0"}));
    EXPECT_EQ(wheel(10, 90, -1), (Strings{"100", "0"})) << "beside it";
    EXPECT_EQ(wheel(10, 90, 1), (Strings{"0", "0"}));
    wheel(10, 10, -2);
    wheel(10, 10, -2);
    EXPECT_EQ(wheel(10, 10, -1), (Strings{"100", "120"})) << "handed on at its end";
}

// --- the thumb ---------------------------------------------------------------------------------------------

TEST_F(Scrolling, DraggingTheThumbScrollsAndStopsAtTheEnds)
{
    SetRange(vertical, 0, 300, 200, 0);  // the thumb is 80 long, a pixel moves 2.5
    window.mouse.Press({205, 10});
    EXPECT_EQ(GetCapture(), window.Handle());
    EXPECT_EQ(window.GetFocusControl(), box);
    window.mouse.MoveTo({205, 50});
    EXPECT_EQ(Events(), Strings{"v 5 100"});
    window.mouse.MoveTo({205, 50});
    EXPECT_EQ(Events(), Strings()) << "no distance, no event";
    window.mouse.MoveTo({5, 150}).MoveTo({5, 170}).MoveTo({5, 190});
    EXPECT_EQ(Events(), Strings{"v 5 300"}) << "nothing more beyond the end";
    window.mouse.MoveTo({5, 110});
    EXPECT_EQ(Events(), Strings{"v 5 250"});
    window.mouse.MoveTo({205, -500}).MoveTo({205, -600});
    EXPECT_EQ(Events(), Strings{"v 5 0"});
    window.mouse.Release();
    EXPECT_EQ(GetCapture(), nullptr);
    window.mouse.MoveTo({205, 60});
    EXPECT_EQ(Events(), Strings());
    EXPECT_EQ(window.TakeNotifications(), std::vector<Noticed>()) << "a thumb is no button that clicks";
}

TEST_F(Scrolling, DraggingSidewaysScrollsTheHorizontalBar)
{
    SetRange(horizontal, -100, 200, 200, -100);  // 200 of track, a thumb of 80 and 120 pixels for 300
    window.mouse.Press({40, 195}).MoveTo({80, 20});
    EXPECT_EQ(Events(), Strings{"h 5 0"});
    window.mouse.MoveTo({30, 20}).Release();
    EXPECT_EQ(Events(), Strings{"h 5 -100"}) << "to the minimum, below 0 too";
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

// --- the track ---------------------------------------------------------------------------------------------

TEST_F(Scrolling, AShortClickOnTheTrackPagesOnce)
{
    // The thumb is 80 long and stands at 60.
    const struct {
        const char* name;
        POINT point;
        Strings events;
        int position;
    } cases[] = {
        {"below the thumb", {205, 180}, {"v 3 0"}, 300},
        {"above the thumb", {205, 20}, {"v 2 0"}, 0},
        {"first pixel above", {205, 59}, {"v 2 0"}, 0},
        {"first pixel below", {205, 140}, {"v 3 0"}, 300},
    };
    for (const auto& c : cases) {
        SetRange(vertical, 0, 300, 200, 150);
        window.mouse.MoveTo(c.point);
        PostAt(window, WM_LBUTTONUP, c.point);
        window.mouse.Press();
        EXPECT_EQ(Events(), c.events) << c.name;
        EXPECT_EQ(PositionOf(vertical), c.position) << c.name;
        EXPECT_EQ(window.GetFocusControl(), box) << c.name;
        EXPECT_EQ(GetCapture(), nullptr) << c.name;
        window.mouse.Release();
    }
}

TEST_F(Scrolling, AReleaseOutsideTheTrackEndsPagingWithoutAPage)
{
    SetRange(horizontal, 0, 300, 200, 0);
    window.mouse.MoveTo({180, 195});
    PostAt(window, WM_MOUSEMOVE, {100, 50});
    PostAt(window, WM_LBUTTONUP, {100, 50});
    window.mouse.Press();
    EXPECT_EQ(Events(), Strings());
    window.mouse.Release();
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

// --- owners and copies -------------------------------------------------------------------------------------

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

TEST_F(ScrollBar, ACopyDragsAThumbOfItsOwn)
{
    CRefPtr<ScrollBox> box = new ScrollBox;
    SetRange(box->Vertical(), 0, 300, 200, 100);
    const CRefPtr<IDUIControl> clone = box->Vertical().Clone();
    auto& copy = *dynamic_cast<CDUIVerticalSB*>(clone.GetPtr());
    EXPECT_EQ(PositionOf(copy), 100);
    EXPECT_EQ(copy.GetScrollOwner(), box.GetPtr());
    ControlWindow window({10, 200}, clone);
    window.mouse.Press({5, 50}).MoveTo({5, 70}).Release();
    EXPECT_EQ(box->TakeEvents(), Strings{"v 5 150"});
    EXPECT_EQ(copy.GetControlCount(), 3);
    for (int i = 0; i < 3; ++i)
        EXPECT_FALSE(copy.GetControlByIndex(i)->GetStyle() & DUISTYLE_TABSTOP);
}

}  // namespace
}  // namespace qvui::test
