// Movable memory and streams on it.

#include <cstring>
#include <string>

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

std::string TextOf(HGLOBAL block, std::size_t size)
{
    std::string text(static_cast<const char*>(GlobalLock(block)), size);
    GlobalUnlock(block);
    return text;
}

// Where the stream stands after the seek; -1 when it fails.
LONGLONG Seek(IStream* stream, LONGLONG offset, DWORD origin)
{
    LARGE_INTEGER distance{};
    distance.QuadPart = offset;
    ULARGE_INTEGER position{};
    return SUCCEEDED(stream->Seek(distance, origin, &position)) ? static_cast<LONGLONG>(position.QuadPart)
                                                                : -1;
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
        EXPECT_EQ(TextOf(block, 4), "0123");
    }
    EXPECT_EQ(GlobalFree(block), nullptr);
    block = GlobalAlloc(GHND, 64);
    EXPECT_EQ(TextOf(block, 64), std::string(64, '\0')) << "zeroed when asked to";
    GlobalFree(block);
}

using MemoryStream = PlatformTest;

TEST_F(MemoryStream, ReadsItsBlockFromThePosition)
{
    IStream* stream = nullptr;
    ASSERT_EQ(CreateStreamOnHGlobal(BlockOf("0123456789"), TRUE, &stream), S_OK);
    EXPECT_EQ(ReadFrom(stream, 4), "0123");
    const Table<const char*, LONGLONG, DWORD, LONGLONG, std::string> cases{
        {"from the start", 7, STREAM_SEEK_SET, 7, "789"},
        {"back from the end", -2, STREAM_SEEK_END, 8, "89"},
        {"back from here", -10, STREAM_SEEK_CUR, 0, "0123456789"},
        {"before the start", -1, STREAM_SEEK_SET, -1, ""},
    };
    for (const auto& [name, offset, origin, position, rest] : cases) {
        EXPECT_EQ(Seek(stream, offset, origin), position) << name;
        EXPECT_EQ(ReadFrom(stream, 50), rest) << name;
    }
    EXPECT_EQ(stream->Release(), 0U);
}

TEST_F(MemoryStream, GrowsWhenWrittenToAndMayLeaveTheBlockToItsOwner)
{
    IStream* stream = nullptr;
    ASSERT_EQ(CreateStreamOnHGlobal(nullptr, TRUE, &stream), S_OK);
    ULONG written = 0;
    EXPECT_EQ(stream->Write("hello", 5, &written), S_OK);
    EXPECT_EQ(written, 5U);
    Seek(stream, 3, STREAM_SEEK_SET);
    stream->Write("p me", 4, nullptr);
    Seek(stream, 0, STREAM_SEEK_SET);
    EXPECT_EQ(ReadFrom(stream, 50), "help me");
    stream->Release();
    const HGLOBAL block = BlockOf("mine");
    ASSERT_EQ(CreateStreamOnHGlobal(block, FALSE, &stream), S_OK);
    ULARGE_INTEGER size{};
    size.QuadPart = 2;
    EXPECT_EQ(stream->SetSize(size), S_OK);
    EXPECT_EQ(ReadFrom(stream, 50), "mi");
    IUnknown* same = nullptr;
    EXPECT_EQ(stream->QueryInterface(IID_IUnknown, reinterpret_cast<void**>(&same)), S_OK);
    EXPECT_EQ(same->Release(), 1U);
    EXPECT_EQ(stream->Release(), 0U);
    EXPECT_EQ(TextOf(block, 2), "mi");
    EXPECT_EQ(GlobalFree(block), nullptr);
}
