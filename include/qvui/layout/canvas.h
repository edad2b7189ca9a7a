#pragma once

#include <qvui/framework/control_of.h>
#include <qvui/render/background.h>

namespace DUI {

/// A container that paints a frame behind its children. The first child gets the content rectangle; the
/// others are placed by their "position". Base class of all layouts.
///
/// Skin attributes: frame_style.
class QVUI_API CDUICanvas : public ControlOf<CDUICanvas, CDUIControlBase> {
    friend ControlOf;

public:
    CDUICanvas() = default;
    static const ControlClass& Class();

protected:
    /// Paints the frame in the content rectangle.
    void PaintBkgnd(HDC hdc) override;

public:
    /// Null for no frame. Does not repaint.
    virtual void SetFrameBK(CRefPtr<CDUIFrameBK> frame) { m_pFrameBK = std::move(frame); }
    virtual CRefPtr<CDUIFrameBK> GetCanvasUIData() { return m_pFrameBK; }

protected:
    /// The copy shares the frame.
    CDUICanvas(const CDUICanvas& other) = default;

private:
    CRefPtr<CDUIFrameBK> m_pFrameBK;
};

}  // namespace DUI
