#pragma once

#include <cstdint>
#include <vector>

namespace qvui::classlib {

/// The pixels of a decoded picture, 32 bits with straight alpha, top row first.
struct PicturePixels {
    int width = 0;
    int height = 0;
    std::vector<std::uint32_t> pixels;
};

}  // namespace qvui::classlib
