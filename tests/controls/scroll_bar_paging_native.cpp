#include "controls/scroll_box.h"
#include "support/controls/control_test.h"
#include "support/manual_clock.h"

// How paging goes on while the button is held. The display's clock moves only as the loop waits.

namespace qvui::test {
namespace {

using namespace DUI;

class ScrollBarPaging : public ControlTest {
protected:
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

private:
    static inline ControlWindow* s_window = nullptr;
    static inline POINT s_point{};
};

TEST_F(ScrollBarPaging, HoldingTheButtonPagesEveryTenthOfASecondAndAtTheRelease)
{
    const ManualClock clock;
    auto* const box = new ScrollBox;
    ControlWindow window({210, 200}, CRefPtr<IDUIControl>(box));
    SetRange(box->Vertical(), 0, 5000, 200, 0);
    window.mouse.MoveTo({205, 190});
    ReleaseAfter(window, {205, 190}, 350);
    window.mouse.Press();
    EXPECT_EQ(box->TakeEvents(), std::vector<std::string>(4, "v 3 0"));
    EXPECT_EQ(PositionOf(box->Vertical()), 800);
    window.mouse.Release();
}

TEST_F(ScrollBarPaging, PagingStopsWhenTheThumbArrivesBelowThePointer)
{
    const ManualClock clock;
    auto* const box = new ScrollBox;
    ControlWindow window({210, 200}, CRefPtr<IDUIControl>(box));
    SetRange(box->Vertical(), 0, 600, 200, 0);  // the thumb is 50 long, a page moves it by 50
    window.mouse.MoveTo({205, 120});
    ReleaseAfter(window, {205, 120}, 2000);
    window.mouse.Press();
    EXPECT_EQ(box->TakeEvents(), std::vector<std::string>(2, "v 3 0"));
    window.mouse.Release();
}

TEST_F(ScrollBarPaging, PagingGoesOnWhenThePointerComesBack)
{
    const ManualClock clock;
    auto* const box = new ScrollBox;
    ControlWindow window({210, 200}, CRefPtr<IDUIControl>(box));
    SetRange(box->Vertical(), 0, 5000, 200, 0);
    window.mouse.MoveTo({205, 190});
    int pages = 0;
    box->onScroll = [&] {
        ++pages;
        if (pages == 1)
            PostAt(window, WM_MOUSEMOVE, {205, 5});
    };
    ReleaseAfter(window, {205, 5}, 550);
    window.mouse.Press();
    EXPECT_EQ(pages, 1) << "above the thumb it does not page the other way";
    window.mouse.Release();
}

}  // namespace
}  // namespace qvui::test
