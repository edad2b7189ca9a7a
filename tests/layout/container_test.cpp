#include <climits>

#include <qvui/layout/dialog_layout.h>
#include <qvui/layout/dock_layout.h>
#include <qvui/layout/frame_panel.h>
#include <qvui/layout/linear_layout.h>
#include <qvui/layout/padding_panel.h>

#include "layout/shapes.h"
#include "support/controls/control_test.h"

// Canvas, dialog and dock layouts, and panels.

namespace qvui::test {
namespace {

using namespace DUI;

class Container : public ControlTest {};

TEST_F(Container, ACanvasFillsItselfWithItsFirstChildAndPaintsItsFrameInsideTheMargin)
{
    ControlWindow window({60, 40}, R"(<window frame_style="red"><canvas frame_style="framed" margin="5,6,7,8">
        <canvas name="first" visible="false"/><canvas name="second" position="1,2,3,4"/></canvas></window>)");
    EXPECT_EQ(Text(window.Find("first")->GetControlRect()), "5,6,53,32");
    EXPECT_EQ(Text(window.Find("second")->GetControlRect()), "1,2,3,4");
    const ClientPixels pixels = window.Paint();
    EXPECT_EQ(pixels.At(5, 6), 0xFF0000u) << "the frame's border";
    EXPECT_EQ(pixels.At(8, 9), 0x0000FFu) << "its inside";
    EXPECT_EQ(pixels.At(4, 9), 0xFF0000u) << "the window's background in the margin";

    const CRefPtr<IDUIControl> copy = window.GetRootControl()->Clone();
    auto* const canvas = dynamic_cast<CDUICanvas*>(copy.GetPtr());
    EXPECT_EQ(canvas->GetCanvasUIData(),
              dynamic_cast<CDUICanvas*>(window.GetRootControl())->GetCanvasUIData());
    canvas->SetAttribute("frame_style", "nobody's");
    EXPECT_TRUE(canvas->GetCanvasUIData().IsNull());
}

TEST_F(Container, OnlyACanvasIsHitItself)
{
    for (const char* tag :
         {"canvas", "horz_layout", "vert_layout", "tile_layout", "dialog_layout", "dock_layout", "tab_layout",
          "padding_panel", "frame_panel", "horz_tabbar", "vert_toolbar"}) {
        ControlWindow window({60, 40}, std::string("<") + tag + "/>");
        POINT point{30, 20};
        EXPECT_EQ(window.FindControl(&point) != nullptr, std::string(tag) == "canvas") << tag;
    }
}

TEST_F(Container, ADialogReachesFromTheOriginToItsFarthestChildren)
{
    struct Case {
        const char* name;
        std::vector<RECT> children;
        SIZE size;
    };
    const Case cases[] = {
        {"nobody", {}, {0, 0}},
        {"the farthest edges count", {{10, 10, 60, 40}, {50, 20, 120, 80}}, {120, 80}},
        {"negative positions too", {{-10, 0, 20, 20}}, {30, 20}},
        {"beyond the width of a number", {{INT_MIN, 0, 10, 10}, {0, 0, INT_MAX, 10}}, {INT_MAX, 10}},
    };
    for (const Case& c : cases) {
        CRefPtr<CDUIDialogLayout> dialog = new CDUIDialogLayout;
        for (const RECT& rect : c.children)
            AddBrick(*dialog.GetPtr(), {0, 0})->SetControlRect(rect);
        SIZE size{1, 1};
        EXPECT_TRUE(dialog->EstimateSize({5, 5}, size));
        EXPECT_EQ(size.cx, c.size.cx) << c.name;
        EXPECT_EQ(size.cy, c.size.cy) << c.name;
    }
}

TEST_F(Container, ADialogKeepsItsSizeUntilItIsToRecalculate)
{
    ControlWindow window({300, 200},
                         R"(<vert_layout><dialog_layout name="d"><canvas name="c" position="0,0,50,40"/>
        </dialog_layout><canvas name="rest"/></vert_layout>)");
    auto& dialog = *window.Find<CDUIDialogLayout>("d");
    EXPECT_EQ(Text(window.Find("rest")->GetControlRect()), "0,40,300,200");
    EXPECT_EQ(Text(window.Find("c")->GetControlRect()), "0,0,50,40") << "not moved by its layout";

    window.Find("c")->SetControlRect({0, 0, 50, 90});
    window.LayoutRootControl();
    EXPECT_EQ(Text(window.Find("rest")->GetControlRect()), "0,40,300,200");
    dialog.SetAttribute("recalc", "false");
    EXPECT_EQ(Text(window.Find("rest")->GetControlRect()), "0,40,300,200");
    dialog.SetAttribute("recalc", "True");
    EXPECT_EQ(Text(window.Find("rest")->GetControlRect()), "0,90,300,200");

    const CRefPtr<IDUIControl> copy = dialog.Clone();
    copy->AddControl(new Brick);
    copy->GetControlByIndex(1)->SetControlRect({0, 0, 999, 999});
    SIZE size{};
    copy->EstimateSize({}, size);
    EXPECT_EQ(size.cy, 90) << "a copy knows its size already";
}

// Dialogs in dialogs: the first layout must not double its work at every level.
TEST_F(Container, NestedDialogsLayOutTheirChildrenOnce)
{
    CRefPtr<IDUIControl> dialog = new CDUIDialogLayout;
    Brick* const innermost = AddBrick(*dialog.GetPtr(), {0, 0});
    for (int i = 0; i < 30; ++i) {
        const CRefPtr<IDUIControl> outer = new CDUIDialogLayout;
        outer->AddControl(dialog);
        dialog = outer;
    }
    dialog->SetControlRect({0, 0, 100, 100});
    EXPECT_EQ(innermost->placed, 1);
}

TEST_F(Container, ADockLayoutHandsOutTheFreeSpaceInOrder)
{
    struct Case {
        const char* name;
        const char* fillLast;
        const char* lastSide;
        const char* places;
    };
    const Case cases[] = {
        {"the last child fills", "true", "", "0,0,30,100 30,0,100,20 30,20,100,100"},
        {"whatever its side", "TRUE", "dock_top", "0,0,30,100 30,0,100,20 30,20,100,100"},
        {"without a side it gets nothing", "yes", "", "0,0,30,100 30,0,100,20 30,20,30,20"},
        {"or what it asks for at its side", "", "dock_bottom", "0,0,30,100 30,0,100,20 30,60,100,100"},
    };
    for (const Case& c : cases) {
        ControlWindow window({100, 100}, std::string("<dock_layout fill_last=\"") + c.fillLast +
                                             R"("><canvas dock_style="dock_left" width="30"/>)"
                                             R"(<canvas dock_style="dock_top" height="20" visible="false"/>)"
                                             R"(<canvas height="40" dock_style=")" +
                                             c.lastSide + "\"/></dock_layout>");
        EXPECT_EQ(PlacesOf(*window.GetRootControl()), c.places) << c.name;
        const CRefPtr<IDUIControl> copy = window.GetRootControl()->Clone();
        copy->SetControlRect({0, 0, 100, 100});
        EXPECT_EQ(PlacesOf(*copy.GetPtr()), c.places) << c.name << ", copied";
    }
}

TEST_F(Container, ADockLayoutOffersWhatIsFree)
{
    CRefPtr<CDUIDockLayout> dock = new CDUIDockLayout;
    Brick* const left = AddBrick(*dock.GetPtr(), {30, 10});
    Brick* const rest = AddBrick(*dock.GetPtr(), {10, 10});
    left->ModifyExStyle(0, DUIEXSTYLE_DOCK_LEFT);
    dock->SetControlRect({0, 0, 100, 80});
    EXPECT_EQ(left->asked, (std::vector<std::string>{"100x80"}));
    EXPECT_EQ(rest->asked, (std::vector<std::string>{"70x80"}));
}

TEST_F(Container, PanelsGiveTheirFirstChildTheSpaceInside)
{
    SkinAdditions additions;
    additions.images = "<image name=\"left\" config_type=\"file\" file_name=\"" + TestSkin::File("left.png") +
                       "\" count=\"2\"/><image name=\"top\" config_type=\"file\" file_name=\"" +
                       TestSkin::File("top.png") + "\" count=\"2\"/>";
    UseSkin(additions);
    WriteStrip(TestSkin::Path("left.png"), 6, 8, {0xFFFF0000, 0xFF00FF00});
    WriteStrip(TestSkin::Path("top.png"), 20, 4, {0xFF0000FF, 0xFF00FF00});
    struct Case {
        const char* name;
        const char* panel;
        const char* inside;
    };
    const Case cases[] = {
        {"padding", R"(<padding_panel margin="3,4,5,6">)", "3,4,95,54"},
        {"colour", R"(<frame_panel frame_type="use_color" border_color="red" border_rect="2,2,2,2">)",
         "2,2,98,58"},
        {"colour, within the margin",
         R"(<frame_panel margin="10,10,10,10" frame_type="use_image use_color" border_rect="1,2,3,4">)",
         "11,12,87,46"},
        {"images bring their own thickness",
         R"(<frame_panel frame_type="use_image" border_rect="9,9,9,9" left_border_image="left" top_border_image="top">)",
         "6,4,100,60"},
        {"no word counts as images", R"(<frame_panel frame_type="Use_Color" border_rect="9,9,9,9">)",
         "0,0,100,60"},
        {"borders wider than the panel", R"(<frame_panel frame_type="use_color" border_rect="70,5,70,5">)",
         "70,5,70,5"},
        {"borders beyond all numbers",
         R"(<frame_panel frame_type="use_color" border_rect="2147483647,2147483647,2147483647,2147483647">)",
         "2147483647,2147483647,2147483647,2147483647"},
    };
    for (const Case& c : cases) {
        const std::string panel = c.panel;
        const std::string tag = panel.substr(1, panel.find(' ') - 1);
        ControlWindow window(
            {100, 60}, panel + "<canvas position=\"7,7,8,8\"/><canvas position=\"7,7,8,8\"/></" + tag + ">");
        EXPECT_EQ(PlacesOf(*window.GetRootControl()), std::string(c.inside) + " 7,7,8,8") << c.name;
        const CRefPtr<IDUIControl> copy = window.GetRootControl()->Clone();
        copy->SetControlRect({0, 0, 100, 60});
        EXPECT_EQ(PlacesOf(*copy.GetPtr()), std::string(c.inside) + " 7,7,8,8") << c.name << ", copied";
        window.Paint();
    }
}

TEST_F(Container, AFramePanelDrawsItsBorder)
{
    {
        ControlWindow window({60, 40},
                             R"(<window frame_style="blue"><frame_panel name="p" frame_type="use_color"
            border_color="paper" border_rect="2,3,4,5"/></window>)");
        const ClientPixels light = window.Paint();
        for (const POINT point : {POINT{1, 20}, POINT{58, 20}, POINT{30, 2}, POINT{30, 36}})
            EXPECT_EQ(light.At(point.x, point.y), 0xFFFFFFu) << point.x << "," << point.y;
        EXPECT_EQ(light.At(2, 3), 0x0000FFu) << "the inside is not filled";
        EXPECT_EQ(light.At(55, 34), 0x0000FFu);
        Skin().Manager().SetSkinTyle("dark");
        EXPECT_EQ(window.Paint().At(1, 20), 0x000000u) << "the colour follows the skin";
    }
    ControlWindow window({60, 40}, R"(<window frame_style="blue"><frame_panel name="p" frame_type="use_image"
        left_border_image="strip2" back_image="strip"/></window>)");
    auto& panel = *window.Find<CDUIFramePanel>("p");
    EXPECT_EQ(window.Paint().At(5, 5), 0xFF0000u);
    panel.SetImageIndex(1);
    window.Invalidate(FALSE);
    EXPECT_EQ(window.Paint().At(5, 5), 0x00FF00u);
    for (const int beyond : {3, -1}) {
        panel.SetImageIndex(beyond);
        window.Invalidate(FALSE);
        EXPECT_EQ(window.Paint().At(5, 5), 0xFF0000u) << "cell 0 instead of " << beyond;
    }
}

}  // namespace
}  // namespace qvui::test
