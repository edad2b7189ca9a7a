// Copies between surfaces: plain, scaled, blended and colour-keyed.

#include <algorithm>
#include <cstdlib>
#include <cstring>

#include "native/gdi/scaling.h"

using namespace qvui::native;

namespace {

struct Blit {
    DeviceContext* target;
    const Surface* source;
    RECT destination;  // surface coordinates of the target
    AxisMap columns;
    AxisMap rows;
};

// Joins source and destination pixels of one raster operation; SRCCOPY never comes here.
std::uint32_t Combine(DWORD operation, std::uint32_t source, std::uint32_t destination)
{
    switch (operation) {
        case SRCPAINT:
            return source | destination;
        case SRCAND:
            return source & destination;
        case SRCINVERT:
            return source ^ destination;
        case NOTSRCCOPY:
            return ~source;
        default:
            return source;
    }
}

void StoreRows(DeviceContext& context, const RECT& part, const std::uint32_t* pixels, DWORD operation)
{
    const int width = part.right - part.left;
    static thread_local std::vector<std::uint32_t> row;
    for (int y = part.top; y < part.bottom; ++y, pixels += width) {
        if (operation == SRCCOPY) {
            context.Target().Store(part.left, y, width, pixels);
            continue;
        }
        row.resize(static_cast<std::size_t>(width));
        context.Target().Load(part.left, y, width, row.data());
        for (int i = 0; i < width; ++i)
            row[static_cast<std::size_t>(i)] =
                Combine(operation, pixels[i], row[static_cast<std::size_t>(i)]);
        context.Target().Store(part.left, y, width, row.data());
    }
}

// The overlap of an unscaled copy, row by row in the order that keeps an overlapping source intact.
void CopyUnscaled(DeviceContext& context, const RECT& destination, const Surface& source, int dx, int dy,
                  DWORD operation)
{
    const bool upwards = context.Target().top == source.top && dy < 0;
    static thread_local std::vector<std::uint32_t> row;
    ForEachDrawable(context, destination, [&](const RECT& part) {
        const int width = part.right - part.left;
        const int height = part.bottom - part.top;
        for (int i = 0; i < height; ++i) {
            const int y = upwards ? part.bottom - 1 - i : part.top + i;
            if (operation == SRCCOPY && source.bitsPerPixel == 32 && context.Target().bitsPerPixel == 32) {
                std::memmove(context.Target().Row32(y) + part.left, source.Row32(y + dy) + part.left + dx,
                             static_cast<std::size_t>(width) * 4);
                continue;
            }
            row.resize(static_cast<std::size_t>(width));
            source.Load(part.left + dx, y + dy, width, row.data());
            StoreRows(context, {part.left, y, part.right, y + 1}, row.data(), operation);
        }
    });
}

template <class Write>
void ForEachScaled(const Blit& blit, Sampling sampling, Write write)
{
    static thread_local std::vector<std::uint32_t> pixels;
    ForEachDrawable(*blit.target, blit.destination, [&](const RECT& part) {
        ScalePixels(*blit.source, blit.columns, blit.rows, part, sampling, pixels);
        write(part, pixels.data());
    });
}

Blit Prepare(DeviceContext& target, const RECT& logical, const Surface& source, const RECT& from)
{
    const POINT at = target.ToSurface(logical.left, logical.top);
    const int width = logical.right - logical.left;
    const int height = logical.bottom - logical.top;
    const AxisMap columns = MapAxis(at.x, width, from.left, from.right - from.left, false);
    const AxisMap rows = MapAxis(at.y, height, from.top, from.bottom - from.top, true);
    return {&target,
            &source,
            {columns.destination, rows.destination, columns.destination + columns.length,
             rows.destination + rows.length},
            columns,
            rows};
}

Sampling SamplingOf(const DeviceContext& context, const Blit& blit)
{
    const bool shrinks =
        blit.columns.length < blit.columns.sourceLength || blit.rows.length < blit.rows.sourceLength;
    switch (context.state.stretchMode) {
        case BLACKONWHITE:
            return shrinks ? Sampling::And : Sampling::Point;
        case WHITEONBLACK:
            return shrinks ? Sampling::Or : Sampling::Point;
        case HALFTONE:
            return Sampling::Bilinear;
        default:
            return Sampling::Point;
    }
}

bool SourceIsInside(const Surface& source, const RECT& from)
{
    return from.left >= 0 && from.top >= 0 && from.right <= source.width && from.bottom <= source.height;
}

void StretchSurface(DeviceContext& target, const RECT& logical, const Surface& source, const RECT& from,
                    DWORD operation)
{
    const Blit blit = Prepare(target, logical, source, from);
    if (blit.columns.length == 0 || blit.rows.length == 0 || blit.columns.sourceLength == 0 ||
        blit.rows.sourceLength == 0)
        return;
    const bool isPlain = blit.columns.length == blit.columns.sourceLength &&
                         blit.rows.length == blit.rows.sourceLength && !blit.columns.mirrored &&
                         !blit.rows.mirrored;
    if (isPlain && SourceIsInside(source, from)) {
        CopyUnscaled(target, blit.destination, source, blit.columns.source - blit.columns.destination,
                     blit.rows.source - blit.rows.destination, operation);
        return;
    }
    // Scaling within one surface reads what it writes; a copy of the source keeps it whole.
    Surface copy;
    Blit scaled = blit;
    if (target.Target().top == source.top) {
        copy = source;
        copy.top = copy.storage.data() + (source.top - source.storage.data());
        scaled.source = &copy;
    }
    ForEachScaled(
        scaled, isPlain ? Sampling::Point : SamplingOf(target, blit),
        [&](const RECT& part, const std::uint32_t* pixels) { StoreRows(target, part, pixels, operation); });
}

// A rectangle in the source context as one in its surface.
RECT SourceRect(const DeviceContext& source, int x, int y, int width, int height)
{
    const POINT at = source.ToSurface(x, y);
    return {at.x, at.y, at.x + width, at.y + height};
}

constexpr std::uint32_t Round(std::uint32_t value)
{
    return (value + 127) / 255;
}

// Weighs colours that carry no alpha of their own by the constant alpha.
void BlendConstant(DeviceContext& context, const RECT& part, const std::uint32_t* pixels, std::uint32_t alpha)
{
    const int width = part.right - part.left;
    static thread_local std::vector<std::uint32_t> row;
    row.resize(static_cast<std::size_t>(width));
    for (int y = part.top; y < part.bottom; ++y, pixels += width) {
        context.Target().Load(part.left, y, width, row.data());
        for (int i = 0; i < width; ++i) {
            std::uint32_t& destination = row[static_cast<std::size_t>(i)];
            std::uint32_t blended = 0;
            for (int shift = 0; shift < 32; shift += 8)
                blended |= Round(((pixels[i] >> shift) & 0xFF) * alpha +
                                 ((destination >> shift) & 0xFF) * (255 - alpha))
                           << shift;
            destination = blended;
        }
        context.Target().Store(part.left, y, width, row.data());
    }
}

pixman_image_t* ImageOf(const Surface& surface)
{
    return pixman_image_create_bits(
        surface.bitsPerPixel == 32 ? PIXMAN_a8r8g8b8 : PIXMAN_r8g8b8, surface.width, surface.height,
        reinterpret_cast<std::uint32_t*>(surface.top), static_cast<int>(surface.stride));
}

// Premultiplied "over" with a constant alpha; the library's rounding is the platform's, bit for bit.
void BlendOver(pixman_image_t* target, const RECT& part, std::uint32_t* pixels, pixman_image_t* mask)
{
    const int width = part.right - part.left;
    const int height = part.bottom - part.top;
    pixman_image_t* source = pixman_image_create_bits(PIXMAN_a8r8g8b8, width, height, pixels, width * 4);
    pixman_image_composite32(PIXMAN_OP_OVER, source, mask, target, 0, 0, 0, 0, part.left, part.top, width,
                             height);
    pixman_image_unref(source);
}

pixman_image_t* MaskOf(BYTE alpha)
{
    if (alpha == 255)
        return nullptr;
    const auto wide = static_cast<std::uint16_t>(alpha * 0x101);
    const pixman_color_t colour{0, 0, 0, wide};
    return pixman_image_create_solid_fill(&colour);
}

void BlendPremultiplied(const Blit& blit, BYTE alpha)
{
    pixman_image_t* mask = MaskOf(alpha);
    pixman_image_t* target = ImageOf(blit.target->Target());
    const bool isPlain =
        blit.columns.length == blit.columns.sourceLength && blit.rows.length == blit.rows.sourceLength;
    if (isPlain) {
        pixman_image_t* source = ImageOf(*blit.source);
        const int dx = blit.columns.source - blit.columns.destination;
        const int dy = blit.rows.source - blit.rows.destination;
        ForEachDrawable(*blit.target, blit.destination, [&](const RECT& part) {
            pixman_image_composite32(PIXMAN_OP_OVER, source, mask, target, part.left + dx, part.top + dy, 0,
                                     0, part.left, part.top, part.right - part.left, part.bottom - part.top);
        });
        pixman_image_unref(source);
    } else {
        ForEachScaled(blit, Sampling::Point, [&](const RECT& part, std::uint32_t* pixels) {
            BlendOver(target, part, pixels, mask);
        });
    }
    pixman_image_unref(target);
    if (mask)
        pixman_image_unref(mask);
}

bool Overlaps(const Blit& blit, const RECT& from)
{
    return blit.target->Target().top == blit.source->top &&
           !IsEmptyRect(Intersection(blit.destination, from));
}

}  // namespace

BOOL BitBlt(HDC dc, int x, int y, int width, int height, HDC source, int sourceX, int sourceY,
            DWORD operation)
{
    DeviceContext* target = LookUpContext(dc);
    if (!target)
        return FALSE;
    if (operation == PATCOPY || operation == PATINVERT || operation == DSTINVERT || operation == BLACKNESS ||
        operation == WHITENESS)
        return PatBlt(dc, x, y, width, height, operation);
    DeviceContext* from = LookUpContext(source);
    if (!from)
        return FALSE;
    // Only what the source has is copied.
    const RECT wanted = SourceRect(*from, sourceX, sourceY, width, height);
    const RECT available = Intersection(wanted, {0, 0, from->Target().width, from->Target().height});
    if (IsEmptyRect(available))
        return TRUE;
    const POINT at = target->ToSurface(x, y);
    const int dx = wanted.left - at.x;
    const int dy = wanted.top - at.y;
    CopyUnscaled(*target,
                 {available.left - dx, available.top - dy, available.right - dx, available.bottom - dy},
                 from->Target(), dx, dy, operation);
    return TRUE;
}

BOOL StretchBlt(HDC dc, int x, int y, int width, int height, HDC source, int sourceX, int sourceY,
                int sourceWidth, int sourceHeight, DWORD operation)
{
    DeviceContext* target = LookUpContext(dc);
    DeviceContext* from = LookUpContext(source);
    if (!target || !from)
        return FALSE;
    StretchSurface(*target, {x, y, x + width, y + height}, from->Target(),
                   SourceRect(*from, sourceX, sourceY, sourceWidth, sourceHeight), operation);
    return TRUE;
}

BOOL AlphaBlend(HDC dc, int x, int y, int width, int height, HDC source, int sourceX, int sourceY,
                int sourceWidth, int sourceHeight, BLENDFUNCTION blend)
{
    DeviceContext* target = LookUpContext(dc);
    DeviceContext* from = LookUpContext(source);
    if (!target || !from || width < 0 || height < 0 || sourceWidth < 0 || sourceHeight < 0)
        return FALSE;
    const RECT area = SourceRect(*from, sourceX, sourceY, sourceWidth, sourceHeight);
    const bool perPixel = (blend.AlphaFormat & AC_SRC_ALPHA) != 0;
    if (!SourceIsInside(from->Target(), area) || (perPixel && from->Target().bitsPerPixel != 32))
        return FALSE;
    if (width == 0 || height == 0 || sourceWidth == 0 || sourceHeight == 0)
        return TRUE;
    const Blit blit = Prepare(*target, {x, y, x + width, y + height}, from->Target(), area);
    if (Overlaps(blit, area))
        return FALSE;
    if (perPixel)
        BlendPremultiplied(blit, blend.SourceConstantAlpha);
    else
        ForEachScaled(blit, Sampling::Point, [&](const RECT& part, const std::uint32_t* pixels) {
            BlendConstant(*target, part, pixels, blend.SourceConstantAlpha);
        });
    return TRUE;
}

BOOL TransparentBlt(HDC dc, int x, int y, int width, int height, HDC source, int sourceX, int sourceY,
                    int sourceWidth, int sourceHeight, UINT key)
{
    DeviceContext* target = LookUpContext(dc);
    DeviceContext* from = LookUpContext(source);
    if (!target || !from || width < 0 || height < 0 || sourceWidth < 0 || sourceHeight < 0)
        return FALSE;
    if (width == 0 || height == 0 || sourceWidth == 0 || sourceHeight == 0)
        return TRUE;
    const Blit blit = Prepare(*target, {x, y, x + width, y + height}, from->Target(),
                              SourceRect(*from, sourceX, sourceY, sourceWidth, sourceHeight));
    const bool shrinks = width < sourceWidth || height < sourceHeight;
    const std::uint32_t keyPixel = key > 0xFFFFFF ? 0xFF000000 | PixelOf(key) : PixelOf(key);
    const Surface& surface = target->Target();
    ForEachScaled(
        blit, shrinks ? Sampling::And : Sampling::Point, [&](const RECT& part, const std::uint32_t* pixels) {
            for (int row = part.top; row < part.bottom; ++row)
                for (int column = part.left; column < part.right; ++column, ++pixels) {
                    const std::uint32_t pixel = *pixels == keyPixel ? surface.Get(column, row) : *pixels;
                    surface.Set(column, row, pixel & 0x00FFFFFF);
                }
        });
    return TRUE;
}

// --- device-independent bitmaps
// -----------------------------------------------------------------------------

namespace {

// A surface over the caller's rows; null for formats that are not drawn. The rows are only read.
std::shared_ptr<Surface> SurfaceOver(const void* bits, const BITMAPINFO* info)
{
    if (!bits || !info || (info->bmiHeader.biBitCount != 32 && info->bmiHeader.biBitCount != 24) ||
        info->bmiHeader.biWidth <= 0 || info->bmiHeader.biHeight == 0 ||
        info->bmiHeader.biHeight == INT32_MIN)
        return nullptr;
    auto surface = std::make_shared<Surface>();
    surface->width = info->bmiHeader.biWidth;
    surface->height = std::abs(info->bmiHeader.biHeight);
    surface->bitsPerPixel = info->bmiHeader.biBitCount;
    const std::ptrdiff_t stride =
        ((static_cast<std::ptrdiff_t>(surface->width) * surface->bitsPerPixel + 31) / 32) * 4;
    auto* rows = static_cast<std::uint8_t*>(const_cast<void*>(bits));
    const bool bottomUp = info->bmiHeader.biHeight > 0;
    surface->stride = bottomUp ? -stride : stride;
    surface->top = rows + (bottomUp ? stride * (surface->height - 1) : 0);
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
    // Rows of a bottom-up bitmap are counted from the bottom.
    const int top = info->bmiHeader.biHeight > 0 ? source->height - sourceY - sourceHeight : sourceY;
    StretchSurface(*target, {x, y, x + width, y + height}, *source,
                   {sourceX, top, sourceX + sourceWidth, top + sourceHeight}, operation);
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
