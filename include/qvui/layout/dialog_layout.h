#pragma once

#include <qvui/layout/canvas.h>

namespace DUI {

/// Places its children by their "position", independent of its own rectangle, and asks its parent for the
/// size from the origin to the farthest child. The size is computed once, and again only after recalc was
/// set. The stretch bits are for the application's use.
///
/// Skin attributes: recalc.
class QVUI_API CDUIDialogLayout : public ControlOf<CDUIDialogLayout, CDUICanvas> {
    friend ControlOf;

public:
    CDUIDialogLayout();
    static const ControlClass& Class();

    void SetControlRect(const RECT& rect) override;
    /// Returns the dialog's size, whatever is available.
    BOOL EstimateSize(SIZE available, SIZE& size) override;

    /// Requests a layout, in which the size is recomputed.
    void Recalculate();

protected:
    CDUIDialogLayout(const CDUIDialogLayout& other) = default;

    /// Does nothing unless the size must be recomputed; otherwise lays out the children at their positions.
    void CalculateDlgSize();

private:
    int m_nWidth = 0;
    int m_nHeight = 0;
    int m_nRecalculate = 1;
};

}  // namespace DUI
