// The reader of resource directories on files that are broken.

#include <algorithm>
#include <fstream>
#include <iterator>

#include "native/kernel/resource_directory.h"
#include "platform/platform_test.h"

namespace {

using Bytes = std::vector<std::uint8_t>;

Bytes Module()
{
    std::ifstream file(QVUI_RESOURCE_MODULE, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

// Reads a broken file the way its resources would be used.
std::size_t ReadAll(const Bytes& file)
{
    const auto entries = qvui::native::ReadResourceDirectory(file);
    std::size_t sum = 0;
    if (entries)
        for (const qvui::native::ResourceEntry& entry : *entries)
            for (const std::uint8_t byte : entry.bytes)
                sum += byte;
    return sum;
}

void Put(Bytes& bytes, std::size_t at, std::uint64_t value, std::size_t size)
{
    bytes.resize(std::max(bytes.size(), at + size));
    for (std::size_t i = 0; i < size; ++i)
        bytes[at + i] = static_cast<std::uint8_t>(value >> (8 * i));
}

// A module of `types` types that all are called the same, with a text of `length` units, and that all hold
// the same resource of that name; `sections` sections stand before the one of the resources.
Bytes RepetitiveModule(std::size_t types, std::size_t length, std::size_t sections = 0)
{
    constexpr std::size_t kCoff = 0x44;
    constexpr std::size_t kOptional = kCoff + 20;
    constexpr std::size_t kOptionalSize = 240;
    constexpr std::uint32_t kAddress = 0x1000;
    constexpr std::uint32_t kHigh = 0x80000000;
    const std::size_t section = kOptional + kOptionalSize + sections * 40;
    const std::size_t root = section + 40;
    const std::size_t name = 16 + types * 8;  // from here on offsets in the directory
    const std::size_t names = name + 2 + length * 2;
    const std::size_t languages = names + 24;
    const std::size_t data = languages + 24;
    Bytes file;
    Put(file, 0, 0x5A4D, 2);
    Put(file, 0x3C, kCoff - 4, 4);
    Put(file, kCoff - 4, 0x4550, 4);
    Put(file, kCoff + 2, sections + 1, 2);
    Put(file, kCoff + 16, kOptionalSize, 2);
    Put(file, kOptional, 0x20B, 2);
    Put(file, kOptional + 108, 16, 4);
    Put(file, kOptional + 128, kAddress, 4);
    Put(file, section + 12, kAddress, 4);
    Put(file, section + 16, data + 16, 4);
    Put(file, section + 20, root, 4);
    Put(file, root + 12, types, 2);
    for (std::size_t i = 0; i < types; ++i)
        Put(file, root + 16 + i * 8, (kHigh | name) | (std::uint64_t{kHigh | names} << 32), 8);
    Put(file, root + name, length, 2);
    Put(file, root + names + 12, 1, 2);
    Put(file, root + names + 16, (kHigh | name) | (std::uint64_t{kHigh | languages} << 32), 8);
    Put(file, root + languages + 14, 1, 2);
    Put(file, root + languages + 20, data, 4);
    Put(file, root + data, kAddress, 4);
    Put(file, root + data + 12, 0, 4);
    return file;
}

}  // namespace

using ResourceDirectory = PlatformTest;

TEST_F(ResourceDirectory, ListsEveryResource)
{
    const Bytes file = Module();
    const auto entries = qvui::native::ReadResourceDirectory(file);
    ASSERT_TRUE(entries);
    EXPECT_EQ(entries->size(), 6U) << "text, two pictures, a cursor and its group, raw data";
}

TEST_F(ResourceDirectory, ThatRepeatsItselfWithoutEndIsNotRead)
{
    const auto modest = qvui::native::ReadResourceDirectory(RepetitiveModule(20, 10, 3));
    ASSERT_TRUE(modest);
    EXPECT_EQ(modest->size(), 20U);
    EXPECT_EQ(modest->back().type.text.size(), 10U);
    EXPECT_FALSE(qvui::native::ReadResourceDirectory(RepetitiveModule(10000, 65535))) << "texts";
    EXPECT_FALSE(qvui::native::ReadResourceDirectory(RepetitiveModule(10000, 1, 65000))) << "sections";
}

TEST_F(ResourceDirectory, OfAFileThatIsCutOffIsNotRead)
{
    const Bytes whole = Module();
    ASSERT_GT(whole.size(), 512U);
    const std::size_t sum = ReadAll(whole);
    EXPECT_GT(sum, 0U);
    for (std::size_t size = 0; size < whole.size(); ++size) {
        const Bytes cut(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(size));
        const std::size_t read = ReadAll(cut);
        EXPECT_TRUE(read == 0 || read == sum) << size << " bytes: all resources or none";
    }
}

TEST_F(ResourceDirectory, WithAnyByteChangedIsReadSafely)
{
    const Bytes whole = Module();
    for (std::size_t at = 0; at < whole.size(); ++at)
        for (const int value : {0x00, 0x01, 0x7F, 0x80, 0xFF}) {
            Bytes changed = whole;
            changed[at] = static_cast<std::uint8_t>(value);
            ReadAll(changed);
        }
}
