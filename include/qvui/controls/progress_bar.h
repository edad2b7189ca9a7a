#pragma once

#include <qvui/framework/control_of.h>
#include <qvui/render/image_list.h>

namespace DUI {

/// The image of a progress bar; copies share it.
struct CProgressBarUIData {
    CDUIImageListPtr m_pImage;  // icon 0 the empty bar, icon 1 the full one
};

/// A position in a range, shown as the part of a full bar that covers an empty one. A strip of fewer than two
/// icons shows nothing.
///
/// Skin attributes: back_image, range, pos.
/// Notifications: DUINOTIFY_PROGRESSPOS, wParam the new position, when it changed.
class QVUI_API CDUIProgressBar : public ControlOf<CDUIProgressBar, CDUIControlBase> {
    friend ControlOf;

public:
    CDUIProgressBar() = default;
    ~CDUIProgressBar() override;
    static const ControlClass& Class();

    /// One icon and the margin.
    BOOL EstimateSize(SIZE available, SIZE& size) override;

protected:
    void PaintBkgnd(HDC hdc) override;
    void PaintForgnd(HDC hdc) override;

public:
    /// A maximum below the minimum becomes the minimum. Moves the position into the range without a
    /// notification; asks for no repaint.
    virtual void SetRange(int nMin, int nMax);
    virtual void GetRange(int& nMin, int& nMax);
    virtual void SetPos(int nPos);
    virtual int GetPos();
    /// FALSE when the range stopped the move.
    virtual BOOL OffsetPos(int nOffset);
    /// Asks for no repaint.
    virtual void SetUIData(const CProgressBarUIData& data);
    virtual const CProgressBarUIData& GetUIData();
    virtual BOOL IsVertical() = 0;

protected:
    CDUIProgressBar(const CDUIProgressBar& other) = default;

private:
    bool HasBothImages() const;
    RECT GetProgressRect();

    int m_nMin = 0;
    int m_nMax = 0;
    int m_nPos = 0;
    CProgressBarUIData m_uiData;
};

/// Fills from the left.
class QVUI_API CDUIHorizontalProgressBar : public ControlOf<CDUIHorizontalProgressBar, CDUIProgressBar> {
    friend ControlOf;

public:
    static const ControlClass& Class();
    BOOL IsVertical() override { return FALSE; }
};

/// Fills from the bottom.
class QVUI_API CDUIVerticalProgressBar : public ControlOf<CDUIVerticalProgressBar, CDUIProgressBar> {
    friend ControlOf;

public:
    static const ControlClass& Class();
    BOOL IsVertical() override { return TRUE; }
};

}  // namespace DUI
