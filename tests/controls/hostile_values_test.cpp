#include <qvui/bars/builtin_controls.h>
#include <qvui/framework/attribute_table.h>

#include "support/controls/control_test.h"

namespace qvui::test {
namespace {

using namespace DUI;

class HostileValues : public ControlTest {};

void SetEveryAttribute(IDUIControl& control, const ControlClass& controlClass, const CString& value)
{
    for (const ControlClass* at = &controlClass; at; at = at->Base())
        if (at->Attributes())
            for (const AttributeInfo& attribute : at->Attributes()->Infos())
                control.SetAttribute(attribute.name, value);
}

void Use(ControlWindow& window, IDUIControl& control)
{
    control.SetVisible(TRUE);
    control.SetEnable(TRUE);
    SIZE size{};
    control.EstimateSize({50, 40}, size);
    window.Paint();
    window.mouse.Click({10, 10}).Press({20, 20}).MoveTo({30, 25}).Release().Leave();
    control.SetFocus(TRUE);
    for (const int key : {VK_LEFT, VK_RIGHT, VK_UP, VK_DOWN, VK_SPACE})
        window.keys.Press(key);
    window.Resize({60, 30});
    window.Paint();
    window.Resize({0, 0});
}

// Whatever a skin says in whichever attribute: no control crashes, hangs, leaks or computes what it must not.
TEST_F(HostileValues, NoControlTrips)
{
    const std::string values[] = {
        "",
        "true",
        "-1",
        "0,0,0,0",
        "2147483647,2147483647,2147483647,2147483647",
        "-2147483648,-2147483648,2147483647,2147483647",
        "2147483647,2147483647,-2147483648,-2147483648",
        "99999999999999999999999999999999999999",
        "strip",
        "strip2",
        "framed",
        "center_icon|top_icon|auto_fit|ver_text|size_x|dock_left|button_style",
        "#\xFF\xFE\x80%s%n&",
        std::string(1 << 17, 'x'),
    };
    traces.Expect("");
    for (const BuiltinControl& builtin : BuiltinControls()) {
        for (const std::string& value : values) {
            SCOPED_TRACE(std::string(builtin.tag) + ": " + value.substr(0, 60));
            CRefPtr<IDUIControl> control = builtin.create();
            SetEveryAttribute(*control.GetPtr(), builtin.describe(), value.c_str());
            ControlWindow window({50, 40}, control);
            SetEveryAttribute(*control.GetPtr(), builtin.describe(), value.c_str());
            Use(window, *control.GetPtr());
        }
    }
}

TEST_F(HostileValues, AVeryLongTextIsMeasuredAndPainted)
{
    const std::string text = "#" + std::string(1 << 18, 'W');
    for (const char* tag : {"button", "check_box", "label", "hyperlink"}) {
        ControlWindow window({50, 40}, std::string("<") + tag + "/>");
        IDUIControl* const control = window.GetRootControl();
        control->SetAttribute("text", text.c_str());
        control->SetAttribute("enable_shadowtext", "true");
        SIZE size{};
        EXPECT_TRUE(control->EstimateSize({50, 40}, size)) << tag;
        EXPECT_GT(size.cx, 50) << tag;
        window.Paint();
    }
}

}  // namespace
}  // namespace qvui::test
