#include "Game/GameLogic/buildings/Bunker.h"

#include "Engine/core/CallStack.h"
#include "Game/GameLogic/SavedValue.h"

using namespace Engine;

void cBunker::saveBinState(iArch& arch) {
    cBuilding::saveBinState(arch);
    UInt tasks = 0;  // it sends nobody out
    arch << tasks;
    serializeBool(arch, m_destroyed);
}

void cBunker::loadBinState(iArch& arch) {
    ENGINE_MARK;
    cBuilding::loadBinState(arch);
    UInt tasks = 0;
    arch << tasks;
    if (tasks != 0)
        throw String("cBunker::loadBinState(): ") + std::to_string(tasks) + " tasks in a bunker that has none";
    serializeBool(arch, m_destroyed);
}
