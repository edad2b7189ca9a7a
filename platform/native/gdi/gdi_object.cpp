#include "native/gdi/gdi_object.h"

#include <algorithm>
#include <cstring>

#include "native/core/live_counts.h"

namespace qvui::native {
namespace {

std::size_t g_stockCount = 0;

[[maybe_unused]] const bool g_counted =
    RegisterLiveCount(&LiveCounts::gdiObjects, [] { return GdiObjects().LiveCount() - g_stockCount; });

// Copies as much of a record as fits into `buffer`. Without a buffer, returns the size of the record.
int Answer(const void* record, std::size_t recordSize, int size, void* buffer)
{
    if (!buffer)
        return static_cast<int>(recordSize);
    const std::size_t count = std::min(recordSize, static_cast<std::size_t>(std::max(size, 0)));
    std::memcpy(buffer, record, count);
    return static_cast<int>(count);
}

}  // namespace

HandleTable<GdiObject, 4>& GdiObjects()
{
    static auto& objects = *new HandleTable<GdiObject, 4>();
    return objects;
}

HGDIOBJ AddGdiObject(std::shared_ptr<GdiObject> object)
{
    return GdiObjects().Insert(std::move(object));
}

HGDIOBJ AddStockObject(std::shared_ptr<GdiObject> object)
{
    object->isStock = true;
    ++g_stockCount;
    return AddGdiObject(std::move(object));
}

HBITMAP StockBitmap()
{
    static const HGDIOBJ bitmap =
        AddStockObject(std::make_shared<BitmapObject>(Surface::Create(1, 1, 32, false), false));
    return static_cast<HBITMAP>(bitmap);
}

int GdiObject::Describe(int, void*) const
{
    return 0;
}

int BitmapObject::Describe(int size, void* buffer) const
{
    const int rowBytes = static_cast<int>(std::abs(surface->stride));
    // The stock bitmap, which a new memory context holds, reports one bit per pixel.
    const auto bits = static_cast<WORD>(isStock ? 1 : surface->bitsPerPixel);
    DIBSECTION section{};
    section.dsBm = {0, surface->width, surface->height, rowBytes, 1, bits, nullptr};
    section.dsBmih = {sizeof(BITMAPINFOHEADER),
                      surface->width,
                      surface->height,
                      1,
                      bits,
                      BI_RGB,
                      static_cast<DWORD>(rowBytes) * static_cast<DWORD>(surface->height),
                      0,
                      0,
                      0,
                      0};
    if (isSection)
        section.dsBm.bmBits = surface->storage.data();
    const bool isWhole = isSection && size >= static_cast<int>(sizeof section);
    return Answer(&section, isWhole ? sizeof section : sizeof section.dsBm, buffer ? size : 0, buffer);
}

int BrushObject::Describe(int size, void* buffer) const
{
    const LOGBRUSH description{isNull ? BS_NULL : pattern ? BS_PATTERN : BS_SOLID, colour, 0};
    return Answer(&description, sizeof description, size, buffer);
}

int PenObject::Describe(int size, void* buffer) const
{
    const LOGPEN description{static_cast<UINT>(style), {width, 0}, colour};
    return Answer(&description, sizeof description, size, buffer);
}

}  // namespace qvui::native
