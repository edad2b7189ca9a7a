#pragma once

#include <cstdint>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

using Bytes = std::vector<std::uint8_t>;

inline Bytes FileBytes(const std::string& path)
{
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

inline Bytes Cut(const Bytes& bytes, std::size_t size)
{
    return {bytes.begin(), bytes.begin() + static_cast<std::ptrdiff_t>(size)};
}

/// Calls `use` with the file cut off after each byte.
template <class Use>
void ForEachCut(const Bytes& whole, const Use& use)
{
    for (std::size_t size = 0; size < whole.size(); ++size)
        use(Cut(whole, size));
}

/// Calls `use` with the file in which one byte, in turn, has one of the values.
template <class Use>
void ForEachChange(const Bytes& whole, const Bytes& values, const Use& use)
{
    for (std::size_t at = 0; at < whole.size(); ++at)
        for (const std::uint8_t value : values) {
            Bytes changed = whole;
            changed[at] = value;
            use(changed);
        }
}
