#include "controls/rows/tree_selection.h"

#include <algorithm>

#include "foundation/rect.h"
#include "framework/control_guard.h"

namespace DUI {

void TreeSelection::Select(CDUITreeNode* node)
{
    const ControlGuard keep(&m_tree);
    const CRefPtr<CDUITreeNode> target = node;
    const CRefPtr<CDUITreeNode> old = m_node;
    m_node = target;
    if (old != target && !old.IsNull())
        old->SetCheck(FALSE);
    if (target.IsNull())
        return;
    target->SetCheck(TRUE);
    m_tree.EnsureVisible(node);
    if (old != target && m_node == target)
        m_tree.Notify(DUITREENOTIFY_SELECTED, *node);
}

void TreeSelection::SelectShownAbove()
{
    // The topmost collapsed node above the selection is the one that is still shown.
    CDUITreeNode* shown = nullptr;
    for (CDUITreeNode* node = m_node.GetPtr(); node; node = node->GetParentNode())
        if (CDUITreeNode* const above = node->GetParentNode(); above && !above->GetExpand())
            shown = above;
    if (shown)
        m_tree.SelectNode(shown);
}

void TreeSelection::Unmark()
{
    const CRefPtr<CDUITreeNode> selected = std::move(m_node);
    if (!selected.IsNull())
        selected->SetCheck(FALSE);
}

bool TreeSelection::OnKeyDown(WPARAM key)
{
    CDUITreeNode* const selected = Get();
    const int row = m_tree.GetRowOfNode(selected);
    const int last = m_tree.GetRowCount() - 1;
    const int page = m_tree.GetPageRows();
    switch (key) {
        case VK_UP:
            MoveTo(row - 1, -1);
            return true;
        case VK_DOWN:
            MoveTo(row + 1, 1);
            return true;
        case VK_PRIOR:
            MoveTo(std::max(row - page, row < 0 ? -1 : 0), -1);
            return true;
        case VK_NEXT:
            MoveTo(geometry::Narrow(std::min<LONGLONG>(LONGLONG{row} + page, last)), 1);
            return true;
        case VK_HOME:
            MoveTo(0, 1);
            return true;
        case VK_END:
            MoveTo(last, -1);
            return true;
        case VK_LEFT:
            MoveLeft();
            return true;
        case VK_RIGHT:
            MoveRight();
            return true;
        case VK_ADD:
            return OnChar('+');
        case VK_SUBTRACT:
            return OnChar('-');
        case VK_MULTIPLY:
            return OnChar('*');
        case VK_RETURN:
            if (selected)
                m_tree.Notify(DUITREENOTIFY_ACTIVATED, *selected);
            return selected != nullptr;
        default:
            return false;
    }
}

bool TreeSelection::OnChar(WPARAM character)
{
    switch (character) {
        case '+':
            m_tree.ExpandNode(Get(), TRUE);
            return true;
        case '-':
            m_tree.ExpandNode(Get(), FALSE);
            return true;
        case '*':
            if (CDUITreeNode* const selected = Get())
                m_tree.ExpandAll(selected, TRUE);
            return true;
        default:
            return false;
    }
}

void TreeSelection::MoveTo(int row, int step)
{
    CDUITreeNode* node = m_tree.GetNodeAtRow(row);
    while (node && !node->IsEnabled())
        node = m_tree.GetNodeAtRow(row += step);
    if (node)
        m_tree.SelectNode(node);
}

void TreeSelection::MoveLeft()
{
    CDUITreeNode* const selected = Get();
    if (!selected)
        return;
    if (selected->GetExpand() && selected->HasExpander())
        m_tree.ExpandNode(selected, FALSE);
    else if (CDUITreeNode* const parent = selected->GetParentNode(); parent && parent->IsEnabled())
        m_tree.SelectNode(parent);
}

void TreeSelection::MoveRight()
{
    CDUITreeNode* const selected = Get();
    const int next = m_tree.GetRowOfNode(selected) + 1;
    if (!selected || m_tree.IsBelow(m_tree.GetNodeAtRow(next), selected))
        MoveTo(next, 1);
    else
        m_tree.ExpandNode(selected, TRUE);
}

}  // namespace DUI
