#include "controls/scrolling/scroll_box.h"
#include "support/controls/control_test.h"
#include "support/manual_clock.h"

// How paging goes on while the button is held. The display's clock moves only as the loop waits.

namespace qvui::test {
namespace {

using namespace DUI;

class ScrollBarPaging : public ControlTest {
protected:
    /// Presses the track and holds the button for so many milliseconds; the bar pages by 200.
    void Hold(int maximum, POINT press, POINT release, UINT milliseconds)
    {
        SetRange(box->Vertical(), 0, maximum, 200, 0);
        window.mouse.MoveTo(press);
        ReleaseAfter(window, release, milliseconds);
        window.mouse.Press();
    }
    /// Posts the release so many milliseconds from now.
    static void ReleaseAfter(ControlWindow& window, POINT point, UINT milliseconds)
    {
        s_window = &window;
        s_point = point;
        SetTimer(nullptr, 0, milliseconds, [](HWND, UINT, UINT_PTR id, DWORD) {
            KillTimer(nullptr, id);
            PostAt(*s_window, WM_LBUTTONUP, s_point);
        });
    }

    const ManualClock clock;
    ScrollBox* box = new ScrollBox;
    ControlWindow window{{210, 200}, CRefPtr<IDUIControl>(box)};

private:
    static inline ControlWindow* s_window = nullptr;
    static inline POINT s_point{};
};

TEST_F(ScrollBarPaging, HoldingTheButtonPagesEveryTenthOfASecondAndAtTheRelease)
{
    Hold(5000, {205, 190}, {205, 190}, 350);
    EXPECT_EQ(box->TakeEvents(), std::vector<std::string>(4, "v 3 0"));
    EXPECT_EQ(PositionOf(box->Vertical()), 800);
}

TEST_F(ScrollBarPaging, PagingStopsWhenTheThumbArrivesBelowThePointer)
{
    Hold(600, {205, 120}, {205, 120}, 2000);  // the thumb is 50 long, a page moves it by 50
    EXPECT_EQ(box->TakeEvents(), std::vector<std::string>(2, "v 3 0"));
}

TEST_F(ScrollBarPaging, AReleaseOutsideTheTrackEndsPagingWithoutAPage)
{
    Hold(5000, {205, 190}, {100, 50}, 50);
    EXPECT_EQ(box->TakeEvents(), std::vector<std::string>());
}

TEST_F(ScrollBarPaging, PagingNeverTurnsRound)
{
    box->onScroll = [&] {
        box->onScroll = nullptr;
        PostAt(window, WM_MOUSEMOVE, {205, 5});
    };
    Hold(5000, {205, 190}, {205, 5}, 550);
    EXPECT_EQ(box->TakeEvents().size(), 1U) << "above the thumb it does not page the other way";
}

}  // namespace
}  // namespace qvui::test
