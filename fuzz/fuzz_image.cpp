// A picture file of any format, as a skin's image record names it: decoded, cut into icons, and drawn in the
// style that its length chooses.

#include <cstddef>
#include <cstdint>
#include <iterator>
#include <string>

#include <qvui/skin/resource_manager.h>

#include "fuzz_support.h"

namespace {

constexpr const char* kWays[] = {
    "",
    "drawstyle=\"stretch\" count=\"2\"",
    "drawstyle=\"stretch_horz\" count=\"3\" corner=\"2,1\"",
    "drawstyle=\"stretch_vert\" count=\"2\" direction=\"vert\" corner=\"1,2\"",
    "drawstyle=\"squard\" corner=\"1,1\"",
    "drawstyle=\"tile\" count=\"100\"",
};

void Draw(DUI::CDUIImageList& list, HDC canvas)
{
    for (const RECT& place : {RECT{2, 2, 40, 30}, RECT{5, 5, 6, 7}}) {
        list.DrawImage(canvas, place);
        list.DrawImage(canvas, place, 0);
        list.DrawImage(canvas, place, list.GetItemCount() - 1);
    }
    for (int icon = 0; icon < list.GetItemCount(); ++icon)
        if (const HBITMAP bitmap = list.GetIconBitmap(canvas, icon))
            DeleteObject(bitmap);
    if (const HRGN region = list.GetIconRgn())
        DeleteObject(region);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const MemoryFile file({data, size});
    const std::string record =
        std::string("<r><image_set><image name=\"i\" config_type=\"file\" file_name=\"") + file.Name() +
        "\" " + kWays[size % std::size(kWays)] + "/></image_set></r>";
    DUI::CResMgr manager;
    manager.ParseDUIResource(record.c_str());
    const DUI::CDUIImageListPtr list = manager.GetImage("i", 1);
    // Drawing more pixels takes time, but no other way.
    constexpr int kMostDrawn = 1 << 16;
    if (!list->IsNull() && list->GetWidth() <= kMostDrawn / list->GetHeight()) {
        const Canvas canvas;
        Draw(*list, canvas.Get());
    }
    return 0;
}
