#include "native/kernel/resource_directory.h"

#include <algorithm>

namespace qvui::native {
namespace {

// The published layout of the file format: offsets and sizes in bytes, little-endian numbers.
constexpr std::uint16_t kDosMagic = 0x5A4D;
constexpr std::uint32_t kPeMagic = 0x00004550;
constexpr std::size_t kPeOffsetField = 0x3C;
constexpr std::size_t kCoffHeaderSize = 20;
constexpr std::uint16_t kMagic32 = 0x10B;
constexpr std::uint16_t kMagic64 = 0x20B;
constexpr std::size_t kDirectories32 = 96;
constexpr std::size_t kDirectories64 = 112;
constexpr std::size_t kResourceDirectory = 2;
constexpr std::size_t kSectionSize = 40;
constexpr std::uint32_t kHighBit = 0x80000000;
constexpr std::size_t kMostWork = std::size_t{1} << 20;

struct Broken {};

class Reader {
public:
    explicit Reader(std::span<const std::uint8_t> bytes) : m_bytes(bytes) {}

    std::span<const std::uint8_t> Slice(std::uint64_t offset, std::uint64_t size) const
    {
        if (offset > m_bytes.size() || size > m_bytes.size() - offset)
            throw Broken();
        return m_bytes.subspan(static_cast<std::size_t>(offset), static_cast<std::size_t>(size));
    }
    std::uint16_t U16(std::uint64_t offset) const
    {
        const auto at = Slice(offset, 2);
        return static_cast<std::uint16_t>(at[0] | (at[1] << 8));
    }
    std::uint32_t U32(std::uint64_t offset) const
    {
        return U16(offset) | (static_cast<std::uint32_t>(U16(offset + 2)) << 16);
    }

private:
    std::span<const std::uint8_t> m_bytes;
};

class ModuleReader {
public:
    explicit ModuleReader(std::span<const std::uint8_t> file) : m_file(file) { ReadHeaders(); }

    std::vector<ResourceEntry> ReadAll()
    {
        ForEachEntry(0, [&](const ResourceKey& type, std::uint32_t types) {
            ForEachEntry(Directory(types), [&](const ResourceKey& name, std::uint32_t languages) {
                bool isFirst = true;
                ForEachEntry(Directory(languages), [&](const ResourceKey&, std::uint32_t data) {
                    if (isFirst && !(data & kHighBit)) {
                        Count(type.text.size() + name.text.size());
                        m_entries.push_back({type, name, Data(data)});
                    }
                    isFirst = false;
                });
            });
        });
        return std::move(m_entries);
    }

private:
    void ReadHeaders()
    {
        if (m_file.U16(0) != kDosMagic)
            throw Broken();
        const std::uint64_t pe = m_file.U32(kPeOffsetField);
        if (m_file.U32(pe) != kPeMagic)
            throw Broken();
        const std::uint64_t coff = pe + 4;
        m_sectionCount = m_file.U16(coff + 2);
        const std::uint64_t optional = coff + kCoffHeaderSize;
        const std::uint16_t magic = m_file.U16(optional);
        if (magic != kMagic32 && magic != kMagic64)
            throw Broken();
        m_sections = optional + m_file.U16(coff + 16);
        const std::uint64_t directories = optional + (magic == kMagic64 ? kDirectories64 : kDirectories32);
        if (m_file.U32(directories - 4) <= kResourceDirectory)
            throw Broken();
        m_root = Offset(m_file.U32(directories + kResourceDirectory * 8));
    }

    // Converts a virtual address to a file offset.
    std::uint64_t Offset(std::uint32_t address)
    {
        for (std::uint64_t i = 0; i < m_sectionCount; ++i) {
            Count(1);
            const std::uint64_t section = m_sections + i * kSectionSize;
            const std::uint32_t start = m_file.U32(section + 12);
            const std::uint32_t size = m_file.U32(section + 16);
            if (address >= start && address - start < size)
                return static_cast<std::uint64_t>(m_file.U32(section + 20)) + (address - start);
        }
        throw Broken();
    }

    static std::uint32_t Directory(std::uint32_t field)
    {
        if (!(field & kHighBit))
            throw Broken();
        return field & ~kHighBit;
    }

    // The recursion is limited to three levels, so a directory that refers to itself terminates. This bound
    // limits the total work when many entries refer to one large directory or one long text, or search many
    // sections.
    void Count(std::size_t work)
    {
        m_work += work;
        if (m_work > kMostWork)
            throw Broken();
    }

    template <class Visit>
    void ForEachEntry(std::uint32_t directory, Visit visit)
    {
        const std::uint64_t at = m_root + directory;
        const unsigned count = m_file.U16(at + 12) + m_file.U16(at + 14);
        for (unsigned i = 0; i < count; ++i) {
            Count(1);
            const std::uint64_t entry = at + 16 + i * 8ULL;
            visit(Key(m_file.U32(entry)), m_file.U32(entry + 4));
        }
    }

    ResourceKey Key(std::uint32_t field)
    {
        if (!(field & kHighBit))
            return {static_cast<std::uint16_t>(field), {}};
        const std::uint64_t at = m_root + (field & ~kHighBit);
        ResourceKey key;
        const std::uint16_t length = m_file.U16(at);
        Count(length);
        for (std::uint16_t i = 0; i < length; ++i)
            key.text += static_cast<char16_t>(m_file.U16(at + 2 + i * 2ULL));
        return key;
    }

    std::span<const std::uint8_t> Data(std::uint32_t field)
    {
        const std::uint64_t at = m_root + field;
        return m_file.Slice(Offset(m_file.U32(at)), m_file.U32(at + 4));
    }

    Reader m_file;
    std::uint64_t m_root = 0;
    std::uint64_t m_sections = 0;
    unsigned m_sectionCount = 0;
    std::size_t m_work = 0;
    std::vector<ResourceEntry> m_entries;
};

char16_t Fold(char16_t unit)
{
    return unit >= u'a' && unit <= u'z' ? static_cast<char16_t>(unit - 32) : unit;
}

}  // namespace

bool ResourceKey::Matches(const ResourceKey& other) const
{
    return id == other.id && std::equal(text.begin(), text.end(), other.text.begin(), other.text.end(),
                                        [](char16_t a, char16_t b) { return Fold(a) == Fold(b); });
}

std::optional<std::vector<ResourceEntry>> ReadResourceDirectory(std::span<const std::uint8_t> file)
{
    try {
        return ModuleReader(file).ReadAll();
    } catch (const Broken&) {
        return std::nullopt;
    }
}

}  // namespace qvui::native
