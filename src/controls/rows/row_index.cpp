#include "controls/rows/row_index.h"

#include <algorithm>
#include <bit>

namespace DUI {
namespace {

constexpr std::size_t LowestBit(std::size_t value)
{
    return value & (~value + 1);
}

}  // namespace

RowIndex::Sum RowIndex::SumOf(const Row& row)
{
    return row.isShown ? Sum{std::max(row.height, 0), 1} : Sum{};
}

void RowIndex::Clear()
{
    m_rows.clear();
    m_sums.assign(1, Sum{});
}

void RowIndex::Insert(int index, const Row& row)
{
    const auto place = static_cast<std::size_t>(index);
    m_rows.insert(m_rows.begin() + index, row);
    m_sums.resize(std::min(m_sums.size(), place + 1));
}

void RowIndex::Remove(int index)
{
    const auto place = static_cast<std::size_t>(index);
    m_rows.erase(m_rows.begin() + index);
    m_sums.resize(std::min(m_sums.size(), place + 1));
}

void RowIndex::Set(int index, const Row& row)
{
    const auto place = static_cast<std::size_t>(index);
    const Sum before = SumOf(m_rows[place]);
    const Sum after = SumOf(row);
    m_rows[place] = row;
    for (std::size_t i = place + 1; i < m_sums.size(); i += LowestBit(i)) {
        m_sums[i].height += after.height - before.height;
        m_sums[i].shown += after.shown - before.shown;
    }
}

void RowIndex::Complete() const
{
    for (std::size_t i = m_sums.size(); i <= m_rows.size(); ++i) {
        Sum sum = SumOf(m_rows[i - 1]);
        for (std::size_t part = i - 1; part > i - LowestBit(i); part -= LowestBit(part)) {
            sum.height += m_sums[part].height;
            sum.shown += m_sums[part].shown;
        }
        m_sums.push_back(sum);
    }
}

RowIndex::Sum RowIndex::SumBefore(int index) const
{
    Complete();
    Sum sum;
    for (auto i = static_cast<std::size_t>(index); i > 0; i -= LowestBit(i)) {
        sum.height += m_sums[i].height;
        sum.shown += m_sums[i].shown;
    }
    return sum;
}

LONGLONG RowIndex::OffsetOf(int index) const
{
    return SumBefore(std::clamp(index, 0, Count())).height;
}

template <class Value>
int RowIndex::FirstBeyond(Value Sum::*member, Value value) const
{
    Complete();
    std::size_t place = 0;
    for (std::size_t step = std::bit_floor(m_rows.size()); step > 0; step /= 2) {
        if (place + step <= m_rows.size() && m_sums[place + step].*member <= value) {
            place += step;
            value -= m_sums[place].*member;
        }
    }
    return place < m_rows.size() ? static_cast<int>(place) : -1;
}

int RowIndex::RowAt(LONGLONG offset) const
{
    return FirstBeyond(&Sum::height, offset);
}

int RowIndex::NextShown(int index) const
{
    const int next = std::max(index + 1, 0);
    if (next >= Count())
        return -1;
    return At(next).isShown ? next : FirstBeyond(&Sum::shown, SumBefore(next).shown);
}

int RowIndex::PreviousShown(int index) const
{
    const int shownBefore = SumBefore(std::clamp(index, 0, Count())).shown;
    return shownBefore > 0 ? FirstBeyond(&Sum::shown, shownBefore - 1) : -1;
}

}  // namespace DUI
