#include <qvui/bars/tab_bar.h>
#include <qvui/bars/tab_layout.h>

#include <algorithm>

#include "support/controls/control_test.h"

namespace qvui::test {
namespace {

using namespace DUI;

class TabBar : public ControlTest {
protected:
    /// The names of those children that are selected tabs or shown pages.
    template <class IsChosen>
    static std::string Chosen(ControlWindow& window, const char* parent, IsChosen isChosen)
    {
        std::string names;
        IDUIControl* const control = window.Find(parent);
        for (int i = 0; i < control->GetControlCount(); ++i)
            if (isChosen(*control->GetControlByIndex(i)))
                names += control->GetControlByIndex(i)->GetName().GetString();
        return names;
    }
    /// One tab and one page, of those that there are.
    static std::string Chosen(ControlWindow& window)
    {
        const std::string tab = Chosen(
            window, "bar", [](IDUIControl& item) { return (item.GetStatus() & DUISTATUS_CHECKED) != 0; });
        const std::string page =
            Chosen(window, "pages", [](IDUIControl& item) { return item.IsVisible(FALSE); });
        EXPECT_EQ(tab.size(), 1u);
        EXPECT_EQ(page.size(), 1u);
        return tab + page;
    }
};

// Two of three are closed, their tabs and pages in whatever order.
TEST_F(TabBar, StaysWithItsPagesWhileBothGo)
{
    for (const char* const selected : {"a", "b", "c"})
        for (const char kept : {'a', 'b', 'c'}) {
            std::string closed = "ABCabc";
            std::erase_if(closed, [kept](char name) { return name == kept || name == kept - 32; });
            do {
                SCOPED_TRACE(std::string(selected) + ": " + closed);
                ControlWindow window(
                    {400, 100},
                    "<vert_layout><horz_tabbar name='bar'><tab_item name='a'/><tab_item name='b'/>"
                    "<tab_item name='c'/></horz_tabbar><tab_layout name='pages'><canvas name='A'/>"
                    "<canvas name='B'/><canvas name='C'/></tab_layout></vert_layout>");
                window.Find(selected)->Activate();
                for (const char name : closed) {
                    window.Find(name < 'a' ? "pages" : "bar")
                        ->RemoveControl(window.Find(std::string(1, name).c_str()));
                    Chosen(window);
                }
                EXPECT_EQ(Chosen(window), std::string({kept, static_cast<char>(kept - 32)}));
            } while (std::next_permutation(closed.begin(), closed.end()));
        }
}

}  // namespace
}  // namespace qvui::test
