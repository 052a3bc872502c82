#pragma once

#include "Game/GameLogic/goals/Goal.h"

/// One builder for a building that is to rise. He takes his place in its ring and waits there for the others.
class cUpgradeGoal : public cGoal {
public:
    explicit cUpgradeGoal(Int type = goalUpgrade) : cGoal(type) {}

    Bool assign(cMan* man) override;
    /// It waits for the goods, and while another transaction has priority.
    Bool filter(Long trans_id) override;
    Bool isSelfContained() const override { return false; }
    Bool mustArrange() const override { return getType() == goalUpgrade; }
    void doFinalWork() override;

protected:
    /// The order that it belongs to ends; a later one of the same unit goes on.
    void giveBack() override;
    /// What is to rise; null if it is there no more.
    virtual cUpgradableUnit* findUnit() const;
};

/// One man for a trade: he works on it at once.
class cMarketGoal : public cUpgradeGoal {
public:
    cMarketGoal(Int point, cUpgradableUnit* unit);

    Bool filter(Long trans_id) override;
    void doFinalWork() override;

protected:
    cUpgradableUnit* findUnit() const override { return getUnit(); }
};
