#pragma once

#include <qvui/qvui.h>

/// A control of the application's own, with the tag "tip_preview": draws its text as a tooltip with that
/// markup looks, as large as the text needs, from the left edge of its content rectangle.
class TipPreview : public DUI::ControlOf<TipPreview, DUI::CDUIControlBase> {
    friend ControlOf;

public:
    TipPreview() = default;
    static const DUI::ControlClass& Class();

protected:
    TipPreview(const TipPreview& other) = default;

    void PaintForgnd(HDC hdc) override;
};
