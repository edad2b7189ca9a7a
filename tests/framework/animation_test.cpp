#include <qvui/framework/animation.h>

#include "support/controls/control_test.h"
#include "support/controls/probe.h"

namespace qvui::test {
namespace {

using namespace DUI;

class Dancer : public CDUIAnimationControl {
public:
    void OnAnimationStep(int total, int frame, int id) override
    {
        steps += std::to_string(frame) + (frame == total ? "! " : " ");
        lastId = id;
        if (onStep)
            onStep(frame);
    }
    void OnAnimationStart(int, BOOL bFirstLoop) override { steps += bFirstLoop ? "start " : "again "; }
    void OnAnimationStop(int) override { steps += "stop "; }

    std::string steps;
    std::function<void(int)> onStep;
    int lastId = -1;
};

class Animation : public ControlTest {
protected:
    void Tick(int id, int times)
    {
        for (int i = 0; i < times && dancer->IsAnimationRunning(id); ++i)
            window.Fire(dancer, static_cast<UINT>(id));
    }

    Dancer* dancer = new Dancer;
    ControlWindow window{{20, 20}, CRefPtr<IDUIControl>(dancer)};
};

TEST_F(Animation, StepsFromZeroToTheTotalAndStops)
{
    EXPECT_TRUE(dancer->StartAnimation(40, 3, 7, FALSE));
    EXPECT_FALSE(dancer->StartAnimation(40, 3, 7, FALSE));
    EXPECT_EQ(dancer->GetCurrentFrame(7), 0);
    Tick(7, 10);
    EXPECT_EQ(dancer->steps, "start 0 1 2 3! stop ");
    EXPECT_EQ(dancer->lastId, 7);
    EXPECT_EQ(dancer->GetCurrentFrame(7), -1);
    EXPECT_TRUE(dancer->StartAnimation(40, 3, 7, FALSE));
}

TEST_F(Animation, LoopsFromFrameOne)
{
    EXPECT_TRUE(dancer->StartAnimation(40, 2, 1, TRUE));
    Tick(1, 7);
    EXPECT_EQ(dancer->steps, "start 0 1 2! stop 1 2! stop 1 2! stop ");
}

TEST_F(Animation, JumpsOnlyToFramesThatExist)
{
    EXPECT_FALSE(dancer->SetCurrentFrame(0, 1));
    dancer->StartAnimation(40, 4, 1, FALSE);
    EXPECT_TRUE(dancer->SetCurrentFrame(4, 1));
    EXPECT_FALSE(dancer->SetCurrentFrame(5, 1));
    EXPECT_FALSE(dancer->SetCurrentFrame(-1, 1));
    Tick(1, 2);
    EXPECT_EQ(dancer->steps, "4! stop ");
}

TEST_F(Animation, RefusesNumbersThatMakeNoSenseAndUnattachedOwners)
{
    EXPECT_FALSE(dancer->StartAnimation(0, 3, 1, FALSE));
    EXPECT_FALSE(dancer->StartAnimation(40, 0, 1, FALSE));
    Dancer alone;
    EXPECT_FALSE(alone.StartAnimation(40, 3, 1, FALSE));
    EXPECT_FALSE(alone.IsAnimationRunning(1));
}

TEST_F(Animation, StopsOneOrAllWithoutSayingSo)
{
    dancer->StartAnimation(40, 3, 1, FALSE);
    dancer->StartAnimation(40, 3, 2, FALSE);
    dancer->StartAnimation(40, 3, 3, FALSE);
    dancer->StopAnimation(2);
    EXPECT_FALSE(dancer->IsAnimationRunning(2));
    EXPECT_TRUE(dancer->IsAnimationRunning(3));
    dancer->StopAnimation(0);
    EXPECT_FALSE(dancer->IsAnimationRunning(1));
    EXPECT_EQ(dancer->steps, "");
    dancer->StartAnimation(40, 3, 1, FALSE);
    const CRefPtr<IDUIControl> root = window.DetachRootControl();
    root->DetachWindow();
    EXPECT_FALSE(dancer->IsAnimationRunning(1));
    // Of a control that does not stop its animations itself: they go with the timers.
    CDUIAnimation other(dancer);
    root->AttachWindow(&window);
    EXPECT_TRUE(other.StartAnimation(40, 3, 1, FALSE));
    root->DetachWindow();
    root->AttachWindow(&window);
    EXPECT_FALSE(other.IsAnimationRunning(1));
    EXPECT_TRUE(other.StartAnimation(40, 3, 1, FALSE));
}

TEST_F(Animation, MayBeStoppedOrRestartedByItsOwnSteps)
{
    dancer->onStep = [this](int frame) {
        if (frame == 1)
            dancer->StopAnimation(1);
    };
    dancer->StartAnimation(40, 3, 1, FALSE);
    Tick(1, 5);
    EXPECT_EQ(dancer->steps, "start 0 1 ");
    dancer->steps.clear();
    dancer->onStep = [this](int frame) {
        if (frame == 1) {
            dancer->onStep = nullptr;
            dancer->StopAnimation(1);
            dancer->StartAnimation(40, 1, 1, FALSE);
        }
    };
    dancer->StartAnimation(40, 3, 1, FALSE);
    Tick(1, 5);
    EXPECT_EQ(dancer->steps, "start 0 1 start 0 1! stop ");
}

}  // namespace
}  // namespace qvui::test
