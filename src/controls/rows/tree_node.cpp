#include <qvui/controls/rows/tree_node.h>

#include <qvui/controls/rows/tree_view.h>

#include "controls/rows/pressed_row.h"
#include "controls/rows/row_container.h"
#include "controls/rows/tree_branch.h"
#include "controls/state_text.h"
#include "foundation/rect.h"
#include "framework/control_guard.h"
#include "skin/skin_access.h"

namespace DUI {
namespace {

using namespace geometry;

constexpr int kPadding = 4;

const AttributeTable<CDUITreeNode>& Attributes()
{
    static const AttributeTable<CDUITreeNode> table{
        {"expand",
         {AttributeKind::Boolean, "false"},
         "Whether the nodes below are shown.",
         &CDUITreeNode::SetExpand},
        {"has_children",
         {AttributeKind::Boolean, "false"},
         "Whether the node has an expander before it has nodes below; the application adds them when it is "
         "expanded.",
         &CDUITreeNode::SetHasChildren},
    };
    return table;
}

}  // namespace

const ControlClass& CDUITreeNode::Class()
{
    static const ControlClass theClass("CDUITreeNode", &CDUIButton::Class(),
                                       "A node of a tree view: an expander, an icon and a text. The icon "
                                       "strip's second icon shows while the node is "
                                       "expanded; a back_image stands for the tree view's frames; "
                                       "button_style, focus and want_return are without "
                                       "effect.",
                                       {"treeview_item"}, &Attributes());
    return theClass;
}

CDUITreeNode::CDUITreeNode()
{
    CDUIControlBase::ModifyStyle(DUISTYLE_TABSTOP, 0);
    CDUIControlBase::SetPaddingWidth(kPadding);
}

CDUITreeNode::CDUITreeNode(const CDUITreeNode& other)
    : ControlOf(other),
      m_bExpand(other.m_bExpand),
      m_bHasChildren(other.m_bHasChildren),
      m_nItemData(other.m_nItemData)
{
    // The base class took the children over without the hooks of this one.
    if (GetControlCount() > 0)
        Branch().TakeAll();
}

CDUITreeNode::~CDUITreeNode() = default;

BOOL CDUITreeNode::Activate()
{
    CDUITreeViewImpl* const tree = GetTree();
    return CDUIControlBase::Activate() && tree && tree->SelectNode(this);
}

void CDUITreeNode::SetFocus(BOOL bFocus)
{
    if (CDUITreeViewImpl* const tree = GetTree())
        tree->SetFocus(bFocus);
}

// --- the place in the tree ---------------------------------------------------------------------------------

TreeBranch& CDUITreeNode::Branch()
{
    if (!m_pBranch)
        m_pBranch = std::make_unique<TreeBranch>(*this);
    return *m_pBranch;
}

int CDUITreeNode::RowCount() const
{
    if (!IsVisible(FALSE))
        return 0;
    return m_bExpand && m_pBranch ? Narrow(1 + LONGLONG{m_pBranch->RowCount()}) : 1;
}

void CDUITreeNode::SetParent(IDUIControl* parent)
{
    // The branch that adds the node makes itself known afterwards.
    m_pParentBranch = nullptr;
    m_nLayout = 0;
    CDUIControlBase::SetParent(parent);
}

CDUITreeViewImpl* CDUITreeNode::GetTree() const
{
    return m_pParentBranch ? m_pParentBranch->Tree() : nullptr;
}

CDUITreeNode* CDUITreeNode::GetParentNode() const
{
    return m_pParentBranch ? m_pParentBranch->Node() : nullptr;
}

CDUITreeNode* CDUITreeNode::GetChildNode(int index) const
{
    return m_pBranch ? m_pBranch->ChildAt(index) : nullptr;
}

int CDUITreeNode::GetLevel() const
{
    int level = 0;
    for (const CDUITreeNode* node = GetParentNode(); node; node = node->GetParentNode())
        ++level;
    return level;
}

bool CDUITreeNode::HasExpander() const
{
    return m_bHasChildren || (m_pBranch && m_pBranch->RowCount() > 0);
}

bool CDUITreeNode::IsInView() const
{
    const CDUITreeViewImpl* const tree = GetTree();
    return tree && m_nLayout == tree->m_nLayout;
}

void CDUITreeNode::SetExpand(BOOL bExpand)
{
    if (!bExpand == !m_bExpand)
        return;
    m_bExpand = bExpand ? TRUE : FALSE;
    UpdateLayout(TRUE, nullptr);
}

void CDUITreeNode::SetHasChildren(BOOL bHasChildren)
{
    if (!bHasChildren == !m_bHasChildren)
        return;
    m_bHasChildren = bHasChildren ? TRUE : FALSE;
    UpdateLayout(FALSE, nullptr);
}

void CDUITreeNode::UpdateLayout(BOOL bNeedLayout, RECT* prcInvalid)
{
    CDUITreeViewImpl* const tree = GetTree();
    if (bNeedLayout && m_pParentBranch && m_pParentBranch->Take(*this))
        tree->UpdateLayout(TRUE, prcInvalid);
    else if (!tree || prcInvalid || IsInView())
        CDUIButton::UpdateLayout(bNeedLayout, prcInvalid);
}

void CDUITreeNode::SetControlRect(const RECT& rect)
{
    StoreControlRect(rect);
    UpdateLayout(FALSE, nullptr);
}

// --- nodes below -------------------------------------------------------------------------------------------

BOOL CDUITreeNode::BeforeAddControl(CRefPtr<IDUIControl> child)
{
    return InterfaceOf<CDUITreeNode>(child.GetPtr(), "treeview_item") ? CDUIButton::BeforeAddControl(child)
                                                                      : FALSE;
}

void CDUITreeNode::AfterAddControl(CRefPtr<IDUIControl> child)
{
    Branch().AfterAdd(child);
}

void CDUITreeNode::BeforeRemoveControl(CRefPtr<IDUIControl> child)
{
    Branch().BeforeRemove(child);
}

void CDUITreeNode::AfterRemoveControl(CRefPtr<IDUIControl> child)
{
    Branch().AfterRemove(child);
}

void CDUITreeNode::RemoveAllControl()
{
    const ControlGuard keep(this);
    CDUITreeViewImpl* const tree = GetTree();
    const ControlGuard keepTree(tree);
    if (tree)
        tree->Forget(*this, false);
    CDUIButton::RemoveAllControl();
    if (Branch().Clear() && tree)
        tree->UpdateLayout(TRUE, nullptr);
}

int CDUITreeNode::GetControlIndex(CRefPtr<IDUIControl> child)
{
    auto* const node = InterfaceOf<CDUITreeNode>(child.GetPtr(), "treeview_item");
    return node ? Branch().PlaceOf(*node) : -1;
}

// --- painting and hitting ----------------------------------------------------------------------------------

RECT CDUITreeNode::GetExpanderRect()
{
    const CDUITreeViewImpl* const tree = GetTree();
    const LONGLONG indent = tree ? tree->GetIndent() : 0;
    const RECT row = GetControlRect();
    const LONGLONG left = Wide(row.left) + GetMargin().left + GetLevel() * indent;
    return Intersection(MakeRect(left, row.top, left + indent, row.bottom), row);
}

RECT CDUITreeNode::GetNodeIconRect()
{
    const CDUITreeViewImpl* const tree = GetTree();
    const RECT row = GetControlRect();
    const SIZE icon = skin::IconSize(GetButtonUIData().m_pIcon);
    const LONGLONG left =
        Wide(row.left) + GetMargin().left + (GetLevel() + 1) * LONGLONG{tree ? tree->GetIndent() : 0};
    const LONGLONG top = row.top + (Height(row) - icon.cy) / 2;
    return MakeRect(left, top, left + icon.cx, top + icon.cy);
}

RECT CDUITreeNode::GetNodeTextRect()
{
    const RECT icon = GetNodeIconRect();
    const RECT row = GetControlRect();
    const RECT margin = GetMargin();
    const LONGLONG gap = GetPaddingWidth();
    return Intersection(MakeRect(icon.right + gap, row.top, Wide(row.right) - margin.right, row.bottom), row);
}

void CDUITreeNode::DoPaint(HDC hdc, const RECT&)
{
    PaintBkgnd(hdc);
    PaintForgnd(hdc);
    PaintText(hdc);
    PaintBorder(hdc);
}

IDUIControl* CDUITreeNode::FindControl(FindControlProc proc, void* pData, UINT flags)
{
    // The tree view asks for the rows in view one by one; whoever looks for anything else wants all nodes.
    if (!(flags & (DUIFIND_VISIBLE | DUIFIND_HITTEST)))
        return CDUIButton::FindControl(proc, pData, flags);
    return content_walk::Find(*this, proc, pData, flags, [] { return static_cast<IDUIControl*>(nullptr); });
}

void CDUITreeNode::PaintBkgnd(HDC hdc)
{
    if (skin::IsLoaded(GetButtonUIData().m_pBackImage)) {
        CDUIButton::PaintBkgnd(hdc);
        return;
    }
    CDUITreeViewImpl* const tree = GetTree();
    if (!tree || !(GetSelect() || IsHoverd()))
        return;
    const CRefPtr<CDUIFrameBK> frame = GetSelect() ? tree->GetSelectFrameBK() : tree->GetHoverFrameBK();
    if (!frame.IsNull() && !frame->IsEmpty())
        frame->DrawBK(hdc, GetControlRect());
}

void CDUITreeNode::PaintForgnd(HDC hdc)
{
    CDUITreeViewImpl* const tree = GetTree();
    const int state = m_bExpand ? 1 : 0;
    if (tree && HasExpander() && skin::IsLoaded(tree->GetExpanderImage())) {
        const CDUIImageListPtr& image = tree->GetExpanderImage();
        const RECT place = GetExpanderRect();
        const SIZE size = skin::IconSize(image);
        const LONGLONG left = place.left + (Width(place) - size.cx) / 2;
        const LONGLONG top = place.top + (Height(place) - size.cy) / 2;
        image->DrawImage(hdc, MakeRect(left, top, left + size.cx, top + size.cy),
                         skin::IconIndex(image, state));
    }
    const CDUIImageListPtr& icon = GetButtonUIData().m_pIcon;
    if (skin::IsLoaded(icon))
        icon->DrawImage(hdc, GetNodeIconRect(), skin::IconIndex(icon, state));
}

void CDUITreeNode::PaintText(HDC hdc)
{
    CDUITreeViewImpl* const tree = GetTree();
    const RECT place = GetNodeTextRect();
    if (!tree || GetText().IsEmpty() || IsRectEmpty(&place))
        return;
    const TextState state = !IsEnabled()  ? TextState::Disable
                            : GetSelect() ? TextState::Select
                            : IsHoverd()  ? TextState::Hover
                                          : TextState::Normal;
    const CRefPtr<CTextStyle> style = tree->GetTextStyle();
    DrawStateText(hdc, GetText(), place, style.GetPtr(), state, state);
}

// --- input -------------------------------------------------------------------------------------------------

void CDUITreeNode::ForwardToTree(const tagDUIEvent& event, UINT type, BOOL& bHandled)
{
    CDUITreeViewImpl* const tree = GetTree();
    if (!tree)
        return;
    const ControlGuard keep(tree);
    tagDUIEvent forwarded = event;
    forwarded.Type = type;
    forwarded.pSender = this;
    tree->OnDUIEvent(forwarded, bHandled);
}

void CDUITreeNode::OnPress(const tagDUIEvent& event, BOOL& bHandled)
{
    CDUITreeViewImpl* const tree = GetTree();
    if (!tree)
        return;
    const ControlGuard keepTree(tree);
    const RECT expander = GetExpanderRect();
    CDUITreeNode* pressed = this;
    if (event.Type == DUIEVENT_LBUTTONDBLCLK)
        pressed = static_cast<CDUITreeNode*>(&tree->m_pPressed->RowFor(*this, event.ptMouse));
    else
        tree->m_pPressed->Note(this, event.ptMouse);
    const ControlGuard keepPressed(pressed);
    m_isPressForOther = pressed != this;
    if (!pressed->IsEnabled())
        return;
    if (!m_isPressForOther)
        m_isExpanderPress = HasExpander() && PtInRect(&expander, event.ptMouse);
    SetFocus(TRUE);
    if (pressed->m_isExpanderPress) {
        tree->ExpandNode(pressed, !pressed->m_bExpand);
        return;
    }
    ModifyStatus(0, DUISTATUS_PUSHED);
    if (event.Type == DUIEVENT_LBUTTONDBLCLK)
        pressed->ForwardToTree(event, DUIEVENT_ITEMDBLCLICK, bHandled);
}

LRESULT CDUITreeNode::ProcessEvent(const tagDUIEvent& event, BOOL& bHandled)
{
    const ControlGuard keep(this);
    const RECT row = GetControlRect();
    switch (event.Type) {
        case DUIEVENT_LBUTTONDOWN:
        case DUIEVENT_LBUTTONDBLCLK:
            OnPress(event, bHandled);
            return 0;
        case DUIEVENT_LBUTTONUP:
            ModifyStatus(DUISTATUS_PUSHED, 0);
            if (IsEnabled() && !m_isExpanderPress && !m_isPressForOther && PtInRect(&row, event.ptMouse))
                ForwardToTree(event, DUIEVENT_ITEMCLICK, bHandled);
            return 0;
        case DUIEVENT_MOUSEENTER:
            ModifyStatus(0, DUISTATUS_HOT);
            ForwardToTree(event, DUIEVENT_ITEMHOVER, bHandled);
            return 0;
        case DUIEVENT_MOUSELEAVE:
            ModifyStatus(DUISTATUS_HOT | DUISTATUS_PUSHED, 0);
            ForwardToTree(event, DUIEVENT_ITEMLEAVE, bHandled);
            return 0;
        default:
            break;
    }
    return CDUIControlBase::ProcessEvent(event, bHandled);
}

}  // namespace DUI
