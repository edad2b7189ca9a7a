// Which window is active, which has the focus, and who is told.

#include "platform/user/window_test.h"

using namespace qvui::test;
using testing::ElementsAre;

namespace {

/// Two popups a and b, of which b is active, and a child of a.
class Focus : public WindowTest {
protected:
    PlatformWindow a{Popup("a")};
    PlatformWindow b{Popup("b", kBeside)};
    PlatformWindow child{Child("child", a, {10, 10, 60, 60})};

    std::string NameOf(HWND handle) const
    {
        for (const PlatformWindow* const window : {&a, &b, &child})
            if (*window == handle)
                return handle == a ? "a" : handle == b ? "b" : "child";
        return handle ? "?" : "-";
    }
    /// What was told since the last call, "a NCACTIVATE 0, b ACTIVATE 1 a, b SETFOCUS a": with a window's
    /// name that the message gives, "-" for none.
    std::string Told()
    {
        std::string text;
        for (const LoggedMessage& message :
             log.Only({WM_NCACTIVATE, WM_ACTIVATE, WM_SETFOCUS, WM_KILLFOCUS, WM_CANCELMODE, WM_ENABLE})) {
            const UINT number = message.message;
            text += (text.empty() ? "" : ", ") + message.window + " " + MessageName(number);
            if (number == WM_NCACTIVATE || number == WM_ENABLE || number == WM_ACTIVATE)
                text.append(" ").append(std::to_string(LOWORD(message.wParam)));
            if (number == WM_ACTIVATE)
                text.append(" ").append(NameOf(reinterpret_cast<HWND>(message.lParam)));
            if (number == WM_SETFOCUS || number == WM_KILLFOCUS)
                text.append(" ").append(NameOf(reinterpret_cast<HWND>(message.wParam)));
        }
        log.Clear();
        return text;
    }
    /// Makes a window active, a child with the focus, and forgets what that told.
    void Begin(HWND window)
    {
        SetFocus(window);
        Settle();
    }
};

}  // namespace

TEST_F(Focus, ActivationTellsBothWindowsThenMovesTheFocus)
{
    Begin(a);
    std::vector<HWND> seen;
    const MessageHandler watch = On(WM_ACTIVATE, [&](auto&) { seen.push_back(GetActiveWindow()); });
    const ScopedHandler watchA(a, watch);
    const ScopedHandler watchB(b, watch);
    EXPECT_EQ(SetActiveWindow(b), a);
    EXPECT_EQ(Told(),
              "a NCACTIVATE 0, a ACTIVATE 0 b, b NCACTIVATE 1, b ACTIVATE 1 a, a KILLFOCUS b, b SETFOCUS a");
    EXPECT_THAT(seen, ElementsAre(a.Handle(), b.Handle())) << "it changes between the two messages";
    EXPECT_EQ(SetActiveWindow(b), b);
    EXPECT_EQ(Told(), "");
}

TEST_F(Focus, OfAChildActivatesItsTopLevelWindowAndIsNotRestored)
{
    Begin(b);
    SetFocus(child);
    EXPECT_EQ(Told(),
              "b NCACTIVATE 0, b ACTIVATE 0 a, a NCACTIVATE 1, a ACTIVATE 1 b, b KILLFOCUS a, a SETFOCUS b, "
              "a KILLFOCUS child, child SETFOCUS a");
    SetActiveWindow(b);
    SetForegroundWindow(a);
    EXPECT_EQ(GetForegroundWindow(), a);
    EXPECT_EQ(GetFocus(), a);
}

TEST_F(Focus, MovesWithOldBeforeNew)
{
    Begin(a);
    std::vector<HWND> seen;
    const auto see = [&](const LoggedMessage&) { seen.push_back(GetFocus()); };
    {
        const ScopedHandler watchA(a, On(WM_KILLFOCUS, see));
        const ScopedHandler watchChild(child, On(WM_SETFOCUS, see));
        EXPECT_EQ(SetFocus(child), a);
    }
    EXPECT_EQ(Told(), "a KILLFOCUS child, child SETFOCUS a");
    EXPECT_THAT(seen, ElementsAre(child.Handle(), child.Handle()));
    EXPECT_EQ(SetFocus(child), child);
    EXPECT_EQ(Told(), "");
    EXPECT_EQ(SetFocus(nullptr), child);
    EXPECT_EQ(Told(), "child KILLFOCUS -");
    EXPECT_EQ(GetActiveWindow(), a);
}

TEST_F(Focus, IsLostByHidingAndDisablingAndRefusedToDisabledWindows)
{
    const PlatformWindow inner(Child("inner", child, {0, 0, 20, 20}));
    Begin(child);
    ShowWindow(child, SW_HIDE);
    EXPECT_EQ(Told(), "child KILLFOCUS a, a SETFOCUS child");
    ShowWindow(child, SW_SHOW);
    Begin(child);
    EXPECT_FALSE(EnableWindow(child, FALSE));
    EXPECT_EQ(Told(), "child CANCELMODE, child KILLFOCUS -, child ENABLE 0");
    EXPECT_EQ(GetFocus(), nullptr);
    EXPECT_TRUE(EnableWindow(child, FALSE));
    EXPECT_EQ(SetFocus(child), nullptr);
    EXPECT_EQ(SetFocus(inner), nullptr);
    EXPECT_TRUE(log.Tells("", {WM_SETFOCUS, WM_KILLFOCUS, WM_ENABLE}));
    log.Clear();
    EXPECT_TRUE(EnableWindow(child, TRUE));
    EXPECT_EQ(Told(), "child ENABLE 1");
}

TEST_F(Focus, AHandlerOfKillFocusHasTheLastWord)
{
    const PlatformWindow third(Child("third", a, {70, 0, 80, 10}));
    Begin(a);
    const ScopedHandler handler(a, On(WM_KILLFOCUS, [&](auto&) { SetFocus(third); }));
    SetFocus(child);
    EXPECT_EQ(Told(), "a KILLFOCUS child, child KILLFOCUS ?, third SETFOCUS child");
    EXPECT_EQ(GetFocus(), third);
    Begin(a);
    const ScopedHandler deadly(a, On(WM_KILLFOCUS, [&](auto&) { child.Destroy(); }));
    SetFocus(child);
    EXPECT_EQ(log.Count(WM_NCDESTROY), 1);
    EXPECT_EQ(GetFocus(), a);
}
