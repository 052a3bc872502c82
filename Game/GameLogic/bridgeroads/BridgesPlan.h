#pragma once

#include <set>
#include <vector>

#include "Game/GameLogic/ResourceCargo.h"
#include "Game/Types.h"

class cBridgeRoad;

/// A run of the player's bridge sites: all that hang together. One order, for the price of one piece, builds them all.
///
/// The plan is made anew whenever it is needed and owns nothing; it holds as long as no bridge road of the player's
/// rises or falls.
class cBridgesPlan {
public:
    explicit cBridgesPlan(cBridgeRoad& src);

    /// Orders the run, at the first of its pieces that the player's net reaches. False, and nothing happens, while a
    /// piece of it is ordered, or where that order can't be met. Throws what cPlayerBridgeRoad::createUpgradeGoals()
    /// does.
    Bool createBuildGoals();
    void build();                    ///< every piece stands now
    Bool isPlayerConnected() const;  ///< the player's net reaches one of its pieces
    void hovered(Int state);         ///< an eButtonState: the whole run looks so

    const std::vector<cBridgeRoad*>& getBridges() const { return m_bridges; }
    const sResourceCargo& getPrice() const { return m_price; }  ///< that of the piece it was made from
    const std::set<Int>& getPoints() const { return m_points; }

private:
    void collect(Int start_point);

    std::vector<cBridgeRoad*> m_bridges;  ///< in order of discovery; not owned
    sResourceCargo m_price;
    std::set<Int> m_points;  ///< the ends of all pieces
};
