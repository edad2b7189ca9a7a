#include <qvui/controls/rows/list_box.h>
#include <qvui/controls/rows/tree_view.h>

#include "support/controls/control_test.h"

// What the scripts of tests/scenarios cannot say about list boxes and tree views.

namespace qvui::test {
namespace {

using namespace DUI;

class Rows : public ControlTest {};

TEST_F(Rows, AddedStringsTakeTheirControlStyle)
{
    SkinAdditions additions;
    additions.controlStyles = R"(<control_style name="tall" normal_height="40" select_frame="red"/>)";
    UseSkin(additions);
    CRefPtr<CDUIListBox> list = new CDUIListBox;
    list->AddString("text", "tall");
    auto& item = dynamic_cast<CDUIListItem&>(*list->GetControlByIndex(0));
    EXPECT_EQ(item.GetFixedSize().cy, 40);
    EXPECT_FALSE(item.GetSelectFrameBK().IsNull());
    EXPECT_EQ(list->GetScrollLineStep(), 40);
    list->RemoveAllControl();
    EXPECT_EQ(list->GetScrollLineStep(), 100);
}

TEST_F(Rows, ItemsOutliveTheirList)
{
    CRefPtr<IDUIControl> item = new CDUIListItem;
    {
        CRefPtr<CDUIListBox> list = new CDUIListBox;
        list->AddControl(item);
    }
    item->SetVisible(FALSE);
    item->SetAttribute("expand", "true");
    EXPECT_EQ(item->GetParent(), nullptr);
    {
        CRefPtr<CDUIListBox> list = new CDUIListBox;
        list->AddControl(item);
        list->RemoveAllControl();
        item->SetVisible(TRUE);
        list->AddControl(item);
        EXPECT_EQ(list->CalculateTotalHeight(), 50);
        list->SetControlIndex(item, 0);
        EXPECT_EQ(list->GetControlCount(), 0) << "an index that is not below the count leaves it removed";
        EXPECT_EQ(list->CalculateTotalHeight(), 0);
    }
}

TEST_F(Rows, TreesTakeNodesOnly)
{
    CRefPtr<CDUITreeViewImpl> tree = new CDUITreeViewImpl;
    EXPECT_FALSE(tree->AddControl(new CDUIButton));
    CDUITreeNode* const a = tree->AddNode(nullptr, "a");
    EXPECT_FALSE(a->AddControl(new CDUIButton));
    EXPECT_FALSE(a->AddControl(a)) << "no node below itself";
    CDUITreeNode* const b = tree->AddNode(a, "b");
    EXPECT_FALSE(b->AddControl(a));
    CRefPtr<CDUITreeViewImpl> other = new CDUITreeViewImpl;
    EXPECT_EQ(other->AddNode(a, "c"), nullptr) << "a parent in another tree";
    EXPECT_FALSE(other->RemoveNode(a));
    EXPECT_FALSE(other->SelectNode(a));
    EXPECT_FALSE(other->ExpandNode(a, TRUE));
    EXPECT_EQ(other->GetRowOfNode(a), -1);
}

TEST_F(Rows, NodesAreAddedFoundAndRemoved)
{
    ControlWindow window({100, 200}, "<treeview/>");
    auto& tree = window.Root<CDUITreeViewImpl>();
    const auto rows = [&tree] {
        std::string text;
        for (int row = 0; row < tree.GetRowCount(); ++row) {
            text += tree.GetNodeAtRow(row)->GetText().GetString();
            EXPECT_EQ(tree.GetRowOfNode(tree.GetNodeAtRow(row)), row);
        }
        return text;
    };
    CDUITreeNode* const a = tree.AddNode(nullptr, "a");
    tree.AddNode(a, "c");
    CDUITreeNode* const d = tree.AddNode(nullptr, "d");
    tree.ExpandNode(a, TRUE);
    tree.InsertNode(a, 0, "b")->SetItemData(7);
    EXPECT_EQ(rows(), "abcd");
    EXPECT_EQ(tree.InsertNode(a, 3, "x"), nullptr);
    EXPECT_EQ(tree.InsertNode(a, -1, "x"), nullptr);
    tree.InsertNode(nullptr, 2, "b");
    CDUITreeNode* const e = tree.AddNode(d, "e");
    EXPECT_EQ(rows(), "abcdb");
    EXPECT_EQ(tree.GetRowOfNode(e), -1) << "d is not expanded";
    EXPECT_EQ(tree.FindNodeByData(7), tree.FindNode("b"));
    EXPECT_EQ(tree.GetRowOfNode(tree.FindNode("b", tree.FindNode("b"))), 4);
    EXPECT_EQ(tree.FindNode("b", tree.FindNode("b", tree.FindNode("b"))), nullptr);
    EXPECT_EQ(tree.FindNode("e"), e);
    EXPECT_EQ(e->GetParentNode(), d);
    EXPECT_EQ(e->GetLevel(), 1);
    EXPECT_TRUE(tree.RemoveNode(a));
    EXPECT_EQ(rows(), "db");
    d->RemoveAllControl();
    EXPECT_EQ(tree.FindNode("e"), nullptr);
    tree.RemoveAllControl();
    EXPECT_EQ(tree.GetRowCount(), 0);
    EXPECT_EQ(tree.GetNextNode(nullptr), nullptr);
}

TEST_F(Rows, NodesOutliveTheirTree)
{
    CRefPtr<CDUITreeNode> a = new CDUITreeNode;
    CRefPtr<CDUITreeNode> b = new CDUITreeNode;
    {
        CRefPtr<CDUITreeViewImpl> tree = new CDUITreeViewImpl;
        tree->AddControl(a.GetPtr());
        a->AddControl(b.GetPtr());
        a->SetExpand(TRUE);
        EXPECT_EQ(tree->GetRowCount(), 2);
    }
    EXPECT_EQ(a->GetTree(), nullptr);
    b->SetVisible(FALSE);
    EXPECT_EQ(b->GetParentNode(), a.GetPtr());
    CRefPtr<CDUITreeViewImpl> tree = new CDUITreeViewImpl;
    tree->AddControl(a.GetPtr());
    EXPECT_EQ(tree->GetRowCount(), 1);
    b->SetVisible(TRUE);
    EXPECT_EQ(tree->GetRowCount(), 2);
    a = nullptr;
    tree->RemoveAllControl();
    EXPECT_EQ(b->GetParentNode(), nullptr);
    b->SetExpand(TRUE);
}

}  // namespace
}  // namespace qvui::test
