#pragma once

#include "Game/GameLogic/fences/FencePlan.h"
#include "Game/GameLogic/men/tasks/ManUpgradeTask.h"

/// A builder raises a run of fences: all its pieces rise as long as he works.
class cManBuildFence : public cManUpgradeTask {
public:
    cManBuildFence(cMan* man, cFence* fence);

    void onStart() override;
    Bool onProcess() override;

private:
    cFencePlan m_fence_plan;
};
