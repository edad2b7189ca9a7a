#include <qvui/controls/text/rich_edit.h>

#include <algorithm>
#include <initializer_list>
#include <vector>

#include <qvui/framework/message_loop.h>

#include "controls/pointer_state.h"
#include "controls/scrolling/owned_scroll_bar.h"
#include "controls/text/edit_menu.h"
#include "controls/text/wide_text.h"
#include "foundation/rect.h"
#include "framework/control_guard.h"
#include "skin/skin_access.h"

namespace DUI {

using namespace geometry;

namespace {

constexpr UINT kUtf16 = 1200;

struct StyleWord {
    const char* name;
    DWORD bit;
};
constexpr StyleWord kStyleWords[] = {{"WS_VSCROLL", WS_VSCROLL},
                                     {"WS_HSCROLL", WS_HSCROLL},
                                     {"ES_DISABLENOSCROLL", ES_DISABLENOSCROLL},
                                     {"ES_AUTOVSCROLL", ES_AUTOVSCROLL},
                                     {"ES_AUTOHSCROLL", ES_AUTOHSCROLL}};

bool Holds(const RECT& rect, POINT point)
{
    return PtInRect(&rect, point) != FALSE;
}

}  // namespace

/// Characters that are under way.
struct CDUIRichEdit::Typing {
    wide_text::CharacterAssembler assembler;
};

// --- what tools know ---------------------------------------------------------------------------------------

const AttributeTable<CDUIRichEdit>& CDUIRichEdit::Attributes()
{
    static const AttributeTable<CDUIRichEdit> attributes{
        {"scrollbar_style",
         {AttributeKind::Keywords,
          "",
          "WS_VSCROLL|WS_HSCROLL|ES_DISABLENOSCROLL|ES_AUTOVSCROLL|ES_AUTOHSCROLL",
          {.accumulates = true}},
         "The scroll bars that the text can have, whether they stay while everything fits, and whether the "
         "text follows "
         "the caret.",
         [](CDUIRichEdit& edit, const CString& value) {
             for (const StyleWord& word : kStyleWords)
                 if (value.Find(word.name) >= 0)
                     edit.m_dwEditStyle |= word.bit;
         }},
        {"multiline",
         {AttributeKind::Boolean, "false"},
         "\"true\" lets Return start a new line; otherwise the text is one line that follows the caret.",
         [](CDUIRichEdit& edit, const CString& value) {
             if (IsTrue(value)) {
                 edit.m_dwEditStyle |= ES_MULTILINE;
                 edit.ModifyStyle(0, DUISTYLE_WANTRETURN);
             } else {
                 edit.m_dwEditStyle =
                     (edit.m_dwEditStyle & ~static_cast<DWORD>(ES_MULTILINE)) | ES_AUTOHSCROLL;
                 edit.ModifyStyle(DUISTYLE_WANTRETURN, 0);
             }
         }},
        {"rich",
         {AttributeKind::Boolean, "false"},
         "\"true\" lets parts of the text have formats of their own.",
         &CDUIRichEdit::SetRich},
        {"read_only",
         {AttributeKind::Boolean, "false"},
         "\"true\" shows a text that cannot be changed.",
         &CDUIRichEdit::SetReadOnly},
        {"password",
         {AttributeKind::Boolean, "false"},
         "\"true\" shows an asterisk for each character.",
         [](CDUIRichEdit& edit, const CString& value) {
             edit.m_dwEditStyle = IsTrue(value) ? edit.m_dwEditStyle | ES_PASSWORD
                                                : edit.m_dwEditStyle & ~static_cast<DWORD>(ES_PASSWORD);
         }},
        {"back_image", AttributeKind::Image,
         "Strip behind the text: normal, hot, unused, disabled or read-only, focused.",
         &CDUIRichEdit::m_pBackImage},
        {"inset",
         {AttributeKind::Rect, "0,0,0,0"},
         "The space between the control's content and its text.",
         [](CDUIRichEdit& edit, const CString& value) { edit.SetViewInset(ReadRect(value)); }},
        {"context_menu",
         {AttributeKind::Boolean, "false"},
         "\"true\" gives the text the system's edit menu.",
         &CDUIRichEdit::m_bContextMenu},
        {"limit_text",
         {AttributeKind::Integer, "32767"},
         "The most characters that can be typed; 0 stands for 32767, negative values change nothing.",
         [](CDUIRichEdit& edit, const CString& value) {
             const int limit = atoi(value);
             if (limit >= 0)
                 edit.SetLimitText(limit);
         }},
        {"default_text",
         {AttributeKind::Text, ""},
         "The text that an empty field shows in the disabled colour while it has not the focus.",
         [](CDUIRichEdit& edit, const CString& value) {
             edit.SetText(value);
             edit.m_strDefaultText = value;
         }},
    };
    return attributes;
}

const ControlClass& CDUIRichEdit::Class()
{
    static const ControlClass theClass(
        "CDUIRichEdit", &CDUIControlBase::Class(),
        "A text editor of one line or many, plain or rich, with scroll bars and a placeholder.", {"richedit"},
        &Attributes(), {{"DUINOTIFY_EDITNOTIFY", "wParam is the text services' code, lParam its data."}});
    return theClass;
}

// --- life --------------------------------------------------------------------------------------------------

CDUIRichEdit::CDUIRichEdit() : m_pHost(std::make_unique<CTxtWinHost>()), m_pTyping(std::make_unique<Typing>())
{
    ModifyStyle(0, DUISTYLE_CURSOR | DUISTYLE_TABSTOP);
}

CDUIRichEdit::CDUIRichEdit(const CDUIRichEdit& other)
    : ControlOf(other),
      m_pHost(std::make_unique<CTxtWinHost>()),
      m_pBackImage(other.m_pBackImage),
      m_dwEditStyle(other.m_dwEditStyle),
      m_bContextMenu(other.m_bContextMenu),
      m_strDefaultText(other.m_strDefaultText),
      m_pTyping(std::make_unique<Typing>())
{
    m_pHost->SetRich(other.m_pHost->IsRich());
    m_pHost->SetReadOnly(other.m_pHost->IsReadOnly());
    m_pHost->SetWordWrap(other.m_pHost->GetWordWrap());
    m_pHost->SetLimitText(other.m_pHost->GetLimitText());
    m_pHost->SetViewInset(other.m_pHost->GetViewInset());
    m_pHost->SetEventMask(other.m_pHost->GetEventMask());
    if (other.m_pHost->GetTextServices())
        CDUIControlBase::SetText(const_cast<CDUIRichEdit&>(other).GetText());
}

CDUIRichEdit::~CDUIRichEdit()
{
    owned_scroll_bar::ReportTo(m_pHorizontalSB, nullptr);
    owned_scroll_bar::ReportTo(m_pVerticalSB, nullptr);
}

void CDUIRichEdit::OnCreate()
{
    const ControlGuard keep(this);
    if (m_pHorizontalSB.IsNull())
        m_pHorizontalSB = owned_scroll_bar::Create<CDUIHorizontalSB>();
    if (m_pVerticalSB.IsNull())
        m_pVerticalSB = owned_scroll_bar::Create<CDUIVerticalSB>();
    const bool staysShown = (m_dwEditStyle & ES_DISABLENOSCROLL) != 0;
    for (CDUIScrollBarBase* bar : {ScrollBarOf(false), ScrollBarOf(true)})
        // Before they join the window, which would be laid out for each.
        if (bar)
            staysShown ? bar->ModifyStyle(0, DUISTYLE_VISIBLE) : bar->ModifyStyle(DUISTYLE_VISIBLE, 0);
    owned_scroll_bar::Open(m_pHorizontalSB, *this, owned_scroll_bar::kPlainBreadth);
    owned_scroll_bar::Open(m_pVerticalSB, *this, owned_scroll_bar::kPlainBreadth);
    SetControlRect(GetControlRect());
    CREATESTRUCTA create{};
    create.style = static_cast<LONG>(m_dwEditStyle);
    const CString text = CDUIControlBase::GetText();
    create.lpszName = text;
    // Some services ask for the back style when they are made, others when they are told of it.
    m_pHost->SetTransparent(TRUE);
    if (m_pHost->Init(this, &create)) {
        m_pHost->SetTransparent(TRUE);
        Send(EM_SETLANGOPTIONS, 0, 0);
        m_pHost->SetDisabledLook(!IsEnabled());
        if (!m_strDefaultText.IsEmpty() && (text.IsEmpty() || text == m_strDefaultText))
            ShowPlaceholder(true);
    }
    if (GetControlMgr())
        GetControlMgr()->GetMessageLoop().AddMessageFilter(this);
}

void CDUIRichEdit::OnDestroy()
{
    if (GetControlMgr())
        GetControlMgr()->GetMessageLoop().RemoveMessageFilter(this);
    if (m_pHost->GetTextServices()) {
        // The text survives until the control is attached again.
        const CString text = GetText();
        CDUIControlBase::SetText("");
        CDUIControlBase::SetText(text);
    }
    m_pHost->Shutdown();
    owned_scroll_bar::Release(m_pHorizontalSB);
    owned_scroll_bar::Release(m_pVerticalSB);
    CDUIControlBase::OnDestroy();
}

CDUIScrollBarBase* CDUIRichEdit::ScrollBarOf(bool isVertical)
{
    if (isVertical)
        return m_pVerticalSB.GetPtr();
    return m_pHorizontalSB.GetPtr();
}

// --- text --------------------------------------------------------------------------------------------------

LRESULT CDUIRichEdit::Send(UINT message, WPARAM wParam, LPARAM lParam)
{
    LRESULT result = 0;
    TxSendMessage(message, wParam, lParam, &result);
    return result;
}

HRESULT CDUIRichEdit::TxSendMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result)
{
    ITextServices* const services = m_pHost->GetTextServices();
    return services ? services->TxSendMessage(message, wParam, lParam, result) : 0;
}

void CDUIRichEdit::PutText(const CString& text)
{
    Send(WM_SETTEXT, 0, reinterpret_cast<LPARAM>(wide_text::FromSystem(std::string_view(text)).c_str()));
}

void CDUIRichEdit::SetText(const CString& text)
{
    CDUIControlBase::SetText(text);
    PutText(text);
    UpdateLayout(TRUE, nullptr);
}

const CString& CDUIRichEdit::GetText()
{
    if (!m_pHost->GetTextServices())
        return CDUIControlBase::GetText();
    const int length = GetTextLength(0);
    std::vector<WCHAR> buffer(static_cast<std::size_t>(std::max(length, 0)) + 1);
    GETTEXTEX options{};
    options.cb = static_cast<DWORD>(buffer.size() * sizeof(WCHAR));
    options.codepage = kUtf16;
    Send(EM_GETTEXTEX, reinterpret_cast<WPARAM>(&options), reinterpret_cast<LPARAM>(buffer.data()));
    m_strShownText = wide_text::ToSystem(buffer.data());
    if (!m_strDefaultText.IsEmpty() && m_strShownText == m_strDefaultText)
        m_strShownText.Empty();
    return m_strShownText;
}

void CDUIRichEdit::SetDefaultText(const CString& text)
{
    m_strDefaultText = text;
    if (!m_pHost->GetTextServices())
        return;
    ShowPlaceholder(true);
}

// The placeholder is the text itself, in the colour of what is disabled.
void CDUIRichEdit::ShowPlaceholder(bool shows)
{
    const CRefPtr<CTextStyle> style = GetTextStyle();
    if (!style.IsNull())
        m_pHost->SetColor((shows ? style->GetDisableColor() : style->GetNormalColor()).GetColor());
    PutText(shows ? m_strDefaultText : CString());
    UpdateLayout(FALSE, nullptr);
}

void CDUIRichEdit::OnTxNotify(DWORD code, void* data)
{
    const ControlGuard keep(this);
    SendNotify(DUINOTIFY_EDITNOTIFY, code, reinterpret_cast<LPARAM>(data));
}

// --- look --------------------------------------------------------------------------------------------------

void CDUIRichEdit::SetReadOnly(BOOL readOnly)
{
    m_pHost->SetReadOnly(readOnly);
    UpdateLayout(FALSE, nullptr);
}

void CDUIRichEdit::SetTextStyle(CRefPtr<CTextStyle> style)
{
    CDUIControlBase::SetTextStyle(style);
    if (!style.IsNull() && !style->GetNormalFont().IsNull() && m_pHost->GetTextServices())
        m_pHost->UpdateDefaultFormat();
}

void CDUIRichEdit::ModifyStatus(DWORD remove, DWORD add)
{
    const BOOL wasEnabled = IsEnabled();
    CDUIControlBase::ModifyStatus(remove, add);
    if (IsEnabled() != wasEnabled)
        m_pHost->SetDisabledLook(!IsEnabled());
}

BOOL CDUIRichEdit::GetViewInset(RECT& inset)
{
    inset = m_pHost->GetViewInset();
    return TRUE;
}

BOOL CDUIRichEdit::SetViewInset(const RECT& inset)
{
    m_pHost->SetViewInset(inset);
    return TRUE;
}

void CDUIRichEdit::SetControlRect(const RECT& rect)
{
    StoreControlRect(rect);
    RECT content = GetContentRect();
    if (IsRectEmpty(&content))
        return;
    const auto isShown = [](CDUIScrollBarBase* bar) { return bar && bar->IsVisible(FALSE); };
    CDUIScrollBarBase* const vertical = ScrollBarOf(true);
    CDUIScrollBarBase* const horizontal = ScrollBarOf(false);
    const LONG breadth = isShown(vertical) ? vertical->GetFixedSize().cx : 0;
    const LONG height = isShown(horizontal) ? horizontal->GetFixedSize().cy : 0;
    const LONG right = Narrow(Wide(content.right) - breadth);
    const LONG bottom = Narrow(Wide(content.bottom) - height);
    if (isShown(vertical))
        vertical->SetControlRect({right, content.top, content.right, bottom});
    if (isShown(horizontal))
        horizontal->SetControlRect({content.left, bottom, right, content.bottom});
    RECT text{content.left, content.top, right, bottom};
    if (IsRectEmpty(&text))
        text = {content.left, content.top, content.left, content.top};
    m_pHost->SetClientRect(text);
}

void CDUIRichEdit::PaintBkgnd(HDC hdc)
{
    if (!skin::IsLoaded(m_pBackImage))
        return;
    const DWORD status = GetStatus();
    const int icon = !IsEditable() ? 3 : status & DUISTATUS_HOT ? 1 : status & DUISTATUS_FOCUSED ? 4 : 0;
    m_pBackImage->DrawImage(hdc, GetControlRect(), skin::IconIndex(m_pBackImage, icon));
}

void CDUIRichEdit::DoPaint(HDC hdc, const RECT& rcPaint)
{
    CDUIControlBase::DoPaint(hdc, rcPaint);
    ITextServices* const services = m_pHost->GetTextServices();
    const RECT client = m_pHost->GetClientRect();
    if (!services || IsRectEmpty(&client))
        return;
    const RECTL bounds{client.left, client.top, client.right, client.bottom};
    RECT update = rcPaint;
    services->TxDraw(DVASPECT_CONTENT, 0, nullptr, nullptr, hdc, nullptr, &bounds, nullptr, &update, nullptr,
                     0, TXTVIEW_ACTIVE);
}

// --- input -------------------------------------------------------------------------------------------------

LRESULT CDUIRichEdit::ProcessEvent(const tagDUIEvent& event, BOOL& bHandled)
{
    const ControlGuard keep(this);
    switch (event.Type) {
        case DUIEVENT_SETCURSOR:
            if (Holds(m_pHost->GetClientRect(), event.ptMouse) && m_pHost->GetTextServices()) {
                const HWND window = GetManagerWnd(FALSE);
                const HDC dc = GetDC(window);
                const RECT client = m_pHost->GetClientRect();
                m_pHost->GetTextServices()->OnTxSetCursor(DVASPECT_CONTENT, 0, nullptr, nullptr, dc, nullptr,
                                                          m_pHost->IsInPlaceActive() ? nullptr : &client,
                                                          event.ptMouse.x, event.ptMouse.y);
                ReleaseDC(window, dc);
                bHandled = TRUE;
            }
            break;
        case DUIEVENT_TIMER:
            Send(WM_TIMER, event.wParam, event.lParam);
            break;
        case DUIEVENT_SETFOCUS:
            OnFocus();
            break;
        case DUIEVENT_KILLFOCUS:
            OnFocusLost();
            break;
        case DUIEVENT_LBUTTONDOWN:
        case DUIEVENT_LBUTTONUP:
        case DUIEVENT_LBUTTONDBLCLK:
        case DUIEVENT_MOUSEMOVE:
            if (IsEditable())
                Send(event.Type == DUIEVENT_LBUTTONDOWN     ? WM_LBUTTONDOWN
                     : event.Type == DUIEVENT_LBUTTONUP     ? WM_LBUTTONUP
                     : event.Type == DUIEVENT_LBUTTONDBLCLK ? WM_LBUTTONDBLCLK
                                                            : WM_MOUSEMOVE,
                     event.wParam, event.lParam);
            break;
        case DUIEVENT_MOUSEENTER:
        case DUIEVENT_MOUSELEAVE:
            if (IsEditable() || event.Type == DUIEVENT_MOUSELEAVE)
                pointer_state::Follow(*this, event.Type, DUISTATUS_HOT);
            bHandled = TRUE;
            break;
        case DUIEVENT_MOUSEWHEEL:
            OnWheel(event);
            bHandled = TRUE;
            break;
        case DUIEVENT_CONTEXTMENU:
            if (IsEnabled())
                OnContextMenu(event);
            bHandled = TRUE;
            break;
        case DUIEVENT_KEYDOWN:
        case DUIEVENT_KEYUP:
            if (IsEditable())
                Send(event.Type == DUIEVENT_KEYDOWN ? WM_KEYDOWN : WM_KEYUP, event.wParam, event.lParam);
            break;
        case DUIEVENT_CHAR:
            if (IsEditable())
                TypeByte(event.chKey);
            break;
        case DUIEVENT_VSCROLL:
        case DUIEVENT_HSCROLL:
            OnScrollBar(event);
            bHandled = TRUE;
            break;
        default:
            break;
    }
    return bHandled ? 0 : CDUIControlBase::ProcessEvent(event, bHandled);
}

void CDUIRichEdit::TypeByte(char byte)
{
    const auto code = static_cast<unsigned char>(byte);
    if (code < ' ' || code == 0x7F)
        return;
    for (const WCHAR unit : m_pTyping->assembler.Add(byte))
        Send(WM_CHAR, unit, 1);
}

void CDUIRichEdit::OnFocus()
{
    if (IsEditable() && !m_strDefaultText.IsEmpty() && GetText().IsEmpty())
        ShowPlaceholder(false);
    Send(WM_SETFOCUS);
    if (IsEditable())
        SetSelAll();
}

void CDUIRichEdit::OnFocusLost()
{
    if (IsEditable() && !m_strDefaultText.IsEmpty() && GetText().IsEmpty())
        ShowPlaceholder(true);
    Send(WM_KILLFOCUS);
}

// --- messages ----------------------------------------------------------------------------------------------

bool CDUIRichEdit::TakesMessages(const MSG& message)
{
    const RECT rect = GetControlRect();
    return m_pHost->GetTextServices() && IsEnabled() && IsVisible(TRUE) && !IsRectEmpty(&rect) &&
           GetControlMgr() && message.hwnd == GetManagerWnd(FALSE);
}

// The left button comes as events to a text that can be edited. They don't bring it to one that is read-only,
// nor a release outside while the services hold the mouse, nor the focus of a first press.
void CDUIRichEdit::PreTranslateMouse(const MSG& message)
{
    const POINT point{GET_X_LPARAM(message.lParam), GET_Y_LPARAM(message.lParam)};
    const bool isInside = Holds(m_pHost->GetClientRect(), point);
    if (!isInside && !m_pHost->HasCapture())
        return;
    if (!TakesMessages(message))
        return;
    const auto isOneOf = [&](std::initializer_list<UINT> kinds) {
        return std::find(kinds.begin(), kinds.end(), message.message) != kinds.end();
    };
    if (!m_pHost->HasCapture()) {
        const bool isElsewhere = ::GetCapture() && ::GetCapture() != message.hwnd;
        if (isElsewhere || GetSiblingControl(point) != static_cast<IDUIControl*>(this))
            return;
        if (!GetFocus() && isOneOf({WM_LBUTTONDOWN, WM_LBUTTONDBLCLK, WM_RBUTTONDOWN})) {
            SetFocus(TRUE);
            if (IsEditable())
                return;
        }
    }
    const bool isRelease = message.message == WM_LBUTTONUP;
    if (isRelease ? !isInside || !IsEditable()
                  : !IsEditable() && isOneOf({WM_LBUTTONDOWN, WM_LBUTTONDBLCLK, WM_MOUSEMOVE}))
        Send(message.message, message.wParam, message.lParam);
}

BOOL CDUIRichEdit::PreTranslateMessage(MSG* pMsg)
{
    constexpr UINT kLastMouse = 0x20D;
    const ControlGuard keep(this);
    if (pMsg->message >= WM_MOUSEMOVE && pMsg->message <= kLastMouse) {
        PreTranslateMouse(*pMsg);
        return FALSE;
    }
    if ((pMsg->message != WM_CHAR && pMsg->message != WM_KEYDOWN) || !GetFocus() || !TakesMessages(*pMsg))
        return FALSE;
    if (pMsg->message == WM_CHAR) {
        if (IsEditable())
            TypeByte(static_cast<char>(pMsg->wParam));
        return TRUE;
    }
    // Selecting and copying work in a text that is read-only.
    if (!IsEditable() && pMsg->wParam != VK_TAB && pMsg->wParam != VK_BACK)
        Send(WM_KEYDOWN, pMsg->wParam, pMsg->lParam);
    return FALSE;
}

// --- scrolling ---------------------------------------------------------------------------------------------

void CDUIRichEdit::OnWheel(const tagDUIEvent& event)
{
    CDUIScrollBarBase* bar = ScrollBarOf(true);
    if (!bar || !bar->IsVisible(FALSE))
        bar = ScrollBarOf(false);
    if (!bar || !bar->IsVisible(FALSE))
        return;
    SCROLLINFO info{};
    info.cbSize = sizeof info;
    bar->GetScrollBarInfo(&info);
    const bool isUp = static_cast<short>(HIWORD(event.wParam)) > 0;
    const LONGLONG wanted = LONGLONG{info.nPos} + (isUp ? -GetScrollLineStep() : GetScrollLineStep());
    tagDUIEvent scroll = event;
    scroll.Type = bar->IsVerticalSB() ? DUIEVENT_VSCROLL : DUIEVENT_HSCROLL;
    scroll.pSender = bar;
    scroll.wParam = SB_THUMBTRACK;
    scroll.lParam = Narrow(std::clamp<LONGLONG>(wanted, 0, std::max(info.nMax, 0)));
    OnScrollBar(scroll);
}

void CDUIRichEdit::OnScrollBar(const tagDUIEvent& event)
{
    auto* const bar = InterfaceOf<CDUIScrollBarBase>(event.pSender, "scrollbar")
                          ? ScrollBarOf(event.Type == DUIEVENT_VSCROLL)
                          : nullptr;
    if (!bar)
        return;
    const UINT message = event.Type == DUIEVENT_VSCROLL ? WM_VSCROLL : WM_HSCROLL;
    const auto moveBar = [bar](int position) {
        SCROLLINFO info{};
        info.cbSize = sizeof info;
        info.fMask = SIF_POS;
        info.nPos = position;
        bar->SetScrollBarInfo(&info);
    };
    SCROLLINFO before{};
    before.cbSize = sizeof before;
    bar->GetScrollBarInfo(&before);
    switch (event.wParam) {
        case SB_LINEUP:
        case SB_PAGEUP:
            Send(message, event.wParam);
            break;
        case SB_LINEDOWN:
        case SB_PAGEDOWN: {
            Send(message, event.wParam);
            SCROLLINFO after{};
            after.cbSize = sizeof after;
            bar->GetScrollBarInfo(&after);
            if (after.nPos <= before.nPos)
                moveBar(after.nMax);
            break;
        }
        case SB_THUMBTRACK:
            Send(message, MAKEWPARAM(SB_THUMBTRACK, static_cast<DWORD_PTR>(event.lParam)));
            moveBar(static_cast<int>(event.lParam));
            break;
        default:
            break;
    }
}

void CDUIRichEdit::OnContextMenu(const tagDUIEvent& event)
{
    if (!m_bContextMenu || !m_pHost->GetTextServices() || !Holds(m_pHost->GetClientRect(), event.ptMouse))
        return;
    const bool isReadOnly = IsReadOnly() != FALSE;
    CHARRANGE range{};
    GetSel(range);
    const bool isSelected = range.cpMin != range.cpMax;
    const int length = GetTextLength(0);
    edit_menu::Commands commands;
    commands.canUndo = CanUndo() && !isReadOnly;
    commands.canCopy = isSelected;
    commands.canCut = isSelected && !isReadOnly;
    commands.canPaste = CanPaste() != FALSE;
    commands.canSelectAll = length > 0 && (range.cpMin > 0 || range.cpMax < length);
    const HWND window = GetManagerWnd(FALSE);
    POINT screen = event.ptMouse;
    ClientToScreen(window, &screen);
    switch (edit_menu::Choose(commands, window, screen)) {
        case edit_menu::kCut:
            Cut();
            break;
        case edit_menu::kCopy:
            Copy();
            break;
        case edit_menu::kPaste:
            Paste();
            break;
        case edit_menu::kDelete:
            Clear();
            break;
        case edit_menu::kUndo:
        case edit_menu::kUndoToo:
            Undo();
            break;
        case edit_menu::kSelectAll:
            SetSelAll();
            break;
        default:
            break;
    }
}

}  // namespace DUI
