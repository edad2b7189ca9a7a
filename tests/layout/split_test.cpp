#include <climits>

#include <qvui/layout/split.h>

#include "layout/shapes.h"
#include "support/controls/control_test.h"
#include "support/synthetic_input.h"

namespace qvui::test {
namespace {

using namespace DUI;

class Split : public ControlTest {};

CRefPtr<CDUISplitBase> MakeSplit(bool isVertical, int panes = 2)
{
    CRefPtr<CDUISplitBase> split =
        isVertical ? static_cast<CDUISplitBase*>(new CDUIVerticalSplit) : new CDUIHorizontalSplit;
    for (int i = 0; i < panes; ++i)
        AddBrick(*split.GetPtr(), {0, 0})->SetControlRect({7, 7, 8, 8});
    return split;
}

RECT Sized(bool isVertical, LONG extent)
{
    return isVertical ? RECT{0, 0, 50, extent} : RECT{0, 0, extent, 50};
}

TEST_F(Split, PlacesThePanesBesideTheBar)
{
    struct Case {
        const char* name;
        const char* position;
        RECT rect;
        RECT margin;
        const char* vertical;
        const char* horizontal;
    };
    const Case cases[] = {
        {"at the position",
         "30",
         {10, 20, 110, 120},
         {},
         "10,20,110,50 10,55,110,120",
         "10,20,40,120 45,20,110,120"},
        {"within the margin",
         "30",
         {0, 0, 100, 100},
         {1, 2, 3, 4},
         "1,2,97,32 1,37,97,96",
         "1,2,31,96 36,2,97,96"},
        {"beyond the end",
         "500",
         {0, 0, 100, 100},
         {},
         "0,0,100,95 0,100,100,100",
         "0,0,95,100 100,0,100,100"},
        {"negative", "-5", {0, 0, 100, 100}, {}, "0,0,100,0 0,5,100,100", "0,0,0,100 5,0,100,100"},
        {"no room for the bar", "30", {0, 0, 3, 3}, {}, "0,0,3,0 0,5,3,3", "0,0,0,3 5,0,3,3"},
        {"the largest number",
         "99999999999",
         {0, 0, 100, 100},
         {},
         "0,0,100,95 0,100,100,100",
         "0,0,95,100 100,0,100,100"},
    };
    for (const Case& c : cases)
        for (const bool isVertical : {true, false}) {
            const CRefPtr<CDUISplitBase> split = MakeSplit(isVertical);
            split->SetAttribute("split_pos", c.position);
            split->SetMargin(c.margin);
            split->SetControlRect(c.rect);
            EXPECT_EQ(PlacesOf(*split.GetPtr()), isVertical ? c.vertical : c.horizontal) << c.name;
            const CRefPtr<IDUIControl> copy = split->Clone();
            copy->SetControlRect(c.rect);
            EXPECT_EQ(PlacesOf(*copy.GetPtr()), isVertical ? c.vertical : c.horizontal)
                << c.name << ", copied";
        }
}

TEST_F(Split, LaysOutExactlyTwoPanes)
{
    for (const int panes : {0, 1, 3}) {
        const CRefPtr<CDUISplitBase> split = MakeSplit(true, panes);
        split->SetSplitPos(30);
        split->SetControlRect({0, 0, 100, 100});
        split->SetSplitPos(40);
        EXPECT_EQ(PlacesOf(*split.GetPtr()), panes == 0   ? ""
                                             : panes == 1 ? "7,7,8,8"
                                                          : "7,7,8,8 7,7,8,8 7,7,8,8");
    }
}

TEST_F(Split, AResizeGoesToThePaneOfTheStyle)
{
    struct Case {
        const char* name;
        const char* style;
        int position;
        std::vector<LONG> extents;
        std::vector<int> positions;
    };
    const Case cases[] = {
        {"first pane", "size_left", 100, {400, 500, 400, 390}, {100, 200, 100, 90}},
        {"first pane, upright", "size_top", 100, {400, 500}, {100, 200}},
        {"second pane", "size_right", 100, {400, 500, 80, 400}, {100, 100, 75, 75}},
        {"second pane, upright", "size_bottom", 100, {400, 500}, {100, 100}},
        {"the first word counts", "size_bottom size_left", 100, {400, 500}, {100, 200}},
        {"in proportion", "", 100, {400, 500, 400, 800, 400}, {100, 125, 100, 201, 100}},
        {"both panes", "size_all", 100, {400, 500, 400}, {100, 125, 100}},
        {"words in capitals say nothing", "SIZE_LEFT", 100, {400, 500}, {100, 125}},
        {"in proportion through no room at all", "", 100, {400, 3, 0, 400}, {100, 0, 0, 100}},
        {"the first pane empty stays empty", "", 0, {400, 500, 400}, {0, 0, 0}},
        {"shrunk to nothing under a style", "size_left", 100, {400, 200, 400}, {100, 0, 200}},
    };
    for (const Case& c : cases)
        for (const bool isVertical : {true, false}) {
            const CRefPtr<CDUISplitBase> split = MakeSplit(isVertical);
            split->SetAttribute("split_style", c.style);
            split->SetSplitPos(c.position);
            std::vector<int> positions;
            for (const LONG extent : c.extents) {
                split->SetControlRect(Sized(isVertical, extent));
                positions.push_back(split->GetSplitPos());
            }
            EXPECT_EQ(positions, c.positions) << c.name;
        }
}

TEST_F(Split, ALayoutWithoutAChangeMovesNothing)
{
    for (const char* style : {"", "size_left", "size_right", "size_all"}) {
        const CRefPtr<CDUISplitBase> split = MakeSplit(false);
        split->SetAttribute("split_style", style);
        split->SetMargin({10, 10, 10, 10});
        for (int position = 0; position < 300; position += 7) {
            split->SetControlRect({0, 0, 400, 50});
            split->SetSplitPos(position);
            for (int i = 0; i < 3; ++i)
                split->SetControlRect({0, 0, 400, 50});
            EXPECT_EQ(split->GetSplitPos(), position) << style;
        }
    }
}

TEST_F(Split, ANewPositionIsTheProportionThatResizesKeep)
{
    const CRefPtr<CDUISplitBase> split = MakeSplit(false);
    split->SetSplitPos(100);
    split->SetControlRect(Sized(false, 405));
    split->SetControlRect(Sized(false, 805));
    EXPECT_EQ(split->GetSplitPos(), 200);
    split->SetSplitPos(600);
    split->SetControlRect(Sized(false, 405));
    EXPECT_EQ(split->GetSplitPos(), 300);
}

TEST_F(Split, ReadsItsMinimum)
{
    struct Case {
        const char* value;
        int first, second;
    };
    const Case cases[] = {{"60,80", 60, 80}, {"60", 60, 0}, {"-60;80", 0, 80}, {"", 0, 0}, {"5 -7", 5, 0}};
    for (const Case& c : cases) {
        const CRefPtr<CDUISplitBase> split = MakeSplit(false);
        split->SetAttribute("split_min", c.value);
        int first = -1;
        int second = -1;
        EXPECT_TRUE(split->GetSplitMinSize(first, second));
        EXPECT_EQ(first, c.first) << c.value;
        EXPECT_EQ(second, c.second) << c.value;
    }
}

// A splitter of 400 pixels with its bar at 100 and a margin of 10 at its start.
class SplitDrag : public ControlTest {
protected:
    static std::string Window(const char* attributes = "")
    {
        return std::string(R"(<horz_split name="s" split_pos="100" split_min="60,80" margin="10,0,0,0" )") +
               attributes + "><canvas/><canvas/></horz_split>";
    }
    static int Position(ControlWindow& window) { return window.Find<CDUISplitBase>("s")->GetSplitPos(); }
};

TEST_F(SplitDrag, FollowsThePointerBetweenTheMinima)
{
    ControlWindow window({410, 50}, Window());
    window.mouse.MoveTo({109, 20}).Press().MoveTo({200, 20});
    EXPECT_EQ(Position(window), 100) << "a press beside the bar drags nothing";
    window.mouse.Release().Press({112, 20});
    struct Step {
        LONG x;
        int position;
    };
    for (const Step& step : {Step{150, 140}, Step{80, 70}, Step{40, 60}, Step{5, 60}, Step{71, 61},
                             Step{400, 315}, Step{409, 315}, Step{324, 314}, Step{-50, 60}, Step{210, 200}}) {
        window.mouse.MoveTo({step.x, 20});
        EXPECT_EQ(Position(window), step.position) << step.x;
    }
    EXPECT_EQ(PlacesOf(*window.Find("s")), "10,0,210,50 215,0,410,50");
    window.mouse.Release().MoveTo({300, 20});
    EXPECT_EQ(Position(window), 200);
}

TEST_F(SplitDrag, EndsWithAReleaseThatWentElsewhere)
{
    ControlWindow window({410, 50}, Window());
    window.mouse.Press({112, 20}).MoveTo({20, 20}).Release();
    EXPECT_EQ(Position(window), 60);
    window.mouse.MoveTo({72, 20}).MoveTo({74, 20});
    EXPECT_EQ(Position(window), 60) << "back on the bar, without the button";

    window.mouse.Press({72, 20}).MoveTo({20, 20}).MoveTo({73, 20});
    EXPECT_EQ(Position(window), 63) << "the button is still held";
    window.mouse.Leave();
    EXPECT_EQ(Position(window), 63) << "the pointer was said to leave";
    ReleaseCapture();
    window.mouse.MoveTo({74, 20}).MoveTo({90, 20});
    EXPECT_EQ(Position(window), 63) << "something else took the mouse";
    window.mouse.Release();

    SyntheticInput person;
    const auto at = [&window](int x) { return SyntheticInput::At(window.Handle(), x, 20); };
    person.MoveTo(at(75)).Press().MoveTo(at(200)).MoveTo(at(500));
    EXPECT_EQ(Position(window), 315) << "outside the window";
    person.Release().MoveTo(at(200)).MoveTo(at(327)).MoveTo(at(300));
    EXPECT_EQ(Position(window), 315) << "back after a release out there";
}

TEST_F(SplitDrag, KeepsTheDraggedProportion)
{
    for (const char* style : {"", "split_style=\"size_all\""}) {
        ControlWindow window({415, 50}, Window(style));
        window.Resize({815, 50});
        EXPECT_EQ(Position(window), 200);
        window.mouse.Press({212, 20}).MoveTo({410, 20}).Release();
        EXPECT_EQ(Position(window), 400);
        window.Resize({415, 50});
        EXPECT_EQ(Position(window), 200) << style;
    }
}

TEST_F(SplitDrag, ShowsItsCursorOnTheBar)
{
    for (const char* tag : {"horz_split", "vert_split"}) {
        ControlWindow window({100, 100}, std::string("<") + tag +
                                             " name=\"s\" split_pos=\"50\"><vert_layout/><vert_layout/></" +
                                             tag + ">");
        const auto* const resize = std::string(tag) == "horz_split" ? IDC_SIZEWE : IDC_SIZENS;
        const auto cursorAt = [&window](POINT point) {
            window.mouse.MoveTo(point);
            SendMessageA(window.Handle(), WM_SETCURSOR, reinterpret_cast<WPARAM>(window.Handle()),
                         MAKELPARAM(HTCLIENT, WM_MOUSEMOVE));
            return GetCursor();
        };
        EXPECT_EQ(cursorAt({52, 52}), LoadCursorA(nullptr, resize)) << tag;
        EXPECT_EQ(cursorAt({20, 20}), LoadCursorA(nullptr, IDC_ARROW)) << tag << ", over a transparent pane";
        window.mouse.Press({52, 52});
        EXPECT_EQ(cursorAt({90, 5}), LoadCursorA(nullptr, resize)) << tag << ", dragged";
    }
}

TEST_F(SplitDrag, ClaimsItsOwnEvents)
{
    ControlWindow window({410, 50}, Window());
    auto& split = *window.Find<CDUISplitBase>("s");
    for (const UINT type :
         {DUIEVENT_SETCURSOR, DUIEVENT_LBUTTONDOWN, DUIEVENT_MOUSEMOVE, DUIEVENT_LBUTTONUP}) {
        tagDUIEvent event;
        event.Type = type;
        event.ptMouse = {300, 20};
        BOOL bHandled = FALSE;
        EXPECT_EQ(split.OnDUIEvent(event, bHandled), 0);
        EXPECT_TRUE(bHandled) << type << ", beside the bar too";
    }
}

}  // namespace
}  // namespace qvui::test
