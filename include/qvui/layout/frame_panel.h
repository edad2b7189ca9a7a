#pragma once

#include <qvui/foundation/color.h>
#include <qvui/framework/control_of.h>
#include <qvui/render/image_list.h>

namespace DUI {

/// The border of a frame panel. Copies share the images, each of which may be null.
struct CFrameUIData {
    CDUIImageListPtr m_pLeftImage;
    CDUIImageListPtr m_pRightImage;
    CDUIImageListPtr m_pTopImage;
    CDUIImageListPtr m_pBottomImage;
    CARGB m_borderColor;
    CString m_strBorderColor;  // the name of a skin colour, looked up on each painting
};

/// How a frame panel draws its border; all other values are treated as images.
enum FRAMEPANEL_DRAW : unsigned long {
    FRAMEPANEL_USE_COLOR = 1,
    FRAMEPANEL_USE_IMAGE = 2,
};

/// Draws a border, in a colour or from images, and places its first child inside it. The border lies within
/// the content rectangle; its widths are those of border_rect, or the icon sizes of the images.
///
/// Skin attributes: frame_type, border_color, left_border_image, right_border_image, top_border_image,
/// bottom_border_image, border_rect, back_image.
class QVUI_API CDUIFramePanel : public ControlOf<CDUIFramePanel, CDUIControlBase> {
    friend ControlOf;

public:
    CDUIFramePanel();
    static const ControlClass& Class();

    void SetControlRect(const RECT& rect) override;

protected:
    void PaintBkgnd(HDC hdc) override;

public:
    // The setters request neither layout nor repaint.
    /// The widths of the four sides.
    virtual void SetFrameRect(const RECT& rect) { m_rcFrame = rect; }
    virtual RECT GetFrameRect() { return m_rcFrame; }
    virtual void SetFrameUIData(const CFrameUIData& data) { m_frame = data; }
    virtual const CFrameUIData& GetFrameUIData() { return m_frame; }
    virtual void SetDrawMode(unsigned long mode) { m_nDrawMode = mode; }
    virtual unsigned long GetDrawMode() { return m_nDrawMode; }
    /// The icon index of the border images; an index that an image does not have is treated as 0.
    virtual void SetImageIndex(int index) { m_nImageIndex = index; }
    virtual int GetImageIndex() { return m_nImageIndex; }

    void SetBackImage(CDUIImageListPtr image) { m_pBackImage = std::move(image); }
    CDUIImageListPtr GetBackImage() const { return m_pBackImage; }

protected:
    CDUIFramePanel(const CDUIFramePanel& other) = default;

    /// Returns the four strips of the border.
    void GetDrawFrame(RECT& left, RECT& right, RECT& top, RECT& bottom);
    void DrawFrameWithColor(HDC hdc);
    /// Takes the widths from the images; 0 for a missing image.
    void CalculateImageFrame();
    void DrawFrameWithImage(HDC hdc);

private:
    CFrameUIData m_frame;
    CDUIImageListPtr m_pBackImage;
    unsigned long m_nDrawMode = 0;
    RECT m_rcFrame{0, 0, 0, 0};
    int m_nImageIndex = 0;
};

}  // namespace DUI
