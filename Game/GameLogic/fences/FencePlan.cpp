#include "Game/GameLogic/fences/FencePlan.h"

#include <algorithm>
#include <string>
#include <vector>

#include "Engine/core/CallStack.h"
#include "Game/GameLogic/WayPoint.h"
#include "Game/GameLogic/fences/Fence.h"
#include "Game/GameUI/Tactic/TacticMap.h"

namespace {

String makeKey(Int a, Int b) {
    return String("key_") + std::to_string(std::min(a, b)) + "_" + std::to_string(std::max(a, b));
}

cTacticMap& getMap() {
    return *cTacticMap::getInstance();
}

/// A fence leaves no room for an idol or a catapult at its ends.
void clearSites(Int point) {
    if (cWayPoint* way_point = getMap().getPoint(point).way_point) {
        way_point->deleteIdol(true, true);
        way_point->deleteCatapult(true, true);
    }
}

}  // namespace

cFencePlan::cFencePlan(cFence& src_fence) : m_price(src_fence.getPrice()) {
    ENGINE_MARK;
    collect(src_fence.getP0());
    for (const auto& [key, fence] : m_fences)
        m_points.insert({fence->getP0(), fence->getP1()});
}

void cFencePlan::collect(Int start_point) {
    std::vector<Int> open{start_point};
    while (!open.empty()) {
        const Int point = open.back();
        open.pop_back();
        for (const auto& [neighbour, arc] : getMap().getPoint(point).arcs) {
            if (arc.type != ARC_PLAYER_FENCE_SITE)
                continue;
            const String key = makeKey(point, neighbour);
            auto* fence =
                m_fences.contains(key) ? nullptr : dynamic_cast<cFence*>(getMap().getFence(point, neighbour, false));
            if (!fence)
                continue;
            m_fences.emplace(key, fence);
            open.push_back(neighbour);
        }
    }
}

cFence* cFencePlan::getFirstFence() const {
    return m_fences.empty() ? nullptr : m_fences.begin()->second;
}

Bool cFencePlan::isPlayerConnected() const {
    return std::any_of(m_fences.begin(), m_fences.end(),
                       [](const auto& entry) { return entry.second->cFence::isPlayerConnected(); });
}

// Its order ----------------------------------------------------------------------------------------------------------

Bool cFencePlan::createBuildGoals() {
    ENGINE_MARK;
    cFence* first = getFirstFence();
    const Bool ordered = std::any_of(m_fences.begin(), m_fences.end(), [](const auto& entry) {
        return entry.second->getUpgradeState() != cUpgradableUnit::idle;
    });
    if (!first || ordered || !first->isUpgradeAllowed() || !first->createUpgradeGoals())
        return false;
    for (const auto& [key, fence] : m_fences) {
        if (fence != first)
            fence->startUpgrade();
    }
    return true;
}

void cFencePlan::setFenceInWork(Bool in_work) {
    for (const Int point : m_points) {
        if (cWayPoint* way_point = getMap().getPoint(point).way_point) {
            way_point->setFenceInWork(in_work);
            way_point->updateView(false);
        }
    }
}

void cFencePlan::build() {
    ENGINE_MARK;
    setFenceInWork(false);
    for (const auto& [key, fence] : m_fences) {
        getMap().setArcType(fence->getP0(), fence->getP1(), ARC_PLAYER_FENCE);
        fence->setLevel(fence->getLevel() + 1);
        clearSites(fence->getP0());
        clearSites(fence->getP1());
    }
    for (const auto& [key, fence] : m_fences)
        fence->endWork();
    getMap().updateView(false);
}

void cFencePlan::callOff() {
    ENGINE_MARK;
    setFenceInWork(false);
    for (const auto& [key, fence] : m_fences) {
        if (fence->getUpgradeState() != cUpgradableUnit::idle)
            fence->endWork();
    }
}

// Its looks ----------------------------------------------------------------------------------------------------------

void cFencePlan::setGroundLevel(Float time) {
    ENGINE_MARK;
    setFenceInWork(true);
    for (const auto& [key, fence] : m_fences)
        fence->setGroundLevel(time);
}

void cFencePlan::growingUp(Float dt) {
    for (const auto& [key, fence] : m_fences)
        fence->growingUp(dt);
}

void cFencePlan::updateView() {
    for (const auto& [key, fence] : m_fences)
        fence->updateView(false);
}

void cFencePlan::hovered(Int state) {
    for (const auto& [key, fence] : m_fences)
        fence->hoverTiles(state);
}
