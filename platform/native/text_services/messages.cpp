// The messages that text services answer, as a table of handlers.

#include <algorithm>
#include <array>
#include <climits>

#include "native/text_services/services.h"
#include "native/text_services/streams.h"

namespace qvui::native {
namespace {

constexpr UINT kUtf16 = 1200;
constexpr UINT kUtf8 = 65001;
constexpr int kLargestLimit = INT_MAX / 2;
constexpr int kDefaultLimit = 65536;
constexpr int kMostZoom = 64;
constexpr int kWheelLines = 3;
// A text mode as told: several levels of undo and several code pages, plain or rich.
constexpr LRESULT kModes = TM_MULTILEVELUNDO | TM_MULTICODEPAGE;

std::u16string Widen(std::string_view bytes, UINT codePage)
{
    std::u16string text(bytes.size(), u'\0');
    const int units = bytes.empty()
                          ? 0
                          : MultiByteToWideChar(codePage, 0, bytes.data(), static_cast<int>(bytes.size()),
                                                text.data(), static_cast<int>(text.size()));
    text.resize(static_cast<std::size_t>(std::max(units, 0)));
    return text;
}

POINT PointOf(LPARAM lParam)
{
    return {GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)};
}

// Copies a text with its terminator as far as it fits into `capacity` units; returns the units without it.
LRESULT CopyOut(std::u16string_view text, LPWSTR buffer, std::size_t capacity)
{
    if (!buffer || capacity == 0)
        return 0;
    std::size_t count = std::min(text.size(), capacity - 1);
    // Never half of a break.
    if (count < text.size() && count > 0 && text[count - 1] == u'\r' && text[count] == u'\n')
        --count;
    std::copy_n(text.begin(), count, buffer);
    buffer[count] = 0;
    return static_cast<LRESULT>(count);
}

}  // namespace

/// What answers a message. `isHandled` may be set to false for one that the services do not know after all.
struct TextServices::Handler {
    UINT message;
    LRESULT (*run)(TextServices& services, WPARAM wParam, LPARAM lParam, bool& isHandled);
};

const TextServices::Handler* TextServices::FindHandler(UINT message)
{
    using Services = TextServices;
    static const std::array handlers = std::to_array<Handler>({
        // Text in and out
        {WM_SETTEXT,
         [](Services& s, WPARAM, LPARAM l, bool&) -> LRESULT {
             s.TxSetText(reinterpret_cast<LPCWSTR>(l));
             return 1;
         }},
        {WM_GETTEXT, [](Services& s, WPARAM w, LPARAM l, bool&) { return s.GetText(w, reinterpret_cast<LPWSTR>(l)); }},
        {WM_GETTEXTLENGTH,
         [](Services& s, WPARAM, LPARAM, bool&) { return s.GetTextLengthEx({GTL_USECRLF | GTL_NUMCHARS, kUtf16}); }},
        {EM_GETTEXTEX,
         [](Services& s, WPARAM w, LPARAM l, bool&) -> LRESULT {
             return w && l ? s.GetTextEx(*reinterpret_cast<const GETTEXTEX*>(w), reinterpret_cast<void*>(l)) : 0;
         }},
        {EM_GETTEXTLENGTHEX,
         [](Services& s, WPARAM w, LPARAM, bool&) -> LRESULT {
             return w ? s.GetTextLengthEx(*reinterpret_cast<const GETTEXTLENGTHEX*>(w)) : E_INVALIDARG;
         }},
        {EM_SETTEXTEX,
         [](Services& s, WPARAM w, LPARAM l, bool&) -> LRESULT {
             return w ? s.SetTextEx(*reinterpret_cast<const SETTEXTEX*>(w), reinterpret_cast<const void*>(l)) : 0;
         }},
        {EM_GETTEXTRANGE,
         [](Services& s, WPARAM, LPARAM l, bool&) -> LRESULT {
             const auto* range = reinterpret_cast<const TEXTRANGEW*>(l);
             const int length = s.m_editor.Text().Length();
             if (!range || range->chrg.cpMin < 0 || range->chrg.cpMin >= length)
                 return 0;
             const LONG last = range->chrg.cpMax < 0 ? length : std::min(range->chrg.cpMax, length);
             if (range->chrg.cpMin >= last)
                 return 0;
             const std::u16string text = s.m_editor.Text().Text(range->chrg.cpMin, last);
             return CopyOut(text, range->lpstrText, text.size() + 1);
         }},
        {EM_GETSELTEXT,
         [](Services& s, WPARAM, LPARAM l, bool&) {
             const Editor::Span span = s.m_editor.SelectedText();
             const std::u16string text = s.m_editor.Text().Text(span.first, span.last);
             return CopyOut(text, reinterpret_cast<LPWSTR>(l), text.size() + 1);
         }},
        {EM_REPLACESEL,
         [](Services& s, WPARAM w, LPARAM l, bool&) {
             const std::u16string text = l ? reinterpret_cast<LPCWSTR>(l) : u"";
             s.m_wantsCaretInView = true;
             s.m_editor.ReplaceSelection(text, w != FALSE);
             return static_cast<LRESULT>(text.size());
         }},
        {EM_STREAMIN,
         [](Services& s, WPARAM w, LPARAM l, bool&) -> LRESULT {
             return l ? StreamIn(s.m_editor, static_cast<DWORD>(w), *reinterpret_cast<EDITSTREAM*>(l), s.m_limit) : 0;
         }},
        {EM_STREAMOUT,
         [](Services& s, WPARAM w, LPARAM l, bool&) -> LRESULT {
             return l ? StreamOut(s.m_editor, static_cast<DWORD>(w), *reinterpret_cast<EDITSTREAM*>(l)) : 0;
         }},
        {EM_FINDTEXTEXW,
         [](Services& s, WPARAM w, LPARAM l, bool&) -> LRESULT {
             return l ? s.FindText(static_cast<DWORD>(w), *reinterpret_cast<FINDTEXTEXW*>(l)) : -1;
         }},

        // Selection
        {EM_EXSETSEL,
         [](Services& s, WPARAM, LPARAM l, bool&) -> LRESULT {
             const auto* range = reinterpret_cast<const CHARRANGE*>(l);
             return range ? s.SetSelection(range->cpMin, range->cpMax) : 0;
         }},
        {EM_SETSEL,
         [](Services& s, WPARAM w, LPARAM l, bool&) {
             return s.SetSelection(static_cast<LONG>(w), static_cast<LONG>(l));
         }},
        {EM_EXGETSEL,
         [](Services& s, WPARAM, LPARAM l, bool&) -> LRESULT {
             if (auto* range = reinterpret_cast<CHARRANGE*>(l))
                 *range = {s.m_editor.Selected().First(), s.m_editor.Selected().Last()};
             return 0;
         }},
        {EM_GETSEL,
         [](Services& s, WPARAM w, LPARAM l, bool&) -> LRESULT {
             const Selection& selection = s.m_editor.Selected();
             if (w)
                 *reinterpret_cast<DWORD*>(w) = static_cast<DWORD>(selection.First());
             if (l)
                 *reinterpret_cast<DWORD*>(l) = static_cast<DWORD>(selection.Last());
             return selection.Last() > 0xFFFF ? -1 : MAKELONG(selection.First(), selection.Last());
         }},
        {EM_SELECTIONTYPE,
         [](Services& s, WPARAM, LPARAM, bool&) -> LRESULT {
             const Selection& selection = s.m_editor.Selected();
             if (selection.IsEmpty())
                 return SEL_EMPTY;
             return SEL_TEXT | (selection.Last() - selection.First() > 1 ? SEL_MULTICHAR : 0);
         }},
        {EM_HIDESELECTION,
         [](Services& s, WPARAM w, LPARAM, bool&) -> LRESULT {
             s.m_hidesSelection = w != FALSE;
             s.m_needsRepaint = true;
             return 0;
         }},
        {EM_SCROLLCARET,
         [](Services& s, WPARAM, LPARAM, bool&) -> LRESULT {
             s.m_wantsCaretInView = true;
             return 0;
         }},

        // History
        {EM_CANUNDO, [](Services& s, WPARAM, LPARAM, bool&) -> LRESULT { return s.m_editor.History().CanUndo(); }},
        {EM_CANREDO, [](Services& s, WPARAM, LPARAM, bool&) -> LRESULT { return s.m_editor.History().CanRedo(); }},
        {EM_UNDO, [](Services& s, WPARAM, LPARAM, bool&) { return s.UndoOrRedo(true); }},
        {WM_UNDO, [](Services& s, WPARAM, LPARAM, bool&) { return s.UndoOrRedo(true); }},
        {EM_REDO, [](Services& s, WPARAM, LPARAM, bool&) { return s.UndoOrRedo(false); }},
        {EM_EMPTYUNDOBUFFER,
         [](Services& s, WPARAM, LPARAM, bool&) -> LRESULT {
             s.m_editor.History().Clear();
             return 0;
         }},
        {EM_SETUNDOLIMIT,
         [](Services& s, WPARAM w, LPARAM, bool&) -> LRESULT {
             return s.m_editor.History().SetLimit(static_cast<int>(static_cast<LONG>(w)));
         }},
        {EM_STOPGROUPTYPING,
         [](Services& s, WPARAM, LPARAM, bool&) -> LRESULT {
             s.m_editor.History().StopGrouping();
             return 0;
         }},
        {EM_GETMODIFY, [](Services& s, WPARAM, LPARAM, bool&) -> LRESULT { return s.m_editor.IsModified() ? -1 : 0; }},
        {EM_SETMODIFY,
         [](Services& s, WPARAM w, LPARAM, bool&) -> LRESULT {
             s.m_editor.SetModified(w != FALSE);
             return 0;
         }},

        // Lines and places
        {EM_GETLINECOUNT, [](Services& s, WPARAM, LPARAM, bool&) -> LRESULT { return s.m_editor.View().LineCount(); }},
        {EM_LINEINDEX, [](Services& s, WPARAM w, LPARAM, bool&) { return s.LineIndex(static_cast<LONG>(w)); }},
        {EM_LINELENGTH, [](Services& s, WPARAM w, LPARAM, bool&) { return s.LineLength(static_cast<LONG>(w)); }},
        {EM_LINEFROMCHAR, [](Services& s, WPARAM w, LPARAM, bool&) { return s.LineFromChar(static_cast<LONG>(w)); }},
        {EM_EXLINEFROMCHAR, [](Services& s, WPARAM, LPARAM l, bool&) { return s.LineFromChar(static_cast<LONG>(l)); }},
        {EM_GETLINE,
         [](Services& s, WPARAM w, LPARAM l, bool&) { return s.GetLine(static_cast<LONG>(w), reinterpret_cast<LPWSTR>(l)); }},
        {EM_GETFIRSTVISIBLELINE,
         [](Services& s, WPARAM, LPARAM, bool&) -> LRESULT {
             return s.m_editor.View().LineOf(s.m_editor.View().Hit(0, s.m_editor.View().Top()));
         }},
        {EM_POSFROMCHAR, [](Services& s, WPARAM w, LPARAM l, bool&) { return s.PositionFromChar(w, l); }},
        {EM_CHARFROMPOS,
         [](Services& s, WPARAM, LPARAM l, bool&) -> LRESULT {
             return l ? s.HitClient(*reinterpret_cast<const POINTL*>(l)).position : 0;
         }},
        {EM_LINESCROLL,
         [](Services& s, WPARAM w, LPARAM l, bool&) -> LRESULT {
             TextView& view = s.m_editor.View();
             s.ScrollTo(s.m_left + static_cast<int>(w) * view.LineHeight() / 2,
                        view.Top() + static_cast<std::int64_t>(static_cast<LONG>(l)) * view.LineHeight());
             s.m_updatesNow = true;
             return 1;
         }},
        {EM_GETSCROLLPOS,
         [](Services& s, WPARAM, LPARAM l, bool&) -> LRESULT {
             if (auto* point = reinterpret_cast<POINT*>(l))
                 *point = {s.m_left, static_cast<LONG>(std::min<std::int64_t>(s.m_editor.View().Top(), INT_MAX))};
             return 1;
         }},
        {EM_SETSCROLLPOS,
         [](Services& s, WPARAM, LPARAM l, bool&) -> LRESULT {
             if (const auto* point = reinterpret_cast<const POINT*>(l))
                 s.ScrollTo(point->x, point->y);
             s.m_updatesNow = true;
             return 1;
         }},
        {EM_SCROLL,
         [](Services& s, WPARAM w, LPARAM, bool&) -> LRESULT {
             const std::int64_t before = s.m_editor.View().Top();
             s.Scroll(SB_VERT, w);
             const auto lines = (s.m_editor.View().Top() - before) / s.m_editor.View().LineHeight();
             return MAKELONG(lines, 1);
         }},
        {WM_VSCROLL, [](Services& s, WPARAM w, LPARAM, bool&) { return s.Scroll(SB_VERT, w); }},
        {WM_HSCROLL, [](Services& s, WPARAM w, LPARAM, bool&) { return s.Scroll(SB_HORZ, w); }},
        {WM_MOUSEWHEEL,
         [](Services& s, WPARAM w, LPARAM, bool&) -> LRESULT {
             const int delta = static_cast<SHORT>(HIWORD(w));
             TextView& view = s.m_editor.View();
             s.ScrollTo(s.m_left, view.Top() - delta * kWheelLines / WHEEL_DELTA * view.LineHeight());
             s.m_updatesNow = true;
             return 0;
         }},

        // Formats and options
        {EM_GETCHARFORMAT,
         [](Services& s, WPARAM w, LPARAM l, bool&) -> LRESULT {
             return l ? s.GetCharFormat(static_cast<DWORD>(w), reinterpret_cast<void*>(l)) : 0;
         }},
        {EM_SETCHARFORMAT,
         [](Services& s, WPARAM w, LPARAM l, bool&) -> LRESULT {
             return l ? s.SetCharFormat(static_cast<DWORD>(w), reinterpret_cast<const void*>(l)) : 0;
         }},
        {EM_GETPARAFORMAT,
         [](Services& s, WPARAM, LPARAM l, bool&) -> LRESULT {
             if (!l)
                 return 0;
             const Editor::ParagraphFormat found = s.m_editor.FormatOfParagraphs();
             return found.format.Describe(reinterpret_cast<PARAFORMAT*>(l), found.mask);
         }},
        {EM_SETPARAFORMAT,
         [](Services& s, WPARAM, LPARAM l, bool&) -> LRESULT {
             const auto* format = reinterpret_cast<const PARAFORMAT*>(l);
             ParaFormat probe;
             if (!format || !probe.Apply(format))
                 return 0;
             s.m_editor.FormatParagraphs([&](ParaFormat& paragraph) { paragraph.Apply(format); });
             return 1;
         }},
        {EM_SETEVENTMASK,
         [](Services& s, WPARAM, LPARAM l, bool&) {
             return static_cast<LRESULT>(std::exchange(s.m_eventMask, static_cast<DWORD>(l)));
         }},
        {EM_GETEVENTMASK,
         [](Services& s, WPARAM, LPARAM, bool&) { return static_cast<LRESULT>(s.m_eventMask); }},
        {EM_EXLIMITTEXT,
         [](Services& s, WPARAM, LPARAM l, bool&) -> LRESULT {
             s.m_limit = l == 0 ? kDefaultLimit : static_cast<int>(std::clamp<LPARAM>(l, 1, kLargestLimit));
             return 0;
         }},
        {EM_LIMITTEXT,
         [](Services& s, WPARAM w, LPARAM, bool&) -> LRESULT {
             s.m_limit = w == 0 ? kDefaultLimit : static_cast<int>(std::min<WPARAM>(w, kLargestLimit));
             return 0;
         }},
        {EM_GETLIMITTEXT, [](Services& s, WPARAM, LPARAM, bool&) -> LRESULT { return s.m_limit; }},
        {EM_AUTOURLDETECT,
         [](Services& s, WPARAM w, LPARAM, bool&) -> LRESULT {
             if (w > 1)
                 return E_INVALIDARG;
             s.m_editor.SetDetectsLinks(w == 1);
             return 0;
         }},
        {EM_GETAUTOURLDETECT,
         [](Services& s, WPARAM, LPARAM, bool&) -> LRESULT { return s.m_editor.DetectsLinks(); }},
        {EM_SETTEXTMODE, [](Services& s, WPARAM w, LPARAM, bool&) { return s.SetTextMode(w); }},
        {EM_GETTEXTMODE,
         [](Services& s, WPARAM, LPARAM, bool&) {
             return kModes | (s.m_editor.IsRich() ? TM_RICHTEXT : TM_PLAINTEXT);
         }},
        {EM_SETZOOM,
         [](Services& s, WPARAM w, LPARAM l, bool&) { return s.SetZoom(static_cast<LONG>(w), static_cast<LONG>(l)); }},
        {EM_GETZOOM,
         [](Services& s, WPARAM w, LPARAM l, bool&) -> LRESULT {
             if (!w || !l)
                 return 0;
             *reinterpret_cast<int*>(w) = s.m_zoomNumerator;
             *reinterpret_cast<int*>(l) = s.m_zoomDenominator;
             return 1;
         }},
        {EM_REQUESTRESIZE,
         [](Services& s, WPARAM, LPARAM, bool&) -> LRESULT {
             s.m_requestedHeight = -1;
             return 0;
         }},

        // Clipboard
        {EM_CANPASTE, [](Services& s, WPARAM w, LPARAM, bool&) -> LRESULT { return s.CanPaste(static_cast<UINT>(w)); }},
        {WM_COPY,
         [](Services& s, WPARAM, LPARAM, bool&) -> LRESULT {
             s.Copy();
             return 0;
         }},
        {WM_CUT,
         [](Services& s, WPARAM, LPARAM, bool&) -> LRESULT {
             s.Cut();
             return 0;
         }},
        {WM_PASTE,
         [](Services& s, WPARAM, LPARAM, bool&) -> LRESULT {
             s.Paste(0);
             return 0;
         }},
        {EM_PASTESPECIAL,
         [](Services& s, WPARAM w, LPARAM, bool&) -> LRESULT {
             s.Paste(static_cast<UINT>(w));
             return 0;
         }},
        {WM_CLEAR,
         [](Services& s, WPARAM, LPARAM, bool&) -> LRESULT {
             if (s.CanEdit())
                 s.m_editor.DeleteSelection();
             s.m_wantsCaretInView = true;
             return 0;
         }},

        // Keyboard, pointer, focus, time
        {WM_KEYDOWN,
         [](Services& s, WPARAM w, LPARAM, bool& isHandled) -> LRESULT {
             isHandled = s.Key(w);
             return 0;
         }},
        {WM_SYSKEYDOWN,
         [](Services& s, WPARAM w, LPARAM, bool& isHandled) -> LRESULT {
             isHandled = w == VK_BACK && s.CanEdit();
             if (isHandled)
                 s.UndoOrRedo(true);
             return 0;
         }},
        {WM_CHAR,
         [](Services& s, WPARAM w, LPARAM, bool&) -> LRESULT {
             s.TypeCharacter(static_cast<char16_t>(w));
             return 0;
         }},
        {WM_UNICHAR,
         [](Services& s, WPARAM w, LPARAM, bool&) -> LRESULT {
             if (w >= 0x10000 && w < 0x110000) {
                 const char16_t pair[] = {static_cast<char16_t>(0xD7C0 + (w >> 10)),
                                          static_cast<char16_t>(0xDC00 + (w & 0x3FF))};
                 s.Type({pair, 2});
             } else if (w < 0x10000) {
                 s.TypeCharacter(static_cast<char16_t>(w));
             }
             return 0;
         }},
        {WM_LBUTTONDOWN,
         [](Services& s, WPARAM w, LPARAM l, bool&) -> LRESULT {
             if (!s.NotifyLink(WM_LBUTTONDOWN, w, l) || !s.m_host.IsCut())
                 s.Press(WM_LBUTTONDOWN, w, PointOf(l));
             return 0;
         }},
        {WM_LBUTTONDBLCLK,
         [](Services& s, WPARAM w, LPARAM l, bool&) -> LRESULT {
             s.NotifyLink(WM_LBUTTONDBLCLK, w, l);
             s.Press(WM_LBUTTONDBLCLK, w, PointOf(l));
             return 0;
         }},
        {WM_MOUSEMOVE,
         [](Services& s, WPARAM w, LPARAM l, bool&) -> LRESULT {
             if (s.m_pointer.IsDragging() && (w & MK_LBUTTON))
                 s.DragTo(PointOf(l));
             else if (s.m_pointer.IsDragging())
                 s.EndDrag();
             else
                 s.NotifyLink(WM_MOUSEMOVE, w, l);
             return 0;
         }},
        {WM_LBUTTONUP,
         [](Services& s, WPARAM w, LPARAM l, bool&) -> LRESULT {
             if (!s.m_pointer.IsDragging())
                 return 0;
             s.EndDrag();
             if (s.m_host.Host())
                 s.m_host.Host()->TxSetCapture(FALSE);
             s.NotifyLink(WM_LBUTTONUP, w, l);
             return 0;
         }},
        {WM_CAPTURECHANGED,
         [](Services& s, WPARAM, LPARAM, bool&) -> LRESULT {
             s.EndDrag();
             return 0;
         }},
        {WM_SETFOCUS,
         [](Services& s, WPARAM, LPARAM, bool&) -> LRESULT {
             s.m_hasFocus = true;
             s.m_told.caretHeight = 0;
             s.m_needsRepaint = !s.m_editor.Selected().IsEmpty();
             s.m_host.Notify(EN_SETFOCUS);
             return 0;
         }},
        {WM_KILLFOCUS,
         [](Services& s, WPARAM, LPARAM, bool&) -> LRESULT {
             if (s.m_hasFocus && s.m_host.Host())
                 s.m_host.Host()->TxShowCaret(FALSE);
             s.m_hasFocus = false;
             s.m_told.isCaretShown = false;
             s.m_editor.History().StopGrouping();
             s.m_needsRepaint = !s.m_editor.Selected().IsEmpty();
             s.m_host.Notify(EN_KILLFOCUS);
             return 0;
         }},
        {WM_TIMER,
         [](Services& s, WPARAM w, LPARAM, bool& isHandled) -> LRESULT {
             isHandled = s.OnTimer(w);
             return 0;
         }},
    });
    const auto found = std::find_if(handlers.begin(), handlers.end(),
                                    [message](const Handler& handler) { return handler.message == message; });
    return found == handlers.end() ? nullptr : &*found;
}

HRESULT TextServices::TxSendMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result)
{
    const Call call(*this);
    const Handler* handler = FindHandler(message);
    bool isHandled = handler != nullptr;
    const LRESULT answer = handler ? handler->run(*this, wParam, lParam, isHandled) : 0;
    if (result)
        *result = answer;
    return isHandled ? S_OK : S_FALSE;
}

void TextServices::TypeCharacter(char16_t unit)
{
    // Backspace, Return and commands come as key-downs; only a tab is a character of its own.
    if ((unit < u' ' && unit != u'\t') || unit == 0x7F)
        return;
    if (IsLeadSurrogate(unit)) {
        m_pendingLead = unit;
        return;
    }
    const char16_t lead = std::exchange(m_pendingLead, u'\0');
    if (!IsTrailSurrogate(unit)) {
        Type({&unit, 1});
    } else if (lead) {
        const char16_t pair[] = {lead, unit};
        Type({pair, 2});
    }
}

LRESULT TextServices::UndoOrRedo(bool undoes)
{
    if (!CanEdit())
        return 0;
    m_wantsCaretInView = true;
    return undoes ? m_editor.Undo() : m_editor.Redo();
}

// The platform's rules for ranges: ordered, -1 as the end with the final mark, a negative start only
// collapses.
LRESULT TextServices::SetSelection(LONG first, LONG last)
{
    const int length = m_editor.Text().Length();
    if (first < 0) {
        const int end = m_editor.Selected().IsEmpty() ? length : std::min(m_editor.Selected().Last(), length);
        m_editor.Select(end, end);
        return end;
    }
    if (last < 0)
        last = length + 1;
    if (first > last)
        std::swap(first, last);
    m_editor.Select(std::min(first, length + 1), std::min(last, length + 1));
    m_editor.History().StopGrouping();
    return m_editor.Selected().Last();
}

LRESULT TextServices::GetText(WPARAM capacity, LPWSTR buffer)
{
    const auto wanted = static_cast<Position>(std::min<WPARAM>(capacity, INT_MAX));
    const Position last = std::min(m_editor.Text().Length(), wanted);
    return CopyOut(TextWithLineFeeds(m_editor, 0, last), buffer, capacity);
}

LRESULT TextServices::GetTextEx(const GETTEXTEX& options, void* buffer)
{
    Position first = 0;
    Position last = m_editor.Text().Length();
    if (options.flags & GT_SELECTION) {
        const Editor::Span span = m_editor.SelectedText();
        first = span.first;
        last = span.last;
    }
    const std::u16string text =
        m_editor.Text().Text(first, last, options.flags & GT_USECRLF ? u"\r\n" : u"\r");
    if (options.codepage == kUtf16)
        return CopyOut(text, static_cast<LPWSTR>(buffer), options.cb / sizeof(WCHAR));
    if (options.cb == 0)
        return 0;
    const bool isUtf8 = options.codepage == kUtf8;
    const int count = WideCharToMultiByte(options.codepage, 0, text.data(), static_cast<int>(text.size()),
                                          static_cast<LPSTR>(buffer), static_cast<int>(options.cb - 1),
                                          isUtf8 ? nullptr : options.lpDefaultChar,
                                          isUtf8 ? nullptr : options.lpUsedDefChar);
    static_cast<LPSTR>(buffer)[std::max(count, 0)] = '\0';
    return std::max(count, 0);
}

LRESULT TextServices::GetTextLengthEx(const GETTEXTLENGTHEX& options)
{
    const DWORD flags = options.flags;
    if (((flags & GTL_NUMCHARS) && (flags & GTL_NUMBYTES)) || ((flags & GTL_PRECISE) && (flags & GTL_CLOSE)))
        return E_INVALIDARG;
    const Document& text = m_editor.Text();
    LRESULT units = text.Length();
    if (flags & GTL_USECRLF)
        units += text.Paragraphs() - 1;
    if (!(flags & GTL_NUMBYTES))
        return units;
    if (options.codepage == kUtf16)
        return units * static_cast<LRESULT>(sizeof(WCHAR));
    // An upper bound of the bytes, as long as nobody asks for a precise count.
    if (!(flags & GTL_PRECISE))
        return units * (options.codepage == kUtf8 ? 4 : 2);
    const std::u16string all = text.Text(0, text.Length(), flags & GTL_USECRLF ? u"\r\n" : u"\r");
    return WideCharToMultiByte(options.codepage, 0, all.data(), static_cast<int>(all.size()), nullptr, 0,
                               nullptr, nullptr);
}

LRESULT TextServices::SetTextEx(const SETTEXTEX& options, const void* text)
{
    const bool isWide = options.codepage == kUtf16;
    const std::string_view bytes = !isWide && text ? static_cast<const char*>(text) : "";
    const int limit = kLargestLimit;
    Fragment rtf;
    const bool isRtf = m_editor.IsRich() && (bytes.starts_with("{\\rtf") || bytes.starts_with("{\\urtf")) &&
                       ReadRtf(m_editor, bytes, rtf, limit);
    const std::u16string plain = isRtf    ? std::u16string()
                                 : isWide ? std::u16string(text ? static_cast<LPCWSTR>(text) : u"")
                                          : Widen(bytes, options.codepage);
    if (options.flags & ST_SELECTION) {
        const LRESULT length = isRtf ? rtf.Units() : static_cast<LRESULT>(plain.size());
        isRtf ? m_editor.ReplaceSelection(std::move(rtf)) : m_editor.ReplaceSelection(plain);
        return length;
    }
    m_editor.SetText(plain, (options.flags & ST_KEEPUNDO) != 0);
    if (isRtf)
        m_editor.ReplaceSelection(std::move(rtf), (options.flags & ST_KEEPUNDO) != 0);
    m_needsRepaint = true;
    return 1;
}

LRESULT TextServices::GetLine(int line, LPWSTR buffer)
{
    if (!buffer || line < 0)
        return 0;
    const WORD capacity = buffer[0];
    const TextView::LineSpan span = m_editor.View().LineAt(line);
    if (span.first < 0)
        return 0;
    const std::u16string text =
        m_editor.Text().Text(span.first, std::min(span.last + 1, m_editor.Text().Length() + 1));
    const std::size_t count = std::min<std::size_t>(
        span.isWrapped ? static_cast<std::size_t>(span.last - span.first) : text.size(), capacity);
    std::copy_n(text.begin(), count, buffer);
    if (count < capacity)
        buffer[count] = 0;
    return static_cast<LRESULT>(count);
}

LRESULT TextServices::LineIndex(int line)
{
    if (line == -1)
        return m_editor.View().LineAround(m_editor.CaretPlace()).first;
    return line < 0 ? -1 : m_editor.View().LineAt(line).first;
}

LRESULT TextServices::LineFromChar(LONG position)
{
    if (position == -1)
        position = m_editor.Selected().First();
    return m_editor.View().LineOf({std::clamp(position, 0, m_editor.Text().Length()), false});
}

LRESULT TextServices::LineLength(LONG position)
{
    if (position > m_editor.Text().Length())
        return 0;
    if (position < 0)
        position = std::min(m_editor.Selected().First(), m_editor.Text().Length());
    const TextView::LineSpan span = m_editor.View().LineAround({position, false});
    return span.last - span.first;
}

LRESULT TextServices::FindText(DWORD flags, FINDTEXTEXW& find)
{
    const std::u16string_view wanted = find.lpstrText ? find.lpstrText : u"";
    const Position length = m_editor.Text().Length();
    const bool isDown = (flags & FR_DOWN) != 0;
    Position first = std::clamp(find.chrg.cpMin, 0, length);
    Position last = find.chrg.cpMax < 0 ? (isDown ? length : 0) : std::min(find.chrg.cpMax, length);
    find.chrgText = {-1, -1};
    const Position found =
        m_editor.Find(wanted, first, last, isDown, (flags & FR_MATCHCASE) != 0, (flags & FR_WHOLEWORD) != 0);
    if (found >= 0)
        find.chrgText = {found, found + static_cast<Position>(wanted.size())};
    return found;
}

// The point comes as a structure to fill, or as the result when the index is given in its place.
LRESULT TextServices::PositionFromChar(WPARAM point, LPARAM index)
{
    const bool isOldForm =
        point < 0x10000 || (index == 0 && point <= static_cast<WPARAM>(m_editor.Text().Length()));
    const LONG position = isOldForm ? static_cast<LONG>(point) : static_cast<LONG>(index);
    const Caret caret{std::clamp(position, 0, m_editor.Text().Length()), false};
    m_editor.View().MeasureThrough(caret.position);
    const POINT at = ToClient(m_editor.View().Locate(caret));
    if (isOldForm)
        return MAKELONG(at.x, at.y);
    *reinterpret_cast<POINTL*>(point) = at;
    return 0;
}

LRESULT TextServices::GetCharFormat(DWORD scope, void* format)
{
    if (scope & SCF_SELECTION) {
        const Editor::SelectionFormat found = m_editor.FormatOfSelection();
        return found.format.Describe(format, found.mask);
    }
    return m_editor.DefaultFormat().Describe(format, CFM_ALL2);
}

LRESULT TextServices::SetCharFormat(DWORD scope, const void* format)
{
    CharFormat probe;
    if (!probe.Apply(format))
        return 0;
    const Editor::ChangeFormat change = [&](CharFormat& character) { character.Apply(format); };
    if (scope == SCF_DEFAULT) {
        CharFormat character = m_editor.DefaultFormat();
        change(character);
        m_editor.SetDefaultFormat(character);
        return 1;
    }
    if (scope & SCF_ALL) {
        m_editor.FormatRange(0, m_editor.Text().Length() + 1, change);
        return 1;
    }
    if (!m_editor.IsRich())
        return 0;
    if ((scope & SCF_WORD) && m_editor.Selected().IsEmpty()) {
        const Words::Span word = m_editor.WordsOfText().Around(m_editor.CaretPlace().position);
        m_editor.FormatRange(word.first, word.last, change);
        return 1;
    }
    m_editor.FormatSelection(change);
    return 1;
}

LRESULT TextServices::SetTextMode(WPARAM mode)
{
    if (m_editor.Text().Length() > 0)
        return static_cast<LRESULT>(E_UNEXPECTED);
    if (mode & (TM_RICHTEXT | TM_PLAINTEXT))
        m_editor.SetRich((mode & TM_RICHTEXT) != 0);
    Configure();
    return 0;
}

LRESULT TextServices::SetZoom(int numerator, int denominator)
{
    if (numerator == 0 && denominator == 0) {
        m_zoomNumerator = m_zoomDenominator = 0;
        m_editor.View().SetZoom(1);
    } else {
        const std::int64_t a = numerator;
        const std::int64_t b = denominator;
        if (a <= 0 || b <= 0 || a >= b * kMostZoom || b >= a * kMostZoom)
            return 0;
        m_zoomNumerator = numerator;
        m_zoomDenominator = denominator;
        m_editor.View().SetZoom(static_cast<double>(numerator) / denominator);
    }
    m_told.caretHeight = 0;
    m_needsRepaint = true;
    return 1;
}

}  // namespace qvui::native
