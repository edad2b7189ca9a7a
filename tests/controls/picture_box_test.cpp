#include <qvui/controls/picture_box.h>

#include "controls/pixels.h"
#include "support/controls/control_test.h"

namespace qvui::test {
namespace {

using namespace DUI;

SkinAdditions StretchedDot()
{
    SkinAdditions additions;
    additions.images = "<image name=\"stretched\" config_type=\"file\" drawstyle=\"stretch\" file_name=\"" +
                       TestSkin::File("dot.png") + "\"/>";
    return additions;
}

class PictureBox : public ControlTest {
public:
    PictureBox() : ControlTest(StretchedDot()) {}
};

TEST_F(PictureBox, DrawsASinglePictureUnscaledAndAllElseToFill)
{
    const struct {
        const char* name;
        SIZE client;
        const char* attributes;
        std::uint32_t color;
        const char* bounds;
    } cases[] = {
        {"centred, rounded down", {33, 24}, R"(icon="dot")", kBlue, "12,8,20,16"},
        {"centred in the control, not in the content",
         {32, 24},
         R"(icon="dot" margin="8,0,0,0")",
         kBlue,
         "12,8,20,16"},
        {"cut by the content", {32, 24}, R"(icon="dot" margin="14,10,0,0")", kBlue, "14,10,20,16"},
        {"larger than the control", {5, 6}, R"(icon="dot")", kBlue, "0,0,5,6"},
        {"stretched", {32, 24}, R"(icon="stretched" margin="1,2,3,4")", kBlue, "1,2,29,20"},
        {"a strip", {32, 24}, R"(icon="strip" margin="1,2,3,4")", kRed, "1,2,29,20"},
        {"nothing", {32, 24}, "", kBlue, "0,0,0,0"},
        {"an unknown picture", {32, 24}, R"(icon="none")", kBlue, "0,0,0,0"},
    };
    for (const auto& c : cases) {
        ControlWindow window(c.client, std::string("<picturebox ") + c.attributes + "/>");
        EXPECT_EQ(Bounds(window.Paint(), c.color), c.bounds) << c.name;
    }
}

TEST_F(PictureBox, StepsThroughAStrip)
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

TEST_F(PictureBox, EstimatesIconAndMargin)
{
    const struct {
        const char* attributes;
        SIZE expected;
    } cases[] = {
        {R"(margin="1,2,3,4")", {4, 6}},
        {R"(icon="strip" margin="1,2,3,4")", {24, 26}},
        {R"(icon="strip" margin="1,2,3,4" width="7")", {7, 26}},
    };
    for (const auto& c : cases) {
        ControlWindow window({20, 20}, std::string("<picturebox ") + c.attributes + "/>");
        EXPECT_EQ(Estimate(window), Text(c.expected)) << c.attributes;
    }
}

}  // namespace
}  // namespace qvui::test
