#include "controls/rows/tree_branch.h"

#include <qvui/controls/rows/tree_view.h>

#include "controls/rows/row_container.h"
#include "foundation/rect.h"
#include "framework/control_guard.h"

namespace DUI {

TreeBranch::TreeBranch(CDUITreeNode& node) : m_owner(node), m_pNode(&node), m_pTree(nullptr)
{
}

TreeBranch::TreeBranch(CDUITreeViewImpl& tree) : m_owner(tree), m_pNode(nullptr), m_pTree(&tree)
{
}

TreeBranch::~TreeBranch()
{
    for (int i = 0; CDUITreeNode* const child = ChildAt(i); ++i)
        if (child->m_pParentBranch == this)
            child->m_pParentBranch = nullptr;
}

CDUITreeViewImpl* TreeBranch::Tree() const
{
    const TreeBranch* branch = this;
    while (branch && branch->m_pNode)
        branch = branch->m_pNode->m_pParentBranch;
    return branch ? branch->m_pTree : nullptr;
}

CDUITreeNode* TreeBranch::ChildAt(int index) const
{
    // Neither a node nor a tree view takes anything else.
    return static_cast<CDUITreeNode*>(m_owner.CDUIControlBase::GetControlByIndex(index));
}

int TreeBranch::PlaceOf(CDUITreeNode& child) const
{
    child.m_nPlace = row_container::FindChildNear(m_owner, &child, child.m_nPlace);
    return child.m_nPlace;
}

int TreeBranch::RowCount() const
{
    return geometry::Narrow(m_rows.TotalHeight());
}

bool TreeBranch::Update(CDUITreeNode& child)
{
    const int place = PlaceOf(child);
    const RowIndex::Row row{child.RowCount(), child.RowCount() > 0};
    if (place < 0 || m_rows.At(place) == row)
        return false;
    m_rows.Set(place, row);
    return true;
}

bool TreeBranch::Spread()
{
    TreeBranch* branch = this;
    while (CDUITreeNode* const node = branch->m_pNode) {
        branch = node->m_pParentBranch;
        if (!branch || !branch->Update(*node))
            return false;
    }
    branch->m_pTree->m_isArranged = false;
    return true;
}

bool TreeBranch::Take(CDUITreeNode& child)
{
    return Update(child) && Spread();
}

void TreeBranch::TakeAll()
{
    m_rows.Clear();
    for (int i = 0; CDUITreeNode* const child = ChildAt(i); ++i) {
        child->m_pParentBranch = this;
        child->m_nPlace = i;
        m_rows.Append({child->RowCount(), child->RowCount() > 0});
    }
}

void TreeBranch::AfterAdd(const CRefPtr<IDUIControl>& child)
{
    auto& node = *static_cast<CDUITreeNode*>(child.GetPtr());
    node.m_pParentBranch = this;
    node.m_nPlace = m_owner.GetControlCount() - 1;
    m_rows.Insert(PlaceOf(node), {node.RowCount(), node.RowCount() > 0});
    CDUITreeViewImpl* const tree = Tree();
    const bool wasArranged = tree && tree->m_isArranged;
    const bool isSeen = Spread() && tree->TakeChange(tree->GetRowOfNode(&node), wasArranged);
    if (!m_owner.IsAttached())
        return;
    const ControlGuard keepOwner(&m_owner);
    const ControlGuard keepTree(tree);
    child->AttachWindow(m_owner.GetControlMgr());
    Show(tree, isSeen, m_owner.GetControlCount() == 1);
}

void TreeBranch::BeforeRemove(const CRefPtr<IDUIControl>& child)
{
    auto* const node = InterfaceOf<CDUITreeNode>(child.GetPtr(), "treeview_item");
    m_removal = {};
    m_removal.place = node ? PlaceOf(*node) : -1;
    CDUITreeViewImpl* const tree = Tree();
    if (m_removal.place >= 0 && tree) {
        m_removal.row = tree->GetRowOfNode(node);
        tree->Forget(*node, true);
    }
}

void TreeBranch::AfterRemove(const CRefPtr<IDUIControl>& child)
{
    if (m_removal.place < 0)
        return;
    CDUITreeViewImpl* const tree = Tree();
    const bool wasArranged = tree && tree->m_isArranged;
    m_rows.Remove(m_removal.place);
    const bool isSeen = Spread() && tree->TakeChange(m_removal.row, wasArranged);
    m_removal = {};
    static_cast<CDUITreeNode*>(child.GetPtr())->m_pParentBranch = nullptr;
    const ControlGuard keepOwner(&m_owner);
    const ControlGuard keepTree(tree);
    if (m_owner.GetControlMgr())
        child->DetachWindow();
    child->SetParent(nullptr);
    Show(tree, isSeen, m_owner.GetControlCount() == 0);
}

void TreeBranch::Show(CDUITreeViewImpl* tree, bool isSeen, bool hasExpanderChanged)
{
    if (hasExpanderChanged)
        m_owner.UpdateLayout(FALSE, nullptr);
    if (!tree)
        return;
    if (isSeen)
        tree->UpdateLayout(TRUE, nullptr);
    else
        tree->UpdateScrollRange();
}

bool TreeBranch::Clear()
{
    TakeAll();
    return Spread();
}

}  // namespace DUI
