// Making, describing and deleting GDI objects.

#include <algorithm>
#include <array>
#include <cstring>

#include "native/core/live_counts.h"
#include "native/gdi/device_context.h"

namespace qvui::native {
namespace {

std::size_t g_stockCount = 0;

[[maybe_unused]] const bool g_counted =
    RegisterLiveCount(&LiveCounts::gdiObjects, [] { return GdiObjects().LiveCount() - g_stockCount; });

std::shared_ptr<BrushObject> SolidBrush(COLORREF colour)
{
    auto brush = std::make_shared<BrushObject>();
    brush->colour = colour;
    return brush;
}

// Copies as much of a record as fits into `buffer`; without one answers its size.
int Answer(const void* record, std::size_t recordSize, int size, void* buffer)
{
    if (!buffer)
        return static_cast<int>(recordSize);
    const std::size_t count = std::min(recordSize, static_cast<std::size_t>(std::max(size, 0)));
    std::memcpy(buffer, record, count);
    return static_cast<int>(count);
}

std::array<HGDIOBJ, 9> MakeStock()
{
    auto hollow = std::make_shared<BrushObject>();
    hollow->isNull = true;
    return {AddStockObject(SolidBrush(RGB(255, 255, 255))),
            AddStockObject(SolidBrush(RGB(192, 192, 192))),
            AddStockObject(SolidBrush(RGB(128, 128, 128))),
            AddStockObject(SolidBrush(RGB(64, 64, 64))),
            AddStockObject(SolidBrush(RGB(0, 0, 0))),
            AddStockObject(hollow),
            AddStockObject(std::make_shared<PenObject>(PS_SOLID, 1, RGB(255, 255, 255))),
            AddStockObject(std::make_shared<PenObject>(PS_SOLID, 1, RGB(0, 0, 0))),
            AddStockObject(std::make_shared<PenObject>(PS_NULL, 1, RGB(0, 0, 0)))};
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
    // The stock bitmap, which every fresh memory context holds, is known as a monochrome one.
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

using namespace qvui::native;

HGDIOBJ GetStockObject(int index)
{
    static const std::array<HGDIOBJ, 9> stock = MakeStock();
    if (index >= 0 && index < static_cast<int>(stock.size()))
        return stock[static_cast<std::size_t>(index)];
    return StockFont(index);
}

int GetObjectA(HANDLE object, int size, LPVOID buffer)
{
    const GdiObject* found = GdiObjects().Peek(object);
    return found ? found->Describe(size, buffer) : 0;
}

BOOL DeleteObject(HGDIOBJ object)
{
    const GdiObject* found = GdiObjects().Peek(object);
    if (!found)
        return FALSE;
    if (!found->isStock)
        GdiObjects().Remove(object);
    return TRUE;
}

HBITMAP CreateBitmap(int width, int height, UINT, UINT bitCount, const void* bits)
{
    auto surface = Surface::Create(width, height, bitCount == 24 ? 24 : 32, false);
    if (!surface)
        return nullptr;
    if (bits && (bitCount == 32 || bitCount == 24))
        std::memcpy(surface->storage.data(), bits, surface->storage.size());
    return static_cast<HBITMAP>(AddGdiObject(std::make_shared<BitmapObject>(std::move(surface), false)));
}

HBITMAP CreateCompatibleBitmap(HDC, int width, int height)
{
    return CreateBitmap(width, height, 1, 32, nullptr);
}

HBITMAP CreateDIBSection(HDC, const BITMAPINFO* info, UINT, void** bits, HANDLE, DWORD)
{
    if (bits)
        *bits = nullptr;
    if (!info || (info->bmiHeader.biBitCount != 32 && info->bmiHeader.biBitCount != 24))
        return nullptr;
    const LONG height = info->bmiHeader.biHeight;
    auto surface = height == INT32_MIN ? nullptr
                                       : Surface::Create(info->bmiHeader.biWidth, std::abs(height),
                                                         info->bmiHeader.biBitCount, height > 0);
    if (!surface)
        return nullptr;
    if (bits)
        *bits = surface->storage.data();
    return static_cast<HBITMAP>(AddGdiObject(std::make_shared<BitmapObject>(std::move(surface), true)));
}

HBRUSH CreateSolidBrush(COLORREF colour)
{
    return static_cast<HBRUSH>(AddGdiObject(SolidBrush(colour)));
}

HBRUSH CreatePatternBrush(HBITMAP bitmap)
{
    const auto source = FindGdiObject<BitmapObject>(bitmap);
    if (!source)
        return nullptr;
    auto brush = std::make_shared<BrushObject>();
    const Surface& from = *source->surface;
    brush->pattern = Surface::Create(from.width, from.height, 32, false);
    for (int y = 0; y < from.height; ++y)
        from.Load(0, y, from.width, brush->pattern->Row32(y));
    return static_cast<HBRUSH>(AddGdiObject(std::move(brush)));
}

HPEN CreatePen(int style, int width, COLORREF colour)
{
    return static_cast<HPEN>(AddGdiObject(std::make_shared<PenObject>(style, std::abs(width), colour)));
}
