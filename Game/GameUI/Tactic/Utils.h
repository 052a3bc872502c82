#pragma once

#include <vector>

#include "Game/GameUI/Tactic/PathSearch.h"
#include "Game/Types.h"

class aTarget;
class cBridge;
class cBuilding;
class cMan;

/// Questions about the level in play that more than one class asks, and walks over its objects. Holds nothing itself.
class cUtils {
public:
    cUtils() = delete;

    /// Is there room in a warehouse or start point on the player's net, other than that one?
    static Bool levelHasFreeStorages(const cBuilding* except);
    static Bool isRoadInProgress(Int a, Int b);  ///< in either direction
    static Bool isEnemyRoadArc(Int a, Int b);    ///< in either direction
    static void oscillateWarehouses();           ///< shows where goods are to go
    static void oscillateShops();
    static void deleteRoadPlans();                   ///< those that are only proposed
    static void showLevelBridges(Bool show);         ///< of bridges and the start point
    static std::vector<cBridge*> getLevelBridges();  ///< by their numbers
    static std::vector<aTarget*> getLevelTargets(Bool for_enemy);
    static void makeOurFencesInvalid();  ///< they build their views anew
    static void makeEnemyFencesInvalid();
    static Bool pathHasIdol(const PATH_HOLDER& path);  ///< a built one
    /// The one of two points that an enemy man reaches first; -1 if neither.
    static Int getClosestPointForEnemy(const cMan* man, Int p0, Int p1);
};
