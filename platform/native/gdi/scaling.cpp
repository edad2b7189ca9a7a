#include "native/gdi/scaling.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <tuple>
#include <utility>

namespace qvui::native {
namespace {

// The offset of a destination pixel from the end where the first source pixel is drawn.
std::int64_t OffsetOf(const AxisMap& axis, int position)
{
    const std::int64_t offset = static_cast<std::int64_t>(position) - axis.destination;
    return axis.mirrored ? axis.length - 1 - offset : offset;
}

// A quotient whose dividend grows by a constant step, advanced without a division per step.
class SteppedQuotient {
public:
    SteppedQuotient(std::int64_t value, std::int64_t step, std::int64_t divisor) : m_divisor(divisor)
    {
        std::tie(m_quotient, m_rest) = Divide(value);
        std::tie(m_whole, m_part) = Divide(step);
    }
    int Next()
    {
        const auto quotient = static_cast<int>(m_quotient);
        m_rest += m_part;
        const bool carries = m_rest >= m_divisor;
        m_rest -= carries ? m_divisor : 0;
        m_quotient += m_whole + carries;
        return quotient;
    }

private:
    // Rounds towards negative infinity, so the remainder is never negative.
    std::pair<std::int64_t, std::int64_t> Divide(std::int64_t value) const
    {
        const std::int64_t rest = value % m_divisor;
        return {value / m_divisor - (rest < 0), rest < 0 ? rest + m_divisor : rest};
    }

    std::int64_t m_divisor;
    std::int64_t m_quotient = 0;
    std::int64_t m_rest = 0;
    std::int64_t m_whole = 0;
    std::int64_t m_part = 0;
};

// Mixes two channels at once, one in each 16-bit half of the number; neither half overflows into the other.
std::uint32_t MixHalves(std::uint32_t a, std::uint32_t b, std::uint32_t weight)
{
    constexpr std::uint32_t kHalves = 0x00FF00FF;
    return (((a & kHalves) * (256 - weight) + (b & kHalves) * weight + 0x00800080) >> 8) & kHalves;
}

std::uint32_t Mix(std::uint32_t a, std::uint32_t b, int weight)
{
    const auto part = static_cast<std::uint32_t>(weight);
    const std::uint32_t green = MixHalves((a >> 8) & 0xFF, (b >> 8) & 0xFF, part);
    return MixHalves(a, b, part) | green << 8;  // this mode writes alpha 0
}

// Gathers four pixels at a time, which compilers combine into one wide store.
void Gather(const std::uint32_t* from, const int* columns, std::size_t count, std::uint32_t* out)
{
    std::size_t i = 0;
    for (; i + 4 <= count; i += 4) {
        const std::uint32_t four[4] = {from[columns[i]], from[columns[i + 1]], from[columns[i + 2]],
                                       from[columns[i + 3]]};
        std::memcpy(out + i, four, sizeof four);
    }
    for (; i < count; ++i)
        out[i] = from[columns[i]];
}

}  // namespace

void AxisMap::Samples(int first, int last, std::vector<int>& samples) const
{
    const std::int64_t from = sourceLength;
    const std::int64_t to = length;
    const std::int64_t atStart = !Shrinks() ? from - 1 : isRow ? to : 2 * from - to;
    SteppedQuotient sample(atStart + 2 * from * OffsetOf(*this, first), mirrored ? -2 * from : 2 * from,
                           2 * to);
    samples.resize(static_cast<std::size_t>(last - first));
    for (int& slot : samples)
        slot = source + sample.Next();
}

Scaler::Tables& Scaler::SharedTables()
{
    static thread_local Tables tables;
    return tables;
}

Scaler::Scaler(const Surface& source, const AxisMap& columns, const AxisMap& rows, Sampling sampling,
               const RECT& part)
    : m_source(source),
      m_rows(rows),
      m_sampling(sampling),
      m_part(part),
      m_tables(SharedTables()),
      m_isShifted(columns.IsUnscaled())
{
    if (sampling == Sampling::Point) {
        columns.Samples(part.left, part.right, m_tables.columns);
        rows.Samples(part.top, part.bottom, m_tables.rows);
        const auto [low, high] = std::minmax(m_tables.columns.front(), m_tables.columns.back());
        m_isInside = source.bitsPerPixel == 32 && low >= 0 && high < source.width;
        return;
    }
    m_tables.spans.clear();
    for (int x = part.left; x < part.right; ++x)
        m_tables.spans.push_back(sampling == Sampling::Bilinear ? NeighboursOf(columns, x)
                                                                : GroupOf(columns, x));
}

// When the axis shrinks, a pixel's group extends from its row sample to that of the next pixel.
Scaler::Span Scaler::GroupOf(const AxisMap& axis, int position)
{
    const std::int64_t to = axis.length;
    const auto start = [&](std::int64_t at) {
        const std::int64_t shift = axis.Shrinks() ? to : axis.sourceLength - 1;
        return static_cast<int>((2 * axis.sourceLength * at + shift) / (2 * to));
    };
    const std::int64_t offset = OffsetOf(axis, position);
    const int first = start(offset);
    const int last = !axis.Shrinks() ? first + 1 : offset + 1 == to ? axis.sourceLength : start(offset + 1);
    return {axis.source + first, axis.source + std::max(last, first + 1), 0};
}

Scaler::Span Scaler::NeighboursOf(const AxisMap& axis, int position)
{
    const std::int64_t scaled = OffsetOf(axis, position) * axis.sourceLength;
    const int first = static_cast<int>(scaled / axis.length);
    return {axis.source + first, axis.source + std::min(first + 1, axis.sourceLength - 1),
            static_cast<int>(scaled % axis.length * 256 / axis.length)};
}

void Scaler::Scale(const RECT& area, std::uint32_t* out, std::ptrdiff_t stride) const
{
    if (m_sampling == Sampling::Point) {
        ScalePoints(area, out, stride);
        return;
    }
    const bool isBilinear = m_sampling == Sampling::Bilinear;
    const Span* const columns = m_tables.spans.data() + (area.left - m_part.left);
    for (int y = area.top; y < area.bottom; ++y, out += stride) {
        const Span rows = isBilinear ? NeighboursOf(m_rows, y) : GroupOf(m_rows, y);
        for (int x = 0; x < area.right - area.left; ++x)
            out[x] = isBilinear ? Interpolate(columns[x], rows) : JoinGroup(columns[x], rows);
    }
}

void Scaler::ScalePoints(const RECT& area, std::uint32_t* out, std::ptrdiff_t stride) const
{
    const int* const columns = m_tables.columns.data() + (area.left - m_part.left);
    const int* const rows = m_tables.rows.data() + (area.top - m_part.top);
    const auto count = static_cast<std::size_t>(area.right - area.left);
    for (int i = 0; i < area.bottom - area.top; ++i, out += stride)
        if (i > 0 && rows[i] == rows[i - 1])
            std::memcpy(out, out - stride, count * sizeof *out);
        else
            CopySamples(columns, count, rows[i], out);
}

void Scaler::CopySamples(const int* columns, std::size_t count, int row, std::uint32_t* out) const
{
    if (!m_isInside || row < 0 || row >= m_source.height) {
        for (std::size_t i = 0; i < count; ++i)
            out[i] = At(columns[i], row);
        return;
    }
    const std::uint32_t* from = m_source.Row32(row);
    if (m_isShifted)
        std::memcpy(out, from + columns[0], count * sizeof *out);
    else if (columns[0] == columns[count - 1])
        Repeat(from[columns[0]], count, out);
    else
        Gather(from, columns, count, out);
}

std::uint32_t Scaler::JoinGroup(const Span& columns, const Span& rows) const
{
    const bool isAnd = m_sampling == Sampling::And;
    const RECT group{columns.first, rows.first, columns.second, rows.second};
    // Pixels outside the surface read as 0. That decides the result of And and does not affect Or, so only
    // the part inside the surface is read.
    if (isAnd && !m_source.Contains(group))
        return 0;
    const RECT inside = Intersection(group, m_source.Bounds());
    std::uint32_t joined = isAnd ? 0xFFFFFFFF : 0;
    for (int y = inside.top; y < inside.bottom; ++y)
        for (int x = inside.left; x < inside.right; ++x)
            joined = isAnd ? joined & m_source.Get(x, y) : joined | m_source.Get(x, y);
    return joined;
}

std::uint32_t Scaler::Interpolate(const Span& columns, const Span& rows) const
{
    const std::uint32_t upper =
        Mix(At(columns.first, rows.first), At(columns.second, rows.first), columns.weight);
    const std::uint32_t lower =
        Mix(At(columns.first, rows.second), At(columns.second, rows.second), columns.weight);
    return Mix(upper, lower, rows.weight);
}

}  // namespace qvui::native
