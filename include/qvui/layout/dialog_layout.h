#pragma once

#include <qvui/layout/canvas.h>

namespace DUI {

/// Leaves its children where their "position" puts them, whatever its own rectangle is, and asks its parent
/// for the size that reaches from the origin to the farthest of them. That size is worked out once, and again
/// only after recalc was set. The stretch bits are the application's.
///
/// Skin attributes: recalc.
class QVUI_API CDUIDialogLayout : public ControlOf<CDUIDialogLayout, CDUICanvas> {
    friend ControlOf;

public:
    CDUIDialogLayout();
    static const ControlClass& Class();

    void SetControlRect(const RECT& rect) override;
    /// The dialog's size, whatever is available.
    BOOL EstimateSize(SIZE available, SIZE& size) override;

    /// Works the size out anew in the layout that this asks for.
    void Recalculate();

protected:
    CDUIDialogLayout(const CDUIDialogLayout& other) = default;

    /// Does nothing unless the size is to be worked out; lays out the children where they are.
    void CalculateDlgSize();

private:
    int m_nWidth = 0;
    int m_nHeight = 0;
    int m_nRecalculate = 1;
};

}  // namespace DUI
