#include <qvui/controls/rows/tree_view.h>

#include "foundation/rect.h"
#include "framework/control_guard.h"

// What a tree view does on input.

namespace DUI {
namespace {

CDUITreeNode* NodeOf(const tagDUIEvent& event)
{
    return InterfaceOf<CDUITreeNode>(event.pSender, "treeview_item");
}

}  // namespace

LRESULT CDUITreeViewImpl::ProcessEvent(const tagDUIEvent& event, BOOL& bHandled)
{
    const ControlGuard keep(this);
    switch (event.Type) {
        case DUIEVENT_ITEMCLICK:
            bHandled = TRUE;
            OnNodeClick(event);
            return 0;
        case DUIEVENT_ITEMDBLCLICK:
            bHandled = TRUE;
            OnNodeDoubleClick(event);
            return 0;
        case DUIEVENT_KEYDOWN:
            bHandled = OnKeyDown(event.wParam);
            break;
        case DUIEVENT_CHAR:
            bHandled = OnChar(event.wParam);
            break;
        default:
            break;
    }
    return bHandled ? 0 : CDUIControlBase::ProcessEvent(event, bHandled);
}

void CDUITreeViewImpl::OnNodeClick(const tagDUIEvent& event)
{
    if (CDUITreeNode* const node = NodeOf(event))
        SelectNode(node);
}

void CDUITreeViewImpl::OnNodeDoubleClick(const tagDUIEvent& event)
{
    CDUITreeNode* const node = NodeOf(event);
    if (!Has(node))
        return;
    const ControlGuard keep(node);
    ExpandNode(node, !node->GetExpand());
    if (Has(node))
        Notify(DUITREENOTIFY_ACTIVATED, *node);
}

bool CDUITreeViewImpl::OnKeyDown(WPARAM key)
{
    CDUITreeNode* const selected = GetSelectedNode();
    const int row = GetRowOfNode(selected);
    const int last = GetRowCount() - 1;
    const int page = GetPageRows();
    switch (key) {
        case VK_UP:
            MoveSelection(row - 1, -1);
            return true;
        case VK_DOWN:
            MoveSelection(row + 1, 1);
            return true;
        case VK_PRIOR:
            MoveSelection(std::max(row - page, row < 0 ? -1 : 0), -1);
            return true;
        case VK_NEXT:
            MoveSelection(geometry::Narrow(std::min<LONGLONG>(LONGLONG{row} + page, last)), 1);
            return true;
        case VK_HOME:
            MoveSelection(0, 1);
            return true;
        case VK_END:
            MoveSelection(last, -1);
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
                Notify(DUITREENOTIFY_ACTIVATED, *selected);
            return selected != nullptr;
        default:
            return false;
    }
}

bool CDUITreeViewImpl::OnChar(WPARAM character)
{
    switch (character) {
        case '+':
            ExpandNode(GetSelectedNode(), TRUE);
            return true;
        case '-':
            ExpandNode(GetSelectedNode(), FALSE);
            return true;
        case '*':
            if (CDUITreeNode* const selected = GetSelectedNode())
                ExpandAll(selected, TRUE);
            return true;
        default:
            return false;
    }
}

void CDUITreeViewImpl::MoveSelection(int row, int step)
{
    CDUITreeNode* node = GetNodeAtRow(row);
    while (node && !node->IsEnabled())
        node = GetNodeAtRow(row += step);
    if (node)
        SelectNode(node);
}

void CDUITreeViewImpl::MoveLeft()
{
    CDUITreeNode* const selected = GetSelectedNode();
    if (!selected)
        return;
    if (selected->GetExpand() && selected->HasExpander())
        ExpandNode(selected, FALSE);
    else if (CDUITreeNode* const parent = selected->GetParentNode(); parent && parent->IsEnabled())
        SelectNode(parent);
}

void CDUITreeViewImpl::MoveRight()
{
    CDUITreeNode* const selected = GetSelectedNode();
    const int next = GetRowOfNode(selected) + 1;
    if (!selected || IsBelow(GetNodeAtRow(next), selected))
        MoveSelection(next, 1);
    else
        ExpandNode(selected, TRUE);
}

}  // namespace DUI
