#pragma once

#include <qvui/framework/control_of.h>
#include <qvui/render/image_list.h>

namespace DUI {

/// One icon of an image strip, which the application may step through. A single picture without a draw style
/// stands in the middle at its own size; everything else fills the content rectangle.
///
/// Skin attributes: icon.
class QVUI_API CDUIPictureBox : public ControlOf<CDUIPictureBox, CDUIControlBase> {
    friend ControlOf;

public:
    CDUIPictureBox() = default;
    ~CDUIPictureBox() override;
    static const ControlClass& Class();

    /// One icon and the margin.
    BOOL EstimateSize(SIZE available, SIZE& size) override;

protected:
    void PaintBkgnd(HDC hdc) override;

public:
    /// Asks for no repaint.
    virtual void SetImage(CDUIImageListPtr image);
    virtual CDUIImageListPtr GetImage();
    /// 0 without a picture.
    virtual int GetIconCount();
    /// Asks for no repaint; an index that the image lacks changes nothing.
    virtual void SetCurrentIconIndex(int index);
    virtual int GetCurrentIconIndex() const;

protected:
    CDUIPictureBox(const CDUIPictureBox& other) = default;

private:
    CDUIImageListPtr m_pImage;
    int m_nIconIndex = 0;
};

}  // namespace DUI
