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

}  // namespace
}  // namespace qvui::test
