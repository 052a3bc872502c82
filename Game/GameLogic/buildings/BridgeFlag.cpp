#include "Game/GameLogic/buildings/BridgeFlag.h"

#include "Game/Ui/GameStrings.h"

void cBridgeFlag::setLook(const Engine::cState& look) {
    cState::operator=(look);
    setDirty();
}

void cBridgeFlag::updateInfoTipCargo(sInfoTip& info) {
    info.text = getGameString(m_text);
}
