// GIF decoder, used because SDL_image's decoder writes out of bounds when the codes are invalid.

#include "gif_decoder_native.h"

#include <algorithm>
#include <array>
#include <cstddef>

namespace qvui::classlib {
namespace {

// Reads the bytes of a file in order; returns zeros past its end.
class Cursor {
public:
    explicit Cursor(std::span<const std::uint8_t> file) : m_rest(file) {}

    unsigned U8() { return m_rest.empty() ? 0 : Take(1)[0]; }
    int U16()
    {
        const unsigned low = U8();
        return static_cast<int>(low | (U8() << 8));
    }
    std::span<const std::uint8_t> Take(std::size_t count)
    {
        const auto taken = m_rest.first(std::min(count, m_rest.size()));
        m_rest = m_rest.subspan(taken.size());
        return taken;
    }
    /// Reads a chain of length-prefixed blocks and concatenates their contents.
    std::vector<std::uint8_t> TakeBlocks()
    {
        std::vector<std::uint8_t> bytes;
        while (const unsigned length = U8()) {
            const auto block = Take(length);
            bytes.insert(bytes.end(), block.begin(), block.end());
        }
        return bytes;
    }
    /// Reads the colour table if `flags` announce one, three bytes per colour.
    std::span<const std::uint8_t> TakePalette(unsigned flags)
    {
        return flags & 0x80 ? Take(std::size_t{3} << ((flags & 7) + 1)) : std::span<const std::uint8_t>();
    }

private:
    std::span<const std::uint8_t> m_rest;
};

// Reads LZW codes of up to twelve bits, least significant bit first.
class CodeReader {
public:
    explicit CodeReader(std::span<const std::uint8_t> bytes) : m_bytes(bytes) {}

    bool Read(unsigned width, unsigned& code)
    {
        while (m_bitCount < width) {
            if (m_next == m_bytes.size())
                return false;
            m_bits |= static_cast<unsigned>(m_bytes[m_next++]) << m_bitCount;
            m_bitCount += 8;
        }
        code = m_bits & ((1U << width) - 1);
        m_bits >>= width;
        m_bitCount -= width;
        return true;
    }

private:
    std::span<const std::uint8_t> m_bytes;
    std::size_t m_next = 0;
    unsigned m_bits = 0;
    unsigned m_bitCount = 0;
};

// The LZW dictionary: each entry is the string of another code and one more byte.
class CodeTable {
public:
    static constexpr unsigned kMostWidth = 12;
    static constexpr unsigned kNone = 1U << kMostWidth;

    explicit CodeTable(unsigned codeSize) : m_codeSize(codeSize)
    {
        for (unsigned i = 0; i < Clear(); ++i)
            m_texts[i] = {0, 1, static_cast<std::uint8_t>(i), static_cast<std::uint8_t>(i)};
        Reset();
    }

    unsigned Clear() const { return 1U << m_codeSize; }
    unsigned End() const { return Clear() + 1; }
    unsigned Width() const { return m_width; }
    void Reset()
    {
        m_next = End() + 1;
        m_width = m_codeSize + 1;
    }
    bool Has(unsigned code) const { return code < m_next; }
    /// Adds the string of `previous` followed by the first byte of the string of `code`. If `code` is the
    /// entry being added, its first byte is that of `previous`.
    void Add(unsigned previous, unsigned code)
    {
        if (m_next == m_texts.size())
            return;
        const Text& before = m_texts[previous];
        const std::uint8_t last = m_texts[Has(code) ? code : previous].first;
        m_texts[m_next++] = {static_cast<std::uint16_t>(previous),
                             static_cast<std::uint16_t>(before.length + 1), before.first, last};
        if (m_next == 1U << m_width && m_width < kMostWidth)
            ++m_width;
    }
    /// Writes as much of the string of `code` as fits into `room`. Returns the number of bytes written.
    std::size_t Write(unsigned code, std::span<std::uint8_t> room) const
    {
        const std::size_t length = m_texts[code].length;
        for (std::size_t i = length; i-- > 0; code = m_texts[code].prefix)
            if (i < room.size())
                room[i] = m_texts[code].last;
        return std::min(length, room.size());
    }

private:
    struct Text {
        std::uint16_t prefix;
        std::uint16_t length;
        std::uint8_t first;
        std::uint8_t last;
    };

    unsigned m_codeSize;
    unsigned m_width = 0;
    std::size_t m_next = 0;
    std::array<Text, kNone> m_texts{};
};

// Fills `indices`. Returns false if the codes are invalid or too few.
bool Decompress(std::span<const std::uint8_t> bytes, unsigned codeSize, std::span<std::uint8_t> indices)
{
    CodeReader codes(bytes);
    CodeTable table(codeSize);
    unsigned previous = CodeTable::kNone;
    while (!indices.empty()) {
        unsigned code = 0;
        if (!codes.Read(table.Width(), code) || code == table.End())
            return false;
        if (code == table.Clear()) {
            table.Reset();
            previous = CodeTable::kNone;
            continue;
        }
        if (previous != CodeTable::kNone)
            table.Add(previous, code);
        if (!table.Has(code))
            return false;
        indices = indices.subspan(table.Write(code, indices));
        previous = code;
    }
    return true;
}

struct Frame {
    int left;
    int top;
    int width;
    int height;
    bool isInterlaced;
    unsigned clearIndex;
    std::span<const std::uint8_t> palette;
    std::vector<std::uint8_t> indices;

    std::uint32_t Colour(std::size_t at) const
    {
        const std::size_t entry = std::size_t{indices[at]} * 3;
        const std::uint32_t alpha = indices[at] == clearIndex ? 0 : 0xFF000000;
        return entry + 3 > palette.size()
                   ? alpha
                   : alpha | (static_cast<std::uint32_t>(palette[entry]) << 16) |
                         (static_cast<std::uint32_t>(palette[entry + 1]) << 8) | palette[entry + 2];
    }
};

constexpr unsigned kNoIndex = 256;

// Skips the extension blocks before the first frame. Returns the palette index that is transparent in it.
unsigned SkipExtensions(Cursor& file)
{
    constexpr unsigned kExtension = 0x21;
    constexpr unsigned kGraphicControl = 0xF9;
    unsigned clearIndex = kNoIndex;
    while (file.U8() == kExtension) {
        const bool isControl = file.U8() == kGraphicControl;
        const std::vector<std::uint8_t> block = file.TakeBlocks();
        if (isControl && block.size() >= 4)
            clearIndex = block[0] & 1 ? block[3] : kNoIndex;
    }
    return clearIndex;
}

bool ReadFrame(Cursor& file, std::span<const std::uint8_t> screenPalette, Frame& frame)
{
    frame.clearIndex = SkipExtensions(file);
    frame.left = file.U16();
    frame.top = file.U16();
    frame.width = file.U16();
    frame.height = file.U16();
    const unsigned flags = file.U8();
    frame.isInterlaced = flags & 0x40;
    const auto own = file.TakePalette(flags);
    frame.palette = own.empty() ? screenPalette : own;
    const unsigned codeSize = file.U8();
    frame.indices.resize(static_cast<std::size_t>(frame.width) * static_cast<std::size_t>(frame.height));
    return codeSize >= 1 && codeSize <= 8 && Decompress(file.TakeBlocks(), codeSize, frame.indices);
}

// The row numbers of a frame in storage order (interlaced or not).
std::vector<int> StoredRows(const Frame& frame)
{
    struct Pass {
        int first;
        int step;
    };
    constexpr Pass kInterlaced[] = {{0, 8}, {4, 8}, {2, 4}, {1, 2}};
    constexpr Pass kPlain[] = {{0, 1}};
    std::vector<int> rows;
    for (const Pass& pass :
         frame.isInterlaced ? std::span<const Pass>(kInterlaced) : std::span<const Pass>(kPlain))
        for (int row = pass.first; row < frame.height; row += pass.step)
            rows.push_back(row);
    return rows;
}

}  // namespace

bool DecodeGif(std::span<const std::uint8_t> bytes, PicturePixels& image)
{
    constexpr std::size_t kSignature = 6;
    Cursor file(bytes);
    file.Take(kSignature);
    image.width = file.U16();
    image.height = file.U16();
    const unsigned flags = file.U8();
    file.Take(2);
    const auto palette = file.TakePalette(flags);
    Frame frame{};
    if (!ReadFrame(file, palette, frame))
        return false;
    const auto width = static_cast<std::size_t>(image.width);
    image.pixels.assign(width * static_cast<std::size_t>(image.height), 0);
    std::size_t at = 0;
    for (const int row : StoredRows(frame))
        for (int x = 0; x < frame.width; ++x, ++at)
            if (frame.left + x < image.width && frame.top + row < image.height)
                image.pixels[static_cast<std::size_t>(frame.top + row) * width +
                             static_cast<std::size_t>(frame.left + x)] = frame.Colour(at);
    return true;
}

}  // namespace qvui::classlib
