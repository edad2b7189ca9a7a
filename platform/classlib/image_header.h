#pragma once

#include <cstdint>
#include <span>

namespace qvui::classlib {

enum class ImageKind { Unknown, Png, Jpeg, Gif, Bmp, Tiff, Ico };

/// What a picture file says of itself before it is decoded.
struct ImageHeader {
    ImageKind kind = ImageKind::Unknown;
    /// Whether the format stores transparency for certain, or certainly none; else its pixels tell.
    enum class Alpha { Stored, None, ByPixels } alpha = Alpha::ByPixels;
};

/// Reads the header of a picture file and checks what decoders disagree on or may be led astray by: that the
/// file is not cut off, that its offsets lie inside it, and that its picture has a size worth decoding.
/// `kind` is Unknown for a file that fails, or of another format.
ImageHeader ReadImageHeader(std::span<const std::uint8_t> file);

}  // namespace qvui::classlib
