#include <qvui/framework/animation.h>

#include <algorithm>

#include "framework/control_guard.h"

namespace DUI {

BOOL CDUIAnimation::StartAnimation(int nElapse, int nTotalFrame, int nAnimationID, BOOL bLoop)
{
    if (IsAnimationRunning(nAnimationID) || nElapse <= 0 || nTotalFrame <= 0 || !m_pOwner)
        return FALSE;
    const CRefPtr<CAnimationData> animation(new CAnimationData);
    animation->nAnimationID = nAnimationID;
    animation->nElapse = nElapse;
    animation->nTotalFrame = nTotalFrame;
    animation->bLoop = bLoop;
    if (!m_pOwner->SetTimer(static_cast<UINT>(nAnimationID), static_cast<UINT>(nElapse)))
        return FALSE;
    m_animations.push_back(animation);
    return TRUE;
}

void CDUIAnimation::StopAnimation(int nAnimationID)
{
    if (!m_pOwner)
        return;
    // Out of the list first: nothing that follows may see a stopped animation.
    std::vector<CRefPtr<CAnimationData>> stopped;
    const auto runsOn = [nAnimationID](const CRefPtr<CAnimationData>& animation) {
        return nAnimationID != 0 && animation->nAnimationID != nAnimationID;
    };
    const auto firstStopped = std::stable_partition(m_animations.begin(), m_animations.end(), runsOn);
    stopped.assign(firstStopped, m_animations.end());
    m_animations.erase(firstStopped, m_animations.end());
    for (const CRefPtr<CAnimationData>& animation : stopped)
        m_pOwner->KillTimer(static_cast<UINT>(animation->nAnimationID));
}

BOOL CDUIAnimation::IsAnimationRunning(int nAnimationID)
{
    return !GetAnimationByID(nAnimationID).IsNull();
}

int CDUIAnimation::GetCurrentFrame(int nAnimationID)
{
    const CRefPtr<CAnimationData> animation = GetAnimationByID(nAnimationID);
    return animation.IsNull() ? -1 : animation->nCurFrame;
}

BOOL CDUIAnimation::SetCurrentFrame(int nFrame, int nAnimationID)
{
    const CRefPtr<CAnimationData> animation = GetAnimationByID(nAnimationID);
    if (animation.IsNull() || nFrame < 0 || nFrame > animation->nTotalFrame)
        return FALSE;
    animation->nCurFrame = nFrame;
    return TRUE;
}

void CDUIAnimation::OnAnimationElapse(int nAnimationID)
{
    const CRefPtr<CAnimationData> animation = GetAnimationByID(nAnimationID);
    if (!m_pOwner || animation.IsNull())
        return;
    const ControlGuard keep(m_pOwner);
    const int current = animation->nCurFrame;
    if (current == 0) {
        OnAnimationStart(nAnimationID, animation->bFirstLoop);
        animation->bFirstLoop = FALSE;
    }
    OnAnimationStep(animation->nTotalFrame, current, nAnimationID);
    const bool isAtEnd = current >= animation->nTotalFrame;
    if (isAtEnd)
        OnAnimationStop(nAnimationID);
    // A callback may have stopped the animation, and even started another of that id.
    if (GetAnimationByID(nAnimationID) != animation)
        return;
    if (!isAtEnd) {
        animation->nCurFrame = current + 1;
    } else if (animation->bLoop) {
        animation->nCurFrame = 1;
    } else {
        m_pOwner->KillTimer(static_cast<UINT>(nAnimationID));
        m_animations.erase(std::find(m_animations.begin(), m_animations.end(), animation));
    }
}

// An animation ends with its timer: that of an owner which left its window, or whose window ended, is gone.
CRefPtr<CAnimationData> CDUIAnimation::GetAnimationByID(int nAnimationID)
{
    auto* const owner = InterfaceOf<CDUIControlBase>(m_pOwner, "control_base");
    if (owner && !owner->HasTimer(static_cast<UINT>(nAnimationID)))
        m_animations.erase(
            std::remove_if(m_animations.begin(), m_animations.end(),
                           [nAnimationID](const auto& entry) { return entry->nAnimationID == nAnimationID; }),
            m_animations.end());
    const auto found =
        std::find_if(m_animations.begin(), m_animations.end(),
                     [nAnimationID](const auto& entry) { return entry->nAnimationID == nAnimationID; });
    return found == m_animations.end() ? CRefPtr<CAnimationData>() : *found;
}

CRefPtr<IDUIControl> CDUIAnimationControl::Clone()
{
    return new CDUIAnimationControl(*this);
}

void CDUIAnimationControl::OnTimer(int id)
{
    OnAnimationElapse(id);
}

void CDUIAnimationControl::OnDestroy()
{
    StopAnimation(0);
}

}  // namespace DUI
