#include "controls/rows/row_index.h"

#include <random>

#include <gtest/gtest.h>

namespace qvui::test {
namespace {

using DUI::RowIndex;
using Rows = std::vector<RowIndex::Row>;

/// The same questions, answered by looking at every row.
struct PlainRows {
    Rows rows;

    LONGLONG OffsetOf(int index) const
    {
        LONGLONG sum = 0;
        for (int i = 0; i < index; ++i)
            sum += rows[static_cast<std::size_t>(i)].isShown
                       ? std::max(rows[static_cast<std::size_t>(i)].height, 0)
                       : 0;
        return sum;
    }
    int RowAt(LONGLONG offset) const
    {
        for (int i = 0; i < static_cast<int>(rows.size()); ++i)
            if (OffsetOf(i + 1) > offset)
                return i;
        return -1;
    }
    int Shown(int index, int step) const
    {
        for (index += step; index >= 0 && index < static_cast<int>(rows.size()); index += step)
            if (rows[static_cast<std::size_t>(index)].isShown)
                return index;
        return -1;
    }
};

void ExpectSame(const RowIndex& index, const PlainRows& plain)
{
    const int count = static_cast<int>(plain.rows.size());
    ASSERT_EQ(index.Count(), count);
    ASSERT_EQ(index.TotalHeight(), plain.OffsetOf(count));
    for (int i = 0; i <= count; ++i) {
        ASSERT_EQ(index.OffsetOf(i), plain.OffsetOf(i)) << i;
        ASSERT_EQ(index.NextShown(i - 1), plain.Shown(i - 1, 1)) << i;
        ASSERT_EQ(index.PreviousShown(i), plain.Shown(i, -1)) << i;
    }
    for (LONGLONG offset = 0; offset <= index.TotalHeight() + 1; ++offset)
        ASSERT_EQ(index.RowAt(offset), plain.RowAt(offset)) << offset;
}

TEST(RowIndex, AgreesWithPlainSumsThroughManyChanges)
{
    std::mt19937 random(20240607);
    const auto pick = [&random](int count) {
        return static_cast<int>(random() % static_cast<unsigned>(count));
    };
    RowIndex index;
    PlainRows plain;
    for (int step = 0; step < 600; ++step) {
        const RowIndex::Row row{pick(6) - 1, pick(3) > 0};  // heights from -1 to 4
        const int count = index.Count();
        const int place = count > 0 ? pick(count) : 0;
        const auto at = plain.rows.begin() + place;
        switch (pick(5)) {
            case 0:
            case 1:
                index.Append(row);
                plain.rows.push_back(row);
                break;
            case 2:
                index.Insert(place, row);
                plain.rows.insert(at, row);
                break;
            case 3:
                if (count > 0) {
                    index.Remove(place);
                    plain.rows.erase(at);
                }
                break;
            default:
                if (count > 0) {
                    index.Set(place, row);
                    *at = row;
                }
        }
        if (step % 20 == 0)
            ExpectSame(index, plain);
    }
    index.Clear();
    plain.rows.clear();
    ExpectSame(index, plain);
}

TEST(RowIndex, SumsBeyondThirtyTwoBits)
{
    RowIndex index;
    for (int i = 0; i < 5; ++i)
        index.Append({0x7FFFFFFF, true});
    EXPECT_EQ(index.TotalHeight(), 5LL * 0x7FFFFFFF);
    EXPECT_EQ(index.RowAt(4LL * 0x7FFFFFFF), 4);
}

}  // namespace
}  // namespace qvui::test
