#pragma once

#include <cstddef>
#include <string>
#include <utility>
#include <vector>

namespace qvui::test {

/// How many objects of each kind the process has at a moment: on native everything that the platform layer
/// counts, on windows the top-level windows of the thread and their descendants.
class LiveObjects {
public:
    /// The counts at this moment.
    static LiveObjects Count();

    /// What `later` has more of, as "2 windows, 1 icon"; empty when nothing leaked.
    std::string Leaked(const LiveObjects& later) const;

private:
    std::vector<std::pair<std::string, std::size_t>> m_counts;
};

/// Fails the current test when an object that was made in its scope outlives the scope. Declare it first, so
/// that it is the last to look.
class LeakCheck {
public:
    LeakCheck() : m_before(LiveObjects::Count()) {}
    LeakCheck(const LeakCheck&) = delete;
    LeakCheck& operator=(const LeakCheck&) = delete;
    ~LeakCheck();

private:
    LiveObjects m_before;
};

}  // namespace qvui::test
