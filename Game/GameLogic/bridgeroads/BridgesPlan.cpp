#include "Game/GameLogic/bridgeroads/BridgesPlan.h"

#include <algorithm>

#include "Engine/core/CallStack.h"
#include "Game/GameLogic/bridgeroads/BridgeRoad.h"
#include "Game/GameUI/Tactic/TacticMap.h"

namespace {

cTacticMap& getMap() {
    return *cTacticMap::getInstance();
}

}  // namespace

cBridgesPlan::cBridgesPlan(cBridgeRoad& src) : m_price(src.getPrice()) {
    ENGINE_MARK;
    collect(src.getP0());
    for (const cBridgeRoad* bridge : m_bridges)
        m_points.insert({bridge->getP0(), bridge->getP1()});
}

/// Depth first, arcs in key order, each point once.
void cBridgesPlan::collect(Int start_point) {
    std::set<Int> seen{start_point};
    std::vector<Int> way{start_point};
    while (!way.empty()) {
        const auto& arcs = getMap().getPoint(way.back()).arcs;
        const auto next = std::find_if(arcs.begin(), arcs.end(), [&seen](const auto& arc) {
            return arc.second.type == ARC_PLAYER_BRIDGE_SITE && !seen.contains(arc.first);
        });
        if (next == arcs.end()) {
            way.pop_back();
            continue;
        }
        if (auto* bridge = dynamic_cast<cBridgeRoad*>(getMap().getBridgeRoad(way.back(), next->first, false)))
            m_bridges.push_back(bridge);
        seen.insert(next->first);
        way.push_back(next->first);
    }
}

Bool cBridgesPlan::isPlayerConnected() const {
    return std::any_of(m_bridges.begin(), m_bridges.end(),
                       [](const cBridgeRoad* bridge) { return bridge->cBridgeRoad::isPlayerConnected(); });
}

Bool cBridgesPlan::createBuildGoals() {
    ENGINE_MARK;
    const Bool ordered = std::any_of(m_bridges.begin(), m_bridges.end(), [](const cBridgeRoad* bridge) {
        return bridge->getUpgradeState() != cUpgradableUnit::idle;
    });
    const auto first = std::find_if(m_bridges.begin(), m_bridges.end(),
                                    [](const cBridgeRoad* bridge) { return bridge->getUnderPoint() != -1; });
    return !ordered && first != m_bridges.end() && (*first)->isUpgradeAllowed() && (*first)->createUpgradeGoals();
}

void cBridgesPlan::build() {
    ENGINE_MARK;
    for (cBridgeRoad* bridge : m_bridges) {
        getMap().setArcType(bridge->getP0(), bridge->getP1(), ARC_PLAYER_BRIDGE);
        bridge->setLevel(bridge->getLevel() + 1);
        bridge->endWork();
    }
    getMap().updateView(false);
}

void cBridgesPlan::hovered(Int state) {
    for (cBridgeRoad* bridge : m_bridges)
        bridge->hoverPieces(state);
}
