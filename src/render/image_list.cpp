#include <qvui/render/image_list.h>

#include <algorithm>
#include <array>
#include <bit>
#include <climits>
#include <cstdint>
#include <cstring>

#include <qvui/platform/wide_vectors.h>
#include <qvui/render/bitmap_functions.h>
#include <qvui/render/dib_section.h>

#include "foundation/rect.h"
#include "render/memory_context.h"

namespace DUI {
namespace {

using namespace wrapping;

// Draws one part of a bitmap, choosing the operation by the bitmap's transparency.
void DrawPart(HDC hdc, const RECT& dest, HDC memory, const RECT& source, const CImage& image)
{
    const int sourceWidth = Width(source);
    const int sourceHeight = Height(source);
    if (image.GetTransparentColor() != CLR_INVALID) {
        TransparentBlt(hdc, dest.left, dest.top, Width(dest), Height(dest), memory, source.left, source.top,
                       sourceWidth, sourceHeight, image.GetTransparentColor());
    } else if (image.GetHasAlphaChannel()) {
        const BLENDFUNCTION blend{AC_SRC_OVER, 0, 255, AC_SRC_ALPHA};
        AlphaBlend(hdc, dest.left, dest.top, Width(dest), Height(dest), memory, source.left, source.top,
                   sourceWidth, sourceHeight, blend);
    } else {
        StretchBlt(hdc, dest.left, dest.top, Width(dest), Height(dest), memory, source.left, source.top,
                   sourceWidth, sourceHeight, SRCCOPY);
    }
}

struct Cell {
    int column;
    int row;
};

// The column and row borders of a rectangle divided into nine parts: outer edge, corner, corner, outer edge.
struct Grid {
    int x[4];
    int y[4];

    RECT Place(const Cell& cell) const
    {
        return {x[cell.column], y[cell.row], x[cell.column + 1], y[cell.row + 1]};
    }
};

Grid GridOf(const RECT& rect, int cornerWidth, int cornerHeight)
{
    const RECT inner = Deflated(rect, {cornerWidth, cornerHeight, cornerWidth, cornerHeight});
    return {{rect.left, inner.left, inner.right, rect.right},
            {rect.top, inner.top, inner.bottom, rect.bottom}};
}

// The order in which parts are drawn. Where parts overlap in a small rectangle, the later part wins.
constexpr int kCapsFirst[3] = {0, 2, 1};
constexpr Cell kCornersFirst[9] = {{0, 0}, {2, 0}, {1, 0}, {0, 2}, {2, 2}, {0, 1}, {2, 1}, {1, 2}, {1, 1}};

// Two channels of a pixel as one 16-bit number.
using Channels __attribute__((may_alias)) = std::uint16_t;
constexpr std::size_t kBlock = 16;  // pixels

// Multiplies blue, green and red by alpha and divides by 255, truncated; (v + 1 + v / 256) / 256 equals v /
// 255 for all products of two bytes. Alpha itself is multiplied by 255, so that all channels take the same
// steps, which compilers vectorise.
inline void PremultiplyBlock(std::uint32_t* pixels)
{
    std::array<std::uint32_t, kBlock> lowFactors;
    std::array<std::uint32_t, kBlock> highFactors;
    for (std::size_t i = 0; i < kBlock; ++i) {
        const std::uint32_t alpha = pixels[i] >> 24;
        lowFactors[i] = alpha << 16 | alpha;
        highFactors[i] = 0x00FF0000 | alpha;
    }
    using Factors = std::array<std::uint16_t, 2 * kBlock>;
    const auto low = std::bit_cast<Factors>(lowFactors);
    const auto high = std::bit_cast<Factors>(highFactors);
    const auto share = [](unsigned value, unsigned factor) {
        const auto product = static_cast<std::uint16_t>(value * factor);
        return static_cast<std::uint16_t>(static_cast<std::uint16_t>(product + 1 + (product >> 8)) >> 8);
    };
    auto* const channels = reinterpret_cast<Channels*>(pixels);
    for (std::size_t i = 0; i < 2 * kBlock; ++i)
        channels[i] = static_cast<std::uint16_t>(share(channels[i] & 0xFF, low[i]) |
                                                 share(channels[i] >> 8, high[i]) << 8);
}

QVUI_WIDE_VECTORS void PremultiplyRow(std::uint32_t* row, std::size_t width)
{
    std::size_t x = 0;
    for (; x + kBlock <= width; x += kBlock)
        PremultiplyBlock(row + x);
    std::uint32_t rest[kBlock]{};
    std::copy_n(row + x, width - x, rest);
    PremultiplyBlock(rest);
    std::copy_n(rest, width - x, row + x);
}

}  // namespace

CDUIImage::CDUIImage(const CDUIImage& other)
    : CDUIObject(other),
      m_pImage(other.m_pImage),
      m_nCornerWidth(other.m_nCornerWidth),
      m_nCornerHeight(other.m_nCornerHeight),
      m_nDrawStyle(other.m_nDrawStyle)
{
}

CDUIImage& CDUIImage::operator=(const CDUIImage& other) = default;

CDUIImage::~CDUIImage() = default;

std::shared_ptr<CDUIImage> CDUIImage::CloneObject() const
{
    return std::make_shared<CDUIImage>(*this);
}

BOOL CDUIImage::CreateFromFile(const char* path)
{
    if (!m_pImage)
        m_pImage = std::make_shared<CImage>();
    if (FAILED(m_pImage->Load(path ? path : "")))
        return FALSE;
    Premultiply();
    return TRUE;
}

BOOL CDUIImage::CreateFromStream(const unsigned char* data, DWORD size)
{
    // A block of zero bytes can be neither locked nor read.
    const HGLOBAL block = GlobalAlloc(GMEM_MOVEABLE, std::max<DWORD>(size, 1));
    if (!block)
        return FALSE;
    if (data)
        std::memcpy(GlobalLock(block), data, size);
    GlobalUnlock(block);
    IStream* stream = nullptr;
    if (FAILED(CreateStreamOnHGlobal(block, TRUE, &stream))) {
        GlobalFree(block);
        return FALSE;
    }
    m_pImage = std::make_shared<CImage>();
    m_pImage->Load(stream);
    stream->Release();
    if (m_pImage->IsNull())
        return FALSE;
    Premultiply();
    return TRUE;
}

BOOL CDUIImage::CreateFromResource(HINSTANCE module, const char* name, const char* type)
{
    const HRSRC resource = FindResourceA(module, name, type);
    const HGLOBAL loaded = resource ? LoadResource(module, resource) : nullptr;
    const void* bytes = loaded ? LockResource(loaded) : nullptr;
    const DWORD size = bytes ? SizeofResource(module, resource) : 0;
    return size != 0 && CreateFromStream(static_cast<const unsigned char*>(bytes), size);
}

BOOL CDUIImage::CreateFromResource(HINSTANCE module, UINT id, const char* type)
{
    return CreateFromResource(module, MAKEINTRESOURCEA(static_cast<WORD>(id)), type);
}

void CDUIImage::Premultiply()
{
    if (m_pImage->GetBPP() != 32)
        return;
    const auto width = static_cast<std::size_t>(m_pImage->GetWidth());
    for (int y = 0; y < m_pImage->GetHeight(); ++y)
        PremultiplyRow(static_cast<std::uint32_t*>(m_pImage->GetPixelAddress(0, y)), width);
}

void CDUIImage::SetCornerSize(int width, int height)
{
    m_nCornerWidth = width;
    m_nCornerHeight = height;
}

int CDUIImage::GetWidth() const
{
    return m_pImage ? m_pImage->GetWidth() : -1;
}

int CDUIImage::GetHeight() const
{
    return m_pImage ? m_pImage->GetHeight() : -1;
}

BOOL CDUIImage::IsNull() const
{
    return !m_pImage || m_pImage->IsNull();
}

void CDUIImage::Destory()
{
    m_pImage.reset();
}

void CDUIImage::DrawImage(HDC hdc, const RECT& dest)
{
    if (m_pImage)
        DrawImage(hdc, dest, {0, 0, GetWidth(), GetHeight()});
}

void CDUIImage::DrawImage(HDC hdc, const RECT& dest, const RECT& source)
{
    if (IsNull())
        return;
    const bool hasCorner = m_nCornerWidth != 0 || m_nCornerHeight != 0;
    const bool hasNineParts = hasCorner && 2 * static_cast<LONGLONG>(m_nCornerWidth) <= Width(source) &&
                              2 * static_cast<LONGLONG>(m_nCornerHeight) <= Height(source);
    if (m_nDrawStyle == DRAW_STYLE_TILE) {
        DrawTiled(hdc, dest);
    } else if ((m_nDrawStyle == DRAW_STYLE_STRETCH_HORZ || m_nDrawStyle == DRAW_STYLE_STRETCH_VERT) &&
               hasCorner) {
        DrawThreeParts(hdc, dest, source, m_nDrawStyle == DRAW_STYLE_STRETCH_VERT);
    } else if (m_nDrawStyle == DRAW_STYLE_SQUARD && hasNineParts) {
        DrawNineParts(hdc, dest, source);
    } else {
        const Part whole{source, dest};
        DrawParts(hdc, &whole, 1);
    }
}

void CDUIImage::DrawParts(HDC hdc, const Part* parts, int count)
{
    const MemoryContext memory(*m_pImage);
    for (int i = 0; i < count; ++i)
        DrawPart(hdc, parts[i].dest, memory.Get(), parts[i].source, *m_pImage);
}

void CDUIImage::DrawThreeParts(HDC hdc, const RECT& dest, const RECT& source, bool vertical)
{
    const Grid from = GridOf(source, m_nCornerWidth, m_nCornerWidth);
    const Grid to = GridOf(dest, m_nCornerWidth, m_nCornerWidth);
    const auto slice = [vertical](const Grid& grid, int index) {
        return vertical ? RECT{grid.x[0], grid.y[index], grid.x[3], grid.y[index + 1]}
                        : RECT{grid.x[index], grid.y[0], grid.x[index + 1], grid.y[3]};
    };
    Part parts[3];
    std::transform(std::begin(kCapsFirst), std::end(kCapsFirst), parts, [&](int index) {
        return Part{slice(from, index), slice(to, index)};
    });
    DrawParts(hdc, parts, 3);
}

void CDUIImage::DrawNineParts(HDC hdc, const RECT& dest, const RECT& source)
{
    const Grid from = GridOf(source, m_nCornerWidth, m_nCornerHeight);
    const Grid to = GridOf(dest, m_nCornerWidth, m_nCornerHeight);
    Part parts[9];
    std::transform(std::begin(kCornersFirst), std::end(kCornersFirst), parts, [&](const Cell& cell) {
        return Part{from.Place(cell), to.Place(cell)};
    });
    DrawParts(hdc, parts, 9);
}

void CDUIImage::DrawTiled(HDC hdc, const RECT& dest)
{
    // Tiles outside the clip box are skipped, however long the row is.
    RECT box{};
    if (GetClipBox(hdc, &box) == ERROR)
        return;
    const RECT whole{0, 0, GetWidth(), GetHeight()};
    const LONGLONG hidden = std::max<LONGLONG>(0, static_cast<LONGLONG>(box.left) - dest.left) / whole.right;
    const LONG end = std::min(dest.right, box.right);
    const MemoryContext memory(*m_pImage);
    for (LONGLONG x = dest.left + hidden * whole.right; x < end; x += whole.right) {
        const auto left = static_cast<LONG>(x);
        const RECT tile{left, dest.top, Sum(left, whole.right), Sum(dest.top, whole.bottom)};
        DrawPart(hdc, tile, memory.Get(), whole, *m_pImage);
    }
}

CDUIImageList::CDUIImageList(const CDUIImageList& other) : CDUIImage(other), m_nItemCount(other.m_nItemCount)
{
}

CDUIImageList& CDUIImageList::operator=(const CDUIImageList& other)
{
    CDUIImage::operator=(other);
    m_nItemCount = other.m_nItemCount ? other.m_nItemCount : 1;
    m_nDirection = other.m_nDirection;
    return *this;
}

void CDUIImageList::SetItemCount(DWORD count)
{
    m_nItemCount = static_cast<int>(std::clamp<DWORD>(count, 1, INT_MAX));
}

int CDUIImageList::GetIconWidth() const
{
    if (m_nItemCount < 1)
        return -1;
    return m_nDirection ? GetWidth() : GetWidth() / m_nItemCount;
}

int CDUIImageList::GetIconHeight() const
{
    if (m_nItemCount < 1)
        return -1;
    return m_nDirection ? GetHeight() / m_nItemCount : GetHeight();
}

BOOL CDUIImageList::GetIconRect(int index, RECT& rect) const
{
    const int width = GetIconWidth();
    const int height = GetIconHeight();
    if (width == 0 || height == 0)
        return FALSE;
    rect = m_nDirection ? RECT{0, height * index, width, height * index + height}
                        : RECT{width * index, 0, width * index + width, height};
    return TRUE;
}

void CDUIImageList::DrawImage(HDC hdc, const RECT& dest, int index)
{
    RECT icon{};
    if (GetIconRect(index, icon) && !IsRectEmpty(&dest))
        CDUIImage::DrawImage(hdc, dest, icon);
}

HBITMAP CDUIImageList::GetIconBitmap(HDC, int index)
{
    RECT icon{};
    if (IsNull() || index < 0 || index >= m_nItemCount || !GetIconRect(index, icon))
        return nullptr;
    CDibSection section;
    if (!section.Create(static_cast<DWORD>(Width(icon)), static_cast<DWORD>(Height(icon)), 32))
        return nullptr;
    {
        const MemoryContext target(section.GetBitmap());
        const MemoryContext source(*GetRawImage());
        DrawPart(target.Get(), {0, 0, Width(icon), Height(icon)}, source.Get(), icon, *GetRawImage());
    }
    return section.Detach();
}

HRGN CDUIImageList::GetIconRgn()
{
    if (IsNull())
        return nullptr;
    const HBITMAP icon = GetIconBitmap(nullptr, 0);
    if (!icon)
        return nullptr;
    const HRGN region = CBitmapCommonFunction::BitmapToRgn(icon, CARGB(255, 0, 255, 255), 0);
    DeleteObject(icon);
    return region;
}

}  // namespace DUI
