#pragma once

#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include <qvui/platform/platform.h>

namespace qvui::test {

/// A message as a window procedure received it, before the handler or the default ran.
struct LoggedMessage {
    std::string window;  // the name that the test gave it
    HWND handle = nullptr;
    UINT message = 0;
    WPARAM wParam = 0;
    LPARAM lParam = 0;

    int X() const { return GET_X_LPARAM(lParam); }
    int Y() const { return GET_Y_LPARAM(lParam); }
};

/// "SIZE" for WM_SIZE, "APP+1" for WM_APP + 1, or the number in hexadecimal for a message without a name
/// here.
std::string MessageName(UINT message);

/// Messages in the order of their arrival, of one window or of several that share a log.
class MessageLog {
public:
    void Add(LoggedMessage message) { m_messages.push_back(std::move(message)); }
    void Clear() { m_messages.clear(); }

    const std::vector<LoggedMessage>& All() const { return m_messages; }
    /// The messages with one of these numbers.
    std::vector<LoggedMessage> Only(const std::vector<UINT>& numbers) const;
    /// The last message with this number; an empty one when there was none.
    LoggedMessage Last(UINT number) const;
    /// How many messages have this number.
    int Count(UINT number) const { return static_cast<int>(Only({number}).size()); }

    /// Whether the messages were those of a text like "parent SHOWWINDOW SIZE, child SIZE", in this order.
    /// What neither the text nor `also` names does not count: the targets differ in messages that nobody
    /// asked about.
    testing::AssertionResult Tells(const std::string& text, std::vector<UINT> also = {}) const;

private:
    std::vector<LoggedMessage> m_messages;
};

}  // namespace qvui::test
