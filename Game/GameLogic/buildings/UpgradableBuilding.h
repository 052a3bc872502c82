#pragma once

#include "Game/GameLogic/UpgradableUnit.h"
#include "Game/GameLogic/buildings/Building.h"

/// A building that rises by levels.
class cUpgradableBuilding : public cBuilding, public cUpgradableUnit {
public:
    using cBuilding::cBuilding;

    /// The keys of cBuilding, then the child tag "Upgrades".
    void loadXML(const Engine::iXML* xml) override;
    /// The keys of cBuilding, then "Level", "MinLevel".
    void loadXmlState(const Engine::iXML* xml) override;
    void saveBinState(Engine::iArch& arch) override;
    void loadBinState(Engine::iArch& arch) override;
    void clearWorkingMen() override { clearUpgradeMen(); }
    /// "wait_state_upgrade_" and the level.
    String getVisualStateName() const override;

    Int getUnderPoint() const override { return cBuilding::getUnderPoint(); }
    /// The number of the shop's plan for that level; -1 if it needs none.
    virtual Int getUpgradePlanId(Int level) const = 0;

protected:
    /// The plan of the first of five levels, for classes whose levels 1 to 5 have plans in a row.
    static Int getPlanInRow(Int first_plan, Int level) {
        return level >= 1 && level <= 5 ? first_plan + level - 1 : -1;
    }

private:
    void takeRowCapacity();
};
