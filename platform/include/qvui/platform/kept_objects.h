#pragma once

#include <cstddef>

#include <qvui/platform/export.h>

/// Tells leak checks of objects that are made once and kept for the life of the process, as a cache does:
/// they are left out of the live counts from now on.
QVUI_API void CountAsKept(std::size_t deviceContexts, std::size_t gdiObjects);
