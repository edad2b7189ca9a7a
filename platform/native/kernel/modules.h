#pragma once

#include <cstdint>
#include <span>

#include <qvui/platform/native/kernel.h>

namespace qvui::native {

/// Adds a function to a built-in module ("User32.dll", "Riched20.dll"), found by GetModuleHandleA and
/// LoadLibraryA without regard to case. Done once, before main; returns true.
bool RegisterBuiltInFunction(const char* module, const char* name, FARPROC function);

/// Makes a module file that is linked into the executable the executable's own resources. The bytes stay the
/// caller's and must outlive the process's use of them; returns whether they hold a resource directory.
QVUI_API bool RegisterExecutableResources(std::span<const std::uint8_t> moduleFile);

}  // namespace qvui::native
