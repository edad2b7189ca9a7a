#pragma once

#include <qvui/framework/control_of.h>
#include <qvui/render/background.h>

namespace DUI {

/// A container that paints a frame behind its children, gives the first of them its content rectangle and
/// leaves the others where their "position" puts them. The base of all layouts.
///
/// Skin attributes: frame_style.
class QVUI_API CDUICanvas : public ControlOf<CDUICanvas, CDUIControlBase> {
    friend ControlOf;

public:
    CDUICanvas() = default;
    static const ControlClass& Class();

protected:
    /// The frame, over the content rectangle.
    void PaintBkgnd(HDC hdc) override;

public:
    /// Null for no frame. Asks for no repaint.
    virtual void SetFrameBK(CRefPtr<CDUIFrameBK> frame) { m_pFrameBK = std::move(frame); }
    virtual CRefPtr<CDUIFrameBK> GetCanvasUIData() { return m_pFrameBK; }

protected:
    /// The copy shares the frame.
    CDUICanvas(const CDUICanvas& other) = default;

private:
    CRefPtr<CDUIFrameBK> m_pFrameBK;
};

}  // namespace DUI
