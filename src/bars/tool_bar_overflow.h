#pragma once

#include <functional>

#include <qvui/controls/button.h>

namespace DUI {

/// The button at the end of a tool bar that has no room for all its items. Without an image of its own it
/// draws a double arrowhead that points along the bar.
class ToolBarOverflow : public CDUIButton {
public:
    explicit ToolBarOverflow(bool isVertical);

    /// What it does when it is activated; empty once its bar is gone.
    std::function<void()> onActivate;

    CRefPtr<IDUIControl> Clone() override;
    /// No DUINOTIFY_CLICK: what the user gets is the menu.
    BOOL Activate() override;
    BOOL EstimateSize(SIZE available, SIZE& size) override;
    /// A strip with icons for the states of a button; null for the drawn arrowhead.
    void SetImage(CDUIImageListPtr image);

protected:
    void PaintBkgnd(HDC hdc) override;
    void PaintForgnd(HDC hdc) override;

private:
    bool m_isVertical;
};

}  // namespace DUI
