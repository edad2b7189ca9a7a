#pragma once

#include <cstdint>
#include <span>

#include "picture_pixels.h"

namespace qvui::classlib {

/// Decodes a PNG file of any colour type and depth, without colour management. False when it is broken
/// anywhere.
bool DecodePng(std::span<const std::uint8_t> file, PicturePixels& image);

}  // namespace qvui::classlib
