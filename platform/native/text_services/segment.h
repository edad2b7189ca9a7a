#pragma once

#include <cstdint>
#include <cstring>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "native/text_services/formats.h"

namespace qvui::native {

/// The UTF-16 text of a segment: a slice of a buffer that the document keeps until the first change, an
/// allocation of its own from then on. 16 bytes, since a large document has a million of them.
class SegmentText {
public:
    SegmentText() = default;
    /// A slice; the buffer must outlive it and what is cut from it.
    explicit SegmentText(std::u16string_view slice)
        : m_text(slice.data()),
          m_length(static_cast<std::uint32_t>(slice.size()))
    {
    }
    static SegmentText CopyOf(std::u16string_view text);
    SegmentText(SegmentText&& other) noexcept { Swap(other); }
    SegmentText& operator=(SegmentText&& other) noexcept
    {
        Swap(other);
        return *this;
    }
    ~SegmentText() { Free(); }

    std::u16string_view View() const { return {m_text, m_length}; }
    int Length() const { return static_cast<int>(m_length); }
    bool IsSlice() const { return m_capacity == 0; }

    void Insert(int at, std::u16string_view text);
    void Erase(int at, int count);
    void Append(const SegmentText& next);
    /// Keeps what stands before `at` and returns the rest.
    SegmentText Cut(int at);

private:
    void Swap(SegmentText& other) noexcept
    {
        std::swap(m_text, other.m_text);
        std::swap(m_length, other.m_length);
        std::swap(m_capacity, other.m_capacity);
    }
    void Free();
    void Own(std::size_t capacity);

    const char16_t* m_text = nullptr;
    std::uint32_t m_length = 0;
    std::uint32_t m_capacity = 0;  // 0: a slice
};

/// The formats of consecutive units: runs of one format each, and no allocation while there is only one.
class FormatRuns {
public:
    struct Run {
        int length;
        FormatId format;
        bool operator==(const Run&) const = default;
    };

    FormatRuns() = default;
    explicit FormatRuns(FormatId format) : m_single(format) {}

    bool IsUniform() const { return !m_runs; }
    /// The format of the unit at `at`; of the last one for what lies after it.
    FormatId At(int at) const;
    /// Calls `visit(first, last, format)` for each run of the `length` units.
    template <class Visit>
    void ForEach(int length, Visit visit) const
    {
        if (!m_runs) {
            visit(0, length, m_single);
            return;
        }
        int first = 0;
        for (const Run& run : *m_runs) {
            visit(first, first + run.length, run.format);
            first += run.length;
        }
    }

    /// `length` is the number of units before the change.
    void Insert(int at, int count, FormatId format, int length);
    void Erase(int at, int count);
    void Set(int first, int last, FormatId format, int length);
    void Append(const FormatRuns& next, int length, int nextLength);
    FormatRuns Cut(int at, int length);

private:
    std::vector<Run>& Split(int length);
    std::size_t BorderAt(int at);
    void Merge();

    FormatId m_single = kDefaultFormat;
    std::unique_ptr<std::vector<Run>> m_runs;  // neighbours differ; two or more
};

/// A piece of one paragraph of at most a few thousand units: what is laid out, edited and measured at once.
/// Most paragraphs are one segment; a long one is several in a row.
struct Segment {
    SegmentText text;
    FormatRuns formats;  // of the text, and of the break when the paragraph ends here
    FormatId paragraph = kDefaultFormat;
    // What a layout has measured, or an estimate. Pixels.
    std::int32_t height = 0;
    std::int32_t width = 0;
    std::int32_t lines = 1;
    std::uint32_t layout = 0;  // key of the cached layout, 0 without one
    bool endsParagraph : 1 = true;
    bool isMeasured : 1 = false;
    /// A line of the wrapped paragraph ends where the segment does, at the present width.
    bool endsLine : 1 = false;

    /// With the paragraph's break, which counts as one unit.
    int Units() const { return text.Length() + (endsParagraph ? 1 : 0); }
    /// The measures are invalid from now on.
    void Touch()
    {
        isMeasured = false;
        endsLine = false;
        layout = 0;
    }
    /// Keeps the units before `at` and returns the rest, which ends the paragraph when this one did.
    Segment Cut(int at);
    /// Appends the next segment of the same paragraph.
    void Append(const Segment& next);
    Segment Copy(int first, int last) const;
};

}  // namespace qvui::native
