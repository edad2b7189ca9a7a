#pragma once

#include <qvui/controls/button.h>
#include <qvui/foundation/color.h>

namespace DUI {

/// The images of a track bar; copies share them.
struct CTrackBarUIData {
    CDUIImageListPtr m_pBackImage;   // icon 0 the empty track, icon 1 the part before the thumb
    CDUIImageListPtr m_pThumbImage;  // strip of the thumb's states
};

/// The thumb of a track bar, which handles the thumb's events.
class QVUI_API CDUITrackBarThumb : public ControlOf<CDUITrackBarThumb, CDUIButton> {
    friend ControlOf;

public:
    CDUITrackBarThumb() = default;
    static const ControlClass& Class();

protected:
    CDUITrackBarThumb(const CDUITrackBarThumb& other) = default;
};

/// A slider. The thumb is dragged, the track jumps to where it is pressed, and the arrow keys of its
/// direction move by a step. The track is drawn from an image or as a gradient of two colours; a track image
/// of fewer than two icons shows nothing.
///
/// The thumb is the first child. Offsets are pixels between the start of the track (left or bottom) and the
/// thumb.
///
/// Skin attributes: back_image, thumb_image, range, pos, step, percent, back_color.
/// Notifications: DUINOTIFY_TRACKPOS, wParam the new position, when it changed.
class QVUI_API CDUITrackBarBase : public ControlOf<CDUITrackBarBase, CDUIControlBase> {
    friend ControlOf;

public:
    CDUITrackBarBase();
    ~CDUITrackBarBase() override;
    static const ControlClass& Class();

    /// A thumb without a tooltip takes it too.
    void SetTooltip(const CString& tooltip) override;
    void SetControlRect(const RECT& rect) override;
    /// Room for one icon of the track and for the thumb, and the margin.
    BOOL EstimateSize(SIZE available, SIZE& size) override;

protected:
    void OnCreate() override;
    void OnDestroy() override;
    LRESULT ProcessEvent(const tagDUIEvent& event, BOOL& bHandled) override;
    void PaintBkgnd(HDC hdc) override;
    void PaintBorder(HDC) override {}

public:
    /// Swaps a minimum and maximum in the wrong order. Moves the position into the range without a
    /// notification.
    virtual void SetRange(int nMin, int nMax);
    virtual void GetRange(int& nMin, int& nMax);
    virtual void SetPos(int nPos);
    virtual int GetPos();
    /// What an arrow key moves by; values below 1 are ignored.
    virtual void SetStep(int nStep);
    virtual int GetStep();
    /// Borrowed; null when an application has taken it away.
    virtual CDUITrackBarThumb* GetThumbButton();
    virtual void SetUIData(const CTrackBarUIData& data);
    virtual const CTrackBarUIData& GetUIData();
    /// Shows the position and a percent sign below a horizontal track, which then takes the upper half.
    virtual void SetShowPercent(BOOL bShow);
    virtual BOOL IsVertical() = 0;

protected:
    CDUITrackBarBase(const CDUITrackBarBase& other);

    /// The offset that puts the thumb's middle at a point of the window.
    int CalculateThumbPos(POINT point);
    /// Moves to the position of an offset.
    void SetThumbPos(int nOffset);

private:
    static const AttributeTable<CDUITrackBarBase>& TrackBarAttributes();

    LONG GetThumbLength();
    LONGLONG GetFreeLength();
    LONGLONG GetThumbOffset();
    RECT GetThumbRect();
    void PlaceThumb();

    bool HandleEvent(const tagDUIEvent& event);
    bool MoveByKey(WPARAM key);
    void ListenToThumb(CRefPtr<CDUITrackBarThumb> thumb);
    void StartDrag();
    void EndDrag();

    RECT GetTrackRect();
    RECT GetFilledRect();
    void PaintPercent(HDC hdc);

    CRefPtr<CDUITrackBarThumb> m_pHeard;  // the thumb whose events come here first
    CTrackBarUIData m_uiData;
    int m_nMin = 0;
    int m_nMax = 0;
    int m_nPos = 0;
    BOOL m_bDragging = FALSE;
    int m_nStep = 1;
    BOOL m_bShowPercent = FALSE;
    BOOL m_bImageMode = TRUE;
    CARGB m_firstColor{0xFF, 0xFF, 0xFF, 0xFF};
    CARGB m_secondColor{0xFF, 0xFF, 0xFF, 0xFF};
};

/// Grows to the right.
class QVUI_API CDUIHorizontalTrackBar : public ControlOf<CDUIHorizontalTrackBar, CDUITrackBarBase> {
    friend ControlOf;

public:
    static const ControlClass& Class();
    BOOL IsVertical() override { return FALSE; }
};

/// Grows upwards.
class QVUI_API CDUIVerticalTrackBar : public ControlOf<CDUIVerticalTrackBar, CDUITrackBarBase> {
    friend ControlOf;

public:
    static const ControlClass& Class();
    BOOL IsVertical() override { return TRUE; }
};

}  // namespace DUI
