#pragma once

#include "native/user/window.h"

namespace qvui::native {

/// Returns the window class of a name or atom, or null.
std::shared_ptr<WindowClass> FindClass(LPCSTR name);

}  // namespace qvui::native
