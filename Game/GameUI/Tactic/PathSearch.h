#pragma once

#include <array>
#include <cstdint>
#include <utility>
#include <vector>

#include "Game/GameUI/Tactic/PointInfo.h"
#include "Game/Types.h"

/// Point indices of a way: first the start, last the destination, both included. A way from a point to itself has that
/// point twice.
using PATH_HOLDER = std::vector<Int>;

/// The distance of no way.
inline constexpr Float no_way = 100000.0f;

/// What a walker may do.
struct sWalkRules {
    Float cross_country = 1.0f;  ///< speed off roads in parts of that on roads; 0 keeps to roads
    Bool for_player = true;      ///< the player's man: stays off enemy roads and out of enemy buildings
    Bool use_gates = true;       ///< standing fences of the other side are closed to him
    Bool avoid_idols = false;    ///< an enemy who goes round idols
};

/// What stands on a point, as far as ways depend on it; a bit set.
enum ePointFlag : std::uint8_t {
    pointEnemyObject = 0x01,  ///< an enemy building or catapult
    pointBunker = 0x02,
    pointIdol = 0x04,  ///< an idol, standing or proposed
    pointPlayerConnected = 0x08,
    pointPlayerFence = 0x10,  ///< an end of a standing player fence: a gate, closed to the enemy
    pointEnemyFence = 0x20,   ///< an end of a standing enemy fence
};

/// Finds ways over the graph of a level.
///
/// Works on a flat copy of the arcs, made by build(); every later change of an arc's type or of what stands on a point
/// has to be told. There is one answer to each question, that of the plain search: it expands points in the order of
/// their distance, of equal distances the lower index first, and takes a shorter way only if it is strictly shorter.
/// A search for one destination is guided to it by landmarks, which gives the same answer sooner. Searches do not nest:
/// distances are those of the last one. Once they are warm nothing is allocated.
///
/// A landmark is a point whose distance from all others has been measured. How much farther (or nearer) one point lies
/// from a landmark than another is the least that a way between the two can cost. The first search after build()
/// measures by length alone, which holds whatever the arcs' types become. Whoever asks again and again by the same
/// costs gets landmarks by these, which guide better; they hold until an arc gets cheaper.
class cPathSearch {
public:
    /// @param points  each arc leads to one of them. A length that is not at least 0 makes its arc endless.
    void build(const POINTS& points);
    /// Of the arc in both directions; nothing without such an arc.
    void setArcType(Int a, Int b, Int type);
    /// @param flag  not one of the fences: these follow the arcs' types
    void setPointFlag(Int point, ePointFlag flag, Bool set);
    Bool hasPointFlag(Int point, ePointFlag flag) const { return (m_points[toPlace(point)].flags & flag) != 0; }
    Int getPointCount() const { return static_cast<Int>(m_points.size()); }

    /// The way of a walker. False, and an empty path, if there is none.
    ///
    /// Refused are: a start on an enemy object for the player; points behind gates closed to the walker; for the
    /// player enemy objects and enemy roads; idols where these are avoided; standing fences and places of bridge roads
    /// for all. On roads, bridge roads of the player and inside buildings an arc costs its length, elsewhere its length
    /// divided by cross_country.
    Bool getBestPath(Int src, Int dst, PATH_HOLDER& path, const sWalkRules& rules);
    /// How far it is to one destination from all points, in one search: getDistance() then gives for each start what
    /// getBestPath() from there would find, to within getRounding(). False, and nothing is known, on a graph with an
    /// arc that is not alike in both directions.
    Bool measureWaysTo(Int dst, const sWalkRules& rules);
    /// The most by which the order of adding up may change a distance.
    Float getRounding(Float distance) const;
    /// Where a road that is dragged from one point to another would run: by length alone, not through closed gates,
    /// enemy objects, places of fences and of player bridge roads.
    Bool getBestPathForDraggedRoad(Int src, Int dst, PATH_HOLDER& path);
    /// The shortest way from a point to the player's net. A point of the net has a way of that one point.
    Bool getBestPathForRoadPlan(Int src, PATH_HOLDER& path);
    /// Follows the water lane to its end, of several lanes that with the lowest index; gives the last point.
    Int getShipPath(Int src, PATH_HOLDER& path);

    /// The length of the way to a point on the path that the last search found; no_way for a point that it did not
    /// reach. To any other point it may have seen a longer way only.
    Float getDistance(Int point) const { return getDistance(m_points[toPlace(point)]); }
    Float getPathLength(const PATH_HOLDER& path) const { return path.empty() ? no_way : getDistance(path.back()); }

    /// The points that a side reaches from one of its own by its roads, bridge roads and through buildings. Its flood
    /// reaches the other side's standing fences and does not pass them, and the player's does not pass bunkers.
    /// @param reached  one for each point, added to
    void floodPlayer(Int src, std::vector<char>& reached);
    void floodEnemy(Int src, std::vector<char>& reached);

    /// Looks from a point outwards, arc by arc, for the nearest point that is wanted; -1 if there is none. Of points
    /// equally many arcs away the first found wins, neighbours being taken in the order of their index.
    /// @param is_goal    Bool(Int point); may be called twice for a point
    /// @param arc_types  bit n set: arcs of type n are followed
    template <class GOAL>
    Int breadthSearch(Int src, std::uint32_t arc_types, GOAL is_goal);

private:
    /// A point, and beside it what the last search that reached it knows of it.
    struct sPoint {
        UInt first_arc = 0;
        UInt arc_end = 0;
        UInt flags = 0;         ///< ePointFlag
        UInt round = 0;         ///< number of the search that reached it; what follows is that search's
        Float dist = no_way;    ///< of the shortest way found so far
        Float estimate = 0.0f;  ///< a lower bound of what is left from here to the destination
        Int pred = -1;          ///< the point before it on that way; the plain search alone keeps it
    };
    struct sArc {
        UInt to = 0;
        Float length = 0.0f;
        UInt type = 0;
    };
    /// What arcs cost.
    struct sCosts {
        std::uint32_t refused_arcs = 0;  ///< bit n: type n is endless
        std::uint32_t plain_arcs = ~0u;  ///< bit n: type n costs its length
        Float cross_country = 1.0f;      ///< divides the length of the other types; above 0

        Float get(const sArc& arc) const;
        bool operator==(const sCosts&) const = default;
    };
    struct sRules {
        sCosts costs;
        UInt refused_points = 0;  ///< ePointFlag
        UInt wanted_points = 0;   ///< ends at the first point with one of these; 0: ends at dst
    };
    static constexpr std::size_t landmark_count = 8;
    struct sLandmarks {
        sCosts costs;
        Bool is_measured = false;
        UInt asked = 0;                                            ///< searches by these costs since an arc got cheaper
        Float farthest = 0.0f;                                     ///< from a landmark
        std::vector<std::array<Float, landmark_count>> distances;  ///< for each point, those from the landmarks

        void forget();
    };
    class cQueue;
    class cGuide;

    static sRules makeRules(const sWalkRules& rules);
    static std::size_t toPlace(Int point) { return static_cast<std::size_t>(point); }
    Float getDistance(const sPoint& point) const { return point.round == m_round ? point.dist : no_way; }
    Bool areArcsTwins();
    void updateFenceFlags(Int point);
    sArc* findArc(Int from, Int to);
    void dropLandmarks(const sArc& old_arc, const sArc& new_arc);
    const sLandmarks& chooseLandmarks(UInt src, const sCosts& costs);
    void measure(sLandmarks& landmarks, UInt src);

    void startRound(UInt src);
    void reach(sPoint& point, Float dist);
    Bool findWay(Int src, Int dst, const sRules& rules, PATH_HOLDER& path);
    Int searchPlainly(UInt src, UInt dst, const sRules& rules);
    void collectPath(Int src, Int dst, PATH_HOLDER& path) const;
    Bool searchGuided(UInt src, UInt dst, const sRules& rules);
    Bool collectGuidedPath(UInt src, UInt dst, const sCosts& costs, PATH_HOLDER& path) const;
    void flood(Int src, std::uint32_t arc_types, UInt stopping_points, std::vector<char>& reached);

    std::vector<sPoint> m_points;
    std::vector<sArc> m_arcs;  ///< those of one point side by side, in the order of their neighbours
    Bool m_has_twins = false;  ///< each arc has one back, alike; only such a graph is searched by landmarks
    std::array<sLandmarks, 5> m_landmarks;  ///< first by length alone, then by the costs last asked for
    std::size_t m_next_landmarks = 1;       ///< those to be given up for other costs
    UInt m_round = 0;                       ///< number of the last search
    std::vector<std::uint64_t> m_open;      ///< heap of four children a node: length of the way above, index below
    std::vector<Int> m_queue;
    std::vector<char> m_visited;
    std::vector<Float> m_nearest;  ///< of each point to the landmarks measured so far
};

template <class GOAL>
Int cPathSearch::breadthSearch(Int src, std::uint32_t arc_types, GOAL is_goal) {
    m_visited.assign(m_points.size(), 0);
    m_queue.assign(1, src);
    m_visited[toPlace(src)] = 1;
    for (std::size_t next = 0; next < m_queue.size(); ++next) {
        const Int current = m_queue[next];
        if (is_goal(current))
            return current;
        const sPoint& point = m_points[toPlace(current)];
        for (UInt i = point.first_arc; i < point.arc_end; ++i) {
            const sArc& arc = m_arcs[i];
            if (m_visited[arc.to] || !(arc_types >> arc.type & 1))
                continue;
            m_visited[arc.to] = 1;
            m_queue.push_back(static_cast<Int>(arc.to));
        }
    }
    return -1;
}
