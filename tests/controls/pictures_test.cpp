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

TEST_F(Pictures, StandWhereTheyBelong)
{
    struct Patch {
        std::uint32_t color;
        const char* bounds;
    };
    constexpr const char* kNone = "0,0,0,0";
    const struct {
        const char* name;
        SIZE client;
        const char* element;
        std::vector<Patch> patches;
    } cases[] = {
        // A label fills its content; a picture box draws a single picture unscaled and all else to fill.
        {"label", {60, 40}, R"(label back_image="strip2" margin="5,6,7,8")", {{kRed, "5,6,53,32"}}},
        {"centred, rounded down", {33, 24}, R"(picturebox icon="dot")", {{kBlue, "12,8,20,16"}}},
        {"centred in the control",
         {32, 24},
         R"(picturebox icon="dot" margin="8,0,0,0")",
         {{kBlue, "12,8,20,16"}}},
        {"cut by the content",
         {32, 24},
         R"(picturebox icon="dot" margin="14,10,0,0")",
         {{kBlue, "14,10,20,16"}}},
        {"larger than the control", {5, 6}, R"(picturebox icon="dot")", {{kBlue, "0,0,5,6"}}},
        {"stretched", {32, 24}, R"(picturebox icon="stretched" margin="1,2,3,4")", {{kBlue, "1,2,29,20"}}},
        {"a strip", {32, 24}, R"(picturebox icon="strip" margin="1,2,3,4")", {{kRed, "1,2,29,20"}}},
        {"no picture", {32, 24}, "picturebox", {{kBlue, kNone}}},
        {"an unknown picture", {32, 24}, R"(picturebox icon="none")", {{kBlue, kNone}}},
        // A progress bar shows strip2's green icon as far as it has come, and its red one behind.
        {"half",
         {200, 10},
         R"(horz_progressbar range="0,100" pos="50" back_image="strip2")",
         {{kGreen, "0,0,100,10"}, {kRed, "100,0,200,10"}}},
        {"rounded down, upwards",
         {4, 10},
         R"(vert_progressbar range="0,3" pos="1" back_image="strip2")",
         {{kGreen, "0,7,4,10"}, {kRed, "0,0,4,7"}}},
        {"nothing reached",
         {20, 10},
         R"(horz_progressbar range="0,100" pos="0" back_image="strip2")",
         {{kGreen, kNone}, {kRed, "0,0,20,10"}}},
        {"all reached",
         {20, 10},
         R"(horz_progressbar range="-10,10" pos="10" back_image="strip2")",
         {{kGreen, "0,0,20,10"}, {kRed, kNone}}},
        {"margin",
         {30, 20},
         R"(horz_progressbar range="0,4" pos="1" margin="2,3,8,7" back_image="strip2")",
         {{kGreen, "2,3,7,13"}, {kRed, "7,3,22,13"}}},
        {"an empty range",
         {20, 10},
         R"(horz_progressbar range="5,5" pos="5" back_image="strip2")",
         {{kGreen, kNone}, {kRed, "0,0,20,10"}}},
        {"a reversed range is empty",
         {20, 10},
         R"(vert_progressbar range="10,0" pos="5" back_image="strip2")",
         {{kGreen, kNone}, {kRed, "0,0,20,10"}}},
        {"widest",
         {20, 10},
         R"(horz_progressbar range="-2147483648,2147483647" pos="0" back_image="strip2")",
         {{kGreen, "0,0,10,10"}, {kRed, "10,0,20,10"}}},
        {"a strip of one icon",
         {20, 10},
         R"(horz_progressbar back_image="dot" range="0,100" pos="60")",
         {{kBlue, kNone}}},
        // A track bar without a thumb image is filled up to the position.
        {"no thumb",
         {100, 10},
         R"(horz_trackbar back_image="strip2" range="0,100" pos="40")",
         {{kGreen, "0,0,40,10"}, {kRed, "40,0,100,10"}}},
        {"a band of 4 pixels",
         {2, 10},
         R"(horz_trackbar back_color="#FFFF0000,#FFFF0000")",
         {{kRed, "0,0,2,4"}}},
        {"the whole height", {2, 10}, R"(vert_trackbar back_color="red,red")", {{kRed, "0,0,2,10"}}},
        {"one colour", {2, 10}, R"(horz_trackbar back_color="blue")", {{kRed, kNone}, {kBlue, "0,0,2,4"}}},
        {"an image before colours",
         {2, 10},
         R"(horz_trackbar back_color="blue" back_image="strip2")",
         {{kRed, "0,0,2,10"}, {kBlue, kNone}}},
        {"a single icon is no track", {2, 10}, R"(horz_trackbar back_image="dot")", {{kBlue, kNone}}},
    };
    for (const auto& c : cases) {
        ControlWindow window(c.client, std::string("<") + c.element + "/>");
        const ClientPixels pixels = window.Paint();
        for (const Patch& patch : c.patches)
            EXPECT_EQ(Bounds(pixels, patch.color), patch.bounds) << c.name << ", " << c.element;
    }
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
    auto* const box = &window.Root<CDUIPictureBox>();
    EXPECT_EQ(box->GetIconCount(), 4);
    box->SetCurrentIconIndex(2);
    for (const int ignored : {4, -1})
        box->SetCurrentIconIndex(ignored);
    EXPECT_EQ(box->GetCurrentIconIndex(), 2);
    box->UpdateLayout(FALSE, nullptr);
    EXPECT_EQ(window.Paint().At(1, 1), kBlue);
    box->SetAttribute("icon", "strip2");
    EXPECT_EQ(window.Paint().At(1, 1), kRed) << "an index that the new picture lacks shows its first icon";
    box->SetImage(nullptr);
    EXPECT_EQ(box->GetIconCount(), 0);
    box->SetCurrentIconIndex(0);
    EXPECT_EQ(box->GetCurrentIconIndex(), 2);
}

}  // namespace
}  // namespace qvui::test
