#include <qvui/layout/dialog_layout.h>
#include <qvui/layout/dock_layout.h>
#include <qvui/layout/linear_layout.h>
#include <qvui/layout/split.h>
#include <qvui/layout/tile_layout.h>

#include "support/controls/control_test.h"
#include "support/synthetic_input.h"

// What layouts ask of their children, and how often; where children stand is in tests/scenarios.

namespace qvui::test {
namespace {

using namespace DUI;

class Layout : public ControlTest {};

/// A control that asks for a size and counts what its container does with it.
class Brick : public CDUIControlBase {
public:
    Brick() = default;
    explicit Brick(SIZE wanted) : m_wanted(wanted) {}

    CRefPtr<IDUIControl> Clone() override { return new Brick(*this); }
    BOOL EstimateSize(SIZE available, SIZE& size) override
    {
        asked.push_back(std::to_string(available.cx) + "x" + std::to_string(available.cy));
        if (answers)
            size = m_wanted;
        return answers;
    }
    void SetControlRect(const RECT& rect) override
    {
        ++placed;
        CDUIControlBase::SetControlRect(rect);
    }

    std::vector<std::string> asked;  // the spaces it was offered
    int placed = 0;
    bool answers = true;

protected:
    Brick(const Brick& other) : CDUIControlBase(other), m_wanted(other.m_wanted) {}

private:
    SIZE m_wanted{0, 0};
};

/// Adds a brick; the result is borrowed from the container.
Brick* AddBrick(IDUIControl& container, SIZE wanted)
{
    Brick* const brick = new Brick(wanted);
    container.AddControl(brick);
    return brick;
}

TEST_F(Layout, LinearOnesAskForWhatIsLeftAndPlaceOnce)
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

TEST_F(Layout, AScrollBarHasTheBreadthOfItsStyle)
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
TEST_F(Layout, NestsDeeply)
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

TEST_F(Layout, TilesAreAskedForColumnsInTheWholeSpaceAndForRowsInAColumn)
{
    CRefPtr<CDUITileLayout> tiles = new CDUITileLayout;
    Brick* const wide = AddBrick(*tiles.GetPtr(), {50, 10});
    Brick* const silent = AddBrick(*tiles.GetPtr(), {900, 900});
    silent->answers = false;
    tiles->SetControlRect({0, 0, 100, 80});
    EXPECT_EQ(wide->asked, (std::vector<std::string>{"100x80", "50x32767"}));
    EXPECT_EQ(Text(wide->GetControlRect()), "0,0,50,10");
    EXPECT_EQ(Text(silent->GetControlRect()), "50,0,100,10");
}

TEST_F(Layout, AGivenStyleCountsForTheBarThatIsThere)
{
    SkinAdditions additions;
    additions.controlStyles = R"(<control_style name="wide" width="20"/>)";
    UseSkin(additions);
    ControlWindow window(
        {100, 100},
        R"(<tile_layout column_count="1" vscroll_style="wide"><canvas height="150"/></tile_layout>)");
    auto& tiles = window.Root<CDUITileLayout>();
    EXPECT_EQ(tiles.GetVerticalSB()->GetFixedSize().cx, 10) << "dropped: there was none yet";
    tiles.SetAttribute("vscroll_style", "wide");
    EXPECT_EQ(tiles.GetVerticalSB()->GetFixedSize().cx, 20);
    const CRefPtr<IDUIControl> copy = tiles.Clone();
    CDUIVerticalSB* const copied = dynamic_cast<CDUITileLayout*>(copy.GetPtr())->GetVerticalSB();
    ASSERT_NE(copied, nullptr);
    EXPECT_NE(copied, tiles.GetVerticalSB());
    EXPECT_EQ(copied->GetScrollOwner(), copy.GetPtr());
    ControlWindow other({100, 100}, copy);
    EXPECT_EQ(copied->GetFixedSize().cx, 10) << "every attaching sets the usual style";
}

TEST_F(Layout, ALayoutWithoutAChangeMovesNoSplitter)
{
    for (const char* style : {"", "size_left", "size_right", "size_all"}) {
        const CRefPtr<CDUISplitBase> split = new CDUIHorizontalSplit;
        AddBrick(*split.GetPtr(), {0, 0});
        AddBrick(*split.GetPtr(), {0, 0});
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

// Outside the window, and back after a release out there
TEST_F(Layout, ASplitterIsDraggedByAPerson)
{
    ControlWindow window(
        {410, 50},
        R"(<horz_split split_pos="63" split_min="60,80" margin="10,0,0,0"><canvas/><canvas/></horz_split>)");
    const auto& split = window.Root<CDUISplitBase>();
    SyntheticInput person;
    const auto at = [&window](int x) { return SyntheticInput::At(window.Handle(), x, 20); };
    person.MoveTo(at(75)).Press().MoveTo(at(200)).MoveTo(at(500));
    EXPECT_EQ(split.GetSplitPos(), 315);
    person.Release().MoveTo(at(200)).MoveTo(at(327)).MoveTo(at(300));
    EXPECT_EQ(split.GetSplitPos(), 315);
}

// Dialogs in dialogs: the first layout must not double its work at every level.
TEST_F(Layout, NestedDialogsLayOutTheirChildrenOnce)
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

TEST_F(Layout, ADockLayoutOffersWhatIsFree)
{
    CRefPtr<CDUIDockLayout> dock = new CDUIDockLayout;
    Brick* const left = AddBrick(*dock.GetPtr(), {30, 10});
    Brick* const rest = AddBrick(*dock.GetPtr(), {10, 10});
    left->ModifyExStyle(0, DUIEXSTYLE_DOCK_LEFT);
    dock->SetControlRect({0, 0, 100, 80});
    EXPECT_EQ(left->asked, (std::vector<std::string>{"100x80"}));
    EXPECT_EQ(rest->asked, (std::vector<std::string>{"70x80"}));
}

}  // namespace
}  // namespace qvui::test
