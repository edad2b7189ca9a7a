#pragma once

#include <functional>
#include <string>

#include <qvui/platform/platform.h>

/// Plain text on the clipboard, in the system code page.
namespace DUI::clipboard {

/// False, and the clipboard is as before, when it cannot be opened.
bool Write(HWND owner, const std::string& text);
/// Calls `use` with the text; not at all when there is none.
void Read(const std::function<void(const std::string& text)>& use);

}  // namespace DUI::clipboard
