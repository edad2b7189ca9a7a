#include <qvui/framework/app.h>
#include <qvui/layout/tile_layout.h>

#include "layout/shapes.h"
#include "support/controls/control_test.h"

namespace qvui::test {
namespace {

using namespace DUI;

class TileLayout : public ControlTest {};

CDUITileLayout& Tiles(ControlWindow& window)
{
    return *dynamic_cast<CDUITileLayout*>(window.GetRootControl());
}

// `count` tiles of 30 pixels' height.
std::string OneColumn(int count, const char* attributes = "")
{
    std::string text = std::string("<tile_layout column_count=\"1\" ") + attributes + ">";
    for (int i = 0; i < count; ++i)
        text += "<canvas name=\"t" + std::to_string(i) + "\" height=\"30\"/>";
    return text + "</tile_layout>";
}

TEST_F(TileLayout, AsksForColumnsInTheWholeSpaceAndForRowsInAColumn)
{
    CRefPtr<CDUITileLayout> tiles = new CDUITileLayout;
    Brick* const wide = AddBrick(*tiles.GetPtr(), {50, 10});
    Brick* const silent = AddBrick(*tiles.GetPtr(), {900, 900});
    silent->answers = false;
    tiles->SetControlRect({0, 0, 100, 80});
    EXPECT_EQ(wide->asked, (std::vector<std::string>{"100x80", "50x32767"}));
    EXPECT_EQ(PlacesOf(*tiles.GetPtr()), "0,0,50,10 50,0,100,10");
}

TEST_F(TileLayout, AGivenStyleCountsForTheBarThatIsThere)
{
    SkinAdditions additions;
    additions.controlStyles = R"(<control_style name="wide" width="20"/>)";
    UseSkin(additions);
    ControlWindow window({100, 100}, OneColumn(5, "vscroll_style=\"wide\""));
    EXPECT_EQ(Tiles(window).GetVerticalSB()->GetFixedSize().cx, 10) << "dropped: there was none yet";
    Tiles(window).SetAttribute("vscroll_style", "wide");
    EXPECT_EQ(Tiles(window).GetVerticalSB()->GetFixedSize().cx, 20);
    const CRefPtr<IDUIControl> copy = Tiles(window).Clone();
    CDUIVerticalSB* const copied = dynamic_cast<CDUITileLayout*>(copy.GetPtr())->GetVerticalSB();
    ASSERT_NE(copied, nullptr);
    EXPECT_NE(copied, Tiles(window).GetVerticalSB());
    EXPECT_EQ(copied->GetScrollOwner(), copy.GetPtr());
    ControlWindow other({100, 100}, copy);
    EXPECT_EQ(copied->GetFixedSize().cx, 10) << "every attaching sets the usual style";
}

}  // namespace
}  // namespace qvui::test
