// The readers of cursor files and of resource directories, on files that are whole and broken.

#include "native/kernel/cursor_file.h"
#include "native/kernel/resource_directory.h"
#include "platform/damage.h"
#include "platform/platform_test.h"
#include "support/platform_bitmap.h"

using namespace qvui::native;

namespace {

// The header of a bitmap of `width` × `height` pixels whose mask is stored under them.
Bytes BitmapHeader(int width, int height, int bits)
{
    const BITMAPINFO info = qvui::test::BitmapInfo(width, height * 2, bits);
    const auto* const bytes = reinterpret_cast<const std::uint8_t*>(&info.bmiHeader);
    return {bytes, bytes + sizeof info.bmiHeader};
}

Bytes CursorFile(const Bytes& bitmap, std::uint8_t hotX = 0)
{
    Bytes file{0, 0, 2, 0, 1, 0, 0, 0, 0, 0, hotX, 0, 0, 0};
    Put(file, 14, bitmap.size(), 4);
    Put(file, 18, 22, 4);
    file.insert(file.end(), bitmap.begin(), bitmap.end());
    return file;
}

// A cursor of two columns and one row: the first pixel blue 10, green 20, red 30, the second one left out by
// the mask or, at 32 bits, by its alpha.
Bytes TwoPixels(int bits)
{
    Bytes bitmap = BitmapHeader(2, 1, bits);
    if (bits <= 8) {
        for (int i = 0; i < (1 << bits); ++i)
            Put(bitmap, bitmap.size(), i == 1 ? 0x001E140A : 0x00FFFFFF, 4);
        Put(bitmap, bitmap.size(), 1U << (8 - bits), 4);
    } else if (bits == 24) {
        bitmap.insert(bitmap.end(), {10, 20, 30, 99, 99, 99, 0, 0});
    } else {
        bitmap.insert(bitmap.end(), {10, 20, 30, 0xFF, 0, 0, 0, 0});
    }
    Put(bitmap, bitmap.size(), 0x40, 4);  // the mask
    return bitmap;
}

// Reads a broken file the way its resources would be used.
std::size_t ReadAll(const Bytes& file)
{
    const auto entries = ReadResourceDirectory(file);
    std::size_t sum = 0;
    if (entries)
        for (const ResourceEntry& entry : *entries)
            for (const std::uint8_t byte : entry.bytes)
                sum += byte;
    return sum;
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
    const std::uint64_t ofName = kHigh | name;
    for (const auto& [at, value, size] : Table<std::size_t, std::uint64_t, std::size_t>{
             {0, 0x5A4D, 2},
             {0x3C, kCoff - 4, 4},
             {kCoff - 4, 0x4550, 4},
             {kCoff + 2, sections + 1, 2},
             {kCoff + 16, kOptionalSize, 2},
             {kOptional, 0x20B, 2},
             {kOptional + 108, 16, 4},
             {kOptional + 128, kAddress, 4},
             {section + 12, kAddress, 4},
             {section + 16, data + 16, 4},
             {section + 20, root, 4},
             {root + 12, types, 2},
             {root + name, length, 2},
             {root + names + 12, 1, 2},
             {root + names + 16, ofName | (std::uint64_t{kHigh | languages} << 32), 8},
             {root + languages + 14, 1, 2},
             {root + languages + 20, data, 4},
             {root + data, kAddress, 4},
             {root + data + 12, 0, 4}})
        Put(file, at, value, size);
    for (std::size_t i = 0; i < types; ++i)
        Put(file, root + 16 + i * 8, ofName | (std::uint64_t{kHigh | names} << 32), 8);
    return file;
}

}  // namespace

using CursorFiles = PlatformTest;

TEST_F(CursorFiles, AreReadAtEveryDepth)
{
    for (const int bits : {1, 4, 8, 24, 32}) {
        const auto cursor = ReadCursorFile(CursorFile(TwoPixels(bits), 1));
        ASSERT_NE(cursor.pixels, nullptr) << bits;
        EXPECT_EQ(cursor.pixels->width, 2) << bits;
        EXPECT_EQ(cursor.pixels->height, 1) << bits;
        EXPECT_EQ(cursor.hotSpot.x, 1) << bits;
        EXPECT_EQ(cursor.pixels->Get(0, 0), 0xFF1E140AU) << bits;
        EXPECT_EQ(cursor.pixels->Get(1, 0), 0U) << bits;
    }
}

TEST_F(CursorFiles, AreStoredFromTheBottomUpAndMayLackAlpha)
{
    const Table<const char*, int, int, Bytes, std::uint32_t, std::uint32_t> cases{
        {"two rows", 1, 2, {1, 0, 0, 0xFF, 2, 0, 0, 0xFF, 0, 0, 0, 0, 0, 0, 0, 0}, 0xFF000002, 0xFF000001},
        {"no alpha, so the mask counts", 2, 1, {1, 2, 3, 0, 4, 5, 6, 0, 0x40, 0, 0, 0}, 0xFF030201, 0},
    };
    for (const auto& [name, width, height, rows, first, last] : cases) {
        Bytes bitmap = BitmapHeader(width, height, 32);
        bitmap.insert(bitmap.end(), rows.begin(), rows.end());
        const auto cursor = ReadCursorFile(CursorFile(bitmap));
        ASSERT_NE(cursor.pixels, nullptr) << name;
        EXPECT_EQ(cursor.pixels->Get(0, 0), first) << name;
        EXPECT_EQ(cursor.pixels->Get(width - 1, height - 1), last) << name;
    }
}

TEST_F(CursorFiles, OfAnotherKindAreRefused)
{
    const Table<const char*, std::size_t, std::uint8_t> changes{
        {"icon", 2, 1},      {"no image", 4, 0}, {"compressed", 38, 1},    {"16 bits", 36, 16},
        {"no width", 26, 0}, {"huge", 28, 1},    {"other header", 22, 12}, {"offset outside", 18, 200}};
    for (const auto& [name, at, value] : changes) {
        Bytes file = CursorFile(TwoPixels(24));
        file[at] = value;
        EXPECT_EQ(ReadCursorFile(file).pixels, nullptr) << name;
    }
}

TEST_F(CursorFiles, ThatAreCutOffOrChangedAreReadSafely)
{
    for (const int bits : {1, 4, 8, 24, 32}) {
        const Bytes whole = CursorFile(TwoPixels(bits));
        ForEachCut(whole, [bits](const Bytes& cut) {
            EXPECT_EQ(ReadCursorFile(cut).pixels, nullptr) << bits << " bits, " << cut.size() << " bytes";
            ReadCursorResource(cut);
            FirstCursorOfGroup(cut);
        });
        ForEachChange(whole, {0x00, 0x01, 0x08, 0x7F, 0x80, 0xFF}, ReadCursorFile);
    }
}

TEST_F(CursorFiles, InModulesAreGroupsOfImages)
{
    Bytes image{3, 0, 4, 0};
    const Bytes bitmap = TwoPixels(24);
    image.insert(image.end(), bitmap.begin(), bitmap.end());
    const auto cursor = ReadCursorResource(image);
    ASSERT_NE(cursor.pixels, nullptr);
    EXPECT_EQ(cursor.hotSpot.x, 3);
    EXPECT_EQ(cursor.hotSpot.y, 4);
    Bytes group{0, 0, 2, 0, 1, 0};
    group.resize(20);
    group[18] = 0x34;
    group[19] = 0x12;
    EXPECT_EQ(FirstCursorOfGroup(group), 0x1234);
}

using ResourceDirectory = PlatformTest;

TEST_F(ResourceDirectory, ThatRepeatsItselfWithoutEndIsNotRead)
{
    const auto modest = ReadResourceDirectory(RepetitiveModule(20, 10, 3));
    ASSERT_TRUE(modest);
    EXPECT_EQ(modest->size(), 20U);
    EXPECT_EQ(modest->back().type.text.size(), 10U);
    EXPECT_FALSE(ReadResourceDirectory(RepetitiveModule(10000, 65535))) << "texts";
    EXPECT_FALSE(ReadResourceDirectory(RepetitiveModule(10000, 1, 65000))) << "sections";
}

TEST_F(ResourceDirectory, OfABrokenFileIsReadWholeOrNotAtAll)
{
    const Bytes whole = FileBytes(QVUI_RESOURCE_MODULE);
    const std::size_t sum = ReadAll(whole);
    EXPECT_GT(sum, 0U);
    ForEachCut(whole, [sum](const Bytes& cut) {
        const std::size_t read = ReadAll(cut);
        EXPECT_TRUE(read == 0 || read == sum) << cut.size() << " bytes";
    });
    ForEachChange(whole, {0x00, 0x01, 0x7F, 0x80, 0xFF}, ReadAll);
}
