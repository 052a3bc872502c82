#pragma once

#include <memory>

#include "Engine/Ui/TaskDealer.h"
#include "Game/Types.h"

namespace Engine {
class cChannel;
}
class cMan;
class cUpgradableUnit;

/// A builder who has come waits at his unit until all others of his order are there; then all begin at once.
class cManWaitForUpgrade : public Engine::cTaskDealer::cTask {
public:
    cManWaitForUpgrade(cMan* man, const cUpgradableUnit* unit);

    Bool onProcess() override;
    void onEnd() override;

private:
    cUpgradableUnit* findUnit() const;

    cMan* m_man;  ///< not owned; outlives the task
    Int m_point;  ///< the unit's
    Long m_transaction_id;
    Bool m_aborted = false;  ///< the order has ended meanwhile
};

/// A builder works on a unit for as long as that takes.
///
/// The unit outlives the task, unless it ends its order first, which ends the task.
class cManUpgradeTask : public Engine::cTaskDealer::cTask {
public:
    cManUpgradeTask(cMan* man, cUpgradableUnit* unit);
    ~cManUpgradeTask() override;

    void onStart() override;
    Bool onProcess() override;
    void onEnd() override;

protected:
    cMan* m_man;  ///< not owned; outlives the task
    cUpgradableUnit* m_unit;
    Float m_time = 0.0f;     ///< seconds
    Float m_elapsed = 0.0f;  ///< seconds

private:
    std::unique_ptr<Engine::cChannel> m_sound;
};
