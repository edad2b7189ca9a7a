#pragma once

#include <qvui/foundation/color.h>

/// The colours of what a tool bar draws itself when the skin gives it no image or frame. They follow the
/// skin's default text style, so that they suit light and dark skins alike.
namespace DUI {

/// For the chevron and other marks.
CARGB MarkColor();
/// For thin lines.
CARGB LineColor();
/// The wash behind a mark under the pointer.
CARGB WashColor();

struct MenuColors {
    CARGB paper;
    CARGB border;
};
MenuColors PlainMenuColors();

}  // namespace DUI
