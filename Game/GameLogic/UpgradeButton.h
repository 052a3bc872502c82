#pragma once

#include "Engine/Ui/OverlayButton.h"
#include "Game/CommonUI/ScaleOscillator.h"
#include "Game/Types.h"

/// The button beside a building that orders its next level. It looks disabled while that can't be had.
class cUpgradeButton : public cScaleOscillator<Engine::cOverlayButton> {
public:
    using cScaleOscillator<Engine::cOverlayButton>::cScaleOscillator;

    void setStatePicture(Engine::eButtonState state) override;
    void setAllowed(Bool allowed);
    Bool isAllowed() const { return m_allowed; }

private:
    Bool m_allowed = true;
};
