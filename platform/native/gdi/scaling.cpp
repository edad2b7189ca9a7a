#include "native/gdi/scaling.h"

#include <algorithm>
#include <cstdlib>

namespace qvui::native {
namespace {

struct Source {
    const Surface& surface;

    std::uint32_t At(int x, int y) const
    {
        if (x < 0 || y < 0 || x >= surface.width || y >= surface.height)
            return 0;
        return surface.bitsPerPixel == 32 ? surface.Row32(y)[x] : surface.Get(x, y);
    }
};

std::uint32_t JoinGroup(const Source& source, std::pair<int, int> columns, std::pair<int, int> rows,
                        bool isAnd)
{
    std::uint32_t joined = isAnd ? 0xFFFFFFFF : 0;
    for (int y = rows.first; y < rows.second; ++y)
        for (int x = columns.first; x < columns.second; ++x)
            joined = isAnd ? joined & source.At(x, y) : joined | source.At(x, y);
    return joined;
}

struct Weighted {
    int first;
    int second;
    int weight;  // of the second, in 1/256
};

Weighted Blend(const AxisMap& axis, int position)
{
    int offset = position - axis.destination;
    if (axis.mirrored)
        offset = axis.length - 1 - offset;
    const std::int64_t scaled = static_cast<std::int64_t>(offset) * axis.sourceLength * 256 / axis.length;
    const int first = static_cast<int>(scaled >> 8);
    return {axis.source + first, axis.source + std::min(first + 1, axis.sourceLength - 1),
            static_cast<int>(scaled & 0xFF)};
}

std::uint32_t Mix(std::uint32_t a, std::uint32_t b, int weight)
{
    std::uint32_t mixed = 0;
    for (int shift = 0; shift < 24; shift += 8) {
        const int first = static_cast<int>((a >> shift) & 0xFF);
        const int second = static_cast<int>((b >> shift) & 0xFF);
        mixed |= static_cast<std::uint32_t>((first * (256 - weight) + second * weight + 128) >> 8) << shift;
    }
    return mixed;  // alpha 0, as this mode writes it
}

}  // namespace

AxisMap MapAxis(int destination, int length, int source, int sourceLength, bool isRow)
{
    AxisMap axis{
        destination, std::abs(length), source, std::abs(sourceLength), (length < 0) != (sourceLength < 0),
        isRow};
    if (length < 0)
        axis.destination = destination + length + 1;
    if (sourceLength < 0)
        axis.source = source + sourceLength + 1;
    return axis;
}

int AxisMap::Sample(int position) const
{
    std::int64_t offset = position - destination;
    if (mirrored)
        offset = length - 1 - offset;
    const std::int64_t from = sourceLength;
    const std::int64_t to = length;
    std::int64_t sample = 0;
    if (to >= from)
        sample = ((2 * offset + 1) * from + 2 * to - 1) / (2 * to) - 1;
    else if (isRow)
        sample = (2 * from * offset + to) / (2 * to);
    else
        sample = std::min(from - 1, (2 * from * (offset + 1) - to) / (2 * to));
    return source + static_cast<int>(sample);
}

std::pair<int, int> AxisMap::Group(int position) const
{
    if (length >= sourceLength) {
        const int only = Sample(position);
        return {only, only + 1};
    }
    std::int64_t offset = position - destination;
    if (mirrored)
        offset = length - 1 - offset;
    // The group runs from this pixel's row sample to the next one's.
    const auto start = [this](std::int64_t at) {
        return static_cast<int>((2 * static_cast<std::int64_t>(sourceLength) * at + length) / (2 * length));
    };
    const int first = start(offset);
    const int last = offset + 1 == length ? sourceLength : start(offset + 1);
    return {source + first, source + std::max(last, first + 1)};
}

void ScalePixels(const Surface& surface, const AxisMap& columns, const AxisMap& rows, const RECT& part,
                 Sampling sampling, std::vector<std::uint32_t>& pixels)
{
    const Source source{surface};
    const int width = part.right - part.left;
    pixels.resize(static_cast<std::size_t>(width) * static_cast<std::size_t>(part.bottom - part.top));
    std::uint32_t* out = pixels.data();
    if (sampling == Sampling::Point) {
        static thread_local std::vector<int> samples;
        samples.resize(static_cast<std::size_t>(width));
        bool isInside = surface.bitsPerPixel == 32;
        for (int i = 0; i < width; ++i) {
            const int sample = columns.Sample(part.left + i);
            samples[static_cast<std::size_t>(i)] = sample;
            isInside = isInside && sample >= 0 && sample < surface.width;
        }
        int previous = INT32_MIN;
        for (int y = part.top; y < part.bottom; ++y, out += width) {
            const int row = rows.Sample(y);
            if (row == previous) {
                std::copy(out - width, out, out);
            } else if (isInside && row >= 0 && row < surface.height) {
                const std::uint32_t* from = surface.Row32(row);
                for (int i = 0; i < width; ++i)
                    out[i] = from[samples[static_cast<std::size_t>(i)]];
            } else {
                for (int i = 0; i < width; ++i)
                    out[i] = source.At(samples[static_cast<std::size_t>(i)], row);
            }
            previous = row;
        }
        return;
    }
    for (int y = part.top; y < part.bottom; ++y) {
        for (int x = part.left; x < part.right; ++x, ++out) {
            if (sampling != Sampling::Bilinear) {
                *out = JoinGroup(source, columns.Group(x), rows.Group(y), sampling == Sampling::And);
                continue;
            }
            const Weighted column = Blend(columns, x);
            const Weighted row = Blend(rows, y);
            *out = Mix(
                Mix(source.At(column.first, row.first), source.At(column.second, row.first), column.weight),
                Mix(source.At(column.first, row.second), source.At(column.second, row.second), column.weight),
                row.weight);
        }
    }
}

}  // namespace qvui::native
