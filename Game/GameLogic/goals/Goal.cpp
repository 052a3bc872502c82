#include "Game/GameLogic/goals/Goal.h"

#include "Engine/core/CallStack.h"
#include "Engine/core/Log.h"
#include "Game/GameLogic/UpgradableUnit.h"
#include "Game/GameLogic/buildings/Building.h"
#include "Game/GameLogic/goals/GoalsList.h"
#include "Game/GameLogic/men/Man.h"
#include "Game/GameUI/Tactic/TacticLog.h"
#include "Game/GameUI/Tactic/TacticMap.h"

using namespace Engine;

cGoal::~cGoal() {
    setUnit(nullptr);
}

cTacticMap& cGoal::getMap() {
    return *cTacticMap::getInstance();
}

cLevelObject* cGoal::getObjectAt(Int point) {
    return getMap().hasPoint(point) ? getMap().getLevelObject(point) : nullptr;
}

cBuilding* cGoal::getBuildingAt(Int point) {
    return dynamic_cast<cBuilding*>(getObjectAt(point));
}

void cGoal::setUnit(cUpgradableUnit* unit) {
    if (m_unit)
        m_unit->removeGoal(this);
    m_unit = unit;
    if (m_unit)
        m_unit->addGoal(this);
}

Bool cGoal::assign(cMan* man) {
    logAssign(man);
    return false;
}

Bool cGoal::sendToDst(cMan* man) {
    ENGINE_MARK;
    logAssign(man);
    if (!man->walkTo(m_dst, m_goes_to_src))
        return false;
    m_man = man;
    return true;
}

void cGoal::logAssign(const cMan* man) const {
    if (cLog* log = tacticLog())
        log->printf(u"cGoal::assign(): try to assign goal %x to man %x.", getLogId(this), getLogId(man));
    logGoalInfo();
}

void cGoal::cancel() {
    ENGINE_MARK;
    if (m_called_off)
        return;
    m_called_off = true;
    const auto hold = shared_from_this();
    cGoalsList& goals = *getMap().getGoals();
    goals.remove(this);
    giveBack();
    logGoalInfo();
    cMan* man = m_man;
    if (man || endsTransaction())
        goals.deleteTransaction(m_transaction_id);
    if (man) {
        if (cLog* log = tacticLog())
            log->printf(u"cGoal::cancel(): man = %x", getLogId(man));
        man->setCargo({});
        man->stopWork();
        releaseMan();
    }
    if (endsTransaction())
        getMap().freeBusyMen(m_transaction_id);
    if (man)
        getMap().updateView(false);
}

void cGoal::releaseMan() {
    m_man->setGlobalGoal(nullptr);
    m_man->arrange();
}

void cGoal::execute() {
    ENGINE_MARK;
    const auto hold = shared_from_this();
    if (cLog* log = tacticLog())
        log->printf(u"cGoal::execute()");
    if (m_cancelled)
        cancel();
    else if (m_goes_to_src)
        onSrc();
    else
        onDst();
}

void cGoal::onSrc() {
    if (cLog* log = tacticLog())
        log->printf(u"cGoal::onSrc(): man came to goal src point, man = %x, goal = %x", getLogId(m_man),
                    getLogId(this));
    logGoalInfo();
}

void cGoal::onDst() {
    ENGINE_MARK;
    cLog* log = tacticLog();
    if (log)
        log->printf(u"cGoal::onDst(): man came to goal dst point, man = %x, goal = %x", getLogId(m_man),
                    getLogId(this));
    logGoalInfo();
    if (!mustArrange())
        return doFinalWork();
    if (log)
        log->printf(u"cGoal::onDst(): man must be arranged before");
    m_man->arrange();
}

void cGoal::deleteTransaction() {
    getMap().getGoals()->deleteTransaction(m_transaction_id);
    getMap().updateView(false);
}

void cGoal::logGoalInfo() const {
    cLog* log = tacticLog();
    if (!log)
        return;
    log->printf(u"goal address = %x", getLogId(this));
    log->printf(u"goal type = %d", m_type);
    log->printf(u"goal transaction id = %d", m_transaction_id);
    log->printf(u"goal src point = %d", m_src);
    log->printf(u"goal dst point = %d", m_dst);
    log->printf(u"goal's cargo type = %d", m_cargo_type);
    log->printf(u"goal index = %d", m_index);
}
