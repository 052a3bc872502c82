// Who holds what on the level, who can get where, and what is nearest.
#include <algorithm>
#include <cmath>

#include "Engine/Ui/Storage.h"
#include "Engine/core/CallStack.h"
#include "Game/GameLogic/WayPoint.h"
#include "Game/GameLogic/bridgeroads/BridgeRoad.h"
#include "Game/GameLogic/buildings/Catapult.h"
#include "Game/GameLogic/buildings/Idol.h"
#include "Game/GameLogic/buildings/StartPoint.h"
#include "Game/GameLogic/fences/Fence.h"
#include "Game/GameLogic/men/FriendMan.h"
#include "Game/GameLogic/roads/RoadEnemy.h"
#include "Game/GameUI/Tactic/TacticMap.h"

using namespace Engine;

namespace {

constexpr std::uint32_t toBits(std::initializer_list<eArcType> types) {
    std::uint32_t res = 0;
    for (const eArcType type : types)
        res |= 1u << type;
    return res;
}

/// Nobody is to stand on what takes the place for itself.
Bool leavesNoPlace(const cLevelObject& building) {
    switch (building.getType()) {
        case objectPort:
        case objectPlayerCatapult:
        case objectIdol:
        case objectPlayerFence:
            return true;
        default:
            return false;
    }
}

/// Nearest first or last; of equal ones the earlier made first.
template <class T>
void sortByDistance(std::vector<T*>& objects, Bool descending) {
    std::sort(objects.begin(), objects.end(), [descending](const T* a, const T* b) {
        if (a->getDistance() != b->getDistance())
            return descending == (a->getDistance() > b->getDistance());
        return a->getCreationNumber() < b->getCreationNumber();
    });
}

template <class T>
T* findJoining(Int p0, Int p1) {
    for (const auto& [number, object] : cStorage<T>::getStorage()) {
        if (object->joins(p0, p1))
            return object;
    }
    return nullptr;
}

/// With -1 for either end a road that has the other at its own other end.
template <class T>
T* findRoadLike(Int p0, Int p1) {
    for (const auto& [number, road] : cStorage<T>::getStorage()) {
        if (p0 == -1 ? road->getP1() == p1 : p1 == -1 ? road->getP0() == p0 : road->joins(p0, p1))
            return road;
    }
    return nullptr;
}

/// False where there is none.
template <class T>
Bool destroyRoadLike(Int p0, Int p1) {
    T* road = findRoadLike<T>(p0, p1);
    if (!road)
        return false;
    road->destroyMe();
    std::erase_if(cStorage<T>::getStorage(), [road](const auto& entry) { return entry.second == road; });
    return true;
}

template <class T>
T* findAtEnd(Int point) {
    for (const auto& [number, object] : cStorage<T>::getStorage()) {
        if (object->hasEnd(point))
            return object;
    }
    return nullptr;
}

}  // namespace

// What stands where --------------------------------------------------------------------------------------------------

void cTacticMap::setBuilding(Int point, cLevelObject* object) {
    m_graph.setBuilding(point, object, object && object->isEnemyBuilding(),
                        object && object->getType() == objectBunker);
}

cLevelObject* cTacticMap::getLevelObject(Int point) const {
    const sPointInfo& info = getPoint(point);
    if (info.building || !info.way_point)
        return info.building;
    if (info.way_point->hasProposedCatapult())
        return info.way_point->getCatapult();
    return info.way_point->hasProposedIdol() ? info.way_point->getIdol() : nullptr;
}

cArrangementUnit* cTacticMap::getArrangementUnit(Int point) const {
    const sPointInfo& info = getPoint(point);
    if (auto* unit = dynamic_cast<cArrangementUnit*>(info.building))
        return unit;
    return info.way_point;
}

Int cTacticMap::getPointByPosition(const Vector2& pos) const {
    for (const cBuilding* building : cBuilding::getStorage()) {
        if (building->isShown() && building->pointInRect(pos))
            return building->getUnderPoint();
    }
    for (const auto& [number, way_point] : cStorage<cWayPoint>::getStorage()) {
        if (way_point->isShown() && way_point->pointInRect(pos))
            return way_point->getIndex();
    }
    return -1;
}

cRoad* cTacticMap::getRoad(Int p0, Int p1, Bool enemy) const {
    if (enemy)
        return findJoining<cRoadEnemy>(p0, p1);
    return findJoining<cRoad>(p0, p1);
}

Bool cTacticMap::hasRoad(Int p0, Int p1, Bool player_only) const {
    if (p0 != -1 && p1 != -1) {
        const cLevelObject* building = getPoint(p0).building;
        if (building && building == getPoint(p1).building)
            return true;
    }
    return findRoadLike<cRoad>(p0, p1) || (!player_only && findRoadLike<cRoadEnemy>(p0, p1));
}

cBarrier* cTacticMap::getFence(Int p0, Int p1, Bool enemy) const {
    if (enemy)
        return findJoining<cEnemyFence>(p0, p1);
    return p1 == -1 ? findAtEnd<cPlayerFence>(p0) : findJoining<cPlayerFence>(p0, p1);
}

Bool cTacticMap::hasFence(Int p0, Int p1, Bool player_only) const {
    return getFence(p0, p1, false) || (!player_only && getFence(p0, p1, true));
}

cBarrier* cTacticMap::getBridgeRoad(Int p0, Int p1, Bool enemy) const {
    if (enemy)
        return findJoining<cEnemyBridgeRoad>(p0, p1);
    return p1 == -1 ? findAtEnd<cPlayerBridgeRoad>(p0) : findJoining<cPlayerBridgeRoad>(p0, p1);
}

Bool cTacticMap::hasBridgeRoad(Int p0, Int p1) const {
    return getBridgeRoad(p0, p1, false) || getBridgeRoad(p0, p1, true);
}

void cTacticMap::deleteRoad(Int p0, Int p1, Bool enemy, Bool update_view) {
    ENGINE_MARK;
    const Bool found = enemy ? destroyRoadLike<cRoadEnemy>(p0, p1) : destroyRoadLike<cRoad>(p0, p1);
    if (found && update_view)
        updateView(false);
    else if (found)
        generateConnectionMap();
    showSitesAnew();
}

// Nets ---------------------------------------------------------------------------------------------------------------

void cTacticMap::generateConnectionMap() {
    ENGINE_MARK;
    m_graph.clearConnections();
    for (const cBuilding* building : cBuilding::getStorage()) {
        const std::vector<Int>& points = building->getPoints();
        for (std::size_t i = 0; i < points.size(); ++i) {
            for (std::size_t j = i + 1; j < points.size(); ++j)
                m_graph.setArcType(points[i], points[j], ARC_INSIDE_BUILDING);
        }
    }
    for (const cBuilding* building : cBuilding::getStorage()) {
        if (building->getType() == objectStartPoint) {
            if (building->getPoints().empty())
                throw "cTacticMap::generateConnectionMap(): there is no point under StartPoint";
            generatePlayerConnectionMap(building->getUnderPoint());
        } else if (building->getType() == objectBunker) {
            if (building->getPoints().empty())
                throw "cTacticMap::generateConnectionMap(): there is no point under Bunker";
            generateEnemyConnectionMap(building->getUnderPoint());
        }
    }
    countUsedPoints();
    for (cBuilding* building : cBuilding::getStorage())
        building->updateConnections();
}

void cTacticMap::countUsedPoints() {
    m_connected_points = 0;
    m_free_points = 0;
    m_used_points = 0;
    for (const sPointInfo& point : m_graph.getPoints()) {
        if (!point.way_point)
            continue;
        point.way_point->updateConnections();
        if (!point.player_connected)
            continue;
        ++m_connected_points;
        if (!point.building)
            ++m_free_points;
        else if (!leavesNoPlace(*point.building))
            ++m_used_points;
    }
    const auto men = static_cast<Float>(getNumberOfMen());
    const auto places = static_cast<Float>(m_connected_points + m_free_points);
    if (men <= places) {
        m_free_point_capacity = places > 0.0f ? men / places : 0.0f;
        m_building_point_capacity = m_free_point_capacity;
    } else {
        m_free_point_capacity = 1.0f;
        const auto connected = static_cast<Float>(std::max(m_connected_points, 1));
        m_building_point_capacity = (men - static_cast<Float>(m_free_points)) / connected + 1.0f;
    }
}

// Ways ---------------------------------------------------------------------------------------------------------------

Bool cTacticMap::getBestPath(Int src, Int dst, PATH_HOLDER& path, Float cross_country, Bool for_player, Bool use_gates,
                             Bool avoid_idols) {
    return m_graph.getSearch().getBestPath(src, dst, path, {cross_country, for_player, use_gates, avoid_idols});
}

Bool cTacticMap::getBestPathByRoads(const cMan* man, Int src, Int dst, PATH_HOLDER& path, Bool for_player,
                                    Bool use_gates, Bool avoid_idols) {
    const Float cross_country = man ? man->getCrossCountrySpeed() : 1.0f;
    return getBestPath(src, dst, path, cross_country, for_player, use_gates, avoid_idols);
}

Bool cTacticMap::getBestPathForDraggedRoad(Int _from, Int _to, PATH_HOLDER& _path) {
    return m_graph.getSearch().getBestPathForDraggedRoad(_from, _to, _path);
}

Bool cTacticMap::getBestPathForRoadPlan(Int src, PATH_HOLDER& path) {
    return m_graph.getSearch().getBestPathForRoadPlan(src, path);
}

Int cTacticMap::getShipPath(Int _from, PATH_HOLDER& path) {
    return m_graph.getSearch().getShipPath(_from, path);
}

Float cTacticMap::getPathLength(Int src, Int dst, Bool cross_country) {
    PATH_HOLDER path;
    if (!getBestPath(src, dst, path, cross_country ? 1.0f : 0.0f, true, true, false))
        return no_way;
    return getPathLength(path);
}

cBuilding* cTacticMap::getClosestWarehouse(const cMan* man, Int src, Bool need_space) {
    cBuilding* best = nullptr;
    Float best_length = no_way;
    PATH_HOLDER path;
    for (cBuilding* building : cBuilding::getStorage()) {
        if (!building->isStore() || !building->isPlayerConnected() || (need_space && !building->hasFreeSpace()))
            continue;
        if (!getBestPathByRoads(man, src, building->getUnderPoint(), path, true, true, false))
            continue;
        const Float length = getPathLength(path);
        if (length < best_length) {
            best = building;
            best_length = length;
        }
    }
    return best;
}

void cTacticMap::getSortedResourceProviders(std::vector<cBuilding*>& buildings, Int src_point) {
    buildings.clear();
    PATH_HOLDER path;
    for (cBuilding* building : cBuilding::getStorage()) {
        if (!building->isPlayerConnected() || !building->isProvider())
            continue;
        if (!getBestPathByRoads(nullptr, src_point, building->getUnderPoint(), path, true, true, false))
            continue;
        building->setDistance(getPathLength(path));
        buildings.push_back(building);
    }
    sortByDistance(buildings, false);
}

/// What one search backwards gives differs from a search of each man's own by roundings alone. Only where these might
/// decide who is nearer, men are measured one by one.
void cTacticMap::sortMenByDistance(std::vector<cFriendMan*>& men, Int src_point, Bool descending) {
    cPathSearch& search = m_graph.getSearch();
    PATH_HOLDER path;
    Bool is_measured = false;
    Float speed = 0.0f;
    for (cFriendMan* man : men) {
        if (!is_measured || man->getCrossCountrySpeed() != speed) {
            speed = man->getCrossCountrySpeed();
            is_measured = search.measureWaysTo(src_point, {speed, true, true, false});
        }
        if (is_measured)
            man->setDistance(search.getDistance(man->getPoint()));
        else
            measureMan(*man, src_point, path);
    }
    sortByDistance(men, descending);
    if (is_measured && settleCloseCalls(men, src_point))
        sortByDistance(men, descending);
}

void cTacticMap::measureMan(cFriendMan& man, Int target, PATH_HOLDER& path) {
    const Bool found = getBestPathByRoads(&man, man.getPoint(), target, path, true, true, false);
    man.setDistance(found ? getPathLength(path) : no_way);
}

/// Measures those anew, whole runs of them, who might change places in the list. False if there are none.
Bool cTacticMap::settleCloseCalls(const std::vector<cFriendMan*>& men, Int target) {
    const cPathSearch& search = m_graph.getSearch();
    const auto go_alike = [](const cFriendMan& a, const cFriendMan& b) {
        return a.getPoint() == b.getPoint() && a.getCrossCountrySpeed() == b.getCrossCountrySpeed();
    };
    const auto are_close = [&](const cFriendMan& a, const cFriendMan& b) {
        const Float farther = std::max(a.getDistance(), b.getDistance());
        return farther < no_way && std::abs(a.getDistance() - b.getDistance()) <= 2.0f * search.getRounding(farther);
    };
    m_close_men.clear();
    for (std::size_t first = 0, next = 1; first < men.size(); first = next++) {
        Bool is_open = false;
        for (; next < men.size() && are_close(*men[next - 1], *men[next]); ++next)
            is_open = is_open || !go_alike(*men[next - 1], *men[next]);
        if (is_open)
            m_close_men.insert(m_close_men.end(), men.begin() + static_cast<std::ptrdiff_t>(first),
                               men.begin() + static_cast<std::ptrdiff_t>(next));
    }
    PATH_HOLDER path;
    for (cFriendMan* man : m_close_men)
        measureMan(*man, target, path);
    return !m_close_men.empty();
}

void cTacticMap::sortMenByDistance(std::vector<cFriendMan*>& men, const Vector2& src_pos, Bool descending) {
    for (cFriendMan* man : men)
        man->setDistance(glm::distance(man->cControl::getPosition(), src_pos));
    sortByDistance(men, descending);
}

// Where men may stand ------------------------------------------------------------------------------------------------

Bool cTacticMap::isStandingPlace(const sPointInfo& point) const {
    return !point.building || !leavesNoPlace(*point.building);
}

Int cTacticMap::getNearestConnectedPoint(Int src) {
    constexpr std::uint32_t walked =
        toBits({ARC_GROUND, ARC_PLAYER_ROAD, ARC_INSIDE_BUILDING, ARC_ROAD_IN_PROGRESS, ARC_PLAYER_BRIDGE});
    return m_graph.getSearch().breadthSearch(src, walked, [this](Int index) {
        const sPointInfo& point = getPoint(index);
        return isStandingPlace(point) && point.player_connected;
    });
}

Int cTacticMap::getPointCapacity(Int point) const {
    const sPointInfo& info = getPoint(point);
    if (!isStandingPlace(info))
        return 0;
    return static_cast<Int>(std::ceil(info.building ? m_building_point_capacity : m_free_point_capacity));
}

Int cTacticMap::countMen(Int point) const {
    return static_cast<Int>(
        std::count_if(m_men.begin(), m_men.end(), [point](const cFriendMan* man) { return man->getPoint() == point; }));
}

Int cTacticMap::getNearestFreePoint(Int src) {
    constexpr std::uint32_t walked = toBits({ARC_PLAYER_ROAD, ARC_INSIDE_BUILDING, ARC_PLAYER_BRIDGE});
    // Each man counts where he stands, or where he is on his way to.
    const auto limit = static_cast<std::size_t>(std::max(getNumberOfMen(), 0));
    m_men_on_points.assign(m_graph.getPoints().size(), 0.0f);
    for (std::size_t i = 0; i < std::min(limit, m_men.size()); ++i)
        m_men_on_points[static_cast<std::size_t>(m_men[i]->getPointAimedFor())] += 1.0f;

    Int best_point = -1;
    auto best_count = static_cast<Float>(limit);
    const Int found = m_graph.getSearch().breadthSearch(src, walked, [&](Int point) {
        const Int capacity = getPointCapacity(point);
        const Float men = m_men_on_points[static_cast<std::size_t>(point)];
        if (capacity != 0 && getPoint(point).building && (best_point == -1 || men < best_count)) {
            best_point = point;
            best_count = men;
        }
        return static_cast<Float>(capacity) >= men + 1.0f;
    });
    if (found != -1)
        return found;
    const Bool is_better = best_point != -1 && best_count + 1.0f < m_men_on_points[static_cast<std::size_t>(src)];
    return is_better ? best_point : -1;
}
