#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include <qvui/framework/window/window_mgr.h>

#include "support/platform_window.h"
#include "support/pointer_and_keys.h"

namespace qvui::test {

/// A notification as it arrived.
struct Noticed {
    UINT code;
    std::string sender;  // its name
    WPARAM wParam;
    LPARAM lParam;

    bool operator==(const Noticed&) const = default;
};
/// For messages of failed tests: "10 ok 0 0".
void PrintTo(const Noticed& noticed, std::ostream* out);

/// A control tree in a real window of the platform, on both targets: it is built from a template, attached,
/// laid out and shown, receives raw messages, and is finished and destroyed with the object.
class ControlWindow : public DUI::CDUIWindowMgr {
    bool m_ignoresPointer = false;             // before the window, whose first messages ask for it
    std::unique_ptr<PlatformWindow> m_window;  // before the pointer and the keys, which speak to it

public:
    /// `content` is the root element, or a whole "window" element. Notifications of creation are not logged.
    ControlWindow(SIZE client, const std::string& content);
    /// Hosts a tree built in code.
    ControlWindow(SIZE client, DUI::CRefPtr<DUI::IDUIControl> root);
    ~ControlWindow() override;

    /// The control of that name, as its class; fails the test when there is none.
    DUI::IDUIControl* Find(const char* name);
    template <class Control>
    Control* Find(const char* name)
    {
        return dynamic_cast<Control*>(Find(name));
    }

    /// The root, as its class.
    template <class Control = DUI::IDUIControl>
    Control& Root() const
    {
        return dynamic_cast<Control&>(*GetRootControl());
    }

    /// Notifications since the last call, without DUINOTIFY_CREATED and DUINOTIFY_DESTROYED.
    std::vector<Noticed> TakeNotifications();
    /// Runs on every notification, after it was logged.
    void OnNotify(std::function<void(const DUI::tagDUINotify&)> call) { m_onNotify = std::move(call); }

    /// Paints what is invalid and reads the client area.
    ClientPixels Paint();
    /// The update region's bounds; empty when nothing is to be painted.
    RECT Invalid() const;
    /// Marks everything as painted.
    void Validate();
    void Resize(SIZE client);
    /// Sends WM_TIMER for a control's timer, whatever its period.
    void Fire(DUI::IDUIControl* owner, UINT id);
    /// Gives a message to the pre-translation first, as a message loop does, and then sends it; TRUE when the
    /// pre-translation consumed it.
    bool Translate(UINT message, WPARAM wParam, LPARAM lParam = 0);
    /// Destroys the native window, as closing it does.
    void Close();

    HWND Handle() const { return m_window->Handle(); }
    MessagePointer mouse;
    MessageKeys keys;

    void OnDUINotify(const DUI::tagDUINotify& notify, BOOL& bHandled) override;
    LRESULT OnControlRequest(DUI::tagDUINotify& request) override;

private:
    explicit ControlWindow(SIZE client);
    void Start();
    void PumpWithoutPointer();
    std::optional<LRESULT> Answer(const LoggedMessage& message);

    std::vector<Noticed> m_noticed;
    std::vector<DUI::DUITimerRecord> m_timers;  // those that run
    std::function<void(const DUI::tagDUINotify&)> m_onNotify;
};

}  // namespace qvui::test
