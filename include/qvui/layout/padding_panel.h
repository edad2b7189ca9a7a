#pragma once

#include <qvui/framework/control_base.h>

namespace DUI {

/// A transparent container whose first child fills its content rectangle, so that "margin" insets it.
class QVUI_API CDUIPaddingPanel : public CDUIControlBase {
public:
    CDUIPaddingPanel();
    static const ControlClass& Class();

    CRefPtr<IDUIControl> Clone() override;

protected:
    CDUIPaddingPanel(const CDUIPaddingPanel& other) = default;
};

}  // namespace DUI
