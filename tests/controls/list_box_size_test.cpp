#include <qvui/controls/list_box.h>

#include <random>

#include "controls/pixels.h"
#include "controls/scroll_box.h"
#include "support/controls/control_test.h"

// Lists of very many items: what they do is counted, and that it is right is checked against the plain rules.

namespace qvui::test {
namespace {

using namespace DUI;

struct Counts {
    int placed = 0;
    int painted = 0;
    int offered = 0;  // to searches

    int Total() const { return placed + painted + offered; }
};

class CountedItem : public CDUIListItem {
public:
    explicit CountedItem(Counts& counts) : m_counts(counts) {}

    void SetControlRect(const RECT& rect) override
    {
        ++m_counts.placed;
        CDUIListItem::SetControlRect(rect);
    }
    void DoPaint(HDC hdc, const RECT& rcPaint) override
    {
        ++m_counts.painted;
        CDUIListItem::DoPaint(hdc, rcPaint);
    }
    IDUIControl* FindControl(FindControlProc proc, void* pData, UINT flags) override
    {
        ++m_counts.offered;
        return CDUIListItem::FindControl(proc, pData, flags);
    }

private:
    Counts& m_counts;
};

class ListBoxSize : public ControlTest {
protected:
    static constexpr int kMany = 100000;

    void Append(CDUIListBox& list, int count)
    {
        for (int i = 0; i < count; ++i)
            list.AddControl(new CountedItem(counts));
    }

    Counts counts;
};

CDUIListBox& RootList(ControlWindow& window)
{
    return *dynamic_cast<CDUIListBox*>(window.GetRootControl());
}

/// Where the items stand, by the rules and item by item.
std::string PlainArrangement(CDUIListBox& list, int position)
{
    const auto height = [&](int i) {
        return list.GetControlByIndex(i)->IsVisible(FALSE) ? list.GetControlByIndex(i)->GetFixedSize().cy : 0;
    };
    const RECT rect = list.GetControlRect();
    int total = 0;
    for (int i = 0; i < list.GetControlCount(); ++i)
        total += height(i);
    const bool hasBar = total > rect.bottom - rect.top;
    int top = 0;
    for (int sum = 0; hasBar && top < list.GetControlCount(); ++top)
        if ((sum += height(top)) > position)
            break;
    std::string text = "total " + std::to_string(total);
    int y = rect.top;
    for (int i = top; i < list.GetControlCount() && y < rect.bottom; ++i) {
        if (!list.GetControlByIndex(i)->IsVisible(FALSE))
            continue;
        text += "; " + std::to_string(i) + " at " + std::to_string(y) + "-" + std::to_string(y + height(i));
        y += height(i);
    }
    return text + (hasBar ? " bar" : "");
}

std::string Arrangement(CDUIListBox& list)
{
    std::string text = "total " + std::to_string(list.CalculateTotalHeight());
    for (int i = list.GetTopIndex(); i <= list.GetLastIndex() && i < list.GetControlCount(); ++i) {
        const RECT rect = list.GetControlByIndex(i)->GetControlRect();
        if (list.GetControlByIndex(i)->IsVisible(FALSE))
            text += "; " + std::to_string(i) + " at " + std::to_string(rect.top) + "-" +
                    std::to_string(rect.bottom);
    }
    return text + (list.GetVerticalSB()->IsVisible(FALSE) ? " bar" : "");
}

TEST_F(ListBoxSize, AppendingCostsWhatIsInView)
{
    ControlWindow window({100, 100}, "<listbox/>");
    CDUIListBox& list = RootList(window);
    Append(list, kMany);
    EXPECT_LT(counts.Total(), 100);
    EXPECT_EQ(Arrangement(list), PlainArrangement(list, 0));
    SCROLLINFO info{};
    list.GetVerticalSB()->GetScrollBarInfo(&info);
    EXPECT_EQ(info.nMax, kMany * 25 - 100 + 2);

    // The window is not laid out for what nobody sees: the scroll bar repaints itself, no more.
    window.Paint();
    window.Validate();
    Append(list, 1);
    EXPECT_EQ(Text(window.Invalid()), "90,0,100,100");
}

TEST_F(ListBoxSize, AppendingToAHiddenListLaysOutNothing)
{
    ControlWindow window({100, 100},
                         R"(<dialog_layout><listbox name="list" visible="false"/></dialog_layout>)");
    auto& list = *window.Find<CDUIListBox>("list");
    Append(list, 1000);
    EXPECT_EQ(counts.placed, 0);
    list.SetVisible(TRUE);
    list.SetControlRect({0, 0, 100, 100});
    EXPECT_EQ(Arrangement(list), PlainArrangement(list, 0));
}

TEST_F(ListBoxSize, StepsAndHoversCostWhatIsInView)
{
    ControlWindow window({100, 100}, "<listbox/>");
    CDUIListBox& list = RootList(window);
    Append(list, kMany);
    list.SetFocus(TRUE);
    window.Paint();
    const auto costOf = [&](auto act) {
        counts = {};
        act();
        window.Paint();
        return counts.Total();
    };
    EXPECT_LT(costOf([&] { window.mouse.MoveTo({50, 50}).Wheel(-1); }), 40);
    EXPECT_LT(costOf([&] { window.mouse.MoveTo({50, 80}); }), 30);
    EXPECT_LT(costOf([&] { list.SetTopIndex(kMany / 2); }), 30);
    EXPECT_EQ(list.GetTopIndex(), kMany / 2);
    EXPECT_LT(costOf([&] { window.mouse.Click({50, 30}); }), 60);
    EXPECT_EQ(list.GetCurSel(), kMany / 2 + 1);
    EXPECT_LT(costOf([&] { window.keys.Press(VK_DOWN); }), 40);
    EXPECT_LT(costOf([&] { window.Resize({100, 120}); }), 40);
    // Hidden items between those in view are stepped over, not visited.
    window.LockLayout(TRUE);
    for (int i = kMany / 2 + 1; i < kMany - 1; ++i)
        list.GetControlByIndex(i)->SetVisible(FALSE);
    window.LockLayout(FALSE);
    list.UpdateLayout(TRUE, nullptr);
    EXPECT_LT(costOf([&] { window.mouse.MoveTo({50, 20}).MoveTo({50, 40}); }), 40);
    list.SetTopIndex(kMany - 1);
    EXPECT_EQ(list.GetLastIndex(), kMany - 1);
    EXPECT_LT(list.GetTopIndex(), kMany / 2);
}

TEST_F(ListBoxSize, AnyChangeLeavesItemsWhereTheRulesPutThem)
{
    std::mt19937 random(7);
    const auto pick = [&random](int count) {
        return static_cast<int>(random() % static_cast<unsigned>(count));
    };
    ControlWindow window({100, 100}, "<listbox/>");
    CDUIListBox& list = RootList(window);
    for (int step = 0; step < 1500; ++step) {
        const int count = list.GetControlCount();
        CDUIListItem* const item =
            count > 0 ? dynamic_cast<CDUIListItem*>(list.GetControlByIndex(pick(count))) : nullptr;
        switch (item ? pick(9) : 0) {
            case 0:
            case 1:
                Append(list, 1);
                break;
            case 2:
                list.AddControlAt(pick(count), new CountedItem(counts));
                break;
            case 3:
                list.RemoveControl(item);
                break;
            case 4:
                list.RemoveControlAt(pick(count));
                break;
            case 5:
                item->SetVisible(pick(2));
                break;
            case 6:
                item->SetExpand(pick(2));
                break;
            case 7:
                item->SetHeight(FALSE, pick(60));
                break;
            default:
                list.SetTopIndex(pick(count));
        }
        const int position = PositionOf(*list.GetVerticalSB());
        ASSERT_EQ(Arrangement(list), PlainArrangement(list, position)) << "step " << step;
        for (int i = 0; i < list.GetControlCount(); ++i)
            ASSERT_EQ(list.GetControlIndex(list.GetControlByIndex(i)), i) << "step " << step;
    }
}

TEST_F(ListBoxSize, RemovingFromTheFrontKeepsFinding)
{
    ControlWindow window({100, 100}, "<listbox/>");
    CDUIListBox& list = RootList(window);
    Append(list, 2000);
    for (int i = 0; i < 1500; ++i)
        list.RemoveControlAt(0);
    window.mouse.Click({50, 30});
    EXPECT_EQ(list.GetCurSel(), 1);
    EXPECT_EQ(list.GetControlIndex(list.GetControlByIndex(499)), 499);
}

}  // namespace
}  // namespace qvui::test
