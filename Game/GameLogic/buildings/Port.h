#pragma once

#include "Game/GameLogic/buildings/Market.h"

/// A market whose goods come by sea.
class cPort : public cMarket {
public:
    using cMarket::cMarket;

    Int getType() const override { return objectPort; }
    /// The keys of cMarket, then "Angle" (degrees).
    void loadXmlState(const Engine::iXML* xml) override;
    /// That of cMarket, then the angle.
    void saveBinState(Engine::iArch& arch) override;
    void loadBinState(Engine::iArch& arch) override;

private:
    Int m_angle = 0;  ///< degrees
};
