#pragma once

#include "Engine/Ui/OverlayButton.h"
#include "Game/CommonUI/InfoTip.h"
#include "Game/CommonUI/ScaleOscillator.h"
#include "Game/CommonUI/Tips.h"
#include "Game/Types.h"

class cBuilding;

/// The button beside a building that orders its next level. It looks disabled while that can't be had, and its tip
/// tells what the building's own does, at the same place.
class cUpgradeButton : public cScaleOscillator<cTips<Engine::cOverlayButton>>, public iExtendedInfoTip {
public:
    /// @param building  its parent
    explicit cUpgradeButton(cBuilding& building);

    void setStatePicture(Engine::eButtonState state) override;
    void setAllowed(Bool allowed);
    Bool isAllowed() const { return m_allowed; }
    void updateInfoTipCargo(sInfoTip& info) override;
    void updateInfoTipPrice(sInfoTip& info) override;

private:
    cBuilding& m_building;
    Bool m_allowed = true;
};
