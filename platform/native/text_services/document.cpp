#include "native/text_services/document.h"

#include <glib.h>

#include <algorithm>
#include <iterator>

namespace qvui::native {
namespace {

// A segment's units: layout takes time in proportion, so one is short enough to be laid out between two
// frames.
constexpr int kUsualUnits = 4096;
constexpr int kMostUnits = 6144;
// Below this a segment is joined with the one after it.
constexpr int kFewUnits = 1024;
constexpr int kSearchForCut = 512;

std::size_t FindBreak(std::u16string_view text, std::size_t from)
{
    while (from < text.size() && text[from] != u'\r' && text[from] != u'\n')
        ++from;
    return from;
}

template <class MakeText>
Fragment MakeFragment(std::u16string_view text, FormatId format, FormatId paragraph, MakeText makeText)
{
    Fragment fragment;
    const auto add = [&](std::u16string_view piece, bool endsParagraph) {
        Segment segment;
        segment.text = makeText(piece);
        segment.formats = FormatRuns(format);
        segment.paragraph = paragraph;
        segment.endsParagraph = endsParagraph;
        fragment.segments.push_back(std::move(segment));
    };
    std::size_t at = 0;
    while (at < text.size()) {
        const std::size_t end = FindBreak(text, at);
        while (end - at > static_cast<std::size_t>(kMostUnits)) {
            const auto cut = static_cast<std::size_t>(BestCut(text.substr(at, end - at), kUsualUnits));
            add(text.substr(at, cut), false);
            at += cut;
        }
        const bool isBreak = end < text.size();
        add(text.substr(at, end - at), isBreak);
        at = end + (isBreak ? 1 : 0);
        if (isBreak && text[end] == u'\r' && at < text.size() && text[at] == u'\n')
            ++at;
    }
    return fragment;
}

// Whether two units in a row may be divided, seen from these two alone.
bool MayCutBetween(char16_t before, char16_t after)
{
    if (IsLeadSurrogate(before) && IsTrailSurrogate(after))
        return false;
    if (before == 0x200D || after == 0x200D || IsTrailSurrogate(after))
        return IsLeadSurrogate(after);
    return g_unichar_ismark(after) == FALSE;
}

}  // namespace

int BestCut(std::u16string_view text, int wished)
{
    const int length = static_cast<int>(text.size());
    const int least = std::max(1, wished - kSearchForCut);
    for (int at = std::min(wished, length - 1); at >= least; --at)
        if (text[static_cast<std::size_t>(at) - 1] == u' ' && text[static_cast<std::size_t>(at)] != u' ')
            return at;
    for (int at = std::min(wished, length - 1); at >= least; --at)
        if (MayCutBetween(text[static_cast<std::size_t>(at) - 1], text[static_cast<std::size_t>(at)]))
            return at;
    return std::min(wished, length - 1);
}

int Fragment::Units() const
{
    int units = 0;
    for (const Segment& segment : segments)
        units += segment.Units();
    return units;
}

bool Fragment::HasBreak() const
{
    return std::any_of(segments.begin(), segments.end(), [](const Segment& s) { return s.endsParagraph; });
}

Fragment Fragment::Of(std::u16string_view text, FormatId format, FormatId paragraph)
{
    return MakeFragment(text, format, paragraph,
                        [](std::u16string_view piece) { return SegmentText::CopyOf(piece); });
}

Fragment Fragment::Slices(std::u16string_view buffer, FormatId format, FormatId paragraph)
{
    return MakeFragment(buffer, format, paragraph,
                        [](std::u16string_view piece) { return SegmentText(piece); });
}

void Fragment::Append(Fragment next)
{
    auto from = next.segments.begin();
    if (from != next.segments.end() && !segments.empty() && !segments.back().endsParagraph &&
        segments.back().Units() + from->Units() <= kMostUnits)
        segments.back().Append(*from++);
    std::move(from, next.segments.end(), std::back_inserter(segments));
}

Document::Document()
{
    SetText({});
}

void Document::SetText(std::u16string text, bool keepBuffers)
{
    m_segments.Clear();
    if (!keepBuffers)
        m_buffers.clear();
    const auto buffer = std::make_shared<const std::u16string>(std::move(text));
    m_buffers.push_back(buffer);
    Fragment fragment = Fragment::Slices(*buffer, kDefaultFormat, kDefaultFormat);
    if (fragment.IsEmpty() || fragment.segments.back().endsParagraph)
        fragment.segments.emplace_back();
    fragment.segments.back().endsParagraph = true;
    if (m_estimate)
        for (Segment& segment : fragment.segments)
            m_estimate(segment);
    m_segments.Insert(0, std::move(fragment.segments));
}

void Document::Touch(SegmentTree::Index index)
{
    m_segments.Update(index, [this](Segment& segment) {
        segment.Touch();
        if (m_estimate)
            m_estimate(segment);
    });
    // What a line of the segment before ends with depends on the word that follows.
    if (index > 0 && m_segments[index - 1].endsLine && !m_segments[index - 1].endsParagraph)
        m_segments.Update(index - 1, [](Segment& segment) {
            segment.endsLine = false;
            segment.isMeasured = false;
        });
}

void Document::TouchAll()
{
    m_segments.UpdateAll([this](Segment& segment) {
        segment.Touch();
        if (m_estimate)
            m_estimate(segment);
    });
}

// The index of the segment that starts at a position, for which the one across it is divided.
SegmentTree::Index Document::BorderAt(Position position)
{
    const SegmentTree::Place place = PlaceOf(position);
    if (place.offset == 0)
        return place.index;
    Segment rest;
    m_segments.Update(place.index,
                      [&](Segment& segment) { rest = segment.Cut(static_cast<int>(place.offset)); });
    std::vector<Segment> rests;
    rests.push_back(std::move(rest));
    m_segments.Insert(place.index + 1, std::move(rests));
    return place.index + 1;
}

bool Document::StartsParagraph(SegmentTree::Index index) const
{
    return index == 0 || m_segments[index - 1].endsParagraph;
}

// The common case of an edit within one segment.
bool Document::ReplaceWithin(Position first, Position last, const Fragment& insertion, Removed& removed)
{
    if (insertion.segments.size() > 1 || insertion.HasBreak())
        return false;
    const SegmentTree::Place place = PlaceOf(first);
    const int from = static_cast<int>(place.offset);
    const Segment& old = m_segments[place.index];
    const int to = from + (last - first);
    const int inserted = insertion.Units();
    if (to > old.text.Length() || old.Units() + inserted - (to - from) > kMostUnits)
        return false;
    if (!old.endsParagraph && old.Units() + inserted - (to - from) < kFewUnits / 2)
        return false;
    if (from < to)
        removed.fragment.segments.push_back(old.Copy(from, to));
    removed.tail = old.paragraph;
    m_segments.Update(place.index, [&](Segment& segment) {
        segment.formats.Erase(from, to - from);
        segment.text.Erase(from, to - from);
        if (inserted == 0)
            return;
        const Segment& added = insertion.segments.front();
        added.formats.ForEach(inserted, [&](int begin, int end, FormatId format) {
            segment.formats.Insert(from + begin, end - begin, format, segment.Units() + begin);
        });
        segment.text.Insert(from, added.text.View());
    });
    Touch(place.index);
    return true;
}

Document::Removed Document::Replace(Position first, Position last, Fragment insertion,
                                    std::optional<FormatId> tail)
{
    Removed removed;
    if ((!tail || *tail == ParagraphFormatAt(first)) && ReplaceWithin(first, last, insertion, removed))
        return removed;
    removed = {};
    SegmentTree::Index end = BorderAt(last);
    removed.tail = m_segments[end].paragraph;
    const bool endsAtStart = StartsParagraph(end);
    const SegmentTree::Index start = BorderAt(first);
    end = PlaceOf(last).index;
    const bool startsParagraph = StartsParagraph(start);
    removed.fragment.segments = m_segments.Extract(start, end);
    // Of paragraphs that become one the first keeps its format, unless all of its text went with it.
    FormatId head = removed.tail;
    if (!startsParagraph)
        head = m_segments[start - 1].paragraph;
    else if (!removed.fragment.IsEmpty() && !endsAtStart)
        head = removed.fragment.segments.front().paragraph;
    const bool hasBreak = insertion.HasBreak();
    if (!startsParagraph)
        for (Segment& segment : insertion.segments) {
            segment.paragraph = head;
            if (segment.endsParagraph)
                break;
        }
    if (m_estimate)
        for (Segment& segment : insertion.segments) {
            segment.Touch();
            m_estimate(segment);
        }
    const auto count = static_cast<SegmentTree::Index>(insertion.segments.size());
    m_segments.Insert(start, std::move(insertion.segments));
    FormatId tailFormat = removed.tail;
    if (tail)
        tailFormat = *tail;
    else if (!hasBreak)
        tailFormat = head;
    SetTail(start + count, tailFormat);
    Tidy(start - 1, start + count + 1);
    return removed;
}

// Gives the paragraph that a segment stands in a format.
void Document::SetTail(SegmentTree::Index index, FormatId format)
{
    index = FirstSegment(index);
    for (;; ++index) {
        const bool isLast = m_segments[index].endsParagraph;
        if (m_segments[index].paragraph != format) {
            m_segments.Update(index, [&](Segment& segment) { segment.paragraph = format; });
            Touch(index);
        }
        if (isLast)
            return;
    }
}

// Joins short segments of one paragraph and divides long ones, from `first` up to `last`.
void Document::Tidy(SegmentTree::Index first, SegmentTree::Index last)
{
    first = std::max<SegmentTree::Index>(first, 0);
    for (SegmentTree::Index i = std::min(last, m_segments.Size() - 1); i >= first; --i) {
        if (i + 1 >= m_segments.Size() || m_segments[i].endsParagraph)
            continue;
        const int own = m_segments[i].Units();
        const int next = m_segments[i + 1].Units();
        if (own + next > kUsualUnits && own >= kFewUnits && next >= kFewUnits)
            continue;
        std::vector<Segment> joined = m_segments.Extract(i + 1, i + 2);
        m_segments.Update(i, [&](Segment& segment) { segment.Append(joined.front()); });
    }
    for (SegmentTree::Index i = first; i < m_segments.Size() && i <= last; ++i) {
        while (m_segments[i].text.Length() > kMostUnits) {
            const int length = m_segments[i].text.Length();
            const int cut = BestCut(m_segments[i].text.View(), std::min(kUsualUnits, length / 2));
            std::vector<Segment> rest(1);
            m_segments.Update(i, [&](Segment& segment) { rest.front() = segment.Cut(cut); });
            Touch(i);
            m_segments.Insert(i + 1, std::move(rest));
            ++i;
            ++last;
        }
        Touch(i);
    }
}

void Document::MoveBorder(SegmentTree::Index index, int offset)
{
    std::vector<Segment> next = m_segments.Extract(index + 1, index + 2);
    m_segments.Update(index, [&](Segment& segment) {
        segment.Append(next.front());
        if (offset < segment.text.Length())
            next.front() = segment.Cut(offset);
        else
            next.clear();
    });
    if (next.empty())
        return;
    m_segments.Insert(index + 1, std::move(next));
    Tidy(index + 1, index + 1);
}

void Document::ForEachPiece(Position first, Position last,
                            const std::function<bool(std::u16string_view, bool)>& visit) const
{
    SegmentTree::Place place = PlaceOf(first);
    int left = last - first;
    while (left > 0 && place.index < m_segments.Size()) {
        const Segment& segment = m_segments[place.index];
        const int offset = static_cast<int>(place.offset);
        const int count = std::min(left, segment.Units() - offset);
        const int units = std::min(count, segment.text.Length() - offset);
        if (!visit(
                segment.text.View().substr(static_cast<std::size_t>(offset), static_cast<std::size_t>(units)),
                count > units))
            return;
        left -= count;
        place = {place.index + 1, 0};
    }
}

std::u16string Document::Text(Position first, Position last, std::u16string_view brk) const
{
    std::u16string text;
    text.reserve(static_cast<std::size_t>(std::max(0, last - first)));
    ForEachPiece(first, last, [&](std::u16string_view piece, bool isBreakAfter) {
        text += piece;
        if (isBreakAfter)
            text += brk;
        return true;
    });
    return text;
}

char16_t Document::At(Position position) const
{
    const SegmentTree::Place place = PlaceOf(position);
    const std::u16string_view text = m_segments[place.index].text.View();
    const auto offset = static_cast<std::size_t>(place.offset);
    return offset < text.size() ? text[offset] : u'\r';
}

Fragment Document::Copy(Position first, Position last) const
{
    Fragment copy;
    SegmentTree::Place place = PlaceOf(first);
    int left = last - first;
    while (left > 0) {
        const Segment& segment = m_segments[place.index];
        const int offset = static_cast<int>(place.offset);
        const int count = std::min(left, segment.Units() - offset);
        copy.segments.push_back(segment.Copy(offset, offset + count));
        left -= count;
        place = {place.index + 1, 0};
    }
    return copy;
}

SegmentTree::Index Document::FirstSegment(SegmentTree::Index index) const
{
    const std::int64_t ended = m_segments.Before(index).paragraphs;
    return ended == 0 ? 0 : m_segments.Find(&SegmentSums::paragraphs, ended - 1).index + 1;
}

Document::Position Document::ParagraphStart(Position position) const
{
    return static_cast<Position>(m_segments.Before(FirstSegment(PlaceOf(position).index)).units);
}

Document::Position Document::ParagraphEnd(Position position) const
{
    const std::int64_t ended = m_segments.Before(PlaceOf(position).index).paragraphs;
    const SegmentTree::Index index = m_segments.Find(&SegmentSums::paragraphs, ended).index;
    return static_cast<Position>(m_segments.Before(index + 1).units) - 1;
}

FormatId Document::FormatAt(Position position) const
{
    const SegmentTree::Place place = PlaceOf(position);
    return m_segments[place.index].formats.At(static_cast<int>(place.offset));
}

std::vector<Document::FormatSpan> Document::Formats(Position first, Position last) const
{
    std::vector<FormatSpan> spans;
    SegmentTree::Place place = PlaceOf(first);
    Position start = first - static_cast<Position>(place.offset);
    for (SegmentTree::Index i = place.index; i < m_segments.Size() && start < last; ++i) {
        const Segment& segment = m_segments[i];
        segment.formats.ForEach(segment.Units(), [&](int from, int to, FormatId format) {
            const Position begin = std::max(first, start + from);
            const Position end = std::min(last, start + to);
            if (begin >= end)
                return;
            if (!spans.empty() && spans.back().format == format)
                spans.back().last = end;
            else
                spans.push_back({begin, end, format});
        });
        start += segment.Units();
    }
    return spans;
}

void Document::SetFormat(Position first, Position last, FormatId format)
{
    SegmentTree::Place place = PlaceOf(first);
    Position start = first - static_cast<Position>(place.offset);
    for (SegmentTree::Index i = place.index; i < m_segments.Size() && start < last; ++i) {
        const int units = m_segments[i].Units();
        m_segments.Update(i, [&](Segment& segment) {
            segment.formats.Set(std::max(0, first - start), std::min(units, last - start), format, units);
        });
        Touch(i);
        start += units;
    }
}

FormatId Document::ParagraphFormatAt(Position position) const
{
    return m_segments[PlaceOf(position).index].paragraph;
}

std::vector<Document::FormatSpan> Document::ParagraphFormats(Position first, Position last) const
{
    std::vector<FormatSpan> spans;
    Position at = ParagraphStart(first);
    do {
        const Position end = ParagraphEnd(at) + 1;
        spans.push_back({at, end, ParagraphFormatAt(at)});
        at = end;
    } while (at < last && at <= Length());
    return spans;
}

void Document::SetParagraphFormat(Position position, FormatId format)
{
    SetTail(PlaceOf(position).index, format);
}

}  // namespace qvui::native
