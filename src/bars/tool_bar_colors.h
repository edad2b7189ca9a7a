#pragma once

#include <qvui/foundation/color.h>

/// Colours of what a tool bar draws itself when the skin defines no image or frame. They are derived from the
/// skin's default text style, so that they suit light and dark skins.
namespace DUI {

/// For the arrowhead and other marks.
CARGB MarkColor();
/// For thin lines, and for the highlight behind a mark under the pointer. A translucent fill scales the
/// background by the square of its alpha and adds its colour once, so these colours only darken with black or
/// lighten with white; other colours would overflow on a light background.
CARGB LineColor();
CARGB WashColor();

struct MenuColors {
    CARGB paper;
    CARGB border;
};
MenuColors PlainMenuColors();

}  // namespace DUI
