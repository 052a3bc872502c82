#include "Game/GameLogic/UpgradeButton.h"

using namespace Engine;

void cUpgradeButton::setStatePicture(eButtonState state) {
    cScaleOscillator<cOverlayButton>::setStatePicture(m_allowed ? state : eButtonState::disabled);
}

void cUpgradeButton::setAllowed(Bool allowed) {
    m_allowed = allowed;
    setStatePicture(getState());
}
