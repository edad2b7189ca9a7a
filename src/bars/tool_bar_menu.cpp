#include "bars/tool_bar_menu.h"

#include <algorithm>

#include <qvui/framework/app.h>
#include <qvui/layout/linear_layout.h>

#include "bars/tool_bar_colors.h"
#include "bars/tool_bar_plan.h"
#include "foundation/rect.h"
#include "tooltip/popup_class.h"
#include "tooltip/tool_tip_placement.h"

namespace DUI {
namespace {

constexpr char kClassName[] = "QvuiToolBarMenu";
constexpr RECT kEntryMargin{8, 5, 16, 5};
constexpr int kIconToText = 8;
constexpr int kMenuMargin = 3;

// What an item is called in a list.
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
    if (!m_window)
        return;
    const HWND window = m_window;
    SetWindowLongPtrA(window, GWLP_USERDATA, 0);
    OnDestroyed();
    DestroyWindow(window);
}

// --- opening and closing -----------------------------------------------------------------------------------

bool ToolBarMenu::Open(const Request& request, Closed closed)
{
    if (m_window || !::IsWindow(request.owner) || !RegisterPopupClass(kClassName, &ToolBarMenu::Procedure))
        return false;
    m_window = CreateWindowExA(WS_EX_TOOLWINDOW, kClassName, "", WS_POPUP, 0, 0, 0, 0, request.owner, nullptr,
                               GetModuleHandleA(nullptr), this);
    if (!m_window)
        return false;
    m_closed = std::move(closed);
    m_chosen = nullptr;
    m_isDismissed = m_isClosing = false;
    SetFrameBkgnd(request.frame.IsNull() ? PlainFrame() : request.frame);
    RECT rect{0, 0, 0, 0};
    CreateFromRootControl(MakeEntries(request), m_window, rect);
    InitWindowMgr();
    DUIGetAppInstance()->GetMessageLoop()->AddMessageFilter(this);
    PlaceWindow(request);
    if (request.isByKeyboard)
        MoveFocus(-1, 1);
    ShowWindow(m_window, SW_SHOW);
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

void ToolBarMenu::PlaceWindow(const Request& request)
{
    const RECT area = WorkAreaAt({request.anchor.left, request.anchor.bottom});
    const RECT border = GetFrameBkgnd()->GetFrameBorder();
    const RECT whole = geometry::MakeRect(
        0, 0, LONGLONG{m_entriesSize.cx} + LONGLONG{2} * kMenuMargin + border.left + border.right,
        LONGLONG{m_entriesSize.cy} + LONGLONG{2} * kMenuMargin + border.top + border.bottom);
    const SIZE size{std::min(whole.right, area.right - area.left),
                    std::min(whole.bottom, area.bottom - area.top)};
    const POINT corner = layout::PlaceMenu(area, request.anchor, size, request.opensSideways);
    SetWindowPos(m_window, HWND_TOP, corner.x, corner.y, size.cx, size.cy, SWP_NOACTIVATE);
}

void ToolBarMenu::Close()
{
    if (!m_window || m_isClosing)
        return;
    const std::shared_ptr<ToolBarMenu> keep = weak_from_this().lock();
    m_isClosing = true;
    DestroyWindow(m_window);
    Report();
}

// Nothing of the menu is touched after the call, which may end it.
void ToolBarMenu::Report()
{
    const Closed closed = std::exchange(m_closed, nullptr);
    const CRefPtr<IDUIControl> chosen = std::exchange(m_chosen, nullptr);
    if (closed)
        closed(chosen, m_isDismissed);
}

void ToolBarMenu::OnDestroyed()
{
    DUIGetAppInstance()->GetMessageLoop()->RemoveMessageFilter(this);
    FinishWindowMgr();
    m_entries.clear();
    m_items.clear();
    m_window = nullptr;
}

// --- input -------------------------------------------------------------------------------------------------

LRESULT CALLBACK ToolBarMenu::Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    if (message == WM_NCCREATE) {
        const auto* const creation = reinterpret_cast<const CREATESTRUCTA*>(lParam);
        SetWindowLongPtrA(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(creation->lpCreateParams));
    }
    auto* const self = reinterpret_cast<ToolBarMenu*>(GetWindowLongPtrA(window, GWLP_USERDATA));
    if (!self || self->m_window != window)
        return DefWindowProcA(window, message, wParam, lParam);
    const std::shared_ptr<ToolBarMenu> keep = self->weak_from_this().lock();
    return self->OnMessage(message, wParam, lParam);
}

LRESULT ToolBarMenu::OnMessage(UINT message, WPARAM wParam, LPARAM lParam)
{
    const HWND window = m_window;
    BOOL bHandled = TRUE;
    LRESULT result = 0;
    switch (message) {
        case WM_PAINT:
            return OnPaint(message, wParam, lParam, bHandled);
        case WM_TIMER:
            return OnTimer(message, wParam, lParam, bHandled);
        case WM_KEYDOWN:
            if (HandleKey(wParam))
                return 0;
            break;
        case WM_ACTIVATE:
            // Not at once: a window must not go while another one takes its activation.
            if (LOWORD(wParam) == WA_INACTIVE)
                PostMessageA(window, WM_CLOSE, 0, 0);
            break;
        case WM_CLOSE:
            Close();
            return 0;
        case WM_DESTROY:
            OnDestroyed();
            // Gone with its owner, and not by Close.
            if (!m_isClosing)
                Report();
            return 0;
        default:
            break;
    }
    if (ProcessWindowMessage(window, message, wParam, lParam, result))
        return result;
    return DefWindowProcA(window, message, wParam, lParam);
}

BOOL ToolBarMenu::PreTranslateMessage(MSG* pMsg)
{
    if (pMsg->hwnd != m_window)
        return FALSE;
    const std::shared_ptr<ToolBarMenu> keep = weak_from_this().lock();
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

// From an entry, or from -1 into the list, to the next that is enabled; round at the ends.
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
