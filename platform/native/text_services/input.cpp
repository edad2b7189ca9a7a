// Keys, characters, the pointer and the clipboard of the text services.

#include <algorithm>
#include <cstdlib>

#include "native/kernel/clock.h"
#include "native/text_services/services.h"
#include "native/text_services/streams.h"
#include "native/text_services/timers.h"

namespace qvui::native {
namespace {

constexpr UINT kScrollDragEvery = 50;  // milliseconds
constexpr int kDoubleClickDistance = 4;
constexpr char16_t kDeleteCharacter = 0x7F;

bool IsDown(int key)
{
    return GetKeyState(key) < 0;
}

UINT RtfFormat()
{
    static const UINT format = RegisterClipboardFormatA("Rich Text Format");
    return format;
}

HGLOBAL BlockOf(const void* bytes, std::size_t size)
{
    HGLOBAL block = GlobalAlloc(GMEM_MOVEABLE, size);
    if (void* place = block ? GlobalLock(block) : nullptr) {
        std::memcpy(place, bytes, size);
        GlobalUnlock(block);
    }
    return block;
}

std::string BytesOf(HGLOBAL block)
{
    const char* place = block ? static_cast<const char*>(GlobalLock(block)) : nullptr;
    if (!place)
        return {};
    std::string bytes(place, GlobalSize(block));
    GlobalUnlock(block);
    return bytes;
}

/// The clipboard, open for one scope.
class OpenedClipboard {
public:
    OpenedClipboard() : m_isOpen(OpenClipboard(nullptr)) {}
    OpenedClipboard(const OpenedClipboard&) = delete;
    OpenedClipboard& operator=(const OpenedClipboard&) = delete;
    ~OpenedClipboard()
    {
        if (m_isOpen)
            CloseClipboard();
    }
    explicit operator bool() const { return m_isOpen; }

private:
    bool m_isOpen;
};

}  // namespace

// The units that may still be typed or pasted in place of the selection.
int TextServices::Room() const
{
    const Editor::Span selected = m_editor.SelectedText();
    return std::max(0, m_limit - (m_editor.Text().Length() - (selected.last - selected.first)));
}

void TextServices::Type(std::u16string_view text)
{
    if (!CanEdit())
        return;
    m_wantsCaretInView = true;
    if (Room() < static_cast<int>(text.size())) {
        m_hitLimit = true;
        return;
    }
    m_editor.Type(text);
}

bool TextServices::Key(WPARAM key)
{
    const bool isShift = IsDown(VK_SHIFT);
    const bool isControl = IsDown(VK_CONTROL);
    const RECT area = TextArea();
    const int page = area.bottom - area.top;
    const auto move = [&](Editor::Move plain, Editor::Move withControl) {
        m_editor.MoveCaret(isControl ? withControl : plain, isShift, page);
        m_editor.History().StopGrouping();
        m_wantsCaretInView = m_updatesNow = true;
        return true;
    };
    using Move = Editor::Move;
    switch (key) {
        case VK_LEFT:
            return move(Move::Left, Move::WordLeft);
        case VK_RIGHT:
            return move(Move::Right, Move::WordRight);
        case VK_UP:
            return move(Move::Up, Move::Up);
        case VK_DOWN:
            return move(Move::Down, Move::Down);
        case VK_HOME:
            return move(Move::LineStart, Move::TextStart);
        case VK_END:
            return move(Move::LineEnd, Move::TextEnd);
        case VK_PRIOR:
            return move(Move::PageUp, Move::PageUp);
        case VK_NEXT:
            return move(Move::PageDown, Move::PageDown);
        case VK_BACK:
            if (!CanEdit())
                return false;
            m_editor.DeleteBackward(isControl);
            m_wantsCaretInView = true;
            return true;
        case VK_DELETE:
            if (isShift && !isControl) {
                Cut();
                return true;
            }
            if (!CanEdit())
                return false;
            m_editor.DeleteForward(isControl);
            m_wantsCaretInView = true;
            return true;
        case VK_RETURN:
            if (!m_editor.IsMultiLine())
                return false;
            Type(isShift ? u"\v" : u"\r");
            return true;
        case VK_INSERT:
            if (isControl)
                Copy();
            else if (isShift)
                Paste(0);
            return isControl || isShift;
        default:
            return isControl && ControlKey(key);
    }
}

bool TextServices::ControlKey(WPARAM key)
{
    switch (key) {
        case 'A':
            m_editor.SelectAll();
            return true;
        case 'C':
            Copy();
            return true;
        case 'X':
            if (!CanEdit())
                return false;
            Cut();
            return true;
        case 'V':
            if (!CanEdit())
                return false;
            Paste(0);
            return true;
        case 'Z':
        case 'Y':
            if (CanEdit()) {
                key == 'Z' ? m_editor.Undo() : m_editor.Redo();
                m_wantsCaretInView = true;
            }
            return true;
        default:
            return false;
    }
}

void TextServices::Press(UINT message, WPARAM keys, POINT at)
{
    if (m_host.Host())
        m_host.Host()->TxSetFocus();
    const DWORD now = GetTickCount();
    const bool isSamePlace = std::abs(at.x - m_lastClickAt.x) <= kDoubleClickDistance &&
                             std::abs(at.y - m_lastClickAt.y) <= kDoubleClickDistance;
    const bool isQuick = now - m_lastClick <= GetDoubleClickTime() && isSamePlace;
    m_clicks = message == WM_LBUTTONDBLCLK ? 2 : isQuick && m_clicks == 2 ? 3 : 1;
    m_lastClick = now;
    m_lastClickAt = at;
    const bool isBesideText = at.x < m_client.left + m_selectionBar;
    const Editor::Unit unit = m_clicks == 3 || isBesideText ? Editor::Unit::Paragraph
                              : m_clicks == 2               ? Editor::Unit::Word
                                                            : Editor::Unit::Character;
    m_pointer.Press(HitClient(at), unit, (keys & MK_SHIFT) != 0);
    m_editor.History().StopGrouping();
    m_wantsCaretInView = m_updatesNow = true;
    if (m_host.Host())
        m_host.Host()->TxSetCapture(TRUE);
}

// Beyond an edge of the view the text scrolls to the pointer, the faster the farther away it is.
void TextServices::DragTo(POINT at)
{
    m_dragPoint = at;
    const RECT area = TextArea();
    const auto beyond = [](LONG value, LONG least, LONG most) {
        return value < least ? value - least : value >= most ? value - most + 1 : 0;
    };
    const int dx = m_editor.View().Settings().wraps ? 0 : beyond(at.x, area.left, area.right);
    const int dy = m_editor.IsMultiLine() ? beyond(at.y, area.top, area.bottom) : 0;
    const bool scrolls = dx != 0 || dy != 0;
    if (scrolls && m_isScrollingDrag)
        ScrollTo(m_left + dx, m_editor.View().Top() + dy);
    m_pointer.Drag(HitClient({std::clamp(at.x, area.left, std::max(area.left, area.right - 1)),
                              std::clamp(at.y, area.top, std::max(area.top, area.bottom - 1))}));
    m_updatesNow = true;
    if (scrolls == m_isScrollingDrag || !m_host.Host())
        return;
    m_isScrollingDrag = scrolls;
    if (scrolls)
        m_isScrollingDrag = m_host.Host()->TxSetTimer(kDragTimer, kScrollDragEvery) != FALSE;
    else
        m_host.Host()->TxKillTimer(kDragTimer);
}

void TextServices::EndDrag()
{
    m_pointer.Release();
    if (std::exchange(m_isScrollingDrag, false) && m_host.Host())
        m_host.Host()->TxKillTimer(kDragTimer);
}

bool TextServices::NotifyLink(UINT message, WPARAM wParam, LPARAM lParam)
{
    if (!(m_eventMask & ENM_LINK))
        return false;
    const RECT area = TextArea();
    const auto character = m_editor.View().CharacterAt(
        GET_X_LPARAM(lParam) - area.left + m_left, GET_Y_LPARAM(lParam) - area.top + m_editor.View().Top());
    const auto isLink = [this](Position at) {
        return (m_editor.CharFormats()[m_editor.Text().FormatAt(at)].effects & CFE_LINK) != 0;
    };
    if (!character || !isLink(*character))
        return false;
    ENLINK link{};
    link.nmhdr.code = EN_LINK;
    link.msg = message;
    link.wParam = wParam;
    link.lParam = lParam;
    link.chrg = {*character, *character + 1};
    while (link.chrg.cpMin > 0 && isLink(link.chrg.cpMin - 1))
        --link.chrg.cpMin;
    while (link.chrg.cpMax < m_editor.Text().Length() && isLink(link.chrg.cpMax))
        ++link.chrg.cpMax;
    m_host.Notify(EN_LINK, &link);
    return true;
}

bool TextServices::Copy()
{
    const Editor::Span span = m_editor.SelectedText();
    if (span.first == span.last || IsPassword())
        return false;
    const OpenedClipboard clipboard;
    if (!clipboard)
        return false;
    EmptyClipboard();
    const std::u16string text = TextWithLineFeeds(m_editor, span.first, span.last);
    SetClipboardData(CF_UNICODETEXT, BlockOf(text.c_str(), (text.size() + 1) * sizeof(char16_t)));
    if (!m_editor.IsRich())
        return true;
    std::string rtf;
    EDITSTREAM stream{reinterpret_cast<DWORD_PTR>(&rtf), 0,
                      [](DWORD_PTR cookie, LPBYTE bytes, LONG size, LONG* moved) {
                          reinterpret_cast<std::string*>(cookie)->append(reinterpret_cast<char*>(bytes),
                                                                         static_cast<std::size_t>(size));
                          *moved = size;
                          return DWORD{0};
                      }};
    StreamOut(m_editor, SF_RTF | SFF_SELECTION, stream);
    SetClipboardData(RtfFormat(), BlockOf(rtf.c_str(), rtf.size() + 1));
    return true;
}

void TextServices::Cut()
{
    if (!CanEdit() || !Copy())
        return;
    m_editor.DeleteSelection();
    m_wantsCaretInView = true;
}

bool TextServices::CanPaste(UINT format) const
{
    if (!CanEdit())
        return false;
    const auto isThere = [](UINT wanted) { return IsClipboardFormatAvailable(wanted) != FALSE; };
    if (format)
        return isThere(format);
    return isThere(CF_UNICODETEXT) || isThere(CF_TEXT) || (m_editor.IsRich() && isThere(RtfFormat()));
}

void TextServices::Paste(UINT format)
{
    if (!CanPaste(format))
        return;
    const OpenedClipboard clipboard;
    if (!clipboard)
        return;
    m_wantsCaretInView = true;
    const int room = Room();
    if (m_editor.IsRich() && (format == 0 || format == RtfFormat()) &&
        IsClipboardFormatAvailable(RtfFormat())) {
        const std::string rtf = BytesOf(GetClipboardData(RtfFormat()));
        Fragment fragment;
        if (ReadRtf(m_editor, std::string_view(rtf).substr(0, rtf.find('\0')), fragment, room) &&
            m_editor.IsMultiLine()) {
            m_hitLimit = fragment.Units() >= room;
            m_editor.ReplaceSelection(std::move(fragment));
            return;
        }
    }
    const std::string bytes = BytesOf(GetClipboardData(CF_UNICODETEXT));
    std::u16string text(bytes.size() / sizeof(char16_t), u'\0');
    std::memcpy(text.data(), bytes.data(), text.size() * sizeof(char16_t));
    text.resize(std::min(text.size(), text.find(u'\0')));
    // Counted as it will be stored, and never through the middle of a pair.
    std::u16string stored;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == u'\n' && i > 0 && text[i - 1] == u'\r')
            continue;
        stored += text[i] == u'\n' ? u'\r' : text[i];
    }
    if (stored.size() > static_cast<std::size_t>(room)) {
        m_hitLimit = true;
        stored.resize(static_cast<std::size_t>(room));
        if (!stored.empty() && IsLeadSurrogate(stored.back()))
            stored.pop_back();
    }
    m_editor.ReplaceSelection(stored);
}

}  // namespace qvui::native
