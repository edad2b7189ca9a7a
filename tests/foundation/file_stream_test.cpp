#include <qvui/foundation/file_stream.h>

#include <gtest/gtest.h>

#include <climits>
#include <cstdlib>
#include <string>
#include <vector>

#include "support/screenshot.h"
#include "support/table.h"

namespace {

using DUI::CIOFile;
using DUI::CMemFileEx;
using DUI::IFileBase;

std::string Path(const char* name)
{
    return qvui::test::OutputPath(name);
}

// A stream in memory that starts with a text, at its end.
struct Memory : CMemFileEx {
    explicit Memory(const std::string& text)
    {
        EXPECT_TRUE(Open());
        EXPECT_EQ(Write(text.data(), 1, static_cast<unsigned>(text.size())), text.size());
    }
};

// Both kinds, for tests that treat them alike.
class FileStream : public testing::TestWithParam<const char*> {
protected:
    FileStream()
    {
        if (IsDisk())
            EXPECT_TRUE(m_disk.Open(Path("stream.bin").c_str(), "w+b"));
        else
            EXPECT_TRUE(m_memory.Open());
    }
    bool IsDisk() const { return GetParam() == std::string("disk"); }

    CIOFile m_disk;
    CMemFileEx m_memory;
    IFileBase& file = IsDisk() ? static_cast<IFileBase&>(m_disk) : m_memory;
};
INSTANTIATE_TEST_SUITE_P(Both, FileStream, testing::Values("disk", "memory"),
                         [](const auto& parameter) { return std::string(parameter.param); });

}  // namespace

TEST_P(FileStream, ReadsBackWhatWasWritten)
{
    EXPECT_EQ(file.Write("abcdef", 2, 3), 3U);
    EXPECT_TRUE(file.PutC(0xFF));
    EXPECT_EQ(file.Size(), 7);
    EXPECT_EQ(file.Tell(), 7) << "asking for the size moves nothing";
    EXPECT_TRUE(file.Flush());
    EXPECT_TRUE(file.Seek(-5, 2));
    EXPECT_EQ(file.GetC(), 'c');
    EXPECT_TRUE(file.Seek(1, 1));
    char items[8] = {};
    EXPECT_EQ(file.Read(items, 2, 4), 1U) << "three bytes are one whole item and a half";
    EXPECT_STREQ(items, "ef\xFF");
    EXPECT_EQ(file.GetC(), -1);
    EXPECT_TRUE(file.Eof());
    EXPECT_EQ(file.Error(), 0);
    EXPECT_TRUE(file.Seek(6, 0));
    EXPECT_FALSE(file.Eof());
    EXPECT_EQ(file.GetC(), 255) << "a byte, not a character with a sign";
    EXPECT_FALSE(file.Seek(0, 7));
    EXPECT_TRUE(file.Close());
}

TEST_P(FileStream, ReadsLines)
{
    file.Write("ab\ncdef\n", 1, 8);
    file.Seek(0, 0);
    const Table<int, std::string> lines{{10, "ab\n"}, {3, "cd"}, {10, "ef\n"}};
    for (const auto& [limit, expected] : lines) {
        char line[10];
        EXPECT_EQ(file.GetS(line, limit), line);
        EXPECT_EQ(line, expected);
    }
    char line[10];
    EXPECT_EQ(file.GetS(line, 10), nullptr);
}

TEST_P(FileStream, AnswersWithoutAnythingBehindIt)
{
    CIOFile disk;
    CMemFileEx memory;
    IFileBase& closed = IsDisk() ? static_cast<IFileBase&>(disk) : memory;
    char buffer[4] = {};
    EXPECT_EQ(closed.Read(buffer, 1, 1) + closed.Write(buffer, 1, 1), 0U);
    EXPECT_EQ(closed.Tell(), IsDisk() ? 0 : -1);
    EXPECT_EQ(closed.GetS(buffer, 4), nullptr);
    EXPECT_FALSE(closed.Seek(0, 0) || closed.Flush());
    EXPECT_TRUE(closed.Eof());
    EXPECT_EQ(closed.Size(), -1);
    EXPECT_EQ(closed.Error(), -1);
    EXPECT_EQ(closed.GetC(), -1);
    EXPECT_EQ(closed.Scanf("%d", buffer), IsDisk() ? -1 : 0);
    EXPECT_TRUE(closed.Close());
    EXPECT_EQ(closed.PutC('x'), !IsDisk()) << "one byte starts a block";
    EXPECT_EQ(closed.Size(), IsDisk() ? -1 : 1);
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

TEST(MemoryStream, MovesWithinAndBehindTheData)
{
    const Table<const char*, long, int, long> cases{
        {"start", 2, 0, 2},           {"before the start", -5, 0, 0}, {"from here", 1, 1, 2},
        {"back from here", -9, 1, 0}, {"far back", LONG_MIN, 2, 0},   {"from the end", -1, 2, 2},
        {"at the end", 0, 2, 3},      {"behind the end", 10, 2, 13},  {"farthest", LONG_MAX, 2, LONG_MAX}};
    for (const auto& [name, offset, origin, position] : cases) {
        Memory file("abc");
        file.Seek(1, 0);
        EXPECT_TRUE(file.Seek(offset, origin)) << name;
        EXPECT_EQ(file.Tell(), position) << name;
        EXPECT_EQ(file.Error(), position > 3 ? 1 : 0) << name;
        EXPECT_EQ(file.Eof(), position >= 3) << name;
        EXPECT_EQ(file.Size(), 3) << name;
    }
}

TEST(MemoryStream, FailsOnNothing)
{
    Memory file("abc");
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
    Memory file(std::string(65536, 'x') + 'y');
    EXPECT_TRUE(file.Seek(200000, 0));
    EXPECT_TRUE(file.PutC('z'));
    file.Seek(LONG_MAX, 0);
    EXPECT_FALSE(file.PutC('!')) << "positions end there";
    ASSERT_EQ(file.Size(), 200001);
    const unsigned char* bytes = file.GetBuffer(false);
    EXPECT_EQ(std::string(bytes, bytes + 200001),
              std::string(65536, 'x') + 'y' + std::string(200000 - 65537, '\0') + 'z');
}

TEST(MemoryStream, LeavesTheCallersBytesToTheCaller)
{
    unsigned char bytes[4] = {'a', 'b', 'c', 'd'};
    CMemFileEx file(bytes, 4);
    EXPECT_FALSE(file.Open());
    EXPECT_EQ(file.GetC(), 'a');
    EXPECT_EQ(file.Write("XYZ", 1, 3), 3U);
    EXPECT_EQ(file.GetBuffer(false), bytes) << "there was room";
    EXPECT_TRUE(file.PutC('!')) << "moves on to a block of its own";
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
        Memory file("abc");
        taken = file.GetBuffer(true);
        file.Seek(0, 0);
        EXPECT_EQ(file.GetC(), 'a') << "it goes on using it";
    }
    EXPECT_EQ(std::string(taken, taken + 3), "abc");
    std::free(taken);
}

TEST(MemoryStream, LastLineWithoutALineFeedIsNoLine)
{
    Memory file("cd");
    file.Seek(0, 0);
    char line[10] = {};
    EXPECT_EQ(file.GetS(line, 10), nullptr);
    EXPECT_EQ(std::string(line, 2), "cd") << "what was read is there";
    file.Seek(0, 0);
    EXPECT_EQ(file.GetS(line, 1), line);
    EXPECT_STREQ(line, "");
    EXPECT_EQ(file.GetS(line, 0), nullptr);
}
