#include <qvui/controls/track_bar.h>

#include <cstdio>

#include <qvui/render/render_engine.h>

#include "controls/state_text.h"
#include "foundation/rect.h"
#include "framework/control_guard.h"
#include "skin/skin_access.h"

namespace DUI {

using namespace geometry;

// --- what tools know ---------------------------------------------------------------------------------------

const AttributeTable<CDUITrackBarBase>& CDUITrackBarBase::TrackBarAttributes()
{
    using Bar = CDUITrackBarBase;
    static const AttributeTable<Bar> attributes{
        {"back_image",
         {AttributeKind::Image, "", "", {.resets = "back_color"}},
         "Strip: icon 0 the empty track, icon 1 the part before the thumb.",
         [](Bar& bar, const CString& value) {
             bar.m_bImageMode = TRUE;
             bar.m_uiData.m_pBackImage = skin::Image(value);
         }},
        {"thumb_image", AttributeKind::Image, "Strip of the thumb: normal, hot, pushed, disabled.",
         [](Bar& bar, const CString& value) {
             CTrackBarUIData data = bar.GetUIData();
             data.m_pThumbImage = skin::Image(value);
             bar.SetUIData(data);
         }},
        {"range",
         {AttributeKind::IntPair, "0,0", "", {.resets = "pos"}},
         "Minimum and maximum, in either order.",
         &Bar::SetRange},
        {"pos", {AttributeKind::Integer, "0"}, "The position, cut to the range.", &Bar::SetPos},
        {"step", {AttributeKind::Integer, "1"}, "What an arrow key moves by, at least 1.", &Bar::SetStep},
        {"percent",
         {AttributeKind::Boolean, "false"},
         "Shows the position and a percent sign below a horizontal track.",
         &Bar::SetShowPercent},
        {"back_color",
         {AttributeKind::ColorPair, "#FFFFFFFF,#FFFFFFFF", "", {.resets = "back_image"}},
         "Draws the track as a gradient between two colours instead of an image. The first comma stands "
         "between "
         "them, so write them as #AARRGGBB or by name.",
         [](Bar& bar, const CString& value) {
             const int comma = value.Find(',');
             bar.m_bImageMode = FALSE;
             bar.m_firstColor = skin::Color(comma < 0 ? value : value.Left(comma));
             bar.m_secondColor = comma < 0 ? bar.m_firstColor : skin::Color(value.Mid(comma + 1));
         }},
    };
    return attributes;
}

const ControlClass& CDUITrackBarBase::Class()
{
    static const ControlClass theClass(
        "CDUITrackBarBase", &CDUIControlBase::Class(), "What horizontal and vertical track bars share.",
        {"track_bar"}, &TrackBarAttributes(),
        {{"DUINOTIFY_TRACKPOS", "The position changed; wParam is the new one."}});
    return theClass;
}

const ControlClass& CDUIHorizontalTrackBar::Class()
{
    static const ControlClass theClass("CDUIHorizontalTrackBar", &CDUITrackBarBase::Class(),
                                       "A slider that grows to the right.", {});
    return theClass;
}

const ControlClass& CDUIVerticalTrackBar::Class()
{
    static const ControlClass theClass("CDUIVerticalTrackBar", &CDUITrackBarBase::Class(),
                                       "A slider that grows upwards.", {});
    return theClass;
}

const ControlClass& CDUITrackBarThumb::Class()
{
    static const ControlClass theClass("CDUITrackBarThumb", &CDUIButton::Class(), "The thumb of a track bar.",
                                       {"track_bar_thumb"});
    return theClass;
}

// --- the thumb ---------------------------------------------------------------------------------------------

// --- life --------------------------------------------------------------------------------------------------

CDUITrackBarBase::CDUITrackBarBase()
{
    ModifyStyle(0, DUISTYLE_TABSTOP);
    const CRefPtr<CDUITrackBarThumb> thumb = new CDUITrackBarThumb;
    thumb->ModifyStyle(DUISTYLE_TABSTOP, 0);
    thumb->SetButtonStyle(BTNSTYLE_CENTER_ICON | BTNSTYLE_NO_TEXT);
    AddControl(thumb.GetPtr());
}

// The base has copied the thumb with the other children. A drag stays with the bar that it began on.
CDUITrackBarBase::CDUITrackBarBase(const CDUITrackBarBase& other)
    : ControlOf(other),
      m_uiData(other.m_uiData),
      m_nMin(other.m_nMin),
      m_nMax(other.m_nMax),
      m_nPos(other.m_nPos),
      m_nStep(other.m_nStep),
      m_bShowPercent(other.m_bShowPercent),
      m_bImageMode(other.m_bImageMode),
      m_firstColor(other.m_firstColor),
      m_secondColor(other.m_secondColor)
{
}

CDUITrackBarBase::~CDUITrackBarBase()
{
    ListenToThumb(nullptr);
}

// Holds the thumb as long as it knows this bar: an application may take the thumb away and keep it.
void CDUITrackBarBase::ListenToThumb(CRefPtr<CDUITrackBarThumb> thumb)
{
    SubclassControl(m_pHeard.GetPtr(), FALSE);
    m_pHeard = std::move(thumb);
    SubclassControl(m_pHeard.GetPtr(), TRUE);
}

void CDUITrackBarBase::OnCreate()
{
    CDUIControlBase::OnCreate();
    ListenToThumb(GetThumbButton());
}

void CDUITrackBarBase::OnDestroy()
{
    EndDrag();
    ListenToThumb(nullptr);
    CDUIControlBase::OnDestroy();
}

// --- state -------------------------------------------------------------------------------------------------

void CDUITrackBarBase::SetTooltip(const CString& tooltip)
{
    CDUIControlBase::SetTooltip(tooltip);
    CDUITrackBarThumb* const thumb = GetThumbButton();
    if (thumb && thumb->GetTooltip().IsEmpty())
        thumb->SetTooltip(tooltip);
}

void CDUITrackBarBase::SetControlRect(const RECT& rect)
{
    StoreControlRect(rect);
    PlaceThumb();
    UpdateLayout(FALSE, nullptr);
}

BOOL CDUITrackBarBase::EstimateSize(SIZE, SIZE& size)
{
    const SIZE track = skin::IconSize(m_uiData.m_pBackImage);
    const SIZE thumb = skin::IconSize(m_uiData.m_pThumbImage);
    size = OuterSize(std::max(track.cx, thumb.cx), std::max(track.cy, thumb.cy));
    return TRUE;
}

void CDUITrackBarBase::SetRange(int nMin, int nMax)
{
    m_nMin = std::min(nMin, nMax);
    m_nMax = std::max(nMin, nMax);
    m_nPos = std::clamp(m_nPos, m_nMin, m_nMax);
    PlaceThumb();
    UpdateLayout(FALSE, nullptr);
}

void CDUITrackBarBase::GetRange(int& nMin, int& nMax)
{
    nMin = m_nMin;
    nMax = m_nMax;
}

void CDUITrackBarBase::SetPos(int nPos)
{
    const int position = std::clamp(nPos, m_nMin, m_nMax);
    if (position == m_nPos)
        return;
    const ControlGuard keep(this);
    m_nPos = position;
    // Not every parent gives its children their rectangles anew in a layout.
    PlaceThumb();
    SendNotify(DUINOTIFY_TRACKPOS, static_cast<WPARAM>(position), 0);
    UpdateLayout(TRUE, nullptr);
}

int CDUITrackBarBase::GetPos()
{
    return m_nPos;
}

void CDUITrackBarBase::SetStep(int nStep)
{
    if (nStep >= 1)
        m_nStep = nStep;
}

int CDUITrackBarBase::GetStep()
{
    return m_nStep;
}

CDUITrackBarThumb* CDUITrackBarBase::GetThumbButton()
{
    return InterfaceOf<CDUITrackBarThumb>(GetControlByIndex(0), "track_bar_thumb");
}

void CDUITrackBarBase::SetUIData(const CTrackBarUIData& data)
{
    m_uiData = data;
    if (CDUITrackBarThumb* const thumb = GetThumbButton()) {
        CButtonUIData images;
        images.m_pBackImage = data.m_pThumbImage;
        thumb->SetButtonUIData(images);
    }
    PlaceThumb();
    UpdateLayout(TRUE, nullptr);
}

const CTrackBarUIData& CDUITrackBarBase::GetUIData()
{
    return m_uiData;
}

void CDUITrackBarBase::SetShowPercent(BOOL bShow)
{
    const BOOL show = bShow ? TRUE : FALSE;
    if (show == m_bShowPercent)
        return;
    m_bShowPercent = show;
    PlaceThumb();
    UpdateLayout(FALSE, nullptr);
}

// --- geometry ----------------------------------------------------------------------------------------------

LONG CDUITrackBarBase::GetThumbLength()
{
    const SIZE icon = skin::IconSize(m_uiData.m_pThumbImage);
    return IsVertical() ? icon.cy : icon.cx;
}

LONGLONG CDUITrackBarBase::GetFreeLength()
{
    const RECT content = GetContentRect();
    return std::max<LONGLONG>(0, (IsVertical() ? Height(content) : Width(content)) - GetThumbLength());
}

LONGLONG CDUITrackBarBase::GetThumbOffset()
{
    if (m_nMin >= m_nMax)
        return 0;
    const double fraction = (static_cast<double>(m_nPos) - m_nMin) / (static_cast<double>(m_nMax) - m_nMin);
    return static_cast<LONGLONG>(fraction * static_cast<double>(GetFreeLength()));
}

RECT CDUITrackBarBase::GetThumbRect()
{
    if (!skin::IsLoaded(m_uiData.m_pThumbImage))
        return {0, 0, 0, 0};
    const LONGLONG length = GetThumbLength();
    const LONGLONG offset = GetThumbOffset();
    const RECT content = GetContentRect();
    const RECT track = GetTrackRect();
    if (IsVertical()) {
        const LONGLONG bottom = content.bottom - offset;
        return Intersection(MakeRect(track.left, bottom - length, track.right, bottom), content);
    }
    const LONGLONG left = content.left + offset;
    return Intersection(MakeRect(left, track.top, left + length, track.bottom), content);
}

void CDUITrackBarBase::PlaceThumb()
{
    if (CDUITrackBarThumb* const thumb = GetThumbButton())
        thumb->SetControlRect(GetThumbRect());
}

int CDUITrackBarBase::CalculateThumbPos(POINT point)
{
    const RECT content = GetContentRect();
    const LONG length = GetThumbLength();
    const LONGLONG offset = IsVertical() ? Wide(content.bottom) - (Wide(point.y) + length / 2)
                                         : Wide(point.x) - length / 2 - content.left;
    return Narrow(std::clamp<LONGLONG>(offset, 0, GetFreeLength()));
}

void CDUITrackBarBase::SetThumbPos(int nOffset)
{
    const auto length = static_cast<double>(GetFreeLength());
    if (length <= 0) {
        SetPos(0);
        return;
    }
    const double distance = nOffset / length * (static_cast<double>(m_nMax) - m_nMin);
    SetPos(Narrow(static_cast<LONGLONG>(distance) + m_nMin));
}

// --- events ------------------------------------------------------------------------------------------------

LRESULT CDUITrackBarBase::ProcessEvent(const tagDUIEvent& event, BOOL& bHandled)
{
    const ControlGuard keep(this);
    if (!IsEnabled()) {
        // Disabled in the middle of a drag: the release would not be seen.
        EndDrag();
    } else if (HandleEvent(event)) {
        bHandled = TRUE;
        return 0;
    }
    return CDUIControlBase::ProcessEvent(event, bHandled);
}

// The bar's own events, and those of the thumb, which it subclasses.
bool CDUITrackBarBase::HandleEvent(const tagDUIEvent& event)
{
    switch (event.Type) {
        case DUIEVENT_LBUTTONDOWN:
            if (event.pSender && event.pSender == GetThumbButton())
                StartDrag();
            else
                SetThumbPos(CalculateThumbPos(event.ptMouse));
            return true;
        case DUIEVENT_MOUSEMOVE:
            // Moves of a press have no sender: with one, the press ended elsewhere.
            m_bDragging = m_bDragging && !event.pSender;
            if (!m_bDragging)
                return false;
            SetThumbPos(CalculateThumbPos(event.ptMouse));
            return true;
        case DUIEVENT_LBUTTONUP:
            if (!m_bDragging)
                return false;
            EndDrag();
            return true;
        case DUIEVENT_KEYDOWN:
            return MoveByKey(event.wParam);
        default:
            return false;
    }
}

bool CDUITrackBarBase::MoveByKey(WPARAM key)
{
    struct Move {
        BOOL isVertical;
        WPARAM key;
        int direction;
    };
    static constexpr Move kMoves[] = {
        {FALSE, VK_LEFT, -1}, {FALSE, VK_RIGHT, 1}, {TRUE, VK_UP, 1}, {TRUE, VK_DOWN, -1}};
    for (const Move& move : kMoves) {
        if (move.key == key && move.isVertical == IsVertical()) {
            SetPos(Narrow(LONGLONG{m_nPos} + LONGLONG{move.direction} * m_nStep));
            return true;
        }
    }
    return false;
}

void CDUITrackBarBase::StartDrag()
{
    if (!GetFocus())
        SetFocus(TRUE);
    m_bDragging = TRUE;
    ::SetCapture(GetManagerWnd(FALSE));
}

void CDUITrackBarBase::EndDrag()
{
    if (!m_bDragging)
        return;
    m_bDragging = FALSE;
    ReleaseCapture();
}

// --- painting ----------------------------------------------------------------------------------------------

RECT CDUITrackBarBase::GetTrackRect()
{
    RECT track = GetContentRect();
    if (m_bShowPercent && !IsVertical())
        track.bottom = Narrow(track.top + Height(track) / 2);
    return track;
}

RECT CDUITrackBarBase::GetFilledRect()
{
    const RECT track = GetTrackRect();
    const LONGLONG length = GetThumbOffset() + GetThumbLength() / 2;
    if (IsVertical())
        return MakeRect(track.left, track.bottom - length, track.right, track.bottom);
    return MakeRect(track.left, track.top, track.left + length, track.bottom);
}

void CDUITrackBarBase::PaintBkgnd(HDC hdc)
{
    const CDUIImageListPtr& image = m_uiData.m_pBackImage;
    if (m_bImageMode) {
        if (!skin::IsLoaded(image) || image->GetItemCount() < 2)
            return;
        image->DrawImage(hdc, GetTrackRect(), 0);
        image->DrawImage(hdc, GetFilledRect(), 1);
    } else {
        constexpr LONG kBandHeight = 4;
        RECT band = GetContentRect();
        if (!IsVertical())
            band.bottom = Narrow(Wide(band.top) + kBandHeight);
        CDUIRenderEngine::DrawGradien(hdc, band, m_firstColor, m_secondColor, IsVertical());
    }
    if (m_bShowPercent && !IsVertical())
        PaintPercent(hdc);
}

void CDUITrackBarBase::PaintPercent(HDC hdc)
{
    constexpr LONG kWidthWithoutFont = 60;
    char text[16];
    const int length = std::snprintf(text, sizeof text, "%d%%", m_nPos);
    const HFONT font = StateFont(GetTextStyle().GetPtr(), TextState::Normal);
    LONG width = font ? CDUIRenderEngine::GetTextIdealSize(text, font, 0, DT_SINGLELINE).cx : 0;
    if (width <= 0)
        width = kWidthWithoutFont;

    const RECT content = GetContentRect();
    LONGLONG left = Wide(GetFilledRect().right) - width / 2;
    UINT format = DT_VCENTER;
    if (left < content.left) {
        left = content.left;
        format |= DT_LEFT;
    } else if (left + width > content.right) {
        left = Wide(content.right) - width;
        format |= DT_RIGHT;
    } else {
        format |= DT_CENTER;
    }
    RECT caption = MakeRect(left, GetTrackRect().bottom, left + width, content.bottom);
    SetBkMode(hdc, TRANSPARENT);
    CDUIRenderEngine::DrawTextA(hdc, text, length, &caption, format);
}

}  // namespace DUI
