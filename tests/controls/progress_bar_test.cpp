#include <qvui/controls/progress_bar.h>

#include "controls/pixels.h"
#include "support/controls/control_test.h"

namespace qvui::test {
namespace {

using namespace DUI;

class ProgressBar : public ControlTest {};

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

TEST_F(ProgressBar, NotifiesOfEveryChangeOnce)
{
    ControlWindow window({20, 10}, R"(<horz_progressbar name="p" range="0,100"/>)");
    auto& bar = window.Root<CDUIProgressBar>();
    const auto moved = [](WPARAM position) {
        return std::vector<Noticed>{{DUINOTIFY_PROGRESSPOS, "p", position, 0}};
    };
    const std::vector<Noticed> nothing;
    window.Paint();
    bar.SetPos(150);
    EXPECT_EQ(window.TakeNotifications(), moved(100));
    EXPECT_EQ(Text(window.Invalid()), "0,0,20,10");
    window.Validate();
    bar.SetPos(200);
    EXPECT_EQ(window.TakeNotifications(), nothing);
    EXPECT_EQ(Text(window.Invalid()), "0,0,0,0") << "nothing is repainted in vain";
    bar.SetPos(5);
    window.TakeNotifications();
    EXPECT_TRUE(bar.OffsetPos(3));
    EXPECT_EQ(window.TakeNotifications(), moved(8));
    EXPECT_FALSE(bar.OffsetPos(-10));
    EXPECT_EQ(window.TakeNotifications(), moved(0));
    EXPECT_FALSE(bar.OffsetPos(-1));
    EXPECT_EQ(window.TakeNotifications(), nothing);
    EXPECT_TRUE(bar.OffsetPos(100));
    EXPECT_FALSE(bar.OffsetPos(2147483647));
    EXPECT_EQ(window.TakeNotifications(), moved(100));
    bar.SetRange(0, 50);
    EXPECT_EQ(bar.GetPos(), 50);
    EXPECT_EQ(window.TakeNotifications(), nothing) << "a range moves the position silently";
    bar.SetRange(60, 10);
    int low = 0, high = 0;
    bar.GetRange(low, high);
    EXPECT_EQ(low, 60);
    EXPECT_EQ(high, 60);
    EXPECT_EQ(bar.GetPos(), 60);
}

}  // namespace
}  // namespace qvui::test
