#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace qvui::native {

/// The type or name of a resource: a number, or a text compared ignoring case.
struct ResourceKey {
    std::uint16_t id = 0;
    std::u16string text;

    bool Matches(const ResourceKey& other) const;
};

/// One resource of a module. The bytes point into the module's memory.
struct ResourceEntry {
    ResourceKey type;
    ResourceKey name;
    std::span<const std::uint8_t> bytes;
};

/// Reads the resource directory of a module file (PE, 32 or 64 bit). No code of the module is run, and
/// nothing outside `file` is read, whatever the file contains. Returns nothing if the file is not a module or
/// its directory is invalid. If a resource exists in several languages, the first one is used.
std::optional<std::vector<ResourceEntry>> ReadResourceDirectory(std::span<const std::uint8_t> file);

}  // namespace qvui::native
