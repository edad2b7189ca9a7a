#include <gtest/gtest.h>

#include <qvui/framework/app.h>
#include <qvui/framework/message_loop.h>

#include "support/controls/control_test.h"
#include "support/controls/probe.h"

namespace qvui::test {
namespace {

using namespace DUI;

TEST(Application, HasNothingBeforeItIsInitialised)
{
    IDUIApp& app = *DUIGetAppInstance();
    EXPECT_EQ(app.GetSkinMgr(), nullptr);
    EXPECT_EQ(app.GetControlFactory(), nullptr);
    EXPECT_NE(app.GetMessageLoop(), nullptr);
    EXPECT_FALSE(CDUIControlFactory().InitializeFactory());
    auto* const package = reinterpret_cast<Package*>(&app);
    app.SetPackagePtr(package);
    EXPECT_EQ(app.GetPackagePtr(), package);
    app.SetPackagePtr(nullptr);
}

TEST(Application, KeepsWhatItMadeWhenTheSkinFails)
{
    TraceLog traces;
    traces.Expect("CDUISkinMgr::InitializeSkin");
    EXPECT_FALSE(DUIGetAppInstance()->Init("not a skin", FALSE));
    EXPECT_NE(DUIGetAppInstance()->GetSkinMgr(), nullptr);
    EXPECT_TRUE(DUIGetAppInstance()->GetControlFactory()->NewControl("button").IsNull());
    DUIGetAppInstance()->Term();
    EXPECT_EQ(DUIGetAppInstance()->GetSkinMgr(), nullptr);
}

class InitialisedApplication : public ControlTest {};

TEST_F(InitialisedApplication, RemembersTheFlagOfItsLastInitForTheFontsThatAreMade)
{
    EXPECT_TRUE(CDUIApp::m_bEanbleYahi);
    CResMgr manager;
    manager.ParseDUIResource(
        "<r><font_set><font name='f' facename='#\xCE\xA2\xC8\xED\xD1\xC5\xBA\xDA'/></font_set></r>");
    EXPECT_STRNE(manager.GetFont("f", 0)->GetFaceName(), "");
    CDUIApp::m_bEanbleYahi = FALSE;
    EXPECT_STREQ(manager.GetFont("f", 0)->GetFaceName(), "");
    CDUIApp::m_bEanbleYahi = TRUE;
    EXPECT_FALSE(DUIGetAppInstance()->GetControlFactory()->NewControl("label").IsNull());
}

TEST_F(InitialisedApplication, MayEndInsideASkinObserver)
{
    struct Observer : IDUISkinObserver {
        void OnSkinUIDataChanged() override { DUIGetAppInstance()->Term(); }
    } first, second;
    IDUISkinMgr* const manager = DUIGetAppInstance()->GetSkinMgr();
    manager->AddSkinObserver(&first);
    manager->AddSkinObserver(&second);
    manager->SetSkinTyle("another");
    EXPECT_EQ(DUIGetAppInstance()->GetSkinMgr(), nullptr);
}

struct Step : IDUIMessageFilter, IDUIIdleHandler {
    explicit Step(std::string stepName, bool consumesMessages = false)
        : name(std::move(stepName)),
          consumes(consumesMessages)
    {
    }
    BOOL PreTranslateMessage(MSG*) override
    {
        Probe::Write(name);
        if (then)
            then();
        return consumes;
    }
    BOOL OnIdle() override
    {
        Probe::Write(name);
        if (then)
            then();
        return TRUE;
    }

    std::string name;
    bool consumes;
    std::function<void()> then;
};

TEST(MessageLoop, AsksTheLastFilterFirstAndStopsAtOneThatConsumes)
{
    Probe::Take();
    CDUIMessageLoop loop;
    MSG message{};
    Step first("first"), second("second", true), third("third");
    for (Step* const step : {&first, &second, &third, &first})
        EXPECT_TRUE(loop.AddMessageFilter(step));
    loop.AddMessageFilter(nullptr);
    EXPECT_TRUE(loop.PreTranslateMessage(&message));
    EXPECT_EQ(Probe::Take(), "third, second");
    third.then = [&] { loop.RemoveMessageFilter(&second); };
    EXPECT_FALSE(loop.PreTranslateMessage(&message));
    EXPECT_EQ(Probe::Take(), "third, first");
    loop.RemoveMessageFilter(&first);
    loop.RemoveMessageFilter(&third);
    EXPECT_FALSE(loop.PreTranslateMessage(&message));
    EXPECT_EQ(Probe::Take(), "");
}

TEST(MessageLoop, RunsUntilItIsToldToQuitAndIdlesOncePerPause)
{
    CDUIMessageLoop loop;
    Step idle("idle");
    int pauses = 0;
    idle.then = [&pauses] {
        // A mouse move begins no new pause; other messages do.
        if (++pauses == 1) {
            PostMessageA(nullptr, WM_MOUSEMOVE, 0, 0);
            PostMessageA(nullptr, WM_APP, 0, 0);
        } else {
            PostQuitMessage(42);
        }
    };
    Step filter("filter");
    loop.AddIdleHandler(&idle);
    loop.AddMessageFilter(&filter);
    Probe::Take();
    EXPECT_EQ(loop.Run(), 42);
    EXPECT_EQ(Probe::Take(), "idle, filter, filter, idle");
}

TEST(MessageLoop, KnowsWhichMessagesBeginAPause)
{
    for (const UINT message : {UINT{WM_MOUSEMOVE}, UINT{WM_NCMOUSEMOVE}, UINT{WM_PAINT}, 0x0118u}) {
        MSG native{nullptr, message, 0, 0, 0, {}};
        EXPECT_FALSE(CDUIMessageLoop::IsIdleMessage(&native)) << message;
    }
    MSG key{nullptr, WM_KEYDOWN, 0, 0, 0, {}};
    EXPECT_TRUE(CDUIMessageLoop::IsIdleMessage(&key));
}

}  // namespace
}  // namespace qvui::test
