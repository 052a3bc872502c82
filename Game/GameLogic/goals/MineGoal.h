#pragma once

#include "Game/GameLogic/goals/Goal.h"

/// One worker for a round of a mill's work. The round goes with any of its workers.
class cMineGoal : public cGoal {
public:
    cMineGoal() : cGoal(goalMine) {}

    Bool assign(cMan* man) override;
    Bool filter(Long trans_id) override;  ///< there is no room in the mill
    void doFinalWork() override;

protected:
    /// Throws "cMineGoal::cancel(): mill cannot be destroyed be enemy".
    void giveBack() override;
    Bool endsTransaction() const override { return true; }
};
