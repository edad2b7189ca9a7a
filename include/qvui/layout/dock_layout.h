#pragma once

#include <qvui/layout/canvas.h>

namespace DUI {

class QVUI_API IDUIDockLayout : public CDUICanvas {
public:
    /// Whether the last child takes all remaining space. Does not request a layout.
    virtual void SetLastFill(int fill) = 0;
    virtual int GetLastFill() const = 0;

protected:
    IDUIDockLayout() = default;
    IDUIDockLayout(const IDUIDockLayout& other) = default;
};

/// Docks its children one after another at an edge of the remaining free space, which their "dock_style"
/// selects. Each takes the width or height that it asks for, limited to the free space. Invisible children
/// also take space. A child without an edge gets none.
///
/// Skin attributes: fill_last.
class QVUI_API CDUIDockLayout : public ControlOf<CDUIDockLayout, IDUIDockLayout> {
    friend ControlOf;

public:
    CDUIDockLayout();
    static const ControlClass& Class();

    void SetControlRect(const RECT& rect) override;

    void SetLastFill(int fill) override { m_nLastFill = fill; }
    int GetLastFill() const override { return m_nLastFill; }

protected:
    CDUIDockLayout(const CDUIDockLayout& other) = default;

    /// Places a child and removes its part from the free rectangle.
    void DockControl(CRefPtr<IDUIControl> child, RECT& free, int isLast);

private:
    int m_nLastFill = 0;
};

}  // namespace DUI
