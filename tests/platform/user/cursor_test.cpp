// Cursors: which one shows, and whose they are.

#include "platform/user/window_test.h"
#include "support/synthetic_input.h"

using namespace qvui::test;

namespace {

class Cursors : public WindowTest {
protected:
    const HCURSOR hand = LoadCursorA(nullptr, IDC_HAND);
    const HCURSOR beam = LoadCursorA(nullptr, IDC_IBEAM);
};

}  // namespace

TEST_F(Cursors, OfTheSystemAreSharedAndBrokenOnesAreNone)
{
    ASSERT_NE(hand, nullptr);
    EXPECT_EQ(LoadCursorA(nullptr, IDC_HAND), hand);
    EXPECT_NE(beam, hand);
    EXPECT_EQ(LoadCursorA(nullptr, MAKEINTRESOURCEA(77)), nullptr);
    EXPECT_EQ(LoadImageA(nullptr, "no such file.cur", IMAGE_CURSOR, 0, 0, LR_LOADFROMFILE), nullptr);
    EXPECT_FALSE(DestroyCursor(nullptr));
}

TEST_F(Cursors, SetCursorAnswersThePreviousOne)
{
    SetCursor(hand);
    EXPECT_EQ(SetCursor(beam), hand);
    EXPECT_EQ(GetCursor(), beam);
    EXPECT_EQ(SetCursor(nullptr), beam);
    EXPECT_EQ(GetCursor(), nullptr);
    SetCursor(LoadCursorA(nullptr, IDC_ARROW));
}

TEST_F(Cursors, TheClassCursorShowsOverTheWindowUnlessItsParentDecides)
{
    PlatformWindow window(Popup().With(&PlatformWindowOptions::cursor, hand));
    const PlatformWindow child(
        Child("child", window, {10, 10, 60, 60}).With(&PlatformWindowOptions::cursor, beam));
    SyntheticInput input;
    input.MoveTo(SyntheticInput::At(window, 150, 80));
    EXPECT_EQ(GetCursor(), hand);
    input.MoveTo(SyntheticInput::At(child, 5, 5));
    EXPECT_EQ(GetCursor(), beam);
    window.SetHandler([&](const LoggedMessage& message) -> std::optional<LRESULT> {
        if (message.message != WM_SETCURSOR)
            return std::nullopt;
        SetCursor(hand);
        return TRUE;
    });
    input.MoveTo(SyntheticInput::At(child, 6, 6));
    EXPECT_EQ(GetCursor(), hand);
}
