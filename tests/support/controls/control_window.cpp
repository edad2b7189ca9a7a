#include "support/controls/control_window.h"

#include <algorithm>
#include <ostream>

#include <gtest/gtest.h>

namespace qvui::test {
namespace {

std::string WholeTemplate(const std::string& content)
{
    return content.rfind("<window", 0) == 0 ? content : "<window>" + content + "</window>";
}

}  // namespace

void PrintTo(const Noticed& noticed, std::ostream* out)
{
    *out << noticed.code << ' ' << noticed.sender << ' ' << noticed.wParam << ' ' << noticed.lParam;
}

ControlWindow::ControlWindow(SIZE client)
    : m_window([this, client] {
          PlatformWindowOptions options;
          options.place = {100, 100, 100 + client.cx, 100 + client.cy};
          options.classStyle = CS_DBLCLKS;
          options.isShown = false;
          options.handler = [this](const LoggedMessage& message) { return Answer(message); };
          return std::make_unique<PlatformWindow>(options);
      }()),
      mouse(m_window->Handle()),
      keys(m_window->Handle())
{
}

ControlWindow::ControlWindow(SIZE client, const std::string& content) : ControlWindow(client)
{
    RECT rect{0, 0, client.cx, client.cy};
    EXPECT_TRUE(CreateFromXML(WholeTemplate(content).c_str(), Handle(), rect)) << content;
    Start();
}

ControlWindow::ControlWindow(SIZE client, DUI::CRefPtr<DUI::IDUIControl> root) : ControlWindow(client)
{
    RECT rect{0, 0, client.cx, client.cy};
    EXPECT_TRUE(CreateFromRootControl(root, Handle(), rect));
    Start();
}

void ControlWindow::Start()
{
    // A pointer that the last window left here would make a control hot.
    SetCursorPos(GetSystemMetrics(SM_CXSCREEN) - 1, GetSystemMetrics(SM_CYSCREEN) - 1);
    InitWindowMgr();
    ShowWindow(Handle(), SW_SHOW);
    PumpWithoutPointer();
}

// The system reports where its pointer is when a window appears there, and on windows also where it was
// before; a test's pointer speaks for itself.
void ControlWindow::PumpWithoutPointer()
{
    m_ignoresPointer = true;
    Pump();
    m_ignoresPointer = false;
}

ControlWindow::~ControlWindow()
{
    m_onNotify = nullptr;
    Close();
    m_window->SetHandler(nullptr);
}

void ControlWindow::Close()
{
    m_window->Destroy();
}

std::optional<LRESULT> ControlWindow::Answer(const LoggedMessage& message)
{
    LRESULT result = 0;
    BOOL bHandled = TRUE;
    const bool isMove = message.message == WM_MOUSEMOVE || message.message == WM_NCMOUSEMOVE ||
                        message.message == WM_MOUSELEAVE;
    if (m_ignoresPointer && isMove)
        return 0;
    switch (message.message) {
        case WM_PAINT:
            return OnPaint(message.message, message.wParam, message.lParam, bHandled);
        case WM_TIMER:
            return OnTimer(message.message, message.wParam, message.lParam, bHandled);
        case WM_DESTROY:
            FinishWindowMgr();
            return std::nullopt;
        default:
            if (GetHWND() &&
                ProcessWindowMessage(message.handle, message.message, message.wParam, message.lParam, result))
                return result;
            return std::nullopt;
    }
}

DUI::IDUIControl* ControlWindow::Find(const char* name)
{
    DUI::IDUIControl* const control = GetControlByName(name, TRUE);
    EXPECT_NE(control, nullptr) << "no control is named " << name;
    return control;
}

void ControlWindow::OnDUINotify(const DUI::tagDUINotify& notify, BOOL& bHandled)
{
    const bool isLifetime =
        notify.nCode == DUI::DUINOTIFY_CREATED || notify.nCode == DUI::DUINOTIFY_DESTROYED;
    if (!isLifetime)
        m_noticed.push_back({notify.nCode, notify.pSender ? notify.pSender->GetName().GetString() : "",
                             notify.wParam, notify.lParam});
    CDUIWindowMgr::OnDUINotify(notify, bHandled);
    // A copy: the call may end this object.
    if (const auto call = m_onNotify)
        call(notify);
}

std::vector<Noticed> ControlWindow::TakeNotifications()
{
    return std::exchange(m_noticed, {});
}

LRESULT ControlWindow::OnControlRequest(DUI::tagDUINotify& request)
{
    const LRESULT result = CDUIWindowMgr::OnControlRequest(request);
    if (request.nCode != DUI::DUIREQUEST_TIMER || result != 0)
        return result;
    DUI::DUITimerRecord timer = *reinterpret_cast<const DUI::DUITimerRecord*>(request.lParam);
    if (request.wParam == 2) {
        m_timers.erase(std::remove_if(m_timers.begin(), m_timers.end(),
                                      [&timer](const DUI::DUITimerRecord& known) {
                                          return known.pOwner == timer.pOwner &&
                                                 known.nTimerID == timer.nTimerID;
                                      }),
                       m_timers.end());
        return result;
    }
    // The manager takes the smallest native id that is free.
    timer.nNativeID = 1;
    while (std::any_of(m_timers.begin(), m_timers.end(), [&timer](const DUI::DUITimerRecord& known) {
        return known.nNativeID == timer.nNativeID;
    }))
        ++timer.nNativeID;
    m_timers.push_back(timer);
    return result;
}

void ControlWindow::Fire(DUI::IDUIControl* owner, UINT id)
{
    const auto found =
        std::find_if(m_timers.begin(), m_timers.end(), [owner, id](const DUI::DUITimerRecord& timer) {
            return timer.pOwner == owner && timer.nTimerID == id;
        });
    ASSERT_NE(found, m_timers.end()) << "no timer " << id << " runs for the control";
    SendMessageA(Handle(), WM_TIMER, found->nNativeID, 0);
}

bool ControlWindow::Translate(UINT message, WPARAM wParam, LPARAM lParam)
{
    MSG native{Handle(), message, wParam, lParam, 0, {}};
    // The pre-translation may end this object.
    if (PreTranslateMessage(&native))
        return true;
    SendMessageA(native.hwnd, message, wParam, lParam);
    return false;
}

ClientPixels ControlWindow::Paint()
{
    UpdateWindow(Handle());
    PumpWithoutPointer();
    return ReadClient(Handle());
}

RECT ControlWindow::Invalid() const
{
    RECT rect{};
    GetUpdateRect(Handle(), &rect, FALSE);
    return rect;
}

void ControlWindow::Validate()
{
    ValidateRect(Handle(), nullptr);
}

void ControlWindow::Resize(SIZE client)
{
    SetWindowPos(Handle(), nullptr, 0, 0, client.cx, client.cy, SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
}

}  // namespace qvui::test
