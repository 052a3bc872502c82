#pragma once

#include <vector>

#include "Game/GameUI/Tactic/PairGrid.h"
#include "Game/Types.h"

class cMan;
class cTacticMap;

/// Looks at all men who are close to each other and makes them get past: a friend whom an enemy runs into falls,
/// friends who meet head on swap their goals, enemies who do walk round each other.
class cWalkingMen {
public:
    /// One frame.
    void test(cTacticMap& map);

private:
    static void meetOtherSide(cMan& man, cMan& enemy, Float time);
    static void meetFriends(cMan& a, cMan& b);
    static void meetEnemies(cMan& a, cMan& b);

    cPairGrid m_grid;
    std::vector<Vector2> m_places;  ///< of the player's men, then of the enemy's
};
