#pragma once

#include <string>
#include <string_view>

#include <qvui/platform/native/kernel.h>

namespace qvui::native {

/// Overrides the system code page; 0 restores the locale's. For tests.
QVUI_API void OverrideSystemCodePage(UINT codePage);

/// Converts text of the system code page to UTF-8 and back, for libraries that use UTF-8. Invalid characters
/// become U+FFFD, or "?" in the other direction; the result is always valid.
std::string SystemToUtf8(std::string_view text);
std::string Utf8ToSystem(std::string_view text);

}  // namespace qvui::native
