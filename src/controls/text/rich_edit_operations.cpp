// A rich edit: what applications do with its text.

#include <algorithm>
#include <vector>

#include <qvui/controls/text/rich_edit.h>

#include "controls/text/wide_text.h"

namespace DUI {
namespace {

constexpr UINT kUtf16 = 1200;

}  // namespace

int CDUIRichEdit::GetTextLength(DWORD flags)
{
    GETTEXTLENGTHEX options{flags, kUtf16};
    return static_cast<int>(Send(EM_GETTEXTLENGTHEX, reinterpret_cast<WPARAM>(&options)));
}

BOOL CDUIRichEdit::GetModify()
{
    return Send(EM_GETMODIFY) != 0;
}

void CDUIRichEdit::SetModify(BOOL modified)
{
    Send(EM_SETMODIFY, static_cast<WPARAM>(modified));
}

void CDUIRichEdit::GetSel(int& first, int& last)
{
    CHARRANGE range{};
    GetSel(range);
    first = range.cpMin;
    last = range.cpMax;
}

void CDUIRichEdit::GetSel(CHARRANGE& range)
{
    Send(EM_EXGETSEL, 0, reinterpret_cast<LPARAM>(&range));
}

int CDUIRichEdit::SetSel(int first, int last)
{
    const CHARRANGE range{first, last};
    return SetSel(range);
}

int CDUIRichEdit::SetSel(const CHARRANGE& range)
{
    return static_cast<int>(Send(EM_EXSETSEL, 0, reinterpret_cast<LPARAM>(&range)));
}

void CDUIRichEdit::ReplaceSel(const CString& text, BOOL canUndo)
{
    Send(EM_REPLACESEL, static_cast<WPARAM>(canUndo),
         reinterpret_cast<LPARAM>(wide_text::FromSystem(std::string_view(text)).c_str()));
}

CString CDUIRichEdit::GetSelText()
{
    CHARRANGE range{};
    GetSel(range);
    std::vector<WCHAR> buffer(static_cast<std::size_t>(std::max<LONG>(range.cpMax - range.cpMin, 0)) + 1);
    Send(EM_GETSELTEXT, 0, reinterpret_cast<LPARAM>(buffer.data()));
    return wide_text::ToSystem(buffer.data());
}

BOOL CDUIRichEdit::GetZoom(int& numerator, int& denominator)
{
    return Send(EM_GETZOOM, reinterpret_cast<WPARAM>(&numerator), reinterpret_cast<LPARAM>(&denominator)) !=
           0;
}

BOOL CDUIRichEdit::SetZoom(int numerator, int denominator)
{
    return Send(EM_SETZOOM, static_cast<WPARAM>(numerator), denominator) != 0;
}

WORD CDUIRichEdit::GetSelectionType()
{
    return static_cast<WORD>(Send(EM_SELECTIONTYPE));
}

BOOL CDUIRichEdit::GetAutoURLDetect()
{
    return Send(EM_GETAUTOURLDETECT) != 0;
}

BOOL CDUIRichEdit::SetAutoURLDetect(BOOL detects)
{
    return m_pHost->GetTextServices() && Send(EM_AUTOURLDETECT, static_cast<WPARAM>(detects)) == 0;
}

DWORD CDUIRichEdit::SetEventMask(DWORD mask)
{
    m_pHost->SetEventMask(mask);
    return static_cast<DWORD>(Send(EM_SETEVENTMASK, 0, static_cast<LPARAM>(mask)));
}

CString CDUIRichEdit::GetTextRange(long first, long last)
{
    const long end = last < 0 ? GetTextLength(0) : last;
    std::vector<WCHAR> buffer(static_cast<std::size_t>(std::clamp<long>(end - first, 0, GetTextLength(0))) +
                              2);
    TEXTRANGEW range{{static_cast<LONG>(first), static_cast<LONG>(std::min<long>(end, GetTextLength(0)))},
                     buffer.data()};
    Send(EM_GETTEXTRANGE, 0, reinterpret_cast<LPARAM>(&range));
    return wide_text::ToSystem(buffer.data());
}

void CDUIRichEdit::HideSelection(BOOL hides)
{
    Send(EM_HIDESELECTION, static_cast<WPARAM>(hides));
}

void CDUIRichEdit::ScrollCaret()
{
    Send(EM_SCROLLCARET);
}

int CDUIRichEdit::InsertText(int position, const char* text, BOOL canUndo)
{
    if (!text)
        return -1;
    const int at = SetSel(position, position);
    ReplaceSel(text, canUndo);
    return at;
}

int CDUIRichEdit::AppendText(const char* text, BOOL canUndo)
{
    if (!text)
        return -1;
    // Without a selection, which -1 would only collapse to its end.
    const int length = GetTextLength(0);
    const int at = SetSel(length, length);
    ReplaceSel(text, canUndo);
    return at;
}

DWORD CDUIRichEdit::GetDefaultCharFormat(CHARFORMAT2A& format)
{
    format.cbSize = sizeof format;
    return static_cast<DWORD>(Send(EM_GETCHARFORMAT, SCF_DEFAULT, reinterpret_cast<LPARAM>(&format)));
}

BOOL CDUIRichEdit::SetDefaultCharFormat(CHARFORMAT2A& format)
{
    format.cbSize = sizeof format;
    return Send(EM_SETCHARFORMAT, SCF_DEFAULT, reinterpret_cast<LPARAM>(&format)) != 0;
}

DWORD CDUIRichEdit::GetSelectionCharFormat(CHARFORMAT2A& format)
{
    format.cbSize = sizeof format;
    return static_cast<DWORD>(Send(EM_GETCHARFORMAT, SCF_SELECTION, reinterpret_cast<LPARAM>(&format)));
}

BOOL CDUIRichEdit::SetSelectionCharFormat(CHARFORMAT2A& format)
{
    format.cbSize = sizeof format;
    return Send(EM_SETCHARFORMAT, SCF_SELECTION, reinterpret_cast<LPARAM>(&format)) != 0;
}

BOOL CDUIRichEdit::SetWordCharFormat(CHARFORMAT2A& format)
{
    format.cbSize = sizeof format;
    // The word alone would mean all of the text.
    return Send(EM_SETCHARFORMAT, SCF_WORD | SCF_SELECTION, reinterpret_cast<LPARAM>(&format)) != 0;
}

DWORD CDUIRichEdit::GetParaFormat(PARAFORMAT2& format)
{
    format.cbSize = sizeof format;
    return static_cast<DWORD>(Send(EM_GETPARAFORMAT, 0, reinterpret_cast<LPARAM>(&format)));
}

BOOL CDUIRichEdit::SetParaFormat(PARAFORMAT2& format)
{
    format.cbSize = sizeof format;
    return Send(EM_SETPARAFORMAT, 0, reinterpret_cast<LPARAM>(&format)) != 0;
}

BOOL CDUIRichEdit::CanUndo()
{
    return Send(EM_CANUNDO) != 0;
}

BOOL CDUIRichEdit::CanRedo()
{
    return Send(EM_CANREDO) != 0;
}

BOOL CDUIRichEdit::CanPaste()
{
    return Send(EM_CANPASTE) != 0;
}

BOOL CDUIRichEdit::Redo()
{
    return Send(EM_REDO) != 0;
}

BOOL CDUIRichEdit::Undo()
{
    return Send(EM_UNDO) != 0;
}

void CDUIRichEdit::Clear()
{
    Send(WM_CLEAR);
}

void CDUIRichEdit::Copy()
{
    Send(WM_COPY);
}

void CDUIRichEdit::Cut()
{
    Send(WM_CUT);
}

void CDUIRichEdit::Paste()
{
    Send(WM_PASTE);
}

int CDUIRichEdit::GetLineCount()
{
    return static_cast<int>(Send(EM_GETLINECOUNT));
}

CString CDUIRichEdit::GetLine(int line, int maxLength)
{
    const int capacity = std::clamp(maxLength, 0, 0xFFFF);
    std::vector<WCHAR> buffer(static_cast<std::size_t>(capacity) + 2);
    buffer[0] = static_cast<WCHAR>(capacity);
    const auto count = static_cast<std::size_t>(std::clamp<LRESULT>(
        Send(EM_GETLINE, static_cast<WPARAM>(line), reinterpret_cast<LPARAM>(buffer.data())), 0, capacity));
    return wide_text::ToSystem({buffer.data(), count});
}

int CDUIRichEdit::LineIndex(int line)
{
    return static_cast<int>(Send(EM_LINEINDEX, static_cast<WPARAM>(line)));
}

int CDUIRichEdit::LineLength(int position)
{
    return static_cast<int>(Send(EM_LINELENGTH, static_cast<WPARAM>(position)));
}

void CDUIRichEdit::LineScroll(int lines, int characters)
{
    Send(EM_LINESCROLL, static_cast<WPARAM>(characters), lines);
}

int CDUIRichEdit::LineFromChar(int position)
{
    return static_cast<int>(Send(EM_EXLINEFROMCHAR, 0, position));
}

POINT CDUIRichEdit::PosFromChar(int position)
{
    POINTL point{};
    Send(EM_POSFROMCHAR, reinterpret_cast<WPARAM>(&point), position);
    return {point.x, point.y};
}

int CDUIRichEdit::CharFromPos(POINT point)
{
    const POINTL given{point.x, point.y};
    return static_cast<int>(Send(EM_CHARFROMPOS, 0, reinterpret_cast<LPARAM>(&given)));
}

int CDUIRichEdit::GetFirstVisibleLine()
{
    return static_cast<int>(Send(EM_GETFIRSTVISIBLELINE));
}

void CDUIRichEdit::EmptyUndoBuffer()
{
    Send(EM_EMPTYUNDOBUFFER);
}

UINT CDUIRichEdit::SetUndoLimit(UINT steps)
{
    return static_cast<UINT>(Send(EM_SETUNDOLIMIT, steps));
}

long CDUIRichEdit::StreamIn(int format, EDITSTREAM& stream)
{
    return static_cast<long>(
        Send(EM_STREAMIN, static_cast<WPARAM>(format), reinterpret_cast<LPARAM>(&stream)));
}

long CDUIRichEdit::StreamOut(int format, EDITSTREAM& stream)
{
    return static_cast<long>(
        Send(EM_STREAMOUT, static_cast<WPARAM>(format), reinterpret_cast<LPARAM>(&stream)));
}

}  // namespace DUI
