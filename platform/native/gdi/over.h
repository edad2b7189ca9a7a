#pragma once

#include <cstddef>
#include <cstdint>

namespace qvui::native {

// Premultiplied pixels over others, in rows: each channel becomes source + target * (255 - alpha) / 255, the
// product rounded to the nearest. These are the bits of pixman's "over" for pixels that are not brighter than
// their alpha.

void BlendRow(const std::uint32_t* source, std::uint32_t* target, std::size_t count);
/// The same with one source pixel for the whole row.
void BlendPixel(std::uint32_t source, std::uint32_t* target, std::size_t count);
/// Multiplies pixels with a constant alpha, before they are blended.
void WeighRow(std::uint32_t* pixels, std::size_t count, unsigned alpha);

}  // namespace qvui::native
