#pragma once

#include <memory>

#include <qvui/foundation/ref_ptr.h>
#include <qvui/platform/cimage.h>

namespace DUI {

/// How an image fills a rectangle. If the rectangle is smaller than the caps or corners, the slices keep
/// their order.
enum IMAGE_DRAW_STYLE {
    DRAW_STYLE_NORMAL = 0,
    DRAW_STYLE_STRETCH = 1,
    DRAW_STYLE_STRETCH_HORZ = 2,  // left and right caps keep their width
    DRAW_STYLE_STRETCH_VERT = 3,  // top and bottom caps keep their height, which is the corner width
    DRAW_STYLE_SQUARD = 4,        // nine-grid
    DRAW_STYLE_TILE = 5,          // one row along the top edge
};

/// A decoded picture, shared between copies, and its drawing style. Pixels of 32-bit pictures are stored
/// premultiplied by alpha.
class QVUI_API CDUIImage : public CDUIObject {
public:
    CDUIImage() = default;
    CDUIImage(const CDUIImage& other);
    CDUIImage& operator=(const CDUIImage& other);
    ~CDUIImage() override;

    std::shared_ptr<CDUIImage> CloneObject() const;
    /// Decodes a file into the picture shared by all copies. On failure it returns FALSE, and the picture is
    /// empty.
    BOOL CreateFromFile(const char* path);
    /// Decodes bytes into a new picture that is not shared. The bytes are not owned.
    BOOL CreateFromStream(const unsigned char* data, DWORD size);
    /// The same from a resource of a module.
    BOOL CreateFromResource(HINSTANCE module, const char* name, const char* type);
    BOOL CreateFromResource(HINSTANCE module, UINT id, const char* type);

    /// Draws the whole picture into a rectangle.
    void DrawImage(HDC hdc, const RECT& dest);
    /// Draws a part of the picture into a rectangle.
    void DrawImage(HDC hdc, const RECT& dest, const RECT& source);

    void SetDrawStyle(IMAGE_DRAW_STYLE style) { m_nDrawStyle = style; }
    IMAGE_DRAW_STYLE GetDrawStyle() const { return m_nDrawStyle; }
    /// The size of caps and corners, in pixels.
    void SetCornerSize(int width, int height);
    int GetCornerWidth() const { return m_nCornerWidth; }
    int GetCornerHeight() const { return m_nCornerHeight; }
    /// The picture's size in pixels; -1 without one.
    int GetWidth() const;
    int GetHeight() const;
    BOOL IsNull() const;
    /// Releases the picture; the last copy frees it.
    void Destory();
    /// Returns the decoded bitmap, or null if there is none. Not owned.
    CImage* GetRawImage() const { return m_pImage.get(); }

private:
    struct Part {
        RECT source;
        RECT dest;
    };
    void DrawParts(HDC hdc, const Part* parts, int count);
    void DrawThreeParts(HDC hdc, const RECT& dest, const RECT& source, bool vertical);
    void DrawNineParts(HDC hdc, const RECT& dest, const RECT& source);
    void DrawTiled(HDC hdc, const RECT& dest);
    void Premultiply();

    std::shared_ptr<CImage> m_pImage;
    int m_nCornerWidth = 0;
    int m_nCornerHeight = 0;
    IMAGE_DRAW_STYLE m_nDrawStyle = DRAW_STYLE_NORMAL;
};

/// A strip of icons of equal size in one picture, arranged horizontally or vertically.
class QVUI_API CDUIImageList : public CDUIImage {
public:
    CDUIImageList() = default;
    /// The copy is always a horizontal strip, whatever the source's direction; assignment keeps the
    /// direction.
    CDUIImageList(const CDUIImageList& other);
    CDUIImageList& operator=(const CDUIImageList& other);

    /// Sets the number of icons in the strip; 0 is treated as 1.
    void SetItemCount(DWORD count);
    int GetItemCount() const { return m_nItemCount; }
    /// Nonzero: the strip is vertical.
    void SetImageDirection(int vertical) { m_nDirection = vertical; }
    int GetImageDirection() const { return m_nDirection; }
    /// The size of one icon in pixels; 0 if there are more icons than pixels.
    int GetIconWidth() const;
    int GetIconHeight() const;

    void DrawImage(HDC hdc, const RECT& dest) { CDUIImage::DrawImage(hdc, dest); }
    /// Draws one icon; `index` must be valid.
    void DrawImage(HDC hdc, const RECT& dest, int index);
    /// Returns a new 32-bit bitmap of one icon, which the caller deletes; null for an invalid index.
    HBITMAP GetIconBitmap(HDC hdc, int index);
    /// Returns the region of the pixels of icon 0 that are not magenta. The caller deletes it.
    HRGN GetIconRgn();

protected:
    BOOL GetIconRect(int index, RECT& rect) const;

private:
    int m_nItemCount = 1;
    int m_nDirection = 0;
};

using CDUIImageListPtr = std::shared_ptr<CDUIImageList>;

}  // namespace DUI
