#pragma once

#include <memory>
#include <vector>

#include "Game/GameLogic/CargoStorage.h"
#include "Game/GameLogic/Upgrade.h"
#include "Game/Types.h"

class cMan;

/// Anything that rises a level by goods that are brought to it and men who work on it: a building, a stretch of road, a
/// fence.
///
/// At level L it wants row L of its table: the goods first, then so many men at once, each for so many seconds.
class cUpgradableUnit {
public:
    /// What it waits for.
    enum eState : Int { idle = 0, waitingForResources = 1, UPGRADE_STATE = 2 };

    virtual ~cUpgradableUnit() = default;

    virtual Int getLevel() const { return m_level; }
    virtual void setLevel(Int level) { m_level = level; }
    virtual Int getMinLevel() const { return m_min_level; }
    virtual void setMinLevel(Int level) { m_min_level = level; }
    virtual Int getUnderPoint() const = 0;           ///< where men go
    virtual const sResourceCargo& getPrice() const;  ///< of the next level; zero at the top
    virtual Int getNeededResources(Int type) const { return getPrice()[type]; }
    virtual void addUpgradeResources(Int type, Int amount);
    virtual void addMan(cMan* man);  ///< once
    virtual void startUpgrade() { m_state = UPGRADE_STATE; }

    Int getUpgradeState() const { return m_state; }
    void setUpgradeState(Int state) { m_state = state; }
    const std::vector<cMan*>& getUpgradeMen() const { return m_upgrade_men; }
    cCargoStorage& getUpgradeCargo() { return m_upgrade_cargo; }
    const cCargoStorage& getUpgradeCargo() const { return m_upgrade_cargo; }
    Bool isEnoughForUpgrade() const;
    void updateUpgradeCargoCapacity();
    void clearUpgradeMen() { m_upgrade_men.clear(); }

    const std::vector<std::unique_ptr<cUpgrade>>& getUpgrades() const { return m_upgrades; }

    /// The level, the least level and the goods brought so far.
    void saveBinState(Engine::iArch& arch);
    void loadBinState(Engine::iArch& arch);

protected:
    virtual std::unique_ptr<cUpgrade> makeUpgrade() const { return std::make_unique<cUpgrade>(); }
    /// The child tag "Upgrades": each of its children a row. Instead of what there was.
    void loadUpgrades(const Engine::iXML* xml);
    void loadLevelKeys(const Engine::iXML* xml);  ///< "Level", "MinLevel"
    const cUpgrade* getUpgradeRow() const;        ///< of the present level; null at the top and without a table

    std::vector<std::unique_ptr<cUpgrade>> m_upgrades;

private:
    Int m_state = idle;  ///< not saved: a loaded unit is idle
    Int m_level = 0;
    Int m_min_level = 0;               ///< it is never degraded below
    std::vector<cMan*> m_upgrade_men;  ///< who works on it; not owned
    cCargoStorage m_upgrade_cargo;     ///< what was brought so far
};
