#pragma once

#include <vector>

#include "Game/GameLogic/ResourceCargo.h"
#include "Game/GameUI/Tactic/PathSearch.h"
#include "Game/Types.h"

class cTransRoad;

/// A road that the player may order: one stretch for each bare arc of a way, seen through under the pointer.
///
/// The stretches are views; those that were not ordered end with the plan.
class cRoadPlan {
public:
    /// @param price  of one stretch
    /// @param speed  of its building, units a second
    cRoadPlan(const PATH_HOLDER& path, const sResourceCargo& price, Float speed);
    virtual ~cRoadPlan();
    cRoadPlan(const cRoadPlan&) = delete;
    cRoadPlan& operator=(const cRoadPlan&) = delete;

    sResourceCargo getPrice() const;  ///< of all stretches
    Bool canBeBuilt() const;          ///< is that in stock?
    Bool areGoalsMade() const { return m_goals_made; }
    void show();
    void hide();  ///< for good: the plan is empty then
    void setAllowed(Bool allowed);
    /// Orders the stretches, the one next to the net first. False if nothing was ordered.
    /// Throws "cRoadPlan::createBuildGoals(): there are not enough resources on the level to build road".
    Bool createBuildGoals();
    const std::vector<cTransRoad*>& getSections() const { return m_sections; }  ///< from the start of the way

private:
    Bool orderSection(cTransRoad& section, cTransRoad*& previous);

    std::vector<cTransRoad*> m_sections;  ///< children of the map's layer of objects
    sResourceCargo m_price;
    Bool m_goals_made = false;
};
