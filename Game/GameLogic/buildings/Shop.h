#pragma once

#include "Game/GameLogic/buildings/Market.h"

/// The market of the land.
class cShop : public cMarket {
public:
    using cMarket::cMarket;

    Int getType() const override { return objectShop; }
    /// The keys of cMarket, then the child tag "Tasks".
    void loadXmlState(const Engine::iXML* xml) override;
    void loadBinState(Engine::iArch& arch) override;
    void onMarketAction() override;
    void showMarketWindow() override;
    void updateInfoTipCargo(sInfoTip& info) override;
    void updateInfoTipPrice(sInfoTip& info) override;
};
