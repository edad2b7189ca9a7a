#pragma once

#include <cstddef>

#include <qvui/platform/export.h>

/// Excludes objects that are kept for the life of the process, such as caches, from the live counts of leak
/// checks.
QVUI_API void CountAsKept(std::size_t deviceContexts, std::size_t gdiObjects);
