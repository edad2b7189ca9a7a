#include <qvui/render/image_list.h>

#include <cstring>

#include <qvui/render/bitmap_functions.h>
#include <qvui/render/dib_section.h>

#include "render/memory_context.h"

namespace DUI {
namespace {

int Width(const RECT& rect) { return rect.right - rect.left; }
int Height(const RECT& rect) { return rect.bottom - rect.top; }

// Draws one part of a bitmap with the operation that the bitmap's transparency asks for.
void DrawPart(HDC hdc, const RECT& dest, HDC memory, const RECT& source, const CImage& image)
{
    const int sourceWidth = Width(source);
    const int sourceHeight = Height(source);
    if (image.GetTransparentColor() != CLR_INVALID) {
        TransparentBlt(hdc, dest.left, dest.top, Width(dest), Height(dest), memory, source.left, source.top,
                       sourceWidth, sourceHeight, image.GetTransparentColor());
    } else if (image.GetHasAlphaChannel()) {
        const BLENDFUNCTION blend{AC_SRC_OVER, 0, 255, AC_SRC_ALPHA};
        AlphaBlend(hdc, dest.left, dest.top, Width(dest), Height(dest), memory, source.left, source.top, sourceWidth,
                   sourceHeight, blend);
    } else {
        StretchBlt(hdc, dest.left, dest.top, Width(dest), Height(dest), memory, source.left, source.top, sourceWidth,
                   sourceHeight, SRCCOPY);
    }
}

}  // namespace

CDUIImage::CDUIImage(const CDUIImage& other)
    : CDUIObject(other), m_pImage(other.m_pImage), m_nCornerWidth(other.m_nCornerWidth),
      m_nCornerHeight(other.m_nCornerHeight), m_nDrawStyle(other.m_nDrawStyle)
{
}

CDUIImage& CDUIImage::operator=(const CDUIImage& other) = default;

CDUIImage::~CDUIImage() = default;

std::shared_ptr<CDUIImage> CDUIImage::CloneObject() const { return std::make_shared<CDUIImage>(*this); }

BOOL CDUIImage::CreateFromFile(const char* path)
{
    if (!m_pImage)
        m_pImage = std::make_shared<CImage>();
    if (FAILED(m_pImage->Load(path)))
        return FALSE;
    Premultiply();
    return TRUE;
}

BOOL CDUIImage::CreateFromStream(const unsigned char* data, DWORD size)
{
    const HGLOBAL block = GlobalAlloc(GMEM_MOVEABLE, size);
    if (!block)
        return FALSE;
    if (size > 0)
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
    for (int y = 0; y < m_pImage->GetHeight(); ++y) {
        auto* pixel = static_cast<BYTE*>(m_pImage->GetPixelAddress(0, y));
        for (int x = 0; x < m_pImage->GetWidth(); ++x, pixel += 4)
            for (int channel = 0; channel < 3; ++channel)
                pixel[channel] = static_cast<BYTE>(pixel[channel] * pixel[3] / 255);
    }
}

void CDUIImage::SetCornerSize(int width, int height)
{
    m_nCornerWidth = width;
    m_nCornerHeight = height;
}

int CDUIImage::GetWidth() const { return m_pImage ? m_pImage->GetWidth() : -1; }

int CDUIImage::GetHeight() const { return m_pImage ? m_pImage->GetHeight() : -1; }

BOOL CDUIImage::IsNull() const { return !m_pImage || m_pImage->IsNull(); }

void CDUIImage::Destory() { m_pImage.reset(); }

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
    } else if ((m_nDrawStyle == DRAW_STYLE_STRETCH_HORZ || m_nDrawStyle == DRAW_STYLE_STRETCH_VERT) && hasCorner) {
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
    const MemoryContext memory(hdc, *m_pImage);
    for (int i = 0; i < count; ++i)
        DrawPart(hdc, parts[i].dest, memory.Get(), parts[i].source, *m_pImage);
}

void CDUIImage::DrawThreeParts(HDC hdc, const RECT& dest, const RECT& source, bool vertical)
{
    const int cap = m_nCornerWidth;
    const auto slice = [vertical](const RECT& rect, int from, int to) {
        return vertical ? RECT{rect.left, rect.top + from, rect.right, rect.top + to}
                        : RECT{rect.left + from, rect.top, rect.left + to, rect.bottom};
    };
    const int from = vertical ? Height(source) : Width(source);
    const int to = vertical ? Height(dest) : Width(dest);
    const Part parts[] = {
        {slice(source, 0, cap), slice(dest, 0, cap)},
        {slice(source, from - cap, from), slice(dest, to - cap, to)},
        {slice(source, cap, from - cap), slice(dest, cap, to - cap)},
    };
    DrawParts(hdc, parts, 3);
}

void CDUIImage::DrawNineParts(HDC hdc, const RECT& dest, const RECT& source)
{
    // Column and row limits of one rectangle: outer edge, corner, corner, outer edge.
    struct Grid {
        int x[4];
        int y[4];
        RECT Cell(int column, int row) const { return {x[column], y[row], x[column + 1], y[row + 1]}; }
    };
    const auto gridOf = [this](const RECT& rect) {
        return Grid{{rect.left, rect.left + m_nCornerWidth, rect.right - m_nCornerWidth, rect.right},
                    {rect.top, rect.top + m_nCornerHeight, rect.bottom - m_nCornerHeight, rect.bottom}};
    };
    const Grid from = gridOf(source);
    const Grid to = gridOf(dest);
    // Corners and edges in the published order: where parts overlap in a small rectangle, the later wins.
    constexpr int kOrder[9][2] = {{0, 0}, {2, 0}, {1, 0}, {0, 2}, {2, 2}, {0, 1}, {2, 1}, {1, 2}, {1, 1}};
    Part parts[9];
    for (int i = 0; i < 9; ++i)
        parts[i] = {from.Cell(kOrder[i][0], kOrder[i][1]), to.Cell(kOrder[i][0], kOrder[i][1])};
    DrawParts(hdc, parts, 9);
}

void CDUIImage::DrawTiled(HDC hdc, const RECT& dest)
{
    const RECT whole{0, 0, GetWidth(), GetHeight()};
    const MemoryContext memory(hdc, *m_pImage);
    for (LONGLONG x = dest.left; x < dest.right; x += whole.right) {
        const auto left = static_cast<LONG>(x);
        DrawPart(hdc, {left, dest.top, left + whole.right, dest.top + whole.bottom}, memory.Get(), whole, *m_pImage);
    }
}

CDUIImageList::CDUIImageList(const CDUIImageList& other) : CDUIImage(other), m_nItemCount(other.m_nItemCount) {}

CDUIImageList& CDUIImageList::operator=(const CDUIImageList& other)
{
    CDUIImage::operator=(other);
    m_nItemCount = other.m_nItemCount ? other.m_nItemCount : 1;
    m_nDirection = other.m_nDirection;
    return *this;
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
        const MemoryContext target(nullptr, section.GetBitmap());
        const MemoryContext source(nullptr, *GetRawImage());
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
