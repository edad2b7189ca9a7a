#pragma once

#include <cstdint>
#include <span>

#include "picture_pixels.h"

namespace qvui::classlib {

/// Decodes the first frame of a GIF file that ReadImageHeader accepts. The picture is as large as the file's
/// screen, on which the frame lies; what the frame leaves free is clear, and what of it lies outside is cut
/// off. False when its codes are broken or end before its last pixel.
bool DecodeGif(std::span<const std::uint8_t> file, PicturePixels& image);

}  // namespace qvui::classlib
