// Which window is active, which has the focus, and who is told.

#include <map>

#include "platform/user/window_test.h"

using namespace qvui::test;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

class Focus : public WindowTest {
protected:
    PlatformWindow a{Popup("A")};
    PlatformWindow b{Popup("B", {400, 100, 500, 200})};

    std::string NameOf(const void* handle) const
    {
        const auto found = names.find(reinterpret_cast<HWND>(const_cast<void*>(handle)));
        return found == names.end() ? (handle ? "?" : "0") : found->second;
    }
    /// "A ACTIVATE(0,B)", "B SETFOCUS(A)"; the other window by its name, "0" for none.
    std::vector<std::string> Lines()
    {
        for (const LoggedMessage& message : log.All())
            names[message.handle] = message.window;
        std::vector<std::string> lines;
        for (const LoggedMessage& message :
             log.Only({WM_NCACTIVATE, WM_ACTIVATE, WM_SETFOCUS, WM_KILLFOCUS, WM_CANCELMODE, WM_ENABLE})) {
            std::string line = message.window + " " + MessageName(message.message).substr(3);
            const std::string number = std::to_string(LOWORD(message.wParam));
            if (message.message == WM_ACTIVATE)
                line += "(" + number + "," + NameOf(reinterpret_cast<const void*>(message.lParam)) + ")";
            else if (message.message == WM_NCACTIVATE || message.message == WM_ENABLE)
                line += "(" + number + ")";
            else if (message.message != WM_CANCELMODE)
                line += "(" + NameOf(reinterpret_cast<const void*>(message.wParam)) + ")";
            lines.push_back(line);
        }
        return lines;
    }

    std::map<HWND, std::string> names{{a.Handle(), "A"}, {b.Handle(), "B"}};
};

}  // namespace

TEST_F(Focus, ActivationTellsBothWindowsThenMovesTheFocus)
{
    SetActiveWindow(a.Handle());
    Settle();
    EXPECT_EQ(SetActiveWindow(b.Handle()), a.Handle());
    EXPECT_THAT(Lines(), ElementsAre("A NCACTIVATE(0)", "A ACTIVATE(0,B)", "B NCACTIVATE(1)", "B ACTIVATE(1,A)",
                                     "A KILLFOCUS(B)", "B SETFOCUS(A)"));
    log.Clear();
    EXPECT_EQ(SetActiveWindow(b.Handle()), b.Handle());
    EXPECT_THAT(Lines(), IsEmpty());
}

TEST_F(Focus, ActiveWindowChangesBetweenTheTwoActivateMessages)
{
    std::vector<HWND> seen;
    const MessageHandler watch = [&](const LoggedMessage& message) -> std::optional<LRESULT> {
        if (message.message == WM_ACTIVATE)
            seen.push_back(GetActiveWindow());
        return std::nullopt;
    };
    SetActiveWindow(a.Handle());
    const ScopedHandler watchA(a, watch);
    const ScopedHandler watchB(b, watch);
    SetActiveWindow(b.Handle());
    EXPECT_THAT(seen, ElementsAre(a.Handle(), b.Handle()));
}

TEST_F(Focus, ActivatingAgainDoesNotRestoreTheChildThatHadTheFocus)
{
    const PlatformWindow child(Child("child", a, {10, 10, 40, 40}));
    SetFocus(child.Handle());
    SetActiveWindow(b.Handle());
    SetActiveWindow(a.Handle());
    EXPECT_EQ(GetFocus(), a.Handle());
}

TEST_F(Focus, MovesWithOldBeforeNew)
{
    PlatformWindow child(Child("child", a, {10, 10, 40, 40}));
    SetFocus(a.Handle());
    Settle();
    std::vector<HWND> seen;
    const MessageHandler watch = [&](const LoggedMessage& message) -> std::optional<LRESULT> {
        if (message.message == WM_KILLFOCUS || message.message == WM_SETFOCUS)
            seen.push_back(GetFocus());
        return std::nullopt;
    };
    const ScopedHandler watchA(a, watch);
    const ScopedHandler watchChild(child, watch);
    EXPECT_EQ(SetFocus(child.Handle()), a.Handle());
    EXPECT_THAT(Lines(), ElementsAre("A KILLFOCUS(child)", "child SETFOCUS(A)"));
    EXPECT_THAT(seen, ElementsAre(child.Handle(), child.Handle()));
    log.Clear();
    EXPECT_EQ(SetFocus(child.Handle()), child.Handle());
    EXPECT_THAT(Lines(), IsEmpty());
    EXPECT_EQ(SetFocus(nullptr), child.Handle());
    EXPECT_THAT(Lines(), ElementsAre("child KILLFOCUS(0)"));
    EXPECT_EQ(GetFocus(), nullptr);
    EXPECT_EQ(GetActiveWindow(), a.Handle());
}

TEST_F(Focus, OfAnotherTopLevelWindowActivatesIt)
{
    const PlatformWindow child(Child("child", a, {10, 10, 40, 40}));
    SetActiveWindow(b.Handle());
    Settle();
    names[child.Handle()] = "child";
    SetFocus(child.Handle());
    EXPECT_THAT(Lines(), ElementsAre("B NCACTIVATE(0)", "B ACTIVATE(0,A)", "A NCACTIVATE(1)", "A ACTIVATE(1,B)",
                                     "B KILLFOCUS(A)", "A SETFOCUS(B)", "A KILLFOCUS(child)", "child SETFOCUS(A)"));
}

TEST_F(Focus, IsRefusedToDisabledWindowsAndTheirChildren)
{
    const PlatformWindow child(Child("child", a, {10, 10, 60, 60}));
    const PlatformWindow inner(Child("inner", child, {0, 0, 20, 20}));
    SetFocus(a.Handle());
    EnableWindow(child.Handle(), FALSE);
    Settle();
    EXPECT_EQ(SetFocus(child.Handle()), nullptr);
    EXPECT_EQ(SetFocus(inner.Handle()), nullptr);
    EXPECT_EQ(GetFocus(), a.Handle());
    EXPECT_THAT(Lines(), IsEmpty());
}

TEST_F(Focus, GoesToTheParentOfAHiddenChild)
{
    const PlatformWindow child(Child("child", a, {10, 10, 60, 60}));
    SetFocus(child.Handle());
    Settle();
    ShowWindow(child.Handle(), SW_HIDE);
    EXPECT_THAT(Lines(), ElementsAre("child KILLFOCUS(A)", "A SETFOCUS(child)"));
    EXPECT_EQ(GetFocus(), a.Handle());
}

TEST_F(Focus, IsLostByDisabling)
{
    PlatformWindow child(Child("child", a, {10, 10, 60, 60}));
    SetFocus(child.Handle());
    Settle();
    EXPECT_FALSE(EnableWindow(child.Handle(), FALSE));
    EXPECT_THAT(Lines(), ElementsAre("child CANCELMODE", "child KILLFOCUS(0)", "child ENABLE(0)"));
    EXPECT_EQ(GetFocus(), nullptr);
    EXPECT_FALSE(IsWindowEnabled(child.Handle()));
    log.Clear();
    EXPECT_TRUE(EnableWindow(child.Handle(), FALSE));
    EXPECT_THAT(log.Lines({WM_KILLFOCUS, WM_ENABLE}), IsEmpty());
    log.Clear();
    EXPECT_TRUE(EnableWindow(child.Handle(), TRUE));
    EXPECT_THAT(Lines(), ElementsAre("child ENABLE(1)"));
}

TEST_F(Focus, AHandlerOfKillFocusHasTheLastWord)
{
    PlatformWindow first(Child("first", a, {0, 0, 10, 10}));
    const PlatformWindow second(Child("second", a, {20, 0, 30, 10}));
    const PlatformWindow third(Child("third", a, {40, 0, 50, 10}));
    SetFocus(first.Handle());
    first.SetHandler([&](const LoggedMessage& message) -> std::optional<LRESULT> {
        if (message.message == WM_KILLFOCUS)
            SetFocus(third.Handle());
        return std::nullopt;
    });
    Settle();
    names[first.Handle()] = "first";
    names[second.Handle()] = "second";
    names[third.Handle()] = "third";
    SetFocus(second.Handle());
    EXPECT_THAT(Lines(), ElementsAre("first KILLFOCUS(second)", "second KILLFOCUS(third)", "third SETFOCUS(second)"));
    EXPECT_EQ(GetFocus(), third.Handle());
}

TEST_F(Focus, AHandlerMayDestroyTheWindowThatGetsIt)
{
    PlatformWindow first(Child("first", a, {0, 0, 10, 10}));
    PlatformWindow second(Child("second", a, {20, 0, 30, 10}));
    SetFocus(first.Handle());
    first.SetHandler([&](const LoggedMessage& message) -> std::optional<LRESULT> {
        if (message.message == WM_KILLFOCUS)
            second.Destroy();
        return std::nullopt;
    });
    Settle();
    SetFocus(second.Handle());
    EXPECT_EQ(log.Count(WM_NCDESTROY), 1);
    EXPECT_NE(GetFocus(), first.Handle());
}

TEST_F(Focus, ActivationOfAChildIsThatOfItsTopLevelWindow)
{
    const PlatformWindow child(Child("child", a, {10, 10, 60, 60}));
    SetActiveWindow(b.Handle());
    SetForegroundWindow(a.Handle());
    EXPECT_EQ(GetActiveWindow(), a.Handle());
    EXPECT_EQ(GetForegroundWindow(), a.Handle());
    EXPECT_EQ(GetFocus(), a.Handle());
}
