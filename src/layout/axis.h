#pragma once

#include <qvui/layout/linear_layout.h>

#include "foundation/rect.h"

/// The two directions in which a container arranges its children. All differences between horizontal and
/// vertical layouts and bars are defined here.
namespace DUI::axis {

struct Horizontal {
    using ScrollBar = CDUIHorizontalSB;
    static constexpr bool kIsVertical = false;
    static constexpr int kBackwardKey = VK_LEFT;
    static constexpr int kForwardKey = VK_RIGHT;

    static LONG Start(const RECT& rect) { return rect.left; }
    static LONGLONG Length(const RECT& rect) { return geometry::Width(rect); }
    static LONG Along(const SIZE& size) { return size.cx; }
    static LONG& Along(SIZE& size) { return size.cx; }
    /// A size of the given length along the axis that spans the rectangle across it.
    static SIZE Across(const RECT& rect, LONG length)
    {
        return {length, geometry::Narrow(geometry::Height(rect))};
    }
    /// A part of the rectangle along the axis that spans it across.
    static RECT Part(const RECT& rect, LONGLONG start, LONGLONG length)
    {
        return {geometry::Narrow(start), rect.top, geometry::Narrow(start + length), rect.bottom};
    }
    static ScrollBar* ScrollBarOf(CDUIControlBase& container) { return container.GetHorizontalSB(); }
    static void ReportContent(CDUIControlBase& container, const RECT& view, LONGLONG length)
    {
        container.ProcessHorizontalSB(view, geometry::Narrow(length), 0);
    }
};

struct Vertical {
    using ScrollBar = CDUIVerticalSB;
    static constexpr bool kIsVertical = true;
    static constexpr int kBackwardKey = VK_UP;
    static constexpr int kForwardKey = VK_DOWN;

    static LONG Start(const RECT& rect) { return rect.top; }
    static LONGLONG Length(const RECT& rect) { return geometry::Height(rect); }
    static LONG Along(const SIZE& size) { return size.cy; }
    static LONG& Along(SIZE& size) { return size.cy; }
    static SIZE Across(const RECT& rect, LONG length)
    {
        return {geometry::Narrow(geometry::Width(rect)), length};
    }
    static RECT Part(const RECT& rect, LONGLONG start, LONGLONG length)
    {
        return {rect.left, geometry::Narrow(start), rect.right, geometry::Narrow(start + length)};
    }
    static ScrollBar* ScrollBarOf(CDUIControlBase& container) { return container.GetVerticalSB(); }
    static void ReportContent(CDUIControlBase& container, const RECT& view, LONGLONG length)
    {
        container.ProcessVerticalSB(view, geometry::Narrow(length), 0);
    }
};

template <class Layout>
struct OfLayout;
template <>
struct OfLayout<CDUIHorizontalLayout> {
    using Axis = Horizontal;
};
template <>
struct OfLayout<CDUIVerticalLayout> {
    using Axis = Vertical;
};

/// The axis of a horizontal or vertical layout class.
template <class Layout>
using Of = typename OfLayout<Layout>::Axis;

}  // namespace DUI::axis
