#pragma once

#include <qvui/framework/control_of.h>

namespace DUI {

/// Which pane is resized when the splitter's own size changes.
enum SPLIT_RESIZE : DWORD {
    SPLIT_RESIZE_PROPORTIONAL = 0,  // both, keeping their ratio
    SPLIT_RESIZE_FIRST = 1,         // "size_left", "size_top"
    SPLIT_RESIZE_SECOND = 2,        // "size_right", "size_bottom"
    SPLIT_RESIZE_ALL = 3,           // "size_all": same as 0
};

/// Two panes, the first and second child, with a bar between them that the user drags. With any other number
/// of children nothing is laid out. Sizes and positions are in pixels along the direction in which the panes
/// follow one another; positions are relative to the content rectangle's top or left edge. The bar is 5
/// pixels wide.
///
/// Under the proportional styles, a resize keeps the first pane's share of the content rectangle without the
/// bar. The share is that of the last position set by a drag, SetSplitPos or split_pos. Resizing does not
/// change it, so a window that shrinks and grows again restores the position.
///
/// A drag ends with the release of the left button; if another control receives the release, it ends with the
/// next move over the bar. The resize cursor is shown on the bar and during a drag; otherwise the arrow is
/// shown between the edges.
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
    /// The minimum size of each pane in a drag; negative values are treated as 0. Nothing else respects it.
    virtual void SetSplitMinSize(int first, int second);
    /// Returns TRUE.
    virtual int GetSplitMinSize(int& first, int& second);
    /// The start of the bar, limited to the content rectangle; before the first layout, any non-negative
    /// value.
    virtual void SetSplitPos(int pos);
    virtual int GetSplitPos() const;
    virtual void SetResizeStyle(DWORD style);
    virtual DWORD GetResizeStyle() const;
    /// Whether the second pane is below the first.
    virtual BOOL IsVertical() = 0;

    /// Starts a drag, wherever the pointer is. Returns 0.
    LRESULT OnLButtonDown();
    /// Ends a drag. Returns 0.
    LRESULT OnLButtonUp();
    /// While dragging, moves the start of the bar to the coordinate of a client point.
    void OnMouseMove(POINT point);
    /// Returns the rectangle of the bar in client coordinates.
    RECT GetSplitterRect();

protected:
    /// Returns the position after the content rectangle has changed.
    int CalcSplitPos(const RECT& oldContent, const RECT& newContent);
    void LayoutSplit(int pos);
    /// Stores the position's share of the content rectangle, which resizes keep.
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

/// A splitter with the second pane below the first.
class QVUI_API CDUIVerticalSplit : public ControlOf<CDUIVerticalSplit, CDUISplitBase> {
    friend ControlOf;

public:
    CDUIVerticalSplit() = default;
    static const ControlClass& Class();

    BOOL IsVertical() override { return TRUE; }

protected:
    CDUIVerticalSplit(const CDUIVerticalSplit& other) = default;
};

/// A splitter with the second pane to the right of the first.
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
