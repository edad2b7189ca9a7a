#include "native/core/live_counts.h"

#include <utility>
#include <vector>

namespace qvui::native {
namespace {

using Registration = std::pair<std::size_t LiveCounts::*, CountFunction>;

std::vector<Registration>& Registrations()
{
    static auto& registrations = *new std::vector<Registration>();
    return registrations;
}

LiveCounts& LeftOut()
{
    static auto& counts = *new LiveCounts();
    return counts;
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
        counts.*family = count() - LeftOut().*family;
    return counts;
}

void LeaveOutOfLiveCounts(std::size_t LiveCounts::*family, std::size_t count)
{
    LeftOut().*family += count;
}

}  // namespace qvui::native
