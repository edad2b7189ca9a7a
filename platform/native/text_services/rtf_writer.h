#pragma once

#include <functional>
#include <string_view>

#include "native/text_services/document.h"

namespace qvui::native {

/// Writes [first, last) of a document as RTF in pure ASCII; characters beyond it are `\u` words. `last` may
/// include the final mark. `write` gets the file piece by piece and ends the writing by giving false.
void WriteRtf(const Document& document, Document::Position first, Document::Position last, UINT codePage,
              const std::function<bool(std::string_view)>& write);

}  // namespace qvui::native
