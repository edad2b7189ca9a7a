#pragma once

#include <utility>
#include <string>
#include <vector>

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

/// "WM_SIZE", or the number in hexadecimal for a message without a name here.
std::string MessageName(UINT message);

/// Messages in the order of their arrival, of one window or of several that share a log.
class MessageLog {
public:
    void Add(LoggedMessage message) { m_messages.push_back(std::move(message)); }
    void Clear() { m_messages.clear(); }

    const std::vector<LoggedMessage>& All() const { return m_messages; }
    /// The messages with one of these numbers.
    std::vector<LoggedMessage> Only(const std::vector<UINT>& numbers) const;
    /// The same as lines "name WM_SIZE". Compare these: the targets differ in messages that nobody asked about.
    std::vector<std::string> Lines(const std::vector<UINT>& numbers) const;
    /// How many messages have this number.
    int Count(UINT number) const { return static_cast<int>(Only({number}).size()); }

private:
    std::vector<LoggedMessage> m_messages;
};

}  // namespace qvui::test
