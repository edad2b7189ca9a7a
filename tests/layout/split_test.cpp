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

}  // namespace
}  // namespace qvui::test
