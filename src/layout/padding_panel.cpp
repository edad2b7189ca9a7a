#include <qvui/layout/padding_panel.h>

namespace DUI {

const ControlClass& CDUIPaddingPanel::Class()
{
    static const ControlClass info("CDUIPaddingPanel", &CDUIControlBase::Class(),
                                   "Insets its first child by the margin.", {});
    return info;
}

CDUIPaddingPanel::CDUIPaddingPanel()
{
    ModifyStyle(0, DUISTYLE_TRANSPARENT);
}

}  // namespace DUI
