#include <qvui/tooltip/tool_tip.h>

#include <algorithm>
#include <utility>
#include <vector>

#include <qvui/tooltip/draw_manager.h>
#include <qvui/tooltip/html_drawer.h>

#include "tooltip/popup_placement.h"
#include "tooltip/popup_window.h"
#include "tooltip/tool_tip_timers.h"

namespace DUI {
namespace {

constexpr char kClassName[] = "QvuiToolTip";
constexpr int kControlId = 0x7474;

constexpr UINT kWatchPeriod = 100;

bool SamePoint(POINT left, POINT right)
{
    return left.x == right.x && left.y == right.y;
}

bool IsPartOf(HWND window, HWND tool)
{
    return window && (window == tool || IsChild(tool, window));
}

}  // namespace

/// The native window and everything it knows. Calls into it hold it, since the owner may destroy the tooltip
/// from inside a notification.
class CPPToolTip::Window : public PopupWindow {
public:
    BOOL Create(HWND host);
    void Destroy() { DestroyPopup(); }
    void Relay(const MSG& message);
    void Hide();
    bool IsVisible() const { return m_isVisible; }

    void AddTool(const TOOLTIP_INFO& info, HWND window);
    void DelTool(HWND window, UINT_PTR id);

    int m_initialDelay = 500;
    int m_stay = 5000;
    int m_reshowDelay = 100;
    COLORREF m_background = RGB(169, 209, 236);
    COLORREF m_textColor = RGB(0, 0, 0);
    int m_corner = 0;
    SIZE m_margin{5, 5};
    SIZE m_offset{5, 10};

private:
    struct Tool {
        HWND window;
        TOOLTIP_INFO info;
    };

    bool OnPopupMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) override;
    void AfterPopupDestroyed() override;
    void OnTimer(UINT_PTR id);
    void OnMove(const MSG& message);
    void OnDelayPassed();
    void Watch();
    void Paint();

    const Tool* ToolAt(HWND window, POINT screen) const;
    bool IsToolUnder(POINT screen) const;
    bool IsHostReady() const;
    bool Ask(POINT screen, TOOLTIP_INFO& answer);
    void StartDelay();
    void Leave();
    void Dismiss();
    void Show(POINT pointer);

    HWND m_host = nullptr;
    std::vector<Tool> m_tools;

    HWND m_toolWindow = nullptr;  // of the tool under the pointer
    UINT_PTR m_toolId = 0;
    POINT m_pointer{};
    CPPHtmlDrawer m_drawer;
    TOOLTIP_INFO m_shown;  // the last answer, of what shows or was dismissed
    RECT m_hostPlace{};
    bool m_isWaiting = false;  // for the pointer to rest
    bool m_isVisible = false;
    bool m_isDismissed = false;  // until the answer is another one
    bool m_isWarm = false;       // a tooltip has just been left for the next tool
    DWORD m_hiddenAt = 0;
};

BOOL CPPToolTip::Window::Create(HWND host)
{
    if (!CreatePopup(kClassName, WS_EX_TOPMOST | WS_EX_NOACTIVATE | WS_EX_TRANSPARENT, host))
        return FALSE;
    m_host = host;
    return TRUE;
}

bool CPPToolTip::Window::OnPopupMessage(UINT message, WPARAM wParam, LPARAM, LRESULT& result)
{
    switch (message) {
        case WM_NCHITTEST:
            result = HTTRANSPARENT;
            return true;
        case WM_MOUSEACTIVATE:
            result = MA_NOACTIVATE;
            return true;
        case WM_ERASEBKGND:
            result = 1;
            return true;
        case WM_PAINT:
            Paint();
            return true;
        case WM_TIMER:
            OnTimer(static_cast<UINT_PTR>(wParam));
            return true;
        case WM_ACTIVATEAPP:
            if (!wParam)
                Leave();
            return true;
        default:
            return false;
    }
}

void CPPToolTip::Window::AfterPopupDestroyed()
{
    m_toolWindow = nullptr;
    m_isWaiting = m_isVisible = m_isDismissed = m_isWarm = false;
}

void CPPToolTip::Window::OnTimer(UINT_PTR id)
{
    switch (id) {
        case kToolTipShow:
            KillTimer(PopupHandle(), kToolTipShow);
            OnDelayPassed();
            break;
        case kToolTipHide:
            if (m_isVisible)
                Dismiss();
            break;
        case kToolTipWatch:
            if (m_isVisible)
                Watch();
            break;
        default:
            break;
    }
}

void CPPToolTip::Window::Relay(const MSG& message)
{
    if (!PopupHandle())
        return;
    switch (message.message) {
        case WM_MOUSEMOVE:
            OnMove(message);
            break;
        case WM_MOUSELEAVE:
        case WM_NCMOUSELEAVE:
            // It may be another window that was left, for the tool.
            if (POINT pointer{}; !GetCursorPos(&pointer) || !IsToolUnder(pointer))
                Leave();
            break;
        case WM_NCMOUSEMOVE:
            Leave();
            break;
        case WM_LBUTTONDOWN:
        case WM_RBUTTONDOWN:
        case WM_MBUTTONDOWN:
        case WM_LBUTTONDBLCLK:
        case WM_RBUTTONDBLCLK:
        case WM_MBUTTONDBLCLK:
        case WM_NCLBUTTONDOWN:
        case WM_NCRBUTTONDOWN:
        case WM_MOUSEWHEEL:
        case WM_MOUSEHWHEEL:
        case WM_KEYDOWN:
        case WM_SYSKEYDOWN:
            Dismiss();
            break;
        default:
            break;
    }
}

void CPPToolTip::Window::OnMove(const MSG& message)
{
    POINT screen{static_cast<short>(LOWORD(message.lParam)), static_cast<short>(HIWORD(message.lParam))};
    ClientToScreen(message.hwnd, &screen);
    const Tool* const tool = ToolAt(message.hwnd, screen);
    const HWND toolWindow = tool ? tool->window : nullptr;
    const UINT_PTR toolId = tool ? tool->info.nIDTool : 0;
    const bool isSameTool = tool && toolWindow == m_toolWindow && toolId == m_toolId;
    // Showing and hiding a window makes a move to the place where the pointer is already.
    if (isSameTool && SamePoint(screen, m_pointer))
        return;
    m_pointer = screen;
    if (!isSameTool)
        Leave();
    if (!toolWindow || message.wParam & (MK_LBUTTON | MK_RBUTTON | MK_MBUTTON))
        return;
    m_toolWindow = toolWindow;
    m_toolId = toolId;
    if (m_isVisible || m_isDismissed) {
        TOOLTIP_INFO answer;
        if (!Ask(screen, answer) || answer.sTooltip == m_shown.sTooltip)
            return;
        m_isDismissed = false;
        if (m_isVisible) {
            Hide();
            m_isWarm = true;
        }
    }
    StartDelay();
}

void CPPToolTip::Window::StartDelay()
{
    m_isWaiting = true;
    const bool isWarm = m_isWarm && GetTickCount() - m_hiddenAt < static_cast<DWORD>(m_initialDelay);
    SetTimer(PopupHandle(), kToolTipShow, static_cast<UINT>(isWarm ? m_reshowDelay : m_initialDelay),
             nullptr);
}

void CPPToolTip::Window::OnDelayPassed()
{
    POINT pointer{};
    // A timer's message may have been on its way when the timer was stopped.
    if (!std::exchange(m_isWaiting, false) || !GetCursorPos(&pointer))
        return;
    if (!IsToolUnder(pointer) || !IsHostReady())
        return;
    TOOLTIP_INFO answer;
    if (!Ask(pointer, answer) || answer.sTooltip.IsEmpty())
        return;
    m_shown = std::move(answer);
    m_pointer = pointer;
    Show(pointer);
}

void CPPToolTip::Window::Watch()
{
    RECT place{};
    POINT pointer{};
    const bool isInPlace = IsHostReady() && GetWindowRect(m_host, &place) && EqualRect(&place, &m_hostPlace);
    if (!isInPlace || (GetCursorPos(&pointer) && !IsToolUnder(pointer)))
        Leave();
}

const CPPToolTip::Window::Tool* CPPToolTip::Window::ToolAt(HWND window, POINT screen) const
{
    for (const Tool& tool : m_tools) {
        POINT client = screen;
        if (IsPartOf(window, tool.window) && ScreenToClient(tool.window, &client) &&
            PtInRect(&tool.info.rectBounds, client))
            return &tool;
    }
    return nullptr;
}

bool CPPToolTip::Window::IsToolUnder(POINT screen) const
{
    HWND window = WindowFromPoint(screen);
    // A tooltip in a corner of the screen may lie under the pointer.
    if (window == PopupHandle())
        window = m_toolWindow;
    const Tool* const tool = ToolAt(window, screen);
    return tool && tool->window == m_toolWindow && tool->info.nIDTool == m_toolId;
}

bool CPPToolTip::Window::IsHostReady() const
{
    const HWND root = GetAncestor(m_host, GA_ROOT);
    const HWND active = GetActiveWindow();
    return active && GetAncestor(active, GA_ROOTOWNER) == GetAncestor(m_host, GA_ROOTOWNER) &&
           IsWindowVisible(m_host) && IsWindowEnabled(root) && !IsIconic(root);
}

bool CPPToolTip::Window::Ask(POINT screen, TOOLTIP_INFO& answer)
{
    const auto tool = std::find_if(m_tools.begin(), m_tools.end(), [this](const Tool& candidate) {
        return candidate.window == m_toolWindow && candidate.info.nIDTool == m_toolId;
    });
    if (tool == m_tools.end())
        return false;
    answer = tool->info;
    NM_TOOLTIP_DISPLAY notification{
        {PopupHandle(), kControlId, TOOLTIP_DISPLAY}, screen, tool->window, &answer};
    SendMessageA(m_host, WM_NOTIFY, kControlId, reinterpret_cast<LPARAM>(&notification));
    return PopupHandle() != nullptr;
}

void CPPToolTip::Window::Leave()
{
    const bool wasVisible = m_isVisible;
    Hide();
    if (wasVisible)
        m_isWarm = true;
    m_toolWindow = nullptr;
    m_isDismissed = false;
}

void CPPToolTip::Window::Dismiss()
{
    if (!m_toolWindow || m_isDismissed)
        return;
    // What must not show again is what the pointer is on, also when it has not shown yet.
    TOOLTIP_INFO answer;
    if (!m_isVisible) {
        if (!Ask(m_pointer, answer))
            return;
        m_shown = std::move(answer);
    }
    Hide();
    m_isDismissed = true;
    m_isWarm = false;
}

void CPPToolTip::Window::Hide()
{
    if (!PopupHandle())
        return;
    KillTimer(PopupHandle(), kToolTipShow);
    m_isWaiting = false;
    m_isWarm = m_isWarm && !m_isVisible;
    if (!m_isVisible)
        return;
    KillTimer(PopupHandle(), kToolTipHide);
    KillTimer(PopupHandle(), kToolTipWatch);
    m_isVisible = false;
    m_hiddenAt = GetTickCount();
    ShowWindow(PopupHandle(), SW_HIDE);
}

void CPPToolTip::Window::Show(POINT pointer)
{
    const RECT area = WorkAreaAt(pointer);
    const SIZE frame{2 * (m_margin.cx + 1), 2 * (m_margin.cy + 1)};
    m_drawer.SetText(m_shown.sTooltip);
    const SIZE text =
        m_drawer.Measure(nullptr, (area.right - area.left) / 2, area.bottom - area.top - frame.cy);
    const SIZE size{text.cx + frame.cx, std::min(text.cy + frame.cy, area.bottom - area.top)};
    const POINT corner = PlaceToolTip({area, pointer, size, m_offset});
    GetWindowRect(m_host, &m_hostPlace);
    m_isVisible = true;
    m_isWarm = false;
    if (m_stay > 0)
        SetTimer(PopupHandle(), kToolTipHide, static_cast<UINT>(m_stay), nullptr);
    SetTimer(PopupHandle(), kToolTipWatch, kWatchPeriod, nullptr);
    // The window owns the region that it is given.
    SetWindowRgn(
        PopupHandle(),
        m_corner > 0 ? CreateRoundRectRgn(0, 0, size.cx + 1, size.cy + 1, m_corner, m_corner) : nullptr,
        FALSE);
    ShowPopup({corner.x, corner.y, corner.x + size.cx, corner.y + size.cy}, false);
    InvalidateRect(PopupHandle(), nullptr, FALSE);
    UpdateWindow(PopupHandle());
}

void CPPToolTip::Window::Paint()
{
    PAINTSTRUCT paint;
    const HDC hdc = BeginPaint(PopupHandle(), &paint);
    RECT client{};
    GetClientRect(PopupHandle(), &client);
    if (m_shown.nMask & TOOLTIP_MASK_COLORS)
        CPPDrawManager::FillTooltip(hdc, client, m_corner, m_shown.nEffect, m_shown.crBegin, m_shown.crMid,
                                    m_shown.crEnd);
    else
        CPPDrawManager::FillTooltip(hdc, client, m_corner, TOOLTIP_EFFECT_SOLID, m_background, m_background,
                                    m_background);
    InflateRect(&client, -(m_margin.cx + 1), -(m_margin.cy + 1));
    m_drawer.SetTextColor((m_shown.nMask & TOOLTIP_MASK_TEXT_COLOR) ? m_shown.crText : m_textColor);
    m_drawer.Draw(hdc, client);
    EndPaint(PopupHandle(), &paint);
}

void CPPToolTip::Window::AddTool(const TOOLTIP_INFO& info, HWND window)
{
    for (Tool& tool : m_tools) {
        if (tool.window == window && tool.info.nIDTool == info.nIDTool) {
            tool.info = info;
            return;
        }
    }
    m_tools.push_back({window, info});
}

void CPPToolTip::Window::DelTool(HWND window, UINT_PTR id)
{
    std::erase_if(m_tools,
                  [=](const Tool& tool) { return tool.window == window && tool.info.nIDTool == id; });
}

CPPToolTip::CPPToolTip() : m_pWindow(std::make_shared<Window>())
{
}

CPPToolTip::~CPPToolTip()
{
    DestroyWindow();
}

BOOL CPPToolTip::Create(HWND hParent)
{
    return m_pWindow->Create(hParent);
}

void CPPToolTip::DestroyWindow()
{
    m_pWindow->Destroy();
}

HWND CPPToolTip::GetHWND() const
{
    return m_pWindow->PopupHandle();
}

int CPPToolTip::GetDlgCtrlID() const
{
    return kControlId;
}

void CPPToolTip::AddTool(HWND hWnd, const CString& text, const RECT& bounds, UINT_PTR id)
{
    TOOLTIP_INFO info;
    info.nIDTool = id;
    info.rectBounds = bounds;
    info.sTooltip = text;
    m_pWindow->AddTool(info, hWnd);
}

void CPPToolTip::DelTool(HWND hWnd, UINT_PTR id)
{
    m_pWindow->DelTool(hWnd, id);
}

void CPPToolTip::RelayEvent(MSG* pMsg)
{
    const std::shared_ptr<Window> keep = m_pWindow;
    if (pMsg)
        keep->Relay(*pMsg);
}

void CPPToolTip::HideTooltip()
{
    m_pWindow->Hide();
}

BOOL CPPToolTip::IsTooltipVisible() const
{
    return m_pWindow->IsVisible();
}

void CPPToolTip::SetDelayTime(int initial, int autoPop, int reshow)
{
    m_pWindow->m_initialDelay = std::max(initial, 0);
    m_pWindow->m_stay = std::max(autoPop, 0);
    m_pWindow->m_reshowDelay = std::max(reshow, 0);
}

void CPPToolTip::SetBkColor(const CARGB& color)
{
    m_pWindow->m_background = color.GetColor();
}

void CPPToolTip::SetTextColor(const CARGB& color)
{
    m_pWindow->m_textColor = color.GetColor();
}

void CPPToolTip::SetCorner(int diameter)
{
    m_pWindow->m_corner = std::max(diameter, 0);
}

void CPPToolTip::SetMargin(int horizontal, int vertical)
{
    m_pWindow->m_margin = {std::max(horizontal, 0), std::max(vertical, 0)};
}

void CPPToolTip::SetOffset(int x, int y)
{
    m_pWindow->m_offset = {x, y};
}

}  // namespace DUI
