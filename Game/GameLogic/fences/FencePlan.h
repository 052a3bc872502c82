#pragma once

#include <map>
#include <set>

#include "Game/GameLogic/ResourceCargo.h"
#include "Game/Types.h"

class cFence;

/// A run of the player's fence sites: all that hang together, ordered, paid for and built as a whole.
///
/// The piece that is first by its key has the order and is paid for; the others wait beside it in state 2. The plan is
/// made anew whenever it is needed and owns nothing; it holds as long as no fence of the player's rises or falls.
class cFencePlan {
public:
    explicit cFencePlan(cFence& src_fence);

    /// Orders the run. False, and nothing happens, while a piece of it is ordered, or where its order can't be met.
    /// Throws what cPlayerFence::createUpgradeGoals() does.
    Bool createBuildGoals();
    void build();    ///< every piece stands now
    void callOff();  ///< every piece that is ordered is a mere site again
    /// Every piece begins to rise, to full height within those seconds; one that does already goes on.
    void setGroundLevel(Float time);
    void growingUp(Float dt);
    Bool isPlayerConnected() const;  ///< the player's net reaches one of its points
    void updateView();
    void hovered(Int state);  ///< an eButtonState: all tiles of the run look so

    cFence* getFirstFence() const;  ///< which has the order; null for a run without pieces
    const std::map<String, cFence*>& getFences() const { return m_fences; }
    const sResourceCargo& getPrice() const { return m_price; }  ///< that of the piece it was made from
    const std::set<Int>& getPoints() const { return m_points; }

private:
    void collect(Int start_point);
    void setFenceInWork(Bool in_work);

    std::map<String, cFence*> m_fences;  ///< by "key_<lower point>_<higher point>"; not owned
    sResourceCargo m_price;
    std::set<Int> m_points;  ///< the ends of all pieces
};
