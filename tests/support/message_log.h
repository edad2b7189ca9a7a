#pragma once

#include <optional>
#include <string>

#include <qvui/platform/platform.h>

namespace qvui::test {

/// A message as a window procedure received it, before the handler or the default ran.
struct LoggedMessage {
    std::string window;  // the name that the test gave it
    HWND handle = nullptr;
    UINT message = 0;
    WPARAM wParam = 0;
    LPARAM lParam = 0;
};

/// "SIZE" for WM_SIZE, "APP+1" for WM_APP + 1, or the number in hexadecimal for a message without a name
/// here.
std::string MessageName(UINT message);
/// The number of such a name; nothing for other words.
std::optional<UINT> MessageNumber(const std::string& name);

}  // namespace qvui::test
