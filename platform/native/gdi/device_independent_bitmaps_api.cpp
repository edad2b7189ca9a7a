// Pixel rows in the caller's memory: draws them on contexts and reads them back from bitmaps.

#include <algorithm>
#include <cstdlib>

#include "native/gdi/blit.h"

using namespace qvui::native;

namespace {

// Creates a surface over the caller's rows, which are only read. Returns null for unsupported formats.
std::shared_ptr<Surface> SurfaceOver(const void* bits, const BITMAPINFO* info)
{
    if (!bits || !info)
        return nullptr;
    const BITMAPINFOHEADER& header = info->bmiHeader;
    const bool isFormat =
        (header.biBitCount == 32 || header.biBitCount == 24) && header.biCompression == BI_RGB;
    if (!isFormat || header.biWidth <= 0 || header.biHeight == 0 || header.biHeight == INT32_MIN)
        return nullptr;
    auto surface = std::make_shared<Surface>();
    surface->width = header.biWidth;
    surface->height = std::abs(header.biHeight);
    surface->bitsPerPixel = header.biBitCount;
    const std::ptrdiff_t stride =
        ((static_cast<std::ptrdiff_t>(surface->width) * surface->bitsPerPixel + 31) / 32) * 4;
    auto* rows = static_cast<std::uint8_t*>(const_cast<void*>(bits));
    const bool isBottomUp = header.biHeight > 0;
    surface->stride = isBottomUp ? -stride : stride;
    surface->top = rows + (isBottomUp ? stride * (surface->height - 1) : 0);
    return surface;
}

}  // namespace

int GetDIBits(HDC, HBITMAP bitmap, UINT start, UINT lines, LPVOID bits, BITMAPINFO* info, UINT)
{
    const auto source = FindGdiObject<BitmapObject>(bitmap);
    if (!source || !info)
        return 0;
    const Surface& surface = *source->surface;
    if (!bits) {
        info->bmiHeader.biWidth = surface.width;
        info->bmiHeader.biHeight = surface.height;
        info->bmiHeader.biPlanes = 1;
        info->bmiHeader.biBitCount = static_cast<WORD>(surface.bitsPerPixel);
        info->bmiHeader.biCompression = BI_RGB;
        return surface.height;
    }
    const auto target = SurfaceOver(bits, info);
    if (!target || start != 0 || lines < static_cast<UINT>(target->height))
        return 0;
    const int width = std::min(surface.width, target->width);
    const int height = std::min(surface.height, target->height);
    std::vector<std::uint32_t> row(static_cast<std::size_t>(width));
    for (int y = 0; y < height; ++y) {
        surface.Load(0, y, width, row.data());
        target->Store(0, y, width, row.data());
    }
    return height;
}

int StretchDIBits(HDC dc, int x, int y, int width, int height, int sourceX, int sourceY, int sourceWidth,
                  int sourceHeight, const void* bits, const BITMAPINFO* info, UINT, DWORD operation)
{
    DeviceContext* target = LookUpContext(dc);
    const auto source = SurfaceOver(bits, info);
    if (!target || !source)
        return 0;
    // The rows of a bottom-up bitmap are counted from the bottom.
    const std::int64_t top = info->bmiHeader.biHeight > 0
                                 ? static_cast<std::int64_t>(source->height) - sourceY - sourceHeight
                                 : sourceY;
    const RECT from{Saturated(sourceX), Saturated(top),
                    Saturated(static_cast<std::int64_t>(sourceX) + sourceWidth),
                    Saturated(top + sourceHeight)};
    DrawBlit(PrepareBlit(*target, target->ToSurface(x, y, width, height), *source, from), operation);
    return source->height;
}

int SetDIBitsToDevice(HDC dc, int x, int y, DWORD width, DWORD height, int sourceX, int sourceY,
                      UINT startScan, UINT lines, const void* bits, const BITMAPINFO* info, UINT usage)
{
    if (startScan != 0)
        return 0;
    return StretchDIBits(dc, x, y, static_cast<int>(width), static_cast<int>(height), sourceX, sourceY,
                         static_cast<int>(width), static_cast<int>(height), bits, info, usage, SRCCOPY)
               ? static_cast<int>(lines)
               : 0;
}
