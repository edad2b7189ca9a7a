#pragma once

#include <cstdint>
#include <span>

#include "picture_pixels.h"

namespace qvui::classlib {

/// Decodes a PNG file of any colour type and depth, without colour management. Returns false if any part of
/// the file is invalid.
bool DecodePng(std::span<const std::uint8_t> file, PicturePixels& image);

}  // namespace qvui::classlib
