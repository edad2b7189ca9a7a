#include "bars/tool_bar_items.h"

#include <algorithm>

#include "framework/control_guard.h"

namespace DUI {

namespace {

RECT ToScreen(HWND window, const RECT& client)
{
    POINT corner{client.left, client.top};
    POINT opposite{client.right, client.bottom};
    ClientToScreen(window, &corner);
    ClientToScreen(window, &opposite);
    return {corner.x, corner.y, opposite.x, opposite.y};
}

}  // namespace

ToolBarItems::ToolBarItems(CDUICanvas& bar, bool isVertical, Keys keys)
    : m_bar(bar),
      m_isVertical(isVertical),
      m_keys(keys),
      m_overflow(new ToolBarOverflow(isVertical)),
      m_menu(std::make_shared<ToolBarMenu>())
{
    m_overflow->SetParent(&bar);
    m_overflow->onActivate = [this] { OnActivateOverflow(); };
}

ToolBarItems::~ToolBarItems()
{
    ReleaseChildren();
    Release(*m_overflow.GetPtr());
    m_overflow->onActivate = nullptr;
    m_overflow->SetParent(nullptr);
    CloseMenu();
}

// --- children ----------------------------------------------------------------------------------------------

void ToolBarItems::OnCreate()
{
    m_overflow->AttachWindow(m_bar.GetControlMgr());
    for (int i = 0; i < m_bar.GetControlCount(); ++i)
        Take(*m_bar.GetControlByIndex(i));
    Take(*m_overflow.GetPtr());
    EnsureTabStop();
}

void ToolBarItems::OnDestroy()
{
    CloseMenu();
    ReleaseChildren();
    Release(*m_overflow.GetPtr());
    m_overflow->DetachWindow();
}

void ToolBarItems::OnAdded(IDUIControl& child)
{
    if (!m_bar.GetControlMgr())
        return;
    Take(child);
    EnsureTabStop();
}

void ToolBarItems::OnRemoved(IDUIControl& child)
{
    Release(child);
}

void ToolBarItems::ReleaseChildren()
{
    for (int i = 0; i < m_bar.GetControlCount(); ++i)
        Release(*m_bar.GetControlByIndex(i));
}

void ToolBarItems::Take(IDUIControl& item)
{
    if (item.GetInterface("button") && (item.GetStyle() & DUISTYLE_TABSTOP))
        m_keyboardItems.insert(&item);
}

void ToolBarItems::Release(IDUIControl& item)
{
    if (m_keyboardItems.erase(&item) != 0)
        item.ModifyStyle(0, DUISTYLE_TABSTOP);
}

void ToolBarItems::CopyTabStops(const ToolBarItems& other)
{
    for (int i = 0; i < m_bar.GetControlCount(); ++i)
        if (other.IsOurs(other.m_bar.GetControlByIndex(i)))
            m_bar.GetControlByIndex(i)->ModifyStyle(0, DUISTYLE_TABSTOP);
}

void ToolBarItems::SetLook(const Look& look)
{
    m_look = look;
    m_overflow->SetImage(look.overflow);
    m_bar.UpdateLayout(TRUE, nullptr);
}

// --- the keyboard ------------------------------------------------------------------------------------------

std::vector<IDUIControl*> ToolBarItems::AllItems() const
{
    std::vector<IDUIControl*> items;
    items.reserve(static_cast<std::size_t>(m_bar.GetControlCount()) + 1);
    for (int i = 0; i < m_bar.GetControlCount(); ++i)
        items.push_back(m_bar.GetControlByIndex(i));
    items.push_back(m_overflow.GetPtr());
    return items;
}

bool ToolBarItems::IsUsable(IDUIControl& item) const
{
    const RECT rect = item.GetControlRect();
    return IsOurs(&item) && item.IsVisible(FALSE) && item.IsEnabled() && !IsRectEmpty(&rect);
}

std::vector<IDUIControl*> ToolBarItems::UsableItems() const
{
    std::vector<IDUIControl*> items = AllItems();
    items.erase(
        std::remove_if(items.begin(), items.end(), [this](IDUIControl* item) { return !IsUsable(*item); }),
        items.end());
    return items;
}

void ToolBarItems::MakeTabStop(const IDUIControl* chosen)
{
    for (IDUIControl* const item : AllItems())
        if (IsOurs(item))
            item->ModifyStyle(DUISTYLE_TABSTOP, item == chosen ? DWORD{DUISTYLE_TABSTOP} : 0);
}

void ToolBarItems::EnsureTabStop()
{
    if (m_keyboardItems.empty())
        return;
    const std::vector<IDUIControl*> usable = UsableItems();
    const auto current = std::find_if(usable.begin(), usable.end(), [](const IDUIControl* item) {
        return (item->GetStyle() & DUISTYLE_TABSTOP) != 0;
    });
    if (current != usable.end())
        MakeTabStop(*current);
    else
        MakeTabStop(usable.empty() ? nullptr : usable.front());
}

void ToolBarItems::OnButtonEvent(CDUIButton& item, const tagDUIEvent& event, BOOL& bHandled)
{
    if (!IsOurs(&item))
        return;
    const ControlGuard keep(&m_bar);
    switch (event.Type) {
        case DUIEVENT_LBUTTONDOWN:
        case DUIEVENT_LBUTTONDBLCLK:
            m_wasOpenAtPress = m_menu->IsOpen();
            // The window has set the focus only if the item was the tab stop.
            if (!(item.GetStyle() & DUISTYLE_TABSTOP))
                item.SetFocus(TRUE);
            break;
        case DUIEVENT_SETFOCUS:
            MakeTabStop(&item);
            break;
        case DUIEVENT_KEYDOWN:
            m_wasOpenAtPress = false;
            if (HandleKey(item, event))
                bHandled = TRUE;
            break;
        default:
            break;
    }
}

bool ToolBarItems::HandleKey(IDUIControl& item, const tagDUIEvent& event)
{
    constexpr WORD kAlt = 0x20;
    const std::vector<IDUIControl*> usable = UsableItems();
    const auto place = std::find(usable.begin(), usable.end(), &item);
    if (place == usable.end() || (event.wKeyState & (MK_CONTROL | kAlt)))
        return false;
    const auto at = static_cast<std::size_t>(place - usable.begin());
    std::size_t target = at;
    if (event.wParam == m_keys.forward)
        target = (at + 1) % usable.size();
    else if (event.wParam == m_keys.backward)
        target = (at + usable.size() - 1) % usable.size();
    else if (event.wParam == VK_HOME)
        target = 0;
    else if (event.wParam == VK_END)
        target = usable.size() - 1;
    else
        return false;
    usable[target]->SetFocus(TRUE);
    return true;
}

// --- what does not fit -------------------------------------------------------------------------------------

void ToolBarItems::SetOverflow(bool overflows, const RECT& place)
{
    m_overflows = overflows;
    m_overflow->SetControlRect(place);
    EnsureTabStop();
    // An item that no longer fits must not keep the focus.
    IDUIControl* const focus = m_bar.GetFocusControl();
    if (!focus || !IsOurs(focus))
        return;
    const RECT focusRect = focus->GetControlRect();
    if (!IsRectEmpty(&focusRect))
        return;
    const std::vector<IDUIControl*> usable = UsableItems();
    if (!usable.empty())
        usable.back()->SetFocus(TRUE);
}

ToolBarMenu::Items ToolBarItems::ItemsWithoutRoom() const
{
    ToolBarMenu::Items items;
    for (int i = 0; i < m_bar.GetControlCount(); ++i) {
        IDUIControl* const child = m_bar.GetControlByIndex(i);
        const RECT rect = child->GetControlRect();
        if (child->IsVisible(FALSE) && IsRectEmpty(&rect) && child->GetInterface("button"))
            items.emplace_back(child);
    }
    return items;
}

// A press on the button while the menu is open has already closed it and must not open it again.
void ToolBarItems::OnActivateOverflow()
{
    if (!std::exchange(m_wasOpenAtPress, false))
        OpenMenu();
}

bool ToolBarItems::OpenMenu()
{
    ToolBarMenu::Request request;
    request.owner = m_bar.GetManagerWnd(FALSE);
    request.items = m_overflows ? ItemsWithoutRoom() : ToolBarMenu::Items{};
    if (!request.owner || request.items.empty())
        return false;
    request.anchor = ToScreen(request.owner, m_overflow->GetControlRect());
    request.opensSideways = m_isVertical;
    request.isByKeyboard = m_overflow->GetFocus() && !m_overflow->IsHoverd();
    request.frame = m_look.frame;
    request.itemStyle = m_look.itemStyle;
    const CRefPtr<ToolBarOverflow> button = m_overflow;
    return m_menu->Open(request, [button](const CRefPtr<IDUIControl>& chosen, bool isDismissed) {
        // The menu has taken the focus from the window and its controls.
        if (isDismissed || !chosen.IsNull())
            button->SetFocus(TRUE);
        if (!chosen.IsNull())
            chosen->Activate();
    });
}

void ToolBarItems::CloseMenu()
{
    m_menu->Close();
}

}  // namespace DUI
