#pragma once

#include <cstddef>
#include <cstdint>

namespace qvui::native {

// Row-wise "over" for premultiplied pixels: each channel becomes source + target * (255 - alpha) / 255, with
// the product rounded to nearest. The results equal those of pixman's "over" for pixels whose colour does not
// exceed their alpha.

void BlendRow(const std::uint32_t* source, std::uint32_t* target, std::size_t count);
/// The same with one source pixel for the whole row.
void BlendPixel(std::uint32_t source, std::uint32_t* target, std::size_t count);
/// Multiplies pixels by a constant alpha before they are blended.
void WeighRow(std::uint32_t* pixels, std::size_t count, unsigned alpha);

}  // namespace qvui::native
