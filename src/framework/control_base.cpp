#include <qvui/framework/control_base.h>

#include <algorithm>
#include <utility>

#include <qvui/render/render_engine.h>

#include "foundation/rect.h"
#include "framework/control_guard.h"
#include "framework/control_styles.h"
#include "framework/scroll_bar_access.h"
#include "skin/skin_access.h"

namespace DUI {
namespace {

constexpr WordBit kStretchWords[] = {{"move_x", DUIEXSTYLE_MOVE_X},
                                     {"move_y", DUIEXSTYLE_MOVE_Y},
                                     {"size_x", DUIEXSTYLE_SIZE_X},
                                     {"size_y", DUIEXSTYLE_SIZE_Y},
                                     {"group", DUIEXSTYLE_GROUP}};
constexpr WordBit kDockWords[] = {{"dock_left", DUIEXSTYLE_DOCK_LEFT},
                                  {"dock_right", DUIEXSTYLE_DOCK_RIGHT},
                                  {"dock_top", DUIEXSTYLE_DOCK_TOP},
                                  {"dock_bottom", DUIEXSTYLE_DOCK_BOTTOM}};
constexpr DWORD kDockBits =
    DUIEXSTYLE_DOCK_LEFT | DUIEXSTYLE_DOCK_RIGHT | DUIEXSTYLE_DOCK_TOP | DUIEXSTYLE_DOCK_BOTTOM;

void SetStyleBit(CDUIControlBase& control, DWORD bit, bool isOn)
{
    control.ModifyStyle(isOn ? 0 : bit, isOn ? bit : 0);
}

const AttributeTable<CDUIControlBase>& Attributes()
{
    using Base = CDUIControlBase;
    static const AttributeTable<Base> table{
        {"position", AttributeKind::Rect, "Left, top, right and bottom edge in the window, in pixels.",
         &Base::SetControlRect},
        {"text", AttributeKind::StringId, "The text that is shown.", &Base::SetText},
        {"tooltip", AttributeKind::StringId, "The text of the tooltip; it may hold markup.",
         [](Base& control, const CString& value) {
             control.SetTooltip(skin::String(value));
             control.ModifyStyle(0, DUISTYLE_TOOLTIP);
         }},
        {"shortcut",
         {AttributeKind::Character, "", "", {.isUnique = true}},
         "The key that, with Alt, gives the control the focus and activates it.",
         [](Base& control, const CString& value) {
             if (!value.IsEmpty())
                 control.SetShortcut(value[0]);
         }},
        {"name",
         {AttributeKind::Text, "", "", {.isUnique = true}},
         "The name by which the application finds the control.",
         &Base::SetName},
        {"visible",
         {AttributeKind::Boolean, "true"},
         "Whether the control is shown.",
         [](Base& control, const CString& value) { SetStyleBit(control, DUISTYLE_VISIBLE, IsTrue(value)); }},
        {"transparent",
         {AttributeKind::Boolean, "false"},
         "Whether the pointer passes through to what is behind.",
         [](Base& control, const CString& value) {
             SetStyleBit(control, DUISTYLE_TRANSPARENT, IsTrue(value));
         }},
        {"enable",
         {AttributeKind::Boolean, "true"},
         "\"false\" disables the control.",
         [](Base& control, const CString& value) {
             control.CDUIControlBase::SetEnable(!EqualNoCase(value.View(), "false"));
         }},
        {"tab_stop",
         {AttributeKind::Boolean, "false"},
         "Whether a press and the Tab key give the control the focus.",
         [](Base& control, const CString& value) { SetStyleBit(control, DUISTYLE_TABSTOP, IsTrue(value)); }},
        {"margin",
         {AttributeKind::Rect, "0,0,0,0"},
         "Space kept free inside the left, top, right and bottom edge.",
         &Base::SetMargin},
        {"padding",
         {AttributeKind::Integer, "0"},
         "Space between the control's parts or children, in pixels.",
         &Base::SetPaddingWidth},
        {"width",
         {AttributeKind::Integer, "0"},
         "The width that a layout gives the control; 0: not fixed.",
         &Base::SetFixedWidth},
        {"height",
         {AttributeKind::Integer, "0"},
         "The height that a layout gives the control; 0: not fixed.",
         &Base::SetFixedHeight},
        {"text_style", AttributeKind::TextStyle, "Font, colours and alignment of the text.",
         &Base::SetTextStyle},
        {"cursor", AttributeKind::Cursor, "The pointer's shape over the control.",
         [](Base& control, const CString& value) {
             control.ModifyStyle(0, DUISTYLE_CURSOR);
             control.SetCursor(skin::Manager()->GetCursor(value, TRUE));
         }},
        {"stretch",
         {AttributeKind::Keywords, "", "move_x|move_y|size_x|size_y|group", {.accumulates = true}},
         "Anchoring marks for the application; words add to those set before.",
         [](Base& control, const CString& value) {
             control.ModifyExStyle(0, FindWords(value, kStretchWords));
         }},
        {"dock_style",
         {AttributeKind::Choice, "", "dock_left|dock_right|dock_top|dock_bottom"},
         "The edge of a dock layout that the control stands at.",
         [](Base& control, const CString& value) {
             if (const DWORD bit = FindFirstWord(value, kDockWords))
                 control.ModifyExStyle(kDockBits, bit);
         }},
        {"user_data", {AttributeKind::Integer, "0"}, "A number for the application.", &Base::SetUserData},
        {"control_style",
         {AttributeKind::ControlStyle, "", "", {.appliesStyle = true}},
         "A named set of attributes that is applied here.",
         [](Base& control, const CString& value) { control.ApplyControlStyle(value); }},
    };
    return table;
}

SIZE Extent(const CString& text, const CTextStyle& style, UINT format)
{
    const CRefPtr<CFontObject> font = style.GetNormalFont();
    if (text.IsEmpty() || font.IsNull() || font->IsNull())
        return {0, 0};
    return CDUIRenderEngine::GetTextIdealSize(text, font->GetFont(), 0, format);
}

}  // namespace

unsigned CDUIControlBase::s_nAdditions = 0;

namespace {

// The controls without a parent that were attached: roots, and what an application attached by itself. A
// window manager that ends finds here what is still attached to it.
std::vector<CWeakPtr<CDUIControlBase>>& AttachedTops()
{
    static auto* const tops = new std::vector<CWeakPtr<CDUIControlBase>>;
    return *tops;
}

void NoteAttachedTop(CDUIControlBase& control)
{
    std::vector<CWeakPtr<CDUIControlBase>>& tops = AttachedTops();
    tops.erase(std::remove_if(
                   tops.begin(), tops.end(),
                   [&control](const auto& top) { return !top || top == &control || !top->GetControlMgr(); }),
               tops.end());
    tops.emplace_back(&control);
}

}  // namespace

// Calls for each child that is here now and still here when its turn comes. The calls may add, remove and
// destroy children, and detach this control, but the caller keeps it alive.
template <class Call>
void CDUIControlBase::ForEachChild(Call call)
{
    if (m_children.empty())
        return;
    const std::vector<CRefPtr<IDUIControl>> children = m_children;
    for (const CRefPtr<IDUIControl>& child : children)
        if (child->GetParent() == this)
            call(*child.GetPtr());
}

const ControlClass& CDUIControlBase::Class()
{
    static const ControlClass info("CDUIControlBase", nullptr, "What every control has.",
                                   {"control_base", "control"}, &Attributes(),
                                   {{"DUINOTIFY_CREATED", "The control was attached to a window."},
                                    {"DUINOTIFY_DESTROYED", "The control was detached from its window."}});
    return info;
}

const CDUIControlBase::Extras CDUIControlBase::kNoExtras;

CDUIControlBase::Extras& CDUIControlBase::MakeExtras()
{
    if (!m_pExtras)
        m_pExtras = std::make_unique<Extras>();
    return *m_pExtras;
}

CDUIControlBase::CDUIControlBase(const CDUIControlBase& other)
    : IDUIControl(other),
      m_dwStyle(other.m_dwStyle),
      m_dwClassStyle(other.m_dwClassStyle),
      m_rcControl(other.m_rcControl),
      m_rcMargin(other.m_rcMargin),
      m_szFixed(other.m_szFixed),
      m_pTextStyle(other.m_pTextStyle),
      m_textExtent(other.m_textExtent),
      m_dwExStyle(other.m_dwExStyle),
      m_dwStatus(other.m_dwStatus),
      m_nPaddingWidth(other.m_nPaddingWidth),
      m_pExtras(other.m_pExtras ? std::make_unique<Extras>(*other.m_pExtras) : nullptr),
      m_strText(other.m_strText),
      m_strName(other.m_strName)
{
    if (m_pExtras) {
        m_pExtras->controlStyle.Empty();
        m_pExtras->subclass = nullptr;
    }
    // Not AddControl: its hooks are those of a class that is not constructed yet.
    m_children.reserve(other.m_children.size());
    for (const CRefPtr<IDUIControl>& child : other.m_children) {
        const CRefPtr<IDUIControl> copy = child->Clone();
        if (copy.IsNull())
            continue;
        m_children.push_back(copy);
        copy->SetParent(this);
    }
}

CDUIControlBase::~CDUIControlBase()
{
    ClearWeakPtrs();
    m_attachment = Attachment::Leaving;
    CDUIControlBase::RemoveAllControl();
    // Those that a handler has added meanwhile.
    for (const CRefPtr<IDUIControl>& child : m_children)
        child->SetParent(nullptr);
}

// --- the window --------------------------------------------------------------------------------------------

void CDUIControlBase::AttachWindow(IDUIControlMgr* pMgr)
{
    const ControlGuard keep(this);
    if (m_pMgr != pMgr)
        DetachWindow();
    if (!pMgr || (m_pMgr && m_pMgr != pMgr))
        return;
    if (!m_pParent)
        NoteAttachedTop(*this);
    // Known before the children have it: those that a handler adds meanwhile are attached by being added, and
    // a handler that detaches this control ends the walk.
    m_pMgr = pMgr;
    m_attachment = Attachment::Joining;
    const unsigned additions = s_nAdditions;
    ForEachChild([this, pMgr, additions](IDUIControl& child) {
        if (m_attachment != Attachment::Joining || m_pMgr != pMgr)
            return;
        const auto* const base = additions == s_nAdditions ? nullptr : dynamic_cast<CDUIControlBase*>(&child);
        if (!base || base->m_pMgr != pMgr)
            child.AttachWindow(pMgr);
    });
    if (m_attachment != Attachment::Joining || m_pMgr != pMgr)
        return;
    m_attachment = Attachment::Joined;
    m_isAnnounced = true;
    SendNotify(DUINOTIFY_CREATED, 0, 0);
}

// A control that is being detached. It may be in no tree any more, so a manager finds it here when it ends
// meanwhile.
class CDUIControlBase::LeaveScope {
public:
    explicit LeaveScope(CDUIControlBase& control)
        : m_control(control),
          m_pOuter(std::exchange(s_pInnermost, this))
    {
    }
    LeaveScope(const LeaveScope&) = delete;
    LeaveScope& operator=(const LeaveScope&) = delete;
    ~LeaveScope() { s_pInnermost = m_pOuter; }

    static void Finish(const IDUIControlMgr& manager)
    {
        for (LeaveScope* scope = s_pInnermost; scope; scope = scope->m_pOuter)
            if (scope->m_control.m_pMgr == &manager)
                scope->m_control.DetachWindow();
    }

private:
    CDUIControlBase& m_control;
    LeaveScope* m_pOuter;
    static LeaveScope* s_pInnermost;
};

CDUIControlBase::LeaveScope* CDUIControlBase::LeaveScope::s_pInnermost = nullptr;

void CDUIControlBase::FinishDetaching(const IDUIControlMgr& manager)
{
    LeaveScope::Finish(manager);
    const std::vector<CWeakPtr<CDUIControlBase>> tops = AttachedTops();
    for (const CWeakPtr<CDUIControlBase>& top : tops)
        if (top && top->m_pMgr == &manager)
            top->DetachWindow();
}

// A handler may call this again, for this control or an ancestor: the inner call then does what is left to
// do.
void CDUIControlBase::DetachWindow()
{
    if (!m_pMgr)
        return;
    const ControlGuard keep(this);
    const LeaveScope scope(*this);
    m_attachment = Attachment::Leaving;
    ForEachChild([](IDUIControl& child) { child.DetachWindow(); });
    if (m_attachment != Attachment::Leaving)
        return;
    if (std::exchange(m_isAnnounced, false))
        SendNotify(DUINOTIFY_DESTROYED, 0, 0);
    if (m_attachment != Attachment::Leaving)
        return;
    m_pMgr = nullptr;
    m_attachment = Attachment::None;
}

LRESULT CDUIControlBase::Request(UINT code, WPARAM wParam, LPARAM lParam, IDUIControl* pSender)
{
    if (!m_pMgr)
        return 0;
    tagDUINotify request;
    request.nCode = code;
    request.pSender = pSender ? pSender : this;
    request.wParam = wParam;
    request.lParam = lParam;
    request.hWnd = nullptr;
    return m_pMgr->OnControlRequest(request);
}

void CDUIControlBase::SetFocus(BOOL bFocus)
{
    Request(DUIREQUEST_FOCUS, bFocus ? 1 : 2, 0);
}

IDUIControl* CDUIControlBase::GetFocusControl()
{
    return reinterpret_cast<IDUIControl*>(Request(DUIREQUEST_FOCUS, 3, 0));
}

void CDUIControlBase::UpdateLayout(BOOL bNeedLayout, RECT* prcInvalid)
{
    Request(DUIREQUEST_UPDATE, bNeedLayout ? 1 : 0, reinterpret_cast<LPARAM>(prcInvalid));
}

void CDUIControlBase::LockLayout(BOOL bLock)
{
    Request(DUIREQUEST_LOCKLAYOUT, static_cast<WPARAM>(bLock), 0);
}

HWND CDUIControlBase::GetManagerWnd(BOOL bTopLevel)
{
    tagDUINotify request{DUIREQUEST_GETWINDOW, this, static_cast<WPARAM>(bTopLevel ? 2 : 1), 0, nullptr};
    if (m_pMgr)
        m_pMgr->OnControlRequest(request);
    return reinterpret_cast<HWND>(request.lParam);
}

DWORD CDUIControlBase::GetManagerWndStatus()
{
    tagDUINotify request{DUIREQUEST_WINDOWSTATUS, this, 0, 0, nullptr};
    if (m_pMgr)
        m_pMgr->OnControlRequest(request);
    return static_cast<DWORD>(request.wParam);
}

IDUIControl* CDUIControlBase::GetSiblingControl(const CString& name)
{
    return reinterpret_cast<IDUIControl*>(
        Request(DUIREQUEST_FINDCONTROL, 2, reinterpret_cast<LPARAM>(name.GetString())));
}

IDUIControl* CDUIControlBase::GetSiblingControl(POINT point)
{
    return reinterpret_cast<IDUIControl*>(
        Request(DUIREQUEST_FINDCONTROL, 1, reinterpret_cast<LPARAM>(&point)));
}

BOOL CDUIControlBase::SetTimer(UINT id, UINT elapse)
{
    DUITimerRecord timer{this, nullptr, id, elapse, 0};
    return m_pMgr && Request(DUIREQUEST_TIMER, 1, reinterpret_cast<LPARAM>(&timer)) == 0;
}

void CDUIControlBase::KillTimer(UINT id)
{
    DUITimerRecord timer{this, nullptr, id, 0, 0};
    Request(DUIREQUEST_TIMER, 2, reinterpret_cast<LPARAM>(&timer));
}

BOOL CDUIControlBase::HasTimer(UINT id)
{
    DUITimerRecord timer{this, nullptr, id, 0, 0};
    return m_pMgr && Request(DUIREQUEST_TIMER, 3, reinterpret_cast<LPARAM>(&timer)) == 0;
}

BOOL CDUIControlBase::SendNotify(UINT code, WPARAM wParam, LPARAM lParam, IDUIControl* pSender)
{
    if (!m_pMgr)
        return FALSE;
    return SendNotify(tagDUINotify{code, pSender ? pSender : this, wParam, lParam, GetManagerWnd(FALSE)});
}

BOOL CDUIControlBase::SendNotify(const tagDUINotify& notify)
{
    if (!m_pMgr)
        return FALSE;
    const ControlGuard keep(this);
    m_pMgr->SendNotify(notify);
    return TRUE;
}

// --- state -------------------------------------------------------------------------------------------------

void* CDUIControlBase::GetInterface(const CString& name)
{
    return Class().Answers(name) ? this : nullptr;
}

CRefPtr<IDUIControl> CDUIControlBase::Clone()
{
    return new CDUIControlBase(*this);
}

BOOL CDUIControlBase::Activate()
{
    return IsVisible(FALSE) && IsEnabled();
}

void CDUIControlBase::SetText(const CString& text)
{
    if (m_strText.IsEmpty() == text.IsEmpty() && m_strText.CompareNoCase(text) == 0)
        return;
    m_strText = text;
    m_textExtent = {};
    UpdateLayout(FALSE, nullptr);
}

void CDUIControlBase::SetControlRect(const RECT& rect)
{
    m_rcControl = rect;
    if (!m_children.empty())
        ChildAt(0)->SetControlRect(GetContentRect());
    UpdateLayout(FALSE, nullptr);
}

void CDUIControlBase::SetTextStyle(CRefPtr<CTextStyle> style)
{
    m_pTextStyle = std::move(style);
}

CRefPtr<CTextStyle> CDUIControlBase::GetTextStyle()
{
    if (m_pTextStyle.IsNull())
        if (IDUISkinMgr* const manager = skin::Manager())
            m_pTextStyle = manager->GetTextStyle("");
    return m_pTextStyle;
}

SIZE CDUIControlBase::MeasureText(UINT format)
{
    const CRefPtr<CTextStyle> style = GetTextStyle();
    if (style.IsNull())
        return {0, 0};
    // An override of GetText may have another text each time.
    const CString& text = GetText();
    if (&text != &m_strText)
        return Extent(text, *style.GetPtr(), format);
    const unsigned fontVersion = style->GetNormalFontVersion();
    if (m_textExtent.fontVersion != fontVersion || m_textExtent.format != format)
        m_textExtent = {fontVersion, format, Extent(text, *style.GetPtr(), format)};
    return m_textExtent.size;
}

void CDUIControlBase::SetCursor(CRefPtr<CCursorObject> cursor)
{
    MakeExtras().cursor = std::move(cursor);
}

CRefPtr<CCursorObject> CDUIControlBase::GetCursor()
{
    return GetExtras().cursor;
}

void CDUIControlBase::SetAttribute(const CString& name, const CString& value)
{
    if (skin::Manager())
        Attributes().Apply(*this, name, value);
}

void CDUIControlBase::ModifyStatus(DWORD remove, DWORD add)
{
    const DWORD status = (m_dwStatus & ~remove) | add;
    if (status == m_dwStatus)
        return;
    m_dwStatus = status;
    UpdateLayout(FALSE, nullptr);
}

void CDUIControlBase::ModifyStyle(DWORD remove, DWORD add)
{
    const DWORD style = (m_dwStyle & ~remove) | add;
    const DWORD changed = style ^ m_dwStyle;
    if (!changed)
        return;
    m_dwStyle = style;
    UpdateLayout((changed & DUISTYLE_VISIBLE) != 0, nullptr);
}

void CDUIControlBase::ModifyExStyle(DWORD remove, DWORD add)
{
    const DWORD style = (m_dwExStyle & ~remove) | add;
    if (style == m_dwExStyle)
        return;
    m_dwExStyle = style;
    UpdateLayout(FALSE, nullptr);
}

BOOL CDUIControlBase::EstimateSize(SIZE, SIZE& size)
{
    size = m_szFixed;
    return TRUE;
}

BOOL CDUIControlBase::IsVisible(BOOL bCheckParents) const
{
    if (!(m_dwStyle & DUISTYLE_VISIBLE))
        return FALSE;
    return bCheckParents && m_pParent ? m_pParent->IsVisible(bCheckParents) : TRUE;
}

void CDUIControlBase::SetEnable(BOOL bEnable)
{
    constexpr DWORD kDisabled = DUISTATUS_DISABLED;
    // A press ends with the control that it was on; nothing would end it later.
    ModifyStatus(bEnable ? kDisabled : DWORD{DUISTATUS_PUSHED}, bEnable ? 0 : kDisabled);
}

void CDUIControlBase::SetVisible(BOOL bVisible)
{
    SetStyleBit(*this, DUISTYLE_VISIBLE, bVisible != FALSE);
    OnParentVisibleStatusChange(bVisible);
}

void CDUIControlBase::OnParentVisibleStatusChange(BOOL bVisible)
{
    ForEachChild([bVisible](IDUIControl& child) { child.OnParentVisibleStatusChange(bVisible); });
}

void CDUIControlBase::SetMargin(RECT margin)
{
    m_rcMargin = margin;
    UpdateLayout(TRUE, nullptr);
}

void CDUIControlBase::SetPaddingWidth(int width)
{
    if (m_nPaddingWidth == width)
        return;
    m_nPaddingWidth = width;
    UpdateLayout(TRUE, nullptr);
}

void CDUIControlBase::SetFixedWidth(int width)
{
    if (m_szFixed.cx == width)
        return;
    m_szFixed.cx = width;
    UpdateLayout(TRUE, nullptr);
}

void CDUIControlBase::SetFixedHeight(int height)
{
    if (m_szFixed.cy == height)
        return;
    m_szFixed.cy = height;
    UpdateLayout(TRUE, nullptr);
}

RECT CDUIControlBase::GetContentRect()
{
    const RECT content = geometry::Shrink(m_rcControl, m_rcMargin);
    if (IsRectEmpty(&content))
        return {m_rcControl.left, m_rcControl.top, m_rcControl.left, m_rcControl.top};
    return content;
}

SIZE CDUIControlBase::OuterSize(LONGLONG width, LONGLONG height) const
{
    using geometry::Narrow;
    return {m_szFixed.cx ? m_szFixed.cx : Narrow(width + m_rcMargin.left + m_rcMargin.right),
            m_szFixed.cy ? m_szFixed.cy : Narrow(height + m_rcMargin.top + m_rcMargin.bottom)};
}

// --- the skin ----------------------------------------------------------------------------------------------

BOOL CDUIControlBase::ApplyControlStyle(const CString& name)
{
    IDUISkinMgr* const manager = skin::Manager();
    if (!manager)
        return FALSE;
    if (GetExtras().controlStyle != name)
        MakeExtras().controlStyle = name;
    CString xml;
    if (!manager->GetControlStyle(name, xml))
        return FALSE;
    const std::shared_ptr<const StyleAttributes> attributes = ReadControlStyle(xml);
    if (!attributes)
        return FALSE;
    for (const StyleAttribute& attribute : *attributes)
        SetAttribute(attribute.name, attribute.value);
    return TRUE;
}

void CDUIControlBase::OnSkinChanged()
{
    const CString style = GetExtras().controlStyle;
    ApplyControlStyle(style);
    ForEachChild([](IDUIControl& child) { child.OnSkinChanged(); });
    // Scroll bars are no children, and they have styles too.
    for (IDUIControl* const bar : {HorizontalScrollBarOf(*this), VerticalScrollBarOf(*this)})
        if (bar)
            bar->OnSkinChanged();
}

// --- events ------------------------------------------------------------------------------------------------

void CDUIControlBase::SubclassControl(IDUIControl* pTarget, BOOL bSubclass)
{
    auto* const target = InterfaceOf<CDUIControlBase>(pTarget, "control_base");
    if (!target)
        return;
    // Controls that subclass each other in a circle would pass an event on without end.
    for (CDUIControlBase* control = this; bSubclass && control;
         control = InterfaceOf<CDUIControlBase>(control->GetExtras().subclass, "control_base"))
        if (control == target)
            return;
    target->MakeExtras().subclass = bSubclass ? this : nullptr;
}

LRESULT CDUIControlBase::OnDUIEvent(const tagDUIEvent& event, BOOL& bHandled)
{
    const ControlGuard keep(this);
    bHandled = FALSE;
    const LRESULT result = PreTranslateEvent(event, bHandled);
    return bHandled ? result : ProcessEvent(event, bHandled);
}

void CDUIControlBase::OnDUINotify(const tagDUINotify& notify, BOOL&)
{
    if (notify.nCode == DUINOTIFY_CREATED)
        OnCreate();
    else if (notify.nCode == DUINOTIFY_DESTROYED)
        OnDestroy();
}

void CDUIControlBase::OnDestroy()
{
    ModifyStatus(DUISTATUS_HOT, 0);
}

LRESULT CDUIControlBase::PreTranslateEvent(const tagDUIEvent& event, BOOL& bHandled)
{
    IDUIControl* const subclass = GetExtras().subclass;
    const ControlGuard keep(subclass);
    return subclass ? subclass->OnDUIEvent(event, bHandled) : 0;
}

LRESULT CDUIControlBase::ProcessEvent(const tagDUIEvent& event, BOOL&)
{
    switch (event.Type) {
        case DUIEVENT_SETCURSOR:
            if (const CRefPtr<CCursorObject>& cursor = GetExtras().cursor; !cursor.IsNull())
                ::SetCursor(cursor->GetCursor());
            break;
        case DUIEVENT_TIMER:
            OnTimer(static_cast<int>(event.wParam));
            break;
        case DUIEVENT_SETFOCUS:
            ModifyStatus(0, DUISTATUS_FOCUSED);
            break;
        case DUIEVENT_KILLFOCUS:
            ModifyStatus(DUISTATUS_FOCUSED, 0);
            break;
        case DUIEVENT_MOUSEWHEEL:
            OnMouseWheel(event);
            break;
        case DUIEVENT_VSCROLL:
            OnVertialSBEvent(event);
            break;
        case DUIEVENT_HSCROLL:
            OnHorizontalSBEvent(event);
            break;
        default:
            break;
    }
    return 0;
}

void CDUIControlBase::BroadcastEvent(const tagDUIEvent& event)
{
    ForEachChild([&event](IDUIControl& child) { child.BroadcastEvent(event); });
    BOOL bHandled = FALSE;
    OnDUIEvent(event, bHandled);
}

}  // namespace DUI
