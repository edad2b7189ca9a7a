#include "support/leak_check.h"

#include <gtest/gtest.h>

namespace qvui::test {

std::string LiveObjects::Leaked(const LiveObjects& later) const
{
    std::string text;
    for (std::size_t i = 0; i < m_counts.size() && i < later.m_counts.size(); ++i) {
        const std::size_t before = m_counts[i].second;
        const std::size_t after = later.m_counts[i].second;
        if (after > before)
            text += (text.empty() ? "" : ", ") + std::to_string(after - before) + " " + m_counts[i].first;
    }
    return text;
}

LeakCheck::~LeakCheck()
{
    const std::string leaked = m_before.Leaked(LiveObjects::Count());
    EXPECT_TRUE(leaked.empty()) << "still alive: " << leaked;
}

}  // namespace qvui::test
