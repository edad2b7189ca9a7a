// Modules and their resources.

#include <fstream>
#include <iterator>

#include <qvui/platform/platform.h>

#include "platform/platform_test.h"

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
    std::ifstream file(QVUI_TEST_DATA "/platform/kernel/data/" + name, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

// The bytes of a resource; "not found" when there is none.
std::string Bytes(HMODULE module, LPCSTR name, LPCSTR type)
{
    const HRSRC resource = FindResourceA(module, name, type);
    if (!resource)
        return "not found";
    const void* bytes = LockResource(LoadResource(module, resource));
    return {static_cast<const char*>(bytes), SizeofResource(module, resource)};
}

class ResourceModule : public PlatformTest {
protected:
    void SetUp() override { ASSERT_NE(m_module, nullptr); }
    void TearDown() override { EXPECT_TRUE(FreeLibrary(m_module)); }

    HMODULE m_module = LoadLibraryA(BesideProgram("test_resource_module.dll").c_str());
};

}  // namespace

using ModulePath = PlatformTest;

TEST_F(ModulePath, OfTheProgramIsAbsoluteWithBackSlashes)
{
    const std::string path = ProgramPath();
    EXPECT_EQ(path.find('/'), std::string::npos) << path;
    EXPECT_NE(path.find("\\test_platform_kernel"), std::string::npos) << path;
    EXPECT_LE(path.find('\\'), 2U) << "a root, with or without a drive";
}

TEST_F(ModulePath, IsCutToTheBuffer)
{
    const std::string path = ProgramPath();
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
    struct Case {
        const char* what;
        LPCSTR name;
        LPCSTR type;
        std::string bytes;
    };
    const std::string text = DataFile("text.xml");
    const std::string dot = DataFile("dot.png");
    ASSERT_FALSE(text.empty());
    ASSERT_FALSE(dot.empty());
    const std::vector<Case> cases{
        {"number and named type", MAKEINTRESOURCEA(101), "XML", text},
        {"type in another case", MAKEINTRESOURCEA(101), "xml", text},
        {"number as text", "#101", "XML", text},
        {"picture", MAKEINTRESOURCEA(102), "PNG", dot},
        {"name", "Logo", "PNG", dot},
        {"name in another case", "LOGO", "png", dot},
        {"numbered type", MAKEINTRESOURCEA(7), RT_RCDATA, std::string("raw\0data", 8)},
        {"numbers as texts", "#7", "#10", std::string("raw\0data", 8)},
        {"another number", MAKEINTRESOURCEA(999), "XML", "not found"},
        {"another type", MAKEINTRESOURCEA(101), "PNG", "not found"},
        {"a type that is not there", MAKEINTRESOURCEA(101), "SOUND", "not found"},
        {"another name", "Log", "PNG", "not found"},
    };
    for (const Case& c : cases)
        EXPECT_EQ(Bytes(m_module, c.name, c.type), c.bytes) << c.what;
}

TEST_F(ResourceModule, HoldsCursorsAsGroups)
{
    const std::string group = Bytes(m_module, MAKEINTRESOURCEA(103), RT_GROUP_CURSOR);
    ASSERT_EQ(group.size(), 20U);
    const auto id = static_cast<unsigned>(static_cast<unsigned char>(group[18]));
    const std::string image = Bytes(m_module, MAKEINTRESOURCEA(id), RT_CURSOR);
    EXPECT_EQ(image.substr(4), DataFile("arrow.cur").substr(22)) << "the bitmap, behind the hot spot";
    EXPECT_EQ(image.substr(0, 4), std::string("\1\0\0\0", 4)) << "the hot spot";
    const HANDLE cursor = LoadImageA(m_module, MAKEINTRESOURCEA(103), IMAGE_CURSOR, 0, 0, 0);
    EXPECT_NE(cursor, nullptr);
    DestroyCursor(static_cast<HCURSOR>(cursor));
}

TEST_F(ResourceModule, IsLoadedOnceAndKnowsItsFile)
{
    const std::string path = BesideProgram("test_resource_module.dll");
    std::string slashes = path;
    for (char& character : slashes)
        character = character == '\\' ? '/' : character;
    const HMODULE again = LoadLibraryA(slashes.c_str());
    EXPECT_EQ(again, m_module);
    EXPECT_TRUE(FreeLibrary(again));
    EXPECT_NE(Bytes(m_module, "Logo", "PNG"), "not found") << "still loaded";
    char found[MAX_PATH];
    const std::string name(found, GetModuleFileNameA(m_module, found, sizeof found));
    EXPECT_EQ(name.substr(name.rfind('\\') + 1), "test_resource_module.dll") << name;
    EXPECT_EQ(name.find('/'), std::string::npos) << name;
}

using Modules = PlatformTest;

TEST_F(Modules, ThatAreNoneAreNotLoaded)
{
    EXPECT_EQ(LoadLibraryA("no_such_module.dll"), nullptr);
    EXPECT_NE(GetLastError(), 0U);
    EXPECT_EQ(LoadLibraryA(QVUI_TEST_DATA "/platform/kernel/data/text.xml"), nullptr);
    EXPECT_FALSE(FreeLibrary(nullptr));
}

TEST_F(Modules, OfTheProgramHasItsOwnResources)
{
    const HMODULE program = GetModuleHandleA(nullptr);
    ASSERT_NE(program, nullptr);
    EXPECT_EQ(Bytes(program, MAKEINTRESOURCEA(201), "XML"), DataFile("text.xml"));
    EXPECT_EQ(Bytes(program, "Dot", "PNG"), DataFile("dot.png"));
    EXPECT_EQ(Bytes(nullptr, "dot", "png"), DataFile("dot.png"));
    EXPECT_EQ(Bytes(program, MAKEINTRESOURCEA(101), "XML"), "not found") << "of the module";
    const HANDLE cursor = LoadImageA(program, MAKEINTRESOURCEA(203), IMAGE_CURSOR, 0, 0, 0);
    EXPECT_NE(cursor, nullptr);
    DestroyCursor(static_cast<HCURSOR>(cursor));
}

TEST_F(Modules, OfThePlatformHaveTheirFunctions)
{
    const HMODULE user = LoadLibraryA("User32.dll");
    ASSERT_NE(user, nullptr);
    EXPECT_EQ(GetModuleHandleA("USER32.DLL"), user);
    const FARPROC function = GetProcAddress(user, "UpdateLayeredWindow");
    ASSERT_NE(function, nullptr);
    const auto update = reinterpret_cast<decltype(&UpdateLayeredWindow)>(reinterpret_cast<void*>(function));
    EXPECT_EQ(update(nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, 0, nullptr, 0),
              UpdateLayeredWindow(nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, 0, nullptr, 0));
    EXPECT_EQ(GetProcAddress(user, "NoSuchFunction"), nullptr);
    FreeLibrary(user);
}
