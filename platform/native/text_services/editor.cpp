#include "native/text_services/editor.h"

#include <glib.h>

#include <algorithm>
#include <array>

namespace qvui::native {
namespace {

// A link is looked for so far around a change.
constexpr int kLongestLink = 2048;
constexpr int kFindWindow = 1 << 16;

bool IsLink(std::u16string_view word)
{
    static constexpr std::array<std::u16string_view, 7> kStarts{u"http:",   u"https:", u"ftp:", u"file:",
                                                                u"mailto:", u"news:",  u"www."};
    return std::any_of(kStarts.begin(), kStarts.end(), [&](std::u16string_view start) {
        return word.size() > start.size() &&
               std::equal(start.begin(), start.end(), word.begin(), [](char16_t small, char16_t unit) {
                   return small == (unit >= u'A' && unit <= u'Z' ? unit + (u'a' - u'A') : unit);
               });
    });
}

bool EndsLink(char16_t unit)
{
    return unit <= u' ' || unit == u'<' || unit == u'>' || unit == u'"';
}

bool IsPunctuationAfterLink(char16_t unit)
{
    return std::u16string_view(u".,;:!?)]}'").find(unit) != std::u16string_view::npos;
}

}  // namespace

Editor::Editor() : m_formats(m_document.CharFormats()), m_view(m_document)
{
}

void Editor::SetText(std::u16string text, bool keepsUndo)
{
    if (!m_isMultiLine)
        text.resize(std::min(text.size(), text.find_first_of(u"\r\n")));
    ForgetInsertionFormat();
    if (keepsUndo) {
        m_history.Begin(m_selection, false);
        Replace(0, m_document.Length(), Fragment::Of(text, kDefaultFormat, kDefaultFormat));
        m_selection = {};
        m_history.End(m_selection);
    } else {
        const int length = m_document.Length();
        m_document.SetText(std::move(text));
        m_history.Clear();
        m_view.Replaced(0, length, m_document.Length());
        Damage(0, m_document.Length());
        m_selection = {};
        ++m_changes;
        if (m_detectsLinks)
            DetectLinks(0, m_document.Length());
    }
    m_view.SetTop(0);
    m_wishedX.reset();
    m_isModified = false;
}

// Notes a change that left [first, last) behind, `growth` units longer than before.
void Editor::Damage(Position first, Position last, int growth)
{
    if (m_damage) {
        const Position end = m_damage->last > first ? std::max(m_damage->last + growth, last) : last;
        m_damage = {std::min(m_damage->first, first), std::max(end, last)};
    } else {
        m_damage = {first, last};
    }
}

void Editor::Replace(Position first, Position last, Fragment fragment, std::optional<FormatId> tail)
{
    const int inserted = fragment.Units();
    Document::Removed removed = m_document.Replace(first, last, std::move(fragment), tail);
    m_view.Replaced(first, last - first, inserted);
    Damage(first, first + inserted, inserted - (last - first));
    m_history.Add(UndoHistory::Edit{first, inserted, std::move(removed)});
    ++m_changes;
    m_isModified = true;
    if (m_detectsLinks)
        DetectLinks(first, first + inserted);
}

Fragment Editor::Prepare(std::u16string_view text) const
{
    if (!m_isMultiLine)
        text = text.substr(0, text.find_first_of(u"\r\n"));
    return Fragment::Of(text, InsertionFormatId(), m_document.ParagraphFormatAt(m_selection.First()));
}

void Editor::ReplaceSelection(std::u16string_view text, bool canUndo)
{
    ReplaceSelection(Prepare(text), canUndo);
}

void Editor::ReplaceSelection(Fragment fragment, bool canUndo)
{
    const Span span = SelectedText();
    const int inserted = fragment.Units();
    m_history.Begin(m_selection, false);
    if (inserted > 0 || span.first < span.last)
        Replace(span.first, span.last, std::move(fragment));
    m_isModified = true;
    ForgetInsertionFormat();
    Select(span.first + inserted, span.first + inserted);
    m_history.End(m_selection);
    if (!canUndo)
        m_history.Clear();
}

void Editor::Type(std::u16string_view text)
{
    Fragment fragment = Prepare(text);
    if (fragment.IsEmpty())
        return;
    const Span span = SelectedText();
    const int inserted = fragment.Units();
    if (span.first < span.last)
        m_history.StopGrouping();
    m_history.Begin(m_selection, true);
    if (span.first < span.last)
        Replace(span.first, span.last, {});
    Replace(span.first, span.first, std::move(fragment));
    ForgetInsertionFormat();
    Select(span.first + inserted, span.first + inserted);
    m_history.End(m_selection);
}

bool Editor::DeleteRange(Position first, Position last, bool isTyping)
{
    if (first >= last)
        return false;
    m_history.Begin(m_selection, isTyping);
    Replace(first, last, {});
    Select(first, first);
    m_history.End(m_selection);
    return true;
}

void Editor::DeleteSelection()
{
    const Span span = SelectedText();
    DeleteRange(span.first, span.last, false);
    Select(span.first, span.first);
}

bool Editor::DeleteForward(bool byWord)
{
    if (!m_selection.IsEmpty()) {
        DeleteSelection();
        return true;
    }
    const Position at = m_selection.active;
    const auto insertion = m_insertion;
    const bool deleted =
        DeleteRange(at, byWord && !m_isPassword ? WordsOfText().Next(at) : m_view.Next(at), false);
    m_insertion = insertion;
    return deleted;
}

bool Editor::DeleteBackward(bool byWord)
{
    if (!m_selection.IsEmpty()) {
        DeleteSelection();
        return true;
    }
    const Position at = m_selection.active;
    return DeleteRange(byWord && !m_isPassword ? WordsOfText().Previous(at) : m_view.Backspace(at), at,
                       !byWord);
}

UndoHistory::Record Editor::Invert(UndoHistory::Record record)
{
    if (auto* edit = std::get_if<UndoHistory::Edit>(&record)) {
        const int inserted = edit->removed.fragment.Units();
        Document::Removed removed = m_document.Replace(edit->first, edit->first + edit->inserted,
                                                       std::move(edit->removed.fragment), edit->removed.tail);
        m_view.Replaced(edit->first, edit->inserted, inserted);
        Damage(edit->first, edit->first + inserted, inserted - edit->inserted);
        return UndoHistory::Edit{edit->first, inserted, std::move(removed)};
    }
    auto& change = std::get<UndoHistory::FormatChange>(record);
    UndoHistory::FormatChange inverse{{}, change.isOfParagraphs};
    const Position first = change.before.front().first;
    const Position last = change.before.back().last;
    inverse.before =
        change.isOfParagraphs ? m_document.ParagraphFormats(first, last) : m_document.Formats(first, last);
    Damage(first, last);
    for (const Document::FormatSpan& span : change.before) {
        if (change.isOfParagraphs)
            m_document.SetParagraphFormat(span.first, span.format);
        else
            m_document.SetFormat(span.first, span.last, span.format);
    }
    return inverse;
}

UndoHistory::Step Editor::Apply(UndoHistory::Step step)
{
    UndoHistory::Step inverse;
    inverse.before = step.after;
    inverse.after = step.before;
    while (!step.records.empty()) {
        inverse.records.push_back(Invert(std::move(step.records.back())));
        step.records.pop_back();
    }
    ++m_changes;
    m_isModified = true;
    Select(step.before.anchor, step.before.active);
    return inverse;
}

bool Editor::Undo()
{
    if (!m_history.CanUndo())
        return false;
    m_history.Undone(Apply(m_history.TakeUndo()));
    return true;
}

bool Editor::Redo()
{
    if (!m_history.CanRedo())
        return false;
    m_history.Redone(Apply(m_history.TakeRedo()));
    return true;
}

void Editor::Select(Position anchor, Position active, bool atEndOfLine)
{
    const Position length = m_document.Length();
    anchor = std::clamp(anchor, 0, length + 1);
    active = std::clamp(active, 0, length + 1);
    // The final mark can be part of a selection, but no caret stands after it.
    if (anchor == active)
        anchor = active = std::min(active, length);
    const Selection selection{anchor, active, atEndOfLine};
    if (!(selection == m_selection))
        ForgetInsertionFormat();
    m_selection = selection;
    m_wishedX.reset();
}

Editor::Span Editor::SelectedText() const
{
    const Position length = m_document.Length();
    return {std::min(m_selection.First(), length), std::min(m_selection.Last(), length)};
}

Caret Editor::CaretPlace() const
{
    return {std::min(m_selection.active, m_document.Length()), m_selection.atEndOfLine};
}

void Editor::MoveVertically(int direction, int page, bool extends)
{
    const Caret caret = CaretPlace();
    const TextView::Box box = m_view.Locate(caret);
    const std::int64_t x = m_wishedX.value_or(box.x);
    std::int64_t y = direction < 0 ? box.y - 1 : box.y + box.height;
    if (page > 0)
        y = box.y + static_cast<std::int64_t>(direction) * std::max(page - box.height, box.height);
    const bool leaves = direction < 0 ? box.y <= 0 : y >= m_view.Height();
    if (page == 0 && leaves) {
        if (extends)
            Select(m_selection.anchor, direction < 0 ? 0 : m_document.Length() + 1);
        m_wishedX = x;
        return;
    }
    const Caret target = m_view.Hit(x, y);
    Select(extends ? m_selection.anchor : target.position, target.position, target.atEndOfLine);
    m_wishedX = x;
}

void Editor::MoveCaret(Move move, bool extends, int page)
{
    Words words = WordsOfText();
    const Position length = m_document.Length();
    const Position at = std::min(m_selection.active, length);
    const bool collapses = !extends && !m_selection.IsEmpty();
    Position to = at;
    bool atEndOfLine = false;
    switch (move) {
        case Move::Left:
            to = collapses ? SelectedText().first : m_view.Left(at);
            break;
        case Move::Right:
            to = collapses ? SelectedText().last : m_view.Right(at);
            break;
        case Move::WordLeft:
            to = m_isPassword ? 0 : words.Previous(at);
            break;
        case Move::WordRight:
            to = m_isPassword ? length : words.Next(at);
            break;
        case Move::LineStart:
            to = m_view.LineAround(CaretPlace()).first;
            break;
        case Move::LineEnd: {
            const TextView::LineSpan line = m_view.LineAround(CaretPlace());
            to = line.last;
            atEndOfLine = line.isWrapped;
            break;
        }
        case Move::TextStart:
            to = 0;
            break;
        case Move::TextEnd:
            to = length;
            break;
        case Move::Up:
        case Move::PageUp:
            MoveVertically(-1, move == Move::PageUp ? page : 0, extends);
            return;
        case Move::Down:
        case Move::PageDown:
            MoveVertically(1, move == Move::PageDown ? page : 0, extends);
            return;
    }
    Select(extends ? m_selection.anchor : to, to, atEndOfLine);
}

Editor::Span Editor::SpanAt(Position position, Unit unit)
{
    position = std::min(position, m_document.Length());
    if (unit == Unit::Word && !m_isPassword) {
        const Words::Span word = WordsOfText().Around(position);
        return {word.first, word.last};
    }
    if (unit == Unit::Character)
        return {position, position};
    return {m_document.ParagraphStart(position), m_document.ParagraphEnd(position) + 1};
}

FormatId Editor::InsertionFormatId() const
{
    if (m_insertion)
        return *m_insertion;
    if (!m_isRich)
        return kDefaultFormat;
    const Position first = std::min(m_selection.First(), m_document.Length());
    if (!m_selection.IsEmpty() || first == 0 || first == m_document.ParagraphStart(first))
        return m_document.FormatAt(first);
    return m_document.FormatAt(first - 1);
}

CharFormat Editor::InsertionFormat() const
{
    return m_formats[InsertionFormatId()];
}

Editor::SelectionFormat Editor::FormatOfSelection() const
{
    const Span span = SelectedText();
    if (span.first == span.last)
        return {InsertionFormat(), CFM_ALL2};
    const auto spans = m_document.Formats(span.first, span.last);
    SelectionFormat result{m_formats[spans.front().format], CFM_ALL2};
    for (const Document::FormatSpan& other : spans)
        result.mask &= ~result.format.Differences(m_formats[other.format]);
    return result;
}

void Editor::FormatSelection(const ChangeFormat& change)
{
    if (m_selection.IsEmpty()) {
        CharFormat format = InsertionFormat();
        change(format);
        m_insertion = m_formats.Intern(format);
        return;
    }
    FormatRange(m_selection.First(), m_selection.Last(), change);
}

void Editor::FormatRange(Position first, Position last, const ChangeFormat& change)
{
    last = std::min(last, m_document.Length() + 1);
    if (first >= last)
        return;
    UndoHistory::FormatChange record{m_document.Formats(first, last), false};
    Damage(first, last);
    for (const Document::FormatSpan& span : record.before) {
        CharFormat format = m_formats[span.format];
        change(format);
        m_document.SetFormat(span.first, span.last, m_formats.Intern(format));
    }
    m_history.Begin(m_selection, false);
    m_history.Add(std::move(record));
    m_history.End(m_selection);
    m_isModified = true;
}

void Editor::SetDefaultFormat(const CharFormat& format)
{
    m_formats.SetDefault(format);
    m_view.DefaultsChanged();
    Damage(0, m_document.Length());
}

Editor::ParagraphFormat Editor::FormatOfParagraphs() const
{
    const auto spans =
        m_document.ParagraphFormats(std::min(m_selection.First(), m_document.Length()), m_selection.Last());
    const FormatPool<ParaFormat>& formats = m_document.ParaFormats();
    ParagraphFormat result{formats[spans.front().format], 0xFFFFFFFFU};
    for (const Document::FormatSpan& other : spans)
        result.mask &= ~result.format.Differences(formats[other.format]);
    return result;
}

void Editor::FormatParagraphs(const std::function<void(ParaFormat&)>& change)
{
    UndoHistory::FormatChange record{
        m_document.ParagraphFormats(std::min(m_selection.First(), m_document.Length()), m_selection.Last()),
        true};
    for (const Document::FormatSpan& span : record.before) {
        ParaFormat format = ParaFormats()[span.format];
        change(format);
        m_document.SetParagraphFormat(span.first, ParaFormats().Intern(format));
    }
    m_history.Begin(m_selection, false);
    m_history.Add(std::move(record));
    m_history.End(m_selection);
}

void Editor::SetDefaultParagraphFormat(const ParaFormat& format)
{
    ParaFormats().SetDefault(format);
    m_view.DefaultsChanged();
    Damage(0, m_document.Length());
}

Editor::Position Editor::Find(std::u16string_view wanted, Position first, Position last, bool isDown,
                              bool matchesCase, bool isWholeWord)
{
    const auto size = static_cast<Position>(wanted.size());
    if (size == 0)
        return -1;
    const auto folded = [matchesCase](char16_t unit) {
        return matchesCase ? unit : static_cast<char16_t>(g_unichar_tolower(unit));
    };
    const Position low = std::min(first, last);
    const Position high = std::max(first, last);
    // In windows that overlap by the text that is looked for.
    for (Position passed = 0; passed + size <= high - low; passed += kFindWindow) {
        const Position count = std::min(kFindWindow + size - 1, high - low - passed);
        const Position start = isDown ? low + passed : high - passed - count;
        const std::u16string text = m_document.Text(start, start + count);
        for (Position i = 0; i + size <= count; ++i) {
            const Position at = isDown ? i : count - size - i;
            const bool isSame = std::equal(wanted.begin(), wanted.end(), text.begin() + at,
                                           [&](char16_t a, char16_t b) { return folded(a) == folded(b); });
            if (!isSame)
                continue;
            const Words::Span word =
                isWholeWord ? WordsOfText().Bare(start + at) : Words::Span{start + at, start + at + size};
            if (word.first == start + at && word.last == start + at + size)
                return start + at;
        }
    }
    return -1;
}

void Editor::SetDetectsLinks(bool detects)
{
    m_detectsLinks = detects;
    if (detects)
        DetectLinks(0, m_document.Length());
}

// Gives the links in and around [first, last) the effect of one, and takes it from what is none any more. Not
// part of the history: it follows from the text.
void Editor::DetectLinks(Position first, Position last)
{
    const Position least = std::max(0, first - kLongestLink);
    const Position most = std::min(m_document.Length(), last + kLongestLink);
    while (first > least && !EndsLink(m_document.At(first - 1)))
        --first;
    while (last < most && !EndsLink(m_document.At(last)))
        ++last;
    const std::u16string text = m_document.Text(first, last);
    std::vector<Span> links;
    for (std::size_t at = 0; at < text.size();) {
        std::size_t end = at;
        while (end < text.size() && !EndsLink(text[end]))
            ++end;
        std::size_t linkEnd = end;
        while (linkEnd > at && IsPunctuationAfterLink(text[linkEnd - 1]))
            --linkEnd;
        if (IsLink(std::u16string_view(text).substr(at, linkEnd - at)))
            links.push_back({first + static_cast<Position>(at), first + static_cast<Position>(linkEnd)});
        at = end + 1;
    }
    const auto set = [this](Position from, Position to, DWORD effect) {
        if (from >= to)
            return;
        for (const Document::FormatSpan& span : m_document.Formats(from, to)) {
            CharFormat format = m_formats[span.format];
            if ((format.effects & CFE_LINK) == effect)
                continue;
            format.effects = (format.effects & ~CFE_LINK) | effect;
            m_document.SetFormat(span.first, span.last, m_formats.Intern(format));
            Damage(span.first, span.last);
        }
    };
    Position at = first;
    for (const Span& link : links) {
        set(at, link.first, 0);
        set(link.first, link.last, CFE_LINK);
        at = link.last;
    }
    set(at, last, 0);
}

}  // namespace qvui::native
