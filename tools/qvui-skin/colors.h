#pragma once

#include <optional>
#include <string>
#include <vector>

#include <qvui/foundation/color.h>

#include "names.h"

namespace qvui::skin_tool {

/// What a colour of a skin is on the screen.
struct ShownColor {
    DUI::CARGB color;
    std::string literal;  // as it is written, by the text itself or by the colour set
};

/// The colour that a literal or a name means in a skin; nothing when the skin has no such colour, or when it
/// is no literal that can be read.
std::optional<ShownColor> ColorOf(const Names& names, const std::string& text, const std::string& skin);

/// The colours of a "back_color" that count: none, one, or the two or three of a gradient. A text that means
/// no colour that is known counts as one.
std::vector<std::string> CountedColors(const Names& names, const std::string& value, const std::string& skin);

/// Whether a literal begins with "#" and has so few digits that its alpha is 0.
bool LacksAlpha(const std::string& literal);
/// #AARRGGBB
std::string HexText(const DUI::CARGB& color);
/// "#FFRRGGBB" of a literal that lacks its alpha.
std::string Opaque(const std::string& literal);

}  // namespace qvui::skin_tool
