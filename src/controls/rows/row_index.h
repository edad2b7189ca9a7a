#pragma once

#include <vector>

#include <qvui/platform/platform.h>

namespace DUI {

/// A column of rows, each with a height (or another weight) and shown or hidden, and the sums over them.
///
/// Finding a row by its offset, an offset by its row and the next shown row take logarithmic time, as do
/// appending, changing and removing at the end; inserting and removing elsewhere are linear. Hidden rows and
/// negative heights count 0.
class RowIndex {
public:
    struct Row {
        int height = 0;
        bool isShown = false;

        bool operator==(const Row&) const = default;
    };

    int Count() const { return static_cast<int>(m_rows.size()); }
    const Row& At(int index) const { return m_rows[static_cast<std::size_t>(index)]; }
    void Clear();
    void Append(const Row& row) { m_rows.push_back(row); }
    void Insert(int index, const Row& row);
    void Remove(int index);
    void Set(int index, const Row& row);

    LONGLONG TotalHeight() const { return OffsetOf(Count()); }
    /// The height of the rows before this one.
    LONGLONG OffsetOf(int index) const;
    /// The row that covers the offset: the first whose end lies beyond it; -1 when none does.
    int RowAt(LONGLONG offset) const;
    /// The first shown row after (or before) this one, which may be -1 (or the count); -1 when there is none.
    int NextShown(int index) const;
    int PreviousShown(int index) const;

private:
    struct Sum {
        LONGLONG height = 0;
        int shown = 0;
    };

    static Sum SumOf(const Row& row);
    void Complete() const;
    Sum SumBefore(int index) const;
    /// The first row whose sum, together with those before it, exceeds the value.
    template <class Value>
    int FirstBeyond(Value Sum::*member, Value value) const;

    std::vector<Row> m_rows;
    // A binary indexed tree over m_rows: entry i holds the sum of the rows from i - (i & -i) up to i - 1. It
    // is complete up to its size, and Complete makes the rest.
    mutable std::vector<Sum> m_sums{Sum{}};
};

}  // namespace DUI
