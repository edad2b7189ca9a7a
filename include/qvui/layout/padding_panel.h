#pragma once

#include <qvui/framework/control_of.h>

namespace DUI {

/// A transparent container whose first child fills its content rectangle; "margin" sets the distance to it.
class QVUI_API CDUIPaddingPanel : public ControlOf<CDUIPaddingPanel, CDUIControlBase> {
    friend ControlOf;

public:
    CDUIPaddingPanel();
    static const ControlClass& Class();

protected:
    CDUIPaddingPanel(const CDUIPaddingPanel& other) = default;
};

}  // namespace DUI
