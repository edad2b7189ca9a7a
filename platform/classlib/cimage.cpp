#include <qvui/platform/cimage.h>

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <utility>

#include <qvui/platform/file.h>

#include "image_header.h"

using qvui::classlib::ImageHeader;
using qvui::classlib::ImageKind;

namespace {

// Skins are untrusted input: a larger file is rejected as invalid.
constexpr std::size_t kLargestFile = std::size_t{256} << 20;

int RowBytes(int width, int bitsPerPixel)
{
    return (width * bitsPerPixel + 31) / 32 * 4;
}

bool ReadFileBytes(LPCSTR path, std::vector<std::uint8_t>& bytes)
{
    std::FILE* file = OpenPlatformFile(path, "rb");
    if (!file)
        return false;
    std::uint8_t chunk[65536];
    while (const std::size_t count = std::fread(chunk, 1, sizeof chunk, file)) {
        bytes.insert(bytes.end(), chunk, chunk + count);
        if (bytes.size() > kLargestFile)
            break;
    }
    const bool isRead = !std::ferror(file) && bytes.size() <= kLargestFile;
    std::fclose(file);
    return isRead;
}

bool HasClearPixel(const std::vector<std::uint32_t>& pixels)
{
    return std::any_of(pixels.begin(), pixels.end(), [](std::uint32_t pixel) { return pixel < 0xFF000000; });
}

void StoreRow(const std::uint32_t* pixels, int width, int bitsPerPixel, std::uint8_t* row)
{
    if (bitsPerPixel == 32) {
        std::memcpy(row, pixels, static_cast<std::size_t>(width) * sizeof *pixels);
        return;
    }
    for (int x = 0; x < width; ++x, row += 3) {
        row[0] = static_cast<std::uint8_t>(pixels[x]);
        row[1] = static_cast<std::uint8_t>(pixels[x] >> 8);
        row[2] = static_cast<std::uint8_t>(pixels[x] >> 16);
    }
}

}  // namespace

HRESULT CImage::Load(LPCSTR path)
{
    Destroy();
    std::vector<std::uint8_t> bytes;
    return ReadFileBytes(path, bytes) ? Adopt(bytes) : E_FAIL;
}

HRESULT CImage::Load(IStream* stream)
{
    Destroy();
    std::vector<std::uint8_t> bytes;
    std::uint8_t chunk[65536];
    ULONG count = 0;
    while (stream && SUCCEEDED(stream->Read(chunk, sizeof chunk, &count)) && count > 0) {
        bytes.insert(bytes.end(), chunk, chunk + count);
        if (bytes.size() > kLargestFile)
            return E_FAIL;
    }
    return Adopt(bytes);
}

HRESULT CImage::Adopt(const std::vector<std::uint8_t>& file)
{
    const ImageHeader header = qvui::classlib::ReadImageHeader(file);
    Decoded image;
    if (header.kind == ImageKind::Unknown || !Decode(file, header, image))
        return E_FAIL;
    image.hasAlpha = header.alpha == ImageHeader::Alpha::Stored ||
                     (header.alpha == ImageHeader::Alpha::ByPixels && HasClearPixel(image.pixels));
    if (!Create(image.width, image.height, image.hasAlpha ? 32 : 24))
        return E_FAIL;
    const std::uint32_t* pixel = image.pixels.data();
    for (int y = 0; y < m_height; ++y, pixel += m_width)
        StoreRow(pixel, m_width, m_bitsPerPixel, static_cast<std::uint8_t*>(GetPixelAddress(0, y)));
    m_hasAlpha = image.hasAlpha;
    return S_OK;
}

BOOL CImage::Create(int width, int height, int bitsPerPixel)
{
    Destroy();
    BITMAPINFO info{};
    info.bmiHeader.biSize = sizeof info.bmiHeader;
    info.bmiHeader.biWidth = width;
    info.bmiHeader.biHeight = height;
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = static_cast<WORD>(bitsPerPixel);
    void* rows = nullptr;
    if (width <= 0 || height <= 0)
        return FALSE;
    m_hBitmap = CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &rows, nullptr, 0);
    if (!m_hBitmap)
        return FALSE;
    m_pRows = static_cast<std::uint8_t*>(rows);
    m_width = width;
    m_height = height;
    m_bitsPerPixel = bitsPerPixel;
    return TRUE;
}

HRESULT CImage::Save(LPCSTR path) const
{
    if (IsNull())
        return E_FAIL;
    Decoded image{m_width, m_height, m_bitsPerPixel == 32 && m_hasAlpha, {}};
    GdiFlush();  // flush pending drawing before reading the bits
    image.pixels.reserve(static_cast<std::size_t>(m_width) * static_cast<std::size_t>(m_height));
    for (int y = 0; y < m_height; ++y)
        for (int x = 0; x < m_width; ++x) {
            const auto* pixel = static_cast<const std::uint8_t*>(GetPixelAddress(x, y));
            const std::uint32_t alpha = image.hasAlpha ? pixel[3] : 255U;
            image.pixels.push_back(pixel[0] | (static_cast<std::uint32_t>(pixel[1]) << 8) |
                                   (static_cast<std::uint32_t>(pixel[2]) << 16) | (alpha << 24));
        }
    return EncodePng(image, path) ? S_OK : E_FAIL;
}

void CImage::Destroy()
{
    if (m_hBitmap)
        DeleteObject(m_hBitmap);
    m_hBitmap = nullptr;
    m_pRows = nullptr;
    m_width = m_height = m_bitsPerPixel = 0;
    m_hasAlpha = FALSE;
    m_transparent = CLR_INVALID;
}

int CImage::GetPitch() const
{
    return -RowBytes(m_width, m_bitsPerPixel);
}

void* CImage::GetBits() const
{
    return GetPixelAddress(0, 0);
}

void* CImage::GetPixelAddress(int x, int y) const
{
    const std::ptrdiff_t row =
        static_cast<std::ptrdiff_t>(m_height - 1 - y) * RowBytes(m_width, m_bitsPerPixel);
    return m_pRows + row + static_cast<std::ptrdiff_t>(x) * (m_bitsPerPixel / 8);
}

COLORREF CImage::SetTransparentColor(COLORREF colour)
{
    return std::exchange(m_transparent, colour);
}
