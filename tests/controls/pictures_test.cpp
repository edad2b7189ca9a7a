#include <qvui/controls/picture_box.h>

#include "controls/pixels.h"
#include "support/controls/control_test.h"

// What the controls that are made of pictures show, and how large they want to be.

namespace qvui::test {
namespace {

using namespace DUI;

class Pictures : public ControlTest {
public:
    Pictures() : ControlTest(StretchedDot()) {}

private:
    static SkinAdditions StretchedDot()
    {
        SkinAdditions additions;
        additions.images =
            "<image name=\"stretched\" config_type=\"file\" drawstyle=\"stretch\" file_name=\"" +
            TestSkin::File("dot.png") + "\"/>";
        return additions;
    }
};

/// "red 0,0,9,8 blue 9,0,20,8": where each of the pictures' colours shows.
std::string Colors(ControlWindow& window)
{
    const ClientPixels pixels = window.Paint();
    std::string text;
    for (const auto& [name, color] : {std::pair("red ", kRed), {"green ", kGreen}, {"blue ", kBlue}})
        if (const std::string bounds = Bounds(pixels, color); bounds != "0,0,0,0")
            text += (text.empty() ? "" : " ") + std::string(name).append(bounds);
    return text;
}

TEST_F(Pictures, StandWhereTheyBelong)
{
    const std::pair<const char*, const char*> cases[] = {
        // A label fills its content; a picture box draws a single picture unscaled, in the middle of the
        // control and cut by the content, and all else to fill.
        {R"(label back_image="strip2" margin="5,6,7,8")", "red 5,6,34,17"},
        {R"(picturebox icon="dot")", "blue 16,8,24,16"},
        {R"(picturebox icon="dot" margin="8,0,0,0")", "blue 16,8,24,16"},
        {R"(picturebox icon="dot" margin="18,10,0,0")", "blue 18,10,24,16"},
        {R"(picturebox icon="stretched" margin="1,2,3,4")", "blue 1,2,38,21"},
        {R"(picturebox icon="strip" margin="1,2,3,4")", "red 1,2,38,21"},
        {R"(picturebox)", ""},
        {R"(picturebox icon="none")", ""},
        // A progress bar shows icon 1 as far as it has come, rounded down, and icon 0 behind.
        {R"(horz_progressbar back_image="strip2" range="0,100" pos="50")", "red 20,0,41,25 green 0,0,20,25"},
        {R"(vert_progressbar back_image="strip2" range="0,3" pos="1")", "red 0,0,41,17 green 0,17,41,25"},
        {R"(horz_progressbar back_image="strip2" range="0,100" pos="0")", "red 0,0,41,25"},
        {R"(horz_progressbar back_image="strip2" range="-10,10" pos="10")", "green 0,0,41,25"},
        {R"(horz_progressbar back_image="strip2" range="0,4" pos="1" margin="2,3,8,7")",
         "red 9,3,33,18 green 2,3,9,18"},
        {R"(horz_progressbar back_image="strip2" range="5,5" pos="5")", "red 0,0,41,25"},
        {R"(vert_progressbar back_image="strip2" range="10,0" pos="5")", "red 0,0,41,25"},
        {R"(horz_progressbar back_image="strip2" range="-2147483648,2147483647" pos="0")",
         "red 20,0,41,25 green 0,0,20,25"},
        {R"(horz_progressbar back_image="dot" range="0,100" pos="60")", ""},
        // A track bar without a thumb image is filled up to the position; colours make a track without an
        // image.
        {R"(horz_trackbar back_image="strip2" range="0,100" pos="40")", "red 16,0,41,25 green 0,0,16,25"},
        {R"(horz_trackbar back_color="#FFFF0000,#FFFF0000")", "red 0,0,41,4"},
        {R"(vert_trackbar back_color="red,red")", "red 0,0,41,25"},
        {R"(horz_trackbar back_color="blue")", "blue 0,0,41,4"},
        {R"(horz_trackbar back_color="blue" back_image="strip2")", "red 0,0,41,25"},
        {R"(horz_trackbar back_image="dot")", ""},
    };
    for (const auto& [element, colors] : cases) {
        ControlWindow window({41, 25}, std::string("<") + element + "/>");
        EXPECT_EQ(Colors(window), colors) << element;
    }
    ControlWindow small({5, 6}, R"(<picturebox icon="dot"/>)");
    EXPECT_EQ(Colors(small), "blue 0,0,5,6") << "a picture that is larger than the control";
}

TEST_F(Pictures, SayHowLargeTheyAre)
{
    const std::pair<const char*, const char*> cases[] = {
        {R"(picturebox margin="1,2,3,4")", "4,6"},
        {R"(picturebox icon="strip" margin="1,2,3,4")", "24,26"},
        {R"(picturebox icon="strip" margin="1,2,3,4" width="7")", "7,26"},
        {R"(horz_progressbar back_image="strip2" margin="1,2,3,4")", "24,16"},
        {R"(horz_progressbar back_image="strip2" margin="1,2,3,4" height="5")", "24,5"},
        {R"(vert_trackbar margin="1,2,3,4")", "4,6"},
        {R"(vert_trackbar back_image="strip2")", "20,10"},
        {R"(vert_trackbar back_image="strip2" thumb_image="strip")", "20,20"},
        {R"(vert_trackbar back_image="expander" thumb_image="strip" margin="1,2,3,4")", "24,26"},
        {R"(vert_trackbar back_image="strip2" height="30")", "20,30"},
        {R"(label back_image="strip2" margin="5,6,7,8")", "none"},
        // With the image of the state, before it is painted
        {R"(radio_button unchecked_image="dot")", "13,8"},
        {R"(radio_button checked_image="strip")", "0,0"},
        {R"(radio_button checked_image="strip" unchecked_image="dot")", "13,8"},
        {R"(radio_button icon="strip" checked_image="dot")", "25,20"},
    };
    for (const auto& [element, expected] : cases)
        EXPECT_EQ(Estimate(ControlWindow({20, 20}, std::string("<") + element + "/>")), expected) << element;
}

TEST_F(Pictures, StepThroughAStrip)
{
    ControlWindow window({20, 20}, R"(<picturebox icon="strip"/>)");
    auto& box = window.Root<CDUIPictureBox>();
    EXPECT_EQ(box.GetIconCount(), 4);
    box.SetCurrentIconIndex(2);
    for (const int ignored : {4, -1})
        box.SetCurrentIconIndex(ignored);
    EXPECT_EQ(box.GetCurrentIconIndex(), 2);
    box.UpdateLayout(FALSE, nullptr);
    EXPECT_EQ(window.Paint().At(1, 1), kBlue);
    box.SetAttribute("icon", "strip2");
    EXPECT_EQ(window.Paint().At(1, 1), kRed) << "an index that the new picture lacks shows its first icon";
    box.SetImage(nullptr);
    EXPECT_EQ(box.GetIconCount(), 0);
    box.SetCurrentIconIndex(0);
    EXPECT_EQ(box.GetCurrentIconIndex(), 2);
}

}  // namespace
}  // namespace qvui::test
