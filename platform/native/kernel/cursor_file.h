#pragma once

#include <cstdint>
#include <memory>
#include <span>

#include <qvui/platform/native/types.h>

#include "native/gdi/surface.h"

namespace qvui::native {

/// The pixels (32 bits, straight alpha) and hot spot of a cursor.
struct CursorImage {
    std::shared_ptr<Surface> pixels;
    POINT hotSpot{};
};

/// Reads the first image of a cursor file. The pixels are null if the file is invalid or not a cursor.
CursorImage ReadCursorFile(std::span<const std::uint8_t> file);

/// Returns the bytes of the first image of an icon file, which are a complete PNG file or a bitmap for
/// ReadIconBitmap. Empty if the file is invalid or not an icon.
std::span<const std::uint8_t> FirstImageOfIcon(std::span<const std::uint8_t> file);

/// Reads the bitmap of an icon (32 bits, straight alpha). Returns null if it is invalid.
std::shared_ptr<Surface> ReadIconBitmap(std::span<const std::uint8_t> bitmap);

/// Reads the image of a cursor resource: a hot spot followed by a bitmap as in a cursor file.
CursorImage ReadCursorResource(std::span<const std::uint8_t> resource);

/// Returns the resource id of the first cursor of a cursor group, or 0 if the group is invalid.
int FirstCursorOfGroup(std::span<const std::uint8_t> group);

}  // namespace qvui::native
