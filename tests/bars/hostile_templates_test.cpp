#include <qvui/framework/control_factory.h>

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
