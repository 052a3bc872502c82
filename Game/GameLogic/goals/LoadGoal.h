#pragma once

#include "Game/GameLogic/goals/Goal.h"

/// Carries away what a mill or a market has made: to the nearest store with room.
class cLoadGoal : public cGoal {
public:
    cLoadGoal() : cGoal(goalLoad) { setGoesToSrc(true); }

    Bool assign(cMan* man) override;
    Bool filter(Long trans_id) override;
    void onSrc() override;
    void doFinalWork() override;

protected:
    void giveBack() override;

private:
    cBuilding* findStore(cBuilding& from);
    void takeLoad(cBuilding& from, cBuilding& store);
    Bool canUnload(const cBuilding& store) const;

    Bool m_to_start_point = false;  ///< it goes there though there is no room
};
