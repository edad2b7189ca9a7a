#include <qvui/framework/app.h>

#include "support/controls/control_test.h"
#include "support/controls/probe.h"

namespace qvui::test {
namespace {

using namespace DUI;

class WindowMgr : public ControlTest {
protected:
    WindowMgr() { Probe::Register(); }
};

TEST_F(WindowMgr, AddsStyleWordsAndNeverRemovesThem)
{
    ControlWindow window({50, 50},
                         "<window nc_style='custom_nc|size_nc' caption_height='30'><probe/></window>");
    EXPECT_TRUE(window.IsDUICustomNC());
    EXPECT_TRUE(window.IsDUINCSizable());
    EXPECT_FALSE(window.IsDUISetNCRgn());
    EXPECT_EQ(window.GetCaptionHeight(), 30);
    window.OnBuilderWindowAttribute("nc_style", "region_nc LAYERED");
    EXPECT_EQ(window.GetDUIStyle(), 0xEu);
    EXPECT_EQ(window.SetDUIStyle(DUINCSTYLE_CUSTOM_NC, 0), 0xCu);
    EXPECT_FALSE(window.IsDUINCSizable());
}

TEST_F(WindowMgr, PaintsTheCentreAndTheCornersOfEveryKindOfFrame)
{
    const struct {
        const char* name;
        const char* frame;
        unsigned corner;
        unsigned centre;
    } cases[] = {
        {"colour", "back_color='blue'", 0x0000FF, 0x0000FF},
        {"straight", "back_color='blue' border_color='red' border_rect='2,2,2,2'", 0xFF0000, 0x0000FF},
        {"rounded", "back_color='blue' border_color='red' border_rect='2,2,2,2' border_round='30,30'",
         0x0000FF, 0x0000FF},
        {"image", "back_color='blue' border_image='strip' border_rect='3,3,3,3'", 0xFF0000, 0xFF0000},
        {"image alone", "border_image='strip' border_rect='3,3,3,3'", 0xFF0000, 0xFF0000},
        {"image, no centre", "border_image='strip' border_rect='30,3,30,3'", 0xFF0000, 0xFF0000},
        {"gradient", "back_color='green,green'", 0x00FF00, 0x00FF00},
    };
    SkinAdditions additions;
    for (const auto& c : cases)
        additions.frameStyles += std::string("<frame_style name='") + c.name + "' " + c.frame + "/>";
    UseSkin(additions);
    Probe::Register();
    for (const auto& c : cases) {
        ControlWindow window({60, 40}, std::string("<window frame_style='") + c.name +
                                           "'><probe name='root'><probe name='filler'/></probe></window>");
        const ClientPixels whole = window.Paint();
        EXPECT_EQ(whole.At(0, 0), c.corner) << c.name;
        EXPECT_EQ(whole.At(30, 19), c.centre) << c.name;
        const RECT stale{0, 0, 35, 25};
        const HDC hdc = GetDC(window.Handle());
        FillRect(hdc, &stale, static_cast<HBRUSH>(GetStockObject(GRAY_BRUSH)));
        ReleaseDC(window.Handle(), hdc);
        window.InvalidateRect(&stale, TRUE);
        EXPECT_EQ(window.Paint().pixels, whole.pixels) << c.name << ", a part of it";
    }
}

TEST_F(WindowMgr, RunsOneMoreLayoutWhenOneIsAskedForMeanwhile)
{
    ControlWindow window({60, 40}, "<probe name='root'/>");
    auto* const root = window.Find<Probe>("root");
    int layouts = 0;
    root->onRect = [&](const RECT&) {
        if (++layouts <= 2)
            root->UpdateLayout(TRUE, nullptr);
        RECT part{0, 0, 1, 1};
        root->UpdateLayout(FALSE, &part);
    };
    window.Validate();
    window.LayoutRootControl();
    EXPECT_EQ(layouts, 3);
    EXPECT_EQ(Text(window.Invalid()), "0,0,0,0");
    // One that never has enough ends, too.
    traces.Expect("each asked for another");
    root->onRect = [&](const RECT&) {
        ++layouts;
        root->UpdateLayout(TRUE, nullptr);
    };
    window.LayoutRootControl();
    root->onRect = nullptr;
}

TEST_F(WindowMgr, DropsUpdatesWhileTheLayoutIsLocked)
{
    ControlWindow window({60, 40}, "<probe name='root'/>");
    auto* const root = window.Find<Probe>("root");
    int layouts = 0;
    root->onRect = [&layouts](const RECT&) { ++layouts; };
    window.Validate();
    root->LockLayout(TRUE);
    root->UpdateLayout(TRUE, nullptr);
    EXPECT_EQ(layouts, 0);
    EXPECT_EQ(Text(window.Invalid()), "0,0,0,0");
    root->LockLayout(FALSE);
    root->UpdateLayout(TRUE, nullptr);
    EXPECT_EQ(layouts, 1);
    // The lock is the tree's.
    root->LockLayout(TRUE);
    RECT rect{};
    EXPECT_TRUE(window.CreateFromXML("<window><probe name='other'/></window>", window.Handle(), rect));
    window.InitWindowMgr();
    window.Validate();
    window.Find("other")->UpdateLayout(FALSE, nullptr);
    EXPECT_NE(Text(window.Invalid()), "0,0,0,0");
}

TEST_F(WindowMgr, PostsAPaintMessageForLayeredWindows)
{
    ControlWindow window({60, 40}, "<probe name='root'/>");
    Pump();
    MSG message{};
    window.Invalidate(TRUE);
    window.Validate();
    EXPECT_FALSE(PeekMessageA(&message, window.Handle(), WM_PAINT, WM_PAINT, PM_REMOVE));
    SetWindowLongA(window.Handle(), GWL_EXSTYLE, static_cast<LONG>(window.GetExStyle() | WS_EX_LAYERED));
    window.Invalidate(TRUE);
    window.Validate();
    EXPECT_TRUE(PeekMessageA(&message, window.Handle(), WM_PAINT, WM_PAINT, PM_REMOVE));
}

TEST_F(WindowMgr, DrawsItsOwnActivationOnlyWithoutANativeCaption)
{
    ControlWindow window({60, 40}, "<probe name='root'/>");
    LRESULT result = -1;
    EXPECT_TRUE(window.ProcessWindowMessage(window.Handle(), WM_NCACTIVATE, FALSE, 0, result));
    EXPECT_EQ(result, TRUE);
    EXPECT_TRUE(window.ProcessWindowMessage(window.Handle(), WM_NCACTIVATE, TRUE, 0, result));
    EXPECT_EQ(result, FALSE);
    SetWindowLongA(window.Handle(), GWL_STYLE, static_cast<LONG>(window.GetStyle() | WS_CAPTION));
    EXPECT_FALSE(window.ProcessWindowMessage(window.Handle(), WM_NCACTIVATE, TRUE, 0, result));
}

TEST_F(WindowMgr, FindsControlsByNameFromACacheThatIsToldWhenToRefresh)
{
    ControlWindow window({60, 40},
                         "<probe name='root'><probe name='twin' text='#first'/>"
                         "<probe name='twin' text='#second' visible='false'/></probe>");
    IDUIControl* const first = window.GetControlByName("twin", TRUE);
    EXPECT_EQ(first->GetText(), "first");
    EXPECT_EQ(window.GetControlByName("Twin", FALSE), nullptr);
    EXPECT_EQ(window.GetControlByName("", TRUE), nullptr);
    first->SetName("renamed");
    EXPECT_EQ(window.GetControlByName("twin", FALSE), first);
    EXPECT_EQ(window.GetControlByName("twin", TRUE)->GetText(), "second");
    window.GetRootControl()->RemoveControl(window.GetControlByName("renamed", FALSE));
    EXPECT_EQ(window.GetControlByName("renamed", FALSE), nullptr);

    EXPECT_TRUE(window.SetContrlText("twin", "changed"));
    EXPECT_EQ(window.GetContrlText("twin"), "changed");
    EXPECT_TRUE(window.EnableControl("twin", FALSE));
    EXPECT_TRUE(window.ShowControl("twin", TRUE));
    EXPECT_TRUE(window.SetControlAttribute("twin", "width", "33", FALSE));
    IDUIControl* const twin = window.Find("twin");
    EXPECT_FALSE(twin->IsEnabled());
    EXPECT_TRUE(twin->IsVisible(FALSE));
    EXPECT_EQ(twin->GetFixedSize().cx, 33);
    EXPECT_FALSE(window.SetContrlText("nobody", ""));
    EXPECT_FALSE(window.SetButtonChecked("twin", TRUE));
    EXPECT_EQ(window.GetControlByInterface("probe"), window.GetRootControl());
    EXPECT_EQ(window.GetControlByInterface(nullptr), nullptr);
}

TEST_F(WindowMgr, ClimbsToTheTopLevelParentOfItsHost)
{
    ControlWindow alone({20, 20}, "<probe name='root'/>");
    EXPECT_EQ(alone.GetMostTopParent(), nullptr);
    EXPECT_EQ(alone.GetMostTopParentStatus(), 0u);
    EXPECT_FALSE(alone.IsNcActivate());
    const PlatformWindow top;
    const PlatformWindow middle({.style = WS_CHILD, .parent = top});
    const PlatformWindow host({.style = WS_CHILD, .parent = middle});
    CDUIWindowMgr manager;
    RECT rect{};
    EXPECT_TRUE(manager.CreateFromRootControl(new Probe("root"), host, rect));
    EXPECT_EQ(manager.GetMostTopParent(), top.Handle());
    SetActiveWindow(top);
    EXPECT_EQ(manager.GetMostTopParentStatus(), 0x24u);
    EnableWindow(top, FALSE);
    EXPECT_EQ(manager.GetMostTopParentStatus() & 0x10u, 0x10u);
}

TEST_F(WindowMgr, StartsFinishesAndStartsAgain)
{
    const PlatformWindow host;
    CDUIWindowMgr manager;
    RECT rect{1, 2, 3, 4};
    EXPECT_FALSE(manager.CreateFromXML("broken", host, rect));
    EXPECT_EQ(manager.GetRootControl(), nullptr);
    EXPECT_TRUE(manager.CreateFromXML("<window><probe name='one'/></window>", host, rect));
    EXPECT_EQ(Text(manager.GetWindowRect()), "1,2,3,4");
    EXPECT_FALSE(manager.CreateFromRootControl(CRefPtr<IDUIControl>(), host, rect));
    manager.InitWindowMgr();
    manager.FinishWindowMgr();
    manager.FinishWindowMgr();
    EXPECT_TRUE(manager.CreateFromXML("<window><probe name='two'/></window>", host, rect));
    manager.InitWindowMgr();
    EXPECT_EQ(Probe::Take({"WINDOW"}), "one create, one destroy, two create");
    const CRefPtr<IDUIControl> root = manager.DetachRootControl();
    manager.FinishWindowMgr();
    EXPECT_EQ(Probe::Take(), "");
    root->DetachWindow();
}

TEST_F(WindowMgr, EndsThePressOfTheManagerBeforeIt)
{
    const PlatformWindow host;
    RECT rect{};
    LRESULT result = 0;
    for (const UINT message : {WM_LBUTTONDOWN, WM_LBUTTONUP}) {
        CDUIWindowMgr manager;
        EXPECT_TRUE(manager.CreateFromXML("<window><probe name='root'/></window>", host, rect));
        manager.InitWindowMgr();
        manager.ProcessWindowMessage(host, message, MK_LBUTTON, MAKELPARAM(1, 1), result);
        EXPECT_EQ(GetCapture() == host, message == WM_LBUTTONDOWN);
    }
}

TEST_F(WindowMgr, TellsTheTooltipWhatTheControlUnderThePointerSays)
{
    ControlWindow window({60, 40}, "<probe name='root' tooltip='#a long text'/>");
    window.mouse.MoveTo({10, 10});
    char text[80]{};
    BOOL bHandled = FALSE;
    struct Reach : ControlWindow {
        using ControlWindow::OnGetDispInfo;
    };
    (window.*&Reach::OnGetDispInfo)(text, bHandled);
    EXPECT_STREQ(text, "a long text");
    EXPECT_TRUE(bHandled);
}

}  // namespace
}  // namespace qvui::test
