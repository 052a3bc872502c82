#pragma once

#include <map>
#include <vector>

#include "Game/GameLogic/ResourceCargo.h"
#include "Game/Types.h"

namespace Engine {
class iArch;
}
class cLevelObject;
class cWayPoint;

/// What lies on an arc between two way points. The numbers stand in level files and saves.
enum eArcType : Int {
    ARC_GROUND = 0,  ///< walkable; a road may be built
    ARC_PLAYER_ROAD = 1,
    ARC_ENEMY_ROAD = 2,
    ARC_PLAYER_FENCE = 3,       ///< standing
    ARC_ENEMY_FENCE = 4,        ///< standing
    ARC_PLAYER_FENCE_SITE = 5,  ///< a place for a fence, with none
    ARC_ENEMY_FENCE_SITE = 6,
    ARC_INSIDE_BUILDING = 7,  ///< both ends lie under one building; comes from the connection map alone
    ARC_ROAD_IN_PROGRESS = 8,
    ARC_WATER = 9,                ///< ship lane
    ARC_PLAYER_BRIDGE_SITE = 10,  ///< a place for a bridge road, with none
    ARC_PLAYER_BRIDGE = 11,       ///< standing
    ARC_ENEMY_BRIDGE_SITE = 12,
    ARC_ENEMY_BRIDGE = 13,  ///< standing
    arc_type_count = 14
};

/// Arcs of these types have a price: that of the fence or bridge road on them.
Bool hasArcPrice(Int type);

/// One direction of an arc. The other end holds a twin of it with the same type.
struct sArcInfo {
    Int type = ARC_GROUND;
    Float length = 0.0f;   ///< map units
    sResourceCargo cargo;  ///< the price; zero for types without one
};

/// One way point of a level, named everywhere by its index.
///
/// Arcs are kept in ascending order of the neighbour's index, and whoever walks them does so in that order. After
/// loading, types change through cLevelGraph::setArcType() alone, which keeps both ends and the path search in step.
struct sPointInfo {
    Vector2 pos{0.0f};  ///< map units
    Int kind = 0;       ///< 0 for every point that has a way point
    Int options = 0;    ///< bit 0: a catapult may be proposed here; bit 1: an idol
    std::map<Int, sArcInfo> arcs;
    Bool player_connected = false;
    Bool enemy_connected = false;
    cLevelObject* building = nullptr;  ///< what stands here; not owned
    cWayPoint* way_point = nullptr;    ///< owned by the view tree; null where kind is not 0
    Int index = 0;

    virtual ~sPointInfo() = default;
    virtual const Bool& isPlayerConnected() const { return player_connected; }
    virtual void setPlayerConnected(const Bool& connected) { player_connected = connected; }
    virtual const Bool& isEnemyConnected() const { return enemy_connected; }
    virtual void setEnemyConnected(const Bool& connected) { enemy_connected = connected; }
    virtual const Int& getOptions() const { return options; }
    virtual void setOptions(const Int& new_options) { options = new_options; }

    /// Replaces the arc to that point if there is one.
    void addArc(Int point, Int type, Float length, const sResourceCargo& cargo);
    Bool isWaterPoint() const;             ///< does a ship lane leave it?
    void setArcType(Int point, Int type);  ///< of this end alone; nothing without such an arc
    Int getArcType(Int point) const;       ///< -1 without such an arc

    /// Index, position, options, kind, the number of arcs, and each arc: neighbour, type, length, and the price of a
    /// type that has one.
    void saveBin(Engine::iArch& arch);
    /// Reads what saveBin wrote. Throws "... can't be" for a number of arcs, a type or a length that none has.
    void loadBin(Engine::iArch& arch);
};

using POINTS = std::vector<sPointInfo>;
