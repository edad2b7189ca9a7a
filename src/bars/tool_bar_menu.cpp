#include "bars/tool_bar_menu.h"

#include <algorithm>

#include <qvui/framework/app.h>
#include <qvui/layout/linear_layout.h>

#include "bars/tool_bar_colors.h"
#include "bars/tool_bar_plan.h"
#include "foundation/rect.h"
#include "tooltip/popup_placement.h"

namespace DUI {
namespace {

constexpr char kClassName[] = "QvuiToolBarMenu";
constexpr RECT kEntryMargin{8, 5, 16, 5};
constexpr int kIconToText = 8;
constexpr int kMenuMargin = 3;

// Returns the label of an item in the menu.
const CString& LabelOf(IDUIControl& item)
{
    if (!item.GetText().IsEmpty())
        return item.GetText();
    return item.GetTooltip().IsEmpty() ? item.GetName() : item.GetTooltip();
}

CRefPtr<CDUIButton> MakeEntry(CDUIButton& item, const CString& style)
{
    CRefPtr<CDUIButton> entry = new CDUIButton;
    entry->SetButtonUIData(item.GetButtonUIData());
    entry->SetButtonStyle(BTNSTYLE_LEFT_ICON);
    entry->SetMargin(kEntryMargin);
    entry->SetPaddingWidth(kIconToText);
    if (!style.IsEmpty())
        entry->SetAttribute("control_style", style);
    entry->SetText(LabelOf(item));
    entry->SetEnable(item.IsEnabled());
    entry->SetCheck(item.GetCheck());
    return entry;
}

CRefPtr<CDUIFrameBK> PlainFrame()
{
    CRefPtr<CDUIFrameBK> frame = new CDUIFrameBK;
    const MenuColors colors = PlainMenuColors();
    frame->SetBKColor(colors.paper);
    frame->SetFrameColor(colors.border);
    frame->SetFrameBorder({1, 1, 1, 1});
    return frame;
}

}  // namespace

ToolBarMenu::~ToolBarMenu()
{
    if (IsOpen())
        LeaveWindow();
}

// --- opening and closing -----------------------------------------------------------------------------------

bool ToolBarMenu::Open(const Request& request, Closed closed)
{
    if (!CreatePopup(kClassName, 0, request.owner))
        return false;
    m_closed = std::move(closed);
    m_chosen = nullptr;
    m_isDismissed = m_isClosing = false;
    SetFrameBkgnd(request.frame.IsNull() ? PlainFrame() : request.frame);
    RECT rect{0, 0, 0, 0};
    CreateFromRootControl(MakeEntries(request), PopupHandle(), rect);
    InitWindowMgr();
    DUIGetAppInstance()->GetMessageLoop()->AddMessageFilter(this);
    if (request.isByKeyboard)
        MoveFocus(-1, 1);
    ShowPopup(PlaceFor(request), true);
    return true;
}

CRefPtr<IDUIControl> ToolBarMenu::MakeEntries(const Request& request)
{
    m_entriesSize = {0, 0};
    const CRefPtr<CDUIVerticalLayout> list = new CDUIVerticalLayout;
    list->SetMargin({kMenuMargin, kMenuMargin, kMenuMargin, kMenuMargin});
    list->SetEnableScroll(1);
    for (const CRefPtr<IDUIControl>& item : request.items)
        if (CDUIButton* const button = InterfaceOf<CDUIButton>(item.GetPtr(), "button")) {
            const CRefPtr<CDUIButton> entry = MakeEntry(*button, request.itemStyle);
            SIZE wanted{0, 0};
            entry->EstimateSize({0, 0}, wanted);
            entry->SetFixedHeight(wanted.cy);
            m_entriesSize.cx = std::max(m_entriesSize.cx, wanted.cx);
            m_entriesSize.cy = geometry::Narrow(LONGLONG{m_entriesSize.cy} + wanted.cy);
            m_items.push_back(item);
            m_entries.push_back(entry);
            list->AddControl(entry.GetPtr());
        }
    return list.GetPtr();
}

RECT ToolBarMenu::PlaceFor(const Request& request)
{
    const RECT area = WorkAreaAt({request.anchor.left, request.anchor.bottom});
    const RECT border = GetFrameBkgnd()->GetFrameBorder();
    const RECT whole = geometry::MakeRect(
        0, 0, LONGLONG{m_entriesSize.cx} + LONGLONG{2} * kMenuMargin + border.left + border.right,
        LONGLONG{m_entriesSize.cy} + LONGLONG{2} * kMenuMargin + border.top + border.bottom);
    const SIZE size{std::min(whole.right, area.right - area.left),
                    std::min(whole.bottom, area.bottom - area.top)};
    const POINT corner = PlaceMenu(area, request.anchor, size, request.opensSideways);
    return {corner.x, corner.y, corner.x + size.cx, corner.y + size.cy};
}

void ToolBarMenu::Close()
{
    if (!IsOpen() || m_isClosing)
        return;
    const std::shared_ptr<PopupWindow> keep = weak_from_this().lock();
    m_isClosing = true;
    DestroyPopup();
    Report();
}

// The call may destroy the menu, so no member is accessed after it.
void ToolBarMenu::Report()
{
    const Closed closed = std::exchange(m_closed, nullptr);
    const CRefPtr<IDUIControl> chosen = std::exchange(m_chosen, nullptr);
    if (closed)
        closed(chosen, m_isDismissed);
}

void ToolBarMenu::LeaveWindow()
{
    DUIGetAppInstance()->GetMessageLoop()->RemoveMessageFilter(this);
    FinishWindowMgr();
    m_entries.clear();
    m_items.clear();
}

void ToolBarMenu::AfterPopupDestroyed()
{
    // Destroyed with its owner rather than by Close.
    if (!m_isClosing)
        Report();
}

// --- input -------------------------------------------------------------------------------------------------

bool ToolBarMenu::OnPopupMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result)
{
    BOOL bHandled = TRUE;
    switch (message) {
        case WM_PAINT:
            result = OnPaint(message, wParam, lParam, bHandled);
            return true;
        case WM_TIMER:
            result = OnTimer(message, wParam, lParam, bHandled);
            return true;
        case WM_KEYDOWN:
            if (HandleKey(wParam))
                return true;
            break;
        default:
            break;
    }
    return ProcessWindowMessage(PopupHandle(), message, wParam, lParam, result);
}

BOOL ToolBarMenu::PreTranslateMessage(MSG* pMsg)
{
    if (pMsg->hwnd != PopupHandle())
        return FALSE;
    const std::shared_ptr<PopupWindow> keep = weak_from_this().lock();
    return (pMsg->message == WM_KEYDOWN && HandleKey(pMsg->wParam)) ||
           CDUIWindowMgr::PreTranslateMessage(pMsg);
}

bool ToolBarMenu::HandleKey(WPARAM key)
{
    switch (key) {
        case VK_ESCAPE:
        case VK_TAB:
            m_isDismissed = true;
            Close();
            return true;
        case VK_RETURN:
            Choose(FocusedEntry());
            return true;
        case VK_DOWN:
            MoveFocus(FocusedEntry(), 1);
            return true;
        case VK_UP:
            MoveFocus(FocusedEntry(), -1);
            return true;
        case VK_HOME:
            MoveFocus(-1, 1);
            return true;
        case VK_END:
            MoveFocus(-1, -1);
            return true;
        default:
            return false;
    }
}

// Moves the focus from an entry, or from -1 into the list, to the next enabled one; wraps around at the ends.
void ToolBarMenu::MoveFocus(int from, int step)
{
    const int count = static_cast<int>(m_entries.size());
    int entry = from < 0 && step < 0 ? count : from;
    for (int tries = 0; tries < count; ++tries) {
        entry = (entry + step + count) % count;
        CDUIButton& button = *m_entries[static_cast<std::size_t>(entry)].GetPtr();
        if (button.IsEnabled()) {
            button.SetFocus(TRUE);
            return;
        }
    }
}

int ToolBarMenu::FocusedEntry() const
{
    const auto place = std::find_if(
        m_entries.begin(), m_entries.end(),
        [this](const CRefPtr<CDUIButton>& entry) { return entry.GetPtr() == GetFocusControl(); });
    return place == m_entries.end() ? -1 : static_cast<int>(place - m_entries.begin());
}

void ToolBarMenu::OnDUINotify(const tagDUINotify& notify, BOOL& bHandled)
{
    CDUIWindowMgr::OnDUINotify(notify, bHandled);
    if (notify.nCode != DUINOTIFY_CLICK)
        return;
    for (std::size_t i = 0; i < m_entries.size(); ++i)
        if (m_entries[i].GetPtr() == notify.pSender) {
            bHandled = TRUE;
            Choose(static_cast<int>(i));
            return;
        }
}

void ToolBarMenu::Choose(int entry)
{
    if (entry < 0)
        return;
    m_chosen = m_items[static_cast<std::size_t>(entry)];
    Close();
}

}  // namespace DUI
