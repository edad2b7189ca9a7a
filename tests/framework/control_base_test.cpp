#include <qvui/framework/app.h>

#include "support/controls/control_test.h"
#include "support/controls/probe.h"

namespace qvui::test {
namespace {

using namespace DUI;

class ControlBase : public ControlTest {
protected:
    ControlBase()
    {
        Probe::Register();
        control = new Probe("control");
    }

    CRefPtr<IDUIControl> control;
};

TEST_F(ControlBase, SetsTheCommonAttributes)
{
    const struct {
        const char* name;
        const char* value;
        DWORD style, status, exStyle;
    } cases[] = {
        {"Visible", "TRUE", DUISTYLE_VISIBLE, 0, 0},
        {"visible", "yes", 0, 0, 0},
        {"transparent", "true", DUISTYLE_VISIBLE | DUISTYLE_TRANSPARENT, 0, 0},
        {"enable", "FALSE", DUISTYLE_VISIBLE, DUISTATUS_DISABLED, 0},
        {"enable", "no", DUISTYLE_VISIBLE, 0, 0},
        {"tab_stop", "true", DUISTYLE_VISIBLE | DUISTYLE_TABSTOP, 0, 0},
        {"tooltip", "#tip", DUISTYLE_VISIBLE | DUISTYLE_TOOLTIP, 0, 0},
        {"cursor", "none", DUISTYLE_VISIBLE | DUISTYLE_CURSOR, 0, 0},
        {"stretch", "size_x|move_y", DUISTYLE_VISIBLE, 0, DUIEXSTYLE_SIZE_X | DUIEXSTYLE_MOVE_Y},
        {"stretch", "SIZE_X group", DUISTYLE_VISIBLE, 0, DUIEXSTYLE_GROUP},
        {"dock_style", "dock_top dock_left", DUISTYLE_VISIBLE, 0, DUIEXSTYLE_DOCK_LEFT},
        {"dock_style", "nowhere", DUISTYLE_VISIBLE, 0, 0},
        {"unknown", "true", DUISTYLE_VISIBLE, 0, 0},
    };
    for (const auto& c : cases) {
        const CRefPtr<IDUIControl> fresh(new Probe("fresh"));
        fresh->SetAttribute(c.name, c.value);
        EXPECT_EQ(fresh->GetStyle(), c.style) << c.name << "=" << c.value;
        EXPECT_EQ(fresh->GetStatus(), c.status) << c.name << "=" << c.value;
        EXPECT_EQ(fresh->GetExStyle(), c.exStyle) << c.name << "=" << c.value;
    }
    control->SetAttribute("position", "10,20,110,60");
    EXPECT_EQ(Text(control->GetControlRect()), "10,20,110,60");
    control->SetAttribute("text", "greeting");
    EXPECT_EQ(control->GetText(), "Hello");
    control->SetAttribute("text", "#plain");
    EXPECT_EQ(control->GetText(), "plain");
    control->SetText("Plain");
    EXPECT_EQ(control->GetText(), "plain") << "the same but for letter case";
    control->SetAttribute("text", "no such string");
    EXPECT_EQ(control->GetText(), "");
    EXPECT_EQ(control->GetTextStyle(), Skin().Manager().GetTextStyle("normal"));
    control->SetAttribute("text_style", "centre");
    EXPECT_EQ(control->GetTextStyle(), Skin().Manager().GetTextStyle("centre"));
    control->SetAttribute("shortcut", "kx");
    control->SetAttribute("shortcut", "");
    EXPECT_EQ(control->GetShortcut(), 'k');
    control->SetAttribute("user_data", "42");
    EXPECT_EQ(control->GetUserData(), 42u);
}

TEST_F(ControlBase, AddsStretchBitsAndReplacesTheDockSide)
{
    control->SetAttribute("stretch", "size_x");
    control->SetAttribute("dock_style", "dock_right");
    control->SetAttribute("stretch", "move_y");
    control->SetAttribute("dock_style", "dock_bottom");
    EXPECT_EQ(control->GetExStyle(), DWORD{DUIEXSTYLE_SIZE_X | DUIEXSTYLE_MOVE_Y | DUIEXSTYLE_DOCK_BOTTOM});
}

TEST_F(ControlBase, IgnoresAttributesAndStylesWithoutASkin)
{
    DUIGetAppInstance()->Term();
    control->SetAttribute("width", "30");
    EXPECT_EQ(control->GetFixedSize().cx, 0);
    EXPECT_TRUE(control->GetTextStyle().IsNull());
    EXPECT_FALSE(static_cast<CDUIControlBase*>(control.GetPtr())->ApplyControlStyle("blue_button"));
}

TEST_F(ControlBase, AppliesControlStylesAndNothingThatTheyName)
{
    SkinAdditions additions;
    additions.controlStyles =
        "<control_style name=\"wide\" WIDTH=\"50\" control_style=\"blue_button\" height=\"9\"/>"
        "<control_style name=\"later\" width=\"60\"/>";
    UseSkin(additions);
    auto& base = static_cast<CDUIControlBase&>(*control.GetPtr());
    EXPECT_FALSE(base.ApplyControlStyle("missing"));
    EXPECT_TRUE(base.ApplyControlStyle("wide"));
    EXPECT_EQ(control->GetName(), "control");
    EXPECT_EQ(Text(control->GetFixedSize()), "50,9");
    control->SetFixedWidth(1);
    control->OnSkinChanged();
    EXPECT_EQ(control->GetFixedSize().cx, 50);
}

TEST_F(ControlBase, ClonesTheWholeSubtreeUnattached)
{
    control->SetText("text");
    control->SetUserData(7);
    control->SetAttribute("margin", "1,2,3,4");
    const CRefPtr<IDUIControl> child(new Probe("child"));
    child->AddControl(new Probe("grandchild"));
    control->AddControl(child);
    ControlWindow window({100, 100}, control);
    const CRefPtr<IDUIControl> copy = control->Clone();
    EXPECT_EQ(copy->GetText(), "text");
    EXPECT_EQ(copy->GetUserData(), 7u);
    EXPECT_EQ(Text(copy->GetMargin()), "1,2,3,4");
    ASSERT_EQ(copy->GetControlCount(), 1);
    IDUIControl* const copiedChild = copy->GetControlByIndex(0);
    EXPECT_NE(copiedChild, child.GetPtr());
    EXPECT_EQ(copiedChild->GetParent(), copy.GetPtr());
    EXPECT_EQ(copiedChild->GetControlByIndex(0)->GetName(), "grandchild");
    EXPECT_EQ(static_cast<CDUIControlBase*>(copy.GetPtr())->GetControlMgr(), nullptr);
    EXPECT_EQ(copy->GetParent(), nullptr);
}

TEST_F(ControlBase, AnswersRequestsOnlyWhileAttached)
{
    auto& base = static_cast<CDUIControlBase&>(*control.GetPtr());
    EXPECT_FALSE(base.SendNotify(DUINOTIFY_CLICK, 0, 0));
    EXPECT_FALSE(control->SetTimer(1, 10));
    EXPECT_EQ(base.GetManagerWnd(FALSE), nullptr);
    EXPECT_EQ(base.GetFocusControl(), nullptr);
    EXPECT_EQ(base.GetSiblingControl("control"), nullptr);
    control->SetFocus(TRUE);
    ControlWindow window({100, 100}, control);
    EXPECT_EQ(base.GetManagerWnd(FALSE), window.Handle());
    EXPECT_EQ(base.GetManagerWnd(TRUE), nullptr);
    EXPECT_EQ(base.GetManagerWndStatus(), 0u);
    EXPECT_EQ(base.GetSiblingControl("control"), control.GetPtr());
    EXPECT_EQ(base.GetSiblingControl(POINT{5, 5}), control.GetPtr());
    control->SetFocus(TRUE);
    EXPECT_EQ(base.GetFocusControl(), control.GetPtr());
    EXPECT_TRUE(base.GetFocus());
    EXPECT_TRUE(base.SendNotify(DUINOTIFY_CLICK, 1, 2));
    EXPECT_EQ(window.TakeNotifications(), (std::vector<Noticed>{{DUINOTIFY_CLICK, "control", 1, 2}}));
}

TEST_F(ControlBase, LetsASubclassSeeEventsFirst)
{
    const CRefPtr<IDUIControl> watcher(new Probe("watcher"));
    auto& probe = static_cast<Probe&>(*watcher.GetPtr());
    probe.onEvent = [](const tagDUIEvent& event, BOOL& bHandled) {
        bHandled = event.Type == DUIEVENT_LBUTTONDOWN;
    };
    watcher->SubclassControl(control.GetPtr(), TRUE);
    BOOL bHandled = FALSE;
    control->OnDUIEvent({DUIEVENT_LBUTTONDOWN, nullptr, {}, 0, 0, 0, 0}, bHandled);
    EXPECT_TRUE(bHandled);
    control->OnDUIEvent({DUIEVENT_MOUSEMOVE, nullptr, {}, 0, 0, 0, 0}, bHandled);
    watcher->SubclassControl(control.GetPtr(), FALSE);
    control->OnDUIEvent({DUIEVENT_LBUTTONDOWN, nullptr, {}, 0, 0, 0, 0}, bHandled);
    EXPECT_EQ(TakeEvents(), "watcher DOWN -, watcher MOVE -, control MOVE -, control DOWN -");
}

TEST_F(ControlBase, AsksForALayoutOnlyWhenItsVisibilityChanges)
{
    ControlWindow window({100, 100}, control);
    int layouts = 0;
    static_cast<Probe&>(*control.GetPtr()).onRect = [&layouts](const RECT&) { ++layouts; };
    window.Validate();
    control->ModifyStyle(0, DUISTYLE_TABSTOP);
    control->ModifyStatus(0, DUISTATUS_HOT);
    EXPECT_EQ(layouts, 0);
    EXPECT_EQ(Text(window.Invalid()), "0,0,100,100");
    window.Validate();
    control->ModifyStatus(0, DUISTATUS_HOT);
    EXPECT_EQ(Text(window.Invalid()), "0,0,0,0");
    control->SetVisible(FALSE);
    EXPECT_EQ(layouts, 1);
}

}  // namespace
}  // namespace qvui::test
