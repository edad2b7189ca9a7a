// Cursor files of every depth, and broken ones.

#include "native/kernel/cursor_file.h"
#include "platform/platform_test.h"

namespace {

using Bytes = std::vector<std::uint8_t>;

void Append(Bytes& bytes, std::uint32_t value, int size)
{
    for (int i = 0; i < size; ++i)
        bytes.push_back(static_cast<std::uint8_t>(value >> (8 * i)));
}

// The header of a bitmap of `width` × `height` pixels whose mask is stored under them.
Bytes BitmapHeader(int width, int height, int bits)
{
    Bytes bytes;
    Append(bytes, 40, 4);
    Append(bytes, static_cast<std::uint32_t>(width), 4);
    Append(bytes, static_cast<std::uint32_t>(height * 2), 4);
    Append(bytes, 1, 2);
    Append(bytes, static_cast<std::uint32_t>(bits), 2);
    bytes.resize(40);
    return bytes;
}

Bytes CursorFile(const Bytes& bitmap, int hotX, int hotY)
{
    Bytes file{0, 0, 2, 0, 1, 0, 0, 0, 0, 0};
    Append(file, static_cast<std::uint32_t>(hotX), 2);
    Append(file, static_cast<std::uint32_t>(hotY), 2);
    Append(file, static_cast<std::uint32_t>(bitmap.size()), 4);
    Append(file, 22, 4);
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
            Append(bitmap, i == 1 ? 0x001E140A : 0x00FFFFFF, 4);
        Append(bitmap, 1U << (8 - bits), 4);
    } else if (bits == 24) {
        bitmap.insert(bitmap.end(), {10, 20, 30, 99, 99, 99, 0, 0});
    } else {
        bitmap.insert(bitmap.end(), {10, 20, 30, 0xFF, 0, 0, 0, 0});
    }
    Append(bitmap, 0x40, 4);  // the mask
    return bitmap;
}

}  // namespace

using CursorFiles = PlatformTest;

TEST_F(CursorFiles, AreReadAtEveryDepth)
{
    for (const int bits : {1, 4, 8, 24, 32}) {
        const auto cursor = qvui::native::ReadCursorFile(CursorFile(TwoPixels(bits), 1, 0));
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
    struct Case {
        const char* name;
        int width, height;
        Bytes rows;
        std::uint32_t first, second;
    };
    const std::vector<Case> cases{
        {"two rows", 1, 2, {1, 0, 0, 0xFF, 2, 0, 0, 0xFF, 0, 0, 0, 0, 0, 0, 0, 0}, 0xFF000002, 0xFF000001},
        {"no alpha, so the mask counts", 2, 1, {1, 2, 3, 0, 4, 5, 6, 0, 0x40, 0, 0, 0}, 0xFF030201, 0},
    };
    for (const Case& c : cases) {
        Bytes bitmap = BitmapHeader(c.width, c.height, 32);
        bitmap.insert(bitmap.end(), c.rows.begin(), c.rows.end());
        const auto cursor = qvui::native::ReadCursorFile(CursorFile(bitmap, 0, 0));
        ASSERT_NE(cursor.pixels, nullptr) << c.name;
        EXPECT_EQ(cursor.pixels->Get(0, 0), c.first) << c.name;
        EXPECT_EQ(cursor.pixels->Get(c.width - 1, c.height - 1), c.second) << c.name;
    }
}

TEST_F(CursorFiles, OfAnotherKindAreRefused)
{
    const auto changed = [](std::size_t at, std::uint8_t value) {
        Bytes file = CursorFile(TwoPixels(24), 0, 0);
        file[at] = value;
        return file;
    };
    struct Case {
        const char* name;
        Bytes file;
    };
    const std::vector<Case> cases{
        {"icon", changed(2, 1)},           {"no image", changed(4, 0)},
        {"compressed", changed(38, 1)},    {"16 bits", changed(36, 16)},
        {"no width", changed(26, 0)},      {"huge", changed(28, 1)},
        {"other header", changed(22, 12)}, {"offset outside", changed(18, 200)},
    };
    for (const Case& c : cases)
        EXPECT_EQ(qvui::native::ReadCursorFile(c.file).pixels, nullptr) << c.name;
}

TEST_F(CursorFiles, ThatAreCutOffOrChangedAreReadSafely)
{
    for (const int bits : {1, 4, 8, 24, 32}) {
        const Bytes whole = CursorFile(TwoPixels(bits), 0, 0);
        for (std::size_t size = 0; size < whole.size(); ++size) {
            const Bytes cut(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(size));
            EXPECT_EQ(qvui::native::ReadCursorFile(cut).pixels, nullptr)
                << bits << " bits, " << size << " bytes";
            qvui::native::ReadCursorResource(cut);
            qvui::native::FirstCursorOfGroup(cut);
        }
        for (std::size_t at = 0; at < whole.size(); ++at)
            for (const int value : {0x00, 0x01, 0x08, 0x7F, 0x80, 0xFF}) {
                Bytes changed = whole;
                changed[at] = static_cast<std::uint8_t>(value);
                qvui::native::ReadCursorFile(changed);
            }
    }
}

TEST_F(CursorFiles, InModulesAreGroupsOfImages)
{
    Bytes image{3, 0, 4, 0};
    const Bytes bitmap = TwoPixels(24);
    image.insert(image.end(), bitmap.begin(), bitmap.end());
    const auto cursor = qvui::native::ReadCursorResource(image);
    ASSERT_NE(cursor.pixels, nullptr);
    EXPECT_EQ(cursor.hotSpot.x, 3);
    EXPECT_EQ(cursor.hotSpot.y, 4);
    Bytes group{0, 0, 2, 0, 1, 0};
    group.resize(20);
    group[18] = 0x34;
    group[19] = 0x12;
    EXPECT_EQ(qvui::native::FirstCursorOfGroup(group), 0x1234);
}
