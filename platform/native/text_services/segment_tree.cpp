#include "native/text_services/segment_tree.h"

#include <iterator>

namespace qvui::native {
namespace {

constexpr std::size_t kMostInNode = 64;

// Priorities only have to look random to keep the tree balanced; xorshift32 (Marsaglia, 2003).
std::uint32_t NextPriority()
{
    static std::uint32_t state = 2463534242U;
    state ^= state << 13;
    state ^= state >> 17;
    state ^= state << 5;
    return state;
}

const SegmentSums kNoSums;

}  // namespace

SegmentSums& SegmentSums::operator+=(const SegmentSums& next)
{
    if (next.paragraphs > 0) {
        widest = std::max(widest, next.widest);
        if (paragraphs > 0)
            widest = std::max(widest, widthAfter + next.widthBefore);
        widthAfter = next.widthAfter;
    } else {
        widthAfter += next.widthBefore;
    }
    if (paragraphs == 0)
        widthBefore += next.widthBefore;
    segments += next.segments;
    units += next.units;
    paragraphs += next.paragraphs;
    lines += next.lines;
    height += next.height;
    width += next.width;
    unmeasured += next.unmeasured;
    return *this;
}

void SegmentTree::Node::SumOwn()
{
    own = {};
    for (const Segment& segment : segments)
        own += SegmentSums(segment);
}

void SegmentTree::Node::SumTotal()
{
    total = left ? left->total : SegmentSums{};
    total += own;
    if (right)
        total += right->total;
}

SegmentTree::SegmentTree() = default;
SegmentTree::SegmentTree(SegmentTree&&) noexcept = default;
SegmentTree& SegmentTree::operator=(SegmentTree&&) noexcept = default;
SegmentTree::~SegmentTree() = default;

const SegmentSums& SegmentTree::Total() const
{
    return m_root ? m_root->total : kNoSums;
}

std::pair<SegmentTree::Link, SegmentTree::Link> SegmentTree::Split(Link node, Index index)
{
    if (!node)
        return {};
    const Index before = node->left ? node->left->total.segments : 0;
    const Index own = node->own.segments;
    if (index <= before) {
        auto [first, second] = Split(std::move(node->left), index);
        node->left = std::move(second);
        node->SumTotal();
        return {std::move(first), std::move(node)};
    }
    if (index >= before + own) {
        auto [first, second] = Split(std::move(node->right), index - before - own);
        node->right = std::move(first);
        node->SumTotal();
        return {std::move(node), std::move(second)};
    }
    // The border lies within this node: its later segments become a node of their own.
    const auto border = node->segments.begin() + (index - before);
    Link rest = std::make_unique<Node>();
    rest->segments.assign(std::make_move_iterator(border), std::make_move_iterator(node->segments.end()));
    rest->priority = node->priority;
    rest->right = std::move(node->right);
    rest->SumOwn();
    rest->SumTotal();
    node->segments.erase(border, node->segments.end());
    node->SumOwn();
    node->SumTotal();
    return {std::move(node), std::move(rest)};
}

SegmentTree::Link SegmentTree::Merge(Link left, Link right)
{
    if (!left)
        return right;
    if (!right)
        return left;
    if (left->priority >= right->priority) {
        left->right = Merge(std::move(left->right), std::move(right));
        left->SumTotal();
        return left;
    }
    right->left = Merge(std::move(left), std::move(right->left));
    right->SumTotal();
    return right;
}

SegmentTree::Link SegmentTree::Build(std::vector<Segment> segments)
{
    Link root;
    for (std::size_t first = 0; first < segments.size(); first += kMostInNode) {
        const std::size_t last = std::min(segments.size(), first + kMostInNode);
        Link node = std::make_unique<Node>();
        node->segments.assign(std::make_move_iterator(segments.begin() + static_cast<std::ptrdiff_t>(first)),
                              std::make_move_iterator(segments.begin() + static_cast<std::ptrdiff_t>(last)));
        node->priority = NextPriority();
        node->SumOwn();
        node->SumTotal();
        root = Merge(std::move(root), std::move(node));
    }
    return root;
}

const Segment& SegmentTree::operator[](Index index) const
{
    return const_cast<SegmentTree*>(this)->Mutable(index);
}

Segment& SegmentTree::Mutable(Index index)
{
    Node* node = m_root.get();
    for (;;) {
        const Index before = node->left ? node->left->total.segments : 0;
        if (index < before) {
            node = node->left.get();
        } else if (index < before + node->own.segments) {
            return node->segments[static_cast<std::size_t>(index - before)];
        } else {
            index -= before + node->own.segments;
            node = node->right.get();
        }
    }
}

void SegmentTree::Resum(Index index)
{
    const auto visit = [](const auto& self, Node* node, Index at) -> void {
        const Index before = node->left ? node->left->total.segments : 0;
        if (at < before)
            self(self, node->left.get(), at);
        else if (at < before + node->own.segments)
            node->SumOwn();
        else
            self(self, node->right.get(), at - before - node->own.segments);
        node->SumTotal();
    };
    visit(visit, m_root.get(), index);
}

SegmentSums SegmentTree::Before(Index index) const
{
    SegmentSums sums;
    const Node* node = m_root.get();
    while (node) {
        const Index before = node->left ? node->left->total.segments : 0;
        if (index <= before) {
            node = node->left.get();
            continue;
        }
        if (node->left)
            sums += node->left->total;
        index -= before;
        if (index >= node->own.segments) {
            sums += node->own;
            index -= node->own.segments;
            node = node->right.get();
            continue;
        }
        for (Index i = 0; i < index; ++i)
            sums += SegmentSums(node->segments[static_cast<std::size_t>(i)]);
        break;
    }
    return sums;
}

SegmentTree::Place SegmentTree::Find(Sum sum, std::int64_t value) const
{
    Index index = 0;
    const Node* node = m_root.get();
    while (node) {
        const SegmentSums& before = node->left ? node->left->total : kNoSums;
        if (value < before.*sum) {
            node = node->left.get();
            continue;
        }
        value -= before.*sum;
        index += before.segments;
        if (value >= node->own.*sum) {
            value -= node->own.*sum;
            index += node->own.segments;
            node = node->right.get();
            continue;
        }
        for (const Segment& segment : node->segments) {
            const std::int64_t part = SegmentSums(segment).*sum;
            if (value < part)
                break;
            value -= part;
            ++index;
        }
        break;
    }
    return {index, value};
}

// Puts the segments on both sides of a border into one node when they fit, so that edits don't leave ever
// smaller nodes.
void SegmentTree::Coalesce(Index border)
{
    if (border <= 0 || border >= Size())
        return;
    auto [left, right] = Split(std::move(m_root), border);
    Node* last = left.get();
    while (last->right)
        last = last->right.get();
    Node* first = right.get();
    while (first->left)
        first = first->left.get();
    const Index count = first->own.segments;
    if (last->own.segments + count <= static_cast<Index>(kMostInNode)) {
        auto [taken, rest] = Split(std::move(right), count);
        std::move(taken->segments.begin(), taken->segments.end(), std::back_inserter(last->segments));
        last->SumOwn();
        const auto resum = [](const auto& self, Node* node) -> void {
            if (node->right)
                self(self, node->right.get());
            node->SumTotal();
        };
        resum(resum, left.get());
        right = std::move(rest);
    }
    m_root = Merge(std::move(left), std::move(right));
}

void SegmentTree::Insert(Index index, std::vector<Segment> segments)
{
    if (segments.empty())
        return;
    const auto count = static_cast<Index>(segments.size());
    auto [left, right] = Split(std::move(m_root), index);
    m_root = Merge(Merge(std::move(left), Build(std::move(segments))), std::move(right));
    Coalesce(index + count);
    Coalesce(index);
}

std::vector<Segment> SegmentTree::Extract(Index first, Index last)
{
    std::vector<Segment> extracted;
    if (first >= last)
        return extracted;
    auto [left, rest] = Split(std::move(m_root), first);
    auto [middle, right] = Split(std::move(rest), last - first);
    extracted.reserve(static_cast<std::size_t>(last - first));
    const auto collect = [&](const auto& self, Node* node) -> void {
        if (!node)
            return;
        self(self, node->left.get());
        std::move(node->segments.begin(), node->segments.end(), std::back_inserter(extracted));
        self(self, node->right.get());
    };
    collect(collect, middle.get());
    m_root = Merge(std::move(left), std::move(right));
    Coalesce(first);
    return extracted;
}

void SegmentTree::Clear()
{
    m_root.reset();
}

}  // namespace qvui::native
