#pragma once

#include "Game/GameLogic/buildings/Building.h"

/// A building that goods change hands at.
class cMarket : public cBuilding {
public:
    using cBuilding::cBuilding;

    String getVisualStateName() const override { return "init_state"; }
};

/// The market of the land.
class cShop : public cMarket {
public:
    using cMarket::cMarket;
    Int getType() const override { return objectShop; }
};

/// A market whose goods come by sea.
class cPort : public cMarket {
public:
    using cMarket::cMarket;
    Int getType() const override { return objectPort; }
    /// The keys of cMarket, then "Angle" (degrees).
    void loadXmlState(const Engine::iXML* xml) override;
    void saveBinState(Engine::iArch& arch) override;
    void loadBinState(Engine::iArch& arch) override;

private:
    Int m_angle = 0;  ///< degrees
};
