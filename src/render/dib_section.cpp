#include <qvui/render/dib_section.h>

#include <cstddef>
#include <cstring>

#include <qvui/render/bitmap_functions.h>

#include "foundation/rect.h"
#include "render/memory_context.h"

namespace DUI {

using namespace wrapping;

CDibSection::CDibSection(const CDibSection& other) : CDUIObject(other)
{
    other.CopyTo(this);
}

CDibSection& CDibSection::operator=(const CDibSection& other)
{
    other.CopyTo(this);
    return *this;
}

CDibSection::~CDibSection()
{
    DeleteObject();
}

BOOL CDibSection::Create(DWORD width, DWORD height, WORD bitCount)
{
    DeleteObject();
    constexpr DWORD kLargest = 0x7FFFFFFF;
    const ULONGLONG lineWidth = (static_cast<ULONGLONG>(bitCount) * width + 31) / 8 / 4 * 4;
    if (width == 0 || height == 0 || width > kLargest || height > kLargest || lineWidth > kLargest / height)
        return FALSE;
    m_nLineWidth = static_cast<DWORD>(lineWidth);
    m_header = {};
    m_header.biSize = sizeof m_header;
    m_header.biWidth = static_cast<LONG>(width);
    m_header.biHeight = static_cast<LONG>(height);
    m_header.biPlanes = 1;
    m_header.biBitCount = bitCount;
    m_header.biCompression = BI_RGB;
    m_header.biSizeImage = m_nLineWidth * height;
    void* bits = nullptr;
    m_hBitmap = CreateDIBSection(nullptr, Info(), DIB_RGB_COLORS, &bits, nullptr, 0);
    m_pBits = static_cast<BYTE*>(bits);
    return m_hBitmap != nullptr;
}

BOOL CDibSection::Create(HBITMAP bitmap, WORD bitCount)
{
    SIZE size{};
    constexpr WORD kShallow = 24;
    constexpr WORD kDeep = 32;
    if (!CBitmapCommonFunction::GetBitmapSize(bitmap, size) ||
        !Create(static_cast<DWORD>(size.cx), static_cast<DWORD>(size.cy),
                bitCount < kShallow ? kShallow : kDeep)) {
        DeleteObject();
        return FALSE;
    }
    const HDC screen = GetDC(nullptr);
    BITMAPINFO info{};
    info.bmiHeader = m_header;
    GetDIBits(screen, bitmap, 0, static_cast<UINT>(size.cy), m_pBits, &info, DIB_RGB_COLORS);
    ReleaseDC(nullptr, screen);
    return TRUE;
}

void CDibSection::DeleteObject()
{
    if (m_hBitmap)
        ::DeleteObject(m_hBitmap);
    m_hBitmap = nullptr;
    m_pBits = nullptr;
}

void CDibSection::Reset()
{
    m_header = {};
    m_pBits = nullptr;
    m_nLineWidth = 0;
    m_hBitmap = nullptr;
}

HBITMAP CDibSection::Detach()
{
    const HBITMAP bitmap = m_hBitmap;
    m_hBitmap = nullptr;
    return bitmap;
}

BOOL CDibSection::CopyTo(CDibSection* dest) const
{
    if (dest == this)
        return TRUE;
    dest->DeleteObject();
    if (IsNull() || !dest->Create(static_cast<DWORD>(m_header.biWidth), static_cast<DWORD>(m_header.biHeight),
                                  m_header.biBitCount))
        return FALSE;
    std::memcpy(dest->m_pBits, GetBits(), m_header.biSizeImage);
    return TRUE;
}

BOOL CDibSection::Transfer(CDibSection* src)
{
    if (src == this)
        return FALSE;
    DeleteObject();
    m_header = src->m_header;
    m_pBits = src->m_pBits;
    m_nLineWidth = src->m_nLineWidth;
    m_hBitmap = src->m_hBitmap;
    src->Reset();
    return TRUE;
}

BYTE* CDibSection::GetBits() const
{
    // Flush pending drawing before the bits are read.
    GdiFlush();
    return m_pBits;
}

CDibSection* CDibSection::NewObject() const
{
    return new CDibSection;
}

CDibSection* CDibSection::Clone() const
{
    return new CDibSection(*this);
}

std::size_t CDibSection::PixelOffset(int x, int y, int fromTop) const
{
    const int row = fromTop ? m_header.biHeight - y - 1 : y;
    return static_cast<std::size_t>(row) * m_nLineWidth + static_cast<std::size_t>(GetPixelWidth() * x);
}

CARGB CDibSection::GetPixel(int x, int y, int fromTop) const
{
    CARGB color;
    BYTE* pixel = GetBits() + PixelOffset(x, y, fromTop);
    if (m_header.biBitCount == 32)
        color.ReadFromDIB4(pixel);
    else if (m_header.biBitCount == 24)
        color.ReadFromDIB3(pixel);
    return color;
}

BOOL CDibSection::SetPixel(int x, int y, const CARGB& color, int fromTop)
{
    BYTE* pixel = GetBits() + PixelOffset(x, y, fromTop);
    if (m_header.biBitCount == 32)
        color.WriteToDIB4(pixel);
    else if (m_header.biBitCount == 24)
        color.WriteToDIB3(pixel);
    return TRUE;
}

BOOL CDibSection::Draw(HDC hdc, int x, int y) const
{
    if (IsNull() || !hdc)
        return FALSE;
    SetStretchBltMode(hdc, COLORONCOLOR);
    const auto height = static_cast<UINT>(m_header.biHeight);
    return SetDIBitsToDevice(hdc, x, y, static_cast<DWORD>(m_header.biWidth), height, 0, 0, 0, height,
                             GetBits(), Info(), DIB_RGB_COLORS) != 0;
}

BOOL CDibSection::Stretch(HDC hdc, const RECT& rect) const
{
    if (IsNull() || !hdc)
        return FALSE;
    SetStretchBltMode(hdc, COLORONCOLOR);
    return StretchDIBits(hdc, rect.left, rect.top, Width(rect), Height(rect), 0, 0, m_header.biWidth,
                         m_header.biHeight, GetBits(), Info(), DIB_RGB_COLORS, SRCCOPY) != 0;
}

BOOL CDibSection::AlphaBlend(HDC hdc, const RECT& rect, int perPixel, unsigned char alpha)
{
    if (IsNull() || !hdc)
        return FALSE;
    const MemoryContext memory(m_hBitmap);
    const BLENDFUNCTION blend{AC_SRC_OVER, 0, alpha, static_cast<BYTE>(perPixel ? AC_SRC_ALPHA : 0)};
    return ::AlphaBlend(hdc, rect.left, rect.top, Width(rect), Height(rect), memory.Get(), 0, 0,
                        m_header.biWidth, m_header.biHeight, blend);
}

BOOL CDibSection::TransparentBlt(HDC hdc, const RECT& rect, DWORD keyColor)
{
    if (IsNull() || !hdc)
        return FALSE;
    const MemoryContext memory(m_hBitmap);
    return ::TransparentBlt(hdc, rect.left, rect.top, Width(rect), Height(rect), memory.Get(), 0, 0,
                            m_header.biWidth, m_header.biHeight, keyColor);
}

BOOL CDibSection::SaveAsBmpFile(const char* path) const
{
    if (IsNull())
        return FALSE;
    const HANDLE file = CreateFileA(path, GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS,
                                    FILE_ATTRIBUTE_NORMAL | FILE_FLAG_SEQUENTIAL_SCAN, nullptr);
    if (file == INVALID_HANDLE_VALUE)
        return FALSE;
    constexpr DWORD kFileHeader = 14;
    constexpr DWORD kHeaderAndColor = sizeof m_header + sizeof m_colorEntry;
    constexpr DWORD kPixels = kFileHeader + kHeaderAndColor;
    BYTE header[kFileHeader] = {'B', 'M'};
    const auto put = [&header](std::size_t at, DWORD value) {
        for (std::size_t i = 0; i < 4; ++i)
            header[at + i] = static_cast<BYTE>(value >> (8 * i));
    };
    put(2, m_header.biSizeImage + kPixels);
    put(10, kPixels);
    const auto write = [file](const void* bytes, DWORD size) {
        DWORD written = 0;
        return WriteFile(file, bytes, size, &written, nullptr) && written == size;
    };
    const bool isWritten = write(header, kFileHeader) && write(&m_header, kHeaderAndColor) &&
                           write(GetBits(), m_header.biSizeImage);
    CloseHandle(file);
    return isWritten;
}

}  // namespace DUI
