#pragma once

#include <string_view>

/// Line-break opportunities in text.
namespace DUI::html {

/// Returns the code point of a character in the system code page.
char32_t CodePointOf(std::string_view character);

/// Whether a line may break between two adjacent characters: after spaces, and beside an ideograph unless
/// punctuation would begin the next line or an opening bracket would end this one.
bool MayBreakBetween(char32_t before, char32_t after);

}  // namespace DUI::html
