// Text, files, modules and memory as scripts, and what a script cannot say.

#include "platform/kernel/kernel_script.h"
#include "platform/platform_test.h"

namespace {

int Sign(int value)
{
    return (value > 0) - (value < 0);
}

}  // namespace

using Modules = PlatformTest;

TEST_F(Modules, FilesAndTextsGoAsTheScriptsSay)
{
    qvui::test::CheckScripts<KernelScript>("kernel/scripts");
}

TEST_F(Modules, HaveAnAbsolutePathWithBackSlashesThatIsCutToTheBuffer)
{
    const std::string path = ModulePath(nullptr);
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

using Strings = PlatformTest;

TEST_F(Strings, OrderIsTotal)
{
    const std::vector<const char*> texts{"",   "_",  "-",   "1",   "12", "2",  "a",  "A",  "aB",
                                         "ab", "AB", "a_b", "a-b", "b",  "B1", "b2", "~a", "z"};
    for (const char* a : texts)
        for (const char* b : texts) {
            EXPECT_EQ(Sign(lstrcmpA(a, b)), -Sign(lstrcmpA(b, a))) << a << ' ' << b;
            EXPECT_EQ(lstrcmpA(a, b) == 0, std::string(a) == b) << a << ' ' << b;
            for (const char* c : texts)
                EXPECT_FALSE(lstrcmpA(a, b) < 0 && lstrcmpA(b, c) < 0 && lstrcmpA(a, c) >= 0) << a << b << c;
        }
}

using CodePages = PlatformTest;

TEST_F(CodePages, ReplaceEachBrokenPairByOneCharacterAndKnowTheSystemsPage)
{
    for (const UINT codePage : {932U, 936U, 949U, 950U})
        EXPECT_EQ(MultiByteToWideChar(codePage, 0, "a\x81\x30z", 4, nullptr, 0), 3) << codePage;
    // How many replacements stand for an overlong form or a surrogate is open.
    for (const char* text : {"\xC0\x80z", "\xED\xA0\x80z", "\xF4\x90\x80\x80z"}) {
        WCHAR wide[8] = {};
        const int size = MultiByteToWideChar(CP_UTF8, 0, text, -1, wide, 8);
        ASSERT_GT(size, 2) << text;
        EXPECT_EQ(wide[0], static_cast<WCHAR>(0xFFFD)) << text;
        EXPECT_EQ(wide[size - 2], static_cast<WCHAR>('z')) << text;
    }
    EXPECT_TRUE(IsValidCodePage(GetACP()));
    EXPECT_NE(GetACP(), static_cast<UINT>(CP_ACP));
    for (int byteValue = 0; byteValue < 256; ++byteValue)
        EXPECT_EQ(IsDBCSLeadByte(static_cast<BYTE>(byteValue)),
                  IsDBCSLeadByteEx(GetACP(), static_cast<BYTE>(byteValue)));
}
