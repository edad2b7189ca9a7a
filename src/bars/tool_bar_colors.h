#pragma once

#include <qvui/foundation/color.h>

/// The colours of what a tool bar draws itself when the skin gives it no image or frame. They follow the
/// skin's default text style, so that they suit light and dark skins alike.
namespace DUI {

/// For the chevron and other marks.
CARGB MarkColor();
/// For thin lines, and the wash behind a mark under the pointer. A translucent fill takes from the ground the
/// square of its alpha and adds its colour once, so these darken with black and lighten with white: any other
/// colour would overflow on a light ground.
CARGB LineColor();
CARGB WashColor();

struct MenuColors {
    CARGB paper;
    CARGB border;
};
MenuColors PlainMenuColors();

}  // namespace DUI
