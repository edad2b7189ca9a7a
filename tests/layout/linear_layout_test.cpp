#include <climits>

#include <qvui/framework/app.h>
#include <qvui/layout/linear_layout.h>

#include "layout/shapes.h"
#include "support/controls/control_test.h"

namespace qvui::test {
namespace {

using namespace DUI;

class LinearLayout : public ControlTest {};

RECT Transposed(const RECT& rect)
{
    return {rect.top, rect.left, rect.bottom, rect.right};
}

std::string PlacesAcross(const IDUIControl& container)
{
    std::string text;
    for (int i = 0; i < container.GetControlCount(); ++i)
        AddWord(text, Text(Transposed(container.GetControlByIndex(i)->GetControlRect())));
    return text;
}

int PositionOf(CDUIScrollBarBase& bar)
{
    SCROLLINFO info{};
    bar.GetScrollBarInfo(&info);
    return info.nPos;
}

void MoveBar(CDUIScrollBarBase& bar, int position)
{
    SCROLLINFO info{sizeof(SCROLLINFO), SIF_POS, 0, 0, 0, position, 0};
    bar.SetScrollBarInfo(&info);
}

// Every case in both directions: a horizontal layout is a vertical one with the axes exchanged.
TEST_F(LinearLayout, PlacesItsVisibleChildren)
{
    struct Child {
        LONG length;
        bool isVisible = true;
    };
    struct Case {
        const char* name;
        RECT rect;
        RECT margin;
        int padding;
        std::vector<Child> children;
        const char* places;  // of the vertical layout
    };
    const Case cases[] = {
        {"across the whole content, whatever they ask for",
         {10, 20, 60, 120},
         {},
         0,
         {{30}, {0}},
         "10,20,60,50 10,50,60,120"},
        {"within the margin", {0, 0, 100, 100}, {1, 2, 3, 4}, 5, {{30}, {0}}, "1,2,97,32 1,37,97,96"},
        {"hidden children take no part and no gap",
         {0, 0, 50, 100},
         {},
         10,
         {{30}, {20, false}, {0}},
         "0,0,50,30 7,7,8,8 0,40,50,100"},
        {"the last visible one is lengthened",
         {0, 0, 50, 100},
         {},
         0,
         {{30}, {20}, {0, false}},
         "0,0,50,30 0,30,50,100 7,7,8,8"},
        {"too little space", {0, 0, 50, 40}, {}, 0, {{30}, {0}, {30}}, "0,0,50,30 0,30,50,30 0,30,50,60"},
        {"an empty content goes to all, hidden ones too",
         {10, 20, 60, 120},
         {30, 0, 30, 0},
         0,
         {{30}, {0, false}},
         "10,20,10,20 10,20,10,20"},
        {"margins beyond all numbers",
         {0, 0, 50, 50},
         {INT_MAX, INT_MAX, INT_MAX, INT_MAX},
         0,
         {{30}},
         "0,0,0,0"},
        {"only hidden children", {0, 0, 50, 50}, {}, 5, {{30, false}}, "7,7,8,8"},
    };
    for (const Case& c : cases) {
        CRefPtr<CDUIVerticalLayout> vertical = new CDUIVerticalLayout;
        CRefPtr<CDUIHorizontalLayout> horizontal = new CDUIHorizontalLayout;
        vertical->SetMargin(c.margin);
        horizontal->SetMargin(Transposed(c.margin));
        for (CDUICanvas* const layout :
             {static_cast<CDUICanvas*>(vertical.GetPtr()), static_cast<CDUICanvas*>(horizontal.GetPtr())}) {
            layout->SetPaddingWidth(c.padding);
            for (const Child& child : c.children) {
                Brick* const brick = AddBrick(
                    *layout, layout == vertical.GetPtr() ? SIZE{900, child.length} : SIZE{child.length, 900});
                brick->SetControlRect({7, 7, 8, 8});
                brick->SetVisible(child.isVisible);
            }
        }
        vertical->SetControlRect(c.rect);
        horizontal->SetControlRect(Transposed(c.rect));
        EXPECT_EQ(PlacesOf(*vertical.GetPtr()), c.places) << c.name;
        EXPECT_EQ(PlacesAcross(*horizontal.GetPtr()), c.places) << c.name << ", horizontal";
    }
}

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

// How a scrolling layout of both kinds looks in a window of 100x100: an item's length and breadth, and its
// bar.
struct Direction {
    const char* tag;
    const char* length;
    bool isVertical;

    std::string Window(const char* attributes, std::initializer_list<int> lengths) const
    {
        std::string text = std::string("<") + tag + " " + attributes + ">";
        for (const int item : lengths)
            text += std::string("<canvas name=\"n\" ") + length + "=\"" + std::to_string(item) + "\"/>";
        return text + "</" + tag + ">";
    }
    std::string Places(const IDUIControl& layout) const
    {
        return isVertical ? PlacesOf(layout) : PlacesAcross(layout);
    }
    CDUIScrollBarBase* Bar(IDUIControl* layout) const
    {
        auto* const base = dynamic_cast<CDUIControlBase*>(layout);
        return isVertical ? static_cast<CDUIScrollBarBase*>(base->GetVerticalSB()) : base->GetHorizontalSB();
    }
};
constexpr Direction kDirections[] = {{"vert_layout", "height", true}, {"horz_layout", "width", false}};

TEST_F(LinearLayout, ScrollsWhatDoesNotFit)
{
    for (const Direction& direction : kDirections) {
        SCOPED_TRACE(direction.tag);
        ControlWindow window({100, 100}, direction.Window("enable_scroll=\"TRUE\" padding=\"10\"", {80, 80}));
        IDUIControl& layout = *window.GetRootControl();
        CDUIScrollBarBase* const bar = direction.Bar(&layout);
        ASSERT_NE(bar, nullptr);
        // 10 pixels thick, from the skin's style.
        EXPECT_EQ(direction.Places(layout), "0,0,90,80 0,90,90,170");
        const RECT place = bar->GetControlRect();
        EXPECT_EQ(Text(direction.isVertical ? place : Transposed(place)), "90,0,100,100");

        layout.GetControlByIndex(0)->SetFocus(TRUE);
        window.mouse.MoveTo({10, 10}).Wheel(-1);
        EXPECT_EQ(PositionOf(*bar), 70);
        EXPECT_EQ(direction.Places(layout), "0,-70,90,10 0,20,90,100");
        MoveBar(*bar, 40);
        layout.UpdateLayout(TRUE, nullptr);
        EXPECT_EQ(direction.Places(layout), "0,-40,90,40 0,50,90,130");

        window.Resize({200, 200});
        EXPECT_FALSE(bar->IsVisible(FALSE));
        EXPECT_EQ(direction.Places(layout), "0,0,200,80 0,90,200,200");
        window.Resize({100, 100});
        EXPECT_TRUE(bar->IsVisible(FALSE));
        EXPECT_EQ(direction.Places(layout), "0,0,90,80 0,90,90,170");
    }
}

TEST_F(LinearLayout, HasAScrollBarOnlyWhenEnabledBeforeItIsAttached)
{
    for (const Direction& direction : kDirections) {
        SCOPED_TRACE(direction.tag);
        for (const char* value : {"yes", "1", "false", ""}) {
            ControlWindow window(
                {100, 100},
                direction.Window((std::string("enable_scroll=\"") + value + "\"").c_str(), {80, 80}));
            EXPECT_EQ(direction.Bar(window.GetRootControl()), nullptr) << value;
            window.GetRootControl()->SetAttribute("enable_scroll", "true");
            window.LayoutRootControl();
            EXPECT_EQ(direction.Bar(window.GetRootControl()), nullptr) << value;
            EXPECT_EQ(direction.Places(*window.GetRootControl()), "0,0,100,80 0,80,100,160") << value;
        }
        DUIGetAppInstance()->GetControlFactory()->UnregisterControl("vert_scrollbar");
        DUIGetAppInstance()->GetControlFactory()->UnregisterControl("horz_scrollbar");
        ControlWindow window({100, 100}, direction.Window("enable_scroll=\"true\"", {80, 80}));
        EXPECT_EQ(direction.Bar(window.GetRootControl()), nullptr);
        UseSkin({});
    }
}

TEST_F(LinearLayout, WithoutChildrenLeavesItsScrollBarAlone)
{
    ControlWindow window({100, 100}, R"(<vert_layout enable_scroll="true"/>)");
    auto& layout = *dynamic_cast<CDUIVerticalLayout*>(window.GetRootControl());
    layout.SetControlRect({0, 0, 50, 50});
    EXPECT_EQ(Text(layout.GetControlRect()), "0,0,50,50");
    EXPECT_TRUE(layout.GetVerticalSB()->IsVisible(FALSE));
    EXPECT_EQ(Text(layout.GetVerticalSB()->GetControlRect()), "0,0,0,0");
}

TEST_F(LinearLayout, ACopyScrollsByABarOfItsOwn)
{
    for (const Direction& direction : kDirections) {
        SCOPED_TRACE(direction.tag);
        ControlWindow window({100, 100}, direction.Window("enable_scroll=\"true\"", {80, 80}));
        const CRefPtr<IDUIControl> copy = window.GetRootControl()->Clone();
        ASSERT_NE(direction.Bar(copy.GetPtr()), nullptr);
        EXPECT_EQ(direction.Bar(copy.GetPtr())->GetScrollOwner(), copy.GetPtr()) << "before it has a window";
        CDUIScrollBarBase* const bar = direction.Bar(window.GetRootControl());
        {
            ControlWindow other({100, 100}, copy);
            CDUIScrollBarBase* const otherBar = direction.Bar(copy.GetPtr());
            ASSERT_NE(otherBar, nullptr);
            EXPECT_NE(otherBar, bar);
            copy->GetControlByIndex(0)->SetFocus(TRUE);
            other.mouse.MoveTo({10, 10}).Wheel(-1);
            EXPECT_EQ(PositionOf(*otherBar), 60);
        }
        EXPECT_EQ(direction.Bar(copy.GetPtr()), nullptr) << "released with the window";
        EXPECT_EQ(bar->GetScrollOwner(), window.GetRootControl());
        window.GetRootControl()->GetControlByIndex(0)->SetFocus(TRUE);
        window.mouse.MoveTo({10, 10}).Wheel(-1);
        EXPECT_EQ(PositionOf(*bar), 60);
    }
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
