#pragma once

#include <cstddef>

namespace qvui::native {

/// The number of live objects of each family, for leak checks. Stock objects are not counted.
struct LiveCounts {
    std::size_t windows = 0;
    std::size_t deviceContexts = 0;
    std::size_t gdiObjects = 0;
    std::size_t icons = 0;
    std::size_t modules = 0;
    std::size_t globalBlocks = 0;

    bool operator==(const LiveCounts&) const = default;
};

/// Returns the current counts.
LiveCounts CountLiveObjects();

/// Registers the function that counts a family. Each family calls this once, at start-up.
using CountFunction = std::size_t (*)();
bool RegisterLiveCount(std::size_t LiveCounts::*family, CountFunction count);

/// Excludes objects that are kept for the life of the process from the counts.
void LeaveOutOfLiveCounts(std::size_t LiveCounts::*family, std::size_t count);

}  // namespace qvui::native
