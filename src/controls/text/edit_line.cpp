#include "controls/text/edit_line.h"

#include <algorithm>
#include <limits>
#include <utility>

#include <qvui/platform/cstring.h>

#include "controls/text/multibyte.h"

namespace DUI {
namespace {

constexpr std::size_t kMostUndoSteps = 1000;

bool IsControl(char byte)
{
    return static_cast<unsigned char>(byte) < 32 || byte == 127;
}

std::string OnOneLine(std::string_view text)
{
    std::string line;
    line.reserve(text.size());
    for (std::size_t i = 0; i < text.size() && text[i] != '\0'; ++i) {
        const bool isPair = text[i] == '\r' && i + 1 < text.size() && text[i + 1] == '\n';
        if (text[i] == '\r' || text[i] == '\n' || text[i] == '\t')
            line += ' ';
        else if (!IsControl(text[i]))
            line += text[i];
        i += isPair ? 1 : 0;
    }
    return line;
}

}  // namespace

int EditLine::s_pendingBytes = 0;

std::string EditLine::SelectedText() const
{
    return m_text.substr(static_cast<std::size_t>(m_selectionStart),
                         static_cast<std::size_t>(m_selectionEnd - m_selectionStart));
}

void EditLine::SetText(std::string_view text)
{
    m_text = text;
    m_caret = multibyte::Floor(m_text, std::min(m_caret, Length()));
    ClearSelection();
    m_anchor = -1;
    m_undo.clear();
    m_redo.clear();
    m_isTyping = false;
}

// --- selecting ---------------------------------------------------------------------------------------------

void EditLine::SelectAll()
{
    m_selectionStart = 0;
    m_selectionEnd = Length();
}

void EditLine::ClearSelection()
{
    m_selectionStart = m_selectionEnd = 0;
}

void EditLine::Select(int from, int to)
{
    const auto within = [this](int index) {
        return multibyte::Floor(m_text, std::clamp(index, 0, Length()));
    };
    m_caret = within(to);
    m_selectionStart = std::min(within(from), m_caret);
    m_selectionEnd = std::max(within(from), m_caret);
    m_isTyping = false;
}

void EditLine::Press(int index)
{
    Select(index, index);
    m_anchor = m_caret;
}

void EditLine::MoveTo(int index, bool extends)
{
    if (!extends) {
        Select(index, index);
        m_anchor = -1;
        return;
    }
    if (m_anchor < 0)
        m_anchor = !HasSelection() ? m_caret : m_caret >= m_selectionEnd ? m_selectionStart : m_selectionEnd;
    Select(m_anchor, index);
}

void EditLine::MoveToStart(bool extends)
{
    if (m_anchor < 0)
        m_anchor = m_caret;
    MoveTo(0, extends);
}

void EditLine::MoveToEnd(bool extends)
{
    if (m_anchor < 0)
        m_anchor = m_caret;
    MoveTo(Length(), extends);
}

// --- editing -----------------------------------------------------------------------------------------------

int EditLine::Room() const
{
    return m_limit == kNoLimit ? std::numeric_limits<int>::max() : std::max(0, m_limit - Length());
}

bool EditLine::Type(char byte)
{
    const bool goesOn = s_pendingBytes > 0 && multibyte::Continues(byte);
    const int missing = goesOn ? s_pendingBytes : multibyte::LengthOf(byte);
    const bool wasChanged = DeleteSelection();
    s_pendingBytes = 0;
    if (missing == 0 || missing > Room())
        return wasChanged;
    s_pendingBytes = missing - 1;
    m_anchor = -1;
    Replace(m_caret, 0, std::string_view(&byte, 1), wasChanged || goesOn);
    ++m_caret;
    m_isTyping = true;
    if (!goesOn && missing == 1 && m_isUppercase)
        Capitalize();
    return true;
}

bool EditLine::Paste(std::string_view text)
{
    const bool wasChanged = DeleteSelection();
    s_pendingBytes = 0;
    std::string line = OnOneLine(text);
    if (static_cast<int>(line.size()) > Room())
        line.resize(static_cast<std::size_t>(multibyte::Floor(line, Room())));
    if (line.empty())
        return wasChanged;
    m_anchor = -1;
    m_isTyping = false;
    Replace(m_caret, 0, line, wasChanged);
    m_caret += static_cast<int>(line.size());
    if (m_isUppercase)
        Capitalize();
    return true;
}

bool EditLine::DeleteSelection()
{
    if (!HasSelection())
        return false;
    const int start = m_selectionStart;
    m_isTyping = false;
    s_pendingBytes = 0;
    Replace(start, m_selectionEnd - start, {}, false);
    m_caret = start;
    ClearSelection();
    m_anchor = -1;
    return true;
}

bool EditLine::DeleteTo(int index)
{
    if (!HasSelection())
        Select(m_caret, std::clamp(index, 0, Length()));
    m_anchor = -1;
    return DeleteSelection();
}

void EditLine::Capitalize()
{
    CString text(m_text.c_str());
    CString before(m_text.substr(0, static_cast<std::size_t>(m_caret)).c_str());
    text.MakeUpper();
    before.MakeUpper();
    if (m_text == text.GetString())
        return;
    Replace(0, Length(), text.GetString(), true);
    m_caret = std::min(before.GetLength(), Length());
}

// --- undo --------------------------------------------------------------------------------------------------

void EditLine::Put(int at, std::size_t count, std::string_view inserted)
{
    m_text.replace(static_cast<std::size_t>(at), count, inserted);
}

bool EditLine::CanGrowLast(int at) const
{
    if (!m_isTyping || m_undo.empty())
        return false;
    const Change& last = m_undo.back();
    return last.removed.empty() && last.at + static_cast<int>(last.inserted.size()) == at;
}

void EditLine::Replace(int at, int count, std::string_view inserted, bool joins)
{
    m_redo.clear();
    if (count == 0 && CanGrowLast(at)) {
        m_undo.back().inserted += inserted;
    } else {
        if (m_undo.size() == kMostUndoSteps)
            m_undo.erase(m_undo.begin());
        m_undo.push_back({at, m_text.substr(static_cast<std::size_t>(at), static_cast<std::size_t>(count)),
                          std::string(inserted), joins});
    }
    Put(at, static_cast<std::size_t>(count), inserted);
}

bool EditLine::Undo()
{
    if (m_undo.empty())
        return false;
    bool joins = true;
    while (joins && !m_undo.empty()) {
        Change change = std::move(m_undo.back());
        m_undo.pop_back();
        Put(change.at, change.inserted.size(), change.removed);
        m_caret = change.at + static_cast<int>(change.removed.size());
        joins = change.joinsPrevious;
        m_redo.push_back(std::move(change));
    }
    ClearSelection();
    m_anchor = -1;
    m_isTyping = false;
    s_pendingBytes = 0;
    return true;
}

bool EditLine::Redo()
{
    if (m_redo.empty())
        return false;
    do {
        Change change = std::move(m_redo.back());
        m_redo.pop_back();
        Put(change.at, change.removed.size(), change.inserted);
        m_caret = change.at + static_cast<int>(change.inserted.size());
        m_undo.push_back(std::move(change));
    } while (!m_redo.empty() && m_redo.back().joinsPrevious);
    ClearSelection();
    m_anchor = -1;
    m_isTyping = false;
    s_pendingBytes = 0;
    return true;
}

}  // namespace DUI
