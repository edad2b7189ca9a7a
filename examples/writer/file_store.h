#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace writer {

/// All bytes of a file; nullopt when it cannot be read. The path is in the system code page.
std::optional<std::string> ReadWholeFile(const std::string& path);

/// Writes a temporary file beside the target and renames it over the target, which keeps its permissions.
/// False when any step fails; the target is then as it was.
bool ReplaceFile(const std::string& path, std::string_view bytes);

bool FileExists(const std::string& path);

}  // namespace writer
