// Text from the display: what keys type and what input methods send.

#include "platform/user/window_test.h"
#include "support/manual_clock.h"
#include "support/synthetic_input.h"

using namespace qvui;
using namespace qvui::test;
using testing::ElementsAre;

namespace {

class NativeKeyboard : public WindowTest {
protected:
    NativeKeyboard() { Settle(); }

    /// The bytes of all WM_CHAR messages.
    std::string Typed() const
    {
        std::string text;
        for (const LoggedMessage& message : log.Only({WM_CHAR}))
            text += static_cast<char>(message.wParam);
        return text;
    }

    native::HeadlessDisplay& display = *native::TheHeadlessDisplay();
    SyntheticInput input;
    PlatformWindow window{Popup("w")};
};

}  // namespace

TEST_F(NativeKeyboard, TextOfAnInputMethodComesByteByByte)
{
    display.Type("gr\xC3\xBC\xC3\x9F");
    Pump();
    EXPECT_EQ(Typed(), "gr\xC3\xBC\xC3\x9F");
    EXPECT_EQ(log.Count(WM_KEYDOWN), 0);
}

TEST_F(NativeKeyboard, TextKeepsItsPlaceAmongKeys)
{
    display.Type("x");
    display.Key(VK_LEFT, true);
    display.Key(VK_LEFT, false);
    display.Type("y");
    Pump();
    EXPECT_THAT(log.Lines({WM_CHAR, WM_KEYDOWN}), ElementsAre("w WM_CHAR", "w WM_KEYDOWN", "w WM_CHAR"));
}

TEST_F(NativeKeyboard, AKeyTypesWhatTheDisplaySays)
{
    // A key in another script: the display knows its text, the layer its place on the keyboard.
    native::TheInputSink().OnKey('A', true);
    native::TheInputSink().OnText("\xD1\x84");
    native::TheInputSink().OnKey('A', false);
    Pump();
    EXPECT_EQ(Typed(), "\xD1\x84");
    EXPECT_THAT(log.Lines({WM_KEYDOWN, WM_CHAR, WM_KEYUP}),
                ElementsAre("w WM_KEYDOWN", "w WM_CHAR", "w WM_CHAR", "w WM_KEYUP"));
}

TEST_F(NativeKeyboard, ThirdLevelKeysTypeTheirCharacter)
{
    native::TheInputSink().OnKey(VK_RMENU, true);
    native::TheInputSink().OnKey('Q', true);
    native::TheInputSink().OnText("@");
    native::TheInputSink().OnKey('Q', false);
    native::TheInputSink().OnKey(VK_RMENU, false);
    Pump();
    EXPECT_EQ(Typed(), "@");
    EXPECT_EQ(log.Count(WM_SYSCHAR), 0);
}

TEST_F(NativeKeyboard, ControlMakesOtherCharactersOfReturnAndBackspace)
{
    input.KeyDown(VK_CONTROL).PressKey(VK_RETURN).PressKey(VK_BACK).PressKey('1').KeyUp(VK_CONTROL);
    EXPECT_EQ(Typed(), "\n\x7F");
}

TEST_F(NativeKeyboard, EitherShiftHoldsShift)
{
    input.KeyDown(VK_LSHIFT).KeyDown(VK_RSHIFT).KeyUp(VK_LSHIFT);
    EXPECT_LT(GetKeyState(VK_SHIFT), 0);
    EXPECT_GE(GetKeyState(VK_LSHIFT), 0);
    input.KeyUp(VK_RSHIFT);
    EXPECT_GE(GetKeyState(VK_SHIFT), 0);
}

TEST_F(NativeKeyboard, KeysAreUpAfterTheDisplayTookTheKeyboardAway)
{
    input.KeyDown(VK_CONTROL);
    SetCapture(window.Handle());
    log.Clear();
    native::TheInputSink().OnActivated(nullptr);
    EXPECT_GE(GetKeyState(VK_CONTROL), 0);
    EXPECT_EQ(GetActiveWindow(), nullptr);
    EXPECT_EQ(GetFocus(), nullptr);
    EXPECT_EQ(GetCapture(), nullptr);
    EXPECT_THAT(log.Lines({WM_CANCELMODE, WM_CAPTURECHANGED, WM_ACTIVATE, WM_KILLFOCUS}),
                ElementsAre("w WM_CANCELMODE", "w WM_CAPTURECHANGED", "w WM_ACTIVATE", "w WM_KILLFOCUS"));
    native::TheInputSink().OnActivated(window.Handle());
    EXPECT_EQ(GetFocus(), window.Handle());
}

TEST_F(NativeKeyboard, KeysOfNobodyAreForgotten)
{
    SetActiveWindow(nullptr);
    Settle();
    input.PressKey('A');
    EXPECT_EQ(log.Count(WM_KEYDOWN), 0);
    EXPECT_EQ(log.Count(WM_CHAR), 0);
}
