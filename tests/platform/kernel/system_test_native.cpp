// What the native layer asks the system for: its language, its clock and files that are none.

#include <sys/stat.h>

#include <cstdio>
#include <cstdlib>
#include <string>

#include <qvui/platform/file.h>
#include <qvui/platform/platform.h>

#include "native/kernel/clock.h"
#include "platform/native_code_page.h"
#include "platform/platform_test.h"
#include "support/screenshot.h"

namespace {

// Sets or, with null, removes an environment variable.
void SetVariable(const char* name, const char* value)
{
    value ? setenv(name, value, 1) : unsetenv(name);
}

std::int64_t g_now = 5'000'000'000;

}  // namespace

using Language = PlatformTest;

TEST_F(Language, ComesFromTheEnvironment)
{
    // Of LC_ALL, LC_CTYPE and LANG
    const Table<const char*, const char*, const char*, LANGID> cases{
        {nullptr, nullptr, "zh_CN.UTF-8", 2052},
        {nullptr, nullptr, "de_DE.UTF-8", 1031},
        {"zh_TW.BIG5", "ja_JP", "de_DE", 1028},
        {nullptr, "ja_JP.UTF-8", "de_DE", 1041},
        {"", "", "ko_KR", 1042},
        {nullptr, nullptr, "C.UTF-8", 1033},
        {nullptr, nullptr, nullptr, 1033},
    };
    for (const auto& [all, characters, language, id] : cases) {
        SetVariable("LC_ALL", all);
        SetVariable("LC_CTYPE", characters);
        SetVariable("LANG", language);
        EXPECT_EQ(GetSystemDefaultLangID(), id) << (language ? language : "none");
    }
}

TEST_F(Language, CaseChangesWholeCharacters)
{
    // The letter after a hexadecimal digit, apart
    const std::string a = "a", upperA = "A";
    const Table<UINT, std::string, std::string> cases{
        {65001, "stra\u00E9 \u00FC\u0436", "STRA\u00C9 \u00DC\u0416"},
        {1252, "\xE9\xFC" + a, "\xC9\xDC" + upperA},
        {1251, "\xEF\xF0", "\xCF\xD0"},
        // The second byte of a pair may look like a letter and stays as it is.
        {936, "\x81\x61" + a, "\x81\x61" + upperA},
        {932, "\x83\x61" + a, "\x83\x61" + upperA},
        {65001, "\xFF" + a, "\xFF" + upperA},
    };
    for (const auto& [page, lower, upper] : cases) {
        const NativeCodePage codePage(page);
        std::string text = lower;
        CharUpperBuffA(text.data(), static_cast<DWORD>(text.size()));
        EXPECT_EQ(text, upper) << page;
        CharLowerBuffA(text.data(), static_cast<DWORD>(text.size()));
        EXPECT_EQ(text, lower) << page;
        EXPECT_EQ(lstrcmpiA(lower.c_str(), upper.c_str()), 0) << page;
    }
}

using Clock = PlatformTest;

TEST_F(Clock, IsTheTimeOfEveryFunction)
{
    qvui::native::SetClock([] { return g_now; });
    qvui::native::SetSleep([](std::int64_t nanoseconds) { g_now += nanoseconds; });
    EXPECT_EQ(GetTickCount(), 5000U);
    LARGE_INTEGER frequency{}, count{};
    QueryPerformanceFrequency(&frequency);
    QueryPerformanceCounter(&count);
    EXPECT_EQ(count.QuadPart / frequency.QuadPart, 5);
    Sleep(1500);
    EXPECT_EQ(GetTickCount(), 6500U);
    g_now = std::int64_t{0x100000001} * 1'000'000;
    EXPECT_EQ(GetTickCount(), 1U) << "the ticks wrap after 49 days";
    qvui::native::SetClock(nullptr);
    qvui::native::SetSleep(nullptr);
    QueryPerformanceCounter(&count);
    EXPECT_NE(count.QuadPart / frequency.QuadPart, 0x100000001 / 1000) << "the machine's own clock again";
}

using NativeFiles = PlatformTest;

TEST_F(NativeFiles, ThatNeedNotEndAreNotRead)
{
    const std::string pipe = qvui::test::OutputPath("pipe");
    std::remove(pipe.c_str());
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    for (const std::string& path : {pipe, std::string("/dev/zero")}) {
        EXPECT_EQ(OpenPlatformFile(path.c_str(), "rb"), nullptr) << path;
        EXPECT_EQ(LoadLibraryA(path.c_str()), nullptr) << path;
        EXPECT_EQ(LoadImageA(nullptr, path.c_str(), IMAGE_CURSOR, 0, 0, LR_LOADFROMFILE), nullptr) << path;
    }
    std::remove(pipe.c_str());
}
