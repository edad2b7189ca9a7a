// Keys to messages, and messages to characters.

#include <cstdio>

#include "platform/user/window_test.h"
#include "support/input_source.h"
#include "support/synthetic_input.h"

using namespace qvui::test;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

class Keyboard : public WindowTest {
protected:
    Keyboard() { Settle(); }

    /// "KEYDOWN 41", "CHAR 61".
    std::vector<std::string> Lines(bool withParameter = false)
    {
        std::vector<std::string> lines;
        for (const LoggedMessage& message : log.Only({WM_KEYDOWN, WM_KEYUP, WM_CHAR, WM_SYSKEYDOWN, WM_SYSKEYUP,
                                                      WM_SYSCHAR, WM_SYSCOMMAND})) {
            char number[64];
            const auto flags = static_cast<unsigned>(message.lParam & 0xE0000000);
            std::snprintf(number, sizeof number, withParameter ? " %X %X" : " %X", static_cast<unsigned>(message.wParam), flags);
            lines.push_back(MessageName(message.message).substr(3) + number);
        }
        return lines;
    }

    static void PressWithoutDispatch(int key)
    {
        InjectKey(key, true);
        InjectKey(key, false);
    }

    SyntheticInput input;
    PlatformWindow window{Popup("w")};
};

}  // namespace

TEST_F(Keyboard, KeysMakeTheirCharacters)
{
    struct Case {
        const char* name;
        int key;
        std::vector<std::string> expected;
    };
    const std::vector<Case> cases{
        {"letter", 'A', {"KEYDOWN 41", "CHAR 61", "KEYUP 41"}},
        {"digit", '7', {"KEYDOWN 37", "CHAR 37", "KEYUP 37"}},
        {"space", VK_SPACE, {"KEYDOWN 20", "CHAR 20", "KEYUP 20"}},
        {"Return", VK_RETURN, {"KEYDOWN D", "CHAR D", "KEYUP D"}},
        {"Tab", VK_TAB, {"KEYDOWN 9", "CHAR 9", "KEYUP 9"}},
        {"Escape", VK_ESCAPE, {"KEYDOWN 1B", "CHAR 1B", "KEYUP 1B"}},
        {"Backspace", VK_BACK, {"KEYDOWN 8", "CHAR 8", "KEYUP 8"}},
        {"Delete", VK_DELETE, {"KEYDOWN 2E", "KEYUP 2E"}},
        {"arrow", VK_LEFT, {"KEYDOWN 25", "KEYUP 25"}},
        {"Home", VK_HOME, {"KEYDOWN 24", "KEYUP 24"}},
        {"function key", VK_F4, {"KEYDOWN 73", "KEYUP 73"}},
    };
    for (const Case& c : cases) {
        log.Clear();
        input.PressKey(c.key);
        EXPECT_EQ(Lines(), c.expected) << c.name;
    }
}

TEST_F(Keyboard, ModifiersChangeTheCharacter)
{
    input.KeyDown(VK_SHIFT).PressKey('A').KeyUp(VK_SHIFT);
    EXPECT_THAT(Lines(), ElementsAre("KEYDOWN 10", "KEYDOWN 41", "CHAR 41", "KEYUP 41", "KEYUP 10"));
    log.Clear();
    input.KeyDown(VK_CONTROL).PressKey('A').KeyUp(VK_CONTROL);
    EXPECT_THAT(Lines(), ElementsAre("KEYDOWN 11", "KEYDOWN 41", "CHAR 1", "KEYUP 41", "KEYUP 11"));
    log.Clear();
    input.KeyDown(VK_SHIFT).PressKey(VK_TAB).KeyUp(VK_SHIFT);
    EXPECT_THAT(Lines(), ElementsAre("KEYDOWN 10", "KEYDOWN 9", "CHAR 9", "KEYUP 9", "KEYUP 10"));
}

TEST_F(Keyboard, AltMakesSystemKeys)
{
    window.SetHandler([](const LoggedMessage& message) -> std::optional<LRESULT> {
        return message.message == WM_SYSCOMMAND ? std::optional<LRESULT>(0) : std::nullopt;
    });
    input.KeyDown(VK_MENU).PressKey('X').KeyUp(VK_MENU);
    EXPECT_THAT(Lines(true), ElementsAre("SYSKEYDOWN 12 20000000", "SYSKEYDOWN 58 20000000", "SYSCHAR 78 20000000",
                                         "SYSCOMMAND F100 0", "SYSKEYUP 58 E0000000", "KEYUP 12 C0000000"));
    ASSERT_EQ(log.Count(WM_SYSCOMMAND), 1);
    EXPECT_EQ(log.Only({WM_SYSCOMMAND}).front().lParam, 'x');
}

TEST_F(Keyboard, AltWithF4AsksToClose)
{
    window.SetHandler([](const LoggedMessage& message) -> std::optional<LRESULT> {
        return message.message == WM_CLOSE ? std::optional<LRESULT>(0) : std::nullopt;
    });
    input.KeyDown(VK_MENU).PressKey(VK_F4).KeyUp(VK_MENU);
    EXPECT_THAT(log.Lines({WM_SYSCOMMAND, WM_CLOSE}), ElementsAre("w WM_SYSCOMMAND", "w WM_CLOSE"));
    ASSERT_EQ(log.Count(WM_SYSCOMMAND), 1);
    EXPECT_EQ(log.Only({WM_SYSCOMMAND}).front().wParam & 0xFFF0, static_cast<WPARAM>(SC_CLOSE));
}

TEST_F(Keyboard, RepeatsSayThatTheKeyWasDown)
{
    input.KeyDown('B').KeyDown('B').KeyUp('B');
    EXPECT_THAT(Lines(true), ElementsAre("KEYDOWN 42 0", "CHAR 62 0", "KEYDOWN 42 40000000", "CHAR 62 40000000",
                                         "KEYUP 42 C0000000"));
}

TEST_F(Keyboard, GoesToTheFocusElseToTheActiveWindowAsSystemKeys)
{
    const PlatformWindow child(Child("child", window, {0, 0, 20, 20}));
    SetFocus(child.Handle());
    Settle();
    input.PressKey(VK_DOWN);
    EXPECT_THAT(log.Lines({WM_KEYDOWN, WM_KEYUP}), ElementsAre("child WM_KEYDOWN", "child WM_KEYUP"));
    SetFocus(nullptr);
    log.Clear();
    input.PressKey('A');
    EXPECT_THAT(log.Lines({WM_SYSKEYDOWN, WM_SYSCHAR, WM_SYSKEYUP, WM_KEYDOWN, WM_CHAR, WM_KEYUP}),
                ElementsAre("w WM_SYSKEYDOWN", "w WM_SYSCHAR", "w WM_SYSKEYUP"));
}

TEST_F(Keyboard, CharactersWaitBehindPostedMessages)
{
    window.SetHandler([](const LoggedMessage& message) -> std::optional<LRESULT> {
        if (message.message == WM_KEYDOWN)
            PostMessageA(message.handle, WM_APP, 0, 0);
        return std::nullopt;
    });
    MSG key{window.Handle(), WM_KEYDOWN, VK_RETURN, 1, 0, {}};
    PostMessageA(window.Handle(), WM_APP + 1, 0, 0);
    EXPECT_TRUE(TranslateMessage(&key));
    PostMessageA(window.Handle(), WM_APP + 2, 0, 0);
    Pump();
    EXPECT_THAT(log.Lines({WM_APP + 1, WM_CHAR, WM_APP + 2}), ElementsAre("w 0x8001", "w WM_CHAR", "w 0x8002"));
}

TEST_F(Keyboard, WithoutTranslationThereIsNoCharacter)
{
    input.PressKey(VK_DOWN);
    Settle();
    // A loop of its own that leaves keys alone, as a filter does that has handled one.
    PressWithoutDispatch('A');
    MSG message;
    while (PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE))
        DispatchMessageA(&message);
    EXPECT_THAT(Lines(), ElementsAre("KEYDOWN 41", "KEYUP 41"));
}

TEST_F(Keyboard, KeyStateIsThatOfTheMessagesTakenOut)
{
    PressWithoutDispatch('D');
    MSG message;
    ASSERT_TRUE(PeekMessageA(&message, nullptr, WM_KEYDOWN, WM_KEYDOWN, PM_NOREMOVE));
    EXPECT_GE(GetKeyState('D'), 0);
    ASSERT_TRUE(PeekMessageA(&message, nullptr, WM_KEYDOWN, WM_KEYDOWN, PM_REMOVE));
    EXPECT_LT(GetKeyState('D'), 0);
    ASSERT_TRUE(PeekMessageA(&message, nullptr, WM_KEYUP, WM_KEYUP, PM_REMOVE));
    EXPECT_GE(GetKeyState('D'), 0);
    EXPECT_EQ(GetKeyState('D') & 1, 1) << "toggled by the press";
    input.PressKey('D');
    EXPECT_EQ(GetKeyState('D') & 1, 0);
}
