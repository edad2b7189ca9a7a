#include <qvui/framework/app.h>

#include "support/controls/control_test.h"
#include "support/controls/probe.h"

namespace qvui::test {
namespace {

using namespace DUI;

struct Listener : CDUINotifyTarget {
    explicit Listener(const char* listenerName) : name(listenerName) {}
    void OnAny(const tagDUINotify& notify)
    {
        Probe::Write(std::string(name) + " hears " + notify.pSender->GetName().GetString());
        if (then)
            then();
    }

    const char* name;
    std::function<void()> then;
};

/// Keeps notifications from everybody else.
struct Deaf : ControlWindow {
    using ControlWindow::ControlWindow;
    void OnDUINotify(const tagDUINotify&, BOOL& bHandled) override { bHandled = TRUE; }
};

class Notifications : public ControlTest {
protected:
    Notifications()
    {
        Probe::Register();
        Open();
        Probe::Take();
    }
    void Open()
    {
        window = std::make_unique<ControlWindow>(
            SIZE{60, 30},
            "<probe name='root'><probe name='filler' visible='false'/><probe name='a' position='0,0,30,30'>"
            "<probe name='inner' position='0,0,30,30' tab_stop='true'/></probe>"
            "<probe name='b' position='30,0,60,30'/></probe>");
    }
    void Send(const char* name) { window->Find<Probe>(name)->SendNotify(DUINOTIFY_CLICK, 0, 0); }

    std::unique_ptr<ControlWindow> window;
};

TEST_F(Notifications, ReachHandlersOfTheSendersNameInOrder)
{
    Listener first("first"), second("second");
    window->AddNotifyHandler("a", &first, &Listener::OnAny);
    window->AddNotifyHandler("a", &second, &Listener::OnAny);
    window->AddNotifyHandler("b", &second, &Listener::OnAny);
    Send("a");
    EXPECT_EQ(Probe::Take(), "first hears a, second hears a");
    window->RemoveNotifyHandler("a", &first);
    Send("a");
    Send("b");
    EXPECT_EQ(Probe::Take(), "second hears a, second hears b");
    window->Find("root")->RemoveControl(window->Find("b"));
    EXPECT_EQ(Probe::Take(), "b destroy, second hears b");
    window->RemoveNotifyHandlers(&second);
    Send("a");
    EXPECT_EQ(Probe::Take(), "");
}

TEST_F(Notifications, StopWhenTheWindowHandledThem)
{
    Deaf deaf({20, 20}, "<probe name='a'/>");
    Listener listener("listener");
    deaf.AddNotifyHandler("a", &listener, &Listener::OnAny);
    deaf.Find<Probe>("a")->SendNotify(DUINOTIFY_CLICK, 0, 0);
    EXPECT_EQ(Probe::Take({"ground", "text", "border", "create"}), "");
}

TEST_F(Notifications, AreNotSentToListenersThatAreGone)
{
    auto first = std::make_unique<Listener>("first");
    auto second = std::make_unique<Listener>("second");
    Listener third("third");
    for (Listener* const listener : {first.get(), second.get(), &third})
        window->AddNotifyHandler("a", listener, &Listener::OnAny);
    first->then = [&second] { second.reset(); };
    Send("a");
    EXPECT_EQ(Probe::Take(), "first hears a, third hears a");
    first.reset();
    Send("a");
    EXPECT_EQ(Probe::Take(), "third hears a");
    window.reset();  // third outlives its window
}

TEST_F(Notifications, ForgetControlsThatLeaveWhateverAnOverrideDoes)
{
    Deaf deaf({60, 30},
              "<probe name='root'><probe name='filler' visible='false'/><probe name='a' "
              "position='0,0,60,30' tab_stop='true'/></probe>");
    deaf.mouse.Press({15, 15});
    auto* const a = deaf.Find<Probe>("a");
    EXPECT_TRUE(a->SetTimer(1, 1000));
    EXPECT_EQ(deaf.GetFocusControl(), a);
    deaf.GetRootControl()->RemoveControl(a);
    EXPECT_EQ(deaf.GetFocusControl(), nullptr);
    deaf.mouse.MoveTo({20, 15}).Release();
    traces.Expect("no control has the timer(1)");
    SendMessageA(deaf.Handle(), WM_TIMER, 1, 0);
}

TEST_F(Notifications, NumberTimersFromTheSmallestFreeId)
{
    auto* const a = window->Find<Probe>("a");
    auto* const b = window->Find<Probe>("b");
    EXPECT_TRUE(a->SetTimer(7, 1000));
    EXPECT_FALSE(a->SetTimer(7, 1000));
    EXPECT_TRUE(b->SetTimer(7, 1000));
    SendMessageA(window->Handle(), WM_TIMER, 2, 0);
    a->KillTimer(7);
    EXPECT_TRUE(b->SetTimer(8, 1000));
    SendMessageA(window->Handle(), WM_TIMER, 1, 0);
    traces.Expect("no control has the timer(3)");
    SendMessageA(window->Handle(), WM_TIMER, 3, 0);
    EXPECT_EQ(traces.Lines().size(), 1U);
    EXPECT_EQ(TakeEvents(), "b TIMER self, b timer 7, b TIMER self, b timer 8");
    tagDUINotify request{99, a, 0, 0, nullptr};
    EXPECT_EQ(window->OnControlRequest(request), 1) << "no such request";
    DUITimerRecord unknown{a, nullptr, 7, 0, 0};
    tagDUINotify stop{DUIREQUEST_TIMER, a, 2, reinterpret_cast<LPARAM>(&unknown), nullptr};
    EXPECT_EQ(window->OnControlRequest(stop), 1);
}

TEST_F(Notifications, RefuseTheTimerAfterTheLastId)
{
    auto* const a = window->Find<Probe>("a");
    for (UINT id = 1; id <= 1023; ++id)
        ASSERT_TRUE(a->SetTimer(id, 60000)) << id;
    EXPECT_FALSE(a->SetTimer(1024, 60000));
    a->KillTimer(500);
    EXPECT_TRUE(a->SetTimer(1024, 60000));
    TakeEvents();
    SendMessageA(window->Handle(), WM_TIMER, 500, 0);
    EXPECT_EQ(TakeEvents(), "a TIMER self, a timer 1024");
    SendMessageA(window->Handle(), WM_TIMER, DUITIMER_FIRST_FREE, 0);
    EXPECT_TRUE(traces.Lines().empty()) << "the application's first";
}

}  // namespace
}  // namespace qvui::test
