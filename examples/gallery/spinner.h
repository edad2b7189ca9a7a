#pragma once

#include <qvui/qvui.h>

/// A control of the application's own, with the tag "spinner": it runs through the icons of a strip until it
/// is stopped.
///
/// Skin attributes: icon.
class Spinner : public DUI::ControlOf<Spinner, DUI::CDUIAnimationControl> {
    friend ControlOf;

public:
    Spinner() = default;
    static const DUI::ControlClass& Class();

    void SetIcons(DUI::CDUIImageListPtr icons) { m_pIcons = std::move(icons); }
    /// Starts from the icon that shows; nothing happens when it runs already.
    void Start();
    void Stop();
    void OnAnimationStep(int nTotalFrame, int nCurFrame, int nAnimationID) override;

protected:
    Spinner(const Spinner& other) = default;

    void PaintForgnd(HDC hdc) override;

private:
    DUI::CDUIImageListPtr m_pIcons;
    int m_nIcon = 0;
};
