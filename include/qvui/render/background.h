#pragma once

#include <qvui/foundation/color.h>
#include <qvui/render/image_list.h>

namespace DUI {

/// Interface of an object that paints the background of a control or window.
class QVUI_API IDUIBkgnd : public CDUIObject {
public:
    /// Whether there is nothing to paint.
    virtual BOOL IsEmpty() const = 0;
    virtual void DrawBK(HDC hdc, const RECT& rect) = 0;
};

/// One colour, or a gradient of two or three colours. The form with the most colours set is painted.
class QVUI_API CDUIColorBK : public IDUIBkgnd {
public:
    BOOL IsEmpty() const override;
    void DrawBK(HDC hdc, const RECT& rect) override;

    void SetBKColor(const CARGB& color) { m_color = color; }
    void SetBKColor(const CARGB& start, const CARGB& end, int vertical);
    void SetBKColor(const CARGB& start, const CARGB& end, const CARGB& middle, double separator,
                    int vertical);
    CARGB GetBKColor() const { return m_color; }
    void GetBKColor(CARGB& start, CARGB& end, int& vertical) const;
    void GetBKCOlor(CARGB& start, CARGB& end, CARGB& middle, double& separator, int& vertical) const;
    /// Nonzero: the gradient runs from top to bottom; 0: from left to right.
    void SetBKVertical(int vertical) { m_nVertical = vertical; }
    int GetBKVertical() const { return m_nVertical; }
    /// Position of the middle colour: 0 to 1 is a fraction of the length, above 1 an offset in pixels; below
    /// 0 there is none.
    void SetBKSepPos(double position) { m_fSepPos = position; }
    double GetBKSepPos() const { return m_fSepPos; }

    BOOL IsOneColorEmpty() const { return m_color.IsEmpty(); }
    BOOL IsTwoColorEmpty() const { return m_start.IsEmpty() || m_end.IsEmpty(); }
    BOOL IsTreeColorEmpty() const { return IsTwoColorEmpty() || m_middle.IsEmpty(); }

private:
    CARGB m_color;
    CARGB m_start;
    CARGB m_end;
    int m_nVertical = 1;
    CARGB m_middle;
    double m_fSepPos = 0.5;
};

/// Position of an image: 0 left top, 1 left bottom, 2 right top, 3 right bottom, 4 centre; x and y are
/// offsets inwards, in pixels.
struct CFrameBKImagePos {
    int kind = 0;
    int x = 0;
    int y = 0;
};

/// Colours with an image on top.
class QVUI_API CDUIColorImageBK : public CDUIColorBK {
public:
    BOOL IsEmpty() const override;
    void DrawBK(HDC hdc, const RECT& rect) override;

    void SetSkinImage(CDUIImageListPtr image) { m_pSkinImage = std::move(image); }
    CDUIImageListPtr GetSkinImage() const { return m_pSkinImage; }
    void SetSkinImagePos(const CFrameBKImagePos& position) { m_imagePos = position; }
    CFrameBKImagePos GetSkinImagePos() const { return m_imagePos; }
    /// Returns the rectangle of the image's first icon inside `rect`, according to the image position.
    RECT GetSkinImageRect(RECT rect) const;

private:
    CDUIImageListPtr m_pSkinImage;
    CFrameBKImagePos m_imagePos;
};

/// A frame style: colours, an image, and a border that is cut from an image or, without one, drawn in a
/// colour. A border clips its drawing within the context's clip region; in a context without a clip region it
/// is not clipped.
class QVUI_API CDUIFrameBK : public CDUIColorImageBK {
public:
    BOOL IsEmpty() const override;
    void DrawBK(HDC hdc, const RECT& rect) override;

    void SetFrameColor(const CARGB& color) { m_frameColor = color; }
    CARGB GetFrameColor() const { return m_frameColor; }
    /// Widths of the border's four sides, in pixels.
    void SetFrameBorder(const RECT& border) { m_rcBorder = border; }
    RECT GetFrameBorder() const { return m_rcBorder; }
    /// The size of the ellipse that rounds the corners, in pixels.
    void SetFrameRound(int width, int height);
    void GetFrameRound(int& width, int& height) const;
    void SetFrameImage(CDUIImageListPtr image) { m_pFrameImage = std::move(image); }
    CDUIImageListPtr GetFrameImage() const { return m_pFrameImage; }

    BOOL IsFrameEmpty() const;
    BOOL IsColorFrameAvailable() const { return !IsFrameEmpty() && !m_frameColor.IsEmpty(); }
    BOOL IsImageFrameAvailable() const
    {
        return !IsFrameEmpty() && m_pFrameImage && !m_pFrameImage->IsNull();
    }
    /// Sets the window's region to the shape of the frame: the frame image without its magenta pixels, or a
    /// rounded rectangle. Returns FALSE, with the window unchanged, if the frame has neither.
    int SetWinFrameRgn(HWND hwnd);

private:
    void DrawImageFrame(HDC hdc, const RECT& rect);
    void DrawColorFrame(HDC hdc, const RECT& rect);
    HRGN CreateImageShape(HWND hwnd, const RECT& client);

    CARGB m_frameColor;
    RECT m_rcBorder{0, 0, 0, 0};
    int m_nRoundWidth = 0;
    int m_nRoundHeight = 0;
    CDUIImageListPtr m_pFrameImage;
};

}  // namespace DUI
