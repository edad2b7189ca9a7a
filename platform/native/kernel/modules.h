#pragma once

#include <cstdint>
#include <span>

#include <qvui/platform/native/kernel.h>

namespace qvui::native {

/// Adds a function to a built-in module ("User32.dll", "Riched20.dll"), which GetModuleHandleA and
/// LoadLibraryA find ignoring case. Called once per function, before main. Returns true.
bool RegisterBuiltInFunction(const char* module, const char* name, FARPROC function);

}  // namespace qvui::native
