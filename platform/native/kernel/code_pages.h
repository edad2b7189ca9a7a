#pragma once

#include <string>
#include <string_view>

#include <qvui/platform/native/kernel.h>

namespace qvui::native {

/// Makes `codePage` the system code page from now on; 0 goes back to the locale's. For tests.
QVUI_API void OverrideSystemCodePage(UINT codePage);

/// Text of the system code page as UTF-8 and back, for the libraries that speak UTF-8. What is no character
/// becomes U+FFFD, and "?" on the way back; the result is always valid.
std::string SystemToUtf8(std::string_view text);
std::string Utf8ToSystem(std::string_view text);

}  // namespace qvui::native
