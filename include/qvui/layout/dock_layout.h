#pragma once

#include <qvui/layout/canvas.h>

namespace DUI {

class QVUI_API IDUIDockLayout : public CDUICanvas {
public:
    /// Whether the last child takes all that is left. Asks for no layout.
    virtual void SetLastFill(int fill) = 0;
    virtual int GetLastFill() const = 0;

protected:
    IDUIDockLayout() = default;
    IDUIDockLayout(const IDUIDockLayout& other) = default;
};

/// Docks its children one after another at the edge of the space that is still free that their "dock_style"
/// names; each takes the width or height that it asks for, at most what is free. Invisible children take
/// their space too. A child without an edge gets nothing.
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

    /// Places a child and takes its part off the free rectangle.
    void DockControl(CRefPtr<IDUIControl> child, RECT& free, int isLast);

private:
    int m_nLastFill = 0;
};

}  // namespace DUI
