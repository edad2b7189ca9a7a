#pragma once

#include <cstdint>
#include <memory>
#include <span>

#include <qvui/platform/native/types.h>

#include "native/gdi/surface.h"

namespace qvui::native {

/// A cursor's pixels (32 bits, straight alpha) and hot spot.
struct CursorImage {
    std::shared_ptr<Surface> pixels;
    POINT hotSpot{};
};

/// Reads the first image of a cursor file; null pixels when the file is broken or of another kind.
CursorImage ReadCursorFile(std::span<const std::uint8_t> file);

/// The bytes of the first image of an icon file: a whole PNG file, or a bitmap for ReadIconBitmap; empty when
/// the file is broken or of another kind.
std::span<const std::uint8_t> FirstImageOfIcon(std::span<const std::uint8_t> file);

/// Reads an icon's bitmap (32 bits, straight alpha); null when it is broken.
std::shared_ptr<Surface> ReadIconBitmap(std::span<const std::uint8_t> bitmap);

/// Reads the image of one cursor resource: a hot spot and a bitmap as in a cursor file.
CursorImage ReadCursorResource(std::span<const std::uint8_t> resource);

/// The resource id of the first cursor of a cursor group, 0 when the group is broken.
int FirstCursorOfGroup(std::span<const std::uint8_t> group);

}  // namespace qvui::native
