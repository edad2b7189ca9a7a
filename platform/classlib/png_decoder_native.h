#pragma once

#include <cstdint>
#include <span>
#include <vector>

namespace qvui::classlib {

/// The pixels of a PNG file, 32 bits with straight alpha, top row first.
struct PngPixels {
    int width = 0;
    int height = 0;
    std::vector<std::uint32_t> pixels;
};

/// Decodes a PNG file of any colour type and depth, without colour management. False when it is broken
/// anywhere.
bool DecodePng(std::span<const std::uint8_t> file, PngPixels& image);

}  // namespace qvui::classlib
