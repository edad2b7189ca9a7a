#include <qvui/tooltip/tool_tip.h>

#include <functional>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include <qvui/tooltip/html_drawer.h>

#include "support/controls/control_test.h"
#include "support/transcript.h"
#include "tooltip/popup_placement.h"
#include "tooltip/tool_tip_host.h"
#include "tooltip/tool_tip_timers.h"

using namespace DUI;
using namespace qvui::test;

namespace {

class ToolTip : public testing::Test {
    LeakCheck m_leaks;

protected:
    ToolTipHost host;
};

TEST_F(ToolTip, ShowsWhatTheOwnerSaysWhereThePointerRests)
{
    host.MoveTo(50, 60);
    EXPECT_EQ(host.Shown(), "") << "the pointer has not rested yet";
    EXPECT_EQ(host.RestAt(50, 60), "one");
    const NM_TOOLTIP_DISPLAY& question = host.lastQuestion;
    EXPECT_EQ(question.hdr.code, 0x464u);
    EXPECT_EQ(question.hdr.hwndFrom, host.tip->GetHWND());
    EXPECT_EQ(static_cast<int>(question.hdr.idFrom), host.tip->GetDlgCtrlID());
    EXPECT_EQ(question.hwndTool, *host.window);
    EXPECT_EQ(Text(question.pt), "150,160");
    EXPECT_EQ(Text(POINT{host.Place().left, host.Place().top}), "155,182");
    EXPECT_EQ(host.RestAt(250, 60), "") << "no text";
}

TEST_F(ToolTip, ShowsAndGoesAsItIsWritten)
{
    ToolTipScript script;
    ExpectTranscript("tooltip/tool_tip.txt", LineByLine([&script](auto& line) { return script.Do(line); }));
}

TEST_F(ToolTip, NeverTakesFocusActivationOrMouse)
{
    SetFocus(*host.window);
    ASSERT_EQ(host.RestAt(50, 60), "one");
    EXPECT_EQ(GetActiveWindow(), host.window->Handle());
    EXPECT_EQ(GetFocus(), *host.window);
    const HWND tip = host.tip->GetHWND();
    EXPECT_EQ(SendMessageA(tip, WM_NCHITTEST, 0, 0), HTTRANSPARENT);
    EXPECT_EQ(GetWindow(tip, GW_OWNER), *host.window);
    const POINT inside{host.Place().left + 2, host.Place().top + 2};
    EXPECT_EQ(WindowFromPoint(inside), *host.window);
}

TEST_F(ToolTip, ShowsForAWindowThatAnActiveOneOwns)
{
    const PlatformWindow owned({.place = {0, 0, 50, 50}, .parent = *host.window});
    SetActiveWindow(owned);
    EXPECT_EQ(host.RestAt(50, 60), "one");
}

TEST_F(ToolTip, ChildWindowsArePartOfTheTool)
{
    const PlatformWindow child({.place = {100, 0, 200, 200}, .style = WS_CHILD, .parent = *host.window});
    SetCursorPos(250, 160);
    MSG move{child, WM_MOUSEMOVE, 0, MAKELPARAM(50, 60), 0, {}};
    host.tip->RelayEvent(&move);
    host.Fire(kToolTipShow);
    EXPECT_EQ(host.Shown(), "two");
    // The pointer leaves the child for its parent: still the tool.
    SetCursorPos(150, 160);
    MSG leave{child, WM_MOUSELEAVE, 0, 0, 0, {}};
    host.tip->RelayEvent(&leave);
    EXPECT_EQ(host.Shown(), "two");
}

TEST_F(ToolTip, OtherWindowsAreNoTool)
{
    ASSERT_EQ(host.RestAt(50, 60), "one");
    const PlatformWindow other;
    MSG move{other, WM_MOUSEMOVE, 0, MAKELPARAM(5, 5), 0, {}};
    host.tip->RelayEvent(&move);
    EXPECT_EQ(host.Shown(), "");
}

TEST_F(ToolTip, IsAsLargeAsItsTextAndItsMargins)
{
    ASSERT_EQ(host.RestAt(50, 60), "one");
    CPPHtmlDrawer drawer;
    drawer.SetText("one");
    const SIZE text = drawer.Measure(nullptr, 1000);
    EXPECT_EQ(Text(host.Size()), Text(SIZE{text.cx + 2 * 6, text.cy + 2 * 6}));
    host.tip->SetMargin(20, 0);
    host.tip->SetOffset(0, 30);
    host.tip->HideTooltip();
    ASSERT_EQ(host.RestAt(51, 60), "one");
    EXPECT_EQ(Text(host.Size()), Text(SIZE{text.cx + 2 * 21, text.cy + 2 * 1}));
    EXPECT_EQ(Text(POINT{host.Place().left, host.Place().top}), "151,202");
}

TEST_F(ToolTip, LongTextsStayOnTheScreen)
{
    for (const std::string& unit :
         {std::string("words and words "), std::string("endless"), std::string("line\n")}) {
        std::string& text = host.texts[0];
        text.clear();
        while (text.size() < 100000)
            text += unit;
        host.tip->HideTooltip();
        ASSERT_EQ(host.RestAt(50, static_cast<int>(unit.size())), text);
        const RECT place = host.Place(), area = WorkAreaAt({150, 160});
        RECT both{};
        UnionRect(&both, &place, &area);
        EXPECT_EQ(Text(both), Text(area)) << unit;
    }
}

TEST_F(ToolTip, PaintsTheColoursThatTheOwnerGives)
{
    host.tip->SetBkColor(CARGB(10, 200, 30, 255));
    host.texts[0] = "&nbsp;";
    ASSERT_NE(host.RestAt(50, 60), "");
    const ClientPixels plain = ReadClient(host.tip->GetHWND());
    EXPECT_EQ(plain.At(plain.width / 2, 2), 0x0AC81Eu);
    EXPECT_EQ(plain.At(0, plain.height / 2), 0x067812u) << "the border is a darker shade";

    host.onAsked = [](NM_TOOLTIP_DISPLAY& question) {
        question.ti->nMask |= TOOLTIP_MASK_COLORS;
        question.ti->nEffect = TOOLTIP_EFFECT_3VGRADIENT;
        question.ti->crBegin = RGB(255, 0, 0);
        question.ti->crMid = RGB(0, 255, 0);
        question.ti->crEnd = RGB(0, 0, 255);
    };
    host.texts[1] = "&nbsp;&nbsp;";
    ASSERT_NE(host.RestAt(150, 60), "");
    const ClientPixels gradient = ReadClient(host.tip->GetHWND());
    EXPECT_GT(gradient.At(gradient.width / 2, 1) >> 16, 180u);
    EXPECT_GT((gradient.At(gradient.width / 2, gradient.height / 2) >> 8) & 0xFF, 180u);
    EXPECT_GT(gradient.At(gradient.width / 2, gradient.height - 2) & 0xFF, 180u);
}

TEST_F(ToolTip, RoundedCornersAreCutOff)
{
    host.tip->SetCorner(12);
    ASSERT_EQ(host.RestAt(50, 60), "one");
    const HRGN region = CreateRectRgn(0, 0, 0, 0);
    ASSERT_NE(GetWindowRgn(host.tip->GetHWND(), region), 0);
    const int width = host.Size().cx;
    EXPECT_FALSE(PtInRegion(region, 0, 0));
    EXPECT_FALSE(PtInRegion(region, width - 1, 0));
    EXPECT_TRUE(PtInRegion(region, width / 2, 0));
    DeleteObject(region);
}

TEST_F(ToolTip, TheOwnerMayDestroyItWhenAsked)
{
    host.onAsked = [this](NM_TOOLTIP_DISPLAY&) { host.tip->DestroyWindow(); };
    EXPECT_EQ(host.RestAt(50, 60), "");
    EXPECT_EQ(host.tip->GetHWND(), nullptr);
    host.onAsked = nullptr;
    EXPECT_TRUE(host.tip->Create(*host.window));
    EXPECT_EQ(host.RestAt(50, 61), "one");
    // The object, too: here from inside a move that asks again.
    host.onAsked = [this](NM_TOOLTIP_DISPLAY&) { host.tip.reset(); };
    MSG move{*host.window, WM_MOUSEMOVE, 0, MAKELPARAM(150, 60), 0, {}};
    host.tip->RelayEvent(&move);
    EXPECT_EQ(host.tip, nullptr);
}

TEST_F(ToolTip, GoesWithItsHost)
{
    ASSERT_EQ(host.RestAt(50, 60), "one");
    EXPECT_FALSE(host.tip->Create(*host.window)) << "there is one already";
    host.window->Destroy();
    EXPECT_EQ(host.tip->GetHWND(), nullptr);
    EXPECT_FALSE(host.tip->IsTooltipVisible());
    host.Relay(WM_MOUSEMOVE);
    host.tip->HideTooltip();
    EXPECT_FALSE(host.tip->Create(nullptr));
}

// The whole way: controls with tooltips in a window whose manager owns the tooltip window.
TEST_F(ControlTest, ControlsShowTheirTooltips)
{
    ControlWindow window({300, 100},
                         "<horz_layout>"
                         "<button width=\"100\" tooltip=\"#&lt;b&gt;first&lt;/b&gt;\"/><label width=\"100\"/>"
                         "<button width=\"100\" tooltip=\"#second\"/></horz_layout>");
    SetActiveWindow(window.Handle());
    HWND tip = GetWindow(window.Handle(), GW_HWNDFIRST);
    while (tip && GetWindow(tip, GW_OWNER) != window.Handle())
        tip = GetWindow(tip, GW_HWNDNEXT);
    ASSERT_NE(tip, nullptr);
    const auto restAt = [&](int x) {
        window.mouse.MoveTo({x, 50});
        window.Translate(WM_MOUSEMOVE, 0, MAKELPARAM(x, 50));
        SendMessageA(tip, WM_TIMER, kToolTipShow, 0);
        return IsWindowVisible(tip) != FALSE;
    };
    EXPECT_TRUE(restAt(50));
    const ClientPixels pixels = ReadClient(tip);
    EXPECT_NEAR(pixels.At(pixels.width / 2, 1) & 0xFF, 0xF9, 2) << "from light blue";
    EXPECT_NEAR(pixels.At(pixels.width / 2, pixels.height - 2) & 0xFF, 0xEF, 2) << "to a darker one";
    EXPECT_FALSE(restAt(150)) << "the label between them has none";
    EXPECT_TRUE(restAt(250));
    window.Translate(WM_KEYDOWN, VK_F1);
    EXPECT_FALSE(IsWindowVisible(tip));
}

}  // namespace
