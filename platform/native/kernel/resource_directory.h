#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace qvui::native {

/// A resource's type or name: a number, or a text (compared without regard to case).
struct ResourceKey {
    std::uint16_t id = 0;
    std::u16string text;

    bool Matches(const ResourceKey& other) const;
};

/// One resource of a module; the bytes lie inside the module's own.
struct ResourceEntry {
    ResourceKey type;
    ResourceKey name;
    std::span<const std::uint8_t> bytes;
};

/// Reads the resource directory of a module file (PE, 32 or 64 bit). Nothing of the module runs, and nothing
/// outside `file` is read whatever the file says. Empty when the file is no module or its directory is
/// broken; of several languages of one resource the first counts.
std::optional<std::vector<ResourceEntry>> ReadResourceDirectory(std::span<const std::uint8_t> file);

}  // namespace qvui::native
