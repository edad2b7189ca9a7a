#pragma once

#include <qvui/framework/control_of.h>

namespace DUI {

/// Which pane takes up a change of the splitter's own size.
enum SPLIT_RESIZE : DWORD {
    SPLIT_RESIZE_PROPORTIONAL = 0,  // both, in their proportion
    SPLIT_RESIZE_FIRST = 1,         // "size_left", "size_top"
    SPLIT_RESIZE_SECOND = 2,        // "size_right", "size_bottom"
    SPLIT_RESIZE_ALL = 3,           // "size_all": as 0
};

/// Two panes, the first and the second child, with a bar between them that the user drags. With any other
/// number of children nothing is laid out. Sizes and positions are pixels along the direction in which the
/// panes follow one another, positions counted from the content rectangle's top or left edge; the bar takes 5
/// of them.
///
/// Under the proportional styles a resize keeps the share that the first pane has of the content rectangle
/// without the bar. The share is that of the last position that was set, by a drag, SetSplitPos or split_pos;
/// resizes do not change it, so a window that shrinks and grows again comes back to where it was.
///
/// A drag ends with the release of the left button; when that goes to another control, with the next move
/// over the bar. The resize cursor shows on the bar, and during a drag; elsewhere between the edges the arrow
/// does.
///
/// Skin attributes: split_style, split_pos, split_min.
class QVUI_API CDUISplitBase : public ControlOf<CDUISplitBase, CDUIControlBase> {
    friend ControlOf;

public:
    CDUISplitBase();
    ~CDUISplitBase() override;
    static const ControlClass& Class();

    void SetControlRect(const RECT& rect) override;

protected:
    CDUISplitBase(const CDUISplitBase& other) = default;

    LRESULT ProcessEvent(const tagDUIEvent& event, BOOL& bHandled) override;

public:
    /// What a drag leaves of each pane; negative numbers count as 0. Nothing else keeps to it.
    virtual void SetSplitMinSize(int first, int second);
    /// TRUE.
    virtual int GetSplitMinSize(int& first, int& second);
    /// Where the bar starts, within the content rectangle; before the first layout any number that is not
    /// negative.
    virtual void SetSplitPos(int pos);
    virtual int GetSplitPos() const;
    virtual void SetResizeStyle(DWORD style);
    virtual DWORD GetResizeStyle() const;
    /// Whether the second pane is below the first.
    virtual BOOL IsVertical() = 0;

    /// Begins a drag, wherever the pointer is; 0.
    LRESULT OnLButtonDown();
    /// Ends it; 0.
    LRESULT OnLButtonUp();
    /// Moves the bar's start to a client point's coordinate while it is dragged.
    void OnMouseMove(POINT point);
    /// Where the bar is, client coordinates.
    RECT GetSplitterRect();

protected:
    /// The position after the content rectangle changed from one to another.
    int CalcSplitPos(const RECT& oldContent, const RECT& newContent);
    void LayoutSplit(int pos);
    /// Makes the position's share of the content rectangle the one that resizes keep.
    void SaveCurrentRadtio();

private:
    RECT GetPlacedContent();
    void ShowCursor(bool isResize);

    int m_nSplitPos = 0;
    int m_nFirstMin = 0;
    int m_nSecondMin = 0;
    double m_fRatio = 0;
    BOOL m_bDragging = FALSE;
    int m_nDragLimit = 0;
    DWORD m_dwResizeStyle = SPLIT_RESIZE_PROPORTIONAL;
};

/// The second pane below the first.
class QVUI_API CDUIVerticalSplit : public ControlOf<CDUIVerticalSplit, CDUISplitBase> {
    friend ControlOf;

public:
    CDUIVerticalSplit() = default;
    static const ControlClass& Class();

    BOOL IsVertical() override { return TRUE; }

protected:
    CDUIVerticalSplit(const CDUIVerticalSplit& other) = default;
};

/// The second pane to the right of the first.
class QVUI_API CDUIHorizontalSplit : public ControlOf<CDUIHorizontalSplit, CDUISplitBase> {
    friend ControlOf;

public:
    CDUIHorizontalSplit() = default;
    static const ControlClass& Class();

    BOOL IsVertical() override { return FALSE; }

protected:
    CDUIHorizontalSplit(const CDUIHorizontalSplit& other) = default;
};

}  // namespace DUI
