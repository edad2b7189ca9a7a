#include "hello/hello_window.h"

#include "gallery/gallery_run.h"
#include "support/manual_clock.h"
#include "support/screenshot.h"
#include "support/synthetic_input.h"

// The small example from its skin package on disk to the pixels, pressed as a person would press it.

namespace qvui::test {
namespace {

class HelloTest : public GalleryTest {
protected:
    /// What the window tells when the control is pressed in its middle.
    static std::string Press(HelloWindow& window, const char* name)
    {
        const RECT place = window.GetControlByName(name, TRUE)->GetControlRect();
        testing::internal::CaptureStdout();
        SyntheticInput input;
        input.Click(SyntheticInput::At(window.GetHWND(), (place.left + place.right) / 2,
                                       (place.top + place.bottom) / 2));
        input.MoveTo({0, 0});
        return testing::internal::GetCapturedStdout();
    }
};

TEST_F(HelloTest, AnswersPressesInBothSkinsAndLanguages)
{
    const ManualClock clock;
    CString entry;
    ASSERT_TRUE(DUI::CResLoader().LoadXMLFromFile("hello-skin\\entry.xml", entry));
    ASSERT_TRUE(DUIGetAppInstance()->Init(entry, TRUE));
    {
        HelloWindow window;
        ASSERT_TRUE(window.Create());
        window.Show();
        EXPECT_TRUE(MatchesGolden(window.GetHWND(), "hello_light_english"));
        EXPECT_EQ(Press(window, "skin"), "click skin\nskin dark\n");
        EXPECT_EQ(Press(window, "language"), "click language\nlanguage Deutsch\n");
        UpdateWindow(window.GetHWND());
        EXPECT_TRUE(MatchesGolden(window.GetHWND(), "hello_dark_german"));
        EXPECT_EQ(Press(window, "skin"), "click skin\nskin light\n");
        EXPECT_EQ(Press(window, "language"), "click language\nlanguage English\n");
        UpdateWindow(window.GetHWND());
        EXPECT_TRUE(MatchesGolden(window.GetHWND(), "hello_light_english")) << "as it began";
    }
    Pump();
    DUIGetAppInstance()->Term();
}

}  // namespace
}  // namespace qvui::test
