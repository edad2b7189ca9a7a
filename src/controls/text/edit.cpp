#include <qvui/controls/text/edit.h>

#include <algorithm>
#include <cstdlib>
#include <string>
#include <utility>

#include "framework/control_guard.h"
#include "skin/skin_access.h"

namespace DUI {

namespace {

// What is farther off than any window reaches is so far that sums with it stay within an int.
RECT WindowPlace(const RECT& rect)
{
    static constexpr LONG kFarthest = 0x7FFF;
    const auto keep = [](LONG value) { return std::clamp(value, -kFarthest, kFarthest); };
    return {keep(rect.left), keep(rect.top), keep(rect.right), keep(rect.bottom)};
}

}  // namespace

// --- what tools know ---------------------------------------------------------------------------------------

template <class Change>
void CDUIEdit::ChangeLook(Change change)
{
    EditLook look = Look();
    change(look);
    SetLook(look);
}

void CDUIEdit::SetColors(const CString& names, std::initializer_list<COLORREF EditLook::*> colors)
{
    ChangeLook([&names, colors](EditLook& look) {
        std::string_view rest(names);
        for (COLORREF EditLook::*const color : colors) {
            const std::size_t end = rest.find(',');
            look.*color =
                skin::Color(CString(std::string(rest.substr(0, end)).c_str()).TrimLeft()).GetColor();
            if (end == std::string_view::npos)
                return;
            rest.remove_prefix(end + 1);
        }
    });
}

const AttributeTable<CDUIEdit>& CDUIEdit::Attributes()
{
    static const AttributeTable<CDUIEdit> attributes{
        {"readonly",
         {AttributeKind::Boolean, "false"},
         "\"true\" shows a text that can only be copied.",
         &CDUIEdit::SetReadOnly},
        {"password",
         {AttributeKind::Boolean, "false"},
         "\"true\" shows an asterisk for each byte.",
         [](CDUIEdit& edit, const CString& value) {
             edit.ChangeLook([&value](EditLook& look) { look.isPassword = IsTrue(value); });
         }},
        {"inset",
         {AttributeKind::Rect, "4,2,4,2"},
         "The space that the text keeps free at the right, and above and below; \"leftmargin\" is the left.",
         [](CDUIEdit& edit, const CString& value) {
             edit.ChangeLook([&value](EditLook& look) { look.inset = ReadRect(value); });
         }},
        {"limit_text",
         {AttributeKind::Integer},
         "The most bytes that can be entered; negative values change nothing. Without it there is no limit.",
         [](CDUIEdit& edit, const CString& value) {
             if (const int limit = std::atoi(value); limit >= 0)
                 edit.SetLimit(limit);
         }},
        {"default_text",
         {AttributeKind::Text, ""},
         "The text that an empty field shows in gray.",
         &CDUIEdit::SetDefaultText},
        {"back_image", AttributeKind::Image,
         "Picture of four states, one below the other: normal, hot, unused, disabled.",
         [](CDUIEdit& edit, const CString& value) {
             edit.ChangeLook([&value](EditLook& look) { look.backImage = skin::Image(value); });
         }},
        {"leftmargin",
         {AttributeKind::Integer, "5"},
         "Pixels between the left edge and the text.",
         [](CDUIEdit& edit, const CString& value) {
             edit.ChangeLook([&value](EditLook& look) { look.leftMargin = std::atoi(value); });
         }},
        {"back_color",
         {AttributeKind::ColorPair, "FFFAFAFA,FFECE9D8"},
         "The background, and the background of a field that is read-only or disabled.",
         [](CDUIEdit& edit, const CString& value) {
             edit.SetColors(value, {&EditLook::back, &EditLook::readOnlyBack});
         }},
        {"text_color",
         {AttributeKind::Colors, "FF000000,FF316AC5,FFACA899"},
         "The text, the selection, and the text of a disabled field.",
         [](CDUIEdit& edit, const CString& value) {
             edit.SetColors(value, {&EditLook::text, &EditLook::selection, &EditLook::disabledText});
         }},
        {"border_color",
         {AttributeKind::ColorPair, "FF91B0C4,FF348CC1"},
         "The frame, and the frame below the pointer.",
         [](CDUIEdit& edit, const CString& value) {
             edit.SetColors(value, {&EditLook::border, &EditLook::hoverBorder});
         }},
        {"id",
         {AttributeKind::Integer, "0"},
         "The identifier of the native window, which its WM_COMMAND messages hold.",
         &CDUIEdit::m_nWindowId},
        {"uppercase",
         {AttributeKind::Boolean, "false"},
         "\"true\" turns what is entered to capitals.",
         &CDUIEdit::SetUppercase},
    };
    return attributes;
}

const ControlClass& CDUIEdit::Class()
{
    static const ControlClass theClass("CDUIEdit", &CDUIControlBase::Class(),
                                       "A text field of one line with a native window of its own.", {"edit"},
                                       &Attributes());
    return theClass;
}

// --- life --------------------------------------------------------------------------------------------------

CDUIEdit::CDUIEdit()
{
    ModifyStyle(0, DUISTYLE_CURSOR | DUISTYLE_TABSTOP);
}

CDUIEdit::CDUIEdit(const CDUIEdit& other)
    : ControlOf(other),
      CQVEdit(other),
      m_strDefaultText(other.m_strDefaultText),
      m_nWindowId(other.m_nWindowId)
{
}

void CDUIEdit::OnCreate()
{
    const HWND parent = GetManagerWnd(FALSE);
    if (!parent)
        return;
    // What the parent paints must not cover the field.
    SetWindowLongA(
        parent, GWL_STYLE,
        static_cast<LONG>(static_cast<DWORD>(GetWindowLongA(parent, GWL_STYLE)) | WS_CLIPCHILDREN));
    TakeFont();
    if (!CQVEdit::Create(WS_CHILD | WS_VISIBLE, WindowPlace(GetControlRect()), parent,
                         static_cast<UINT>(m_nWindowId), TRUE))
        return;
    if (!IsEnabled())
        Disable();
    ShowOrHide();
    GetControlMgr()->GetMessageLoop().AddMessageFilter(this);
}

void CDUIEdit::OnDestroy()
{
    if (GetControlMgr())
        GetControlMgr()->GetMessageLoop().RemoveMessageFilter(this);
    m_isMovingFocus = true;
    DestroyWindow();
    m_isMovingFocus = false;
    CDUIControlBase::OnDestroy();
}

void CDUIEdit::TakeFont()
{
    const CRefPtr<CTextStyle> style = GetTextStyle();
    LOGFONTA font{};
    if (!style.IsNull() && !style->GetNormalFont().IsNull() &&
        GetObjectA(style->GetNormalFont()->GetFont(), sizeof font, &font))
        SetEditFont(font);
}

void CDUIEdit::SetAttribute(const CString& name, const CString& value)
{
    ControlOf::SetAttribute(name, value);
    if (Attributes().Find(name) < 0)
        TakeFont();
}

void CDUIEdit::SetTextStyle(CRefPtr<CTextStyle> style)
{
    CDUIControlBase::SetTextStyle(style);
    TakeFont();
}

// --- text --------------------------------------------------------------------------------------------------

const CString& CDUIEdit::GetText()
{
    m_strShownText = GetWindowText();
    return m_strShownText;
}

void CDUIEdit::SetText(const CString& text)
{
    CDUIControlBase::SetText(text);
    SetWindowText(text);
}

void CDUIEdit::SetDefaultText(const CString& text)
{
    m_strDefaultText = text;
    SetWindowDefaultText(text, Look().defaultText);
}

// --- place and visibility ----------------------------------------------------------------------------------

void CDUIEdit::SetControlRect(const RECT& rect)
{
    StoreControlRect(rect);
    if (!m_hWnd)
        return;
    const RECT place = WindowPlace(rect);
    MoveWindow(m_hWnd, place.left, place.top, std::max(0, static_cast<int>(place.right - place.left)),
               std::max(0, static_cast<int>(place.bottom - place.top)), TRUE);
    ClipToContainers();
}

// A container that scrolls cuts its children off at its edges; a native window has to be told.
void CDUIEdit::ClipToContainers()
{
    const RECT place = WindowPlace(GetControlRect());
    RECT shown = place;
    for (IDUIControl* parent = GetParent(); parent; parent = parent->GetParent()) {
        const RECT around = parent->GetControlRect();
        IntersectRect(&shown, &shown, &around);
    }
    HRGN region = nullptr;
    if (EqualRect(&shown, &place)) {
        if (!std::exchange(m_isClipped, false))
            return;
    } else {
        m_isClipped = true;
        OffsetRect(&shown, -place.left, -place.top);
        region = CreateRectRgnIndirect(&shown);
    }
    SetWindowRgn(m_hWnd, region, TRUE);
}

void CDUIEdit::ShowOrHide()
{
    if (m_hWnd)
        ShowWindow(m_hWnd, IsVisible(TRUE) ? SW_SHOW : SW_HIDE);
}

void CDUIEdit::ModifyStyle(DWORD remove, DWORD add)
{
    CDUIControlBase::ModifyStyle(remove, add);
    ShowOrHide();
}

void CDUIEdit::OnParentVisibleStatusChange(BOOL bVisible)
{
    CDUIControlBase::OnParentVisibleStatusChange(bVisible);
    ShowOrHide();
}

// --- focus -------------------------------------------------------------------------------------------------

void CDUIEdit::ModifyStatus(DWORD remove, DWORD add)
{
    const ControlGuard keep(this);
    const DWORD before = GetStatus();
    CDUIControlBase::ModifyStatus(remove, add);
    const DWORD changed = before ^ GetStatus();
    if (changed && (remove == DUISTATUS_DISABLED || add == DUISTATUS_DISABLED))
        IsEnabled() ? Enable() : Disable();
    if (!m_hWnd || m_isMovingFocus || !(changed & DUISTATUS_FOCUSED))
        return;
    if (GetStatus() & DUISTATUS_FOCUSED)
        TakeNativeFocus();
    else
        GiveNativeFocusBack();
}

// The parent loses the native focus to the window, which would take the focus of the control.
void CDUIEdit::TakeNativeFocus()
{
    const bool wasMoving = std::exchange(m_isMovingFocus, true);
    if (::GetFocus() == m_hWnd)
        SendMessageA(m_hWnd, WM_SETFOCUS, 0, 0);
    else
        ::SetFocus(m_hWnd);
    m_isMovingFocus = wasMoving;
}

void CDUIEdit::GiveNativeFocusBack()
{
    const bool wasMoving = std::exchange(m_isMovingFocus, true);
    if (::GetFocus() == m_hWnd)
        ::SetFocus(::GetParent(m_hWnd));
    else
        SendMessageA(m_hWnd, WM_KILLFOCUS, 0, 0);
    m_isMovingFocus = wasMoving;
}

void CDUIEdit::SetFocus(BOOL bFocus)
{
    if (m_isMovingFocus)
        return;
    const ControlGuard keep(this);
    CDUIControlBase::SetFocus(bFocus);
    if (bFocus && m_hWnd && GetFocus() && ::GetFocus() != m_hWnd)
        TakeNativeFocus();
}

LRESULT CDUIEdit::WindowProc(UINT message, WPARAM wParam, LPARAM lParam)
{
    const ControlGuard keep(this);
    const LRESULT result = CQVEdit::WindowProc(message, wParam, lParam);
    // The native focus went elsewhere by itself.
    if (message == WM_KILLFOCUS && !m_isMovingFocus && GetFocus()) {
        m_isMovingFocus = true;
        CDUIControlBase::SetFocus(FALSE);
        m_isMovingFocus = false;
    }
    return result;
}

LRESULT CDUIEdit::ProcessEvent(const tagDUIEvent& event, BOOL& bHandled)
{
    const LRESULT result = CDUIControlBase::ProcessEvent(event, bHandled);
    // The host has taken the mouse for the press that it saw; a drag needs it back.
    if (event.Type == DUIEVENT_LBUTTONDOWN && m_hWnd) {
        if (IsDragging())
            SetCapture(m_hWnd);
        else
            ReleaseCapture();
    }
    return result;
}

}  // namespace DUI
