#include <qvui/framework/app.h>
#include <qvui/layout/tile_layout.h>

#include "layout/shapes.h"
#include "support/controls/control_test.h"

namespace qvui::test {
namespace {

using namespace DUI;

class TileLayout : public ControlTest {};

int PositionOf(CDUIScrollBarBase& bar)
{
    SCROLLINFO info{};
    bar.GetScrollBarInfo(&info);
    return info.nPos;
}

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

TEST_F(TileLayout, PlacesItsVisibleChildrenInColumns)
{
    struct Case {
        const char* name;
        const char* columns;
        const char* height;
        RECT rect;
        const char* places;  // of tiles 30 wide and 10, 20 (hidden), 15, 5 high
    };
    const Case cases[] = {
        {"as many as fit", "0", "0", {0, 0, 60, 100}, "0,0,30,15 7,7,8,8 30,0,60,15 0,19,30,24"},
        {"a negative number means the same",
         "-3",
         "0",
         {0, 0, 60, 100},
         "0,0,30,15 7,7,8,8 30,0,60,15 0,19,30,24"},
        {"what is no number, too", "many", "0", {0, 0, 60, 100}, "0,0,30,15 7,7,8,8 30,0,60,15 0,19,30,24"},
        {"a given number", "1", "0", {0, 0, 60, 100}, "0,0,60,10 7,7,8,8 0,14,60,29 0,33,60,38"},
        {"the layout's height is the rows'",
         "3 of them",
         "40",
         {0, 0, 60, 100},
         "0,0,20,40 7,7,8,8 20,0,40,40 40,0,60,40"},
        {"an empty content goes to all", "2", "0", {5, 6, 5, 60}, "5,6,5,6 5,6,5,6 5,6,5,6 5,6,5,6"},
    };
    for (const Case& c : cases) {
        CRefPtr<CDUITileLayout> tiles = new CDUITileLayout;
        tiles->SetAttribute("column_count", c.columns);
        tiles->SetAttribute("height", c.height);
        tiles->SetAttribute("padding_height", "4");
        for (const LONG height : {10, 20, 15, 5})
            AddBrick(*tiles.GetPtr(), {30, height})->SetControlRect({7, 7, 8, 8});
        tiles->GetControlByIndex(1)->SetVisible(FALSE);
        tiles->SetControlRect(c.rect);
        EXPECT_EQ(PlacesOf(*tiles.GetPtr()), c.places) << c.name;
    }
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

TEST_F(TileLayout, WithoutAVisibleChildDoesNothing)
{
    ControlWindow window({100, 100}, R"(<tile_layout><canvas width="30" height="300"/></tile_layout>)");
    EXPECT_TRUE(Tiles(window).GetVerticalSB()->IsVisible(FALSE));
    window.GetRootControl()->GetControlByIndex(0)->SetVisible(FALSE);
    window.Validate();
    Tiles(window).SetControlRect({0, 0, 100, 100});
    EXPECT_TRUE(Tiles(window).GetVerticalSB()->IsVisible(FALSE)) << "the bar is as it was";
}

TEST_F(TileLayout, ScrollsByABarThatIsAlwaysThere)
{
    ControlWindow window({100, 100}, OneColumn(5));
    CDUIVerticalSB& bar = *Tiles(window).GetVerticalSB();
    // The skin's style makes it 10 wide; without one it is 7.
    EXPECT_EQ(Text(bar.GetControlRect()), "90,0,100,100");
    EXPECT_EQ(Text(window.Find("t4")->GetControlRect()), "0,120,90,150");
    window.Find("t0")->SetFocus(TRUE);
    window.mouse.MoveTo({10, 10}).Wheel(-1);
    EXPECT_EQ(PositionOf(bar), 50);
    EXPECT_EQ(Text(window.Find("t4")->GetControlRect()), "0,70,90,100");
    window.Resize({100, 150});
    EXPECT_FALSE(bar.IsVisible(FALSE));
    EXPECT_EQ(Text(window.Find("t4")->GetControlRect()), "0,120,100,150");
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

TEST_F(TileLayout, MakesATileVisible)
{
    struct Case {
        const char* name;
        const char* columns;
        const char* tile;
        int position;
    };
    const Case cases[] = {
        {"below the view", "1", "t4", 50},
        {"above it: its bottom edge still moves to the layout's", "1", "t3", 20},
        {"near the top", "1", "t1", 0},
        {"of more columns", "2", "t4", 33},
    };
    for (const Case& c : cases) {
        ControlWindow window({100, 100}, OneColumn(5));
        SCROLLINFO info{sizeof(SCROLLINFO), SIF_POS, 0, 0, 0, 33, 0};
        CDUITileLayout& tiles = Tiles(window);
        tiles.GetVerticalSB()->SetScrollBarInfo(&info);
        tiles.SetAttribute("column_count", c.columns);
        tiles.MakeSureControlVisible(window.Find(c.tile));
        EXPECT_EQ(PositionOf(*tiles.GetVerticalSB()), c.position) << c.name;
    }
    ControlWindow window({100, 100}, OneColumn(5, "padding_height=\"2\""));
    Tiles(window).MakeSureControlVisible(window.Find("t2"));
    EXPECT_EQ(PositionOf(*Tiles(window).GetVerticalSB()), 0) << "90 and two gaps fit";
    Tiles(window).MakeSureControlVisible(window.Find("t3"));
    EXPECT_EQ(PositionOf(*Tiles(window).GetVerticalSB()), 28) << "four tiles and four gaps, less the height";
    Tiles(window).MakeSureControlVisible(&Tiles(window));
    EXPECT_EQ(PositionOf(*Tiles(window).GetVerticalSB()), 28) << "not one of the tiles";
}

// Beside the bar there are two columns and the content fits; without it there are three, and it does not.
TEST_F(TileLayout, SettlesWhenTheContentFitsOnlyBesideTheBar)
{
    ControlWindow window({70, 100}, R"(<tile_layout>
        <canvas width="30" height="10"/><canvas width="30" height="10"/>
        <canvas width="30" height="80"/><canvas width="30" height="80"/></tile_layout>)");
    EXPECT_TRUE(Tiles(window).GetVerticalSB()->IsVisible(FALSE));
    EXPECT_EQ(PlacesOf(Tiles(window)), "0,0,30,10 30,0,60,10 0,10,30,90 30,10,60,90");
    window.Resize({70, 200});
    EXPECT_FALSE(Tiles(window).GetVerticalSB()->IsVisible(FALSE));
}

}  // namespace
}  // namespace qvui::test
