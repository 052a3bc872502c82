// What the player's hand puts on a way point: idols and catapults, from the proposal to the end.
#include "Engine/core/CallStack.h"
#include "Game/GameLogic/Barrier.h"
#include "Game/GameLogic/WayPoint.h"
#include "Game/GameLogic/buildings/Catapult.h"
#include "Game/GameLogic/buildings/Idol.h"
#include "Game/GameLogic/roads/RoadPlan.h"
#include "Game/GameUI/Tactic/TacticMap.h"

using namespace Engine;

namespace {

/// Goes there be an order or not if forced; else only without one, and what stands only for any_level.
Bool mayGo(const cPlacedBuilding& building, Bool any_level, Bool force) {
    return force || (building.getUpgradeState() == cUpgradableUnit::idle && (any_level || building.getLevel() == 0));
}

}  // namespace

// Either of them -----------------------------------------------------------------------------------------------------

Bool cWayPoint::canPropose(Bool allowed, const cPlacedBuilding* same, const cPlacedBuilding* other) const {
    return allowed && !m_player_gates && !m_enemy_gates && !m_has_player_bridge && !m_has_enemy_bridge && !same &&
           (other ? other->isReplaceable() : isFree()) && getMap().getPoint(m_index).player_connected;
}

cPlacedBuilding* cWayPoint::propose(Int type) {
    return static_cast<cPlacedBuilding*>(cLevelObject::create(type, getMap()));
}

void cWayPoint::startBuilding(cPlacedBuilding& building) {
    building.createUpgradeGoals();
    building.updateView(false);
    hideRoadPrice();
    hide();
}

/// Nothing here knows it any more by now.
void cWayPoint::letGo(cPlacedBuilding& building, Bool any_level) {
    getMap().callOffOrder(building);
    if (any_level)
        building.destroyMe();
    else
        building.destroyPhantom();
    hideRoadPrice();
    updateView(false);
}

// The idol -----------------------------------------------------------------------------------------------------------

void cWayPoint::setIdol(cIdol* idol) {
    m_idol = idol;
    getMap().setIdolFlag(m_index, idol != nullptr);
}

Bool cWayPoint::hasProposedIdol() const {
    return m_idol && m_idol->getLevel() == 0;
}

void cWayPoint::proposeIdol() {
    ENGINE_MARK;
    if (!canPropose(m_can_have_idol, m_idol, m_catapult))
        return;
    setIdol(static_cast<cIdol*>(propose(objectIdol)));
    m_idol->propose(m_index);
    updateView(false);
}

void cWayPoint::startIdolBuilding() {
    ENGINE_MARK;
    deleteCatapult(true, true);
    startBuilding(*m_idol);
}

Bool cWayPoint::deleteIdol(Bool any_level, Bool force) {
    ENGINE_MARK;
    if (!m_idol || !mayGo(*m_idol, any_level, force))
        return false;
    cIdol& idol = *m_idol;
    setIdol(nullptr);
    letGo(idol, any_level);
    return true;
}

// The catapult -------------------------------------------------------------------------------------------------------

Bool cWayPoint::hasProposedCatapult() const {
    return m_catapult && m_catapult->getLevel() == 0;
}

void cWayPoint::proposeCatapult() {
    ENGINE_MARK;
    if (!canPropose(m_can_have_catapult, m_catapult, m_idol))
        return;
    m_catapult = static_cast<cCatapult*>(propose(objectPlayerCatapult));
    m_catapult->propose(m_index);
    updateView(false);
}

void cWayPoint::startCatapultBuilding() {
    ENGINE_MARK;
    deleteIdol(true, true);
    startBuilding(*m_catapult);
}

Bool cWayPoint::deleteCatapult(Bool any_level, Bool force) {
    ENGINE_MARK;
    if (!m_catapult || !mayGo(*m_catapult, any_level, force))
        return false;
    cCatapult& catapult = *m_catapult;
    m_catapult = nullptr;
    letGo(catapult, any_level);
    return true;
}

// A hit --------------------------------------------------------------------------------------------------------------

/// What it breaks changes the point under way.
void cWayPoint::damage() {
    ENGINE_MARK;
    aTarget::damage();
    cTacticMap& map = getMap();
    if (auto* building = dynamic_cast<cUpgradableBuilding*>(map.getPoint(m_index).building))
        building->damage();
    const auto arcs = map.getPoint(m_index).arcs;
    for (const auto& [neighbour, arc] : arcs) {
        if (arc.type != ARC_PLAYER_FENCE)
            continue;
        if (cBarrier* fence = map.getFence(m_index, neighbour, false))
            fence->damage();
    }
    while (map.hasRoad(m_index, -1, true))
        map.deleteRoad(m_index, -1, false, true);
    while (map.hasRoad(-1, m_index, true))
        map.deleteRoad(-1, m_index, false, true);
    map.updateView(false);
}
