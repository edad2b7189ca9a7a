#include <qvui/controls/rows/tree_view.h>

#include "controls/pixels.h"
#include "controls/rows/row_views.h"

namespace qvui::test {
namespace {

using namespace DUI;
using Strings = std::vector<std::string>;

class TreeView : public ControlTest {};

/// A tree called "tree" of nodes of one letter: "a!(bc(d))e" has a with b and c, c with d, and e; "!"
/// expands.
std::string Tree(const std::string& nodes, const std::string& attributes = "",
                 const std::string& nodeAttributes = "")
{
    std::string text = "<treeview name=\"tree\" item_height=\"20\" indent=\"10\" " + attributes + ">";
    for (std::size_t i = 0; i < nodes.size(); ++i) {
        if (nodes[i] == ')') {
            text += "</treeview_item>";
            continue;
        }
        const std::string name = nodes.substr(i, 1);
        text += "<treeview_item text=\"#" + name + "\" name=\"" + name + "\" " + nodeAttributes;
        if (nodes.substr(i + 1, 1) == "!") {
            text += " expand=\"true\"";
            ++i;
        }
        const bool hasChildren = nodes.substr(i + 1, 1) == "(";
        text += hasChildren ? ">" : "/>";
        i += hasChildren;
    }
    return text + "</treeview>";
}

CDUITreeViewImpl& TreeOf(ControlWindow& window)
{
    return *window.Find<CDUITreeViewImpl>("tree");
}

CDUITreeNode* Node(CDUITreeViewImpl& tree, const char* text)
{
    CDUITreeNode* const node = tree.FindNode(text);
    EXPECT_NE(node, nullptr) << text;
    return node;
}

/// The texts of the shown rows.
std::string Rows(CDUITreeViewImpl& tree)
{
    std::string text;
    for (int row = 0; row < tree.GetRowCount(); ++row) {
        text += tree.GetNodeAtRow(row)->GetText().GetString();
        EXPECT_EQ(tree.GetRowOfNode(tree.GetNodeAtRow(row)), row);
    }
    return text;
}

/// The rows in view with the tops that a hit test finds, "b0 c20".
std::string InView(ControlWindow& window, CDUITreeViewImpl& tree)
{
    std::string text;
    const RECT rect = tree.GetControlRect();
    for (POINT point{rect.left + 5, rect.top}; point.y < rect.bottom; ++point.y) {
        auto* const node = dynamic_cast<CDUITreeNode*>(window.FindControl(&point));
        if (!node || node->GetControlRect().top != point.y)
            continue;
        text += text.empty() ? "" : " ";
        text += node->GetText();
        text += std::to_string(point.y);
    }
    return text;
}

Strings Noted(ControlWindow& window)
{
    return Noted(window, DUINOTIFY_TREEEXPAND);
}

/// Where the row of that number can be pressed, right of all expanders.
POINT At(int row)
{
    return {90, row * 20 + 10};
}

// --- nodes and rows ----------------------------------------------------------------------------------------

TEST_F(TreeView, TakesNodesOnly)
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

TEST_F(TreeView, AddsFindsAndRemovesNodes)
{
    ControlWindow window({100, 200}, Tree("a!(c)d"));
    CDUITreeViewImpl& tree = TreeOf(window);
    CDUITreeNode* const a = Node(tree, "a");
    tree.InsertNode(a, 0, "b")->SetItemData(7);
    EXPECT_EQ(Rows(tree), "abcd");
    EXPECT_EQ(tree.InsertNode(a, 3, "x"), nullptr);
    EXPECT_EQ(tree.InsertNode(a, -1, "x"), nullptr);
    tree.InsertNode(nullptr, 2, "b");
    tree.AddNode(Node(tree, "d"), "e");
    EXPECT_EQ(Rows(tree), "abcdb");
    EXPECT_EQ(tree.FindNodeByData(7), tree.FindNode("b"));
    EXPECT_EQ(tree.GetRowOfNode(tree.FindNode("b", tree.FindNode("b"))), 4);
    EXPECT_EQ(tree.FindNode("b", tree.FindNode("b", tree.FindNode("b"))), nullptr);
    EXPECT_EQ(tree.FindNode("e")->GetParentNode(), tree.FindNode("d"));
    EXPECT_EQ(tree.FindNode("e")->GetLevel(), 1);
    EXPECT_TRUE(tree.RemoveNode(a));
    EXPECT_EQ(Rows(tree), "db");
    EXPECT_EQ(InView(window, tree), "d0 b20");
    Node(tree, "d")->RemoveAllControl();
    EXPECT_EQ(tree.FindNode("e"), nullptr);
    tree.RemoveAllControl();
    EXPECT_EQ(tree.GetRowCount(), 0);
    EXPECT_EQ(tree.GetNextNode(nullptr), nullptr);
}

TEST_F(TreeView, NamesFindNodesThatAreNotShown)
{
    ControlWindow window({100, 200}, Tree("a(b(c))d"));
    EXPECT_EQ(window.Find("c")->GetText(), "c");
    POINT point{50, 30};
    EXPECT_EQ(window.FindControl(&point)->GetText(), "d");
    point.y = 50;
    EXPECT_EQ(window.FindControl(&point)->GetName(), "tree");
}

// --- painting ----------------------------------------------------------------------------------------------

TEST_F(TreeView, RepaintsTheRowsThatChange)
{
    ControlWindow window({100, 200}, Tree("abcd(ef)"));
    CDUITreeViewImpl& tree = TreeOf(window);
    window.mouse.MoveTo(At(1));
    const auto invalidBy = [&](auto act) {
        window.Paint();
        window.Validate();
        act();
        return Text(window.Invalid());
    };
    EXPECT_EQ(invalidBy([&] { window.mouse.MoveTo(At(2)); }), "0,20,100,60");
    EXPECT_EQ(invalidBy([&] { tree.SelectNode(Node(tree, "b")); }), "0,20,100,40");
    EXPECT_EQ(invalidBy([&] { Node(tree, "e")->SetText("changed"); }), "0,0,0,0") << "out of view";
    EXPECT_EQ(invalidBy([&] { Node(tree, "d")->SetText("changed"); }), "0,60,100,80");
    EXPECT_EQ(invalidBy([&] { tree.AddNode(Node(tree, "a"), "x"); }), "0,0,100,20") << "the expander appears";
    EXPECT_EQ(invalidBy([&] { tree.AddNode(Node(tree, "a"), "y"); }), "0,0,0,0");
}

// --- the pointer -------------------------------------------------------------------------------------------

TEST_F(TreeView, ChildrenMayComeWithTheExpansion)
{
    ControlWindow window({100, 200}, Tree("ab", "", R"(has_children="true")"));
    CDUITreeViewImpl& tree = TreeOf(window);
    window.OnNotify([&](const tagDUINotify& notify) {
        if (notify.nCode != DUINOTIFY_TREEEXPAND || notify.wParam != DUITREENOTIFY_EXPANDED)
            return;
        auto* const node = reinterpret_cast<CDUITreeNode*>(notify.lParam);
        if (node->GetControlCount() == 0)
            tree.AddNode(node, "x");
    });
    window.mouse.Click({5, 10});
    EXPECT_EQ(Rows(tree), "axb");
    window.mouse.Click({5, 10}).Click({5, 10});
    EXPECT_EQ(Rows(tree), "axb");
    EXPECT_EQ(InView(window, tree), "a0 x20 b40");
}

// --- keys --------------------------------------------------------------------------------------------------

TEST_F(TreeView, AShortcutSelectsItsNode)
{
    ControlWindow window({100, 100}, Tree("ab"));
    CDUITreeViewImpl& tree = TreeOf(window);
    Node(tree, "b")->SetShortcut('q');
    window.Translate(WM_SYSCHAR, 'q');
    EXPECT_EQ(Noted(window), Strings{"2 b"});
    EXPECT_EQ(window.GetFocusControl(), &tree);
}

// --- scrolling ---------------------------------------------------------------------------------------------

// --- removing and copying ----------------------------------------------------------------------------------

TEST_F(TreeView, AHandlerMayTakeAnythingAway)
{
    const struct {
        std::vector<WPARAM> subCodes;
        void (*act)(ControlWindow& window);
    } cases[] = {
        {{1, 2, 3}, [](ControlWindow& window) { window.mouse.DoubleClick(At(0)); }},
        {{0, 1, 2},
         [](ControlWindow& window) {
             window.mouse.Click(At(0)).Click({5, 10}).Click({5, 10});
         }},
        {{0, 1, 2, 3},
         [](ControlWindow& window) {
             window.mouse.Click(At(0));
             for (const int key : {VK_MULTIPLY, VK_DOWN, VK_DOWN, VK_LEFT, VK_LEFT, VK_LEFT, VK_RETURN})
                 window.keys.Press(key);
         }},
    };
    for (const auto& c : cases)
        TakeAnythingAway(Tree("a(b(c)d)e"), DUINOTIFY_TREEEXPAND, c.subCodes, c.act);
}

TEST_F(TreeView, NodesOutliveTheirTree)
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
