#include <qvui/bars/tab_layout.h>

#include "layout/shapes.h"
#include "support/controls/control_test.h"

namespace qvui::test {
namespace {

using namespace DUI;

class TabLayout : public ControlTest {};

CDUITabLayout& Tabs(ControlWindow& window)
{
    return *window.Find<CDUITabLayout>("tabs");
}

// "+" for a page that is shown, "-" for one that is not.
std::string Shown(const IDUIControl& tabs)
{
    std::string text;
    for (int i = 0; i < tabs.GetControlCount(); ++i)
        text += tabs.GetControlByIndex(i)->IsVisible(FALSE) ? '+' : '-';
    return text;
}

std::string Window(const char* attributes)
{
    return std::string("<tab_layout name=\"tabs\" margin=\"1,2,3,4\" ") + attributes +
           R"(><vert_layout><button name="a"/></vert_layout><vert_layout><button name="b"/></vert_layout>)"
           R"(<canvas visible="false"/></tab_layout>)";
}

TEST_F(TabLayout, ShowsTheSelectedPageWhenItIsAttached)
{
    struct Case {
        const char* index;
        const char* shown;
        int selected;
    };
    const Case cases[] = {
        {"", "+--", 0}, {"1", "-+-", 1}, {"2 pages", "--+", 2}, {"7", "++-", 7}, {"-1", "++-", -1}};
    for (const Case& c : cases) {
        ControlWindow window({100, 60}, Window((std::string("select_index=\"") + c.index + "\"").c_str()));
        EXPECT_EQ(Shown(Tabs(window)), c.shown) << c.index;
        EXPECT_EQ(Tabs(window).GetSelectIndex(), c.selected) << c.index;
        EXPECT_EQ(PlacesOf(Tabs(window)), "1,2,97,56 1,2,97,56 1,2,97,56") << "hidden pages too";
    }
}

TEST_F(TabLayout, SwitchesWithoutANewLayout)
{
    ControlWindow window({100, 60}, Window(""));
    EXPECT_EQ(Tabs(window).SetSelectIndex(0), 0) << "selected already";
    EXPECT_EQ(Tabs(window).SetSelectIndex(3), 0) << "no such page";
    EXPECT_EQ(Tabs(window).SetSelectIndex(-1), 0);
    EXPECT_EQ(Shown(Tabs(window)), "+--");

    window.Validate();
    auto* const page = Tabs(window).GetControlByIndex(1);
    page->SetControlRect({5, 5, 6, 6});
    EXPECT_EQ(Tabs(window).SetSelectIndex(1), 1);
    EXPECT_EQ(Shown(Tabs(window)), "-+-");
    EXPECT_EQ(Text(page->GetControlRect()), "5,5,6,6") << "the page keeps the place it has";
    EXPECT_EQ(Text(window.Invalid()), "0,0,100,60");
    EXPECT_TRUE(window.TakeNotifications().empty());
    // The lock has been taken off again.
    page->UpdateLayout(TRUE, nullptr);
    EXPECT_EQ(Text(page->GetControlRect()), "1,2,97,56");
}

TEST_F(TabLayout, TakesTheFocusFromWhatItHides)
{
    ControlWindow window({100, 60}, Window(""));
    window.Find("a")->SetFocus(TRUE);
    Tabs(window).SetSelectIndex(2);
    EXPECT_EQ(window.GetFocusControl(), nullptr);
    Tabs(window).SetSelectIndex(1);
    window.Find("b")->SetFocus(TRUE);
    Tabs(window).SetSelectIndex(0);
    EXPECT_EQ(window.GetFocusControl(), nullptr);
    window.Find("b")->SetVisible(TRUE);
    window.Find("a")->SetFocus(TRUE);
    Tabs(window).SetSelectIndex(1);
    EXPECT_EQ(window.GetFocusControl(), nullptr);
}

// What loses the focus to a switch switches on.
class Switcher : public CDUIControlBase {
public:
    CDUITabLayout* tabs = nullptr;

protected:
    LRESULT ProcessEvent(const tagDUIEvent& event, BOOL& bHandled) override
    {
        const LRESULT result = CDUIControlBase::ProcessEvent(event, bHandled);
        if (event.Type == DUIEVENT_KILLFOCUS)
            tabs->SetSelectIndex(2);
        return result;
    }
};

TEST_F(TabLayout, ASwitchInsideASwitchWins)
{
    ControlWindow window({100, 60}, Window(""));
    const CRefPtr<Switcher> switcher = new Switcher;
    switcher->tabs = &Tabs(window);
    Tabs(window).GetControlByIndex(0)->AddControl(switcher.GetPtr());
    switcher->SetFocus(TRUE);
    Tabs(window).SetSelectIndex(1);
    EXPECT_EQ(Tabs(window).GetSelectIndex(), 2);
    EXPECT_EQ(Shown(Tabs(window)), "--+");
}

TEST_F(TabLayout, ACopyShowsTheSamePage)
{
    ControlWindow window({100, 60}, Window("select_index=\"1\""));
    const CRefPtr<IDUIControl> copy = Tabs(window).Clone();
    copy->GetControlByIndex(1)->SetVisible(FALSE);
    ControlWindow other({100, 60}, copy);
    EXPECT_EQ(Shown(*copy.GetPtr()), "-+-");
}

}  // namespace
}  // namespace qvui::test
