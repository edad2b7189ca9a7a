// Scripts of the readers and of what the system is asked for, and files that are none.

#include <sys/stat.h>

#include <cstdio>
#include <cstdlib>
#include <sstream>

#include <qvui/platform/file.h>

#include "native/kernel/clock.h"
#include "native/kernel/cursor_file.h"
#include "native/kernel/resource_directory.h"
#include "platform/damage.h"
#include "platform/kernel/kernel_script.h"
#include "platform/native_code_page.h"
#include "platform/platform_test.h"
#include "support/test_files.h"

using namespace qvui::native;

namespace {

constexpr std::int64_t kMillisecond = 1'000'000;
std::int64_t g_now = 0;

Bytes DataFile(const std::string& name)
{
    return FileBytes(qvui::test::TestFile("platform/kernel/data/" + name));
}

std::string Told(const CursorImage& cursor)
{
    if (!cursor.pixels)
        return "refused";
    std::ostringstream text;
    text << cursor.pixels->width << 'x' << cursor.pixels->height << " at " << qvui::test::Text(cursor.hotSpot)
         << ": " << std::hex;
    for (int y = 0; y < cursor.pixels->height; ++y)
        for (int x = 0; x < cursor.pixels->width; ++x)
            text << cursor.pixels->Get(x, y) << ' ';
    return text.str();
}

/// A script with the readers of files, the system's language and code page, and a clock that is set.
class NativeScript : public InCodePages<KernelScript> {
public:
    NativeScript()
    {
        AddReaders();
        AddSystem();
    }
    ~NativeScript() override { NativeScript::EndCase(); }

private:
    void AddReaders();
    void AddSystem();
    void EndCase() override
    {
        KernelScript::EndCase();
        SetClock(nullptr);
        SetSleep(nullptr);
    }
};

void NativeScript::AddReaders()
{
    // With a byte that is changed
    Call("cursor-file",
         [](std::string path, std::optional<std::size_t> at, std::optional<std::uint8_t> value) {
             Bytes file = FileBytes(path);
             if (at)
                 file.at(*at) = *value;
             return Told(ReadCursorFile(file));
         });
    // The bitmap of a cursor file after other bytes
    Call("cursor-resource", [](std::string path, std::string hotSpot) {
        const Bytes file = FileBytes(path);
        Bytes resource(hotSpot.begin(), hotSpot.end());
        resource.insert(resource.end(), file.begin() + 22, file.end());
        return Told(ReadCursorResource(resource));
    });
    Call("group", [](std::string group) { return FirstCursorOfGroup(Bytes(group.begin(), group.end())); });
    Call("module", [](std::string path) {
        const Bytes file = FileBytes(path);
        const auto entries = ReadResourceDirectory(file);
        return entries ? std::to_string(entries->size()) + " with names of " +
                             std::to_string(entries->back().type.text.size())
                       : "refused";
    });
}

void NativeScript::AddSystem()
{
    QVUI_CALLS(GetTickCount, Sleep);
    Call("language", [](LPCSTR all, LPCSTR characters, LPCSTR language) {
        for (const auto& [name, value] :
             std::map<const char*, LPCSTR>{{"LC_ALL", all}, {"LC_CTYPE", characters}, {"LANG", language}})
            value ? setenv(name, value, 1) : unsetenv(name);
        return GetSystemDefaultLangID();
    });
    Call("clock", [](std::int64_t milliseconds) {
        g_now = milliseconds * kMillisecond;
        SetClock([] { return g_now; });
        SetSleep([](std::int64_t nanoseconds) { g_now += nanoseconds; });
    });
    Call("seconds", [] {
        LARGE_INTEGER frequency{}, count{};
        QueryPerformanceFrequency(&frequency);
        QueryPerformanceCounter(&count);
        return count.QuadPart / frequency.QuadPart;
    });
}

// Reads a broken file the way its resources would be used.
std::size_t ReadAll(const Bytes& file)
{
    const auto entries = ReadResourceDirectory(file);
    std::size_t sum = 0;
    if (entries)
        for (const ResourceEntry& entry : *entries)
            for (const std::uint8_t byte : entry.bytes)
                sum += byte;
    return sum;
}

}  // namespace

using NativeKernel = PlatformTest;

TEST_F(NativeKernel, GoesAsTheScriptsSay)
{
    qvui::test::CheckScripts<NativeScript>("kernel/native_scripts");
}

using BrokenFiles = PlatformTest;

TEST_F(BrokenFiles, OfCursorsAreReadSafelyWhereverTheyAreCutOffOrChanged)
{
    for (const int bits : {1, 4, 8, 24, 32}) {
        const Bytes whole = DataFile("depth-" + std::to_string(bits) + ".cur");
        ForEachCut(whole, [bits](const Bytes& cut) {
            EXPECT_EQ(ReadCursorFile(cut).pixels, nullptr) << bits << " bits, " << cut.size() << " bytes";
            ReadCursorResource(cut);
            FirstCursorOfGroup(cut);
        });
        ForEachChange(whole, {0x00, 0x01, 0x08, 0x7F, 0x80, 0xFF}, ReadCursorFile);
    }
}

TEST_F(BrokenFiles, OfModulesAreReadWholeOrNotAtAll)
{
    const Bytes whole = FileBytes(QVUI_RESOURCE_MODULE);
    const std::size_t sum = ReadAll(whole);
    EXPECT_GT(sum, 0U);
    ForEachCut(whole, [sum](const Bytes& cut) {
        const std::size_t read = ReadAll(cut);
        EXPECT_TRUE(read == 0 || read == sum) << cut.size() << " bytes";
    });
    ForEachChange(whole, {0x00, 0x01, 0x7F, 0x80, 0xFF}, ReadAll);
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
