#pragma once

#include <cstdint>
#include <span>

#include <qvui/platform/native/kernel.h>

namespace qvui::native {

/// Adds a function to a built-in module ("User32.dll", "Riched20.dll"), found by GetModuleHandleA and
/// LoadLibraryA without regard to case. Done once, before main; returns true.
bool RegisterBuiltInFunction(const char* module, const char* name, FARPROC function);

}  // namespace qvui::native
