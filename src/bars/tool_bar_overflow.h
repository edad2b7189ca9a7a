#pragma once

#include <functional>

#include <qvui/controls/button.h>

namespace DUI {

/// The button at the end of a tool bar whose items do not all fit. Without an image it draws a double
/// arrowhead that points along the bar.
class ToolBarOverflow : public CDUIButton {
public:
    explicit ToolBarOverflow(bool isVertical);

    /// Called on activation; empty once the bar has been destroyed.
    std::function<void()> onActivate;

    CRefPtr<IDUIControl> Clone() override;
    /// Opens the menu; sends no DUINOTIFY_CLICK.
    BOOL Activate() override;
    BOOL EstimateSize(SIZE available, SIZE& size) override;
    /// A strip with icons for the states of a button; null draws the arrowhead.
    void SetImage(CDUIImageListPtr image);

protected:
    void PaintBkgnd(HDC hdc) override;
    void PaintForgnd(HDC hdc) override;

private:
    bool m_isVertical;
};

}  // namespace DUI
