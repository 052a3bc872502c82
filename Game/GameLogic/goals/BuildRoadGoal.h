#pragma once

#include "Game/GameLogic/goals/UpgradeGoal.h"

class cTransRoad;

/// One builder for a stretch of road. He starts at whichever of its ends is nearer to him.
class cBuildRoadGoal : public cUpgradeGoal {
public:
    cBuildRoadGoal(Int point, cUpgradableUnit* unit, Int type = goalBuildRoad);

    Bool assign(cMan* man) override;
    Bool filter(Long trans_id) override;
    void doFinalWork() override;

protected:
    cUpgradableUnit* findUnit() const override { return getUnit(); }

private:
    cTransRoad* getRoad() const;
};

/// One builder for what is built as a run: he starts at the nearest of its points.
class cBuildRunGoal : public cBuildRoadGoal {
public:
    using cBuildRoadGoal::cBuildRoadGoal;

    Bool assign(cMan* man) override;

protected:
    /// Logged first.
    virtual const char16_t* getAssignText() const = 0;
};

class cBuildFenceGoal : public cBuildRunGoal {
public:
    cBuildFenceGoal(Int point, cUpgradableUnit* unit) : cBuildRunGoal(point, unit, goalBuildFence) {}

    void doFinalWork() override;

protected:
    const char16_t* getAssignText() const override { return u"cBuildFenceGoal::assign()"; }
};

class cBuildBridgeRoadGoal : public cBuildRunGoal {
public:
    cBuildBridgeRoadGoal(Int point, cUpgradableUnit* unit) : cBuildRunGoal(point, unit, goalBuildBridgeRoad) {}

    void doFinalWork() override;

protected:
    const char16_t* getAssignText() const override { return u"cBuildBridgeRoadGoal::assign()"; }
};
