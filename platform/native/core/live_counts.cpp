#include "native/core/live_counts.h"

#include <utility>
#include <vector>

namespace qvui::native {
namespace {

using Registration = std::pair<std::size_t LiveCounts::*, CountFunction>;

std::vector<Registration>& Registrations()
{
    static std::vector<Registration> registrations;
    return registrations;
}

}  // namespace

bool RegisterLiveCount(std::size_t LiveCounts::*family, CountFunction count)
{
    Registrations().emplace_back(family, count);
    return true;
}

LiveCounts CountLiveObjects()
{
    LiveCounts counts;
    for (const auto& [family, count] : Registrations())
        counts.*family = count();
    return counts;
}

}  // namespace qvui::native
