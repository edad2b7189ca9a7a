// Files by platform paths, and the clock.

#include <cstdio>
#include <cstring>
#include <memory>

#include <qvui/platform/file.h>
#include <qvui/platform/platform.h>

#include "platform/platform_test.h"

namespace {

struct CloseStream {
    void operator()(std::FILE* file) const { std::fclose(file); }
};

std::string Read(const std::string& path)
{
    const std::unique_ptr<std::FILE, CloseStream> file(OpenPlatformFile(path.c_str(), "rb"));
    if (!file)
        return "not found";
    char bytes[256];
    return {bytes, std::fread(bytes, 1, sizeof bytes, file.get())};
}

std::string BackSlashes(std::string path)
{
    for (char& character : path)
        character = character == '/' ? '\\' : character;
    return path;
}

const std::string kData = QVUI_TEST_DATA "/platform/kernel/data/";

// A file that is deleted at the end of its scope.
class TemporaryFile {
public:
    TemporaryFile() : m_path(std::string(std::tmpnam(m_name)) + ".tmp") {}
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;
    ~TemporaryFile() { std::remove(m_path.c_str()); }
    const char* Path() const { return m_path.c_str(); }

private:
    char m_name[L_tmpnam] = {};
    std::string m_path;
};

}  // namespace

using Files = PlatformTest;

TEST_F(Files, AreFoundUnderEitherSeparatorAndInAnyCase)
{
    const std::string text = Read(kData + "text.xml");
    ASSERT_NE(text, "not found");
    const std::vector<std::string> paths{
        BackSlashes(kData) + "text.xml",
        BackSlashes(kData + "text.xml"),
        kData + "TEXT.XML",
        kData + "../Data/./Text.Xml",
        BackSlashes(QVUI_TEST_DATA "/Platform/KERNEL/data/text.XML"),
    };
    for (const std::string& path : paths)
        EXPECT_EQ(Read(path), text) << path;
    EXPECT_EQ(Read(kData + "text.xm"), "not found");
    EXPECT_EQ(Read(kData + "no/text.xml"), "not found");
    EXPECT_EQ(Read(""), "not found");
}

TEST_F(Files, AreWrittenAndReadByHandle)
{
    const TemporaryFile temporary;
    HANDLE file = CreateFileA(temporary.Path(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS,
                              FILE_ATTRIBUTE_NORMAL, nullptr);
    ASSERT_NE(file, INVALID_HANDLE_VALUE);
    DWORD count = 0;
    EXPECT_TRUE(WriteFile(file, "0123456789", 10, &count, nullptr));
    EXPECT_EQ(count, 10U);
    EXPECT_TRUE(CloseHandle(file));
    file = CreateFileA(temporary.Path(), GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING,
                       FILE_ATTRIBUTE_NORMAL, nullptr);
    ASSERT_NE(file, INVALID_HANDLE_VALUE);
    char buffer[16] = {};
    EXPECT_TRUE(ReadFile(file, buffer, 4, &count, nullptr));
    EXPECT_EQ(std::string(buffer, count), "0123");
    EXPECT_TRUE(ReadFile(file, buffer, sizeof buffer, &count, nullptr));
    EXPECT_EQ(std::string(buffer, count), "456789");
    EXPECT_TRUE(ReadFile(file, buffer, sizeof buffer, &count, nullptr));
    EXPECT_EQ(count, 0U) << "at the end";
    EXPECT_TRUE(CloseHandle(file));
    file = CreateFileA(temporary.Path(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL,
                       nullptr);
    EXPECT_TRUE(CloseHandle(file));
    EXPECT_EQ(Read(temporary.Path()), "") << "made anew";
}

TEST_F(Files, ThatAreMissingHaveNoHandle)
{
    EXPECT_EQ(CreateFileA((kData + "missing").c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr),
              INVALID_HANDLE_VALUE);
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_FILE_NOT_FOUND));
    EXPECT_EQ(CreateFileA((kData + "no/where").c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr),
              INVALID_HANDLE_VALUE);
    EXPECT_EQ(CreateFileA(kData.c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr),
              INVALID_HANDLE_VALUE)
        << "a folder is no file";
}

using Clock = PlatformTest;

TEST_F(Clock, CountsForwardsInItsFrequency)
{
    LARGE_INTEGER frequency{};
    LARGE_INTEGER before{};
    LARGE_INTEGER after{};
    EXPECT_TRUE(QueryPerformanceFrequency(&frequency));
    EXPECT_GT(frequency.QuadPart, 0);
    EXPECT_TRUE(QueryPerformanceCounter(&before));
    const DWORD ticks = GetTickCount();
    EXPECT_TRUE(QueryPerformanceCounter(&after));
    EXPECT_GE(after.QuadPart, before.QuadPart);
    EXPECT_LT(GetTickCount() - ticks, 0x80000000U) << "ticks go forwards";
}
