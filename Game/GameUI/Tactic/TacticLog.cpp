#include "Game/GameUI/Tactic/TacticLog.h"

#include "Engine/core/Constants.h"
#include "Engine/core/Log.h"

using namespace Engine;

namespace {

cLog* current_log = nullptr;

}  // namespace

cLog* tacticLog() {
    return current_log;
}

void openTacticLog() {
    String name;
    if (cConstants* constants = cConstants::getInstance())
        constants->getProperty("game", "tactic_log", name);
    current_log = name.empty() ? nullptr : cLogManager::getInstance()->getLog(name, true);
}
