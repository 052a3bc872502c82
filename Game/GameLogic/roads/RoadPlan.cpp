#include "Game/GameLogic/roads/RoadPlan.h"

#include "Engine/core/CallStack.h"
#include "Game/GameLogic/roads/TransRoad.h"
#include "Game/GameUI/Tactic/TacticMap.h"

using namespace Engine;

namespace {

cTacticMap& map() {
    return *cTacticMap::getInstance();
}

/// Does anything lie on that arc that is no bare ground?
Bool isTaken(Int a, Int b) {
    return map().hasRoad(a, b, false) || map().hasFence(a, b, false) || map().getBridgeRoad(a, b, false);
}

}  // namespace

cRoadPlan::cRoadPlan(const PATH_HOLDER& path, const sResourceCargo& price, Float speed) : m_price(price) {
    ENGINE_MARK;
    for (std::size_t i = 1; i < path.size(); ++i) {
        if (isTaken(path[i - 1], path[i]))
            continue;
        auto* section = static_cast<cTransRoad*>(cLevelObject::create(objectTransRoad, map()));
        section->setConnectionPoint(path[i - 1], path[i]);
        section->setSpeed(speed);
        section->setPrice(price);
        m_sections.push_back(section);
    }
}

cRoadPlan::~cRoadPlan() {
    if (cTacticMap::getInstance())
        hide();
}

sResourceCargo cRoadPlan::getPrice() const {
    sResourceCargo res;
    for (std::size_t i = 0; i < m_sections.size(); ++i)
        res.add(m_price);
    return res;
}

Bool cRoadPlan::canBeBuilt() const {
    return map().getGlobalCargo(false).covers(getPrice());
}

// What is seen -------------------------------------------------------------------------------------------------------

void cRoadPlan::show() {
    for (cTransRoad* section : m_sections) {
        section->enable();
        section->show();
    }
}

void cRoadPlan::hide() {
    for (cTransRoad* section : m_sections) {
        if (cView::isValid(section))
            section->destroyMe();
    }
    m_sections.clear();
}

void cRoadPlan::setAllowed(Bool allowed) {
    for (cTransRoad* section : m_sections) {
        section->setAllowed(allowed);
        section->updateView(false);
    }
}

// The order ----------------------------------------------------------------------------------------------------------

Bool cRoadPlan::createBuildGoals() {
    ENGINE_MARK;
    // The way of a plan ends on the net, where the building begins.
    cTransRoad* previous = nullptr;
    while (!m_sections.empty()) {
        cTransRoad* section = m_sections.back();
        m_sections.pop_back();
        if (orderSection(*section, previous))
            m_goals_made = true;
        else
            section->destroyMe();
    }
    map().updateGlobalResources(true);
    return m_goals_made;
}

/// Those that were ordered are no longer the plan's: each lives until it is built or called off.
Bool cRoadPlan::orderSection(cTransRoad& section, cTransRoad*& previous) {
    if (!section.createUpgradeGoals())
        return false;
    section.setStarted(!previous);
    section.setPrev(previous);
    if (previous)
        previous->setNext(&section);
    previous = &section;
    return true;
}
