// A text field's window: what it is made of, its keys and its text.

#include <qvui/controls/text/edit_window.h>

#include <algorithm>
#include <cstring>

#include <qvui/platform/text_services.h>

#include "controls/text/clipboard.h"
#include "controls/text/edit_line.h"
#include "controls/text/edit_menu.h"
#include "controls/text/multibyte.h"

namespace DUI {
namespace {

constexpr char kClassName[] = "QvuiEdit";
constexpr char kDefaultFace[] = "\xCB\xCE\xCC\xE5";  // SimSun, in code page 936

bool IsHeld(int key)
{
    return GetKeyState(key) < 0;
}

LOGFONTA DefaultFont()
{
    LOGFONTA font{};
    font.lfHeight = 14;
    font.lfWeight = 400;
    font.lfOutPrecision = 4;
    font.lfPitchAndFamily = 34;
    std::memcpy(font.lfFaceName, kDefaultFace, sizeof kDefaultFace);
    return font;
}

enum CharacterCode : WPARAM { kCopyCode = 3, kBackspaceCode = 8, kPasteCode = 22, kCutCode = 24 };

}  // namespace

CQVEdit::CQVEdit() : m_line(std::make_unique<EditLine>()), m_logFont(DefaultFont())
{
}

CQVEdit::CQVEdit(const CQVEdit& other)
    : m_look(other.m_look),
      m_line(std::make_unique<EditLine>(*other.m_line)),
      m_defaultText(other.m_defaultText),
      m_logFont(other.m_logFont),
      m_isReadOnly(other.m_isReadOnly),
      m_isDisabled(other.m_isDisabled)
{
}

CQVEdit::~CQVEdit()
{
    DropBackBuffer();
    if (m_font)
        DeleteObject(m_font);
}

const CRuntimeClass* CQVEdit::GetRuntimeClass() const
{
    static const CRuntimeClass theClass{"CQVEdit", CWnd::GetRuntimeClass()};
    return &theClass;
}

const CWnd::MessageMap* CQVEdit::GetMessageMap() const
{
    using Handler = LRESULT (CQVEdit::*)(WPARAM, LPARAM);
    const auto entry = [](UINT message, Handler handler) {
        return MessageEntry{message, static_cast<MessageHandler>(handler)};
    };
    static const MessageEntry entries[] = {
        entry(WM_CREATE, &CQVEdit::OnCreate),
        entry(WM_SIZE, &CQVEdit::OnSize),
        entry(WM_ERASEBKGND, &CQVEdit::OnEraseBackground),
        entry(WM_PAINT, &CQVEdit::OnPaint),
        entry(WM_SETFOCUS, &CQVEdit::OnSetFocus),
        entry(WM_KILLFOCUS, &CQVEdit::OnKillFocus),
        entry(WM_CHAR, &CQVEdit::OnChar),
        entry(WM_GETDLGCODE, &CQVEdit::OnGetDialogCode),
        entry(WM_CONTEXTMENU, &CQVEdit::OnContextMenu),
        entry(WM_LBUTTONDOWN, &CQVEdit::OnLButtonDown),
        entry(WM_LBUTTONDBLCLK, &CQVEdit::OnLButtonDoubleClick),
        entry(WM_LBUTTONUP, &CQVEdit::OnLButtonUp),
        entry(WM_CAPTURECHANGED, &CQVEdit::OnCaptureChanged),
        entry(WM_MOUSEMOVE, &CQVEdit::OnMouseMove),
        entry(WM_MOUSEHOVER, &CQVEdit::OnMouseHover),
        entry(WM_MOUSELEAVE, &CQVEdit::OnMouseLeave),
    };
    static const MessageMap map{CWnd::GetMessageMap(), entries, std::size(entries)};
    return &map;
}

BOOL CQVEdit::PreCreateWindow(CREATESTRUCTA& create)
{
    create.lpszClass = kClassName;
    return RegisterWindowClass(kClassName, CS_DBLCLKS, LoadCursorA(nullptr, IDC_IBEAM));
}

BOOL CQVEdit::Create(DWORD style, const RECT& rect, HWND parent, UINT id, BOOL forwardsClicks)
{
    m_forwardsClicks = forwardsClicks != FALSE;
    return CreateEx(0, nullptr, "", style, rect, parent, id);
}

// --- state -------------------------------------------------------------------------------------------------

void CQVEdit::Disable()
{
    m_isDisabled = true;
    DropBackBuffer();
    if (m_hWnd)
        EnableWindow(m_hWnd, FALSE);
}

void CQVEdit::Enable()
{
    m_isDisabled = false;
    DropBackBuffer();
    if (m_hWnd)
        EnableWindow(m_hWnd, TRUE);
}

CString CQVEdit::GetWindowText() const
{
    return CString(m_line->Text().c_str());
}

void CQVEdit::SetWindowText(const CString& text)
{
    if (m_line->Text() == text.GetString())
        return;
    m_line->SetText(text.GetString());
    m_firstVisible = 0;
    ScrollToCaret();
    ShowCaretThere();
}

void CQVEdit::SetLimit(int bytes)
{
    m_line->SetLimit(bytes < 0 ? EditLine::kNoLimit : bytes);
}

void CQVEdit::SetUppercase(bool isOn)
{
    m_line->SetUppercase(isOn);
}

void CQVEdit::SetWindowReadOnly(bool isReadOnly)
{
    m_isReadOnly = isReadOnly;
    DropBackBuffer();
}

void CQVEdit::SetWindowDefaultText(const CString& text, COLORREF color)
{
    m_defaultText = text;
    m_look.defaultText = color;
    DropBackBuffer();
}

void CQVEdit::SetEditFont(const LOGFONTA& font)
{
    m_logFont = font;
    if (m_font)
        DeleteObject(m_font);
    m_font = nullptr;
    MeasureFont();
    ScrollToCaret();
    DropBackBuffer();
}

void CQVEdit::SetLook(const EditLook& look)
{
    m_look = look;
    // What is wider than any window is so wide that sums stay within an int.
    static constexpr LONG kFarthest = 0x7FFF;
    const auto keep = [](auto& measure) {
        measure = std::clamp<std::decay_t<decltype(measure)>>(measure, -kFarthest, kFarthest);
    };
    keep(m_look.leftMargin);
    for (LONG RECT::*const side : {&RECT::left, &RECT::top, &RECT::right, &RECT::bottom})
        keep(m_look.inset.*side);
    MeasureFont();
    ScrollToCaret();
    DropBackBuffer();
}

HFONT CQVEdit::Font() const
{
    if (!m_font)
        m_font = CreateFontIndirectA(&m_logFont);
    return m_font;
}

void CQVEdit::Tell(WORD code)
{
    const auto id = static_cast<WORD>(GetDlgCtrlID(m_hWnd));
    PostMessageA(GetParent(m_hWnd), WM_COMMAND, static_cast<WPARAM>(MAKELONG(id, code)),
                 reinterpret_cast<LPARAM>(m_hWnd));
}

LRESULT CQVEdit::OnCreate(WPARAM wParam, LPARAM lParam)
{
    MeasureFont();
    return Default(WM_CREATE, wParam, lParam);
}

LRESULT CQVEdit::OnSize(WPARAM wParam, LPARAM lParam)
{
    MeasureFont();
    ScrollToCaret();
    DropBackBuffer();
    if (::GetFocus() == m_hWnd)
        SetCaretPos(XOf(m_line->Caret()), m_textY);
    return Default(WM_SIZE, wParam, lParam);
}

LRESULT CQVEdit::OnGetDialogCode(WPARAM, LPARAM)
{
    constexpr LRESULT kWantsArrows = 1;
    constexpr LRESULT kHasSelection = 8;
    constexpr LRESULT kWantsCharacters = 0x80;
    return kWantsArrows | kHasSelection | kWantsCharacters;
}

LRESULT CQVEdit::OnSetFocus(WPARAM wParam, LPARAM lParam)
{
    m_isFocusLost = false;
    if (m_line->Length() > 0)
        m_line->SelectAll();
    CreateCaret(m_hWnd, nullptr, 1, m_charHeight);
    ShowCaretThere();
    ShowCaret(m_hWnd);
    Tell(EN_SETFOCUS);
    return Default(WM_SETFOCUS, wParam, lParam);
}

LRESULT CQVEdit::OnKillFocus(WPARAM wParam, LPARAM lParam)
{
    HideCaret(m_hWnd);
    DestroyCaret();
    m_line->ClearSelection();
    m_isFocusLost = true;
    DropBackBuffer();
    Tell(EN_KILLFOCUS);
    return Default(WM_KILLFOCUS, wParam, lParam);
}

// --- keys --------------------------------------------------------------------------------------------------

BOOL CQVEdit::PreTranslateMessage(MSG* message)
{
    if (message->hwnd == m_hWnd && message->message == WM_LBUTTONDOWN && m_forwardsClicks) {
        POINT point{static_cast<short>(LOWORD(message->lParam)), static_cast<short>(HIWORD(message->lParam))};
        const HWND parent = GetParent(m_hWnd);
        ClientToScreen(m_hWnd, &point);
        ScreenToClient(parent, &point);
        PostMessageA(parent, WM_LBUTTONDOWN, message->wParam, MAKELPARAM(point.x, point.y));
    }
    if (message->hwnd == m_hWnd && message->message == WM_KEYDOWN && !m_isDisabled && OnKey(message->wParam))
        return TRUE;
    return CWnd::PreTranslateMessage(message);
}

/// A key with what it does; Shift extends what moves.
struct CQVEdit::Key {
    WPARAM key;
    bool isWithControl;
    bool edits;
    void (*act)(CQVEdit& edit, bool extends);
};

// True when the key is consumed; Delete is not, by itself.
bool CQVEdit::OnKey(WPARAM key)
{
    using multibyte::Next;
    static const Key kKeys[] = {
        {VK_HOME, false, false, [](CQVEdit& e, bool extends) { e.m_line->MoveToStart(extends); }},
        {VK_HOME, true, false, [](CQVEdit& e, bool extends) { e.m_line->MoveToStart(extends); }},
        {VK_END, false, false, [](CQVEdit& e, bool extends) { e.m_line->MoveToEnd(extends); }},
        {VK_END, true, false, [](CQVEdit& e, bool extends) { e.m_line->MoveToEnd(extends); }},
        {VK_LEFT, false, false,
         [](CQVEdit& e, bool extends) {
             e.m_line->MoveTo(multibyte::Previous(e.m_line->Text(), e.m_line->Caret()), extends);
         }},
        {VK_RIGHT, false, false,
         [](CQVEdit& e, bool extends) {
             e.m_line->MoveTo(Next(e.m_line->Text(), e.m_line->Caret()), extends);
         }},
        {VK_LEFT, true, false,
         [](CQVEdit& e, bool extends) {
             e.m_line->MoveTo(multibyte::PreviousWord(e.m_line->Text(), e.m_line->Caret()), extends);
         }},
        {VK_RIGHT, true, false,
         [](CQVEdit& e, bool extends) {
             e.m_line->MoveTo(multibyte::NextWord(e.m_line->Text(), e.m_line->Caret()), extends);
         }},
        {VK_DELETE, true, true,
         [](CQVEdit& e, bool) {
             e.m_line->DeleteTo(multibyte::NextWord(e.m_line->Text(), e.m_line->Caret()));
         }},
        {VK_BACK, true, true,
         [](CQVEdit& e, bool) {
             e.m_line->DeleteTo(multibyte::PreviousWord(e.m_line->Text(), e.m_line->Caret()));
         }},
        {'Z', true, true, [](CQVEdit& e, bool extends) { extends ? e.m_line->Redo() : e.m_line->Undo(); }},
        {'Y', true, true, [](CQVEdit& e, bool) { e.m_line->Redo(); }},
        {'A', true, false, [](CQVEdit& e, bool) { e.m_line->Select(0, e.m_line->Length()); }},
        {VK_INSERT, true, false, [](CQVEdit& e, bool) { e.Copy(); }},
    };
    const bool isControl = IsHeld(VK_CONTROL);
    const bool isShift = IsHeld(VK_SHIFT);
    if (IsHeld(VK_MENU))
        return false;
    const auto found =
        std::find_if(std::begin(kKeys), std::end(kKeys), [key, isControl](const Key& candidate) {
            return candidate.key == key && candidate.isWithControl == isControl;
        });
    if (found != std::end(kKeys)) {
        if (found->edits && m_isReadOnly)
            return true;
        found->act(*this, isShift);
        ScrollToCaret();
        ShowCaretThere();
        if (found->edits)
            Tell(EN_CHANGE);
        return true;
    }
    if (key == VK_INSERT && isShift && !m_isReadOnly) {
        Paste();
        return true;
    }
    if (key == VK_DELETE && !m_isReadOnly) {
        if (isShift && m_line->HasSelection())
            Cut();
        else if (m_line->DeleteTo(Next(m_line->Text(), m_line->Caret())))
            AfterEdit();
    }
    return false;
}

LRESULT CQVEdit::OnChar(WPARAM wParam, LPARAM lParam)
{
    if (m_isDisabled || (m_isReadOnly && wParam != kCopyCode) || (m_isFocusLost && m_forwardsClicks))
        return 0;
    switch (wParam) {
        case kCopyCode:
            Copy();
            break;
        case kPasteCode:
            clipboard::Read([this](const std::string& text) { m_line->Paste(text); });
            break;
        case kCutCode:
            Copy();
            if (!m_look.isPassword)
                m_line->DeleteSelection();
            break;
        case kBackspaceCode:
            m_line->DeleteTo(multibyte::Previous(m_line->Text(), m_line->Caret()));
            break;
        default:
            if (constexpr WPARAM kFirstPrintable = 32, kDelete = 127;
                wParam >= kFirstPrintable && wParam != kDelete)
                m_line->Type(static_cast<char>(wParam));
            break;
    }
    AfterEdit();
    return Default(WM_CHAR, wParam, lParam);
}

// Half a character is not shown: it is measured and painted when the rest has come.
void CQVEdit::AfterEdit()
{
    if (!EditLine::IsCharacterPending()) {
        ScrollToCaret();
        // What was deleted at the end leaves no gap there.
        m_firstVisible = std::min(m_firstVisible, FirstBefore(m_line->Length()));
        ShowCaretThere();
    }
    Tell(EN_CHANGE);
}

void CQVEdit::Copy()
{
    if (m_line->HasSelection() && !m_look.isPassword)
        clipboard::Write(m_hWnd, m_line->SelectedText());
}

void CQVEdit::Cut()
{
    if (m_look.isPassword)
        return;
    Copy();
    m_line->DeleteSelection();
    AfterEdit();
}

void CQVEdit::Paste()
{
    clipboard::Read([this](const std::string& text) { m_line->Paste(text); });
    AfterEdit();
}

LRESULT CQVEdit::OnContextMenu(WPARAM, LPARAM lParam)
{
    POINT screen{static_cast<short>(LOWORD(lParam)), static_cast<short>(HIWORD(lParam))};
    if (screen.x == -1 && screen.y == -1) {  // by the keyboard
        screen = {XOf(m_line->Caret()), m_textY + m_charHeight};
        ClientToScreen(m_hWnd, &screen);
    }
    const HWND window = m_hWnd;
    const bool canCopy = m_line->HasSelection() && !m_look.isPassword;
    edit_menu::Commands commands;
    commands.canUndo = !m_isReadOnly && m_line->CanUndo();
    commands.canCut = !m_isReadOnly && canCopy;
    commands.canCopy = canCopy;
    commands.canPaste = !m_isReadOnly && IsClipboardFormatAvailable(CF_TEXT);
    commands.canSelectAll = m_line->Length() > 0;
    const UINT command = edit_menu::Choose(commands, window, screen);
    // The menu let other messages through.
    if (FromHandlePermanent(window) != this)
        return 0;
    switch (command) {
        case edit_menu::kCopy:
            Copy();
            break;
        case edit_menu::kCut:
            Cut();
            break;
        case edit_menu::kPaste:
            Paste();
            break;
        case edit_menu::kDelete:
            if (m_line->DeleteSelection())
                AfterEdit();
            break;
        case edit_menu::kUndo:
        case edit_menu::kUndoToo:
            if (m_line->Undo())
                AfterEdit();
            break;
        case edit_menu::kSelectAll:
            m_line->Select(0, m_line->Length());
            ScrollToCaret();
            ShowCaretThere();
            break;
        default:
            break;
    }
    return 0;
}

}  // namespace DUI
