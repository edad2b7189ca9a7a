// Files by platform paths.

#include <algorithm>
#include <cstdio>
#include <memory>
#include <string>

#include <qvui/platform/file.h>
#include <qvui/platform/platform.h>

#include "platform/platform_test.h"
#include "support/screenshot.h"

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

HANDLE Open(const std::string& path, DWORD access, DWORD how)
{
    return CreateFileA(path.c_str(), access, FILE_SHARE_READ, nullptr, how, FILE_ATTRIBUTE_NORMAL, nullptr);
}

const std::string kData = QVUI_TEST_DATA "/platform/kernel/data/";

}  // namespace

using Files = PlatformTest;

TEST_F(Files, AreFoundUnderEitherSeparatorAndInAnyCase)
{
    const std::string text = Read(kData + "text.xml");
    ASSERT_NE(text, "not found");
    for (const char* const name : {"TEXT.XML", "../Data/./Text.Xml", "..\\..\\KERNEL\\data\\text.XML"})
        EXPECT_EQ(Read(kData + name), text) << name;
    std::string path = kData + "Text.xml";
    std::replace(path.begin(), path.end(), '/', '\\');
    EXPECT_EQ(Read(path), text) << path;
    for (const std::string& missing : {kData + "text.xm", kData + "no/text.xml", std::string()})
        EXPECT_EQ(Read(missing), "not found") << missing;
}

TEST_F(Files, AreWrittenAndReadByHandle)
{
    const std::string path = qvui::test::OutputPath("written.tmp");
    HANDLE file = Open(path, GENERIC_WRITE, CREATE_ALWAYS);
    ASSERT_NE(file, INVALID_HANDLE_VALUE);
    DWORD count = 0;
    EXPECT_TRUE(WriteFile(file, "0123456789", 10, &count, nullptr));
    EXPECT_EQ(count, 10U);
    EXPECT_TRUE(CloseHandle(file));
    file = Open(path, GENERIC_READ, OPEN_EXISTING);
    ASSERT_NE(file, INVALID_HANDLE_VALUE);
    for (const auto& [size, expected] : Table<DWORD, std::string>{{4, "0123"}, {16, "456789"}, {16, ""}}) {
        char buffer[16] = {};
        EXPECT_TRUE(ReadFile(file, buffer, size, &count, nullptr));
        EXPECT_EQ(std::string(buffer, count), expected);
    }
    EXPECT_TRUE(CloseHandle(file));
    EXPECT_TRUE(CloseHandle(Open(path, GENERIC_WRITE, CREATE_ALWAYS)));
    EXPECT_EQ(Read(path), "") << "made anew";
    std::remove(path.c_str());
}

TEST_F(Files, ThatAreMissingHaveNoHandle)
{
    EXPECT_EQ(Open(kData + "missing", GENERIC_READ, OPEN_EXISTING), INVALID_HANDLE_VALUE);
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_FILE_NOT_FOUND));
    EXPECT_EQ(Open(kData + "no/where", GENERIC_WRITE, CREATE_ALWAYS), INVALID_HANDLE_VALUE);
    EXPECT_EQ(Open(kData, GENERIC_READ, OPEN_EXISTING), INVALID_HANDLE_VALUE) << "a folder is no file";
}
