// Cursors.

#include <cstdio>

#include <qvui/platform/file.h>

#include "native/core/live_counts.h"
#include "native/kernel/cursor_file.h"
#include "native/user/desktop.h"

namespace qvui::native {
namespace {

[[maybe_unused]] const bool g_counted = RegisterLiveCount(
    &LiveCounts::icons, [] { return TheDesktop().cursors.LiveCount() - TheDesktop().systemCursors.size(); });

CursorImage LoadCursorFile(LPCSTR path)
{
    constexpr std::size_t kLargestFile = 16 << 20;
    std::FILE* file = OpenPlatformFile(path, "rb");
    if (!file)
        return {};
    std::vector<std::uint8_t> bytes;
    std::uint8_t chunk[16384];
    while (const std::size_t count = std::fread(chunk, 1, sizeof chunk, file)) {
        bytes.insert(bytes.end(), chunk, chunk + count);
        if (bytes.size() > kLargestFile)
            break;
    }
    std::fclose(file);
    return ReadCursorFile(bytes);
}

std::span<const std::uint8_t> ResourceBytes(HINSTANCE module, LPCSTR name, LPCSTR type)
{
    const HRSRC resource = FindResourceA(module, name, type);
    return {static_cast<const std::uint8_t*>(LockResource(LoadResource(module, resource))),
            SizeofResource(module, resource)};
}

CursorImage LoadCursorResource(HINSTANCE module, LPCSTR name)
{
    const int first = FirstCursorOfGroup(ResourceBytes(module, name, RT_GROUP_CURSOR));
    return first ? ReadCursorResource(ResourceBytes(module, MAKEINTRESOURCEA(first), RT_CURSOR))
                 : CursorImage{};
}

}  // namespace
}  // namespace qvui::native

using namespace qvui::native;

HCURSOR LoadCursorA(HINSTANCE module, LPCSTR name)
{
    constexpr int kFirst = 32512;
    constexpr int kLast = 32651;
    const auto number = static_cast<int>(reinterpret_cast<ULONG_PTR>(name));
    if (module || !IS_INTRESOURCE(name) || number < kFirst || number > kLast)
        return nullptr;
    for (const auto& [known, cursor] : TheDesktop().systemCursors)
        if (known == number)
            return cursor;
    const auto cursor = static_cast<HCURSOR>(
        TheDesktop().cursors.Insert(std::make_shared<CursorObject>(CursorObject{number, true, {}})));
    TheDesktop().systemCursors.emplace_back(number, cursor);
    return cursor;
}

HANDLE LoadImageA(HINSTANCE module, LPCSTR name, UINT type, int, int, UINT flags)
{
    if (type != IMAGE_CURSOR)
        return nullptr;
    if (!module && IS_INTRESOURCE(name))
        return LoadCursorA(nullptr, name);
    CursorImage image = flags & LR_LOADFROMFILE ? LoadCursorFile(name) : LoadCursorResource(module, name);
    if (!image.pixels) {
        SetLastError(ERROR_RESOURCE_DATA_NOT_FOUND);
        return nullptr;
    }
    return TheDesktop().cursors.Insert(
        std::make_shared<CursorObject>(CursorObject{0, false, std::move(image)}));
}

BOOL DestroyCursor(HCURSOR cursor)
{
    const CursorObject* found = TheDesktop().cursors.Peek(cursor);
    if (!found)
        return FALSE;
    if (!found->isShared)
        TheDesktop().cursors.Remove(cursor);
    return TRUE;
}

HCURSOR SetCursor(HCURSOR cursor)
{
    if (cursor == TheDesktop().cursor)
        return cursor;
    const CursorObject* found = TheDesktop().cursors.Peek(cursor);
    if (found && found->image.pixels)
        TheDisplay().SetCursorImage(*found->image.pixels, found->image.hotSpot);
    else
        TheDisplay().SetCursorShape(found ? found->systemCursor : 0);
    return std::exchange(TheDesktop().cursor, cursor);
}

HCURSOR GetCursor()
{
    return TheDesktop().cursor;
}
