#include "Game/GameUI/Tactic/LevelGraph.h"

Int cLevelGraph::checked(Int index) const {
    if (!hasPoint(index))
        throw String("cLevelGraph::getPoint(): no point ") + std::to_string(index);
    return index;
}

void cLevelGraph::clear() {
    m_points.clear();
    m_search.build(m_points);
}

void cLevelGraph::addArc(Int a, Int b, Int type, const sResourceCargo& cargo) {
    const Float length = glm::distance(getPoint(a).pos, getPoint(b).pos);
    getPoint(a).addArc(b, type, length, cargo);
    getPoint(b).addArc(a, type, length, cargo);
}

void cLevelGraph::setArcType(Int a, Int b, Int type) {
    getPoint(a).setArcType(b, type);
    getPoint(b).setArcType(a, type);
    m_search.setArcType(a, b, type);
}

void cLevelGraph::setBuilding(Int point, cLevelObject* object, Bool is_enemy, Bool is_bunker) {
    getPoint(point).building = object;
    m_search.setPointFlag(point, pointEnemyObject, is_enemy);
    m_search.setPointFlag(point, pointBunker, is_bunker);
}

void cLevelGraph::setPlayerConnected(Int point, Bool connected) {
    getPoint(point).player_connected = connected;
    m_search.setPointFlag(point, pointPlayerConnected, connected);
}

void cLevelGraph::clearConnections() {
    for (sPointInfo& point : m_points) {
        point.enemy_connected = false;
        setPlayerConnected(point.index, false);
    }
}

void cLevelGraph::connectPlayer(Int base) {
    m_reached.assign(m_points.size(), 0);
    m_search.floodPlayer(checked(base), m_reached);
    for (std::size_t i = 0; i < m_points.size(); ++i) {
        if (m_reached[i])
            setPlayerConnected(static_cast<Int>(i), true);
    }
}

void cLevelGraph::connectEnemy(Int base) {
    m_reached.assign(m_points.size(), 0);
    m_search.floodEnemy(checked(base), m_reached);
    for (std::size_t i = 0; i < m_points.size(); ++i) {
        if (m_reached[i])
            m_points[i].enemy_connected = true;
    }
}
