#pragma once

#include <qvui/foundation/color.h>
#include <qvui/foundation/ref_ptr.h>

namespace DUI {

/// Owns one device-independent bitmap section, rows bottom-up, each padded to 4 bytes. Pixels are blue,
/// green, red (and alpha); nothing is premultiplied here: what is stored is what was written.
class QVUI_API CDibSection : public CDUIObject {
public:
    CDibSection() = default;
    CDibSection(const CDibSection& other);
    CDibSection& operator=(const CDibSection& other);
    ~CDibSection() override;

    /// Discards any bitmap; FALSE, with the section empty, for a zero size, for 2 GB and more, or when the
    /// platform makes no bitmap of that depth.
    BOOL Create(DWORD width, DWORD height, WORD bitCount);
    /// A copy of a bitmap's pixels, 24 bits deep when less than 24 are asked for, else 32.
    BOOL Create(HBITMAP bitmap, WORD bitCount);

    BOOL IsNull() const { return m_hBitmap == nullptr; }
    /// Deletes the bitmap and keeps the header.
    void DeleteObject();
    /// Clears every field without deleting anything.
    void Reset();
    /// The bitmap, which the caller owns from now on; header and bits are stale until the next Create or
    /// Reset.
    HBITMAP Detach();
    /// Makes `dest` a copy. FALSE, with `dest` empty, when this is empty or there is no memory.
    BOOL CopyTo(CDibSection* dest) const;
    /// Takes over another section's bitmap and leaves it empty; FALSE for itself.
    BOOL Transfer(CDibSection* src);
    /// A new empty section, and a new copy; both are owned by the caller.
    CDibSection* NewObject() const;
    CDibSection* Clone() const;

    HBITMAP GetBitmap() const { return m_hBitmap; }
    /// The bottom row's first byte. All that was drawn on the bitmap so far is there; after further drawing,
    /// ask again before the bits are read.
    BYTE* GetBits() const;
    /// Bytes per row.
    DWORD GetLineWidth() const { return m_nLineWidth; }
    WORD GetBitCount() const { return m_header.biBitCount; }
    BITMAPINFOHEADER* GetDibHeader() { return &m_header; }
    const BITMAPINFOHEADER* GetDibHeader() const { return &m_header; }
    /// Bytes per pixel.
    int GetPixelWidth() const { return m_header.biBitCount / 8; }

    /// The caller keeps x and y inside; row 0 is the top with `fromTop`, else the bottom. Depths other than
    /// 24 and 32 read empty and write nothing.
    CARGB GetPixel(int x, int y, int fromTop) const;
    BOOL SetPixel(int x, int y, const CARGB& color, int fromTop);

    /// These four draw the whole image and return FALSE for an empty section or a null context. Draw keeps
    /// the image's size, the others scale it into the rectangle. Draw and Stretch leave the context's stretch
    /// mode at COLORONCOLOR.
    BOOL Draw(HDC hdc, int x, int y) const;
    BOOL Stretch(HDC hdc, const RECT& rect) const;
    /// With `perPixel` the image's own alpha counts too, and its colours are taken as premultiplied.
    BOOL AlphaBlend(HDC hdc, const RECT& rect, int perPixel, unsigned char alpha);
    /// Leaves out the pixels of the key colour, a COLORREF.
    BOOL TransparentBlt(HDC hdc, const RECT& rect, DWORD keyColor);

    /// Writes a .bmp file; TRUE when every byte was written.
    BOOL SaveAsBmpFile(const char* path) const;

private:
    std::size_t PixelOffset(int x, int y, int fromTop) const;
    const BITMAPINFO* Info() const { return reinterpret_cast<const BITMAPINFO*>(&m_header); }

    BITMAPINFOHEADER m_header{};
    BYTE m_colorEntry[4]{};  // stands right after the header: together they are a BITMAPINFO
    BYTE* m_pBits = nullptr;
    DWORD m_nLineWidth = 0;
    HBITMAP m_hBitmap = nullptr;
};

}  // namespace DUI
