// Bitmaps, brushes and pens.

#include <array>

#include "native/gdi/device_context.h"

using namespace qvui::native;

namespace {

std::shared_ptr<BrushObject> SolidBrush(COLORREF colour)
{
    auto brush = std::make_shared<BrushObject>();
    brush->colour = colour;
    return brush;
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
