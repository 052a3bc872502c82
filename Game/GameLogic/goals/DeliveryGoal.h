#pragma once

#include "Game/GameLogic/goals/Goal.h"

/// Fetches goods that are locked for it in a store and brings them to a unit that is to rise: one item, or money of any
/// amount (its index).
class cDeliveryGoal : public cGoal {
public:
    explicit cDeliveryGoal(Int type = goalDelivery) : cGoal(type) { setGoesToSrc(true); }

    Bool assign(cMan* man) override;
    Bool isSelfContained() const override { return false; }
    /// Throws "cDeliveryGoal::onSrc() - provider must have locked resources for this delivery but it hasn't.".
    void onSrc() override;
    void doFinalWork() override;

protected:
    /// Throws "cDeliveryGoal::cancel(): source of delivery goal was destroyed." and "... man was destroyed.".
    void giveBack() override;
    /// Whom it is for; null if that is there no more.
    virtual cUpgradableUnit* findReceiver() const;
    /// Where he takes it, from the store that he stands at; -1 if there is no way.
    virtual Int chooseDst() const { return getDst(); }

private:
    void goToBay(Float bay_angle);
};

/// Brings goods to what is not found by its point: a stretch of road in work, and, as further types, a fence, a bridge
/// road or a trade. Those that are built as a run take them at whichever of their points is nearest.
class cDeliveryRoadGoal : public cDeliveryGoal {
public:
    cDeliveryRoadGoal(Int src, Int dst, Int cargo_type, cUpgradableUnit* unit, Int type = goalDeliveryRoad);

    /// It waits until its unit takes goods.
    Bool filter(Long trans_id) override;

protected:
    cUpgradableUnit* findReceiver() const override { return getUnit(); }
    Int chooseDst() const override;
};

/// Brings goods to a trade of a market. One whose order waits behind another is not handed out; a man who was on his
/// way with such a load when it was ordered brings it all the same, and the trade keeps it for that order.
class cDeliveryMarketGoal : public cDeliveryRoadGoal {
public:
    explicit cDeliveryMarketGoal(cUpgradableUnit* trade) : cDeliveryRoadGoal(-1, -1, -1, trade, goalDeliveryMarket) {}

    Bool filter(Long trans_id) override;
    void doFinalWork() override;
};
