#include <qvui/controls/rows/list_box.h>
#include <qvui/controls/rows/tree_view.h>

#include <random>

#include "controls/scrolling/scroll_box.h"
#include "support/controls/control_test.h"

// Lists and trees of very many rows: what they do is counted, and that it is right is checked against the
// plain rules.

namespace qvui::test {
namespace {

using namespace DUI;

constexpr int kMany = 20000;

/// A row that counts the calls of its container.
template <class Row>
class Counted : public Row {
public:
    explicit Counted(int& calls) : m_calls(calls) {}

    void SetControlRect(const RECT& rect) override
    {
        ++m_calls;
        Row::SetControlRect(rect);
    }
    void DoPaint(HDC hdc, const RECT& rcPaint) override
    {
        ++m_calls;
        Row::DoPaint(hdc, rcPaint);
    }
    IDUIControl* FindControl(FindControlProc proc, void* pData, UINT flags) override
    {
        ++m_calls;
        return Row::FindControl(proc, pData, flags);
    }
    LRESULT OnDUIEvent(const tagDUIEvent& event, BOOL& bHandled) override
    {
        // Every item of a list box hears of the window's size; a tree view keeps it to itself.
        m_calls += event.Type != DUIEVENT_WINDOWSIZE || std::is_same_v<Row, CDUITreeNode>;
        return Row::OnDUIEvent(event, bHandled);
    }
    void OnParentVisibleStatusChange(BOOL bVisible) override
    {
        m_calls += std::is_same_v<Row, CDUITreeNode>;
        Row::OnParentVisibleStatusChange(bVisible);
    }

private:
    int& m_calls;
};

template <class View, class Row>
class RowViewTest : public ControlTest {
protected:
    Row* Add(IDUIControl& parent)
    {
        Row* const row = new Counted<Row>(calls);
        parent.AddControl(row);
        return row;
    }
    /// How many calls a deed and the paint behind it cost.
    template <class Act>
    int CostOf(Act act)
    {
        calls = 0;
        act();
        window.Paint();
        return calls;
    }
    /// What must be painted after a deed.
    template <class Act>
    std::string InvalidBy(Act act)
    {
        window.Paint();
        window.Validate();
        act();
        return Text(window.Invalid());
    }
    int Pick(int count) { return static_cast<int>(m_random() % static_cast<unsigned>(count)); }

    int calls = 0;
    View* view = new View;
    ControlWindow window{{100, 100}, CRefPtr<IDUIControl>(view)};

private:
    std::mt19937 m_random{7};
};

// --- list boxes --------------------------------------------------------------------------------------------

class ListBoxSize : public RowViewTest<CDUIListBox, CDUIListItem> {
protected:
    void Append(int count)
    {
        for (int i = 0; i < count; ++i)
            Add(*view);
    }
    /// Where the items stand, by the rules and item by item.
    std::string PlainArrangement() const
    {
        const auto height = [this](int i) {
            IDUIControl& item = *view->GetControlByIndex(i);
            return item.IsVisible(FALSE) ? item.GetFixedSize().cy : 0;
        };
        const int count = view->GetControlCount();
        int total = 0;
        for (int i = 0; i < count; ++i)
            total += height(i);
        const bool hasBar = total > 100;
        int top = 0;
        for (int sum = 0; hasBar && top < count; ++top)
            if ((sum += height(top)) > PositionOf(*view->GetVerticalSB()))
                break;
        std::string text = "total " + std::to_string(total) + (hasBar ? " bar" : "");
        for (int i = top, y = 0; i < count && y < 100; y += height(i), ++i)
            if (view->GetControlByIndex(i)->IsVisible(FALSE))
                text += Entry(i, y, y + height(i));
        return text;
    }
    std::string Arrangement() const
    {
        std::string text = "total " + std::to_string(view->CalculateTotalHeight()) +
                           (view->GetVerticalSB()->IsVisible(FALSE) ? " bar" : "");
        for (int i = view->GetTopIndex(); i <= view->GetLastIndex() && i < view->GetControlCount(); ++i) {
            IDUIControl& item = *view->GetControlByIndex(i);
            if (item.IsVisible(FALSE))
                text += Entry(i, item.GetControlRect().top, item.GetControlRect().bottom);
        }
        return text;
    }

private:
    static std::string Entry(int index, int top, int bottom)
    {
        return "; " + std::to_string(index) + " at " + Text(POINT{top, bottom});
    }
};

TEST_F(ListBoxSize, AppendingCostsWhatIsInView)
{
    Append(kMany);
    EXPECT_LT(calls, 100);
    EXPECT_EQ(Arrangement(), PlainArrangement());
    SCROLLINFO info{};
    view->GetVerticalSB()->GetScrollBarInfo(&info);
    EXPECT_EQ(info.nMax, kMany * 25 - 100 + 2);
    EXPECT_EQ(InvalidBy([&] { Append(1); }), "90,0,100,100") << "the scroll bar alone repaints itself";

    // What is not shown is not laid out.
    view->RemoveAllControl();
    view->SetVisible(FALSE);
    view->SetControlRect({0, 0, 0, 0});
    calls = 0;
    Append(1000);
    EXPECT_EQ(calls, 0);
    view->SetVisible(TRUE);
    EXPECT_EQ(Arrangement(), PlainArrangement());
}

TEST_F(ListBoxSize, StepsAndHoversCostWhatIsInView)
{
    Append(kMany);
    view->SetFocus(TRUE);
    EXPECT_LT(CostOf([&] { window.mouse.MoveTo({50, 50}).Wheel(-1); }), 80);
    EXPECT_LT(CostOf([&] { window.mouse.MoveTo({50, 80}); }), 40);
    EXPECT_LT(CostOf([&] { view->SetTopIndex(kMany / 2); }), 30);
    EXPECT_EQ(view->GetTopIndex(), kMany / 2);
    EXPECT_LT(CostOf([&] { window.mouse.Click({50, 30}); }), 80);
    EXPECT_EQ(view->GetCurSel(), kMany / 2 + 1);
    EXPECT_LT(CostOf([&] { window.keys.Press(VK_DOWN); }), 40);
    EXPECT_LT(CostOf([&] { window.Resize({100, 120}); }), 40);
    // Hidden items between those in view are stepped over, not visited.
    window.LockLayout(TRUE);
    for (int i = kMany / 2 + 1; i < kMany - 1; ++i)
        view->GetControlByIndex(i)->SetVisible(FALSE);
    window.LockLayout(FALSE);
    view->UpdateLayout(TRUE, nullptr);
    EXPECT_LT(CostOf([&] { window.mouse.MoveTo({50, 20}).MoveTo({50, 40}); }), 60);
    view->SetTopIndex(kMany - 1);
    EXPECT_EQ(view->GetLastIndex(), kMany - 1);
    EXPECT_LT(view->GetTopIndex(), kMany / 2);
}

TEST_F(ListBoxSize, AnyChangeLeavesItemsWhereTheRulesPutThem)
{
    for (int step = 0; step < 1500; ++step) {
        const int count = view->GetControlCount();
        auto* const item =
            count > 0 ? dynamic_cast<CDUIListItem*>(view->GetControlByIndex(Pick(count))) : nullptr;
        switch (item ? Pick(10) : 0) {
            case 0:
            case 1:
                Append(1);
                break;
            case 2:
                view->AddControlAt(Pick(count), new CDUIListItem);
                break;
            case 3:
                view->RemoveControl(item);
                break;
            case 4:
                view->RemoveControlAt(Pick(count));
                break;
            case 5:
                item->SetVisible(Pick(2));
                break;
            case 6:
                item->SetExpand(Pick(2));
                break;
            case 7:
                item->SetHeight(FALSE, Pick(60));
                break;
            case 8:
                if (Pick(30) == 0)
                    view->RemoveAllControl();
                break;
            default:
                view->SetTopIndex(Pick(count));
        }
        ASSERT_EQ(Arrangement(), PlainArrangement()) << "step " << step;
        for (int i = 0; i < view->GetControlCount(); ++i)
            ASSERT_EQ(view->GetControlIndex(view->GetControlByIndex(i)), i) << "step " << step;
    }
}

// --- tree views --------------------------------------------------------------------------------------------

class TreeViewSize : public RowViewTest<CDUITreeViewImpl, CDUITreeNode> {};

TEST_F(TreeViewSize, BuildingCostsWhatIsInView)
{
    CDUITreeNode* const top = Add(*view);
    top->SetExpand(TRUE);
    CDUITreeNode* parent = nullptr;
    for (int i = 0; i < kMany; ++i) {
        if (i % 100 == 0) {
            parent = Add(*top);
            parent->SetExpand(i % 200 == 0);
        }
        Add(*parent);
    }
    EXPECT_LT(calls, 200);
    EXPECT_EQ(view->GetRowCount(), 1 + kMany / 100 + kMany / 2);
    EXPECT_EQ(InvalidBy([&] { Add(*parent); }), "90,0,100,100") << "the scroll bar alone repaints itself";
}

TEST_F(TreeViewSize, EverythingCostsWhatIsInView)
{
    CDUITreeNode* const first = Add(*view);
    CDUITreeNode* const second = Add(*view);
    for (int i = 0; i < kMany; ++i)
        Add(i % 2 ? *first : *second);
    EXPECT_LT(calls, 100);
    view->SetFocus(TRUE);
    EXPECT_LT(CostOf([&] { view->ExpandNode(first, TRUE); }), 30);
    EXPECT_LT(CostOf([&] { view->ExpandNode(second, TRUE); }), 30);
    EXPECT_EQ(view->GetRowCount(), kMany + 2);
    EXPECT_LT(CostOf([&] { window.mouse.MoveTo({50, 50}).Wheel(-1); }), 60);
    EXPECT_LT(CostOf([&] { window.mouse.MoveTo({50, 80}); }), 40);
    EXPECT_LT(CostOf([&] { window.keys.Press(VK_END); }), 30);
    EXPECT_EQ(view->GetRowOfNode(view->GetSelectedNode()), kMany + 1);
    EXPECT_LT(CostOf([&] { window.keys.Press(VK_PRIOR); }), 30);
    EXPECT_LT(CostOf([&] { window.mouse.Click({50, 30}); }), 60);
    EXPECT_LT(CostOf([&] { window.Resize({100, 120}); }), 30) << "a broadcast ends at the view";
    EXPECT_LT(CostOf([&] { view->SetVisible(FALSE); }), 30) << "and so does the news that it is hidden";
    view->SetVisible(TRUE);
    EXPECT_LT(CostOf([&] { first->GetChildNode(7)->SetVisible(FALSE); }), 30);
    EXPECT_LT(CostOf([&] { view->RemoveNode(second->GetChildNode(0)); }), 30);
    EXPECT_LT(CostOf([&] { second->SetVisible(FALSE); }), 30) << "rows in view alone";
    second->SetVisible(TRUE);
    EXPECT_LT(CostOf([&] { view->ExpandNode(first, FALSE); }), 30);
    EXPECT_EQ(view->GetRowCount(), kMany / 2 + 1);
}

TEST_F(TreeViewSize, ExpandsEverythingInOneLayout)
{
    CDUITreeNode* parent = Add(*view);
    for (int i = 0; i < 20000; ++i) {
        Add(*parent);
        if (i % 100 == 99)
            parent = parent->GetChildNode(50);
    }
    calls = 0;
    view->ExpandAll(nullptr, TRUE);
    EXPECT_EQ(view->GetRowCount(), 20001);
    EXPECT_LT(calls, 20);
    view->SelectNode(view->GetNodeAtRow(10000));
    view->ExpandAll(nullptr, FALSE);
    EXPECT_EQ(view->GetRowCount(), 1);
    EXPECT_EQ(view->GetSelectedNode(), view->GetNodeAtRow(0));
}

void CollectRows(IDUIControl& parent, std::vector<CDUITreeNode*>& rows)
{
    for (int i = 0; i < parent.GetControlCount(); ++i) {
        auto* const node = dynamic_cast<CDUITreeNode*>(parent.GetControlByIndex(i));
        if (!node->IsVisible(FALSE))
            continue;
        rows.push_back(node);
        if (node->GetExpand())
            CollectRows(*node, rows);
    }
}

TEST_F(TreeViewSize, AnyChangeLeavesTheRowsRight)
{
    std::vector<CRefPtr<CDUITreeNode>> nodes;
    for (int step = 0; step < 2000; ++step) {
        SCOPED_TRACE(step);
        std::erase_if(nodes, [&](const auto& node) { return node->GetTree() != view; });
        CDUITreeNode* const node =
            nodes.empty() ? nullptr
                          : nodes[static_cast<std::size_t>(Pick(static_cast<int>(nodes.size())))].GetPtr();
        switch (node ? Pick(10) : 0) {
            case 0:
                nodes.push_back(Add(*view));
                break;
            case 1:
            case 2:
            case 3:
                nodes.push_back(Add(*node));
                break;
            case 4:
                if (node->GetControlCount() > 0) {
                    nodes.push_back(new CDUITreeNode);
                    node->AddControlAt(Pick(node->GetControlCount()), nodes.back().GetPtr());
                }
                break;
            case 5:
                if (Pick(3) == 0)
                    view->RemoveNode(node);
                else if (Pick(60) == 0)
                    view->RemoveAllControl();
                break;
            case 6:
                node->SetVisible(Pick(3) > 0);
                break;
            case 7:
                node->SetExpand(Pick(2));
                break;
            case 8:
                view->ExpandNode(node, Pick(2));
                break;
            default:
                if (Pick(4) == 0)
                    view->EnsureVisible(node);
                else
                    view->SetTopRow(Pick(30));
        }
        std::vector<CDUITreeNode*> rows;
        CollectRows(*view, rows);
        ASSERT_EQ(view->GetRowCount(), static_cast<int>(rows.size()));
        for (int row = 0; row < view->GetRowCount(); ++row) {
            CDUITreeNode* const expected = rows[static_cast<std::size_t>(row)];
            ASSERT_EQ(view->GetNodeAtRow(row), expected);
            ASSERT_EQ(view->GetRowOfNode(expected), row);
            const int place = row - view->GetTopRow();
            ASSERT_TRUE(place < 0 || place >= 4 || expected->GetControlRect().top == place * 25);
        }
        const bool hasBar = view->GetRowCount() * 25 > 100;
        ASSERT_EQ(view->GetVerticalSB()->IsVisible(FALSE) != FALSE, hasBar);
        ASSERT_EQ(view->GetTopRow(), hasBar ? (PositionOf(*view->GetVerticalSB()) + 24) / 25 : 0);
    }
}

}  // namespace
}  // namespace qvui::test
