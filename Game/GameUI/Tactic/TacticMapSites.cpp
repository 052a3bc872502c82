// What the pointer carries, idol or catapult, with its places on the level; and what a catapult can hit.
#include <algorithm>

#include "Engine/Ui/Picture.h"
#include "Engine/Ui/Storage.h"
#include "Engine/core/CallStack.h"
#include "Engine/core/Logic.h"
#include "Game/GameLogic/WayPoint.h"
#include "Game/GameLogic/bridgeroads/BridgeRoad.h"
#include "Game/GameLogic/buildings/Catapult.h"
#include "Game/GameLogic/buildings/Idol.h"
#include "Game/GameLogic/fences/Fence.h"
#include "Game/GameLogic/roads/RoadEnemy.h"
#include "Game/GameUI/Tactic/TacticMap.h"
#include "Game/Ui/GameSounds.h"

using namespace Engine;

// In the hand --------------------------------------------------------------------------------------------------------

void cTacticMap::moveIcon(cPicture& icon) {
    icon.setPosition(cLogic::getInstance()->getCursorPos());
}

void cTacticMap::carry(cPicture& icon, Bool shown) {
    if (!shown)
        return icon.hide();
    moveIcon(icon);
    icon.show();
}

void cTacticMap::showIdols(Bool show) {
    ENGINE_MARK;
    m_idol_in_hand = show;
    for (const auto& [number, way_point] : cStorage<cWayPoint>::getStorage()) {
        if (!way_point->canHaveIdol())
            continue;
        if (show)
            way_point->proposeIdol();
        else
            way_point->deleteIdol(false, false);
    }
    carry(*m_idol_icon, show);
}

void cTacticMap::showCatapults(Bool show) {
    ENGINE_MARK;
    m_catapult_in_hand = show;
    for (const auto& [number, way_point] : cStorage<cWayPoint>::getStorage()) {
        if (!way_point->canHaveCatapult())
            continue;
        if (show)
            way_point->proposeCatapult();
        else if (dynamic_cast<cPlayerCatapult*>(way_point->getCatapult()))
            way_point->deleteCatapult(false, false);
    }
    carry(*m_catapult_icon, show);
    updateView(false);
}

void cTacticMap::showSitesAnew() {
    if (m_idol_in_hand) {
        showIdols(false);
        showIdols(true);
    }
    if (m_catapult_in_hand) {
        showCatapults(false);
        showCatapults(true);
    }
}

/// Placed or not, a press drops it.
void cTacticMap::dropFromHand() {
    if (m_idol_in_hand)
        showIdols(false);
    if (m_catapult_in_hand)
        showCatapults(false);
}

/// A press on a proposal orders it. False where there is none.
Bool cTacticMap::pressSite(cWayPoint& way_point) {
    const auto canBeOrdered = [](cPlacedBuilding& building) {
        const Bool can = building.isUpgradeAllowed();
        if (!can)
            playGameSound("wrong_action");
        return can;
    };
    const auto isProposed = [](const cPlacedBuilding* building) {
        return building && building->getLevel() == 0 && building->getUpgradeState() == cUpgradableUnit::idle;
    };
    if (isProposed(way_point.getIdol())) {
        if (canBeOrdered(*way_point.getIdol()))
            way_point.startIdolBuilding();
        return true;
    }
    if (isProposed(way_point.getCatapult())) {
        if (canBeOrdered(*way_point.getCatapult()))
            way_point.startCatapultBuilding();
        return true;
    }
    return false;
}

// Targets ------------------------------------------------------------------------------------------------------------

void cTacticMap::offerTarget(aTarget& target, const Vector2& center, Float radius) {
    target.showTarget(center, radius, true);
    m_shown_targets.push_back(&target);
}

template <class T>
void cTacticMap::offerTargets(const Vector2& center, Float radius) {
    for (const auto& [number, object] : cStorage<T>::getStorage()) {
        if (object->inDamageArea(center, radius))
            offerTarget(*object, center, radius);
    }
}

void cTacticMap::showTargets(cCatapult* catapult, Bool for_enemy) {
    ENGINE_MARK;
    hideTargets();
    m_catapult_of_targets = catapult;
    const Float radius = catapult->getDamageRadius();
    const Int level = std::max(catapult->getLevel(), 1);
    const Vector2 center = getPoint(catapult->getUnderPoint()).pos;
    if (for_enemy)
        offerTargets<cRoadEnemy>(center, radius);
    else
        offerTargets<cRoad>(center, radius);
    if (level <= 1)
        return;
    if (for_enemy) {
        offerTargets<cEnemyFence>(center, radius);
        offerTargets<cEnemyBridgeRoad>(center, radius);
    }
    constexpr Int level_for_bunkers = 3;
    for (cBuilding* building : cBuilding::getStorage()) {
        const Int type = building->getType();
        Vector2 place;
        building->getPosition(place, false);
        if (type == objectBridge || type == objectStartPoint || (type == objectBunker && level < level_for_bunkers) ||
            building->isEnemy() != for_enemy || glm::distance(center, place) > radius)
            continue;
        building->showTarget(true);
        m_shown_targets.push_back(building);
    }
}

void cTacticMap::hideTargets() {
    for (aTarget* target : m_shown_targets) {
        if (target)
            target->showTarget(false);
    }
    m_shown_targets.clear();
}

void cTacticMap::pressTarget(const Vector2& cursor) {
    ENGINE_MARK;
    const auto found = std::find_if(m_shown_targets.begin(), m_shown_targets.end(), [&cursor](const aTarget* target) {
        return target && target->isTargetButtonAt(cursor);
    });
    if (found != m_shown_targets.end())
        return targetClicked(*found);
    m_targets_shown = false;
    if (m_catapult_of_targets)
        m_catapult_of_targets->hideDamageArea();
}

void cTacticMap::targetClicked(aTarget* target) {
    ENGINE_MARK;
    const Bool chosen = m_targets_shown && m_catapult_of_targets;
    m_targets_shown = false;
    if (chosen) {
        target->onTargetSet();
        m_catapult_of_targets->shot(target);
    }
    if (m_catapult_of_targets)
        m_catapult_of_targets->hideDamageArea();
}

void cTacticMap::targetDamaged(aTarget* target) {
    const auto found = std::find(m_shown_targets.begin(), m_shown_targets.end(), target);
    if (!target || found == m_shown_targets.end())
        return;
    target->showTarget(false);
    *found = nullptr;
}

void cTacticMap::catapultEnded(const cCatapult& catapult) {
    if (m_catapult_of_targets != &catapult)
        return;
    m_targets_shown = false;
    hideTargets();
    m_catapult_of_targets = nullptr;
}
