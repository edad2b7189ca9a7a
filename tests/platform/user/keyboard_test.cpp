// Keys to messages, and messages to characters.

#include <cstdio>

#include "platform/user/window_test.h"
#include "support/input_source.h"
#include "support/synthetic_input.h"

using namespace qvui::test;

namespace {

class Keyboard : public WindowTest {
protected:
    Keyboard() { Settle(); }

    /// "KEYDOWN 41, CHAR 61", with the flags of the parameter if they are asked for; since the last call.
    std::string Keys(bool withFlags = false)
    {
        std::string text;
        for (const LoggedMessage& message : log.Only(
                 {WM_KEYDOWN, WM_KEYUP, WM_CHAR, WM_SYSKEYDOWN, WM_SYSKEYUP, WM_SYSCHAR, WM_SYSCOMMAND})) {
            char number[64];
            std::snprintf(number, sizeof number, withFlags ? " %X %X" : " %X",
                          static_cast<unsigned>(message.wParam),
                          static_cast<unsigned>(message.lParam & 0xE0000000));
            text += (text.empty() ? "" : ", ") + MessageName(message.message) + number;
        }
        log.Clear();
        return text;
    }

    static void PressWithoutDispatch(int key)
    {
        InjectKey(key, true);
        InjectKey(key, false);
    }

    SyntheticInput input;
    PlatformWindow window{Popup()};
};

}  // namespace

TEST_F(Keyboard, KeysMakeTheirCharacters)
{
    const struct {
        const char* name;
        int key;
        const char* expected;
        int modifier = 0;
    } cases[] = {
        {"letter", 'A', "KEYDOWN 41, CHAR 61, KEYUP 41"},
        {"digit", '7', "KEYDOWN 37, CHAR 37, KEYUP 37"},
        {"space", VK_SPACE, "KEYDOWN 20, CHAR 20, KEYUP 20"},
        {"Return", VK_RETURN, "KEYDOWN D, CHAR D, KEYUP D"},
        {"Tab", VK_TAB, "KEYDOWN 9, CHAR 9, KEYUP 9"},
        {"Escape", VK_ESCAPE, "KEYDOWN 1B, CHAR 1B, KEYUP 1B"},
        {"Backspace", VK_BACK, "KEYDOWN 8, CHAR 8, KEYUP 8"},
        {"Delete", VK_DELETE, "KEYDOWN 2E, KEYUP 2E"},
        {"arrow", VK_LEFT, "KEYDOWN 25, KEYUP 25"},
        {"Home", VK_HOME, "KEYDOWN 24, KEYUP 24"},
        {"function key", VK_F4, "KEYDOWN 73, KEYUP 73"},
        {"Shift", 'A', "KEYDOWN 10, KEYDOWN 41, CHAR 41, KEYUP 41, KEYUP 10", VK_SHIFT},
        {"Control", 'A', "KEYDOWN 11, KEYDOWN 41, CHAR 1, KEYUP 41, KEYUP 11", VK_CONTROL},
        {"Shift and Tab", VK_TAB, "KEYDOWN 10, KEYDOWN 9, CHAR 9, KEYUP 9, KEYUP 10", VK_SHIFT},
    };
    for (const auto& c : cases) {
        if (c.modifier)
            input.KeyDown(c.modifier);
        input.PressKey(c.key);
        if (c.modifier)
            input.KeyUp(c.modifier);
        EXPECT_EQ(Keys(), c.expected) << c.name;
    }
}

TEST_F(Keyboard, AltMakesSystemKeys)
{
    window.SetHandler(Answer(WM_SYSCOMMAND, 0));
    input.KeyDown(VK_MENU).PressKey('X').KeyUp(VK_MENU);
    EXPECT_EQ(log.Last(WM_SYSCOMMAND).lParam, 'x');
    EXPECT_EQ(Keys(true),
              "SYSKEYDOWN 12 20000000, SYSKEYDOWN 58 20000000, SYSCHAR 78 20000000, SYSCOMMAND F100 0, "
              "SYSKEYUP 58 E0000000, KEYUP 12 C0000000");
}

TEST_F(Keyboard, AltWithF4AsksToClose)
{
    window.SetHandler(Answer(WM_CLOSE, 0));
    input.KeyDown(VK_MENU).PressKey(VK_F4).KeyUp(VK_MENU);
    EXPECT_TRUE(log.Tells("w SYSCOMMAND CLOSE"));
    EXPECT_EQ(log.Last(WM_SYSCOMMAND).wParam & 0xFFF0, static_cast<WPARAM>(SC_CLOSE));
}

TEST_F(Keyboard, RepeatsSayThatTheKeyWasDown)
{
    input.KeyDown('B').KeyDown('B').KeyUp('B');
    EXPECT_EQ(Keys(true),
              "KEYDOWN 42 0, CHAR 62 0, KEYDOWN 42 40000000, CHAR 62 40000000, KEYUP 42 C0000000");
}

TEST_F(Keyboard, GoesToTheFocusElseToTheActiveWindowAsSystemKeys)
{
    const PlatformWindow child(Child("child", window, {0, 0, 20, 20}));
    SetFocus(child);
    Settle();
    input.PressKey(VK_DOWN);
    EXPECT_TRUE(log.Tells("child KEYDOWN KEYUP"));
    SetFocus(nullptr);
    log.Clear();
    input.PressKey('A');
    EXPECT_TRUE(log.Tells("w SYSKEYDOWN SYSCHAR SYSKEYUP", {WM_KEYDOWN, WM_CHAR, WM_KEYUP}));
}

TEST_F(Keyboard, CharactersWaitBehindPostedMessages)
{
    MSG key{window, WM_KEYDOWN, VK_RETURN, 1, 0, {}};
    PostMessageA(window, WM_APP + 1, 0, 0);
    EXPECT_TRUE(TranslateMessage(&key));
    PostMessageA(window, WM_APP + 2, 0, 0);
    Pump();
    EXPECT_TRUE(log.Tells("w APP+1 CHAR APP+2"));
}

TEST_F(Keyboard, WithoutTranslationThereIsNoCharacter)
{
    // A loop of its own that leaves keys alone, as a filter does that has handled one.
    PressWithoutDispatch('A');
    MSG message;
    while (PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE))
        DispatchMessageA(&message);
    EXPECT_EQ(Keys(), "KEYDOWN 41, KEYUP 41");
}

TEST_F(Keyboard, KeyStateIsThatOfTheMessagesTakenOut)
{
    PressWithoutDispatch('D');
    MSG message;
    const auto take = [&](UINT number, UINT how) {
        return PeekMessageA(&message, nullptr, number, number, how);
    };
    ASSERT_TRUE(take(WM_KEYDOWN, PM_NOREMOVE));
    EXPECT_GE(GetKeyState('D'), 0);
    ASSERT_TRUE(take(WM_KEYDOWN, PM_REMOVE));
    EXPECT_LT(GetKeyState('D'), 0);
    ASSERT_TRUE(take(WM_KEYUP, PM_REMOVE));
    EXPECT_GE(GetKeyState('D'), 0);
    EXPECT_EQ(GetKeyState('D') & 1, 1) << "toggled by the press";
    input.PressKey('D');
    EXPECT_EQ(GetKeyState('D') & 1, 0);
}
