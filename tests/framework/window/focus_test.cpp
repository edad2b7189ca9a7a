#include "support/controls/control_test.h"
#include "support/controls/probe.h"

namespace qvui::test {
namespace {

using namespace DUI;

class Focus : public ControlTest {
protected:
    Focus() { Probe::Register(); }

    void Open(const char* children)
    {
        window = std::make_unique<ControlWindow>(SIZE{120, 30},
                                                 std::string("<probe name='root'>") + children + "</probe>");
        Probe::Take();
    }
    std::string Focused() const
    {
        return window->GetFocusControl() ? window->GetFocusControl()->GetName().GetString() : "-";
    }
    /// The names that get the focus one after another.
    std::string Walk(bool isForward, int steps)
    {
        std::string names;
        for (int i = 0; i < steps; ++i) {
            if (!window->SetNextTabControl(isForward))
                return names + "|";
            names += Focused();
        }
        return names;
    }

    std::unique_ptr<ControlWindow> window;
};

TEST_F(Focus, GoesOnToANativeTabStop)
{
    Open("<probe name='a' tab_stop='true'/>");
    const PlatformWindow native(
        {.place = {0, 0, 10, 10}, .style = WS_CHILD | WS_TABSTOP, .parent = window->Handle()});
    SetActiveWindow(window->Handle());
    EXPECT_EQ(Walk(true, 1), "a");
    EXPECT_TRUE(window->SetNextTabControl(TRUE));
    EXPECT_EQ(Focused(), "-");
    EXPECT_EQ(::GetFocus(), native.Handle());
}

TEST_F(Focus, LeavesTheKeysOfOtherWindowsAlone)
{
    Open("<probe name='ok'/>");
    const PlatformWindow other;
    MSG message{other.Handle(), WM_KEYDOWN, VK_RETURN, 0, 0, {}};
    EXPECT_FALSE(window->PreTranslateMessage(&message));
    EXPECT_EQ(TakeEvents(), "");
}

TEST_F(Focus, AsksItsOwnLoopsFiltersFirst)
{
    struct Filter : IDUIMessageFilter {
        BOOL PreTranslateMessage(MSG* message) override
        {
            ++seen;
            return message->wParam == VK_RETURN;
        }
        int seen = 0;
    } filter;
    Open("<probe name='ok'/>");
    window->GetMessageLoop().AddMessageFilter(&filter);
    EXPECT_TRUE(window->Translate(WM_KEYDOWN, VK_RETURN));
    EXPECT_EQ(filter.seen, 1);
    EXPECT_EQ(TakeEvents(), "");
    window->GetMessageLoop().RemoveMessageFilter(&filter);
}

TEST_F(Focus, LetsTheTabKeyDecideByItsModifiers)
{
    struct Bar : Probe, IDUITabBar {
        using Probe::Probe;
        void* GetInterface(const CString& name) override
        {
            return name == "tab_bar" ? static_cast<IDUITabBar*>(this) : Probe::GetInterface(name);
        }
        BOOL MoveSelection(BOOL bForward, BOOL bNotify) override
        {
            Write(std::string("move ") + (bForward ? "forward" : "back") + (bNotify ? " and tell" : ""));
            return TRUE;
        }
    };
    Open("<probe name='a' tab_stop='true'/><probe name='b' tab_stop='true'/>");
    EXPECT_FALSE(window->SetNextTabPage(TRUE));
    window->Find("root")->AddControl(new Bar("bar"));
    TakeEvents();
    EXPECT_TRUE(window->Translate(WM_KEYDOWN, VK_TAB));
    EXPECT_EQ(Focused(), "a");
    window->keys.Hold(VK_SHIFT);
    EXPECT_TRUE(window->Translate(WM_KEYDOWN, VK_TAB));
    EXPECT_EQ(Focused(), "b");
    window->keys.LetGo(VK_SHIFT);
    window->keys.Hold(VK_LCONTROL);
    EXPECT_TRUE(window->Translate(WM_KEYDOWN, VK_TAB));
    window->keys.LetGo(VK_LCONTROL);
    EXPECT_EQ(TakeEvents({"FOCUS", "KEY"}), "move forward and tell");
}

}  // namespace
}  // namespace qvui::test
