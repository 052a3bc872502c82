#pragma once

#include "Game/GameLogic/buildings/UpgradableBuilding.h"

/// The way out of a level: repaired, then loaded with a caravan.
class cBridge : public cUpgradableBuilding {
public:
    using cUpgradableBuilding::cUpgradableBuilding;

    Int getType() const override { return objectBridge; }
    Int getUpgradePlanId(Int) const override { return -1; }
    /// The keys of cUpgradableBuilding, then "BridgeNumber", "NextLevel", "Angle" (degrees), "GoldTime", "SilverTime"
    /// (seconds) and the child tag "Upgrades".
    void loadXmlState(const Engine::iXML* xml) override;
    void saveBinState(Engine::iArch& arch) override;
    void loadBinState(Engine::iArch& arch) override;

    Int getBridgeNumber() const { return m_bridge_number; }
    void setBridgeNumber(Int number) { m_bridge_number = number; }
    Int getNextLevel() const { return m_next_level; }
    Bool isPassed() const { return m_passed; }
    Float getElapsed() const { return m_elapsed; }
    /// The flag held now, an eMark; with only_if_passed none before the caravan is loaded.
    Int getMark(Bool only_if_passed) const;
    void showBridge(Bool show);

private:
    void serialize(Engine::iArch& arch);

    Int m_bridge_number = 0;
    Int m_next_level = -1;       ///< -1 after the last level
    Float m_angle = 0.0f;        ///< of the way out, radians
    Bool m_passed = false;       ///< the caravan is loaded
    Float m_gold_time = 0.0f;    ///< seconds in which the gold flag holds
    Float m_silver_time = 0.0f;  ///< further seconds in which the silver flag holds
    Float m_elapsed = 0.0f;      ///< seconds since the level began
};
