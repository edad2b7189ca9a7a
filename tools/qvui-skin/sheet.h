#pragma once

#include <string>
#include <vector>

#include <qvui/platform/platform.h>

#include "package.h"

namespace qvui::skin_tool {

/// Places boxes of these sizes in rows from left to right, wrapped at `width`, `gap` pixels between; boxes
/// that are wider than that stand alone. The first one is at (0, 0).
std::vector<RECT> Flow(const std::vector<SIZE>& sizes, int width, int gap);

/// Draws a skin's colours, fonts, images and frame styles with their names, as the library draws them, into a
/// PNG file. False when the skin does not exist or the file cannot be written.
bool WriteSheet(const Package& package, const std::string& skin, const std::string& path);

}  // namespace qvui::skin_tool
