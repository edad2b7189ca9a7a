// The reader of resource directories on files that are broken.

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

}  // namespace

using ResourceDirectory = PlatformTest;

TEST_F(ResourceDirectory, ListsEveryResource)
{
    const Bytes file = Module();
    const auto entries = qvui::native::ReadResourceDirectory(file);
    ASSERT_TRUE(entries);
    EXPECT_EQ(entries->size(), 6U) << "text, two pictures, a cursor and its group, raw data";
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
