#include "native/kernel/cursor_file.h"

#include <algorithm>

namespace qvui::native {
namespace {

constexpr std::uint16_t kIconType = 1;
constexpr std::uint16_t kCursorType = 2;
constexpr std::size_t kDirectorySize = 6;
constexpr std::size_t kEntrySize = 16;
constexpr std::size_t kHeaderSize = 40;
constexpr int kLargestCursor = 1024;

std::uint32_t U16(std::span<const std::uint8_t> bytes, std::size_t at)
{
    return static_cast<std::uint32_t>(bytes[at] | (bytes[at + 1] << 8));
}

std::uint32_t U32(std::span<const std::uint8_t> bytes, std::size_t at)
{
    return U16(bytes, at) | (U16(bytes, at + 2) << 16);
}

struct Layout {
    int width;
    int height;
    unsigned bits;
    std::size_t colours;  // offsets in the bitmap
    std::size_t pixels;
    std::size_t mask;
    std::size_t pixelStride;
    std::size_t maskStride;
};

// The bitmap is uncompressed and has twice the height of the image: the colours on top, the mask below.
bool FindLayout(std::span<const std::uint8_t> bitmap, Layout& layout)
{
    if (bitmap.size() < kHeaderSize || U32(bitmap, 0) != kHeaderSize || U32(bitmap, 16) != 0)
        return false;
    const std::uint32_t width = U32(bitmap, 4);
    const std::uint32_t height = U32(bitmap, 8) / 2;
    layout.bits = U16(bitmap, 14);
    const bool isKnown =
        layout.bits == 1 || layout.bits == 4 || layout.bits == 8 || layout.bits == 24 || layout.bits == 32;
    if (!isKnown || width == 0 || height == 0 || width > kLargestCursor || height > kLargestCursor)
        return false;
    layout.width = static_cast<int>(width);
    layout.height = static_cast<int>(height);
    const std::size_t colours =
        layout.bits <= 8
            ? (U32(bitmap, 32) ? std::min<std::size_t>(U32(bitmap, 32), 256) : std::size_t{1} << layout.bits)
            : 0;
    layout.colours = kHeaderSize;
    layout.pixels = kHeaderSize + colours * 4;
    layout.pixelStride = (width * layout.bits + 31) / 32 * 4;
    layout.maskStride = (width + 31) / 32 * 4;
    layout.mask = layout.pixels + layout.pixelStride * height;
    return bitmap.size() >= layout.mask + layout.maskStride * height;
}

std::uint32_t ColourAt(std::span<const std::uint8_t> bitmap, const Layout& layout, std::size_t row,
                       std::size_t x)
{
    const std::size_t start = layout.pixels + row * layout.pixelStride;
    if (layout.bits == 32)
        return U32(bitmap, start + x * 4);
    if (layout.bits == 24)
        return U16(bitmap, start + x * 3) | (static_cast<std::uint32_t>(bitmap[start + x * 3 + 2]) << 16);
    const std::size_t bit = x * layout.bits;
    const unsigned shift = static_cast<unsigned>(8 - layout.bits - bit % 8);
    const std::size_t index = (bitmap[start + bit / 8] >> shift) & ((1U << layout.bits) - 1);
    const std::size_t entry = layout.colours + index * 4;
    return entry + 4 <= layout.pixels ? U32(bitmap, entry) & 0xFFFFFF : 0;
}

// Makes the pixels that the mask marks transparent and all others opaque.
void ApplyMask(std::span<const std::uint8_t> bitmap, const Layout& layout, const Surface& pixels)
{
    for (int y = 0; y < layout.height; ++y) {
        const auto stored = static_cast<std::size_t>(layout.height - 1 - y);
        const auto mask = bitmap.subspan(layout.mask + stored * layout.maskStride, layout.maskStride);
        for (int x = 0; x < layout.width; ++x) {
            const bool isClear = (mask[static_cast<std::size_t>(x) / 8] >> (7 - x % 8)) & 1;
            std::uint32_t& pixel = pixels.Row32(y)[x];
            pixel = isClear ? 0 : pixel | 0xFF000000;
        }
    }
}

std::shared_ptr<Surface> ReadBitmap(std::span<const std::uint8_t> bitmap)
{
    Layout layout{};
    if (!FindLayout(bitmap, layout))
        return nullptr;
    auto pixels = Surface::Create(layout.width, layout.height, 32, false);
    std::uint32_t all = 0;
    for (int y = 0; y < layout.height; ++y) {
        const auto stored = static_cast<std::size_t>(layout.height - 1 - y);
        for (int x = 0; x < layout.width; ++x) {
            const std::uint32_t colour = ColourAt(bitmap, layout, stored, static_cast<std::size_t>(x));
            all |= colour;
            pixels->Row32(y)[x] = colour;
        }
    }
    const bool hasAlpha = layout.bits == 32 && all >> 24 != 0;
    if (!hasAlpha)
        ApplyMask(bitmap, layout, *pixels);
    return pixels;
}

std::span<const std::uint8_t> FirstImage(std::span<const std::uint8_t> file, std::uint16_t type)
{
    if (file.size() < kDirectorySize + kEntrySize || U16(file, 0) != 0 || U16(file, 2) != type ||
        U16(file, 4) == 0)
        return {};
    const std::size_t size = U32(file, kDirectorySize + 8);
    const std::size_t offset = U32(file, kDirectorySize + 12);
    if (offset > file.size() || size > file.size() - offset)
        return {};
    return file.subspan(offset, size);
}

}  // namespace

CursorImage ReadCursorFile(std::span<const std::uint8_t> file)
{
    const auto image = FirstImage(file, kCursorType);
    if (image.empty())
        return {};
    return {
        ReadBitmap(image),
        {static_cast<LONG>(U16(file, kDirectorySize + 4)), static_cast<LONG>(U16(file, kDirectorySize + 6))}};
}

std::span<const std::uint8_t> FirstImageOfIcon(std::span<const std::uint8_t> file)
{
    return FirstImage(file, kIconType);
}

std::shared_ptr<Surface> ReadIconBitmap(std::span<const std::uint8_t> bitmap)
{
    return ReadBitmap(bitmap);
}

CursorImage ReadCursorResource(std::span<const std::uint8_t> resource)
{
    if (resource.size() < 4)
        return {};
    return {ReadBitmap(resource.subspan(4)),
            {static_cast<LONG>(U16(resource, 0)), static_cast<LONG>(U16(resource, 2))}};
}

int FirstCursorOfGroup(std::span<const std::uint8_t> group)
{
    constexpr std::size_t kGroupEntry = 14;
    if (group.size() < kDirectorySize + kGroupEntry || U16(group, 2) != kCursorType || U16(group, 4) == 0)
        return 0;
    return static_cast<int>(U16(group, kDirectorySize + 12));
}

}  // namespace qvui::native
