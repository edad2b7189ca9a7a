#include <qvui/layout/split.h>

#include <algorithm>

#include "foundation/rect.h"

namespace DUI {
namespace {

using namespace geometry;

constexpr int kBar = 5;
// A smaller share is treated as unset.
constexpr double kLeastRatio = 0.0001;
// Larger than the rounding error of a product that should be whole, smaller than any other fraction that
// occurs.
constexpr double kRounding = 1e-7;

enum DragLimit { kFree, kAtFirstMin, kAtSecondMin };

// The first matching word of an attribute applies.
constexpr WordBit kResizeWords[] = {{"size_left", SPLIT_RESIZE_FIRST},
                                    {"size_right", SPLIT_RESIZE_SECOND},
                                    {"size_top", SPLIT_RESIZE_FIRST},
                                    {"size_bottom", SPLIT_RESIZE_SECOND},
                                    {"size_all", SPLIT_RESIZE_ALL}};

const AttributeTable<CDUISplitBase>& Attributes()
{
    static const AttributeTable<CDUISplitBase> table{
        {"split_style",
         {AttributeKind::Choice, "", "size_left|size_right|size_top|size_bottom|size_all"},
         "The pane that takes up a change of size; without one, and with size_all, both keep their "
         "proportion.",
         [](CDUISplitBase& split, const CString& value) {
             split.SetResizeStyle(FindFirstWord(value, kResizeWords));
         }},
        {"split_pos",
         {AttributeKind::Integer, "0"},
         "The size of the first pane, in pixels.",
         &CDUISplitBase::SetSplitPos},
        {"split_min",
         {AttributeKind::IntPair, "0,0"},
         "What dragging leaves of the first and of the second pane.",
         [](CDUISplitBase& split, const CString& value) {
             const SIZE minima = ReadPair(value.Left(126));
             split.SetSplitMinSize(minima.cx, minima.cy);
         }},
    };
    return table;
}

LONGLONG Extent(const RECT& rect, bool isVertical)
{
    return isVertical ? Height(rect) : Width(rect);
}

// Returns the part of the content rectangle between two positions.
RECT Part(const RECT& content, bool isVertical, LONGLONG from, LONGLONG to)
{
    return isVertical
               ? RECT{content.left, Narrow(content.top + from), content.right, Narrow(content.top + to)}
               : RECT{Narrow(content.left + from), content.top, Narrow(content.left + to), content.bottom};
}

// Keeps the bar inside the content; at the start if there is no room for it.
int ClampPosition(LONGLONG position, LONGLONG extent)
{
    return Narrow(std::max<LONGLONG>(0, std::min(position, extent - kBar)));
}

}  // namespace

const ControlClass& CDUISplitBase::Class()
{
    static const ControlClass info("CDUISplitBase", &CDUIControlBase::Class(),
                                   "Two panes with a bar between them that the user drags.", {"split"},
                                   &Attributes());
    return info;
}

CDUISplitBase::CDUISplitBase()
{
    ModifyStyle(0, DUISTYLE_CURSOR);
}

CDUISplitBase::~CDUISplitBase() = default;

// --- places ------------------------------------------------------------------------------------------------

void CDUISplitBase::SetControlRect(const RECT& rect)
{
    const RECT oldContent = GetPlacedContent();
    StoreControlRect(rect);
    LayoutSplit(CalcSplitPos(oldContent, GetContentRect()));
}

// Returns an empty rectangle before the first layout, even with negative margins.
RECT CDUISplitBase::GetPlacedContent()
{
    const RECT rect = GetControlRect();
    return IsRectEmpty(&rect) ? RECT{0, 0, 0, 0} : GetContentRect();
}

int CDUISplitBase::CalcSplitPos(const RECT& oldContent, const RECT& newContent)
{
    const LONGLONG oldExtent = Extent(oldContent, IsVertical());
    const LONGLONG newExtent = Extent(newContent, IsVertical());
    LONGLONG position = m_nSplitPos;
    switch (m_dwResizeStyle) {
        case SPLIT_RESIZE_FIRST:
            if (position < oldExtent)
                position += newExtent - oldExtent;
            break;
        case SPLIT_RESIZE_SECOND:
            break;
        default:
            if (m_fRatio <= kLeastRatio && position < oldExtent && oldExtent > kBar)
                m_fRatio = static_cast<double>(position) / static_cast<double>(oldExtent - kBar);
            if (m_fRatio > kLeastRatio)
                position =
                    static_cast<LONGLONG>(static_cast<double>(newExtent - kBar) * m_fRatio + kRounding);
            break;
    }
    return ClampPosition(position, newExtent);
}

void CDUISplitBase::LayoutSplit(int pos)
{
    if (GetControlCount() != 2)
        return;
    m_nSplitPos = pos;
    const RECT content = GetContentRect();
    const bool isVertical = IsVertical() != FALSE;
    const LONGLONG extent = Extent(content, isVertical);
    const CRefPtr<IDUIControl> second = GetControlByIndex(1);
    GetControlByIndex(0)->SetControlRect(Part(content, isVertical, 0, pos));
    second->SetControlRect(Part(content, isVertical, LONGLONG{pos} + kBar, extent));
    UpdateLayout(FALSE, nullptr);
}

RECT CDUISplitBase::GetSplitterRect()
{
    return Part(Shrink(GetControlRect(), GetMargin()), IsVertical() != FALSE, m_nSplitPos,
                LONGLONG{m_nSplitPos} + kBar);
}

// --- settings ----------------------------------------------------------------------------------------------

void CDUISplitBase::SetSplitMinSize(int first, int second)
{
    m_nFirstMin = std::max(0, first);
    m_nSecondMin = std::max(0, second);
}

int CDUISplitBase::GetSplitMinSize(int& first, int& second)
{
    first = m_nFirstMin;
    second = m_nSecondMin;
    return TRUE;
}

void CDUISplitBase::SetSplitPos(int pos)
{
    m_nSplitPos = std::max(0, pos);
    const RECT content = GetPlacedContent();
    if (!IsRectEmpty(&content))
        LayoutSplit(ClampPosition(m_nSplitPos, Extent(content, IsVertical())));
    SaveCurrentRadtio();
}

int CDUISplitBase::GetSplitPos() const
{
    return m_nSplitPos;
}

void CDUISplitBase::SetResizeStyle(DWORD style)
{
    m_dwResizeStyle = style;
}

DWORD CDUISplitBase::GetResizeStyle() const
{
    return m_dwResizeStyle;
}

// Stores 0 if there is no room for panes; the next resize with enough room then computes the share from the
// position.
void CDUISplitBase::SaveCurrentRadtio()
{
    const LONGLONG room = Extent(GetPlacedContent(), IsVertical()) - kBar;
    m_fRatio = room > 0 && m_nSplitPos <= room ? m_nSplitPos / static_cast<double>(room) : 0;
}

// --- dragging ----------------------------------------------------------------------------------------------

LRESULT CDUISplitBase::ProcessEvent(const tagDUIEvent& event, BOOL& bHandled)
{
    const RECT bar = GetSplitterRect();
    const bool isOnBar = PtInRect(&bar, event.ptMouse) != FALSE;
    switch (event.Type) {
        case DUIEVENT_SETCURSOR:
            ShowCursor(isOnBar || m_bDragging);
            break;
        case DUIEVENT_LBUTTONDOWN:
            if (isOnBar)
                OnLButtonDown();
            break;
        case DUIEVENT_LBUTTONUP:
            OnLButtonUp();
            break;
        case DUIEVENT_MOUSEMOVE:
            // Moves during a capture have no sender: a move with a sender means that the button was released
            // elsewhere.
            if (event.pSender)
                OnLButtonUp();
            OnMouseMove(event.ptMouse);
            break;
        default:
            return bHandled ? 0 : CDUIControlBase::ProcessEvent(event, bHandled);
    }
    bHandled = TRUE;
    return 0;
}

// Also sets the arrow, because transparent panes pass their events to the splitter.
void CDUISplitBase::ShowCursor(bool isResize)
{
    ::SetCursor(LoadCursorA(nullptr, !isResize ? IDC_ARROW : IsVertical() ? IDC_SIZENS : IDC_SIZEWE));
}

LRESULT CDUISplitBase::OnLButtonDown()
{
    m_nDragLimit = kFree;
    m_bDragging = TRUE;
    return 0;
}

LRESULT CDUISplitBase::OnLButtonUp()
{
    m_nDragLimit = kFree;
    m_bDragging = FALSE;
    return 0;
}

void CDUISplitBase::OnMouseMove(POINT point)
{
    if (!m_bDragging)
        return;
    const RECT content = GetContentRect();
    const LONGLONG wanted = IsVertical() ? Wide(point.y) - content.top : Wide(point.x) - content.left;
    const LONGLONG most = Extent(content, IsVertical()) - m_nSecondMin - kBar;
    if (wanted > m_nSplitPos && m_nDragLimit != kAtSecondMin) {
        m_nDragLimit = wanted >= most ? kAtSecondMin : kFree;
        SetSplitPos(Narrow(std::min(wanted, most)));
    } else if (wanted < m_nSplitPos && m_nDragLimit != kAtFirstMin) {
        m_nDragLimit = wanted <= m_nFirstMin ? kAtFirstMin : kFree;
        SetSplitPos(Narrow(std::max<LONGLONG>(wanted, m_nFirstMin)));
    }
}

// --- the two directions ------------------------------------------------------------------------------------

const ControlClass& CDUIVerticalSplit::Class()
{
    static const ControlClass info(
        "CDUIVerticalSplit", &CDUISplitBase::Class(),
        "Two panes, one below the other, with a bar between them that the user drags.", {});
    return info;
}

const ControlClass& CDUIHorizontalSplit::Class()
{
    static const ControlClass info("CDUIHorizontalSplit", &CDUISplitBase::Class(),
                                   "Two panes, side by side, with a bar between them that the user drags.",
                                   {});
    return info;
}

}  // namespace DUI
