#include <qvui/controls/rows/tree_view.h>

#include "controls/rows/pressed_row.h"
#include "controls/rows/row_container.h"
#include "controls/rows/tree_branch.h"
#include "controls/rows/tree_selection.h"
#include "controls/scrolling/owned_scroll_bar.h"
#include "foundation/rect.h"
#include "framework/control_guard.h"
#include "skin/skin_access.h"

// A tree view's look, its rows and their places, and clicks on them; its nodes are in tree_view_nodes.cpp.

namespace DUI {
namespace {

using namespace geometry;

CDUITreeNode* NodeOf(const tagDUIEvent& event)
{
    return InterfaceOf<CDUITreeNode>(event.pSender, "treeview_item");
}

const AttributeTable<CDUITreeViewImpl>& Attributes()
{
    using Tree = CDUITreeViewImpl;
    static const AttributeTable<Tree> table{
        {"expander_image", AttributeKind::Image,
         "A strip: the expander of a collapsed and of an expanded node.", &Tree::SetExpanderImage},
        {"indent",
         {AttributeKind::Integer, "18"},
         "Pixels by which each level stands further to the right.",
         &Tree::SetIndent},
        {"item_height",
         {AttributeKind::Integer, "25"},
         "The height of a row in pixels.",
         &Tree::SetItemHeight},
        {"hover_frame", AttributeKind::FrameStyle, "The background of the row below the pointer.",
         &Tree::SetHoverFrameBK},
        {"select_frame", AttributeKind::FrameStyle, "The background of the selected row.",
         &Tree::SetSelectFrameBK},
    };
    return table;
}

}  // namespace

const ControlClass& CDUITreeViewImpl::Class()
{
    static const ControlClass theClass(
        "CDUITreeViewImpl", &CDUIControlBase::Class(),
        "Nodes that expand and collapse, one row each. It shows the scroll bar \"cs_v_scrollbar\" when they "
        "do not "
        "fit.",
        {"treeview"}, &Attributes(),
        {{"DUINOTIFY_TREEEXPAND",
          "lParam is the node; wParam 0 it was collapsed, 1 expanded, 2 selected, 3 "
          "double-clicked or Enter was pressed on it."}});
    return theClass;
}

CDUITreeViewImpl::CDUITreeViewImpl()
    : m_pBranch(std::make_unique<TreeBranch>(*this)),
      m_pSelection(std::make_unique<TreeSelection>(*this)),
      m_pPressed(std::make_unique<PressedRow>())
{
    CDUIControlBase::ModifyStyle(0, DUISTYLE_TABSTOP);
}

CDUITreeViewImpl::CDUITreeViewImpl(const CDUITreeViewImpl& other)
    : ControlOf(other),
      m_pBranch(std::make_unique<TreeBranch>(*this)),
      m_pScrollBar(owned_scroll_bar::Clone(other.m_pScrollBar, this)),
      m_pSelection(std::make_unique<TreeSelection>(*this)),
      m_pPressed(std::make_unique<PressedRow>()),
      m_pExpanderImage(other.m_pExpanderImage),
      m_pHoverFrame(other.m_pHoverFrame),
      m_pSelectFrame(other.m_pSelectFrame),
      m_nIndent(other.m_nIndent),
      m_nItemHeight(other.m_nItemHeight),
      m_nTopRow(other.m_nTopRow)
{
    m_pBranch->TakeAll();
    for (CDUITreeNode* node = GetNextNode(nullptr); node && !GetSelectedNode(); node = GetNextNode(node))
        if (node->GetSelect())
            m_pSelection->Adopt(node);
}

CDUITreeViewImpl::~CDUITreeViewImpl()
{
    owned_scroll_bar::ReportTo(m_pScrollBar, nullptr);
}

void CDUITreeViewImpl::OnCreate()
{
    CDUIControlBase::OnCreate();
    owned_scroll_bar::Open(m_pScrollBar, *this, owned_scroll_bar::kPlainBreadth);
    UpdateLayout(TRUE, nullptr);
}

void CDUITreeViewImpl::OnDestroy()
{
    owned_scroll_bar::Release(m_pScrollBar);
    CDUIControlBase::OnDestroy();
}

void CDUITreeViewImpl::BroadcastEvent(const tagDUIEvent& event)
{
    BOOL bHandled = FALSE;
    OnDUIEvent(event, bHandled);
}

// --- the look ----------------------------------------------------------------------------------------------

void CDUITreeViewImpl::SetExpanderImage(CDUIImageListPtr image)
{
    m_pExpanderImage = std::move(image);
    UpdateLayout(FALSE, nullptr);
}

void CDUITreeViewImpl::SetIndent(int indent)
{
    m_nIndent = std::max(indent, 0);
    UpdateLayout(FALSE, nullptr);
}

void CDUITreeViewImpl::SetItemHeight(int height)
{
    height = std::max(height, 1);
    if (height == m_nItemHeight)
        return;
    m_nItemHeight = height;
    m_isArranged = false;
    UpdateLayout(TRUE, nullptr);
}

void CDUITreeViewImpl::SetHoverFrameBK(CRefPtr<CDUIFrameBK> frame)
{
    m_pHoverFrame = std::move(frame);
    UpdateLayout(FALSE, nullptr);
}

void CDUITreeViewImpl::SetSelectFrameBK(CRefPtr<CDUIFrameBK> frame)
{
    m_pSelectFrame = std::move(frame);
    UpdateLayout(FALSE, nullptr);
}

// --- rows --------------------------------------------------------------------------------------------------

int CDUITreeViewImpl::GetRowCount() const
{
    return m_pBranch->RowCount();
}

int CDUITreeViewImpl::GetRowOfNode(CDUITreeNode* node) const
{
    if (!Has(node) || !node->IsVisible(FALSE))
        return -1;
    LONGLONG row = 0;
    for (;;) {
        const TreeBranch& branch = *node->m_pParentBranch;
        const int place = branch.PlaceOf(*node);
        if (place < 0)
            return -1;
        row += branch.Rows().OffsetOf(place);
        node = branch.Node();
        if (!node)
            return Narrow(row);
        if (!node->GetExpand() || !node->IsVisible(FALSE))
            return -1;
        ++row;
    }
}

CDUITreeNode* CDUITreeViewImpl::GetNodeAtRow(int row) const
{
    if (row < 0)
        return nullptr;
    LONGLONG rest = row;
    const TreeBranch* branch = m_pBranch.get();
    while (branch) {
        const int place = branch->Rows().RowAt(rest);
        CDUITreeNode* const node = place >= 0 ? branch->ChildAt(place) : nullptr;
        if (!node)
            return nullptr;
        rest -= branch->Rows().OffsetOf(place);
        if (rest == 0)
            return node;
        --rest;
        branch = node->m_pBranch.get();
    }
    return nullptr;
}

CDUITreeNode* CDUITreeViewImpl::NextRow(CDUITreeNode* node) const
{
    if (node->GetExpand() && node->m_pBranch)
        if (CDUITreeNode* const first = node->GetChildNode(node->m_pBranch->Rows().NextShown(-1)))
            return first;
    for (; node && node->m_pParentBranch; node = node->GetParentNode()) {
        const TreeBranch& branch = *node->m_pParentBranch;
        if (CDUITreeNode* const next = branch.ChildAt(branch.Rows().NextShown(branch.PlaceOf(*node))))
            return next;
    }
    return nullptr;
}

int CDUITreeViewImpl::RowsHeight() const
{
    return Narrow(LONGLONG{GetRowCount()} * m_nItemHeight);
}

int CDUITreeViewImpl::GetPageRows()
{
    const RECT content = GetContentRect();
    return static_cast<int>(std::max<LONGLONG>(1, Height(content) / m_nItemHeight));
}

void CDUITreeViewImpl::SetTopRow(int row)
{
    if (m_pScrollBar.IsNull())
        return;
    const ControlGuard keep(this);
    UpdateScrollRange();
    if (m_pScrollBar.IsNull())
        return;
    owned_scroll_bar::ScrollTo(*m_pScrollBar.GetPtr(), LONGLONG{std::max(row, 0)} * m_nItemHeight);
    UpdateLayout(TRUE, nullptr);
}

void CDUITreeViewImpl::UpdateScrollRange()
{
    const RECT rect = GetControlRect();
    if (!IsRectEmpty(&rect))
        ProcessVerticalSB(GetContentRect(), RowsHeight(), 0);
}

bool CDUITreeViewImpl::TakeChange(int row, bool wasArranged)
{
    const RECT rect = GetControlRect();
    if (IsRectEmpty(&rect))
        return false;
    const bool isSeen = !wasArranged || !m_isViewFull || row < m_nTopRow + m_nRowsInView;
    m_isArranged = !isSeen;
    return isSeen;
}

void CDUITreeViewImpl::SetControlRect(const RECT& rect)
{
    StoreControlRect(rect);
    if (IsRectEmpty(&rect))
        return;
    const ControlGuard keep(this);
    RECT view = GetContentRect();
    ProcessVerticalSB(view, RowsHeight(), 0);
    const LONGLONG position = owned_scroll_bar::Reserve(m_pScrollBar.GetPtr(), view);
    // Rounded up, so that the last row is wholly in view at the end of the range.
    m_nTopRow = Narrow((position + m_nItemHeight - 1) / m_nItemHeight);
    PlaceRows(view);
}

void CDUITreeViewImpl::PlaceRows(const RECT& view)
{
    m_isArranged = true;
    m_isViewFull = false;
    m_nRowsInView = 0;
    m_nLayout = std::max(m_nLayout + 1, 1U);
    LONGLONG y = view.top;
    for (CDUITreeNode* node = GetNodeAtRow(m_nTopRow); node && !m_isViewFull; node = NextRow(node)) {
        const LONGLONG bottom = y + m_nItemHeight;
        node->m_nLayout = m_nLayout;
        node->SetControlRect(MakeRect(view.left, y, view.right, bottom));
        ++m_nRowsInView;
        m_isViewFull = bottom - view.top >= Height(view);
        y = bottom;
    }
}

// --- painting and searching --------------------------------------------------------------------------------

template <class Visit>
void CDUITreeViewImpl::ForEachRowInView(Visit visit)
{
    CRefPtr<CDUITreeNode> node = GetNodeAtRow(m_nTopRow);
    for (int i = 0; i < m_nRowsInView && !node.IsNull(); ++i, node = NextRow(node.GetPtr()))
        if (node->IsInView() && !visit(*node.GetPtr()))
            return;
}

void CDUITreeViewImpl::DoPaint(HDC hdc, const RECT& rcPaint)
{
    PaintBkgnd(hdc);
    PaintForgnd(hdc);
    PaintText(hdc);
    PaintBorder(hdc);
    content_walk::Paint(*this, hdc, rcPaint, [&] {
        ForEachRowInView([&](CDUITreeNode& node) {
            if (content_walk::IsShownIn(node, rcPaint))
                node.DoPaint(hdc, rcPaint);
            return true;
        });
    });
}

IDUIControl* CDUITreeViewImpl::FindControl(FindControlProc proc, void* pData, UINT flags)
{
    if (!(flags & (DUIFIND_VISIBLE | DUIFIND_HITTEST)))
        return CDUIControlBase::FindControl(proc, pData, flags);
    return row_container::Find(*this, proc, pData, flags, [&] {
        IDUIControl* found = nullptr;
        ForEachRowInView([&](CDUITreeNode& node) {
            found = node.FindControl(proc, pData, flags);
            return found == nullptr;
        });
        return found;
    });
}

// --- input -------------------------------------------------------------------------------------------------

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
            bHandled = m_pSelection->OnKeyDown(event.wParam);
            break;
        case DUIEVENT_CHAR:
            bHandled = m_pSelection->OnChar(event.wParam);
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

}  // namespace DUI
