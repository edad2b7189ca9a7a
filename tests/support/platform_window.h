#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include <qvui/platform/platform.h>

#include "support/geometry_text.h"
#include "support/message_log.h"

namespace qvui::test {

/// Pixels of a client area as 0xRRGGBB, top row first.
struct ClientPixels {
    int width = 0, height = 0;
    std::vector<std::uint32_t> pixels;

    /// The pixel at a client point; 0xFFFFFFFF outside.
    std::uint32_t At(int x, int y) const;
};

/// What the window shows or would show, read back through its device context.
ClientPixels ReadClient(HWND window);

struct PumpResult {
    int dispatched = 0;
    std::optional<int> exitCode;  // of a WM_QUIT, which ends the pumping and is consumed
};

/// Translates and dispatches every message that is pending, without waiting for more. Fails the current test
/// when the messages do not come to an end (a window that never validates itself, for instance).
PumpResult Pump();

/// Answers a message; nullopt leaves it to DefWindowProcA.
using MessageHandler = std::function<std::optional<LRESULT>(const LoggedMessage&)>;

struct PlatformWindowOptions {
    const char* name = "window";     // of its messages, and its title
    RECT place{100, 100, 300, 200};  // on the screen; a child's in its parent's client area
    DWORD style = WS_POPUP;          // add WS_CHILD (and take WS_POPUP away) for a child
    DWORD exStyle = 0;
    UINT classStyle = 0;
    HWND parent = nullptr;        // or owner
    HBRUSH background = nullptr;  // stays the caller's
    HCURSOR cursor = nullptr;
    MessageHandler handler = nullptr;
    bool isShown = true;
};

/// A plain window of the platform with a class of its own. It asks its handler first and is destroyed, class
/// included, with the object.
class PlatformWindow {
public:
    explicit PlatformWindow(PlatformWindowOptions options = {});
    PlatformWindow(const PlatformWindow&) = delete;
    PlatformWindow& operator=(const PlatformWindow&) = delete;
    ~PlatformWindow();

    /// Null when creation was refused or the window has been destroyed.
    HWND Handle() const { return m_handle; }
    operator HWND() const { return m_handle; }
    void SetHandler(MessageHandler handler) { m_options.handler = std::move(handler); }
    void Destroy();

private:
    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
    LRESULT Handle(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

    PlatformWindowOptions m_options;
    std::string m_className;
    HWND m_handle = nullptr;
};

}  // namespace qvui::test
