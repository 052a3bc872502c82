#include "Game/GameLogic/goals/MineGoal.h"

#include "Engine/core/CallStack.h"
#include "Engine/core/Log.h"
#include "Game/GameLogic/buildings/Mill.h"
#include "Game/GameLogic/men/Man.h"
#include "Game/GameUI/Tactic/TacticLog.h"
#include "Game/GameUI/Tactic/TacticMap.h"

using namespace Engine;

Bool cMineGoal::assign(cMan* man) {
    return sendToDst(man);
}

Bool cMineGoal::filter(Long) {
    const auto* mill = dynamic_cast<const cMill*>(getObjectAt(getDst()));
    return mill && !mill->hasFreeSpace();
}

void cMineGoal::doFinalWork() {
    ENGINE_MARK;
    cLog* log = tacticLog();
    if (log)
        log->printf(u"cMineGoal::doFinalWork()");
    auto* mill = dynamic_cast<cMill*>(getObjectAt(getDst()));
    if (!mill || mill->getMillState() != cMill::workersHired || !mill->isRound(getTransactionId())) {
        if (log)
            log->printf(u"cMineGoal::doFinalWork(): something goes wrong. Goal will be canceled.");
        return cancel();
    }
    mill->addMan(getMan());
    mill->incMiningMen(getMan());
    if (log)
        log->printf(u"cMineGoal::doFinalWork(): man successfully was added to mill as worker");
}

void cMineGoal::giveBack() {
    ENGINE_MARK;
    if (cLog* log = tacticLog())
        log->printf(u"cMineGoal::cancel()");
    auto* mill = dynamic_cast<cMill*>(getObjectAt(getDst()));
    if (!mill)
        throw "cMineGoal::cancel(): mill cannot be destroyed be enemy";
    if (mill->isRound(getTransactionId()))
        mill->clearTask();
    if (getMan())
        getMan()->setInside(false);
}
