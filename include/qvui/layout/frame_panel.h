#pragma once

#include <qvui/foundation/color.h>
#include <qvui/framework/control_of.h>
#include <qvui/render/image_list.h>

namespace DUI {

/// The border of a frame panel. Copies share the images; each may be null.
struct CFrameUIData {
    CDUIImageListPtr m_pLeftImage;
    CDUIImageListPtr m_pRightImage;
    CDUIImageListPtr m_pTopImage;
    CDUIImageListPtr m_pBottomImage;
    CARGB m_borderColor;
    CString m_strBorderColor;  // the skin's name of the colour, looked up again at every painting
};

/// How a frame panel draws its border; every other number counts as images.
enum FRAMEPANEL_DRAW : unsigned long {
    FRAMEPANEL_USE_COLOR = 1,
    FRAMEPANEL_USE_IMAGE = 2,
};

/// Draws a border, in a colour or of images, and gives its first child the space inside. The border is within
/// the content rectangle; its thicknesses are border_rect's, or the cell sizes of the images.
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
    // The setters store and ask for neither layout nor repaint.
    /// The thicknesses of the four sides.
    virtual void SetFrameRect(const RECT& rect) { m_rcFrame = rect; }
    virtual RECT GetFrameRect() { return m_rcFrame; }
    virtual void SetFrameUIData(const CFrameUIData& data) { m_frame = data; }
    virtual const CFrameUIData& GetFrameUIData() { return m_frame; }
    virtual void SetDrawMode(unsigned long mode) { m_nDrawMode = mode; }
    virtual unsigned long GetDrawMode() { return m_nDrawMode; }
    /// The cell of the border images; one that an image does not have counts as 0.
    virtual void SetImageIndex(int index) { m_nImageIndex = index; }
    virtual int GetImageIndex() { return m_nImageIndex; }

    void SetBackImage(CDUIImageListPtr image) { m_pBackImage = std::move(image); }
    CDUIImageListPtr GetBackImage() const { return m_pBackImage; }

protected:
    CDUIFramePanel(const CDUIFramePanel& other) = default;

    /// The four strips of the border.
    void GetDrawFrame(RECT& left, RECT& right, RECT& top, RECT& bottom);
    void DrawFrameWithColor(HDC hdc);
    /// Takes the thicknesses from the images; 0 for one that is not there.
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
