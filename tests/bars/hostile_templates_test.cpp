#include <qvui/bars/builtin_controls.h>
#include <qvui/framework/attribute_table.h>

#include "support/controls/control_test.h"

// Templates that no designer would write.

namespace qvui::test {
namespace {

using namespace DUI;

class HostileTemplates : public ControlTest {
protected:
    HostileTemplates() { traces.Expect(""); }

    static void Use(ControlWindow& window)
    {
        window.LayoutRootControl();
        window.Paint();
        window.mouse.MoveTo({30, 20}).Press().MoveTo({50, 25}).Release().Wheel(-1);
        window.Translate(WM_KEYDOWN, VK_TAB);
        for (const int key : {VK_RIGHT, VK_DOWN, VK_END, VK_SPACE})
            window.keys.Press(key);
        window.Resize({300, 10});
        window.Paint();
        window.Resize({0, 0});
        const CRefPtr<IDUIControl> copy = window.GetRootControl()->Clone();
        copy->SetControlRect({-5, -5, 500, 500});
    }
};

void SetEveryAttribute(IDUIControl& control, const ControlClass& controlClass, const CString& value)
{
    for (const ControlClass* at = &controlClass; at; at = at->Base())
        if (at->Attributes())
            for (const AttributeInfo& attribute : at->Attributes()->Infos())
                control.SetAttribute(attribute.name, value);
}

// Whatever a skin says in whichever attribute: no control crashes, hangs, leaks or computes what it must not.
TEST_F(HostileTemplates, ValuesOfAllKindsInEveryAttribute)
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
        "#" + std::string(1 << 17, 'x'),
    };
    for (const BuiltinControl& builtin : BuiltinControls()) {
        for (const std::string& value : values) {
            SCOPED_TRACE(std::string(builtin.tag) + ": " + value.substr(0, 60));
            CRefPtr<IDUIControl> control = builtin.create();
            SetEveryAttribute(*control.GetPtr(), builtin.describe(), value.c_str());
            ControlWindow window({50, 40}, control);
            SetEveryAttribute(*control.GetPtr(), builtin.describe(), value.c_str());
            control->SetVisible(TRUE);
            control->SetEnable(TRUE);
            control->SetFocus(TRUE);
            SIZE size{};
            control->EstimateSize({50, 40}, size);
            Use(window);
        }
    }
}

const char* const kContainers[] = {"horz_layout",   "vert_layout",  "tile_layout", "dialog_layout",
                                   "dock_layout",   "vert_split",   "horz_split",  "canvas",
                                   "padding_panel", "frame_panel",  "tab_layout",  "horz_tabbar",
                                   "vert_tabbar",   "horz_toolbar", "vert_toolbar"};

TEST_F(HostileTemplates, TenThousandLevels)
{
    constexpr int kLevels = 10000;
    for (const std::string tag : kContainers) {
        SCOPED_TRACE(tag);
        const std::string attributes =
            " width=\"90\" height=\"50\" position=\"0,0,90,50\" enable_scroll=\"true\" "
            "fill_last=\"true\" frame_type=\"use_color\" border_rect=\"0,0,1,1\"";
        std::string text;
        for (int i = 0; i < kLevels; ++i)
            text += "<" + tag + attributes + "><button/>";
        for (int i = 0; i < kLevels; ++i)
            text += "</" + tag + ">";
        ControlWindow window({120, 80}, text);
        Use(window);
    }
}

TEST_F(HostileTemplates, SizesOfAllKinds)
{
    const char* const kNumbers[] = {"-2147483648", "-1", "0", "7", "2147483647", "99999999999999999999"};
    for (const std::string tag : kContainers)
        for (const std::string outer : kNumbers)
            for (const std::string inner : kNumbers) {
                SCOPED_TRACE(tag + " " + outer + " " + inner);
                std::string text = "<" + tag + " enable_scroll=\"true\" padding=\"" + outer +
                                   "\" padding_height=\"" + outer + "\" column_count=\"" + outer +
                                   "\" split_pos=\"" + outer + "\" split_min=\"" + outer + "," + inner +
                                   "\" select_index=\"" + outer + "\" margin=\"" + outer + "," + inner + "," +
                                   outer + ",3\">";
                for (int i = 0; i < 2; ++i)
                    text += "<canvas width=\"" + inner + "\" height=\"" + inner + "\" position=\"" + outer +
                            "," + inner + "," + inner + "," + outer + "\" dock_style=\"dock_" +
                            (i ? "right" : "bottom") + "\"/>";
                ControlWindow window({120, 80}, text + "</" + tag + ">");
                Use(window);
            }
}

TEST_F(HostileTemplates, TenThousandSiblings)
{
    for (const std::string tag : kContainers) {
        SCOPED_TRACE(tag);
        std::string text = "<" + tag + " enable_scroll=\"true\">";
        for (int i = 0; i < 10000; ++i)
            text += tag.find("tabbar") != std::string::npos ? "<tab_item width=\"1\" height=\"1\"/>"
                                                            : "<button width=\"1\" height=\"1\"/>";
        ControlWindow window({120, 80}, text + "</" + tag + ">");
        Use(window);
    }
}

}  // namespace
}  // namespace qvui::test
