#pragma once

#include "Engine/Ui/AnimButton.h"
#include "Game/CommonUI/BuyButton.h"
#include "Game/CommonUI/InfoTip.h"
#include "Game/CommonUI/ScaleOscillator.h"
#include "Game/CommonUI/Tips.h"
#include "Game/GameLogic/ResourceCargo.h"
#include "Game/Ui/GameStrings.h"

/// A button of the control panel that buys something: its tip tells the price beside what the player has.
///
/// It can be bought or not; when it has just become possible it pulses for a while.
class cPanelBuyButton : public cScaleOscillator<cTips<cBuyButton>>, public iExtendedInfoTip {
public:
    using cScaleOscillator::cScaleOscillator;

    void updateInfoTipCargo(sInfoTip&) override {}
    void updateInfoTipPrice(sInfoTip& info) override {
        info.text = getGameString(m_is_planned ? "costs" : "buy_plan");
        if (!m_is_planned)
            return;
        info.cargo = m_cost.amounts;
        info.compare_global = true;
    }

    const sResourceCargo& getCost() const { return m_cost; }
    void setCost(const sResourceCargo& cost) { m_cost = cost; }

    void setPlanned(Bool planned) { m_is_planned = planned; }  ///< without its plan it tells where to get that

private:
    sResourceCargo m_cost;
    Bool m_is_planned = true;
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
