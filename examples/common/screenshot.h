#pragma once

#include <qvui/platform/platform.h>

namespace example {

/// Paints what a window still has to paint and writes its client area to a PNG file; false when it cannot.
bool SaveScreenshot(HWND window, const char* path);

}  // namespace example
