#include <qvui/foundation/file_stream.h>

#include <gtest/gtest.h>

#include <climits>
#include <cstdlib>
#include <memory>
#include <string>
#include <vector>

#include "support/screenshot.h"

namespace {

using DUI::CIOFile;
using DUI::CMemFileEx;
using DUI::IFileBase;

std::string Path(const char* name)
{
    return qvui::test::OutputPath(name);
}

std::unique_ptr<IFileBase> NewMemory()
{
    auto file = std::make_unique<CMemFileEx>();
    EXPECT_TRUE(file->Open());
    return file;
}

std::unique_ptr<IFileBase> NewDisk()
{
    auto file = std::make_unique<CIOFile>();
    EXPECT_TRUE(file->Open(Path("stream.bin").c_str(), "w+b"));
    return file;
}

struct Kind {
    const char* name;
    std::unique_ptr<IFileBase> (*create)();
};
constexpr Kind kKinds[] = {{"memory", NewMemory}, {"disk", NewDisk}};

}  // namespace

TEST(FileStream, BothKindsReadBackWhatWasWritten)
{
    for (const Kind& kind : kKinds) {
        SCOPED_TRACE(kind.name);
        const std::unique_ptr<IFileBase> file = kind.create();
        EXPECT_EQ(file->Write("abcdef", 2, 3), 3U);
        EXPECT_TRUE(file->PutC(0xFF));
        EXPECT_EQ(file->Tell(), 7);
        EXPECT_EQ(file->Size(), 7);
        EXPECT_EQ(file->Tell(), 7) << "asking for the size moves nothing";
        EXPECT_TRUE(file->Flush());

        EXPECT_TRUE(file->Seek(-5, 2));
        EXPECT_EQ(file->GetC(), 'c');
        EXPECT_TRUE(file->Seek(1, 1));
        char items[8] = {};
        EXPECT_EQ(file->Read(items, 2, 4), 1U) << "three bytes are one whole item and a half";
        EXPECT_STREQ(items, "ef\xFF");
        EXPECT_EQ(file->GetC(), -1);
        EXPECT_TRUE(file->Eof());
        EXPECT_EQ(file->Error(), 0);

        EXPECT_TRUE(file->Seek(6, 0));
        EXPECT_FALSE(file->Eof());
        EXPECT_EQ(file->GetC(), 255) << "a byte, not a character with a sign";
        EXPECT_FALSE(file->Seek(0, 7));
        EXPECT_TRUE(file->Close());
    }
}

TEST(FileStream, BothKindsReadLines)
{
    for (const Kind& kind : kKinds) {
        SCOPED_TRACE(kind.name);
        const std::unique_ptr<IFileBase> file = kind.create();
        EXPECT_EQ(file->Write("ab\ncdef\n", 1, 8), 8U);
        file->Seek(0, 0);
        char line[10];
        EXPECT_EQ(file->GetS(line, 10), line);
        EXPECT_STREQ(line, "ab\n");
        EXPECT_EQ(file->GetS(line, 3), line);
        EXPECT_STREQ(line, "cd") << "the limit ends a line too";
        EXPECT_EQ(file->GetS(line, 10), line);
        EXPECT_STREQ(line, "ef\n");
        EXPECT_EQ(file->GetS(line, 10), nullptr);
    }
}

TEST(DiskStream, OwnsWhatItOpened)
{
    const std::string path = Path("owned.txt");
    CIOFile file;
    EXPECT_FALSE(file.Open(Path("missing/none.txt").c_str(), "rb"));
    EXPECT_FALSE(file.Open(nullptr, "rb"));
    ASSERT_TRUE(file.Open(path.c_str(), "wb"));
    EXPECT_FALSE(file.Open(path.c_str(), "wb")) << "there is a stream already";
    EXPECT_EQ(file.Write("12 apples", 1, 9), 9U);
    EXPECT_TRUE(file.Close());
    EXPECT_TRUE(file.Close()) << "nothing left to close";

    std::string backSlashes = path;
    backSlashes[path.rfind('/')] = '\\';
    ASSERT_TRUE(file.Open(backSlashes.c_str(), "rb")) << "open again, under either separator";
    int count = 0;
    EXPECT_EQ(file.Scanf("%d", &count), 1);
    EXPECT_EQ(count, 12);
}

TEST(DiskStream, LeavesAGivenStreamOpen)
{
    std::FILE* stream = std::fopen(Path("given.txt").c_str(), "w+b");
    ASSERT_NE(stream, nullptr);
    {
        CIOFile file(stream);
        EXPECT_FALSE(file.Open(Path("other.txt").c_str(), "wb"));
        EXPECT_TRUE(file.Close());
        EXPECT_EQ(file.Write("abc", 3, 1), 1U) << "it is still there";
    }
    EXPECT_EQ(std::fputc('d', stream), 'd');
    EXPECT_EQ(std::ftell(stream), 4);
    std::fclose(stream);
}

TEST(FileStream, AnswersWithoutAnythingBehindIt)
{
    CIOFile disk;
    CMemFileEx memory;
    for (IFileBase* file : {static_cast<IFileBase*>(&disk), static_cast<IFileBase*>(&memory)}) {
        SCOPED_TRACE(file == &disk ? "disk" : "memory");
        char buffer[4] = {};
        EXPECT_EQ(file->Read(buffer, 1, 1), 0U);
        EXPECT_EQ(file->Write(buffer, 1, 1), 0U);
        EXPECT_EQ(file->Tell(), file == &disk ? 0 : -1);
        EXPECT_EQ(file->GetS(buffer, 4), nullptr);
        EXPECT_FALSE(file->Seek(0, 0));
        EXPECT_FALSE(file->Flush());
        EXPECT_TRUE(file->Eof());
        EXPECT_EQ(file->Size(), -1);
        EXPECT_EQ(file->Error(), -1);
        EXPECT_EQ(file->GetC(), -1);
        EXPECT_EQ(file->Scanf("%d", buffer), file == &disk ? -1 : 0);
        EXPECT_TRUE(file->Close());
    }
    EXPECT_FALSE(disk.PutC('x'));
    EXPECT_EQ(memory.GetBuffer(false), nullptr);
    EXPECT_TRUE(memory.PutC('x')) << "one byte starts a block";
    EXPECT_EQ(memory.Size(), 1);
}

TEST(MemoryStream, MovesWithinAndBehindTheData)
{
    struct Case {
        const char* name;
        long offset;
        int origin;
        long position;
        long error;
    };
    const std::vector<Case> cases{
        {"start", 2, 0, 2, 0},
        {"before the start", -5, 0, 0, 0},
        {"from here", 1, 1, 2, 0},
        {"back from here", -9, 1, 0, 0},
        {"far back", LONG_MIN, 2, 0, 0},
        {"from the end", -1, 2, 2, 0},
        {"at the end", 0, 2, 3, 0},
        {"behind the end", 10, 2, 13, 1},
        {"as far as it goes", LONG_MAX, 2, LONG_MAX, 1},
    };
    for (const Case& c : cases) {
        CMemFileEx file;
        file.Open();
        file.Write("abc", 1, 3);
        file.Seek(1, 0);
        EXPECT_TRUE(file.Seek(c.offset, c.origin)) << c.name;
        EXPECT_EQ(file.Tell(), c.position) << c.name;
        EXPECT_EQ(file.Error(), c.error) << c.name;
        EXPECT_EQ(file.Eof(), c.position >= 3) << c.name;
        EXPECT_EQ(file.Size(), 3) << c.name;
    }
}

TEST(MemoryStream, FailsOnNothing)
{
    CMemFileEx file;
    file.Open();
    EXPECT_EQ(file.Write("abc", 1, 3), 3U);
    char items[8] = {};
    EXPECT_EQ(file.Read(items, 1, 1), 0U) << "at the end";
    file.Seek(0, 0);
    EXPECT_EQ(file.Read(nullptr, 1, 1) + file.Read(items, 0, 5) + file.Read(items, 5, 0), 0U);
    EXPECT_EQ(file.Write(nullptr, 1, 1) + file.Write("x", 0, 5), 0U);
    EXPECT_EQ(file.Read(items, UINT_MAX, UINT_MAX), 0U) << "less than one item there";
    EXPECT_EQ(file.Tell(), 3);
}

TEST(MemoryStream, GrowsAndFillsGapsWithZeros)
{
    CMemFileEx file;
    file.Open();
    const std::vector<char> block(65536, 'x');
    EXPECT_EQ(file.Write(block.data(), 1, 65536), 65536U);
    EXPECT_TRUE(file.PutC('y'));
    EXPECT_TRUE(file.Seek(200000, 0));
    EXPECT_TRUE(file.PutC('z'));
    EXPECT_EQ(file.Size(), 200001);
    const unsigned char* bytes = file.GetBuffer(false);
    EXPECT_EQ(bytes[65535], 'x');
    EXPECT_EQ(bytes[65536], 'y');
    EXPECT_EQ(bytes[65537], 0);
    EXPECT_EQ(bytes[199999], 0);
    EXPECT_EQ(bytes[200000], 'z');

    file.Seek(LONG_MAX, 0);
    EXPECT_FALSE(file.PutC('!')) << "positions end there";
    EXPECT_EQ(file.Size(), 200001);
}

TEST(MemoryStream, LeavesTheCallersBytesToTheCaller)
{
    unsigned char bytes[4] = {'a', 'b', 'c', 'd'};
    CMemFileEx file(bytes, 4);
    EXPECT_FALSE(file.Open());
    EXPECT_EQ(file.Size(), 4);
    EXPECT_EQ(file.GetC(), 'a');
    EXPECT_EQ(file.Write("XYZ", 1, 3), 3U);
    EXPECT_EQ(file.GetBuffer(false), bytes) << "there was room";
    EXPECT_EQ(std::string(bytes, bytes + 4), "aXYZ");

    EXPECT_TRUE(file.PutC('!')) << "moves on to a block of its own";
    EXPECT_NE(file.GetBuffer(false), bytes);
    EXPECT_EQ(std::string(file.GetBuffer(false), file.GetBuffer(false) + 5), "aXYZ!");
    file.Close();
    EXPECT_EQ(std::string(bytes, bytes + 4), "aXYZ");
    EXPECT_TRUE(file.Open()) << "a closed stream can start again";
    EXPECT_EQ(file.Size(), 0);
}

TEST(MemoryStream, HandsItsBlockOver)
{
    unsigned char* taken = nullptr;
    {
        CMemFileEx file;
        file.Open();
        file.Write("abc", 1, 3);
        taken = file.GetBuffer(true);
        file.Seek(0, 0);
        EXPECT_EQ(file.GetC(), 'a') << "it goes on using it";
    }
    EXPECT_EQ(std::string(taken, taken + 3), "abc");
    std::free(taken);
}

TEST(MemoryStream, LastLineWithoutALineFeedIsNoLine)
{
    CMemFileEx file;
    file.Open();
    file.Write("cd", 1, 2);
    file.Seek(0, 0);
    char line[10] = {};
    EXPECT_EQ(file.GetS(line, 10), nullptr);
    EXPECT_EQ(std::string(line, 2), "cd") << "what was read is there";
    file.Seek(0, 0);
    EXPECT_EQ(file.GetS(line, 1), line);
    EXPECT_STREQ(line, "");
    EXPECT_EQ(file.GetS(line, 0), nullptr);
}
