#pragma once

#include <cstdint>
#include <vector>

#include <qvui/platform/platform.h>

namespace qvui::classlib {
struct ImageHeader;
}

/// A decoded bitmap, held as a bottom-up DIB section.
///
/// PNG, JPEG, GIF, BMP, TIFF and ICO files decode, of several pictures the first. A PNG whose format carries
/// transparency or is grey, an ICO of 32 bits, and a GIF, TIFF or other ICO that has a pixel that is not
/// opaque, become 32 bits per pixel with straight (not premultiplied) alpha and the has-alpha flag;
/// everything else becomes 24 bits. A file that is missing, cut short or broken, or whose picture has more
/// than 64 million pixels, fails; there is no partial image.
class QVUI_API CImage {
public:
    CImage() = default;
    CImage(const CImage&) = delete;
    CImage& operator=(const CImage&) = delete;
    ~CImage() { Destroy(); }

    /// Decodes a file or a stream from its current position, replacing what the image held. E_FAIL leaves it
    /// empty.
    HRESULT Load(LPCSTR path);
    HRESULT Load(IStream* stream);
    /// Makes an image of zeroed pixels, 24 or 32 bits each; negative heights are not accepted.
    BOOL Create(int width, int height, int bitsPerPixel);
    /// Writes a PNG file (straight alpha); the path's directory must exist.
    HRESULT Save(LPCSTR path) const;
    void Destroy();

    bool IsNull() const { return m_hBitmap == nullptr; }
    operator HBITMAP() const { return m_hBitmap; }
    int GetWidth() const { return m_width; }
    int GetHeight() const { return m_height; }
    int GetBPP() const { return m_bitsPerPixel; }
    /// Bytes from a row to the one below it; negative, since rows are stored bottom-up.
    int GetPitch() const;
    /// The top row's first byte.
    void* GetBits() const;
    void* GetPixelAddress(int x, int y) const;

    BOOL GetHasAlphaChannel() const { return m_hasAlpha; }
    void SetHasAlphaChannel(BOOL hasAlpha) { m_hasAlpha = hasAlpha; }
    /// The colour that is not drawn; CLR_INVALID, the state after every load, when there is none.
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
    std::uint8_t* m_pRows = nullptr;  // the bottom row
    int m_width = 0;
    int m_height = 0;
    int m_bitsPerPixel = 0;
    BOOL m_hasAlpha = FALSE;
    COLORREF m_transparent = CLR_INVALID;
};
