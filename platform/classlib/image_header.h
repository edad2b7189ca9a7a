#pragma once

#include <cstdint>
#include <span>

namespace qvui::classlib {

enum class ImageKind { Unknown, Png, Jpeg, Gif, Bmp, Tiff, Ico };

/// What the header of a picture file says before the picture is decoded.
struct ImageHeader {
    ImageKind kind = ImageKind::Unknown;
    /// Whether the format always stores transparency, never does, or leaves it to the decoded pixels.
    enum class Alpha { Stored, None, ByPixels } alpha = Alpha::ByPixels;
};

/// Reads the header of a picture file and checks what decoders handle differently or unsafely: that the file
/// is not truncated, that its offsets lie inside it, and that its picture has an acceptable size. `kind` is
/// Unknown if a check fails or the format is not supported.
ImageHeader ReadImageHeader(std::span<const std::uint8_t> file);

}  // namespace qvui::classlib
