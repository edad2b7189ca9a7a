#include <qvui/controls/hyper_link.h>
#include <qvui/controls/track_bar.h>

#include "support/controls/big_text.h"
#include "support/controls/control_test.h"

// What the scripts of tests/scenarios cannot say about the simple controls.

namespace qvui::test {
namespace {

using namespace DUI;

class Controls : public ControlTest {
public:
    Controls() : ControlTest(BigText()) {}
};

TEST_F(Controls, LabelsMeasureAnewWhenTheirFontChanges)
{
    ControlWindow window({60, 40}, "<label text=\"#one two\" text_style=\"big\"/>");
    const auto measure = [&window] {
        SIZE size{};
        window.Root().EstimateSize({1, 1}, size);
        return size;
    };
    const SIZE before = measure();
    const CRefPtr<CFontObject> font = Skin().Manager().GetTextStyle("big")->GetNormalFont();
    font->SetHeight(font->GetHeight() * 2);
    font->CreateFontA();
    EXPECT_GT(measure().cy, before.cy);
}

TEST_F(Controls, LabelsMeasureWhateverAnOverrideShows)
{
    struct Clock : CDUILabel {
        const CString& GetText() override { return m_time; }
        CString m_time;
    };
    const CRefPtr<Clock> clock = new Clock;
    clock->SetTextStyle(Skin().Manager().GetTextStyle("big"));
    LONG widest = 0;
    for (const char* time : {"9", "9:00", "9:00:00"}) {
        clock->m_time = time;
        SIZE size{};
        EXPECT_TRUE(clock->EstimateSize({1, 1}, size));
        EXPECT_GT(size.cx, widest) << time;
        widest = size.cx;
    }
}

TEST_F(Controls, TheLinkIsTheTooltipUnlessThereIsOne)
{
    const struct {
        const char* attributes;
        const char* tooltip;
    } cases[] = {
        {R"(href="a.htm")", "a.htm"},
        {R"(tooltip="#help" href="a.htm")", "help"},
        {R"(href="a.htm" tooltip="#help")", "help"},
        {R"(href="b.htm" href2="" HREF="a.htm")", "b.htm"},
    };
    for (const auto& c : cases) {
        ControlWindow window({50, 20}, std::string("<hyperlink ") + c.attributes + "/>");
        EXPECT_EQ(window.Root<CDUIHyperLink>().GetTooltip(), c.tooltip) << c.attributes;
        EXPECT_EQ(window.Root<CDUIHyperLink>().GetHyperLink(), "a.htm") << c.attributes;
    }
}

TEST_F(Controls, TheThumbTakesTheTooltipOnce)
{
    ControlWindow window({110, 10}, R"(<horz_trackbar tooltip="#volume"/>)");
    auto& bar = window.Root<CDUITrackBarBase>();
    EXPECT_EQ(bar.GetThumbButton()->GetTooltip(), "volume");
    bar.SetTooltip("loudness");
    EXPECT_EQ(bar.GetTooltip(), "loudness");
    EXPECT_EQ(bar.GetThumbButton()->GetTooltip(), "volume");
}

TEST_F(Controls, AThumbDoesNotRememberABarThatHasGone)
{
    ControlWindow window({110, 10}, R"(<horz_trackbar/>)");
    auto& bar = window.Root<CDUITrackBarBase>();
    const CRefPtr<IDUIControl> thumb = bar.GetThumbButton();
    bar.RemoveAllControl();
    EXPECT_EQ(bar.GetThumbButton(), nullptr);
    window.Close();
    BOOL bHandled = FALSE;
    thumb->OnDUIEvent({DUIEVENT_MOUSEENTER, nullptr, {}, 0, 0, 0, 0}, bHandled);
}

}  // namespace
}  // namespace qvui::test
