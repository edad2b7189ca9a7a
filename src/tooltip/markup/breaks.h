#pragma once

#include <string_view>

/// Where a line of text may end.
namespace DUI::html {

/// The code point of a character in the system code page.
char32_t CodePointOf(std::string_view character);

/// Whether a line may end between two neighbours: behind spaces, and beside an ideograph unless punctuation
/// would begin the next line or an opening bracket end this one.
bool MayBreakBetween(char32_t before, char32_t after);

}  // namespace DUI::html
