// Movable memory and streams on it.

#include <cstring>

#include <qvui/platform/platform.h>

#include "platform/platform_test.h"

namespace {

HGLOBAL BlockOf(const std::string& text)
{
    const HGLOBAL block = GlobalAlloc(GMEM_MOVEABLE, text.size());
    std::memcpy(GlobalLock(block), text.data(), text.size());
    GlobalUnlock(block);
    return block;
}

LARGE_INTEGER Offset(LONGLONG value)
{
    LARGE_INTEGER offset{};
    offset.QuadPart = value;
    return offset;
}

std::string ReadFrom(IStream* stream, ULONG size)
{
    std::string text(size, '?');
    ULONG count = 99;
    EXPECT_TRUE(SUCCEEDED(stream->Read(text.data(), size, &count)));
    text.resize(count);
    return text;
}

}  // namespace

using GlobalMemory = PlatformTest;

TEST_F(GlobalMemory, KeepsItsBytesWhenItGrowsAndShrinks)
{
    HGLOBAL block = BlockOf("0123456789");
    EXPECT_EQ(GlobalSize(block), 10U);
    for (const SIZE_T size : {100U, 5000U, 4U}) {
        block = GlobalReAlloc(block, size, GMEM_MOVEABLE);
        ASSERT_NE(block, nullptr);
        EXPECT_EQ(GlobalSize(block), size);
        EXPECT_EQ(std::memcmp(GlobalLock(block), "0123", 4), 0);
        GlobalUnlock(block);
    }
    EXPECT_EQ(GlobalFree(block), nullptr);
}

TEST_F(GlobalMemory, StartsAsZeroWhenAskedTo)
{
    const HGLOBAL block = GlobalAlloc(GHND, 64);
    const auto* bytes = static_cast<const char*>(GlobalLock(block));
    for (int i = 0; i < 64; ++i)
        EXPECT_EQ(bytes[i], 0) << i;
    GlobalUnlock(block);
    GlobalFree(block);
}

using MemoryStream = PlatformTest;

TEST_F(MemoryStream, ReadsItsBlockFromThePosition)
{
    const HGLOBAL block = BlockOf("0123456789");
    IStream* stream = nullptr;
    ASSERT_EQ(CreateStreamOnHGlobal(block, TRUE, &stream), S_OK);
    EXPECT_EQ(ReadFrom(stream, 4), "0123");
    struct Case {
        const char* name;
        LONGLONG offset;
        DWORD origin;
        ULONGLONG position;
        std::string rest;
    };
    const std::vector<Case> cases{
        {"from the start", 7, STREAM_SEEK_SET, 7, "789"},
        {"back from the end", -2, STREAM_SEEK_END, 8, "89"},
        {"back from here", -10, STREAM_SEEK_CUR, 0, "0123456789"},
        {"the end", 0, STREAM_SEEK_END, 10, ""},
    };
    for (const Case& c : cases) {
        ULARGE_INTEGER position{};
        EXPECT_EQ(stream->Seek(Offset(c.offset), c.origin, &position), S_OK) << c.name;
        EXPECT_EQ(position.QuadPart, c.position) << c.name;
        EXPECT_EQ(ReadFrom(stream, 50), c.rest) << c.name;
    }
    EXPECT_TRUE(FAILED(stream->Seek(Offset(-1), STREAM_SEEK_SET, nullptr)));
    EXPECT_EQ(stream->Release(), 0U);
}

TEST_F(MemoryStream, GrowsWhenWrittenTo)
{
    IStream* stream = nullptr;
    ASSERT_EQ(CreateStreamOnHGlobal(nullptr, TRUE, &stream), S_OK);
    ULONG written = 0;
    EXPECT_EQ(stream->Write("hello", 5, &written), S_OK);
    EXPECT_EQ(written, 5U);
    stream->Seek(Offset(3), STREAM_SEEK_SET, nullptr);
    stream->Write("p me", 4, nullptr);
    stream->Seek(Offset(0), STREAM_SEEK_SET, nullptr);
    EXPECT_EQ(ReadFrom(stream, 50), "help me");
    ULARGE_INTEGER size{};
    size.QuadPart = 4;
    EXPECT_EQ(stream->SetSize(size), S_OK);
    stream->Seek(Offset(0), STREAM_SEEK_SET, nullptr);
    EXPECT_EQ(ReadFrom(stream, 50), "help");
    stream->Release();
}

TEST_F(MemoryStream, LeavesTheBlockToItsOwnerUnlessAskedToFreeIt)
{
    const HGLOBAL block = BlockOf("mine");
    IStream* stream = nullptr;
    ASSERT_EQ(CreateStreamOnHGlobal(block, FALSE, &stream), S_OK);
    IUnknown* same = nullptr;
    EXPECT_EQ(stream->QueryInterface(IID_IUnknown, reinterpret_cast<void**>(&same)), S_OK);
    EXPECT_EQ(same->Release(), 1U);
    EXPECT_EQ(stream->Release(), 0U);
    EXPECT_EQ(std::memcmp(GlobalLock(block), "mine", 4), 0);
    GlobalUnlock(block);
    EXPECT_EQ(GlobalFree(block), nullptr);
}
