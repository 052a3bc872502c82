#include "Game/GameLogic/UpgradeButton.h"

#include "Game/GameLogic/buildings/Building.h"

using namespace Engine;

cUpgradeButton::cUpgradeButton(cBuilding& building) : cScaleOscillator(&building), m_building(building) {
    setTipFile("GameLogic/Tip.xml");
    setTipAnchor(building);
}

void cUpgradeButton::setStatePicture(eButtonState state) {
    cScaleOscillator::setStatePicture(m_allowed ? state : eButtonState::disabled);
}

void cUpgradeButton::setAllowed(Bool allowed) {
    m_allowed = allowed;
    setStatePicture(getState());
}

void cUpgradeButton::updateInfoTipCargo(sInfoTip& info) {
    m_building.updateInfoTipCargo(info);
}

void cUpgradeButton::updateInfoTipPrice(sInfoTip& info) {
    m_building.updateInfoTipPrice(info);
}
