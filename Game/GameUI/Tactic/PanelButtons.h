#pragma once

#include "Engine/Ui/AnimButton.h"
#include "Game/CommonUI/BuyButton.h"
#include "Game/CommonUI/InfoTip.h"
#include "Game/CommonUI/ScaleOscillator.h"
#include "Game/CommonUI/Tips.h"
#include "Game/GameLogic/ResourceCargo.h"

/// A button of the control panel that buys something: its tip tells the price beside what the player has.
///
/// It can be bought or not; when it has just become possible it pulses for a while.
class cPanelBuyButton : public cScaleOscillator<cTips<cBuyButton>>, public iExtendedInfoTip {
public:
    using cScaleOscillator::cScaleOscillator;

    void updateInfoTipCargo(sInfoTip&) override {}
    void updateInfoTipPrice(sInfoTip& info) override {
        info.cargo = m_cost.amounts;
        info.compare_global = true;
    }

    const sResourceCargo& getCost() const { return m_cost; }
    void setCost(const sResourceCargo& cost) { m_cost = cost; }

private:
    sResourceCargo m_cost;
};

class cTutuorialManButton : public cPanelBuyButton {
public:
    using cPanelBuyButton::cPanelBuyButton;
};

class cTutuorialIdolButton : public cPanelBuyButton {
public:
    using cPanelBuyButton::cPanelBuyButton;
};

class cTutuorialCatapultButton : public cPanelBuyButton {
public:
    using cPanelBuyButton::cPanelBuyButton;
};

class cTutuorialBackButton : public cTips<Engine::cAnimButton> {
public:
    using cTips::cTips;
};
