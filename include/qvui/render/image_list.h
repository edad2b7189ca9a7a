#pragma once

#include <memory>

#include <qvui/foundation/ref_ptr.h>
#include <qvui/platform/cimage.h>

namespace DUI {

/// How an image fills a rectangle. Slices keep their order when a rectangle is smaller than its caps or
/// corners.
enum IMAGE_DRAW_STYLE {
    DRAW_STYLE_NORMAL = 0,
    DRAW_STYLE_STRETCH = 1,
    DRAW_STYLE_STRETCH_HORZ = 2,  // caps left and right keep their width
    DRAW_STYLE_STRETCH_VERT = 3,  // caps above and below keep their height, the corner's first number
    DRAW_STYLE_SQUARD = 4,        // nine-grid
    DRAW_STYLE_TILE = 5,          // one row along the top edge
};

/// A decoded picture, shared between copies, and the way it is drawn. Pixels of 32-bit pictures are stored
/// premultiplied by their alpha.
class QVUI_API CDUIImage : public CDUIObject {
public:
    CDUIImage() = default;
    CDUIImage(const CDUIImage& other);
    CDUIImage& operator=(const CDUIImage& other);
    ~CDUIImage() override;

    std::shared_ptr<CDUIImage> CloneObject() const;
    /// Decodes a file into the picture that all copies share. FALSE leaves it empty.
    BOOL CreateFromFile(const char* path);
    /// Decodes bytes into a new picture for this image alone. The bytes stay the caller's.
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
    /// Lets go of the picture, which the last copy frees.
    void Destory();
    /// The decoded bitmap itself, borrowed; null without one.
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

/// A strip of equally sized icons in one picture, side by side or one above the other.
class QVUI_API CDUIImageList : public CDUIImage {
public:
    CDUIImageList() = default;
    /// The copy is a horizontal strip whatever the source's direction; assignment keeps it.
    CDUIImageList(const CDUIImageList& other);
    CDUIImageList& operator=(const CDUIImageList& other);

    /// Icons in the strip; 0 means 1.
    void SetItemCount(DWORD count);
    int GetItemCount() const { return m_nItemCount; }
    /// Nonzero: icons stand one above the other.
    void SetImageDirection(int vertical) { m_nDirection = vertical; }
    int GetImageDirection() const { return m_nDirection; }
    /// The size of one icon in pixels; 0 when there are more icons than pixels.
    int GetIconWidth() const;
    int GetIconHeight() const;

    void DrawImage(HDC hdc, const RECT& dest) { CDUIImage::DrawImage(hdc, dest); }
    /// Draws an icon; the caller passes a valid index.
    void DrawImage(HDC hdc, const RECT& dest, int index);
    /// A new 32-bit bitmap of one icon, the caller's to delete; null for an index that is not there.
    HBITMAP GetIconBitmap(HDC hdc, int index);
    /// A region of icon 0's pixels that are not magenta, the caller's to delete.
    HRGN GetIconRgn();

protected:
    BOOL GetIconRect(int index, RECT& rect) const;

private:
    int m_nItemCount = 1;
    int m_nDirection = 0;
};

using CDUIImageListPtr = std::shared_ptr<CDUIImageList>;

}  // namespace DUI
