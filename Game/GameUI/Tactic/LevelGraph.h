#pragma once

#include "Game/GameUI/Tactic/PathSearch.h"
#include "Game/GameUI/Tactic/PointInfo.h"
#include "Game/Types.h"

/// The graph of the level in play: the points with their arcs, and the path search that works on them.
///
/// Points and arcs come at load; build() then takes them over into the search. From then on only the arcs' types
/// change, and what stands on the points and who holds them, each through the operations here, which keep the search in
/// step.
class cLevelGraph {
public:
    POINTS& getPoints() { return m_points; }
    const POINTS& getPoints() const { return m_points; }
    cPathSearch& getSearch() { return m_search; }
    const cPathSearch& getSearch() const { return m_search; }

    Bool hasPoint(Int index) const { return index >= 0 && index < static_cast<Int>(m_points.size()); }
    /// Throws "cLevelGraph::getPoint(): no point <index>".
    sPointInfo& getPoint(Int index) { return m_points[toPlace(index)]; }
    const sPointInfo& getPoint(Int index) const { return m_points[toPlace(index)]; }

    void build() { m_search.build(m_points); }
    void clear();

    /// Joins two points by an arc as long as the way between them; a later one of the same pair replaces the earlier.
    void addArc(Int a, Int b, Int type, const sResourceCargo& cargo);
    /// In both directions; nothing without such an arc.
    void setArcType(Int a, Int b, Int type);
    /// @param is_enemy   what stands there is the enemy's and closed to the player
    /// @param is_bunker  it ends the player's net
    void setBuilding(Int point, cLevelObject* object, Bool is_enemy, Bool is_bunker);
    void setIdol(Int point, Bool stands) { m_search.setPointFlag(checked(point), pointIdol, stands); }
    void setPlayerConnected(Int point, Bool connected);

    /// Nobody holds anything.
    void clearConnections();
    /// Marks what a side reaches from one of its points, that included.
    void connectPlayer(Int base);
    void connectEnemy(Int base);

private:
    std::size_t toPlace(Int index) const { return static_cast<std::size_t>(checked(index)); }
    Int checked(Int index) const;

    POINTS m_points;
    cPathSearch m_search;
    std::vector<char> m_reached;
};
