#include <qvui/controls/progress_bar.h>

#include "controls/pixels.h"
#include "support/controls/control_test.h"

namespace qvui::test {
namespace {

using namespace DUI;

class ProgressBar : public ControlTest {};

TEST_F(ProgressBar, RevealsTheReachedPart)
{
    const struct {
        const char* name;
        SIZE client;
        const char* element;
        const char* reached;  // shown in icon 1's green
        const char* whole;    // of both colours' bounds, the empty bar's red
    } cases[] = {
        {"half", {200, 10}, R"(horz_progressbar range="0,100" pos="50")", "0,0,100,10", "100,0,200,10"},
        {"rounded down, upwards", {4, 10}, R"(vert_progressbar range="0,3" pos="1")", "0,7,4,10", "0,0,4,7"},
        {"nothing reached", {20, 10}, R"(horz_progressbar range="0,100" pos="0")", "0,0,0,0", "0,0,20,10"},
        {"all reached", {20, 10}, R"(horz_progressbar range="-10,10" pos="10")", "0,0,20,10", "0,0,0,0"},
        {"within the margin",
         {30, 20},
         R"(horz_progressbar range="0,4" pos="1" margin="2,3,8,7")",
         "2,3,7,13",
         "7,3,22,13"},
        {"an empty range", {20, 10}, R"(horz_progressbar range="5,5" pos="5")", "0,0,0,0", "0,0,20,10"},
        {"a reversed range is empty",
         {20, 10},
         R"(vert_progressbar range="10,0" pos="5")",
         "0,0,0,0",
         "0,0,20,10"},
        {"the widest range",
         {20, 10},
         R"(horz_progressbar range="-2147483648,2147483647" pos="0")",
         "0,0,10,10",
         "10,0,20,10"},
    };
    for (const auto& c : cases) {
        ControlWindow window(c.client, std::string("<") + c.element + " back_image=\"strip2\"/>");
        const ClientPixels pixels = window.Paint();
        EXPECT_EQ(Bounds(pixels, kGreen), c.reached) << c.name;
        EXPECT_EQ(Bounds(pixels, kRed), c.whole) << c.name;
    }
}

TEST_F(ProgressBar, TheFullImageKeepsItsGeometry)
{
    // The full bar's icon is red on its left half and blue on its right half.
    SkinAdditions additions;
    additions.images = "<image name=\"halves\" config_type=\"file\" count=\"2\" file_name=\"" +
                       TestSkin::File("halves.png") + "\"/>";
    WriteStrip(TestSkin::Path("halves.png"), 10, 10, {0xFF808080, 0xFF808080, 0xFFFF0000, 0xFF0000FF});
    UseSkin(additions);
    ControlWindow window({100, 10}, R"(<horz_progressbar back_image="halves" range="0,100" pos="60"/>)");
    EXPECT_EQ(Bounds(window.Paint(), kRed), "0,0,50,10");
    EXPECT_EQ(Bounds(window.Paint(), kBlue), "50,0,60,10");
    EXPECT_EQ(Bounds(window.Paint(), kGrey), "60,0,100,10");
}

TEST_F(ProgressBar, DrawsNothingWithoutBothIcons)
{
    ControlWindow window({20, 10}, R"(<horz_progressbar back_image="dot" range="0,100" pos="60"/>)");
    EXPECT_EQ(Bounds(window.Paint(), kBlue), "0,0,0,0");
}

TEST_F(ProgressBar, NotifiesOfEveryChangeOnce)
{
    ControlWindow window({20, 10}, R"(<horz_progressbar name="p" range="0,100"/>)");
    auto* const bar = &window.Root<CDUIProgressBar>();
    const auto moved = [](WPARAM position) {
        return std::vector<Noticed>{{DUINOTIFY_PROGRESSPOS, "p", position, 0}};
    };
    const std::vector<Noticed> nothing;
    window.Paint();
    bar->SetPos(150);
    EXPECT_EQ(window.TakeNotifications(), moved(100));
    EXPECT_EQ(Text(window.Invalid()), "0,0,20,10");
    window.Validate();
    bar->SetPos(200);
    EXPECT_EQ(window.TakeNotifications(), nothing);
    EXPECT_EQ(Text(window.Invalid()), "0,0,0,0") << "nothing is repainted in vain";
    bar->SetPos(5);
    window.TakeNotifications();
    EXPECT_TRUE(bar->OffsetPos(3));
    EXPECT_EQ(window.TakeNotifications(), moved(8));
    EXPECT_FALSE(bar->OffsetPos(-10));
    EXPECT_EQ(window.TakeNotifications(), moved(0));
    EXPECT_FALSE(bar->OffsetPos(-1));
    EXPECT_EQ(window.TakeNotifications(), nothing);
    EXPECT_TRUE(bar->OffsetPos(100));
    EXPECT_FALSE(bar->OffsetPos(2147483647));
    EXPECT_EQ(window.TakeNotifications(), moved(100));
    bar->SetRange(0, 50);
    EXPECT_EQ(bar->GetPos(), 50);
    EXPECT_EQ(window.TakeNotifications(), nothing) << "a range moves the position silently";
    bar->SetRange(60, 10);
    int low = 0, high = 0;
    bar->GetRange(low, high);
    EXPECT_EQ(low, 60);
    EXPECT_EQ(high, 60);
    EXPECT_EQ(bar->GetPos(), 60);
}

TEST_F(ProgressBar, ReadsItsRangeNumberByNumber)
{
    const struct {
        const char* value;
        int low;
        int high;
    } cases[] = {
        {"1,9", 1, 9}, {"1; 9", 1, 9}, {"-5 5", -5, 5}, {"7", 7, 7},
        {"", 0, 0},    {"x,9", 0, 0},  {"3,,9", 3, 3},
    };
    ControlWindow window({20, 10}, "<vert_progressbar/>");
    for (const auto& c : cases) {
        window.Root<CDUIProgressBar>().SetAttribute("range", c.value);
        int low = -1, high = -1;
        window.Root<CDUIProgressBar>().GetRange(low, high);
        EXPECT_EQ(low, c.low) << c.value;
        EXPECT_EQ(high, c.high) << c.value;
    }
}

TEST_F(ProgressBar, EstimatesOneIconAndTheMargin)
{
    ControlWindow window({20, 10}, R"(<horz_progressbar back_image="strip2" margin="1,2,3,4"/>)");
    SIZE size{};
    EXPECT_TRUE(window.Root<CDUIProgressBar>().EstimateSize({0, 0}, size));
    EXPECT_EQ(size.cx, 24);
    EXPECT_EQ(size.cy, 16);
    window.Root<CDUIProgressBar>().SetFixedHeight(5);
    window.Root<CDUIProgressBar>().EstimateSize({0, 0}, size);
    EXPECT_EQ(size.cy, 5);
}

}  // namespace
}  // namespace qvui::test
