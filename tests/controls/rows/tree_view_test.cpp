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

std::string Selected(CDUITreeViewImpl& tree)
{
    return tree.GetSelectedNode() ? tree.GetSelectedNode()->GetText().GetString() : "";
}

/// Where the row of that number can be pressed, right of all expanders.
POINT At(int row)
{
    return {90, row * 20 + 10};
}

// --- nodes and rows ----------------------------------------------------------------------------------------

TEST_F(TreeView, ShowsWhatIsExpanded)
{
    const struct {
        const char* nodes;
        const char* rows;
    } cases[] = {
        {"", ""},
        {"abc", "abc"},
        {"a(bc)d", "ad"},
        {"a!(bc)d", "abcd"},
        {"a!(b!(cd)e)f", "abcdef"},
        {"a(b!(cd)e)f", "af"},
        {"a!(b(cd)e)f!", "abef"},
    };
    for (const auto& c : cases) {
        ControlWindow window({100, 200}, Tree(c.nodes));
        EXPECT_EQ(Rows(TreeOf(window)), c.rows) << c.nodes;
    }
}

TEST_F(TreeView, HiddenNodesTakeTheirSubtreesAlong)
{
    ControlWindow window({100, 200}, Tree("a!(b!(cd)e)f"));
    CDUITreeViewImpl& tree = TreeOf(window);
    Node(tree, "b")->SetVisible(FALSE);
    EXPECT_EQ(Rows(tree), "aef");
    EXPECT_EQ(InView(window, tree), "a0 e20 f40");
    EXPECT_EQ(tree.GetRowOfNode(Node(tree, "c")), -1);
    EXPECT_FALSE(tree.EnsureVisible(Node(tree, "b")));
    Node(tree, "e")->SetVisible(FALSE);
    EXPECT_FALSE(Node(tree, "a")->HasExpander());
    Node(tree, "b")->SetVisible(TRUE);
    EXPECT_EQ(Rows(tree), "abcdf");
    EXPECT_TRUE(Node(tree, "a")->HasExpander());
}

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

TEST_F(TreeView, PaintsExpandersIconsAndFrames)
{
    // Expanders are red and green squares of 8 pixels in an indent of 10; the strip's icons are 20x10.
    ControlWindow window({100, 100}, "<window frame_style=\"blue\">" +
                                         Tree("a!(b(c))d", R"(expander_image="expander" margin="4,0,0,0")") +
                                         "</window>");
    const ClientPixels expanders = window.Paint();
    EXPECT_EQ(Bounds(expanders, kGreen), "5,6,13,14") << "a, expanded";
    EXPECT_EQ(Bounds(expanders, kRed), "15,26,23,34") << "b, collapsed and one level down";

    ControlWindow icons({100, 100}, "<window frame_style=\"blue\">" +
                                        Tree("a!(b(c))d", "", R"(icon="strip2")") + "</window>");
    const ClientPixels pixels = icons.Paint();
    EXPECT_EQ(Bounds(pixels, kGreen), "10,5,30,15") << "expanded";
    EXPECT_EQ(pixels.At(20, 30), kRed);
    EXPECT_EQ(pixels.At(39, 30), kRed);
    EXPECT_EQ(pixels.At(40, 30), kBlue);
    EXPECT_EQ(Text(Node(TreeOf(icons), "b")->GetNodeTextRect()), "44,20,100,40");

    ControlWindow frames({100, 100}, "<window frame_style=\"blue\">" +
                                         Tree("  ", R"(select_frame="red" hover_frame="framed")") +
                                         "</window>");
    frames.mouse.Click({50, 30});
    EXPECT_EQ(Bounds(frames.Paint(), kRed), "0,20,100,40") << "selected before hovered";
    frames.mouse.MoveTo({50, 10});
    EXPECT_EQ(Bounds(frames.Paint(), kRed), "0,0,100,40") << "the other one's border is red too";
}

TEST_F(TreeView, ABackImageShowsTheNodesState)
{
    ControlWindow window({100, 60}, OnBlue(Tree("a b", R"(select_frame="framed")", R"(back_image="strip")")));
    EXPECT_EQ(window.Paint().At(99, 10), kRed);
    window.mouse.MoveTo({50, 10});
    EXPECT_EQ(window.Paint().At(99, 10), kGreen);
    window.mouse.Click({50, 10}).Leave();
    EXPECT_EQ(window.Paint().At(99, 10), kBlue) << "selected";
    window.GetControlByName("b", TRUE)->SetEnable(FALSE);
    EXPECT_EQ(window.Paint().At(99, 50), kGrey);
}

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

TEST_F(TreeView, PressesSelectAndExpand)
{
    ControlWindow window({100, 200}, Tree("a(bc)d"));
    CDUITreeViewImpl& tree = TreeOf(window);
    window.mouse.Click(At(1));
    EXPECT_EQ(Noted(window), Strings{"2 d"});
    EXPECT_EQ(window.GetFocusControl(), &tree);
    window.mouse.Click(At(1));
    EXPECT_EQ(Noted(window), Strings()) << "selected already";
    window.mouse.Press({5, 10});
    EXPECT_EQ(Noted(window), Strings{"1 a"}) << "at the press";
    window.mouse.Release();
    EXPECT_EQ(Selected(tree), "d") << "an expander does not select";
    EXPECT_EQ(InView(window, tree), "a0 b20 c40 d60");
    window.mouse.Click({5, 10});
    EXPECT_EQ(Noted(window), Strings{"0 a"});
    window.mouse.DoubleClick(At(0));
    EXPECT_EQ(Noted(window), (Strings{"2 a", "1 a", "3 a"}));
    window.mouse.DoubleClick(At(1));
    EXPECT_EQ(Noted(window), (Strings{"2 b", "3 b"})) << "nothing to expand";
    window.mouse.DoubleClick({5, 10});
    EXPECT_EQ(Noted(window), (Strings{"0 a", "2 a", "1 a"})) << "two presses on the expander";
    window.mouse.Press(At(1)).MoveTo(At(2)).Release();
    EXPECT_EQ(Noted(window), Strings()) << "released elsewhere";
    window.mouse.Click({5, 30});
    EXPECT_EQ(Noted(window), Strings{"2 b"}) << "where there is no expander the row is pressed";

    window.Resize({100, 50});
    window.mouse.DoubleClick({50, 45});
    EXPECT_EQ(Noted(window), (Strings{"2 c", "3 c"})) << "the first click scrolled it up by a row";
    window.mouse.Click({50, 45});
    EXPECT_EQ(Noted(window), Strings{"2 d"}) << "a click of its own";
}

TEST_F(TreeView, CollapsingSelectsWhatIsLeftOfTheSelection)
{
    ControlWindow window({100, 200}, Tree("a!(b!(c))d"));
    CDUITreeViewImpl& tree = TreeOf(window);
    tree.SelectNode(Node(tree, "c"));
    EXPECT_EQ(Noted(window), Strings{"2 c"});
    tree.ExpandNode(Node(tree, "a"), FALSE);
    EXPECT_EQ(Noted(window), (Strings{"0 a", "2 a"}));
    EXPECT_FALSE(Node(tree, "c")->GetSelect());
    tree.SelectNode(Node(tree, "d"));
    tree.ExpandAll(nullptr, TRUE);
    EXPECT_EQ(Noted(window), (Strings{"2 d", "1 a"})) << "b was expanded inside";
    tree.ExpandAll(nullptr, FALSE);
    EXPECT_EQ(Noted(window), (Strings{"0 a", "0 b"}));
}

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

TEST_F(TreeView, KeysMoveExpandAndCollapse)
{
    // Five rows fit; d is disabled.
    const struct {
        const char* name;
        const char* selected;
        int key;
        const char* expected;
        const char* rows;
    } cases[] = {
        {"down", "a", VK_DOWN, "b", "abcdefgh"},
        {"down over a disabled node", "c", VK_DOWN, "e", "abcdefgh"},
        {"up over a disabled node", "e", VK_UP, "c", "abcdefgh"},
        {"down from nothing", "", VK_DOWN, "a", "abcdefgh"},
        {"up from nothing", "", VK_UP, "", "abcdefgh"},
        {"up from the first", "a", VK_UP, "a", "abcdefgh"},
        {"down from the last", "h", VK_DOWN, "h", "abcdefgh"},
        {"home", "f", VK_HOME, "a", "abcdefgh"},
        {"end", "a", VK_END, "h", "abcdefgh"},
        {"page down", "a", VK_NEXT, "f", "abcdefgh"},
        {"page down near the end", "f", VK_NEXT, "h", "abcdefgh"},
        {"page up", "g", VK_PRIOR, "b", "abcdefgh"},
        {"page up near the start", "c", VK_PRIOR, "a", "abcdefgh"},
        {"left collapses", "b", VK_LEFT, "b", "abfgh"},
        {"left goes up", "c", VK_LEFT, "b", "abcdefgh"},
        {"left at the top", "h", VK_LEFT, "h", "abcdefgh"},
        {"right goes down", "b", VK_RIGHT, "c", "abcdefgh"},
        {"right expands", "g", VK_RIGHT, "g", "abcdefgijh"},
        {"right at a leaf", "h", VK_RIGHT, "h", "abcdefgh"},
        {"right from nothing", "", VK_RIGHT, "a", "abcdefgh"},
        {"plus", "g", VK_ADD, "g", "abcdefgijh"},
        {"minus", "b", VK_SUBTRACT, "b", "abfgh"},
        {"asterisk", "g", VK_MULTIPLY, "g", "abcdefgikjh"},
        {"asterisk at a leaf", "a", VK_MULTIPLY, "a", "abcdefgh"},
    };
    for (const auto& c : cases) {
        ControlWindow window({100, 100}, Tree("ab!(cde)fg(i(k)j)h"));
        CDUITreeViewImpl& tree = TreeOf(window);
        Node(tree, "d")->SetEnable(FALSE);
        tree.SetFocus(TRUE);
        tree.SelectNode(tree.FindNode(c.selected));
        window.keys.Press(c.key);
        EXPECT_EQ(Selected(tree), c.expected) << c.name;
        EXPECT_EQ(Rows(tree), c.rows) << c.name;
        const int row = tree.GetRowOfNode(tree.GetSelectedNode());
        EXPECT_TRUE(row < 0 || (row >= tree.GetTopRow() && row < tree.GetTopRow() + 5))
            << c.name << ", out of view";
    }
}

TEST_F(TreeView, TypedSignsAndEnter)
{
    ControlWindow window({100, 100}, Tree("a(b)"));
    CDUITreeViewImpl& tree = TreeOf(window);
    tree.SetFocus(TRUE);
    window.keys.Type("+-*").Press(VK_RETURN);
    EXPECT_EQ(Noted(window), Strings()) << "without a selection";
    tree.SelectNode(Node(tree, "a"));
    window.keys.Type("+-*").Press(VK_RETURN);
    EXPECT_EQ(Noted(window), (Strings{"2 a", "1 a", "0 a", "1 a", "3 a"}));
}

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

TEST_F(TreeView, ScrollsByWholeRowsToTheLastOne)
{
    // 8 rows of 20 in 70: three and a half fit, the range is 0..90.
    const struct {
        int position;
        const char* inView;
    } cases[] = {
        {0, "a0 b20 c40 d60"}, {1, "b0 c20 d40 e60"}, {20, "b0 c20 d40 e60"},
        {90, "f0 g20 h40"},    {500, "f0 g20 h40"},
    };
    ControlWindow window({100, 70}, Tree("abcdefgh"));
    CDUITreeViewImpl& tree = TreeOf(window);
    for (const auto& c : cases) {
        ScrollTo(tree, c.position);
        EXPECT_EQ(InView(window, tree), c.inView) << c.position;
    }
    EXPECT_EQ(tree.GetNodeAtRow(6)->GetControlRect().right, 90) << "beside the bar";
    tree.SetItemHeight(8);
    EXPECT_EQ(InView(window, tree), "a0 b8 c16 d24 e32 f40 g48 h56");
    EXPECT_EQ(tree.GetNodeAtRow(6)->GetControlRect().right, 100) << "the bar is gone";
}

TEST_F(TreeView, WheelThumbAndTrackScrollIt)
{
    ControlWindow window({100, 100}, Tree("abcdefghijklmnopqrst"));
    CDUITreeViewImpl& tree = TreeOf(window);
    tree.SetFocus(TRUE);
    window.mouse.MoveTo(At(1)).Wheel(-1).Wheel(-1).Wheel(1);
    EXPECT_EQ(tree.GetTopRow(), 1);
    window.mouse.MoveTo({95, 95});
    PostAt(window, WM_LBUTTONUP, {95, 95});
    window.mouse.Press().Release();
    EXPECT_EQ(tree.GetTopRow(), 6);
    window.mouse.Press({95, 40}).MoveTo({95, 200}).Release();
    EXPECT_EQ(InView(window, tree), "p0 q20 r40 s60 t80");
}

TEST_F(TreeView, BringsNodesIntoView)
{
    ControlWindow window({100, 100}, Tree("abcdefgh!(i(jklm)n)o"));
    CDUITreeViewImpl& tree = TreeOf(window);
    EXPECT_TRUE(tree.EnsureVisible(Node(tree, "m")));
    EXPECT_EQ(Noted(window), Strings{"1 i"});
    EXPECT_EQ(InView(window, tree), "i0 j20 k40 l60 m80") << "as little as needed";
    EXPECT_TRUE(tree.EnsureVisible(Node(tree, "h")));
    EXPECT_EQ(InView(window, tree), "h0 i20 j40 k60 l80");
    EXPECT_TRUE(tree.EnsureVisible(Node(tree, "k")));
    EXPECT_EQ(InView(window, tree), "h0 i20 j40 k60 l80");
    tree.SetTopRow(100);
    EXPECT_EQ(InView(window, tree), "k0 l20 m40 n60 o80");
    // What was added while the layout was locked can be shown at once.
    window.LockLayout(TRUE);
    CDUITreeNode* const late = tree.AddNode(nullptr, "z");
    window.LockLayout(FALSE);
    tree.SelectNode(late);
    EXPECT_EQ(InView(window, tree), "l0 m20 n40 o60 z80");
}

// --- removing and copying ----------------------------------------------------------------------------------

TEST_F(TreeView, RemovingTheSelectionClearsIt)
{
    const struct {
        const char* name;
        void (*remove)(CDUITreeViewImpl& tree);
    } cases[] = {
        {"the node", [](CDUITreeViewImpl& tree) { tree.RemoveNode(tree.FindNode("c")); }},
        {"one above", [](CDUITreeViewImpl& tree) { tree.RemoveNode(tree.FindNode("a")); }},
        {"all below one above", [](CDUITreeViewImpl& tree) { tree.FindNode("a")->RemoveAllControl(); }},
        {"all", [](CDUITreeViewImpl& tree) { tree.RemoveAllControl(); }},
    };
    for (const auto& c : cases) {
        ControlWindow window({100, 200}, Tree("a!(b!(c))d"));
        CDUITreeViewImpl& tree = TreeOf(window);
        CRefPtr<CDUITreeNode> node = Node(tree, "c");
        tree.SelectNode(node.GetPtr());
        window.TakeNotifications();
        c.remove(tree);
        EXPECT_EQ(tree.GetSelectedNode(), nullptr) << c.name;
        EXPECT_EQ(Noted(window), Strings()) << c.name;
        EXPECT_FALSE(tree.SelectNode(node.GetPtr())) << c.name;
    }
}

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

TEST_F(TreeView, ACopyHasTheSameNodesAndLooksTheSame)
{
    ControlWindow window(
        {100, 70},
        OnBlue(Tree("a!(b(c)d)efg", R"(expander_image="expander" select_frame="red")", R"(icon="strip2")")));
    CDUITreeViewImpl& tree = TreeOf(window);
    tree.SelectNode(Node(tree, "d"));
    const ClientPixels pixels = window.Paint();
    ControlWindow other({100, 70}, tree.Clone());
    auto& copy = *dynamic_cast<CDUITreeViewImpl*>(other.GetRootControl());
    EXPECT_EQ(Rows(copy), "abdefg");
    EXPECT_EQ(Selected(copy), "d");
    EXPECT_NE(copy.GetSelectedNode(), tree.GetSelectedNode());
    other.SetFrameBkgnd(window.GetFrameBkgnd());
    other.Invalidate(TRUE);
    EXPECT_EQ(Difference(pixels, other.Paint()), "0,0,0,0");
    copy.ExpandNode(Node(copy, "b"), TRUE);
    EXPECT_EQ(Rows(copy), "abcdefg");
    EXPECT_EQ(Rows(tree), "abdefg");
    copy.SetFocus(TRUE);
    other.mouse.MoveTo(At(1)).Wheel(-1);
    EXPECT_EQ(copy.GetTopRow(), 1);
    EXPECT_EQ(tree.GetTopRow(), 0);
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
