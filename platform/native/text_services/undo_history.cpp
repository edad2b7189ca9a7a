#include "native/text_services/undo_history.h"

#include <algorithm>

namespace qvui::native {
namespace {

// Removed text that the history keeps at most, in units; the newest step stays whatever its size.
constexpr std::size_t kMostUnits = std::size_t{1} << 26;

std::size_t UnitsOf(const UndoHistory::Step& step)
{
    std::size_t units = 0;
    for (const UndoHistory::Record& record : step.records)
        if (const auto* edit = std::get_if<UndoHistory::Edit>(&record))
            units += static_cast<std::size_t>(edit->removed.fragment.Units());
    return units;
}

}  // namespace

void UndoHistory::Begin(const Selection& before, bool isTyping)
{
    if (m_depth++ > 0)
        return;
    const bool goesOn = isTyping && m_isGrouping && !m_done.empty() && m_done.back().isTyping &&
                        m_done.back().after == before;
    if (goesOn) {
        m_open = std::move(m_done.back());
        m_done.pop_back();
    } else {
        m_open = {};
        m_open.before = before;
        m_open.isTyping = isTyping;
    }
}

// Makes one edit of two where the second goes on with typing, or with deleting, right where the first one
// ended.
bool UndoHistory::Join(Edit& last, Edit& next)
{
    const int removed = next.removed.fragment.Units();
    if (removed == 0 && next.first == last.first + last.inserted) {
        last.inserted += next.inserted;
        return true;
    }
    if (next.inserted == 0 && next.first >= last.first &&
        next.first + removed == last.first + last.inserted) {
        last.inserted -= removed;
        return true;
    }
    if (next.inserted == 0 && last.inserted == 0 && next.first + removed == last.first) {
        const FormatId tail = last.removed.tail;
        next.removed.fragment.Append(std::move(last.removed.fragment));
        next.removed.tail = tail;
        last = std::move(next);
        return true;
    }
    return false;
}

void UndoHistory::Add(Record record)
{
    if (!m_open.records.empty() && m_open.isTyping) {
        auto* last = std::get_if<Edit>(&m_open.records.back());
        auto* next = std::get_if<Edit>(&record);
        if (last && next && Join(*last, *next))
            return;
    }
    m_open.records.push_back(std::move(record));
}

void UndoHistory::End(const Selection& after)
{
    if (--m_depth > 0)
        return;
    if (m_open.records.empty())
        return;
    m_undone.clear();
    m_open.after = after;
    m_isGrouping = m_open.isTyping;
    m_done.push_back(std::move(m_open));
    m_open = {};
    Shrink();
}

UndoHistory::Step UndoHistory::TakeUndo()
{
    Step step = std::move(m_done.back());
    m_done.pop_back();
    m_isGrouping = false;
    return step;
}

UndoHistory::Step UndoHistory::TakeRedo()
{
    Step step = std::move(m_undone.back());
    m_undone.pop_back();
    return step;
}

void UndoHistory::Clear()
{
    m_done.clear();
    m_undone.clear();
    m_open.records.clear();
    m_isGrouping = false;
}

int UndoHistory::SetLimit(int limit)
{
    m_limit = limit < 0 ? kDefaultLimit : limit;
    Shrink();
    return m_limit;
}

void UndoHistory::Shrink()
{
    std::size_t units = 0;
    std::size_t kept = 0;
    for (auto step = m_done.rbegin(); step != m_done.rend() && kept < static_cast<std::size_t>(m_limit);
         ++step) {
        units += UnitsOf(*step);
        if (kept > 0 && units > kMostUnits)
            break;
        ++kept;
    }
    m_done.erase(m_done.begin(), m_done.end() - static_cast<std::ptrdiff_t>(kept));
}

}  // namespace qvui::native
