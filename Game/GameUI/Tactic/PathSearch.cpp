#include "Game/GameUI/Tactic/PathSearch.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <limits>

namespace {

constexpr std::uint32_t arcBits(std::initializer_list<eArcType> types) {
    std::uint32_t res = 0;
    for (const eArcType type : types)
        res |= 1u << type;
    return res;
}

constexpr std::uint32_t walled =
    arcBits({ARC_PLAYER_BRIDGE_SITE, ARC_ENEMY_BRIDGE_SITE, ARC_PLAYER_FENCE, ARC_ENEMY_FENCE});
constexpr std::uint32_t paved = arcBits({ARC_PLAYER_ROAD, ARC_ENEMY_ROAD, ARC_INSIDE_BUILDING, ARC_PLAYER_BRIDGE});
constexpr std::uint32_t roadless = arcBits({ARC_PLAYER_FENCE_SITE, ARC_ENEMY_FENCE_SITE, ARC_PLAYER_BRIDGE_SITE});
constexpr std::uint32_t player_net = arcBits({ARC_PLAYER_ROAD, ARC_INSIDE_BUILDING, ARC_PLAYER_BRIDGE});
constexpr std::uint32_t enemy_net = arcBits({ARC_ENEMY_ROAD, ARC_INSIDE_BUILDING, ARC_ENEMY_BRIDGE});

constexpr UInt nowhere = ~0u;  // no point has that index
constexpr UInt patience = 8;   // searches before landmarks are measured, which takes about as long as these do
constexpr Float endless = std::numeric_limits<Float>::infinity();

}  // namespace

Float cPathSearch::sCosts::get(const sArc& arc) const {
    if (refused_arcs >> arc.type & 1)
        return endless;
    return (plain_arcs >> arc.type & 1) ? arc.length : arc.length / cross_country;
}

void cPathSearch::sLandmarks::forget() {
    is_measured = false;
    asked = 0;
}

/// The points still to be expanded. A length is not below 0, so its bits order as it does, and length and index are
/// one number. A point that got nearer is entered again; its old entry is passed over when it comes up.
class cPathSearch::cQueue {
public:
    explicit cQueue(std::vector<std::uint64_t>& heap) : m_heap(heap) { m_heap.clear(); }

    Bool isEmpty() const { return m_heap.empty(); }
    static UInt getPoint(std::uint64_t entry) { return static_cast<UInt>(entry); }
    static Float getLength(std::uint64_t entry) { return std::bit_cast<Float>(static_cast<UInt>(entry >> 32)); }

    void push(Float length, UInt point) {
        const std::uint64_t entry = std::uint64_t{std::bit_cast<UInt>(length)} << 32 | point;
        std::size_t place = m_heap.size();
        m_heap.push_back(entry);
        while (place > 0) {
            const std::size_t parent = (place - 1) / 4;
            if (m_heap[parent] <= entry)
                break;
            m_heap[place] = m_heap[parent];
            place = parent;
        }
        m_heap[place] = entry;
    }

    std::uint64_t pop() {
        const std::uint64_t res = m_heap.front();
        const std::uint64_t entry = m_heap.back();
        m_heap.pop_back();
        const std::size_t size = m_heap.size();
        std::size_t place = 0;
        for (;;) {
            const std::size_t first = place * 4 + 1;
            if (first >= size)
                break;
            std::size_t least = first;
            for (std::size_t child = first + 1; child < std::min(first + 4, size); ++child)
                least = m_heap[child] < m_heap[least] ? child : least;
            if (m_heap[least] >= entry)
                break;
            m_heap[place] = m_heap[least];
            place = least;
        }
        if (size > 0)
            m_heap[place] = entry;
        return res;
    }

private:
    std::vector<std::uint64_t>& m_heap;
};

void cPathSearch::build(const POINTS& points) {
    m_points.assign(points.size(), {});
    m_arcs.clear();
    for (std::size_t i = 0; i < points.size(); ++i) {
        m_points[i].first_arc = static_cast<UInt>(m_arcs.size());
        for (const auto& [neighbour, arc] : points[i].arcs)
            m_arcs.push_back(
                {static_cast<UInt>(neighbour), arc.length >= 0.0f ? arc.length : endless, static_cast<UInt>(arc.type)});
        m_points[i].arc_end = static_cast<UInt>(m_arcs.size());
        updateFenceFlags(static_cast<Int>(i));
    }
    m_has_twins = areArcsTwins();
    for (sLandmarks& landmarks : m_landmarks)
        landmarks.forget();
    m_round = 0;
    m_open.reserve(m_arcs.size() + 1);
    m_queue.reserve(points.size());
    m_visited.reserve(points.size());
}

/// Arcs to one point come up in the order of the points that they leave, which is that of the arcs back.
Bool cPathSearch::areArcsTwins() {
    std::vector<UInt> next_back(m_points.size());
    for (std::size_t i = 0; i < m_points.size(); ++i)
        next_back[i] = m_points[i].first_arc;
    for (std::size_t i = 0; i < m_points.size(); ++i) {
        for (UInt j = m_points[i].first_arc; j < m_points[i].arc_end; ++j) {
            const sArc& arc = m_arcs[j];
            const UInt back = next_back[arc.to]++;
            if (back >= m_points[arc.to].arc_end || m_arcs[back].to != i || m_arcs[back].type != arc.type ||
                m_arcs[back].length != arc.length)
                return false;
        }
    }
    return true;
}

cPathSearch::sArc* cPathSearch::findArc(Int from, Int to) {
    const sPoint& point = m_points[toPlace(from)];
    for (UInt i = point.first_arc; i < point.arc_end; ++i) {
        if (m_arcs[i].to == static_cast<UInt>(to))
            return &m_arcs[i];
    }
    return nullptr;
}

void cPathSearch::setArcType(Int a, Int b, Int type) {
    for (const auto& [from, to] : {std::pair(a, b), std::pair(b, a)}) {
        if (sArc* arc = findArc(from, to)) {
            const sArc old_arc = *arc;
            arc->type = static_cast<UInt>(type);
            dropLandmarks(old_arc, *arc);
            updateFenceFlags(from);
        }
    }
}

void cPathSearch::updateFenceFlags(Int index) {
    sPoint& point = m_points[toPlace(index)];
    UInt flags = point.flags & ~(UInt{pointPlayerFence} | pointEnemyFence);
    for (UInt i = point.first_arc; i < point.arc_end; ++i) {
        if (m_arcs[i].type == ARC_PLAYER_FENCE)
            flags |= pointPlayerFence;
        else if (m_arcs[i].type == ARC_ENEMY_FENCE)
            flags |= pointEnemyFence;
    }
    point.flags = flags;
}

void cPathSearch::setPointFlag(Int point, ePointFlag flag, Bool set) {
    UInt& flags = m_points[toPlace(point)].flags;
    flags = set ? flags | flag : flags & ~UInt{flag};
}

/// Forgets what the last search knew of the points.
void cPathSearch::startRound(UInt src) {
    if (++m_round == 0) {
        for (sPoint& point : m_points)
            point.round = 0;
        m_round = 1;
    }
    reach(m_points[src], 0.0f);
}

void cPathSearch::reach(sPoint& point, Float dist) {
    point.round = m_round;
    point.dist = dist;
}

Bool cPathSearch::findWay(Int src, Int dst, const sRules& rules, PATH_HOLDER& path) {
    const UInt from = static_cast<UInt>(src);
    const UInt to = static_cast<UInt>(dst);
    if (src == dst) {
        startRound(from);
        path.assign(2, src);
        return true;
    }
    if (m_has_twins) {
        if (!searchGuided(from, to, rules))
            return false;
        if (collectGuidedPath(from, to, rules.costs, path))
            return true;
    }
    if (searchPlainly(from, to, rules) != dst)
        return false;
    collectPath(src, dst, path);
    return true;
}

/// Gives the point at which the search ended: dst, or the first with a wanted flag; -1 if none was reached.
Int cPathSearch::searchPlainly(UInt src, UInt dst, const sRules& rules) {
    startRound(src);
    cQueue open(m_open);
    open.push(0.0f, src);
    while (!open.isEmpty()) {
        const std::uint64_t entry = open.pop();
        const UInt current = cQueue::getPoint(entry);
        const sPoint& point = m_points[current];
        if (cQueue::getLength(entry) != point.dist)
            continue;
        if (rules.wanted_points ? (point.flags & rules.wanted_points) != 0 : current == dst)
            return static_cast<Int>(current);

        for (UInt i = point.first_arc; i < point.arc_end; ++i) {
            const sArc& arc = m_arcs[i];
            sPoint& next = m_points[arc.to];
            const Float alt = point.dist + rules.costs.get(arc);
            if (!(alt < getDistance(next)) || (next.flags & rules.refused_points))
                continue;
            reach(next, alt);
            next.pred = static_cast<Int>(current);
            open.push(alt, arc.to);
        }
    }
    return -1;
}

void cPathSearch::collectPath(Int src, Int dst, PATH_HOLDER& path) const {
    path.clear();
    for (Int point = dst; point != src; point = m_points[toPlace(point)].pred)
        path.push_back(point);
    path.push_back(src);
    std::reverse(path.begin(), path.end());
}

/// Landmarks hold while no arc gets cheaper. By length alone none ever does.
void cPathSearch::dropLandmarks(const sArc& old_arc, const sArc& new_arc) {
    for (sLandmarks& landmarks : m_landmarks) {
        if (!(landmarks.costs.get(new_arc) >= landmarks.costs.get(old_arc)))
            landmarks.forget();
    }
}

/// Those by the same costs if they have been measured, which this may do; else those by length alone.
const cPathSearch::sLandmarks& cPathSearch::chooseLandmarks(UInt src, const sCosts& costs) {
    if (!m_landmarks[0].is_measured)
        measure(m_landmarks[0], src);
    auto found = std::find_if(m_landmarks.begin(), m_landmarks.end(),
                              [&](const sLandmarks& landmarks) { return landmarks.costs == costs; });
    if (found == m_landmarks.end()) {
        found = m_landmarks.begin() + static_cast<std::ptrdiff_t>(m_next_landmarks);
        m_next_landmarks = m_next_landmarks % (m_landmarks.size() - 1) + 1;
        found->forget();
        found->costs = costs;
    }
    if (!found->is_measured && ++found->asked > patience)
        measure(*found, src);
    return found->is_measured ? *found : m_landmarks[0];
}

/// The first landmark is the start of a search, each other the point farthest from those before it that can be reached.
void cPathSearch::measure(sLandmarks& landmarks, UInt src) {
    landmarks.distances.resize(m_points.size());
    landmarks.farthest = 0.0f;
    landmarks.is_measured = true;
    m_nearest.assign(m_points.size(), no_way);
    UInt landmark = src;
    for (std::size_t i = 0; i < landmark_count; ++i) {
        searchPlainly(landmark, nowhere, {.costs = landmarks.costs});
        Float farthest = 0.0f;
        for (std::size_t j = 0; j < m_points.size(); ++j) {
            const Float distance = getDistance(m_points[j]);
            landmarks.distances[j][i] = distance;
            landmarks.farthest = std::max(landmarks.farthest, distance);
            m_nearest[j] = std::min(m_nearest[j], distance);
            if (m_nearest[j] < no_way && m_nearest[j] > farthest) {
                farthest = m_nearest[j];
                landmark = static_cast<UInt>(j);
            }
        }
    }
}

/// Knows at least how far it is to one destination.
class cPathSearch::cGuide {
public:
    cGuide(const sLandmarks& landmarks, UInt dst, const sCosts& costs)
        : m_distances(landmarks.distances),
          m_target(landmarks.distances[dst]),
          m_cheapest(landmarks.costs == costs ? 1.0f : std::min(1.0f, 1.0f / costs.cross_country)),
          m_rounding(static_cast<Float>(m_distances.size() + 8) * 2.0f * std::numeric_limits<Float>::epsilon()),
          m_farthest(landmarks.farthest) {}

    /// A lower bound of what is left, but for rounding. That a landmark counts no_way for all that lies farther, or
    /// can't be reached, only brings two points nearer to each other.
    Float estimate(UInt point) const {
        const auto& distances = m_distances[point];
        Float res = 0.0f;
        for (std::size_t i = 0; i < landmark_count; ++i)
            res = std::max(res, std::abs(distances[i] - m_target[i]));
        return res * m_cheapest;
    }

    /// No point of a way of that length has a larger sum of distance and estimate. Each arc of a way adds one rounding,
    /// of half an epsilon, to its length and to each of the two lengths in an estimate; a few more are made beside, and
    /// twice all that leaves room for how roundings multiply.
    Float getLimit(Float length) const { return length + (length + m_farthest) * m_rounding; }

private:
    const std::vector<std::array<Float, landmark_count>>& m_distances;
    std::array<Float, landmark_count> m_target;
    Float m_cheapest;  ///< the lowest cost of what costs 1 by the landmarks
    Float m_rounding;
    Float m_farthest;
};

/// Expands points in the order of their distance and estimate, again if they have got nearer, until none is left that
/// could lie on a way as short as the shortest found.
///
/// Then every point of every shortest way has its right distance: take the first of such a way that has not been
/// expanded with it. The point before it has, so this one has been entered with the right distance and a sum within the
/// limit, and would have been expanded before the end. What other points know may be too much.
Bool cPathSearch::searchGuided(UInt src, UInt dst, const sRules& rules) {
    const cGuide guide(chooseLandmarks(src, rules.costs), dst, rules.costs);
    startRound(src);
    m_points[src].estimate = guide.estimate(src);
    Float limit = guide.getLimit(no_way);
    cQueue open(m_open);
    open.push(m_points[src].estimate, src);
    while (!open.isEmpty()) {
        const std::uint64_t entry = open.pop();
        const Float length = cQueue::getLength(entry);
        if (length > limit)
            break;
        const sPoint& point = m_points[cQueue::getPoint(entry)];
        if (length != point.dist + point.estimate)
            continue;

        for (UInt i = point.first_arc; i < point.arc_end; ++i) {
            const sArc& arc = m_arcs[i];
            sPoint& next = m_points[arc.to];
            const Float alt = point.dist + rules.costs.get(arc);
            if (!(alt < getDistance(next)) || (next.flags & rules.refused_points))
                continue;
            if (next.round != m_round)
                next.estimate = guide.estimate(arc.to);
            if (alt + next.estimate > limit)
                continue;
            reach(next, alt);
            open.push(alt + next.estimate, arc.to);
            if (arc.to == dst)
                limit = guide.getLimit(alt);
        }
    }
    return getDistance(m_points[dst]) < no_way;
}

/// Goes back from the destination as the plain search would have come: it takes to a point the first expanded of those
/// from which it is on a shortest way, hence the nearest to the start, of equals that with the lower index. Only what
/// it enters over an arc that adds nothing to the distance comes out of that order; then this gives false.
Bool cPathSearch::collectGuidedPath(UInt src, UInt dst, const sCosts& costs, PATH_HOLDER& path) const {
    path.clear();
    for (UInt current = dst; current != src;) {
        path.push_back(static_cast<Int>(current));
        const sPoint& point = m_points[current];
        UInt before = nowhere;
        Float nearest = point.dist;
        for (UInt i = point.first_arc; i < point.arc_end; ++i) {
            const sArc& arc = m_arcs[i];  // it leads back, and costs what its twin does
            const Float distance = getDistance(m_points[arc.to]);
            if (distance < nearest && distance + costs.get(arc) == point.dist) {
                before = arc.to;
                nearest = distance;
            }
        }
        if (before == nowhere)
            return false;
        current = before;
    }
    path.push_back(static_cast<Int>(src));
    std::reverse(path.begin(), path.end());
    return true;
}

cPathSearch::sRules cPathSearch::makeRules(const sWalkRules& rules) {
    sRules res{.costs = {.refused_arcs = walled, .plain_arcs = paved}};
    if (rules.use_gates)
        res.refused_points |= rules.for_player ? pointEnemyFence : pointPlayerFence;
    if (rules.for_player) {
        res.refused_points |= pointEnemyObject;
        res.costs.refused_arcs |= arcBits({ARC_ENEMY_ROAD});
    } else if (rules.avoid_idols) {
        res.refused_points |= pointIdol;
    }
    if (rules.cross_country > 0.0f)
        res.costs.cross_country = rules.cross_country;
    else
        res.costs.refused_arcs |= ~paved;
    return res;
}

Bool cPathSearch::getBestPath(Int src, Int dst, PATH_HOLDER& path, const sWalkRules& rules) {
    path.clear();
    if (rules.for_player && hasPointFlag(src, pointEnemyObject))
        return false;
    return findWay(src, dst, makeRules(rules), path);
}

/// Goes from the destination backwards. What a walker may not enter he may still come from, but nobody gets through it.
Bool cPathSearch::measureWaysTo(Int dst, const sWalkRules& walk_rules) {
    if (!m_has_twins)
        return false;
    const sRules rules = makeRules(walk_rules);
    const UInt no_start = walk_rules.for_player ? pointEnemyObject : 0;
    startRound(static_cast<UInt>(dst));
    if (m_points[toPlace(dst)].flags & no_start) {
        reach(m_points[toPlace(dst)], no_way);
        return true;
    }
    cQueue open(m_open);
    open.push(0.0f, static_cast<UInt>(dst));
    while (!open.isEmpty()) {
        const std::uint64_t entry = open.pop();
        const sPoint& point = m_points[cQueue::getPoint(entry)];
        if (cQueue::getLength(entry) != point.dist || (point.flags & rules.refused_points))
            continue;
        for (UInt i = point.first_arc; i < point.arc_end; ++i) {
            const sArc& arc = m_arcs[i];  // its twin is the one that is walked
            sPoint& before = m_points[arc.to];
            const Float alt = point.dist + rules.costs.get(arc);
            if (!(alt < getDistance(before)) || (before.flags & no_start))
                continue;
            reach(before, alt);
            open.push(alt, arc.to);
        }
    }
    return true;
}

/// Each arc of a way adds one rounding, of half an epsilon, from either end.
Float cPathSearch::getRounding(Float distance) const {
    return distance * static_cast<Float>(m_points.size() + 8) * std::numeric_limits<Float>::epsilon();
}

Bool cPathSearch::getBestPathForDraggedRoad(Int src, Int dst, PATH_HOLDER& path) {
    constexpr UInt refused = UInt{pointEnemyFence} | pointEnemyObject;
    path.clear();
    if (m_points[toPlace(src)].flags & refused)
        return false;
    return findWay(src, dst, {.costs = {.refused_arcs = roadless}, .refused_points = refused}, path);
}

Bool cPathSearch::getBestPathForRoadPlan(Int src, PATH_HOLDER& path) {
    path.clear();
    if (hasPointFlag(src, pointEnemyObject))
        return false;
    const sRules rules{.costs = {.refused_arcs = roadless | arcBits({ARC_ENEMY_ROAD})},
                       .refused_points = UInt{pointEnemyFence} | pointEnemyObject,
                       .wanted_points = pointPlayerConnected};
    const Int found = searchPlainly(static_cast<UInt>(src), nowhere, rules);
    if (found == -1)
        return false;
    collectPath(src, found, path);
    return true;
}

Int cPathSearch::getShipPath(Int src, PATH_HOLDER& path) {
    path.assign(1, src);
    m_visited.assign(m_points.size(), 0);
    m_visited[toPlace(src)] = 1;
    for (Bool moved = true; moved;) {
        moved = false;
        const sPoint& point = m_points[toPlace(path.back())];
        for (UInt i = point.first_arc; i < point.arc_end && !moved; ++i) {
            const sArc& arc = m_arcs[i];
            if (arc.type != ARC_WATER || m_visited[arc.to])
                continue;
            m_visited[arc.to] = 1;
            path.push_back(static_cast<Int>(arc.to));
            moved = true;
        }
    }
    return path.back();
}

void cPathSearch::flood(Int src, std::uint32_t arc_types, UInt stopping_points, std::vector<char>& reached) {
    m_queue.assign(1, src);
    reached[toPlace(src)] = 1;
    while (!m_queue.empty()) {
        const sPoint& point = m_points[toPlace(m_queue.back())];
        m_queue.pop_back();
        if (point.flags & stopping_points)
            continue;
        for (UInt i = point.first_arc; i < point.arc_end; ++i) {
            const sArc& arc = m_arcs[i];
            if (!(arc_types >> arc.type & 1) || reached[arc.to])
                continue;
            reached[arc.to] = 1;
            m_queue.push_back(static_cast<Int>(arc.to));
        }
    }
}

void cPathSearch::floodPlayer(Int src, std::vector<char>& reached) {
    flood(src, player_net, UInt{pointEnemyFence} | pointBunker, reached);
}

void cPathSearch::floodEnemy(Int src, std::vector<char>& reached) {
    flood(src, enemy_net, pointPlayerFence, reached);
}
