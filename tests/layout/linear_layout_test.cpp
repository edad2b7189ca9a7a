#include <climits>

#include <qvui/framework/app.h>
#include <qvui/layout/linear_layout.h>

#include "layout/shapes.h"
#include "support/controls/control_test.h"

namespace qvui::test {
namespace {

using namespace DUI;

class LinearLayout : public ControlTest {};

TEST_F(LinearLayout, AsksForWhatIsLeftAndPlacesOnce)
{
    CRefPtr<CDUIHorizontalLayout> layout = new CDUIHorizontalLayout;
    layout->SetPaddingWidth(10);
    Brick* const first = AddBrick(*layout.GetPtr(), {30, 0});
    AddBrick(*layout.GetPtr(), {0, 0});
    Brick* const last = AddBrick(*layout.GetPtr(), {20, 0});
    layout->SetControlRect({0, 0, 100, 40});
    using Spaces = std::vector<std::string>;
    EXPECT_EQ(first->asked, Spaces{"100x40"});
    // Again when the flexible child has its share.
    EXPECT_EQ(last->asked, (Spaces{"50x40", "20x40"}));
    EXPECT_EQ(first->placed, 1);
    // Placing the lengthened last child twice would double the work at every level of nesting.
    EXPECT_EQ(last->placed, 1);
}

TEST_F(LinearLayout, ItsScrollBarHasTheBreadthOfItsStyle)
{
    {
        SkinAdditions additions;
        additions.controlStyles = R"(<control_style name="cs_v_scrollbar"/>)";
        UseSkin(additions);
        const CRefPtr<CDUIVerticalLayout> plain = new CDUIVerticalLayout;
        plain->SetEnableScroll(1);
        ControlWindow window({100, 100}, plain.GetPtr());
        EXPECT_EQ(plain->GetVerticalSB()->GetFixedSize().cx, 9) << "a style that does not say";
    }
    UseSkin({});
    ControlWindow window({100, 100},
                         R"(<vert_layout enable_scroll="true"><canvas height="200"/></vert_layout>)");
    CDUIVerticalSB* const bar = dynamic_cast<CDUIVerticalLayout*>(window.GetRootControl())->GetVerticalSB();
    bar->SetFixedWidth(3);
    window.GetRootControl()->OnSkinChanged();
    EXPECT_EQ(bar->GetFixedSize().cx, 10) << "the style's width again";
}

// 1000 levels are as many as a template may have; each last child here has a length of its own, which it
// exceeds.
TEST_F(LinearLayout, NestsDeeply)
{
    std::string text;
    for (int i = 0; i < 990; ++i)
        text += i % 2 ? "<vert_layout height=\"1\">" : "<horz_layout width=\"1\">";
    text += "<label name=\"deepest\"/>";
    for (int i = 989; i >= 0; --i)
        text += i % 2 ? "</vert_layout>" : "</horz_layout>";
    ControlWindow window({120, 80}, text);
    EXPECT_EQ(Text(window.Find("deepest")->GetControlRect()), "0,0,120,80");
    window.Resize({60, 40});
    window.Paint();
    EXPECT_EQ(Text(window.Find("deepest")->GetControlRect()), "0,0,60,40");
}

}  // namespace
}  // namespace qvui::test
