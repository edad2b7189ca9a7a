#include <qvui/controls/tree_view.h>

#include <random>

#include "controls/pixels.h"
#include "controls/scroll_box.h"
#include "support/controls/control_test.h"

// Trees of very many nodes: what they do is counted, and that it is right is checked by walking all nodes.

namespace qvui::test {
namespace {

using namespace DUI;

struct Counts {
    int placed = 0;
    int painted = 0;
    int offered = 0;  // to searches
    int events = 0;

    int Total() const { return placed + painted + offered + events; }
};

class CountedNode : public CDUITreeNode {
public:
    explicit CountedNode(Counts& counts) : m_counts(counts) {}

    void SetControlRect(const RECT& rect) override
    {
        ++m_counts.placed;
        CDUITreeNode::SetControlRect(rect);
    }
    void DoPaint(HDC hdc, const RECT& rcPaint) override
    {
        ++m_counts.painted;
        CDUITreeNode::DoPaint(hdc, rcPaint);
    }
    IDUIControl* FindControl(FindControlProc proc, void* pData, UINT flags) override
    {
        ++m_counts.offered;
        return CDUITreeNode::FindControl(proc, pData, flags);
    }
    LRESULT OnDUIEvent(const tagDUIEvent& event, BOOL& bHandled) override
    {
        ++m_counts.events;
        return CDUITreeNode::OnDUIEvent(event, bHandled);
    }

private:
    Counts& m_counts;
};

class TreeViewSize : public ControlTest {
protected:
    static constexpr int kMany = 100000;

    CDUITreeNode* Add(IDUIControl& parent)
    {
        auto* const node = new CountedNode(counts);
        parent.AddControl(node);
        return node;
    }

    Counts counts;
};

CDUITreeViewImpl& RootTree(ControlWindow& window)
{
    return *dynamic_cast<CDUITreeViewImpl*>(window.GetRootControl());
}

TEST_F(TreeViewSize, BuildingCostsWhatIsInView)
{
    ControlWindow window({100, 100}, "<treeview/>");
    CDUITreeViewImpl& tree = RootTree(window);
    CDUITreeNode* const top = Add(tree);
    top->SetExpand(TRUE);
    CDUITreeNode* parent = nullptr;
    for (int i = 0; i < kMany; ++i) {
        if (i % 100 == 0) {
            parent = Add(*top);
            parent->SetExpand(i % 200 == 0);
        }
        Add(*parent);
    }
    EXPECT_LT(counts.Total(), 200);
    EXPECT_EQ(tree.GetRowCount(), 1 + kMany / 100 + kMany / 2);

    window.Paint();
    window.Validate();
    Add(*parent);
    EXPECT_EQ(Text(window.Invalid()), "90,0,100,100") << "the bar alone repaints itself";
}

TEST_F(TreeViewSize, EverythingCostsWhatIsInView)
{
    ControlWindow window({100, 100}, "<treeview/>");
    CDUITreeViewImpl& tree = RootTree(window);
    CDUITreeNode* const first = Add(tree);
    CDUITreeNode* const second = Add(tree);
    for (int i = 0; i < kMany; ++i)
        Add(i % 2 ? *first : *second);
    EXPECT_LT(counts.Total(), 100);
    tree.SetFocus(TRUE);
    const auto costOf = [&](auto act) {
        counts = {};
        act();
        window.Paint();
        return counts.Total();
    };
    EXPECT_LT(costOf([&] { tree.ExpandNode(first, TRUE); }), 30);
    EXPECT_LT(costOf([&] { tree.ExpandNode(second, TRUE); }), 30);
    EXPECT_EQ(tree.GetRowCount(), kMany + 2);
    EXPECT_LT(costOf([&] { window.mouse.MoveTo({50, 50}).Wheel(-1); }), 60);
    EXPECT_LT(costOf([&] { window.mouse.MoveTo({50, 80}); }), 40);
    EXPECT_LT(costOf([&] { window.keys.Press(VK_END); }), 30);
    EXPECT_EQ(tree.GetRowOfNode(tree.GetSelectedNode()), kMany + 1);
    EXPECT_LT(costOf([&] { window.keys.Press(VK_PRIOR); }), 30);
    EXPECT_LT(costOf([&] { window.mouse.Click({50, 30}); }), 60);
    EXPECT_LT(costOf([&] { window.Resize({100, 120}); }), 30) << "a broadcast ends at the view";
    EXPECT_LT(costOf([&] { first->GetChildNode(7)->SetVisible(FALSE); }), 30);
    EXPECT_LT(costOf([&] { tree.RemoveNode(second->GetChildNode(0)); }), 30);
    EXPECT_LT(costOf([&] { tree.ExpandNode(first, FALSE); }), 30);
    EXPECT_EQ(tree.GetRowCount(), kMany / 2 + 1);
}

TEST_F(TreeViewSize, ExpandsEverythingInOneLayout)
{
    ControlWindow window({100, 100}, "<treeview/>");
    CDUITreeViewImpl& tree = RootTree(window);
    CDUITreeNode* parent = Add(tree);
    for (int i = 0; i < 20000; ++i) {
        Add(*parent);
        if (i % 100 == 99)
            parent = parent->GetChildNode(50);
    }
    counts = {};
    tree.ExpandAll(nullptr, TRUE);
    EXPECT_EQ(tree.GetRowCount(), 20001);
    EXPECT_LT(counts.Total(), 20);
    tree.SelectNode(tree.GetNodeAtRow(10000));
    tree.ExpandAll(nullptr, FALSE);
    EXPECT_EQ(tree.GetRowCount(), 1);
    EXPECT_EQ(tree.GetSelectedNode(), tree.GetNodeAtRow(0));
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
    std::mt19937 random(11);
    const auto pick = [&random](int count) {
        return static_cast<int>(random() % static_cast<unsigned>(count));
    };
    ControlWindow window({100, 100}, "<treeview/>");
    CDUITreeViewImpl& tree = RootTree(window);
    std::vector<CRefPtr<CDUITreeNode>> nodes;
    for (int step = 0; step < 2000; ++step) {
        std::erase_if(nodes, [&](const auto& node) { return node->GetTree() != &tree; });
        CDUITreeNode* const node =
            nodes.empty() ? nullptr
                          : nodes[static_cast<std::size_t>(pick(static_cast<int>(nodes.size())))].GetPtr();
        switch (node ? pick(10) : 0) {
            case 0:
                nodes.push_back(Add(tree));
                break;
            case 1:
            case 2:
            case 3:
                nodes.push_back(Add(*node));
                break;
            case 4:
                if (node->GetControlCount() > 0) {
                    nodes.push_back(new CountedNode(counts));
                    node->AddControlAt(pick(node->GetControlCount()), nodes.back().GetPtr());
                }
                break;
            case 5:
                if (pick(3) == 0)
                    tree.RemoveNode(node);
                break;
            case 6:
                node->SetVisible(pick(3) > 0);
                break;
            case 7:
                node->SetExpand(pick(2));
                break;
            case 8:
                tree.ExpandNode(node, pick(2));
                break;
            default:
                if (pick(4) == 0)
                    tree.EnsureVisible(node);
                else
                    tree.SetTopRow(pick(30));
        }
        std::vector<CDUITreeNode*> rows;
        CollectRows(tree, rows);
        ASSERT_EQ(tree.GetRowCount(), static_cast<int>(rows.size())) << "step " << step;
        for (int row = 0; row < tree.GetRowCount(); ++row) {
            CDUITreeNode* const expected = rows[static_cast<std::size_t>(row)];
            ASSERT_EQ(tree.GetNodeAtRow(row), expected) << "step " << step;
            ASSERT_EQ(tree.GetRowOfNode(expected), row) << "step " << step;
            const int place = row - tree.GetTopRow();
            if (place >= 0 && place < 4) {
                ASSERT_EQ(expected->GetControlRect().top, place * 25) << "step " << step;
            }
        }
        const bool hasBar = tree.GetRowCount() * 25 > 100;
        ASSERT_EQ(tree.GetVerticalSB()->IsVisible(FALSE) != FALSE, hasBar) << "step " << step;
        ASSERT_EQ(tree.GetTopRow(), hasBar ? (PositionOf(*tree.GetVerticalSB()) + 24) / 25 : 0)
            << "step " << step;
    }
}

}  // namespace
}  // namespace qvui::test
