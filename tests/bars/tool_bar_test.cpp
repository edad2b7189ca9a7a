#include <qvui/bars/tool_bar.h>
#include <qvui/controls/button.h>

#include "layout/shapes.h"
#include "support/controls/control_test.h"
#include "support/synthetic_input.h"

namespace qvui::test {
namespace {

using namespace DUI;
using Horizontal = CDUIToolBar<CDUIHorizontalLayout>;

const char* const kTools = R"(
    <button name="new" width="30" tooltip="#New" icon="dot"/><button name="open" width="30" tooltip="#Open"/>
    <toolbar_separator name="line"/><button name="bold" width="30" tooltip="#Bold" toolbar_style="check"/>
    <button name="find" width="30" text="#Find"/>)";

std::string ToolWindow(const std::string& attributes = "")
{
    return "<window frame_style=\"blue\"><vert_layout><horz_toolbar name=\"bar\" height=\"20\" " +
           attributes + ">" + kTools + R"(</horz_toolbar><button name="rest"/></vert_layout></window>)";
}

// New, open, line (9), bold and find are 129 pixels long; the overflow button is 20.
constexpr SIZE kWide{200, 60};
constexpr SIZE kNarrow{90, 60};
constexpr POINT kOverflow{80, 10};

class ToolBar : public ControlTest {
protected:
    static Horizontal& Bar(ControlWindow& window) { return *window.Find<Horizontal>("bar"); }
    static std::string Focus(ControlWindow& window)
    {
        if (!window.GetFocusControl())
            return "";
        const CString name = window.GetFocusControl()->GetName();
        return name.IsEmpty() ? "overflow" : std::string(name);
    }
    static std::string Clicked(ControlWindow& window)
    {
        std::string names;
        for (const Noticed& noticed : window.TakeNotifications())
            if (noticed.code == DUINOTIFY_CLICK)
                AddWord(names, noticed.sender);
        return names;
    }
};

// The list that a bar has opened: a window of the library's own, which is the active one.
class OpenMenu {
public:
    explicit OpenMenu(ControlWindow& owner)
        : m_window(GetActiveWindow() == owner.Handle() ? nullptr : GetActiveWindow())
    {
    }

    HWND Handle() const { return m_window; }
    bool IsOpen() const { return m_window && IsWindow(m_window) && IsWindowVisible(m_window); }
    RECT Place() const
    {
        RECT rect{};
        GetWindowRect(m_window, &rect);
        return rect;
    }
    // A point of an entry of `count`, client coordinates: within the border and the margin of 4 pixels.
    POINT Entry(int index, int count) const
    {
        RECT client{};
        GetClientRect(m_window, &client);
        return {client.right / 2, 4 + (client.bottom - 8) * (2 * index + 1) / (2 * count)};
    }
    void Key(WPARAM key) const
    {
        SendMessageA(m_window, WM_KEYDOWN, key, 0);
        if (IsWindow(m_window))
            SendMessageA(m_window, WM_KEYUP, key, 0);
    }

private:
    HWND m_window;
};

TEST_F(ToolBar, ListsWhatDoesNotFit)
{
    ControlWindow window(kNarrow, ToolWindow());
    window.mouse.Click(kOverflow);
    const OpenMenu menu(window);
    ASSERT_TRUE(menu.IsOpen());
    POINT below{70, 20};
    ClientToScreen(window.Handle(), &below);
    EXPECT_EQ(menu.Place().left, below.x);
    EXPECT_EQ(menu.Place().top, below.y) << "below the button";

    MessagePointer(menu.Handle()).Click(menu.Entry(1, 2));
    Pump();
    EXPECT_FALSE(menu.IsOpen());
    EXPECT_EQ(Clicked(window), "find") << "only the item is reported";
    EXPECT_EQ(Focus(window), "overflow");

    window.mouse.Click(kOverflow);
    const OpenMenu again(window);
    ASSERT_TRUE(again.IsOpen());
    MessagePointer(again.Handle()).Click(again.Entry(0, 2));
    EXPECT_EQ(Clicked(window), "bold");
    EXPECT_TRUE(window.Find<CDUIButton>("bold")->GetCheck());
}

TEST_F(ToolBar, TheListAnswersTheKeyboard)
{
    struct Case {
        const char* name;
        std::vector<WPARAM> keys;
        const char* clicked;
        bool isOpen;
    };
    const Case cases[] = {
        {"Enter takes the first", {VK_RETURN}, "bold", false},
        {"down", {VK_DOWN, VK_RETURN}, "find", false},
        {"round at the end", {VK_DOWN, VK_DOWN, VK_RETURN}, "bold", false},
        {"round at the start", {VK_UP, VK_RETURN}, "find", false},
        {"last", {VK_END, VK_RETURN}, "find", false},
        {"first", {VK_END, VK_HOME, VK_RETURN}, "bold", false},
        {"Space", {VK_SPACE}, "bold", false},
        {"Escape", {VK_ESCAPE}, "", false},
        {"Tab", {VK_TAB}, "", false},
        {"a key that means nothing", {'X'}, "", true},
    };
    for (const Case& c : cases) {
        ControlWindow window(kNarrow, ToolWindow());
        window.Find("new")->SetFocus(TRUE);
        window.keys.Press(VK_END).Press(VK_SPACE);
        const OpenMenu menu(window);
        ASSERT_TRUE(menu.IsOpen()) << c.name;
        for (const WPARAM key : c.keys)
            menu.Key(key);
        EXPECT_EQ(menu.IsOpen(), c.isOpen) << c.name;
        EXPECT_EQ(Clicked(window), c.clicked) << c.name;
        EXPECT_EQ(Focus(window), c.isOpen ? "" : "overflow") << c.name;
    }
}

TEST_F(ToolBar, TheListSkipsDisabledItems)
{
    ControlWindow window(kNarrow, ToolWindow());
    window.Find("bold")->SetEnable(FALSE);
    window.Find("new")->SetFocus(TRUE);
    window.keys.Press(VK_END).Press(VK_SPACE);
    const OpenMenu menu(window);
    MessagePointer(menu.Handle()).Click(menu.Entry(0, 2));
    EXPECT_TRUE(menu.IsOpen());
    EXPECT_EQ(Clicked(window), "");
    menu.Key(VK_DOWN);
    menu.Key(VK_RETURN);
    EXPECT_EQ(Clicked(window), "find");
}

TEST_F(ToolBar, TheListClosesWhenSomethingElseHappens)
{
    struct Case {
        const char* name;
        void (*happen)(ControlWindow&);
    };
    const Case cases[] = {
        {"another window becomes active", [](ControlWindow& window) { SetActiveWindow(window.Handle()); }},
        {"the window is resized", [](ControlWindow& window) { window.Resize(kWide); }},
        {"the application closes it", [](ControlWindow& window) { Bar(window).CloseOverflow(); }},
        {"the bar goes", [](ControlWindow& window) { window.GetRootControl()->RemoveAllControl(); }},
        {"the window goes", [](ControlWindow& window) { window.Close(); }},
    };
    for (const Case& c : cases) {
        ControlWindow window(kNarrow, ToolWindow());
        EXPECT_TRUE(Bar(window).OpenOverflow());
        const OpenMenu menu(window);
        ASSERT_TRUE(menu.IsOpen()) << c.name;
        EXPECT_FALSE(Bar(window).OpenOverflow()) << c.name;
        c.happen(window);
        Pump();
        EXPECT_FALSE(menu.IsOpen()) << c.name;
    }
    ControlWindow window(kWide, ToolWindow());
    EXPECT_FALSE(Bar(window).OpenOverflow()) << "everything has room";
}

TEST_F(ToolBar, APressOnItsButtonClosesTheList)
{
    ControlWindow window(kNarrow, ToolWindow());
    for (const bool opens : {true, false, true}) {
        // As the system does it: the press makes its window the active one first.
        SetActiveWindow(window.Handle());
        window.mouse.Press(kOverflow);
        Pump();
        window.mouse.Release();
        Pump();
        EXPECT_EQ(OpenMenu(window).IsOpen(), opens);
    }
}

// The whole way of a person's input: hit tests, activation and focus of both windows.
TEST_F(ToolBar, ThePointerOpensClosesAndChooses)
{
    ControlWindow window(kNarrow, ToolWindow());
    SyntheticInput input;
    const POINT button = SyntheticInput::At(window.Handle(), kOverflow.x, kOverflow.y);
    for (const bool opens : {true, false, true}) {
        input.Click(button);
        EXPECT_EQ(OpenMenu(window).IsOpen(), opens);
    }
    input.Click(SyntheticInput::At(window.Handle(), 20, 50));
    EXPECT_FALSE(OpenMenu(window).IsOpen()) << "a press elsewhere";
    window.TakeNotifications();

    input.Click(button);
    const OpenMenu menu(window);
    ASSERT_TRUE(menu.IsOpen());
    const POINT entry = menu.Entry(1, 2);
    input.Click(SyntheticInput::At(menu.Handle(), entry.x, entry.y));
    EXPECT_EQ(Clicked(window), "find");
    EXPECT_EQ(GetActiveWindow(), window.Handle());
    input.PressKey(VK_SPACE);
    EXPECT_TRUE(OpenMenu(window).IsOpen()) << "the button has the focus again";
    input.PressKey(VK_ESCAPE);
    EXPECT_FALSE(OpenMenu(window).IsOpen());
}

TEST_F(ToolBar, AChoiceMayEndTheWindow)
{
    ControlWindow window(kNarrow, ToolWindow());
    window.OnNotify([&window](const tagDUINotify& notify) {
        if (notify.nCode == DUINOTIFY_CLICK)
            window.Close();
    });
    window.mouse.Click(kOverflow);
    const OpenMenu menu(window);
    MessagePointer(menu.Handle()).Click(menu.Entry(0, 2));
    EXPECT_FALSE(menu.IsOpen());
    EXPECT_FALSE(IsWindow(window.Handle()));
}

TEST_F(ToolBar, ItemsComeAndGo)
{
    ControlWindow window(kWide, ToolWindow());
    const CRefPtr<CDUIButton> extra = new CDUIButton;
    extra->SetName("extra");
    extra->SetFixedWidth(30);
    Bar(window).AddControl(extra.GetPtr());
    EXPECT_FALSE(extra->GetStyle() & DUISTYLE_TABSTOP);
    window.Find("new")->SetFocus(TRUE);
    window.keys.Press(VK_LEFT);
    EXPECT_EQ(Focus(window), "extra");

    Bar(window).RemoveControl(extra.GetPtr());
    EXPECT_TRUE(extra->GetStyle() & DUISTYLE_TABSTOP) << "its own again";
    window.GetRootControl()->AddControl(extra.GetPtr());
    extra->SetFocus(TRUE);
    window.keys.Press(VK_LEFT);
    EXPECT_EQ(Focus(window), "extra") << "no key of the bar's any more";

    const CRefPtr<IDUIControl> open = window.Find("open");
    Bar(window).RemoveAllControl();
    EXPECT_TRUE(open->GetStyle() & DUISTYLE_TABSTOP);
    Bar(window).AddControl(open);
    Bar(window).AddControl(extra.GetPtr());
    EXPECT_EQ(Text(open->GetControlRect()), "0,0,30,20");
}

}  // namespace
}  // namespace qvui::test
