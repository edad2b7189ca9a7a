#pragma once

#include <cstdint>
#include <vector>

#include <qvui/platform/platform.h>

namespace qvui::classlib {
struct ImageHeader;
}

/// A decoded bitmap, held as a bottom-up DIB section.
///
/// Decodes PNG, JPEG, GIF, BMP, TIFF and ICO files; of a file with several pictures, the first. The result
/// has 32 bits per pixel with straight (not premultiplied) alpha and the has-alpha flag for a PNG whose
/// format carries transparency or is grey, for a 32-bit ICO, and for a GIF, TIFF or other ICO with at least
/// one pixel that is not opaque. All other pictures have 24 bits per pixel. Loading fails for a file that is
/// missing, truncated or invalid, and for a picture of more than 64 million pixels; there is no partial
/// image.
class QVUI_API CImage {
public:
    CImage() = default;
    CImage(const CImage&) = delete;
    CImage& operator=(const CImage&) = delete;
    ~CImage() { Destroy(); }

    /// Decodes a file, or a stream from its current position, and replaces the current image. On failure it
    /// returns E_FAIL and the image is empty.
    HRESULT Load(LPCSTR path);
    HRESULT Load(IStream* stream);
    /// Creates an image of zeroed pixels with 24 or 32 bits per pixel. Negative heights are rejected.
    BOOL Create(int width, int height, int bitsPerPixel);
    /// Writes a PNG file with straight alpha. The directory must exist.
    HRESULT Save(LPCSTR path) const;
    void Destroy();

    bool IsNull() const { return m_hBitmap == nullptr; }
    operator HBITMAP() const { return m_hBitmap; }
    int GetWidth() const { return m_width; }
    int GetHeight() const { return m_height; }
    int GetBPP() const { return m_bitsPerPixel; }
    /// Returns the offset in bytes from a row to the row below it; negative, because rows are stored
    /// bottom-up.
    int GetPitch() const;
    /// Returns the address of the first byte of the top row.
    void* GetBits() const;
    void* GetPixelAddress(int x, int y) const;

    BOOL GetHasAlphaChannel() const { return m_hasAlpha; }
    void SetHasAlphaChannel(BOOL hasAlpha) { m_hasAlpha = hasAlpha; }
    /// Returns the colour that is not drawn, or CLR_INVALID if there is none; loading resets it to
    /// CLR_INVALID.
    COLORREF GetTransparentColor() const { return m_transparent; }
    COLORREF SetTransparentColor(COLORREF colour);

private:
    struct Decoded {
        int width = 0;
        int height = 0;
        bool hasAlpha = false;
        std::vector<std::uint32_t> pixels;  // straight alpha, top row first
    };
    static bool Decode(const std::vector<std::uint8_t>& file, const qvui::classlib::ImageHeader& header,
                       Decoded& image);
    static bool EncodePng(const Decoded& image, LPCSTR path);
    HRESULT Adopt(const std::vector<std::uint8_t>& file);

    HBITMAP m_hBitmap = nullptr;
    std::uint8_t* m_pRows = nullptr;  // points to the bottom row
    int m_width = 0;
    int m_height = 0;
    int m_bitsPerPixel = 0;
    BOOL m_hasAlpha = FALSE;
    COLORREF m_transparent = CLR_INVALID;
};
