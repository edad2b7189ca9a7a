#pragma once

#include <algorithm>
#include <cstdint>
#include <memory>
#include <vector>

#include "native/text_services/segment.h"

namespace qvui::native {

/// What a sequence of segments amounts to.
struct SegmentSums {
    std::int64_t segments = 0;
    std::int64_t units = 0;
    std::int64_t paragraphs = 0;  // that end in it
    std::int64_t lines = 0;
    std::int64_t height = 0;
    std::int64_t width = 0;
    std::int64_t unmeasured = 0;
    // The widest paragraph of those that start and end in the sequence, and the widths of the parts before
    // the first and after the last end of a paragraph: enough to find the widest one of two sequences in a
    // row.
    std::int64_t widest = 0;
    std::int64_t widthBefore = 0;
    std::int64_t widthAfter = 0;

    SegmentSums() = default;
    explicit SegmentSums(const Segment& segment)
        : segments(1),
          units(segment.Units()),
          paragraphs(segment.endsParagraph ? 1 : 0),
          lines(segment.lines),
          height(segment.height),
          width(segment.width),
          unmeasured(segment.isMeasured ? 0 : 1),
          widthBefore(segment.width),
          widthAfter(segment.endsParagraph ? 0 : segment.width)
    {
    }
    /// Appends the sums of what follows.
    SegmentSums& operator+=(const SegmentSums& next);
    /// The width of the widest paragraph, one that has not ended included.
    std::int64_t Widest() const { return std::max({widest, widthBefore, widthAfter}); }
};

/// The segments of a document in order: a treap whose nodes hold up to 64 segments each and the sums of their
/// subtree. Look-ups by index or by any sum and changes take O(log n); inserting and extracting k segments
/// O(k + log n).
class SegmentTree {
public:
    using Index = std::int64_t;
    using Sum = std::int64_t SegmentSums::*;

    SegmentTree();
    SegmentTree(SegmentTree&&) noexcept;
    SegmentTree& operator=(SegmentTree&&) noexcept;
    ~SegmentTree();

    Index Size() const { return Total().segments; }
    const SegmentSums& Total() const;
    /// Valid until the next change of the tree.
    const Segment& operator[](Index index) const;
    /// The sums of the segments before `index`.
    SegmentSums Before(Index index) const;

    struct Place {
        Index index;
        std::int64_t offset;  // within the segment
    };
    /// The segment in which the running total of `sum` exceeds `value`, Size() for what lies after the last
    /// one.
    Place Find(Sum sum, std::int64_t value) const;

    /// Calls `change(segment)` and sums anew.
    template <class Change>
    void Update(Index index, Change change)
    {
        change(Mutable(index));
        Resum(index);
    }
    /// As Update, for every segment.
    template <class Change>
    void UpdateAll(Change change);
    void Insert(Index index, std::vector<Segment> segments);
    std::vector<Segment> Extract(Index first, Index last);
    void Clear();

private:
    struct Node;
    using Link = std::unique_ptr<Node>;

    static std::pair<Link, Link> Split(Link node, Index index);
    static Link Merge(Link left, Link right);
    static Link Build(std::vector<Segment> segments);
    Segment& Mutable(Index index);
    void Resum(Index index);
    void Coalesce(Index border);

    Link m_root;
};

struct SegmentTree::Node {
    std::vector<Segment> segments;
    SegmentSums own;
    SegmentSums total;
    std::uint32_t priority = 0;
    Link left;
    Link right;

    void SumOwn();
    void SumTotal();
};

template <class Change>
void SegmentTree::UpdateAll(Change change)
{
    const auto visit = [&](const auto& self, Node* node) -> void {
        if (!node)
            return;
        self(self, node->left.get());
        for (Segment& segment : node->segments)
            change(segment);
        self(self, node->right.get());
        node->SumOwn();
        node->SumTotal();
    };
    visit(visit, m_root.get());
}

}  // namespace qvui::native
