// Cursors: which one shows, and whose they are.

#include "platform/user/window_test.h"
#include "support/synthetic_input.h"

using namespace qvui::test;

namespace {

class Cursors : public WindowTest {};

}  // namespace

TEST_F(Cursors, SystemCursorsAreShared)
{
    const HCURSOR hand = LoadCursorA(nullptr, IDC_HAND);
    ASSERT_NE(hand, nullptr);
    EXPECT_EQ(LoadCursorA(nullptr, IDC_HAND), hand);
    EXPECT_NE(LoadCursorA(nullptr, IDC_IBEAM), hand);
    EXPECT_EQ(LoadCursorA(nullptr, MAKEINTRESOURCEA(77)), nullptr);
}

TEST_F(Cursors, SetCursorAnswersThePreviousOne)
{
    const HCURSOR hand = LoadCursorA(nullptr, IDC_HAND);
    const HCURSOR beam = LoadCursorA(nullptr, IDC_IBEAM);
    SetCursor(hand);
    EXPECT_EQ(SetCursor(beam), hand);
    EXPECT_EQ(GetCursor(), beam);
    EXPECT_EQ(SetCursor(nullptr), beam);
    EXPECT_EQ(GetCursor(), nullptr);
    SetCursor(LoadCursorA(nullptr, IDC_ARROW));
}

TEST_F(Cursors, TheClassCursorShowsOverTheWindowUnlessItsParentDecides)
{
    const HCURSOR hand = LoadCursorA(nullptr, IDC_HAND);
    const HCURSOR beam = LoadCursorA(nullptr, IDC_IBEAM);
    PlatformWindowOptions options = Popup("w");
    options.cursor = hand;
    PlatformWindow window(options);
    PlatformWindowOptions inner = Child("child", window, {10, 10, 60, 60});
    inner.cursor = beam;
    const PlatformWindow child(inner);
    SyntheticInput input;
    input.MoveTo(SyntheticInput::At(window.Handle(), 150, 80));
    EXPECT_EQ(GetCursor(), hand);
    input.MoveTo(SyntheticInput::At(child.Handle(), 5, 5));
    EXPECT_EQ(GetCursor(), beam);
    window.SetHandler([&](const LoggedMessage& message) -> std::optional<LRESULT> {
        if (message.message != WM_SETCURSOR)
            return std::nullopt;
        SetCursor(hand);
        return TRUE;
    });
    input.MoveTo(SyntheticInput::At(child.Handle(), 6, 6));
    EXPECT_EQ(GetCursor(), hand);
}

TEST_F(Cursors, BrokenFilesLoadAsNothing)
{
    EXPECT_EQ(LoadImageA(nullptr, "no such file.cur", IMAGE_CURSOR, 0, 0, LR_LOADFROMFILE), nullptr);
    EXPECT_FALSE(DestroyCursor(nullptr));
}
