#include "Game/GameLogic/men/tasks/ManUpgradeTask.h"

#include "Engine/Sound/Channel.h"
#include "Engine/core/CallStack.h"
#include "Engine/core/Timer.h"
#include "Game/GameLogic/UpgradableUnit.h"
#include "Game/GameLogic/men/Man.h"
#include "Game/GameUI/Tactic/TacticMap.h"
#include "Game/Ui/GameSounds.h"

using namespace Engine;

// Waiting ------------------------------------------------------------------------------------------------------------

cManWaitForUpgrade::cManWaitForUpgrade(cMan* man, const cUpgradableUnit* unit)
    : cTask(man),
      m_man(man),
      m_point(unit->getUnderPoint()),
      m_transaction_id(man->getGlobalGoal()->getTransactionId()) {
}

cUpgradableUnit* cManWaitForUpgrade::findUnit() const {
    return dynamic_cast<cUpgradableUnit*>(cTacticMap::getInstance()->getLevelObject(m_point));
}

Bool cManWaitForUpgrade::onProcess() {
    const cUpgradableUnit* unit = findUnit();
    m_aborted = !unit || !unit->isOrder(m_transaction_id) || !m_man->getGlobalGoal();
    return m_aborted || unit->isMenEnough(m_man->getGlobalGoal());
}

void cManWaitForUpgrade::onEnd() {
    ENGINE_MARK;
    cTask::onEnd();
    const auto goal = m_man->holdGlobalGoal();
    if (!goal)
        return m_man->waitTask(true);
    if (m_aborted)
        return goal->cancel();
    findUnit()->hireMen(goal.get());
}

// Working ------------------------------------------------------------------------------------------------------------

cManUpgradeTask::cManUpgradeTask(cMan* man, cUpgradableUnit* unit) : cTask(man), m_man(man), m_unit(unit) {
}

cManUpgradeTask::~cManUpgradeTask() = default;

void cManUpgradeTask::onStart() {
    ENGINE_MARK;
    m_time = m_unit->getUpgradeTime();
    m_elapsed = 0.0f;
    m_unit->showProgress(0.0f, m_time);
    m_unit->showEffect(true);
    if (const cGameSounds* sounds = cGameSounds::getInstance())
        m_sound = sounds->play("building_upgrade");
}

Bool cManUpgradeTask::onProcess() {
    m_elapsed += cTimer::getInstance()->getStep();
    m_unit->setProgress(m_elapsed);
    return m_elapsed >= m_time;
}

void cManUpgradeTask::onEnd() {
    ENGINE_MARK;
    cTask::onEnd();
    m_sound.reset();
    m_unit->hideProgress();
    m_unit->upgrade();
    m_man->setGlobalGoal(nullptr);
    m_man->setWaitState();
    m_man->arrange();
}
