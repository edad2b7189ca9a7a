// Text from the display: what keys type and what input methods send.

#include "platform/user/window_test.h"
#include "support/manual_clock.h"
#include "support/synthetic_input.h"

using namespace qvui;
using namespace qvui::test;

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

    native::InputSink& sink = native::TheInputSink();
    native::HeadlessDisplay& display = *native::TheHeadlessDisplay();
    SyntheticInput input;
    PlatformWindow window{Popup()};
};

}  // namespace

TEST_F(NativeKeyboard, TextOfAnInputMethodComesByteByByteAndKeepsItsPlace)
{
    display.Type("gr\xC3\xBC");
    display.Key(VK_LEFT, true);
    display.Key(VK_LEFT, false);
    display.Type("y");
    Pump();
    EXPECT_EQ(Typed(), "gr\xC3\xBCy");
    EXPECT_TRUE(log.Tells("w CHAR CHAR CHAR CHAR KEYDOWN CHAR"));
}

TEST_F(NativeKeyboard, AKeyTypesWhatTheDisplaySays)
{
    // A key in another script: the display knows its text, the layer its place on the keyboard.
    sink.OnKey('A', true);
    sink.OnText("\xD1\x84");
    sink.OnKey('A', false);
    Pump();
    EXPECT_TRUE(log.Tells("w KEYDOWN CHAR CHAR KEYUP"));
    // A key of the third level
    sink.OnKey(VK_RMENU, true);
    sink.OnKey('Q', true);
    sink.OnText("@");
    sink.OnKey('Q', false);
    sink.OnKey(VK_RMENU, false);
    Pump();
    EXPECT_EQ(log.Count(WM_SYSCHAR), 0);
    input.KeyDown(VK_CONTROL).PressKey(VK_RETURN).PressKey(VK_BACK).PressKey('1').KeyUp(VK_CONTROL);
    EXPECT_EQ(Typed(), "\xD1\x84@\n\x7F");
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
    SetCapture(window);
    log.Clear();
    sink.OnActivated(nullptr);
    EXPECT_GE(GetKeyState(VK_CONTROL), 0);
    EXPECT_EQ(GetActiveWindow(), nullptr);
    EXPECT_EQ(GetFocus(), nullptr);
    input.PressKey('A');  // which is nobody's
    EXPECT_TRUE(log.Tells("w CANCELMODE CAPTURECHANGED ACTIVATE KILLFOCUS"));
    sink.OnActivated(window);
    EXPECT_EQ(GetFocus(), window);
}
