#include <qvui/controls/rows/tree_view.h>

#include <algorithm>
#include <vector>

#include "controls/rows/pressed_row.h"
#include "controls/rows/tree_branch.h"
#include "controls/rows/tree_selection.h"
#include "framework/control_guard.h"

// A tree view's nodes: adding, removing, finding, expanding and selecting them.

namespace DUI {

bool CDUITreeViewImpl::Has(const CDUITreeNode* node) const
{
    return node && node->GetTree() == this;
}

bool CDUITreeViewImpl::IsBelow(const CDUITreeNode* node, const CDUITreeNode* above) const
{
    while (node && (node = node->GetParentNode()))
        if (node == above)
            return true;
    return false;
}

void CDUITreeViewImpl::Notify(DUITREENOTIFY code, CDUITreeNode& node)
{
    SendNotify(DUINOTIFY_TREEEXPAND, code, reinterpret_cast<LPARAM>(static_cast<IDUIControl*>(&node)));
}

void CDUITreeViewImpl::Forget(const CDUITreeNode& node, bool withItself)
{
    const auto isGone = [&](const CDUITreeNode* other) {
        return (withItself && other == &node) || IsBelow(other, &node);
    };
    if (isGone(static_cast<const CDUITreeNode*>(m_pPressed->GetRow())))
        m_pPressed->Forget(m_pPressed->GetRow());
    if (isGone(m_pSelection->Get()))
        m_pSelection->Unmark();
}

// --- the hooks of the base class ---------------------------------------------------------------------------

BOOL CDUITreeViewImpl::BeforeAddControl(CRefPtr<IDUIControl> child)
{
    return InterfaceOf<CDUITreeNode>(child.GetPtr(), "treeview_item")
               ? CDUIControlBase::BeforeAddControl(child)
               : FALSE;
}

void CDUITreeViewImpl::AfterAddControl(CRefPtr<IDUIControl> child)
{
    m_pBranch->AfterAdd(child);
}

void CDUITreeViewImpl::BeforeRemoveControl(CRefPtr<IDUIControl> child)
{
    m_pBranch->BeforeRemove(child);
}

void CDUITreeViewImpl::AfterRemoveControl(CRefPtr<IDUIControl> child)
{
    m_pBranch->AfterRemove(child);
}

void CDUITreeViewImpl::RemoveAllControl()
{
    const ControlGuard keep(this);
    m_pSelection->Adopt(nullptr);
    m_pPressed->Forget(m_pPressed->GetRow());
    CDUIControlBase::RemoveAllControl();
    m_pBranch->Clear();
    UpdateLayout(TRUE, nullptr);
}

int CDUITreeViewImpl::GetControlIndex(CRefPtr<IDUIControl> child)
{
    auto* const node = InterfaceOf<CDUITreeNode>(child.GetPtr(), "treeview_item");
    return node ? m_pBranch->PlaceOf(*node) : -1;
}

// --- nodes -------------------------------------------------------------------------------------------------

CDUITreeNode* CDUITreeViewImpl::AddNode(CDUITreeNode* parent, const CString& text, const CString& style)
{
    const CDUIControlBase& owner = parent ? static_cast<const CDUIControlBase&>(*parent) : *this;
    return InsertNode(parent, owner.GetControlCount(), text, style);
}

CDUITreeNode* CDUITreeViewImpl::InsertNode(CDUITreeNode* parent, int index, const CString& text,
                                           const CString& style)
{
    if (parent && !Has(parent))
        return nullptr;
    CDUIControlBase& owner = parent ? static_cast<CDUIControlBase&>(*parent) : *this;
    const CRefPtr<CDUITreeNode> node = new CDUITreeNode;
    node->SetText(text);
    if (!style.IsEmpty())
        node->SetAttribute("control_style", style);
    const BOOL isAdded = index == owner.GetControlCount() ? owner.AddControl(node.GetPtr())
                                                          : owner.AddControlAt(index, node.GetPtr());
    // A handler that heard of it may have removed it.
    return isAdded && Has(node.GetPtr()) ? node.GetPtr() : nullptr;
}

BOOL CDUITreeViewImpl::RemoveNode(CDUITreeNode* node)
{
    return Has(node) && node->GetParent()->RemoveControl(node);
}

CDUITreeNode* CDUITreeViewImpl::GetNextNode(CDUITreeNode* node) const
{
    if (!node)
        return m_pBranch->ChildAt(0);
    if (CDUITreeNode* const first = node->GetChildNode(0))
        return first;
    for (; node && node->m_pParentBranch; node = node->GetParentNode()) {
        const TreeBranch& branch = *node->m_pParentBranch;
        if (CDUITreeNode* const next = branch.ChildAt(branch.PlaceOf(*node) + 1))
            return next;
    }
    return nullptr;
}

CDUITreeNode* CDUITreeViewImpl::FindNode(const CString& text, CDUITreeNode* after) const
{
    CDUITreeNode* node = GetNextNode(after);
    while (node && node->GetText() != text)
        node = GetNextNode(node);
    return node;
}

CDUITreeNode* CDUITreeViewImpl::FindNodeByData(LPARAM data, CDUITreeNode* after) const
{
    CDUITreeNode* node = GetNextNode(after);
    while (node && node->GetItemData() != data)
        node = GetNextNode(node);
    return node;
}

// --- expanding ---------------------------------------------------------------------------------------------

BOOL CDUITreeViewImpl::ExpandNode(CDUITreeNode* node, BOOL bExpand)
{
    if (!Has(node) || !node->GetExpand() == !bExpand || (bExpand && !node->HasExpander()))
        return FALSE;
    const ControlGuard keep(this);
    const ControlGuard keepNode(node);
    node->SetExpand(bExpand);
    Notify(bExpand ? DUITREENOTIFY_EXPANDED : DUITREENOTIFY_COLLAPSED, *node);
    if (!bExpand)
        m_pSelection->SelectShownAbove();
    return TRUE;
}

void CDUITreeViewImpl::ExpandAll(CDUITreeNode* node, BOOL bExpand)
{
    if (node && !Has(node))
        return;
    const ControlGuard keep(this);
    std::vector<CRefPtr<CDUITreeNode>> changed;
    for (CDUITreeNode* at = node ? node : GetNextNode(nullptr); at; at = GetNextNode(at)) {
        if (node && at != node && !IsBelow(at, node))
            break;
        if (!at->GetExpand() != !bExpand && (!bExpand || at->HasExpander()))
            changed.push_back(at);
    }
    // Expanding from the last to the first, and collapsing the other way round, ends each time below a node
    // that is collapsed, so no count is passed on to the top more than once.
    const auto apply = [bExpand](const CRefPtr<CDUITreeNode>& at) {
        at->m_bExpand = bExpand ? TRUE : FALSE;
        at->m_pParentBranch->Take(*at.GetPtr());
    };
    if (bExpand)
        std::for_each(changed.rbegin(), changed.rend(), apply);
    else
        std::for_each(changed.begin(), changed.end(), apply);
    UpdateLayout(TRUE, nullptr);
    for (const CRefPtr<CDUITreeNode>& at : changed)
        if (Has(at.GetPtr()))
            Notify(bExpand ? DUITREENOTIFY_EXPANDED : DUITREENOTIFY_COLLAPSED, *at.GetPtr());
    if (!bExpand)
        m_pSelection->SelectShownAbove();
}

// --- the selection -----------------------------------------------------------------------------------------

BOOL CDUITreeViewImpl::SelectNode(CDUITreeNode* node)
{
    if (node && !Has(node))
        return FALSE;
    m_pSelection->Select(node);
    return TRUE;
}

CDUITreeNode* CDUITreeViewImpl::GetSelectedNode() const
{
    return m_pSelection->Get();
}

BOOL CDUITreeViewImpl::EnsureVisible(CDUITreeNode* node)
{
    if (!Has(node))
        return FALSE;
    const ControlGuard keep(this);
    const ControlGuard keepNode(node);
    std::vector<CRefPtr<CDUITreeNode>> above;
    for (CDUITreeNode* at = node->GetParentNode(); at; at = at->GetParentNode())
        above.push_back(at);
    for (auto at = above.rbegin(); at != above.rend(); ++at)
        ExpandNode(at->GetPtr(), TRUE);
    const int row = GetRowOfNode(node);
    if (row < 0)
        return FALSE;
    const int page = GetPageRows();
    if (row < m_nTopRow)
        SetTopRow(row);
    else if (row - m_nTopRow >= page)
        SetTopRow(row - page + 1);
    return TRUE;
}

}  // namespace DUI
