#pragma once

#include "Game/GameLogic/men/Man.h"

class cFence;
class cTransRoad;

/// The player's man. He is in one of two lists of the map, free or busy, and whether he has a goal decides which.
class cFriendMan : public cMan {
public:
    using cMan::cMan;

    Int getType() const override { return objectFriendMan; }
    Bool isFriend() const override { return true; }
    void setInitState() override;
    void process() override;
    void absoluteProcess() override;
    void waitTask(Bool rearrange) override;
    void setGlobalGoal(cGoal* goal) override;
    void startPushOff(Float time) override;
    void setWalkVisualState() override;

    /// Nobody has anything to do for him, and he says so.
    void setIAmFreeVisualState();
    /// He carries what he has to that point instead of where he was going.
    void deliveryTo(Int point, cGoal* goal);
    Bool canDelivery(Int point) const;  ///< is there a way?
    void buildRoad(cTransRoad* road);
    void buildFence(cFence* fence);

private:
    Int findPlaceToStand() const;

    Float m_idle_timer = 0.0f;       ///< seconds left of his saying so
    Float m_idle_sound_time = 0.0f;  ///< seconds before the end at which it is heard
    Bool m_idle_sound_done = false;
};
