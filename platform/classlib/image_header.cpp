#include "image_header.h"

#include <algorithm>
#include <cstdlib>
#include <iterator>
#include <string_view>
#include <utility>

namespace qvui::classlib {
namespace {

enum class Order { LittleEndian, BigEndian };

// Reads numbers at offsets of a file; returns 0 past its end.
class Numbers {
public:
    Numbers(std::span<const std::uint8_t> file, Order order) : m_file(file), m_order(order) {}

    std::size_t Size() const { return m_file.size(); }
    bool Has(std::uint64_t at, std::uint64_t count) const
    {
        return at <= m_file.size() && count <= m_file.size() - at;
    }
    bool StartsWith(std::uint64_t at, std::string_view text) const
    {
        return Has(at, text.size()) &&
               std::equal(text.begin(), text.end(), m_file.begin() + static_cast<std::ptrdiff_t>(at),
                          [](char a, std::uint8_t b) { return static_cast<std::uint8_t>(a) == b; });
    }
    std::uint32_t U8(std::uint64_t at) const { return Number(at, 1); }
    std::uint32_t U16(std::uint64_t at) const { return Number(at, 2); }
    std::uint32_t U32(std::uint64_t at) const { return Number(at, 4); }

private:
    std::uint32_t Number(std::uint64_t at, std::size_t bytes) const
    {
        std::uint32_t number = 0;
        if (!Has(at, bytes))
            return 0;
        for (std::size_t i = 0; i < bytes; ++i) {
            const std::size_t next = m_order == Order::BigEndian ? i : bytes - 1 - i;
            number = number << 8 | m_file[static_cast<std::size_t>(at) + next];
        }
        return number;
    }

    std::span<const std::uint8_t> m_file;
    Order m_order;
};

// Skins are untrusted input: a picture larger than this, or larger than any format can compress into a file
// of this length, is rejected. This keeps a file of a few bytes from requesting a gigabyte.
bool IsSize(const Numbers& numbers, std::uint64_t width, std::uint64_t height)
{
    constexpr std::uint64_t kMostPixels = std::uint64_t{1} << 26;
    constexpr std::uint64_t kMostPixelsPerByte = std::uint64_t{1} << 14;
    return width > 0 && height > 0 && width <= kMostPixels && height <= kMostPixels &&
           width * height <= std::min(kMostPixels, numbers.Size() * kMostPixelsPerByte);
}

using Alpha = ImageHeader::Alpha;

// Each reader returns whether the file is valid, and sets `alpha` if the format determines it.

bool ReadPng(std::span<const std::uint8_t> file, Alpha& alpha)
{
    const Numbers numbers(file, Order::BigEndian);
    constexpr std::uint64_t kFirstChunk = 8;
    constexpr std::uint64_t kGrey = 0;
    constexpr std::uint64_t kAlphaBit = 4;
    if (!numbers.StartsWith(kFirstChunk + 4, "IHDR") || !IsSize(numbers, numbers.U32(16), numbers.U32(20)))
        return false;
    const std::uint32_t colourType = numbers.U8(25);
    alpha = colourType == kGrey || (colourType & kAlphaBit) ? Alpha::Stored : Alpha::None;
    for (std::uint64_t chunk = kFirstChunk; numbers.Has(chunk, 12); chunk += 12ULL + numbers.U32(chunk)) {
        if (numbers.StartsWith(chunk + 4, "tRNS"))
            alpha = Alpha::Stored;
        if (numbers.StartsWith(chunk + 4, "IEND"))
            return true;
    }
    return false;
}

bool ReadJpeg(std::span<const std::uint8_t> file, Alpha& alpha)
{
    alpha = Alpha::None;
    const Numbers numbers(file, Order::BigEndian);
    constexpr std::string_view kEnd = "\xFF\xD9";
    for (std::uint64_t at = 2; numbers.U8(at) == 0xFF && numbers.Has(at, 4);) {
        const std::uint32_t marker = numbers.U8(at + 1);
        if (marker == 0xFF) {  // padding
            ++at;
            continue;
        }
        const bool isFrame =
            marker >= 0xC0 && marker <= 0xCF && marker != 0xC4 && marker != 0xC8 && marker != 0xCC;
        if (isFrame)
            return IsSize(numbers, numbers.U16(at + 7), numbers.U16(at + 5)) &&
                   std::search(file.begin() + static_cast<std::ptrdiff_t>(at), file.end(), kEnd.begin(),
                               kEnd.end(), [](std::uint8_t a, char b) {
                                   return a == static_cast<std::uint8_t>(b);
                               }) != file.end();
        const bool hasNoLength = marker == 0x01 || (marker >= 0xD0 && marker <= 0xD9);
        at += 2 + (hasNoLength ? 0 : numbers.U16(at + 2));
    }
    return false;
}

// Returns the offset after a chain of length-prefixed blocks, or an offset past the end of the file if the
// chain does not end.
std::uint64_t SkipBlocks(const Numbers& numbers, std::uint64_t at)
{
    while (const std::uint32_t length = numbers.U8(at))
        at += 1 + length;
    return numbers.Has(at, 1) ? at + 1 : numbers.Size() + 1;
}

std::uint64_t PaletteBytes(std::uint32_t flags)
{
    return flags & 0x80 ? 3ULL << ((flags & 7) + 1) : 0;
}

bool ReadGif(std::span<const std::uint8_t> file, Alpha&)
{
    const Numbers numbers(file, Order::LittleEndian);
    constexpr std::uint32_t kExtension = 0x21;
    constexpr std::uint32_t kImage = 0x2C;
    if (!IsSize(numbers, numbers.U16(6), numbers.U16(8)))
        return false;
    std::uint64_t at = 13 + PaletteBytes(numbers.U8(10));
    while (numbers.U8(at) == kExtension)
        at = SkipBlocks(numbers, at + 2);
    if (numbers.U8(at) != kImage || !IsSize(numbers, numbers.U16(at + 5), numbers.U16(at + 7)))
        return false;
    const std::uint64_t codeSize = at + 10 + PaletteBytes(numbers.U8(at + 9));
    const bool isCodeSize = numbers.U8(codeSize) >= 1 && numbers.U8(codeSize) <= 8;
    return isCodeSize && SkipBlocks(numbers, codeSize + 1) <= numbers.Size();
}

bool ReadBmp(std::span<const std::uint8_t> file, Alpha& alpha)
{
    alpha = Alpha::None;  // the fourth byte of a 32-bit pixel is padding
    const Numbers numbers(file, Order::LittleEndian);
    constexpr std::uint32_t kCoreHeader = 12;
    constexpr std::uint32_t kInfoHeader = 40;
    constexpr std::uint32_t kPlain = 0;
    constexpr std::uint32_t kRle8 = 1;
    constexpr std::uint32_t kRle4 = 2;
    constexpr std::uint32_t kBitFields = 3;
    const std::uint32_t headerSize = numbers.U32(14);
    const bool isCore = headerSize == kCoreHeader;
    if (!isCore && headerSize < kInfoHeader)
        return false;
    const std::uint64_t width = isCore ? numbers.U16(18) : numbers.U32(18);
    const auto signedHeight = static_cast<std::int32_t>(isCore ? numbers.U16(20) : numbers.U32(22));
    const auto height = static_cast<std::uint64_t>(std::llabs(signedHeight));
    const std::uint64_t bits = numbers.U16(isCore ? 24 : 28);
    const std::uint32_t compression = isCore ? 0 : numbers.U32(30);
    const std::uint64_t pixels = numbers.U32(10);
    if (!IsSize(numbers, width, height) || bits > 32 || pixels < 14 + headerSize)
        return false;
    if (compression == kRle8 || compression == kRle4)
        return numbers.Has(pixels, 1);
    return (compression == kPlain || compression == kBitFields) &&
           numbers.Has(pixels, (width * bits + 31) / 32 * 4 * height);
}

bool ReadTiff(std::span<const std::uint8_t> file, Alpha&)
{
    const Numbers numbers(file, file[0] == 'I' ? Order::LittleEndian : Order::BigEndian);
    constexpr std::uint32_t kShort = 3;
    constexpr std::uint32_t kLong = 4;
    constexpr std::uint32_t kMostSamples = 8;
    constexpr std::uint64_t kEntrySize = 12;
    // The tags from which a decoder computes its memory size: width, height, samples per pixel, tile width
    // and tile height. Each must occur once and be a single short or long number, because decoders differ in
    // what else they accept.
    constexpr std::uint32_t kTags[] = {256, 257, 277, 322, 323};
    std::uint32_t values[] = {0, 0, 1, 1, 1};
    bool isSet[std::size(kTags)] = {};
    const std::uint64_t directory = numbers.U32(4);
    const std::uint64_t end = directory + 2 + numbers.U16(directory) * kEntrySize;
    if (end > numbers.Size())
        return false;
    for (std::uint64_t entry = directory + 2; entry < end; entry += kEntrySize) {
        const auto* tag = std::find(std::begin(kTags), std::end(kTags), numbers.U16(entry));
        if (tag == std::end(kTags))
            continue;
        const auto which = static_cast<std::size_t>(tag - kTags);
        const std::uint32_t type = numbers.U16(entry + 2);
        const bool isOneNumber = (type == kShort || type == kLong) && numbers.U32(entry + 4) == 1;
        if (!isOneNumber || std::exchange(isSet[which], true))
            return false;
        values[which] = type == kShort ? numbers.U16(entry + 8) : numbers.U32(entry + 8);
    }
    return IsSize(numbers, values[0], values[1]) && values[2] <= kMostSamples &&
           IsSize(numbers, values[3], values[4]);
}

constexpr std::string_view kPngSignature("\x89PNG\r\n\x1A\n", 8);

// The first image is a PNG file or a bitmap without a file header. A bitmap without an alpha channel has a
// mask, which shows in the alpha of its decoded pixels.
bool ReadIco(std::span<const std::uint8_t> file, Alpha& alpha)
{
    const Numbers numbers(file, Order::LittleEndian);
    const std::uint32_t size = numbers.U32(14);
    const std::uint32_t image = numbers.U32(18);
    if (numbers.U16(4) == 0 || size == 0 || !numbers.Has(image, size))
        return false;
    if (numbers.StartsWith(image, kPngSignature))
        return ReadPng(file.subspan(image, size), alpha);
    constexpr std::uint32_t kBitsWithAlpha = 32;
    if (numbers.U16(std::uint64_t{image} + 14) == kBitsWithAlpha)
        alpha = Alpha::Stored;
    return true;
}

struct Format {
    ImageKind kind;
    std::string_view signature;
    bool (*read)(std::span<const std::uint8_t>, Alpha&);
};

constexpr Format kFormats[] = {
    {ImageKind::Png, kPngSignature, ReadPng},
    {ImageKind::Jpeg, std::string_view("\xFF\xD8\xFF", 3), ReadJpeg},
    {ImageKind::Gif, "GIF87a", ReadGif},
    {ImageKind::Gif, "GIF89a", ReadGif},
    {ImageKind::Bmp, "BM", ReadBmp},
    {ImageKind::Tiff, std::string_view("II*\0", 4), ReadTiff},
    {ImageKind::Tiff, std::string_view("MM\0*", 4), ReadTiff},
    {ImageKind::Ico, std::string_view("\0\0\1\0", 4), ReadIco},
};

}  // namespace

ImageHeader ReadImageHeader(std::span<const std::uint8_t> file)
{
    ImageHeader header;
    for (const Format& format : kFormats)
        if (Numbers(file, Order::LittleEndian).StartsWith(0, format.signature) &&
            format.read(file, header.alpha))
            header.kind = format.kind;
    return header;
}

}  // namespace qvui::classlib
