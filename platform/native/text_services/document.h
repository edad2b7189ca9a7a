#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "native/text_services/segment_tree.h"

namespace qvui::native {

/// A part of a document outside of it: segments with their formats. The last one need not end its paragraph.
struct Fragment {
    std::vector<Segment> segments;

    int Units() const;
    bool HasBreak() const;
    bool IsEmpty() const { return segments.empty(); }
    /// Plain text in one format; "\r\n", "\r" and "\n" are breaks. Copies the text.
    static Fragment Of(std::u16string_view text, FormatId format, FormatId paragraph);
    /// What `Of` makes of a text whose buffer outlives the fragment: slices.
    static Fragment Slices(std::u16string_view buffer, FormatId format, FormatId paragraph);
    /// Appends another one; the paragraph that is open at this one's end goes on with it.
    void Append(Fragment next);
};

/// The text of an editor with its formats. Positions count UTF-16 units from 0; a break is one unit, "\r" in
/// texts. The text ends with a break that is not part of it, the final mark, at position Length(): there is
/// always a paragraph.
class Document {
public:
    using Position = int;

    Document();

    FormatPool<CharFormat>& CharFormats() { return m_charFormats; }
    FormatPool<ParaFormat>& ParaFormats() { return m_paraFormats; }
    const FormatPool<CharFormat>& CharFormats() const { return m_charFormats; }
    const FormatPool<ParaFormat>& ParaFormats() const { return m_paraFormats; }
    const SegmentTree& Segments() const { return m_segments; }
    /// Called for a segment that is new or has changed, to estimate its measures until it is laid out.
    void SetEstimator(std::function<void(Segment&)> estimate) { m_estimate = std::move(estimate); }

    /// Without the final mark.
    Position Length() const { return static_cast<Position>(m_segments.Total().units) - 1; }
    Position Paragraphs() const { return static_cast<Position>(m_segments.Total().paragraphs); }

    /// Replaces everything by a text in the default format; what was copied or extracted before is invalid
    /// unless `keepBuffers`.
    void SetText(std::u16string text, bool keepBuffers = false);

    /// What a replacement took away, and what brings it back: Replace(first, first + inserted, removed,
    /// tail).
    struct Removed {
        Fragment fragment;
        FormatId tail = kDefaultFormat;
    };
    /// Replaces [first, last), last <= Length(). The text before it and after it keeps its character formats.
    /// `tail` is the format of the paragraph that the insertion's end stands in, when it is not to follow
    /// from the insertion.
    Removed Replace(Position first, Position last, Fragment insertion,
                    std::optional<FormatId> tail = std::nullopt);

    /// The text of [first, last), last <= Length(); `brk` stands for breaks.
    std::u16string Text(Position first, Position last, std::u16string_view brk = u"\r") const;
    char16_t At(Position position) const;
    Fragment Copy(Position first, Position last) const;
    /// Calls `visit(text, isBreakAfter)` for the pieces of [first, last) until it gives false.
    void ForEachPiece(Position first, Position last,
                      const std::function<bool(std::u16string_view, bool)>& visit) const;

    /// The first position of the paragraph that holds `position`, and the position of its break.
    Position ParagraphStart(Position position) const;
    Position ParagraphEnd(Position position) const;
    SegmentTree::Place PlaceOf(Position position) const
    {
        return m_segments.Find(&SegmentSums::units, position);
    }
    /// The first segment of the paragraph that a segment belongs to.
    SegmentTree::Index FirstSegment(SegmentTree::Index index) const;
    bool StartsParagraph(SegmentTree::Index index) const;

    FormatId FormatAt(Position position) const;
    struct FormatSpan {
        Position first;
        Position last;
        FormatId format;
    };
    /// The formats of [first, last), last <= Length() + 1.
    std::vector<FormatSpan> Formats(Position first, Position last) const;
    void SetFormat(Position first, Position last, FormatId format);
    FormatId ParagraphFormatAt(Position position) const;
    /// The paragraphs that [first, last) touches, one at least.
    std::vector<FormatSpan> ParagraphFormats(Position first, Position last) const;
    void SetParagraphFormat(Position position, FormatId format);

    /// Notes what a layout has measured. `change` must not alter the text.
    template <class Change>
    void UpdateMeasures(SegmentTree::Index index, Change change)
    {
        m_segments.Update(index, change);
    }
    template <class Change>
    void UpdateAllMeasures(Change change)
    {
        m_segments.UpdateAll(change);
    }
    /// Moves the border between a segment and the next one of its paragraph to `offset` in their joined text;
    /// with nothing after it they become one.
    void MoveBorder(SegmentTree::Index index, int offset);
    /// Every measure is invalid from now on, and estimated anew.
    void TouchAll();

private:
    SegmentTree::Index BorderAt(Position position);
    void Touch(SegmentTree::Index index);
    bool ReplaceWithin(Position first, Position last, const Fragment& insertion, Removed& removed);
    void Tidy(SegmentTree::Index first, SegmentTree::Index last);
    void SetTail(SegmentTree::Index index, FormatId format);

    FormatPool<CharFormat> m_charFormats;
    FormatPool<ParaFormat> m_paraFormats;
    SegmentTree m_segments;
    std::vector<std::shared_ptr<const std::u16string>> m_buffers;  // that segments have slices of
    std::function<void(Segment&)> m_estimate;
};

/// Where a text longer than a segment is best divided: after a space near `wished`, else between two
/// characters.
int BestCut(std::u16string_view text, int wished);

constexpr bool IsLeadSurrogate(char16_t unit)
{
    return (unit & 0xFC00) == 0xD800;
}
constexpr bool IsTrailSurrogate(char16_t unit)
{
    return (unit & 0xFC00) == 0xDC00;
}

}  // namespace qvui::native
