#pragma once

#include <qvui/framework/control_base.h>

namespace DUI {

/// A scrolling container's bars as the controls that they are, or null. Scroll bars are made of buttons, so
/// the room that has both defines these.
IDUIControl* VerticalScrollBarOf(CDUIControlBase& container);
IDUIControl* HorizontalScrollBarOf(CDUIControlBase& container);

}  // namespace DUI
