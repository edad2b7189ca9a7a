#pragma once

#include <qvui/foundation/color.h>
#include <qvui/foundation/ref_ptr.h>

namespace DUI {

/// Owns one device-independent bitmap section. Rows are stored bottom-up, each padded to 4 bytes. Pixels are
/// blue, green, red (and alpha), stored as written: nothing is premultiplied here.
class QVUI_API CDibSection : public CDUIObject {
public:
    CDibSection() = default;
    CDibSection(const CDibSection& other);
    CDibSection& operator=(const CDibSection& other);
    ~CDibSection() override;

    /// Replaces the bitmap. Returns FALSE, with the section empty, for a zero size, for 2 GB or more, or if
    /// the platform cannot create a bitmap of that depth.
    BOOL Create(DWORD width, DWORD height, WORD bitCount);
    /// Copies a bitmap's pixels. The section has 24 bits if `bitCount` is 24 or less, otherwise 32.
    BOOL Create(HBITMAP bitmap, WORD bitCount);

    BOOL IsNull() const { return m_hBitmap == nullptr; }
    /// Deletes the bitmap and keeps the header.
    void DeleteObject();
    /// Clears all fields without deleting the bitmap.
    void Reset();
    /// Returns the bitmap and passes its ownership to the caller. Header and bits are invalid until the next
    /// Create or Reset.
    HBITMAP Detach();
    /// Copies this section to `dest`. Returns FALSE, with `dest` empty, if this section is empty or there is
    /// not enough memory.
    BOOL CopyTo(CDibSection* dest) const;
    /// Takes over another section's bitmap and leaves that section empty. Returns FALSE for itself.
    BOOL Transfer(CDibSection* src);
    /// NewObject returns a new empty section, Clone a new copy. The caller owns both.
    CDibSection* NewObject() const;
    CDibSection* Clone() const;

    HBITMAP GetBitmap() const { return m_hBitmap; }
    /// Returns the first byte of the bottom row. Pending drawing is finished first; after further drawing,
    /// call this again before reading the bits.
    BYTE* GetBits() const;
    /// Bytes per row.
    DWORD GetLineWidth() const { return m_nLineWidth; }
    WORD GetBitCount() const { return m_header.biBitCount; }
    BITMAPINFOHEADER* GetDibHeader() { return &m_header; }
    const BITMAPINFOHEADER* GetDibHeader() const { return &m_header; }
    /// Bytes per pixel.
    int GetPixelWidth() const { return m_header.biBitCount / 8; }

    /// x and y must be inside the image. Row 0 is the top row if `fromTop` is set, otherwise the bottom row.
    /// In depths other than 24 and 32, GetPixel returns an empty colour and SetPixel writes nothing.
    CARGB GetPixel(int x, int y, int fromTop) const;
    BOOL SetPixel(int x, int y, const CARGB& color, int fromTop);

    /// These four functions draw the whole image and return FALSE for an empty section or a null context.
    /// Draw keeps the image's size; the others scale it to the rectangle. Draw and Stretch leave the
    /// context's stretch mode set to COLORONCOLOR.
    BOOL Draw(HDC hdc, int x, int y) const;
    BOOL Stretch(HDC hdc, const RECT& rect) const;
    /// If `perPixel` is set, the image's own alpha is applied too, and its colours must be premultiplied.
    BOOL AlphaBlend(HDC hdc, const RECT& rect, int perPixel, unsigned char alpha);
    /// Omits the pixels of the key colour, a COLORREF.
    BOOL TransparentBlt(HDC hdc, const RECT& rect, DWORD keyColor);

    /// Writes a .bmp file. Returns TRUE if every byte was written.
    BOOL SaveAsBmpFile(const char* path) const;

private:
    std::size_t PixelOffset(int x, int y, int fromTop) const;
    const BITMAPINFO* Info() const { return reinterpret_cast<const BITMAPINFO*>(&m_header); }

    BITMAPINFOHEADER m_header{};
    BYTE m_colorEntry[4]{};  // directly after the header, so that together they form a BITMAPINFO
    BYTE* m_pBits = nullptr;
    DWORD m_nLineWidth = 0;
    HBITMAP m_hBitmap = nullptr;
};

}  // namespace DUI
