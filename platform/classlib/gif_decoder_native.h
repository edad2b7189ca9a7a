#pragma once

#include <cstdint>
#include <span>

#include "picture_pixels.h"

namespace qvui::classlib {

/// Decodes the first frame of a GIF file that ReadImageHeader accepts. The picture has the size of the file's
/// logical screen; pixels outside the frame are transparent, and the frame is clipped to the screen. Returns
/// false if the codes are invalid or end before the last pixel.
bool DecodeGif(std::span<const std::uint8_t> file, PicturePixels& image);

}  // namespace qvui::classlib
