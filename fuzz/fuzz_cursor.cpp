// A cursor file as a skin's cursor record names it, and the same bytes as the parts of a module's cursor.

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <span>
#include <string>

#include <qvui/skin/resource_manager.h>

#include "fuzz_support.h"
#include "native/kernel/cursor_file.h"

namespace {

// Reads every pixel of what was accepted.
void Look(const qvui::native::Surface* pixels)
{
    if (!pixels)
        return;
    if (pixels->width <= 0 || pixels->height <= 0)
        std::abort();
    std::uint32_t sum = 0;
    for (int y = 0; y < pixels->height; ++y)
        for (int x = 0; x < pixels->width; ++x)
            sum += pixels->Get(x, y);
    [[maybe_unused]] static volatile std::uint32_t sink;
    sink = sum;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::span bytes(data, size);
    const MemoryFile file(bytes);
    DUI::CResMgr manager;
    manager.ParseDUIResource(("<r><cursor_set><cursor name=\"c\" config_type=\"file\" file_name=\"" +
                              file.Name() + "\"/></cursor_set></r>")
                                 .c_str());
    const auto cursor = manager.GetCursor("c", 1);
    const HCURSOR before = SetCursor(cursor->GetCursor());
    SetCursor(before);
    Look(qvui::native::ReadCursorFile(bytes).pixels.get());
    Look(qvui::native::ReadCursorResource(bytes).pixels.get());
    Look(qvui::native::ReadIconBitmap(qvui::native::FirstImageOfIcon(bytes)).get());
    qvui::native::FirstCursorOfGroup(bytes);
    return 0;
}
