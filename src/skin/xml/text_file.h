#pragma once

#include <string>

#include <qvui/platform/cstring.h>

namespace DUI {

/// The text of a file's bytes in the system code page. What was done is added to the log `result`, and the
/// bits of a byte-order mark to `flags`.
CString DecodeXmlText(std::string bytes, CString& result, int& flags);

}  // namespace DUI
