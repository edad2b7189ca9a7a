#pragma once

#include <vector>

#include <qvui/framework/control_base.h>

namespace DUI {

/// Frame-counting animations, each named by an id, driven by timers.
class QVUI_API IDUIAnimation {
public:
    virtual ~IDUIAnimation() = default;
    virtual BOOL StartAnimation(int nElapse, int nTotalFrame, int nAnimationID, BOOL bLoop) = 0;
    virtual void StopAnimation(int nAnimationID) = 0;
    virtual BOOL IsAnimationRunning(int nAnimationID) = 0;
    virtual int GetCurrentFrame(int nAnimationID) = 0;
    virtual BOOL SetCurrentFrame(int nFrame, int nAnimationID) = 0;
    virtual void OnAnimationStep(int nTotalFrame, int nCurFrame, int nAnimationID) = 0;
    virtual void OnAnimationStart(int nAnimationID, BOOL bFirstLoop) = 0;
    virtual void OnAnimationStop(int nAnimationID) = 0;
    virtual void OnAnimationElapse(int nAnimationID) = 0;
};

struct CAnimationData : CRefCountBase {
    int nAnimationID = 0;  // also the control timer's id
    int nElapse = 0;       // milliseconds
    int nTotalFrame = 0;   // the last frame's number
    int nCurFrame = 0;
    BOOL bLoop = FALSE;
    BOOL bFirstLoop = TRUE;
};

/// The animations of one control. An animation's id is a timer id of that control and must differ from its
/// other timers' ids; id 0 can be started, and stopped only together with all others.
class QVUI_API CDUIAnimation : public IDUIAnimation {
public:
    /// The owner is not counted and outlives this.
    explicit CDUIAnimation(IDUIControl* pOwner) : m_pOwner(pOwner) {}

    /// Steps frames 0 to `nTotalFrame`, `nElapse` milliseconds apart; a looping one goes on with frame 1.
    /// FALSE for an id that runs already, for numbers that are not positive, and when the timer cannot be
    /// started.
    BOOL StartAnimation(int nElapse, int nTotalFrame, int nAnimationID, BOOL bLoop) override;
    /// 0 stops all. OnAnimationStop is not called.
    void StopAnimation(int nAnimationID) override;
    BOOL IsAnimationRunning(int nAnimationID) override;
    /// -1 when it does not run.
    int GetCurrentFrame(int nAnimationID) override;
    BOOL SetCurrentFrame(int nFrame, int nAnimationID) override;
    void OnAnimationStep(int, int, int) override {}
    void OnAnimationStart(int, BOOL) override {}
    void OnAnimationStop(int) override {}
    /// One tick, from the owner's timer.
    void OnAnimationElapse(int nAnimationID) override;

protected:
    CRefPtr<CAnimationData> GetAnimationByID(int nAnimationID);

private:
    IDUIControl* m_pOwner;
    std::vector<CRefPtr<CAnimationData>> m_animations;
};

/// A control that animates itself: the base of controls that an application draws frame by frame.
class QVUI_API CDUIAnimationControl : public CDUIControlBase, public CDUIAnimation {
public:
    CDUIAnimationControl() : CDUIAnimation(this) {}

    CRefPtr<IDUIControl> Clone() override;

protected:
    /// The copy has no running animations.
    CDUIAnimationControl(const CDUIAnimationControl& other) : CDUIControlBase(other), CDUIAnimation(this) {}

    void OnTimer(int id) override;
    void OnDestroy() override;
};

}  // namespace DUI
