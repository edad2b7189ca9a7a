#include <qvui/bars/tab_bar.h>
#include <qvui/bars/tab_layout.h>

#include <algorithm>
#include <sstream>

#include "layout/shapes.h"
#include "support/controls/control_test.h"

namespace qvui::test {
namespace {

using namespace DUI;
using Strings = std::vector<std::string>;
using Horizontal = CDUITabBar<CDUIHorizontalLayout>;

class TabBar : public ControlTest {
protected:
    // Four tabs of 50 pixels over four pages, each with a button; the second tab is hidden, the third
    // disabled.
    static std::string Window(const std::string& barAttributes = "", const std::string& pagesAttributes = "")
    {
        return "<vert_layout><horz_tabbar name=\"bar\" height=\"20\" " + barAttributes + R"(>
            <tab_item name="one" width="50"/><tab_item name="two" width="50" visible="false"/>
            <tab_item name="three" width="50" enable="false"/><tab_item name="four" width="50"/>
            <tab_item name="five" width="50"/></horz_tabbar>
            <tab_layout name="pages" )" +
               pagesAttributes +
               R"(><button name="p1"/><button name="p2"/><button name="p3"/><button name="p4"/>
            <button name="p5"/></tab_layout></vert_layout>)";
    }
    static Horizontal& Bar(ControlWindow& window) { return *window.Find<Horizontal>("bar"); }
    static int Page(ControlWindow& window) { return window.Find<CDUITabLayout>("pages")->GetSelectIndex(); }
    static std::string Focus(ControlWindow& window)
    {
        return window.GetFocusControl() ? std::string(window.GetFocusControl()->GetName()) : "";
    }
    // The names of the bar's children that are checked, and of those that are tab stops.
    static std::string WithBit(ControlWindow& window, bool isStatus, DWORD bit)
    {
        std::string names;
        for (int i = 0; i < Bar(window).GetControlCount(); ++i) {
            IDUIControl* const item = Bar(window).GetControlByIndex(i);
            if ((isStatus ? item->GetStatus() : item->GetStyle()) & bit)
                AddWord(names, item->GetName().GetString());
        }
        return names;
    }
    static std::string Selected(ControlWindow& window) { return WithBit(window, true, DUISTATUS_CHECKED); }
    static std::string TabStops(ControlWindow& window) { return WithBit(window, false, DUISTYLE_TABSTOP); }
    // "one four" for the notifications of those tabs.
    static std::string Activated(ControlWindow& window)
    {
        std::string names;
        for (const Noticed& noticed : window.TakeNotifications()) {
            EXPECT_EQ(noticed, (Noticed{DUINOTIFY_TABACTIVATE, noticed.sender, 1, 0}));
            AddWord(names, noticed.sender);
        }
        return names;
    }
};

TEST_F(TabBar, FindsATabLayoutThatCameLater)
{
    ControlWindow window({400, 100}, R"(<vert_layout name="root"/>)");
    window.GetControlByName("root", TRUE);
    const CRefPtr<IDUIControl> page = CDUIControlBuilder(nullptr).CreateFromXML(R"(<window><vert_layout>
        <horz_tabbar tab_layout="late"><tab_item/><tab_item name="b"/></horz_tabbar>
        <vert_layout><tab_layout name="late"><canvas/><canvas/></tab_layout></vert_layout></vert_layout></window>)");
    window.GetRootControl()->AddControl(page);
    window.GetRootControl()->GetControlByIndex(0)->GetControlByIndex(0)->GetControlByIndex(1)->Activate();
    EXPECT_EQ(window.Find<CDUITabLayout>("late")->GetSelectIndex(), 1);
}

// Tabs "a", "b", ... over pages of the same names with capitals, with the tab of that name selected.
class TabsAndPages {
public:
    TabsAndPages(int count, const std::string& selected)
        : m_window({400, 100},
                   "<vert_layout><horz_tabbar name=\"bar\"/><tab_layout name=\"pages\"/></vert_layout>"),
          m_bar(*m_window.Find<Horizontal>("bar")),
          m_pages(*m_window.Find<CDUITabLayout>("pages"))
    {
        for (char name = 'a'; name < 'a' + count; ++name)
            Do(std::string("+") + name + "9 +" + static_cast<char>(name - 32) + "9");
        m_window.Find(selected.c_str())->Activate();
        m_window.TakeNotifications();
    }

    // "-a": removes the tab, "-A" the page; "+a1" adds at an index or at the end, ">a0" moves.
    void Do(const std::string& deeds)
    {
        std::istringstream words(deeds);
        for (std::string deed; words >> deed; Check(deed)) {
            const bool isPage = deed[1] < 'a';
            IDUIControl& owner = isPage ? static_cast<IDUIControl&>(m_pages) : m_bar;
            const std::string name = deed.substr(1, 1);
            CRefPtr<IDUIControl> child;
            if (deed[0] != '+')
                child = m_window.Find(name.c_str());
            else if (isPage)
                child = new CDUICanvas;
            else
                child = new CDUITabItem;
            child->SetName(name.c_str());
            if (deed[0] == '-')
                owner.RemoveControl(child);
            else if (deed[0] == '>')
                owner.SetControlIndex(child, deed[2] - '0');
            else if (!owner.AddControlAt(deed[2] - '0', child))
                owner.AddControl(child);
        }
    }

    // "a": the selected tab and the shown page, where they belong together; "a B" where they do not.
    std::string State()
    {
        const std::string tab = Selected();
        const std::string page = Shown();
        return tab.size() == 1 && page.size() == 1 && tab[0] == page[0] + 32 ? tab : tab + " " + page;
    }
    ControlWindow& Window() { return m_window; }

private:
    // One tab and one page, of those that there are, at every moment.
    void Check(const std::string& deed)
    {
        EXPECT_EQ(Selected().size(), m_bar.GetControlCount() > 0 ? 1u : 0u) << deed;
        EXPECT_EQ(Shown().size(), m_pages.GetControlCount() > 0 ? 1u : 0u) << deed;
    }
    std::string Selected()
    {
        std::string names;
        for (const CRefPtr<IDUIControl>& tab : m_bar.GetChildren())
            names += (tab->GetStatus() & DUISTATUS_CHECKED) ? tab->GetName().GetString() : "";
        return names;
    }
    std::string Shown()
    {
        std::string names;
        for (const CRefPtr<IDUIControl>& page : m_pages.GetChildren())
            names += page->IsVisible(FALSE) ? page->GetName().GetString() : "";
        return names;
    }

    ControlWindow m_window;
    Horizontal& m_bar;
    CDUITabLayout& m_pages;
};

TEST_F(TabBar, StaysWithItsPagesWhileBothComeAndGo)
{
    const struct {
        const char* selected;  // of a, b, c
        const char* deeds;
        const char* after;
    } cases[] = {
        {"b", "-b -B", "c"},   {"b", "-B -b", "c"},
        {"c", "-C -c", "b"},   {"c", "-c -C", "b"},
        {"b", "+x0 +X0", "b"}, {"b", "+X0 +x0", "b"},
        {"b", "+x9 +X9", "b"}, {"a", "-a -b -c -A -B -C +x9 +X9", "x"},
        {"b", ">b0 >B0", "b"}, {"b", ">B0 >b0", "b"},
        {"a", ">B0 >b0", "a"},
    };
    for (const auto& c : cases) {
        TabsAndPages both(3, c.selected);
        both.Do(c.deeds);
        EXPECT_EQ(both.State(), c.after) << c.selected << ": " << c.deeds;
        EXPECT_EQ(Activated(both.Window()), "") << "nobody's doing: " << c.deeds;
    }
    // Two are closed, their tabs and pages in whatever order.
    for (const std::string selected : {"a", "b", "c"})
        for (const char kept : {'a', 'b', 'c'}) {
            std::string closed = "abcABC";
            std::erase_if(closed, [kept](char name) { return name == kept || name == kept - 32; });
            std::sort(closed.begin(), closed.end());
            do {
                TabsAndPages both(3, selected);
                for (const char name : closed)
                    both.Do(std::string("-") + name);
                EXPECT_EQ(both.State(), std::string(1, kept)) << selected << ": " << closed;
            } while (std::next_permutation(closed.begin(), closed.end()));
        }
    // A page that comes for the selected tab, and one that the application selects.
    TabsAndPages both(2, "a");
    both.Do("+c9");
    both.Window().Find("c")->Activate();
    both.Do("+d9 +C9");
    EXPECT_EQ(both.State(), "c");
    both.Window().Find<CDUITabLayout>("pages")->SetSelectIndex(0);
    EXPECT_EQ(both.State(), "a");
}

TEST_F(TabBar, AHandlerMayEndTheBar)
{
    for (const bool byKey : {false, true}) {
        ControlWindow window({400, 100}, Window());
        window.OnNotify([&window](const tagDUINotify& notify) {
            if (notify.nCode == DUINOTIFY_TABACTIVATE)
                window.GetRootControl()->RemoveAllControl();
        });
        window.Find("one")->SetFocus(TRUE);
        if (byKey)
            window.keys.Press(VK_RIGHT);
        else
            window.mouse.Click({110, 10});
        EXPECT_EQ(window.GetRootControl()->GetControlCount(), 0);
    }
    ControlWindow window({400, 100}, Window());
    window.OnNotify([&window](const tagDUINotify& notify) {
        if (notify.nCode == DUINOTIFY_TABACTIVATE)
            window.Close();
    });
    window.mouse.Click({110, 10});
    EXPECT_FALSE(IsWindow(window.Handle()));
}

TEST_F(TabBar, AHandlerMaySelectAnotherTab)
{
    ControlWindow window({400, 100}, Window());
    window.OnNotify([&window](const tagDUINotify& notify) {
        if (notify.pSender->GetName() == "four")
            Bar(window).SetSelectIndex(4, TRUE);
    });
    window.mouse.Click({110, 10});
    EXPECT_EQ(Selected(window), "five");
    EXPECT_EQ(Page(window), 4);
    EXPECT_EQ(Activated(window), "four five");
}

// What a tab tells its parent, whatever that is.
class Listener : public CDUIControlBase {
public:
    Strings heard;

protected:
    LRESULT ProcessEvent(const tagDUIEvent& event, BOOL& bHandled) override
    {
        if (event.pSender && event.pSender->GetParent() == this)
            heard.push_back(std::to_string(event.Type) + " " + event.pSender->GetName().GetString() + " " +
                            std::to_string(event.ptMouse.x));
        return CDUIControlBase::ProcessEvent(event, bHandled);
    }
};

TEST_F(TabBar, TabsTellTheirParentWhatHappens)
{
    const CRefPtr<Listener> listener = new Listener;
    const CRefPtr<CDUITabItem> item = new CDUITabItem;
    item->SetName("t");
    listener->AddControl(item.GetPtr());
    ControlWindow window({100, 50}, listener.GetPtr());
    window.mouse.MoveTo({10, 10});
    listener->heard.clear();
    window.mouse.MoveTo({20, 10}).Press();
    EXPECT_EQ(listener->heard, (Strings{"25 t 20"}));
    window.keys.Press(VK_LEFT);
    EXPECT_EQ(listener->heard.back().substr(0, 4), "19 t");
    window.mouse.Release().MoveTo({200, 10});
    EXPECT_EQ(listener->heard.back(), "28 t 200");
    window.mouse.MoveTo({30, 10});
    EXPECT_EQ(listener->heard.back(), "27 t 30");
    item->SetEnable(FALSE);
    listener->heard.clear();
    window.mouse.DoubleClick({40, 10});
    EXPECT_TRUE(listener->heard.empty());
}

}  // namespace
}  // namespace qvui::test
