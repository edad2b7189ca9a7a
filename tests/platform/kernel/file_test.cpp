// Modules, their resources, and files by platform paths.

#include <algorithm>
#include <cstdio>
#include <memory>
#include <string>

#include <qvui/platform/file.h>
#include <qvui/platform/platform.h>

#include "platform/damage.h"
#include "platform/platform_test.h"
#include "support/test_files.h"

namespace {

std::string ProgramPath()
{
    char path[MAX_PATH];
    return {path, GetModuleFileNameA(nullptr, path, sizeof path)};
}

std::string BesideProgram(const std::string& name)
{
    const std::string program = ProgramPath();
    return program.substr(0, program.rfind('\\') + 1) + name;
}

std::string DataFile(const std::string& name)
{
    const Bytes bytes = FileBytes(qvui::test::TestFile("platform/kernel/data/" + name));
    return {bytes.begin(), bytes.end()};
}

// The bytes of a resource; "not found" when there is none.
std::string Resource(HMODULE module, LPCSTR name, LPCSTR type)
{
    const HRSRC resource = FindResourceA(module, name, type);
    if (!resource)
        return "not found";
    const void* bytes = LockResource(LoadResource(module, resource));
    return {static_cast<const char*>(bytes), SizeofResource(module, resource)};
}

bool HasCursor(HMODULE module, WORD number)
{
    const HANDLE cursor = LoadImageA(module, MAKEINTRESOURCEA(number), IMAGE_CURSOR, 0, 0, 0);
    return DestroyCursor(static_cast<HCURSOR>(cursor)) != FALSE;
}

class ResourceModule : public PlatformTest {
protected:
    void SetUp() override { ASSERT_NE(m_module, nullptr); }
    void TearDown() override { EXPECT_TRUE(FreeLibrary(m_module)); }

    HMODULE m_module = LoadLibraryA(BesideProgram("test_resource_module.dll").c_str());
};

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

const std::string kData = qvui::test::TestFile("platform/kernel/data/");

}  // namespace

using ModulePath = PlatformTest;

TEST_F(ModulePath, OfTheProgramIsAbsoluteWithBackSlashesAndCutToTheBuffer)
{
    const std::string path = ProgramPath();
    EXPECT_EQ(path.find('/'), std::string::npos) << path;
    EXPECT_NE(path.find("\\test_platform_kernel"), std::string::npos) << path;
    EXPECT_LE(path.find('\\'), 2U) << "a root, with or without a drive";
    char exact[MAX_PATH];
    EXPECT_EQ(GetModuleFileNameA(nullptr, exact, static_cast<DWORD>(path.size() + 1)), path.size());
    EXPECT_EQ(exact, path);
    char cut[8];
    EXPECT_EQ(GetModuleFileNameA(nullptr, cut, sizeof cut), sizeof cut);
    EXPECT_EQ(std::string(cut, sizeof cut - 1), path.substr(0, sizeof cut - 1));
    EXPECT_EQ(GetModuleFileNameA(nullptr, cut, 0), 0U);
}

TEST_F(ResourceModule, FindsResourcesByNumberAndByName)
{
    const std::string text = DataFile("text.xml");
    const std::string dot = DataFile("dot.png");
    ASSERT_FALSE(text.empty() || dot.empty());
    const Table<const char*, LPCSTR, LPCSTR, std::string> cases{
        {"number and named type", MAKEINTRESOURCEA(101), "XML", text},
        {"picture", MAKEINTRESOURCEA(102), "PNG", dot},
        {"name in another case", "LOGO", "png", dot},
        {"numbered type", MAKEINTRESOURCEA(7), RT_RCDATA, std::string("raw\0data", 8)},
        {"numbers as texts", "#7", "#10", std::string("raw\0data", 8)},
        {"another number", MAKEINTRESOURCEA(999), "XML", "not found"},
        {"another type", MAKEINTRESOURCEA(101), "PNG", "not found"},
        {"another name", "Log", "PNG", "not found"},
    };
    for (const auto& [what, name, type, bytes] : cases)
        EXPECT_EQ(Resource(m_module, name, type), bytes) << what;
}

TEST_F(ResourceModule, HoldsCursorsAsGroups)
{
    const std::string group = Resource(m_module, MAKEINTRESOURCEA(103), RT_GROUP_CURSOR);
    ASSERT_EQ(group.size(), 20U);
    const auto id = static_cast<unsigned>(static_cast<unsigned char>(group[18]));
    const std::string image = Resource(m_module, MAKEINTRESOURCEA(id), RT_CURSOR);
    EXPECT_EQ(image.substr(4), DataFile("arrow.cur").substr(22)) << "the bitmap, behind the hot spot";
    EXPECT_EQ(image.substr(0, 4), std::string("\1\0\0\0", 4)) << "the hot spot";
    EXPECT_TRUE(HasCursor(m_module, 103));
}

TEST_F(ResourceModule, IsLoadedOnceAndKnowsItsFile)
{
    const std::string path = BesideProgram("test_resource_module.dll");
    std::string slashes = path;
    std::replace(slashes.begin(), slashes.end(), '\\', '/');
    const HMODULE again = LoadLibraryA(slashes.c_str());
    EXPECT_EQ(again, m_module);
    EXPECT_TRUE(FreeLibrary(again));
    EXPECT_NE(Resource(m_module, "Logo", "PNG"), "not found") << "still loaded";
    char found[MAX_PATH];
    const std::string name(found, GetModuleFileNameA(m_module, found, sizeof found));
    EXPECT_EQ(name.substr(name.rfind('\\') + 1), "test_resource_module.dll") << name;
    EXPECT_EQ(name.find('/'), std::string::npos) << name;
}

using Modules = PlatformTest;

TEST_F(Modules, OfTheProgramHasItsOwnResources)
{
    const HMODULE program = GetModuleHandleA(nullptr);
    EXPECT_EQ(Resource(program, MAKEINTRESOURCEA(201), "XML"), DataFile("text.xml"));
    EXPECT_EQ(Resource(nullptr, "dot", "png"), DataFile("dot.png"));
    EXPECT_EQ(Resource(program, MAKEINTRESOURCEA(101), "XML"), "not found") << "of the module";
    EXPECT_TRUE(HasCursor(program, 203));
    EXPECT_EQ(LoadLibraryA("no_such_module.dll"), nullptr);
    EXPECT_NE(GetLastError(), 0U);
    EXPECT_EQ(LoadLibraryA((kData + "text.xml").c_str()), nullptr);
    EXPECT_FALSE(FreeLibrary(nullptr));
}

TEST_F(Modules, OfThePlatformHaveTheirFunctions)
{
    // A static library gives this program the module's functions only when it calls one of their neighbours.
    ReleaseDC(nullptr, GetDC(nullptr));
    const HMODULE user = LoadLibraryA("User32.dll");
    ASSERT_NE(user, nullptr);
    EXPECT_EQ(GetModuleHandleA("USER32.DLL"), user);
    EXPECT_NE(GetProcAddress(user, "UpdateLayeredWindow"), nullptr);
    EXPECT_EQ(GetProcAddress(user, "NoSuchFunction"), nullptr);
    FreeLibrary(user);
}

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
