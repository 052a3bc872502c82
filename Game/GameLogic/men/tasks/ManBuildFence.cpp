#include "Game/GameLogic/men/tasks/ManBuildFence.h"

#include "Engine/core/CallStack.h"
#include "Engine/core/Timer.h"
#include "Game/GameLogic/fences/Fence.h"

cManBuildFence::cManBuildFence(cMan* man, cFence* fence) : cManUpgradeTask(man, fence), m_fence_plan(*fence) {
}

void cManBuildFence::onStart() {
    ENGINE_MARK;
    cManUpgradeTask::onStart();
    m_fence_plan.setGroundLevel(m_time);
    m_unit->showEffect(false);
}

Bool cManBuildFence::onProcess() {
    m_fence_plan.growingUp(Engine::cTimer::getInstance()->getStep());
    return cManUpgradeTask::onProcess();
}
