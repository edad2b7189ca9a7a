#include <qvui/tooltip/tool_tip.h>

#include <functional>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include <qvui/tooltip/html_drawer.h>

#include "support/controls/control_test.h"
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

TEST_F(ToolTip, GoesWhenSomethingElseIsMeant)
{
    const PlatformWindow another({.place = {500, 400, 510, 410}});
    const auto message = [](UINT number) { return [=](ToolTipHost& at) { at.Relay(number); }; };
    const struct {
        const char* name;
        std::function<void(ToolTipHost&)> happen;
        UINT_PTR timer = 0;  // that comes due then
    } cases[] = {
        {"press", message(WM_LBUTTONDOWN)},
        {"press with the right button", message(WM_RBUTTONDOWN)},
        {"press of the caption", message(WM_NCLBUTTONDOWN)},
        {"wheel", message(WM_MOUSEWHEEL)},
        {"key", message(WM_KEYDOWN)},
        {"key with Alt", message(WM_SYSKEYDOWN)},
        {"pointer over the frame", message(WM_NCMOUSEMOVE)},
        {"pointer over nothing", [](auto& at) { at.MoveTo(250, 60); }},
        {"pointer over another text", [](auto& at) { at.MoveTo(150, 60); }},
        {"pointer gone", [](auto& at) { SetCursorPos(0, 0), at.Relay(WM_MOUSELEAVE); }},
        {"other application active", [](auto& at) { SendMessageA(at.tip->GetHWND(), WM_ACTIVATEAPP, 0, 0); }},
        {"told so", [](auto& at) { at.tip->HideTooltip(); }},
        {"long enough", [](auto&) {}, kToolTipHide},
        {"pointer gone unnoticed", [](auto&) { SetCursorPos(0, 0); }, kToolTipWatch},
        {"host moved", [](auto& at) { MoveWindow(*at.window, 110, 100, 300, 200, TRUE); }, kToolTipWatch},
        {"host disabled", [](auto& at) { EnableWindow(*at.window, FALSE); }, kToolTipWatch},
        {"another window active", [&another](auto&) { SetActiveWindow(another); }, kToolTipWatch},
        {"tool gone", [](auto& at) { at.tip->DelTool(*at.window, 1); }, kToolTipWatch},
    };
    for (const auto& c : cases) {
        ToolTipHost other;
        ASSERT_EQ(other.RestAt(50, 60), "one") << c.name;
        other.Fire(kToolTipWatch);
        ASSERT_EQ(other.Shown(), "one") << c.name;
        c.happen(other);
        if (c.timer)
            other.Fire(c.timer);
        EXPECT_FALSE(other.tip->IsTooltipVisible()) << c.name;
        EXPECT_FALSE(IsWindowVisible(other.tip->GetHWND())) << c.name;
    }
}

TEST_F(ToolTip, StaysWhileTheTextIsTheSame)
{
    ASSERT_EQ(host.RestAt(50, 60), "one");
    const RECT place = host.Place();
    host.MoveTo(60, 70);
    for (const UINT message : {WM_TIMER, WM_LBUTTONUP, WM_KEYUP})
        host.Relay(message);
    EXPECT_EQ(host.Shown(), "one");
    EXPECT_EQ(Text(host.Place()), Text(place)) << "it does not follow the pointer";
    host.texts[0] = "changed";
    const int questions = host.questions;
    host.MoveTo(60, 70);
    EXPECT_EQ(host.questions, questions) << "a move without movement changes nothing";
    EXPECT_TRUE(host.tip->IsTooltipVisible());
}

TEST_F(ToolTip, OncePutAwayItWaitsForAnotherText)
{
    const auto message = [](UINT number) { return [=](ToolTipHost& at) { at.Relay(number); }; };
    const struct {
        const char* name;
        bool showsFirst;
        std::function<void(ToolTipHost&)> putAway;
        const char* again;  // what shows on the same text afterwards
    } cases[] = {
        {"by a press", true, message(WM_LBUTTONDOWN), ""},
        {"by a key", true, message(WM_KEYDOWN), ""},
        {"by the end of its stay", true, [](ToolTipHost& at) { at.Fire(kToolTipHide); }, ""},
        {"by a press before it showed", false, message(WM_LBUTTONDOWN), ""},
        {"by the application", true, [](ToolTipHost& at) { at.tip->HideTooltip(); }, "one"},
    };
    for (const auto& c : cases) {
        ToolTipHost at;
        at.MoveTo(50, 60);
        if (c.showsFirst)
            at.Fire(kToolTipShow);
        c.putAway(at);
        EXPECT_EQ(at.RestAt(55, 60), c.again) << c.name;
        EXPECT_EQ(at.RestAt(150, 60), "two") << c.name;
        EXPECT_EQ(at.RestAt(50, 60), "one") << c.name << ", back again";
    }
}

TEST_F(ToolTip, WaitsWhileAButtonIsDown)
{
    host.Relay(WM_LBUTTONDOWN);
    host.MoveTo(50, 60, MK_LBUTTON);
    host.Fire(kToolTipShow);
    EXPECT_EQ(host.Shown(), "");
    EXPECT_EQ(host.RestAt(51, 60), "one");
}

TEST_F(ToolTip, ShowsOnlyWhileItsHostIsActiveAndEnabled)
{
    const PlatformWindow other({.place = {500, 100, 600, 200}});
    SetActiveWindow(other);
    EXPECT_EQ(host.RestAt(50, 60), "");
    SetActiveWindow(*host.window);
    EXPECT_EQ(host.RestAt(51, 60), "one");
    host.tip->HideTooltip();
    EnableWindow(*host.window, FALSE);
    EXPECT_EQ(host.RestAt(52, 60), "");
}

TEST_F(ToolTip, ShowsForAWindowThatAnActiveOneOwns)
{
    const PlatformWindow owned({.place = {0, 0, 50, 50}, .parent = *host.window});
    SetActiveWindow(owned);
    EXPECT_EQ(host.RestAt(50, 60), "one");
}

TEST_F(ToolTip, ToolsAreRectanglesWithTextsOfTheirOwn)
{
    const HWND window = *host.window;
    host.tip->DelTool(window, 1);
    host.tip->AddTool(window, "first", {0, 0, 50, 50}, 7);
    host.tip->AddTool(window, "second", {50, 0, 100, 50}, 8);
    EXPECT_EQ(host.RestAt(49, 49), "first");
    EXPECT_EQ(host.lastQuestion.hdr.hwndFrom, host.tip->GetHWND());
    EXPECT_EQ(host.RestAt(50, 49), "second");
    EXPECT_EQ(host.RestAt(100, 49), "");
    EXPECT_EQ(host.RestAt(50, 50), "");
    host.tip->AddTool(window, "replaced", {0, 0, 50, 50}, 7);
    EXPECT_EQ(host.RestAt(10, 10), "replaced");
    host.tip->DelTool(window, 7);
    EXPECT_EQ(host.RestAt(20, 20), "");
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
