#include <qvui/controls/scrolling/scroll_bar.h>

#include <cmath>

#include "foundation/rect.h"
#include "framework/control_guard.h"
#include "framework/scroll_bar_access.h"
#include "skin/skin_access.h"

namespace DUI {
namespace {

using namespace geometry;

enum Child { kStartArrow, kThumb, kEndArrow };

constexpr int kThumbElement = 3;
constexpr LONGLONG kShortestThumb = 16;
constexpr DWORD kPagingInterval = 100;  // milliseconds

constexpr int kFree = 0;
constexpr int kAtMinimum = 1;
constexpr int kAtMaximum = 2;

/// Any number as an int; what is none gives 0.
int Truncated(double value)
{
    constexpr double kLimit = std::numeric_limits<int>::max();
    return std::isnan(value) ? 0 : static_cast<int>(std::clamp(value, -kLimit, kLimit));
}

IDUIControl* IsThat(IDUIControl* control, void* that)
{
    return control == that ? control : nullptr;
}

}  // namespace

long IDUIScrollSink::OnVScrollEvent(unsigned int, long)
{
    return 0;
}

long IDUIScrollSink::OnHScrollEvent(unsigned int, long)
{
    return 0;
}

/// The part of the bar that the thumb moves in, along the bar's axis.
struct CDUIScrollBarBase::Track {
    bool isVertical;
    LONGLONG start;
    LONGLONG end;
    RECT bar;

    LONGLONG Length() const { return end - start; }
    /// The bar from one point of the axis to another.
    RECT Part(LONGLONG from, LONGLONG to) const
    {
        return isVertical ? MakeRect(bar.left, from, bar.right, to) : MakeRect(from, bar.top, to, bar.bottom);
    }
};

struct CDUIScrollBarBase::Span {
    LONGLONG start;
    LONGLONG end;
};

/// What must stay as it is for paging to go on; holds the mouse meanwhile.
struct CDUIScrollBarBase::Paging {
    explicit Paging(CDUIScrollBarBase& bar)
        : manager(bar.GetControlMgr()),
          window(bar.GetManagerWnd(FALSE)),
          hadCapture(window && GetCapture() == window)
    {
        if (window)
            SetCapture(window);
        hasCapture = window && GetCapture() == window;
    }
    Paging(const Paging&) = delete;
    Paging& operator=(const Paging&) = delete;
    ~Paging()
    {
        if (hasCapture && !hadCapture && GetCapture() == window)
            ReleaseCapture();
    }

    /// Whether the bar is still in that window.
    bool Holds(const CDUIScrollBarBase& bar) const
    {
        return bar.GetControlMgr() == manager && (!window || IsWindow(window));
    }
    /// Without the mouse the release may never arrive.
    bool LostMouse() const { return hasCapture && GetCapture() != window; }

    IDUIControlMgr* manager;
    HWND window;
    bool hadCapture;
    bool hasCapture = false;
};

const AttributeTable<CDUIScrollBarBase>& CDUIScrollBarBase::Attributes()
{
    using Bar = CDUIScrollBarBase;
    static const AttributeTable<Bar> table{
        {"back_image", AttributeKind::Image, "The track, drawn over the whole bar.", &Bar::m_pBackImage},
        {"thumb_image", AttributeKind::Image,
         "The thumb's strip: normal, hot, pushed, disabled. The bar is at least as broad as its icons.",
         [](Bar& bar, const CString& value) {
             if (CDUIButton* const thumb = bar.GetElement(kThumbElement)) {
                 thumb->SetAttribute("button_style", "auto_fit center_icon");
                 thumb->SetAttribute("back_image", value);
             }
             bar.UpdateCtrlsAttributes();
         }},
        {"thumb_mark", AttributeKind::Image, "A small image in the middle of the thumb.",
         [](Bar& bar, const CString& value) {
             if (CDUIButton* const thumb = bar.GetElement(kThumbElement))
                 thumb->SetAttribute("thumb_mark", value);
             bar.UpdateCtrlsAttributes();
         }},
        {"notifier", AttributeKind::ControlName,
         "The control that the bar scrolls, when it stands by itself.",
         [](Bar& bar, const CString& value) { bar.SetScrollOwner(value); }},
        {"enable_arrow", AttributeKind::Ignored, "Without effect: bars have no arrows.",
         [](Bar& bar, const CString&) { bar.UpdateCtrlsAttributes(); }},
        {"arrow_image1", AttributeKind::Ignored, "Without effect: bars have no arrows."},
        {"arrow_image2", AttributeKind::Ignored, "Without effect: bars have no arrows."},
    };
    return table;
}

const ControlClass& CDUIScrollBarBase::Class()
{
    static const ControlClass theClass("CDUIScrollBarBase", &CDUIControlBase::Class(),
                                       "A track with a thumb that scrolls another control.", {"scrollbar"},
                                       &Attributes());
    return theClass;
}

CDUIScrollBarBase::CDUIScrollBarBase()
{
    static const ScrollBarAccess access{
        [](CDUIControlBase& container) -> CDUIControlBase* { return container.GetVerticalSB(); },
        [](CDUIControlBase& container) -> CDUIControlBase* { return container.GetHorizontalSB(); },
        [](CDUIControlBase& bar, SCROLLINFO& info) {
            static_cast<CDUIScrollBarBase&>(bar).GetScrollBarInfo(&info);
        },
        [](CDUIControlBase& bar, SCROLLINFO& info) {
            static_cast<CDUIScrollBarBase&>(bar).SetScrollBarInfo(&info);
        },
    };
    SetScrollBarAccess(access);
    CreateCtrls();
}

CDUIScrollBarBase::~CDUIScrollBarBase()
{
    SetMsgSink(FALSE);
}

void CDUIScrollBarBase::CreateCtrls()
{
    const CRefPtr<IDUIControl> buttons[] = {new CDUISBArrowBtn(CDUISBArrowBtn::kStart), new CDUISBThumButton,
                                            new CDUISBArrowBtn(CDUISBArrowBtn::kEnd)};
    for (const CRefPtr<IDUIControl>& button : buttons) {
        button->ModifyStyle(DUISTYLE_TABSTOP, 0);
        CDUIControlBase::AddControl(button);
    }
}

CDUIButton* CDUIScrollBarBase::GetElement(int which)
{
    return which == kThumbElement ? InterfaceOf<CDUIButton>(GetControlByIndex(kThumb), "button") : nullptr;
}

int CDUIScrollBarBase::SetMsgSink(int bSet)
{
    auto* const thumb = InterfaceOf<CDUISBThumButton>(GetControlByIndex(kThumb), "SBThumButton");
    if (!thumb)
        return 0;
    thumb->SetScrollBar(bSet ? this : nullptr);
    return 1;
}

void CDUIScrollBarBase::OnCreate()
{
    CDUIControlBase::OnCreate();
    m_bTracking = 0;
    SetMsgSink(TRUE);
}

void CDUIScrollBarBase::OnDestroy()
{
    SetMsgSink(FALSE);
    CDUIControlBase::OnDestroy();
}

void CDUIScrollBarBase::UpdateCtrlsAttributes()
{
    CDUIButton* const thumb = GetElement(kThumbElement);
    if (!thumb || !skin::IsLoaded(thumb->GetButtonUIData().m_pBackImage))
        return;
    const SIZE cell = skin::IconSize(thumb->GetButtonUIData().m_pBackImage);
    thumb->SetFixedWidth(cell.cx);
    thumb->SetFixedHeight(cell.cy);
    if (IsVerticalSB())
        SetFixedWidth(std::max(GetFixedSize().cx, cell.cx));
    else
        SetFixedHeight(std::max(GetFixedSize().cy, cell.cy));
}

void CDUIScrollBarBase::ModifyStatus(DWORD remove, DWORD add)
{
    const DWORD before = GetStatus();
    CDUIControlBase::ModifyStatus(remove, add);
    if ((GetStatus() ^ before) & DUISTATUS_DISABLED)
        EnableScrollBar(IsEnabled());
}

void CDUIScrollBarBase::EnableScrollBar(int bEnable)
{
    if (CDUIButton* const thumb = GetElement(kThumbElement))
        thumb->ModifyStyle(DUISTYLE_VISIBLE, bEnable ? DWORD{DUISTYLE_VISIBLE} : 0);
    UpdateLayout(TRUE, nullptr);
}

// --- the owner ---------------------------------------------------------------------------------------------

void CDUIScrollBarBase::SetScrollOwner(IDUIControl* owner)
{
    m_pOwner = owner;
    m_isOwnerByName = false;
}

void CDUIScrollBarBase::SetScrollOwner(const CString& name)
{
    m_strOwner = name;
}

bool CDUIScrollBarBase::IsInWindow(const IDUIControl* control)
{
    IDUIControl* root = this;
    while (IDUIControl* const parent = root->GetParent())
        root = parent;
    return root->FindControl(IsThat, const_cast<IDUIControl*>(control), 0) != nullptr;
}

IDUIControl* CDUIScrollBarBase::GetScrollOwner()
{
    // Nobody takes back an owner that was found by its name.
    if (m_pOwner && m_isOwnerByName && !IsInWindow(m_pOwner))
        m_pOwner = nullptr;
    if (!m_pOwner && !m_strOwner.IsEmpty()) {
        m_pOwner = GetSiblingControl(m_strOwner);
        m_isOwnerByName = true;
    }
    return m_pOwner;
}

void CDUIScrollBarBase::FocusOwner()
{
    IDUIControl* const owner = GetScrollOwner();
    if (owner && (owner->GetStyle() & DUISTYLE_TABSTOP))
        owner->SetFocus(TRUE);
}

long CDUIScrollBarBase::OnVScrollEvent(unsigned int nCode, long nValue)
{
    return Scroll(DUIEVENT_VSCROLL, nCode, nValue);
}

long CDUIScrollBarBase::OnHScrollEvent(unsigned int nCode, long nValue)
{
    return Scroll(DUIEVENT_HSCROLL, nCode, nValue);
}

int CDUIScrollBarBase::ThumbTarget(long nPixels, int& nNew) const
{
    const double distance = static_cast<double>(nPixels) / m_fPixelsPerUnit;
    nNew = Narrow(LONGLONG{m_nPos} + Truncated(distance));
    if (nNew >= m_nMax) {
        nNew = m_nMax;
        return kAtMaximum;
    }
    if (nNew <= m_nMin) {
        nNew = m_nMin;
        return kAtMinimum;
    }
    return kFree;
}

long CDUIScrollBarBase::Scroll(UINT eventType, unsigned int nCode, long nValue)
{
    IDUIControl* const owner = GetScrollOwner();
    if (!owner)
        return 0;
    int result = kFree;
    switch (nCode) {
        case SB_LINEUP:
        case SB_PAGEUP:
            if (m_nPos <= m_nMin)
                return 0;
            break;
        case SB_LINEDOWN:
        case SB_PAGEDOWN:
            if (m_nPos >= m_nMax)
                return 0;
            break;
        case SB_THUMBTRACK: {
            int position = 0;
            result = ThumbTarget(nValue, position);
            if (eventType == DUIEVENT_VSCROLL)
                position = std::max(position, 0);
            if (position == m_nPos)
                return result;
            nValue = position;
            break;
        }
        default:
            return 0;
    }
    const ControlGuard keepBar(this);
    const ControlGuard keepOwner(owner);
    tagDUIEvent event;
    event.Type = eventType;
    event.pSender = this;
    event.wParam = nCode;
    event.lParam = nValue;
    BOOL bHandled = FALSE;
    owner->OnDUIEvent(event, bHandled);
    return result;
}

// --- the thumb's place -------------------------------------------------------------------------------------

int CDUIScrollBarBase::SetScrollBarInfo(SCROLLINFO* info)
{
    if (info->fMask & SIF_PAGE)
        m_nPage = static_cast<int>(info->nPage);
    if (info->fMask & SIF_RANGE) {
        m_nMin = info->nMin;
        m_nMax = info->nMax;
    }
    if (info->fMask & SIF_POS)
        m_nPos = info->nPos;
    UpdateThumUI();
    return 1;
}

void CDUIScrollBarBase::GetScrollBarInfo(SCROLLINFO* info)
{
    info->nMin = m_nMin;
    info->nMax = m_nMax;
    info->nPage = static_cast<UINT>(m_nPage);
    info->nPos = m_nPos;
}

void CDUIScrollBarBase::SetControlRect(const RECT& rect)
{
    StoreControlRect(rect);
    UpdateThumUI();
}

CDUIScrollBarBase::Track CDUIScrollBarBase::GetTrack()
{
    const bool isVertical = IsVerticalSB() != 0;
    const RECT bar = GetControlRect();
    const LONG barEnd = isVertical ? bar.bottom : bar.right;
    LONGLONG start = isVertical ? Wide(bar.top) + m_nTopArrow : Wide(bar.left) + m_nLeftArrow;
    LONGLONG end = Wide(barEnd) - (isVertical ? m_nBottomArrow : m_nRightArrow);
    if (end < start)
        end = barEnd;
    start = std::min(start, end);
    return {isVertical, start, end, bar};
}

CDUIScrollBarBase::Span CDUIScrollBarBase::MeasureThumb(const Track& track)
{
    const LONGLONG length = track.Length();
    const LONGLONG range = LONGLONG{m_nMax} - m_nMin;
    if (m_nPage <= 0 || range <= 0 || length <= 0)
        return {track.start, track.start};
    const LONGLONG content = m_nPage + range;
    LONGLONG thumb = 0;
    if (track.isVertical) {
        m_fPixelsPerUnit = static_cast<double>(length) / static_cast<double>(content);
        thumb = static_cast<LONGLONG>(m_nPage * m_fPixelsPerUnit);
        if (thumb < kShortestThumb) {
            thumb = kShortestThumb;
            m_fPixelsPerUnit = static_cast<double>(length - kShortestThumb) / static_cast<double>(content);
        }
    } else {
        thumb = std::max(m_nPage * length / content, kShortestThumb);
    }
    if (thumb > length)
        thumb = 0;
    if (!track.isVertical)
        m_fPixelsPerUnit = static_cast<double>(length - thumb) / static_cast<double>(range);
    const double units = static_cast<double>(LONGLONG{m_nPos} - m_nMin);
    const LONGLONG start = track.start + static_cast<LONGLONG>(units * m_fPixelsPerUnit);
    return {start, std::min(start + thumb, track.end)};
}

void CDUIScrollBarBase::UpdateThumUI()
{
    m_nMax = std::max(m_nMax, m_nMin);
    m_nPos = std::clamp(m_nPos, m_nMin, m_nMax);
    CDUIButton* const thumb = GetElement(kThumbElement);
    if (!thumb)
        return;
    const Track track = GetTrack();
    const Span span = MeasureThumb(track);
    thumb->SetControlRect(track.Part(span.start, span.end));
    const bool hasThumb = span.end > span.start;
    m_rcBefore = track.Part(track.start, hasThumb ? span.start : track.start);
    m_rcAfter = track.Part(hasThumb ? span.end : track.end, track.end);
    UpdateLayout(FALSE, nullptr);
}

void CDUIScrollBarBase::PaintBkgnd(HDC hdc)
{
    if (skin::IsLoaded(m_pBackImage))
        m_pBackImage->DrawImage(hdc, GetControlRect(), 0);
}

// --- presses on the track ----------------------------------------------------------------------------------

LRESULT CDUIScrollBarBase::ProcessEvent(const tagDUIEvent& event, BOOL& bHandled)
{
    const ControlGuard keep(this);
    const LRESULT result = CDUIControlBase::ProcessEvent(event, bHandled);
    if (!IsEnabled())
        return result;
    switch (event.Type) {
        case DUIEVENT_LBUTTONDOWN:
        case DUIEVENT_LBUTTONDBLCLK:
            m_ptLast = event.ptMouse;
            if (StartMessageLoop())
                FocusOwner();
            break;
        case DUIEVENT_LBUTTONUP:
            m_ptLast = event.ptMouse;
            m_bTracking = 0;
            break;
        case DUIEVENT_MOUSEMOVE:
            m_ptLast = event.ptMouse;
            break;
        default:
            break;
    }
    return result;
}

BOOL CDUIScrollBarBase::StartMessageLoop()
{
    // A press inside the loop, without a release before it, begins no loop inside the loop.
    if (!IsEnabled() || m_bTracking)
        return TRUE;
    if (PtInRect(&m_rcBefore, m_ptLast))
        m_bPageToStart = 1;
    else if (PtInRect(&m_rcAfter, m_ptLast))
        m_bPageToStart = 0;
    else
        return TRUE;
    m_bTracking = 1;
    const Paging paging(*this);
    const bool isInWindow = RunPaging(paging);
    m_bTracking = 0;
    return isInWindow;
}

bool CDUIScrollBarBase::RunPaging(const Paging& paging)
{
    DWORD start = GetTickCount();
    for (;;) {
        MSG message{};
        if (PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE)) {
            TranslateMessage(&message);
            DispatchMessageA(&message);
            if (message.message == WM_QUIT) {
                PostQuitMessage(0);
                return paging.Holds(*this);
            }
        }
        if (!paging.Holds(*this))
            return false;
        if (!m_bTracking || GetTickCount() - start > kPagingInterval) {
            Page();
            if (!paging.Holds(*this))
                return false;
            start = GetTickCount();
        }
        Sleep(1);
        if (message.message == WM_LBUTTONUP || !m_bTracking || paging.LostMouse())
            return true;
    }
}

void CDUIScrollBarBase::Page()
{
    if (!IsEnabled() || !IsVisible(FALSE) || !PtInRect(m_bPageToStart ? &m_rcBefore : &m_rcAfter, m_ptLast))
        return;
    const unsigned int code = m_bPageToStart ? SB_PAGEUP : SB_PAGEDOWN;
    if (IsVerticalSB())
        OnVScrollEvent(code, 0);
    else
        OnHScrollEvent(code, 0);
}

// --- the two directions ------------------------------------------------------------------------------------

const ControlClass& CDUIVerticalSB::Class()
{
    static const ControlClass theClass("CDUIVerticalSB", &CDUIScrollBarBase::Class(),
                                       "A vertical scroll bar.", {"vert_scrollbar"});
    return theClass;
}

const ControlClass& CDUIHorizontalSB::Class()
{
    static const ControlClass theClass("CDUIHorizontalSB", &CDUIScrollBarBase::Class(),
                                       "A horizontal scroll bar.", {"horz_scrollbar"});
    return theClass;
}

}  // namespace DUI
