#pragma once

#include <cstddef>

namespace qvui::native {

/// How many objects of each family are alive, for leak checks. Stock objects do not count.
struct LiveCounts {
    std::size_t windows = 0;
    std::size_t deviceContexts = 0;
    std::size_t gdiObjects = 0;
    std::size_t icons = 0;
    std::size_t modules = 0;
    std::size_t globalBlocks = 0;

    bool operator==(const LiveCounts&) const = default;
};

/// The counts at this moment.
LiveCounts CountLiveObjects();

/// Each family registers the function that counts it, once, at start-up.
using CountFunction = std::size_t (*)();
bool RegisterLiveCount(std::size_t LiveCounts::*family, CountFunction count);

/// Objects that are kept for the life of the process are no leaks.
void LeaveOutOfLiveCounts(std::size_t LiveCounts::*family, std::size_t count);

}  // namespace qvui::native
