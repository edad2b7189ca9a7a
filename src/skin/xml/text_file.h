#pragma once

#include <string>

#include <qvui/platform/cstring.h>

namespace DUI {

/// Converts the bytes of a file to text in the system code page. Appends to the log `result`, and adds the
/// bits for a byte-order mark to `flags`.
CString DecodeXmlText(std::string bytes, CString& result, int& flags);

}  // namespace DUI
