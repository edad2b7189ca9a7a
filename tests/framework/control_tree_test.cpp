#include <qvui/controls/rows/list_box.h>

#include "support/controls/control_test.h"
#include "support/controls/probe.h"

namespace qvui::test {
namespace {

using namespace DUI;

class ControlTree : public ControlTest {
protected:
    ControlTree() { Probe::Register(); }

    static CRefPtr<IDUIControl> Make(const char* name, RECT rect = {0, 0, 0, 0})
    {
        CRefPtr<IDUIControl> control(new Probe(name));
        control->SetControlRect(rect);
        return control;
    }
    /// A window with a root and three children a, b and c side by side.
    std::unique_ptr<ControlWindow> ThreeChildren()
    {
        return std::make_unique<ControlWindow>(SIZE{90, 30},
                                               "<probe name='root'><probe name='filler'/>"
                                               "<probe name='a' position='0,0,30,30'/>"
                                               "<probe name='b' position='30,0,60,30'/>"
                                               "<probe name='c' position='60,0,90,30'/></probe>");
    }
};

TEST_F(ControlTree, TakesAChildOnceAndInItsPlace)
{
    const CRefPtr<IDUIControl> root = Make("root");
    const CRefPtr<IDUIControl> first = Make("first");
    const CRefPtr<IDUIControl> second = Make("second");
    EXPECT_FALSE(root->AddControl(CRefPtr<IDUIControl>()));
    EXPECT_FALSE(root->AddControl(root));
    EXPECT_FALSE(root->AddControlAt(0, first));
    EXPECT_EQ(first->GetParent(), nullptr);
    EXPECT_TRUE(root->AddControl(first));
    EXPECT_FALSE(root->AddControl(first));
    EXPECT_FALSE(first->AddControl(root));
    EXPECT_EQ(first->GetParent(), root.GetPtr());
    EXPECT_EQ(root->GetParent(), nullptr);
    EXPECT_FALSE(root->AddControlAt(1, second));
    EXPECT_FALSE(root->AddControlAt(-1, second));
    EXPECT_TRUE(root->AddControlAt(0, second));
    EXPECT_EQ(root->GetControlByIndex(0), second.GetPtr());
    EXPECT_EQ(root->GetControlIndex(first), 1);
    EXPECT_EQ(root->GetControlByIndex(-1), nullptr);
    EXPECT_EQ(root->GetControlByIndex(2), nullptr);

    auto& base = static_cast<CDUIControlBase&>(*root.GetPtr());
    EXPECT_EQ(base.GetNextSiblingControl(second), first.GetPtr());
    EXPECT_EQ(base.GetNextSiblingControl(first), nullptr);
    EXPECT_EQ(base.GetPrevSiblingControl(second), nullptr);
    EXPECT_EQ(base.GetNextSiblingControl(root), second.GetPtr()) << "a stranger stands before the first";

    EXPECT_TRUE(root->RemoveControl(Make("stranger")));
    EXPECT_FALSE(root->RemoveControlAt(2));
    EXPECT_EQ(root->GetControlCount(), 2);
    EXPECT_TRUE(root->SetControlIndex(second, 0));
    EXPECT_FALSE(root->SetControlIndex(first, 1));
    EXPECT_EQ(root->GetControlCount(), 1);
    EXPECT_EQ(first->GetParent(), nullptr);
}

IDUIControl* ContainsPoint(IDUIControl* control, void* data)
{
    const RECT rect = control->GetControlRect();
    return PtInRect(&rect, *static_cast<const POINT*>(data)) ? control : nullptr;
}

TEST_F(ControlTree, FindsTheDeepestOrTheOutermostControl)
{
    const CRefPtr<IDUIControl> root = Make("root", {0, 0, 100, 100});
    root->AddControl(Make("filler"));
    const CRefPtr<IDUIControl> box = Make("box", {10, 10, 60, 60});
    root->AddControl(box);
    box->SetAttribute("transparent", "true");
    box->AddControl(Make("inner filler"));
    box->AddControl(Make("inside", {20, 20, 30, 30}));
    box->AddControl(Make("outside", {70, 70, 80, 80}));
    const CRefPtr<IDUIControl> overlapping = Make("late", {25, 25, 40, 40});
    root->AddControl(overlapping);
    const CRefPtr<IDUIControl> hidden = Make("hidden", {50, 50, 55, 55});
    hidden->SetVisible(FALSE);
    root->AddControl(hidden);
    const CRefPtr<IDUIControl> disabled = Make("disabled", {80, 0, 100, 20});
    disabled->SetEnable(FALSE);
    root->AddControl(disabled);
    constexpr UINT kShown = DUIFIND_VISIBLE | DUIFIND_HITTEST;
    const struct {
        const char* name;
        POINT point;
        UINT flags;
        const char* expected;
    } cases[] = {
        {"a child of a transparent box", {22, 22}, kShown, "inside"},
        {"the box itself", {12, 12}, kShown, "root"},
        {"the lower index of two", {27, 27}, kShown, "inside"},
        {"a child outside its parent", {75, 75}, kShown, "outside"},
        {"a hidden one", {52, 52}, kShown, "root"},
        {"a hidden one that counts", {52, 52}, DUIFIND_HITTEST, "hidden"},
        {"a disabled one", {90, 10}, kShown | DUIFIND_ENABLED, "root"},
        {"a disabled one that counts", {90, 10}, kShown, "disabled"},
        {"the outermost", {22, 22}, kShown | DUIFIND_ME_FIRST, "root"},
        {"beyond everything", {100, 100}, kShown, nullptr},
    };
    for (const auto& c : cases) {
        POINT point = c.point;
        IDUIControl* const found = root->FindControl(&ContainsPoint, &point, c.flags);
        EXPECT_STREQ(found ? found->GetName().GetString() : nullptr, c.expected) << c.name;
    }
}

TEST_F(ControlTree, OffersContainersTwiceInDocumentOrder)
{
    const CRefPtr<IDUIControl> root = Make("root");
    root->AddControl(Make("a"));
    root->AddControl(Make("b"));
    const auto write = [](IDUIControl* control, void*) -> IDUIControl* {
        Probe::Write(control->GetName().GetString());
        return nullptr;
    };
    root->FindControl(write, nullptr, DUIFIND_ME_FIRST);
    EXPECT_EQ(Probe::Take(), "root, a, a, b, b, root");
}

// The ways in which a control can go that the window does not learn from a notification.
TEST_F(ControlTree, LeavesNothingBehindWhenItDiesAttached)
{
    auto window = ThreeChildren();
    {
        // Nobody owns it.
        Probe loose("loose");
        loose.AttachWindow(window.get());
        loose.SetFocus(TRUE);
        EXPECT_TRUE(loose.SetTimer(1, 1000));
        window->Find("a")->SetFocus(TRUE);
        loose.SetText("text");
        loose.SetFocus(TRUE);
        loose.SubclassControl(window->Find("a"), TRUE);
        EXPECT_EQ(window->GetFocusControl(), &loose);
    }
    EXPECT_EQ(window->GetFocusControl(), nullptr);
    SendMessageA(window->Handle(), WM_TIMER, 1, 0);
    window->mouse.MoveTo({15, 15});

    IDUIControl* const root = window->Find("root");
    // A handler that refreshes the names while controls go finds none of them afterwards.
    window->OnNotify([&window](const tagDUINotify& notify) {
        if (notify.nCode == DUINOTIFY_DESTROYED)
            window->GetControlByName("root", TRUE);
    });
    root->RemoveAllControl();
    for (const char* const name : {"filler", "a", "b", "c"})
        EXPECT_EQ(window->GetControlByName(name, FALSE), nullptr) << name;

    // A root that was handed out, dropped or kept beyond its window.
    window->OnNotify(nullptr);
    window->DetachRootControl();
    window = ThreeChildren();
    const CRefPtr<IDUIControl> kept = window->DetachRootControl();
    EXPECT_EQ(static_cast<Probe&>(*kept.GetPtr()).GetControlMgr(), window.get());
    window.reset();
    kept->GetControlByIndex(1)->SetText("alone");
    EXPECT_EQ(static_cast<Probe&>(*kept.GetPtr()).GetControlMgr(), nullptr);
}

TEST_F(ControlTree, KeepsOneParentAndSkipsWhatCannotBeCopied)
{
    struct Unique : Probe {
        using Probe::Probe;
        CRefPtr<IDUIControl> Clone() override { return nullptr; }
    };
    auto window = ThreeChildren();
    IDUIControl* const root = window->Find("root");
    const CRefPtr<IDUIControl> a = window->Find("a");
    EXPECT_FALSE(root->AddControl(a));
    window->Find("b")->RemoveControl(a);
    EXPECT_EQ(a->GetParent(), root) << "not b's to remove";
    a->RemoveControl(root);
    EXPECT_EQ(window->Root<Probe>().GetControlMgr(), window.get());
    root->AddControl(new Unique("unique"));
    EXPECT_EQ(root->Clone()->GetControlCount(), 4);
}

// Handlers of the end of one control that put others where they would hold themselves, end what is above, or
// remove what the library has just attached.
TEST_F(ControlTree, HoldsTogetherWhatHandlersTearApart)
{
    ControlWindow window({60, 30},
                         "<probe name='root'><probe name='c'><probe name='n'><probe name='k'/></probe>"
                         "<probe name='m'/></probe><probe name='q'/></probe>");
    const CRefPtr<IDUIControl> root = window.Find("root"), c = window.Find("c"), n = window.Find("n"),
                               m = window.Find("m");
    const auto once = [&window](UINT code, const CRefPtr<IDUIControl>& sender, std::function<void()> act) {
        window.OnNotify([=, isDone = false](const tagDUINotify& notify) mutable {
            if (notify.nCode == code && notify.pSender == sender.GetPtr() && !std::exchange(isDone, true))
                act();
        });
    };
    once(DUINOTIFY_DESTROYED, window.Find("k"),
         [&] { EXPECT_FALSE(n->AddControl(c)) << "still its parent"; });
    c->RemoveControl(n);
    EXPECT_EQ(n->GetParent(), nullptr);

    // The parent of a control that moves leaves meanwhile: the move is over.
    c->AddControl(n);
    once(DUINOTIFY_DESTROYED, n, [&] { root->RemoveControl(c); });
    c->SetControlIndex(n, 0);
    root->AddControl(c);
    n->SetFocus(TRUE);
    c->RemoveControl(n);
    EXPECT_EQ(window.GetFocusControl(), nullptr);
    EXPECT_EQ(n->GetStatus(), 0u) << "nor does it show a focus when it comes back";

    // What is no child stays as it is, the root above all.
    m->RemoveControl(root);
    EXPECT_EQ(window.Root<Probe>().GetControlMgr(), &window);

    window.OnNotify([&root](const tagDUINotify& notify) {
        if (notify.nCode == DUINOTIFY_CREATED && notify.pSender->GetInterface("scrollbar"))
            root->RemoveAllControl();
    });
    root->AddControl(new CDUIListBox);
    EXPECT_EQ(root->GetControlCount(), 0);
    window.OnNotify(nullptr);
    c->SubclassControl(n.GetPtr(), TRUE);
    n->SubclassControl(c.GetPtr(), TRUE);  // which would go round in a circle
    BOOL bHandled = FALSE;
    c->OnDUIEvent({}, bHandled);
}

// A root that one window handed out goes to another, and a handler of its end in the first ends the second.
TEST_F(ControlTree, MovesBetweenWindowsThatMayEndMeanwhile)
{
    RECT rect{0, 0, 60, 30};
    using Deed = std::function<void(std::unique_ptr<ControlWindow>&)>;
    for (const Deed& deed : {Deed([](auto& second) { second.reset(); }),
                             Deed([](auto& second) { second->FinishWindowMgr(); }), Deed([](auto&) {})})
        for (const bool isAdded : {false, true}) {
            ControlWindow first({60, 30}, "<probe name='root'><probe name='a'/></probe>");
            auto second = std::make_unique<ControlWindow>(SIZE{60, 30}, "<probe name='other'/>");
            const CRefPtr<IDUIControl> other = second->Find("other");
            const CRefPtr<IDUIControl> byHand = Make("by hand");
            byHand->AttachWindow(second.get());
            const CRefPtr<IDUIControl> root = first.DetachRootControl();
            first.OnNotify([&, isDone = false](const tagDUINotify& notify) mutable {
                if (notify.nCode == DUINOTIFY_DESTROYED && second && !std::exchange(isDone, true))
                    deed(second);
            });
            if (isAdded)
                other->AddControl(root);
            else if (second->CreateFromRootControl(root, second->Handle(), rect))
                second->InitWindowMgr();
            second.reset();
            for (const CRefPtr<IDUIControl>& control : {root, byHand}) {
                control->UpdateLayout(TRUE, nullptr);
                EXPECT_EQ(static_cast<Probe&>(*control.GetPtr()).GetControlMgr(), nullptr);
            }
            first.OnNotify(nullptr);
        }
}

}  // namespace
}  // namespace qvui::test
