#pragma once

#include <cstdlib>

#include <qvui/framework/control.h>

namespace DUI {

/// The row of a list or tree that was pressed last. A click may scroll the rows or change their heights, and
/// then the second press of a double click comes to another row at the same place; it is meant for the row
/// that the first one hit.
class PressedRow {
public:
    /// Notes a single press, in client coordinates.
    void Note(IDUIControl* row, POINT point)
    {
        m_row = row;
        m_point = point;
    }

    /// The row that a double press on `hit` is meant for.
    IDUIControl& RowFor(IDUIControl& hit, POINT point) const
    {
        const bool isSamePlace =
            IsNear(point.x, m_point.x, SM_CXDOUBLECLK) && IsNear(point.y, m_point.y, SM_CYDOUBLECLK);
        return isSamePlace && !m_row.IsNull() && m_row->IsVisible(FALSE) ? *m_row.GetPtr() : hit;
    }

    /// For a row that leaves the list.
    void Forget(const IDUIControl* row)
    {
        if (m_row.GetPtr() == row)
            m_row = nullptr;
    }
    IDUIControl* GetRow() const { return m_row.GetPtr(); }

private:
    static bool IsNear(LONG a, LONG b, int metric) { return std::labs(a - b) <= GetSystemMetrics(metric); }

    CRefPtr<IDUIControl> m_row;
    POINT m_point{0, 0};
};

}  // namespace DUI
