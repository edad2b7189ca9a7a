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

    SyntheticInput input;
    PlatformWindow window{Popup()};
};

}  // namespace

TEST_F(Keyboard, KeysMakeTheirCharacters)
{
    constexpr int kAlone = 0;
    const Table<const char*, int, int, const char*> cases{
        {"letter", kAlone, 'A', "KEYDOWN 41, CHAR 61, KEYUP 41"},
        {"digit", kAlone, '7', "KEYDOWN 37, CHAR 37, KEYUP 37"},
        {"space", kAlone, VK_SPACE, "KEYDOWN 20, CHAR 20, KEYUP 20"},
        {"Return", kAlone, VK_RETURN, "KEYDOWN D, CHAR D, KEYUP D"},
        {"Tab", kAlone, VK_TAB, "KEYDOWN 9, CHAR 9, KEYUP 9"},
        {"Escape", kAlone, VK_ESCAPE, "KEYDOWN 1B, CHAR 1B, KEYUP 1B"},
        {"Backspace", kAlone, VK_BACK, "KEYDOWN 8, CHAR 8, KEYUP 8"},
        {"Delete", kAlone, VK_DELETE, "KEYDOWN 2E, KEYUP 2E"},
        {"arrow", kAlone, VK_LEFT, "KEYDOWN 25, KEYUP 25"},
        {"function key", kAlone, VK_F4, "KEYDOWN 73, KEYUP 73"},
        {"Shift", VK_SHIFT, 'A', "KEYDOWN 10, KEYDOWN 41, CHAR 41, KEYUP 41, KEYUP 10"},
        {"Control", VK_CONTROL, 'A', "KEYDOWN 11, KEYDOWN 41, CHAR 1, KEYUP 41, KEYUP 11"},
        {"Shift and Tab", VK_SHIFT, VK_TAB, "KEYDOWN 10, KEYDOWN 9, CHAR 9, KEYUP 9, KEYUP 10"},
    };
    for (const auto& [name, modifier, key, expected] : cases) {
        if (modifier)
            input.KeyDown(modifier);
        input.PressKey(key);
        if (modifier)
            input.KeyUp(modifier);
        EXPECT_EQ(Keys(), expected) << name;
    }
    input.KeyDown('B').KeyDown('B').KeyUp('B');
    EXPECT_EQ(Keys(true), "KEYDOWN 42 0, CHAR 62 0, KEYDOWN 42 40000000, CHAR 62 40000000, KEYUP 42 C0000000")
        << "repeats say that the key was down";
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

TEST_F(Keyboard, KeyStateIsThatOfTheMessagesTakenOut)
{
    InjectKey('D', true);
    InjectKey('D', false);
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
