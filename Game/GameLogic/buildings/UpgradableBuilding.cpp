#include "Game/GameLogic/buildings/UpgradableBuilding.h"

#include "Engine/core/CallStack.h"

using namespace Engine;

void cUpgradableBuilding::loadXML(const iXML* xml) {
    ENGINE_MARK;
    cBuilding::loadXML(xml);
    loadUpgrades(xml);
}

void cUpgradableBuilding::loadXmlState(const iXML* xml) {
    ENGINE_MARK;
    cBuilding::loadXmlState(xml);
    loadLevelKeys(xml);
    takeRowCapacity();
}

void cUpgradableBuilding::saveBinState(iArch& arch) {
    cBuilding::saveBinState(arch);
    cUpgradableUnit::saveBinState(arch);
}

void cUpgradableBuilding::loadBinState(iArch& arch) {
    cBuilding::loadBinState(arch);
    cUpgradableUnit::loadBinState(arch);
}

String cUpgradableBuilding::getVisualStateName() const {
    return String("wait_state_upgrade_") + std::to_string(getLevel());
}

void cUpgradableBuilding::takeRowCapacity() {
    if (const cUpgrade* row = getUpgradeRow())
        setCapacity(row->capacity);
}
