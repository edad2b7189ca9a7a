#include "native/text_services/segment.h"

#include <algorithm>

namespace qvui::native {

SegmentText SegmentText::CopyOf(std::u16string_view text)
{
    SegmentText copy;
    copy.Insert(0, text);
    return copy;
}

void SegmentText::Free()
{
    if (m_capacity)
        delete[] m_text;
}

void SegmentText::Own(std::size_t capacity)
{
    if (m_capacity >= capacity)
        return;
    // A slice that is edited once is likely to be edited again.
    const std::size_t grown = std::max<std::size_t>(capacity, m_length + m_length / 4 + 16);
    char16_t* own = new char16_t[grown];
    std::copy_n(m_text, m_length, own);
    Free();
    m_text = own;
    m_capacity = static_cast<std::uint32_t>(grown);
}

void SegmentText::Insert(int at, std::u16string_view text)
{
    if (text.empty())
        return;
    Own(m_length + text.size());
    char16_t* place = const_cast<char16_t*>(m_text) + at;
    std::memmove(place + text.size(), place, (m_length - static_cast<std::size_t>(at)) * sizeof *place);
    std::copy(text.begin(), text.end(), place);
    m_length += static_cast<std::uint32_t>(text.size());
}

void SegmentText::Erase(int at, int count)
{
    const std::size_t end = static_cast<std::size_t>(at + count);
    if (end < m_length) {
        if (at == 0 && IsSlice()) {
            m_text += count;
        } else {
            Own(m_length);
            char16_t* place = const_cast<char16_t*>(m_text) + at;
            std::memmove(place, m_text + end, (m_length - end) * sizeof *place);
        }
    }
    m_length -= static_cast<std::uint32_t>(count);
}

void SegmentText::Append(const SegmentText& next)
{
    if (next.m_length == 0)
        return;
    if (m_length == 0 && next.IsSlice() && IsSlice()) {
        *this = SegmentText(next.View());
    } else if (IsSlice() && next.IsSlice() && m_text + m_length == next.m_text) {
        m_length += next.m_length;
    } else {
        Insert(Length(), next.View());
    }
}

SegmentText SegmentText::Cut(int at)
{
    SegmentText rest = IsSlice() ? SegmentText(View().substr(static_cast<std::size_t>(at)))
                                 : CopyOf(View().substr(static_cast<std::size_t>(at)));
    m_length = static_cast<std::uint32_t>(at);
    return rest;
}

FormatId FormatRuns::At(int at) const
{
    if (!m_runs)
        return m_single;
    int end = 0;
    for (const Run& run : *m_runs) {
        end += run.length;
        if (at < end)
            return run.format;
    }
    return m_runs->back().format;
}

std::vector<FormatRuns::Run>& FormatRuns::Split(int length)
{
    if (!m_runs)
        m_runs = std::make_unique<std::vector<Run>>(1, Run{length, m_single});
    return *m_runs;
}

// The index of the run that starts at `at`, for which the run across it is divided.
std::size_t FormatRuns::BorderAt(int at)
{
    std::vector<Run>& runs = *m_runs;
    int first = 0;
    for (std::size_t i = 0; i < runs.size(); ++i) {
        if (first == at)
            return i;
        if (at < first + runs[i].length) {
            const Run rest{first + runs[i].length - at, runs[i].format};
            runs[i].length = at - first;
            runs.insert(runs.begin() + static_cast<std::ptrdiff_t>(i) + 1, rest);
            return i + 1;
        }
        first += runs[i].length;
    }
    return runs.size();
}

// Makes one run of equal neighbours, none of empty ones, and no list of a single one.
void FormatRuns::Merge()
{
    std::vector<Run>& runs = *m_runs;
    std::size_t kept = 0;
    for (const Run& run : runs) {
        if (run.length == 0)
            continue;
        if (kept > 0 && runs[kept - 1].format == run.format)
            runs[kept - 1].length += run.length;
        else
            runs[kept++] = run;
    }
    if (kept <= 1) {
        m_single = runs.front().format;
        m_runs.reset();
    } else {
        runs.resize(kept);
    }
}

void FormatRuns::Insert(int at, int count, FormatId format, int length)
{
    if (count == 0)
        return;
    if (length == 0) {
        m_single = format;
        m_runs.reset();
        return;
    }
    if (!m_runs && format == m_single)
        return;
    std::vector<Run>& runs = Split(length);
    const auto border = static_cast<std::ptrdiff_t>(BorderAt(at));
    runs.insert(runs.begin() + border, Run{count, format});
    Merge();
}

void FormatRuns::Erase(int at, int count)
{
    if (!m_runs || count == 0)
        return;
    const auto first = static_cast<std::ptrdiff_t>(BorderAt(at));
    const auto last = static_cast<std::ptrdiff_t>(BorderAt(at + count));
    if (first == 0 && last == static_cast<std::ptrdiff_t>(m_runs->size())) {
        m_single = m_runs->front().format;
        m_runs.reset();
        return;
    }
    m_runs->erase(m_runs->begin() + first, m_runs->begin() + last);
    Merge();
}

void FormatRuns::Set(int first, int last, FormatId format, int length)
{
    if (first >= last || (!m_runs && format == m_single))
        return;
    if (first == 0 && last == length) {
        m_single = format;
        m_runs.reset();
        return;
    }
    Split(length);
    const std::size_t from = BorderAt(first);
    const std::size_t to = BorderAt(last);
    for (std::size_t i = from; i < to; ++i)
        (*m_runs)[i].format = format;
    Merge();
}

void FormatRuns::Append(const FormatRuns& next, int length, int nextLength)
{
    if (nextLength == 0)
        return;
    if (length == 0) {
        m_single = next.m_single;
        m_runs = next.m_runs ? std::make_unique<std::vector<Run>>(*next.m_runs) : nullptr;
        return;
    }
    if (!m_runs && !next.m_runs && m_single == next.m_single)
        return;
    std::vector<Run>& runs = Split(length);
    next.ForEach(nextLength, [&](int first, int last, FormatId format) {
        runs.push_back({last - first, format});
    });
    Merge();
}

FormatRuns FormatRuns::Cut(int at, int length)
{
    if (!m_runs || at == length)
        return FormatRuns(At(length));
    FormatRuns rest(m_runs->front().format);
    const auto border = static_cast<std::ptrdiff_t>(BorderAt(at));
    if (border == 0) {
        rest.m_runs = std::move(m_runs);
        m_single = rest.At(0);
        return rest;
    }
    rest.m_runs = std::make_unique<std::vector<Run>>(m_runs->begin() + border, m_runs->end());
    m_runs->erase(m_runs->begin() + border, m_runs->end());
    rest.Merge();
    Merge();
    return rest;
}

Segment Segment::Cut(int at)
{
    Segment rest;
    rest.formats = formats.Cut(at, Units());
    rest.text = text.Cut(at);
    rest.paragraph = paragraph;
    rest.endsParagraph = endsParagraph;
    endsParagraph = false;
    Touch();
    return rest;
}

void Segment::Append(const Segment& next)
{
    formats.Append(next.formats, Units(), next.Units());
    text.Append(next.text);
    endsParagraph = next.endsParagraph;
    Touch();
}

Segment Segment::Copy(int first, int last) const
{
    Segment copy;
    const int textLast = std::min(last, text.Length());
    const std::u16string_view part =
        text.View().substr(static_cast<std::size_t>(first), static_cast<std::size_t>(textLast - first));
    copy.text = text.IsSlice() ? SegmentText(part) : SegmentText::CopyOf(part);
    copy.endsParagraph = last > text.Length();
    copy.paragraph = paragraph;
    bool isFirst = true;
    formats.ForEach(Units(), [&](int from, int to, FormatId format) {
        from = std::max(from, first);
        to = std::min(to, last);
        if (from >= to)
            return;
        if (isFirst)
            copy.formats = FormatRuns(format);
        else
            copy.formats.Append(FormatRuns(format), from - first, to - from);
        isFirst = false;
    });
    return copy;
}

}  // namespace qvui::native
