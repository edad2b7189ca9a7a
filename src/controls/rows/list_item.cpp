#include <qvui/controls/rows/list_item.h>

#include <qvui/controls/rows/list_box.h>

#include "controls/rows/pressed_row.h"
#include "controls/state_text.h"
#include "foundation/rect.h"
#include "framework/control_guard.h"
#include "skin/skin_access.h"

namespace DUI {
namespace {

using namespace geometry;

/// What an event does to the item, and the event that its list gets for it (0 for none).
struct ItemEvent {
    UINT type;
    DWORD remove;
    DWORD add;
    UINT forwardedAs;
};

constexpr ItemEvent kEvents[] = {
    {DUIEVENT_LBUTTONDOWN, 0, DUISTATUS_PUSHED, 0},
    {DUIEVENT_LBUTTONUP, DUISTATUS_PUSHED, 0, DUIEVENT_ITEMCLICK},
    {DUIEVENT_LBUTTONDBLCLK, 0, DUISTATUS_PUSHED, DUIEVENT_ITEMDBLCLICK},
    {DUIEVENT_MOUSEENTER, 0, DUISTATUS_HOT, DUIEVENT_ITEMHOVER},
    {DUIEVENT_MOUSELEAVE, DUISTATUS_HOT, 0, DUIEVENT_ITEMLEAVE},
};

}  // namespace

const AttributeTable<CDUIListItem>& CDUIListItem::Attributes()
{
    using Item = CDUIListItem;
    static const AttributeTable<Item> table{
        {"normal_icon", AttributeKind::Image, "The icon, in a square as high as the item.",
         [](Item& item, const CString& value) { item.m_uiData.m_pNormalIcon = skin::Image(value); }},
        {"expand_icon", AttributeKind::Image, "The icon of the expanded item.",
         [](Item& item, const CString& value) { item.m_uiData.m_pExpandIcon = skin::Image(value); }},
        {"normal_frame", AttributeKind::FrameStyle, "The background.",
         [](Item& item, const CString& value) {
             if (!value.IsEmpty())
                 item.SetFrameBK(skin::Frame(value));
         }},
        {"hover_frame", AttributeKind::FrameStyle, "The background below the pointer.",
         &Item::SetHoverFrameBK},
        {"select_frame", AttributeKind::FrameStyle, "The background of the selected item.",
         &Item::SetSelectFrameBK},
        {"normal_height",
         {AttributeKind::Integer, "25", "", {.resets = "height"}},
         "The height in pixels.",
         [](Item& item, const CString& value) { item.SetHeight(FALSE, ReadInteger(value)); }},
        {"expand_height",
         {AttributeKind::Integer, "50", "", {.resets = "height"}},
         "The height of the expanded item.",
         [](Item& item, const CString& value) { item.SetHeight(TRUE, ReadInteger(value)); }},
        {"group",
         {AttributeKind::Boolean, "false"},
         "Whether the item is a header that shows or hides the items below it, up to the next header.",
         &Item::SetGroup},
        {"expand",
         {AttributeKind::Boolean, "false", "", {.resets = "height"}},
         "Whether the item has its expanded height, or the header shows its items.",
         &Item::SetExpand},
    };
    return table;
}

const ControlClass& CDUIListItem::Class()
{
    static const ControlClass theClass("CDUIListItem", &CDUIControlBase::Class(),
                                       "An item of a list box: an icon, a text and a frame for each state.",
                                       {"listItem"}, &Attributes());
    return theClass;
}

CDUIListItem::CDUIListItem()
{
    CDUIControlBase::SetFixedHeight(m_nNormalHeight);
}

CDUIListItem::~CDUIListItem() = default;

CDUIListItem::CDUIListItem(const CDUIListItem& other)
    : ControlOf(other),
      m_bSelect(other.m_bSelect),
      m_bExpand(other.m_bExpand),
      m_bGroup(other.m_bGroup),
      m_nIconIndex(other.m_nIconIndex),
      m_nNormalHeight(other.m_nNormalHeight),
      m_nExpandHeight(other.m_nExpandHeight),
      m_nItemData(other.m_nItemData),
      m_uiData(other.m_uiData),
      m_pFrame(other.m_pFrame),
      m_pHoverFrame(other.m_pHoverFrame),
      m_pSelectFrame(other.m_pSelectFrame)
{
}

void CDUIListItem::SetParent(IDUIControl* parent)
{
    CDUIControlBase::SetParent(parent);
    if (parent != m_pList)
        m_pList = nullptr;
}

void CDUIListItem::UpdateLayout(BOOL bNeedLayout, RECT* prcInvalid)
{
    if (m_pList && bNeedLayout && m_pList->TakeRow(*this))
        m_pList->UpdateLayout(TRUE, prcInvalid);
    else if (!m_pList || bNeedLayout || prcInvalid || m_pList->IsInView(*this))
        CDUIControlBase::UpdateLayout(bNeedLayout, prcInvalid);
}

void CDUIListItem::SetExpand(int bExpand)
{
    m_bExpand = bExpand;
    SetFixedHeight(GetHeight(bExpand));
}

void CDUIListItem::SetHeight(int bExpand, int nHeight)
{
    (bExpand ? m_nExpandHeight : m_nNormalHeight) = nHeight;
    SetExpand(m_bExpand);
}

// The item that an event is meant for: this one, unless a double press came to it by mistake.
IDUIControl* CDUIListItem::TargetOf(const tagDUIEvent& event)
{
    if (!m_pList || (event.Type != DUIEVENT_LBUTTONDOWN && event.Type != DUIEVENT_LBUTTONDBLCLK))
        return this;
    if (event.Type == DUIEVENT_LBUTTONDOWN)
        m_pList->m_pPressed->Note(this, event.ptMouse);
    IDUIControl& target = m_pList->m_pPressed->RowFor(*this, event.ptMouse);
    m_isPressForOther = &target != this;
    return &target;
}

LRESULT CDUIListItem::ProcessEvent(const tagDUIEvent& event, BOOL& bHandled)
{
    const auto known = std::find_if(std::begin(kEvents), std::end(kEvents),
                                    [&event](const ItemEvent& entry) { return entry.type == event.Type; });
    if (known == std::end(kEvents))
        return CDUIControlBase::ProcessEvent(event, bHandled);
    const ControlGuard keep(this);
    ModifyStatus(known->remove, known->add);
    IDUIControl* const target = TargetOf(event);
    const ControlGuard keepTarget(target);
    if (event.Type == DUIEVENT_LBUTTONDOWN && GetParent())
        GetParent()->SetFocus(TRUE);
    const RECT rect = GetControlRect();
    const bool isForwarded = known->forwardedAs && (event.Type != DUIEVENT_LBUTTONUP ||
                                                    (PtInRect(&rect, event.ptMouse) && !m_isPressForOther));
    if (isForwarded && GetParent()) {
        tagDUIEvent forwarded = event;
        forwarded.Type = known->forwardedAs;
        // An entering pointer names no sender, and the list must know which item it is.
        forwarded.pSender = target;
        const ControlGuard keepParent(GetParent());
        GetParent()->OnDUIEvent(forwarded, bHandled);
    }
    return bHandled ? 0 : CDUIControlBase::ProcessEvent(event, bHandled);
}

RECT CDUIListItem::GetIconRect()
{
    RECT rect = GetControlRect();
    rect.right = skin::IsLoaded(GetIcon()) ? Narrow(rect.left + Height(rect)) : rect.left;
    return rect;
}

RECT CDUIListItem::GetTextRect()
{
    RECT rect = GetControlRect();
    rect.left = Narrow(Wide(GetIconRect().right) + GetPaddingWidth());
    return rect;
}

void CDUIListItem::PaintBkgnd(HDC hdc)
{
    const bool isHot = (GetStatus() & DUISTATUS_HOT) != 0;
    const CRefPtr<CDUIFrameBK>& frame = m_bSelect ? m_pSelectFrame : isHot ? m_pHoverFrame : m_pFrame;
    if (!frame.IsNull() && !frame->IsEmpty())
        frame->DrawBK(hdc, GetBKRect());
}

void CDUIListItem::PaintForgnd(HDC hdc)
{
    const CDUIImageListPtr& icon = GetIcon();
    if (skin::IsLoaded(icon))
        icon->DrawImage(hdc, GetIconRect(), skin::IconIndex(icon, std::max(m_nIconIndex, 0)));
}

void CDUIListItem::PaintText(HDC hdc)
{
    if (GetText().IsEmpty() || !GetParent())
        return;
    const CRefPtr<CTextStyle> style = GetParent()->GetTextStyle();
    const bool isHot = (GetStatus() & DUISTATUS_HOT) != 0;
    const TextState state = m_bSelect ? TextState::Select : isHot ? TextState::Hover : TextState::Normal;
    DrawStateText(hdc, GetText(), GetTextRect(), style.GetPtr(), state, TextState::Normal);
}

}  // namespace DUI
