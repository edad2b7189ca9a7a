#include "gallery/gallery_run.h"
#include "support/manual_clock.h"
#include "support/screenshot.h"

// Every page in both skins, pixel by pixel: only native draws the same text everywhere. Time stands still, so
// that animations show their first frame.

namespace qvui::test {
namespace {

class GoldenTest : public GalleryTest {};

TEST_F(GoldenTest, EveryPageLooksTheSameInBothSkins)
{
    const ManualClock clock;
    GalleryRun run;
    for (const char* const skin : {"light", "dark"}) {
        GalleryRun::Skins().SetSkinTyle(skin);
        for (const std::string& page : run.Pages()) {
            ASSERT_TRUE(run.Window().ShowPage(page.c_str())) << page;
            RedrawWindow(run.Handle(), nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
            EXPECT_TRUE(MatchesGolden(run.Handle(), "gallery_" + page + "_" + skin));
        }
    }
}

}  // namespace
}  // namespace qvui::test
