#pragma once

#include <qvui/framework/control_of.h>
#include <qvui/render/image_list.h>

namespace DUI {

/// A text, with a shadow when wanted, over a background image.
///
/// Skin attributes: enable_shadowtext, shadowtext_color, back_image.
class QVUI_API CDUILabel : public ControlOf<CDUILabel, CDUIControlBase> {
    friend ControlOf;

public:
    CDUILabel() = default;
    ~CDUILabel() override;
    static const ControlClass& Class();

    /// The text on one line, without the margin. FALSE, with `size` untouched, without a text, a text style
    /// or its normal font.
    BOOL EstimateSize(SIZE available, SIZE& size) override;

protected:
    LRESULT ProcessEvent(const tagDUIEvent& event, BOOL& bHandled) override;
    void PaintBkgnd(HDC hdc) override;
    void PaintText(HDC hdc) override;

    CDUILabel(const CDUILabel& other) = default;

    /// The disabled, hot or normal colour; a press does not change it. Black without a text style.
    COLORREF GetLabelTextColor();
    /// The disabled, pushed, hot or normal font, the normal one where the style lacks it; null without a
    /// style.
    HFONT GetFontByStatus();

private:
    static const AttributeTable<CDUILabel>& LabelAttributes();

    bool m_bShadow = false;
    COLORREF m_shadowColor = 0;
    CDUIImageListPtr m_pBackImage;
};

}  // namespace DUI
