#pragma once

#include <qvui/controls/scrolling/scroll_bar.h>
#include <qvui/layout/canvas.h>

namespace DUI {

class QVUI_API IDUITileLayout : public CDUICanvas {
public:
    /// Sets the number of columns. 0 or a negative value: as many as fit the width. Does not request a
    /// layout.
    virtual void SetColumnCount(int count) = 0;
    /// Returns the value that was set, not the number computed by a layout.
    virtual int GetColumnCount() const = 0;

protected:
    IDUITileLayout() = default;
    IDUITileLayout(const IDUITileLayout& other) = default;
};

/// Places its visible children in columns of equal width, row by row. A row is as high as its highest child,
/// or as the layout's own "height". Without column_count, there are as many columns as the widest child needs
/// to reach the right edge. "padding" is the gap between columns. Content that is too high scrolls, with a
/// scroll bar in the skin's control style "cs_v_scrollbar".
///
/// Skin attributes: column_count, padding_height, vscroll_style.
class QVUI_API CDUITileLayout : public ControlOf<CDUITileLayout, IDUITileLayout> {
    friend ControlOf;

public:
    CDUITileLayout();
    ~CDUITileLayout() override;
    static const ControlClass& Class();

    void SetControlRect(const RECT& rect) override;

    /// Not owned by the caller; exists while the layout is attached to a window.
    CDUIVerticalSB* GetVerticalSB() override { return m_pScrollBar.GetPtr(); }

protected:
    /// The copy has its own scroll bar if the source has one.
    CDUITileLayout(const CDUITileLayout& other);

    void OnCreate() override;
    void OnDestroy() override;

public:
    void SetColumnCount(int count) override { m_nColumnCount = count < 0 ? 0 : count; }
    int GetColumnCount() const override { return m_nColumnCount; }

    /// In a layout whose column count is set to 1, scrolls the child's bottom edge to the layout's, or to the
    /// top. Other layouts, and layouts without a visible scroll bar, are not changed.
    void MakeSureControlVisible(IDUIControl* child);

    /// The gap between rows, in pixels. Does not request a layout.
    void SetRowGap(int gap) { m_nRowGap = gap; }
    int GetRowGap() const { return m_nRowGap; }

protected:
    /// Returns the number of columns for a rectangle when none is set; 0 without a visible child.
    int CalculateColumnCount(RECT& rect);

private:
    int ColumnsIn(RECT& view);
    void ReportContent(const RECT& view, int content);
    void Repaint();

    CRefPtr<CDUIVerticalSB> m_pScrollBar;
    int m_nColumnCount = 0;
    int m_nRowGap = 0;
};

}  // namespace DUI
