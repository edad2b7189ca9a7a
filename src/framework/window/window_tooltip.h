#pragma once

#include <memory>

#include "framework/window/host_window.h"

namespace DUI {

class CPPToolTip;

/// The tooltip of a window's controls: one tool covers the whole client area, and the control under the
/// pointer is asked for its text when the tooltip shows.
class WindowTooltip {
public:
    explicit WindowTooltip(HostWindow& host);
    WindowTooltip(const WindowTooltip&) = delete;
    WindowTooltip& operator=(const WindowTooltip&) = delete;
    ~WindowTooltip();

    void Create();
    void Destroy();
    /// The client area has another size.
    void OnSize();
    void RelayEvent(MSG* message);
    /// WM_NOTIFY: fills in text and colours when the tooltip is about to show.
    LRESULT OnNotifyDisplayTooltip(UINT uMsg, WPARAM wParam, LPARAM lParam, BOOL& bHandled);

private:
    HostWindow& m_host;
    std::unique_ptr<CPPToolTip> m_toolTip;
};

}  // namespace DUI
