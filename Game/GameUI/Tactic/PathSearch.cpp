#include "Game/GameUI/Tactic/PathSearch.h"

#include <algorithm>
#include <bit>

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

}  // namespace

/// The points still to be expanded. A distance is not below 0, so its bits order as it does, and distance and index are
/// one number. A point that got nearer is entered again; its old entry is passed over when it comes up.
class cPathSearch::cQueue {
public:
    explicit cQueue(std::vector<std::uint64_t>& heap) : m_heap(heap) { m_heap.clear(); }

    Bool isEmpty() const { return m_heap.empty(); }
    static UInt getPoint(std::uint64_t entry) { return static_cast<UInt>(entry); }
    static Float getDistance(std::uint64_t entry) { return std::bit_cast<Float>(static_cast<UInt>(entry >> 32)); }

    void push(Float distance, UInt point) {
        const std::uint64_t entry = std::uint64_t{std::bit_cast<UInt>(distance)} << 32 | point;
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
            m_arcs.push_back({static_cast<UInt>(neighbour), arc.length, static_cast<UInt>(arc.type)});
        m_points[i].arc_end = static_cast<UInt>(m_arcs.size());
        updateFenceFlags(static_cast<Int>(i));
    }
    m_dists.assign(points.size(), no_way);
    m_preds.assign(points.size(), -1);
    m_open.reserve(m_arcs.size() + 1);
    m_queue.reserve(points.size());
    m_visited.reserve(points.size());
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
            arc->type = static_cast<UInt>(type);
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
    point.flags = static_cast<std::uint8_t>(flags);
}

void cPathSearch::setPointFlag(Int point, ePointFlag flag, Bool set) {
    std::uint8_t& flags = m_points[toPlace(point)].flags;
    flags = static_cast<std::uint8_t>(set ? flags | flag : flags & ~UInt{flag});
}

/// Gives the point at which the search ended: dst, or the first with a wanted flag; -1 if none was reached.
Int cPathSearch::search(UInt src, UInt dst, const sRules& rules) {
    std::fill(m_dists.begin(), m_dists.end(), no_way);
    m_dists[src] = 0.0f;
    m_preds[src] = static_cast<Int>(src);
    cQueue open(m_open);
    open.push(0.0f, src);
    while (!open.isEmpty()) {
        const std::uint64_t entry = open.pop();
        const UInt current = cQueue::getPoint(entry);
        const Float distance = cQueue::getDistance(entry);
        if (distance != m_dists[current])
            continue;
        const sPoint& point = m_points[current];
        if (rules.wanted_points ? (point.flags & rules.wanted_points) != 0 : current == dst)
            return static_cast<Int>(current);

        for (UInt i = point.first_arc; i < point.arc_end; ++i) {
            const sArc& arc = m_arcs[i];
            if ((rules.refused_arcs >> arc.type & 1) || (m_points[arc.to].flags & rules.refused_points))
                continue;
            const Bool is_plain = rules.plain_arcs >> arc.type & 1;
            const Float alt = distance + (is_plain ? arc.length : arc.length / rules.cross_country);
            if (alt < m_dists[arc.to]) {
                m_dists[arc.to] = alt;
                m_preds[arc.to] = static_cast<Int>(current);
                open.push(alt, arc.to);
            }
        }
    }
    return -1;
}

Bool cPathSearch::collectPath(Int src, Int dst, PATH_HOLDER& path) const {
    for (Int point = dst; point != src; point = m_preds[toPlace(point)])
        path.push_back(point);
    path.push_back(src);
    std::reverse(path.begin(), path.end());
    return true;
}

Bool cPathSearch::getBestPath(Int src, Int dst, PATH_HOLDER& path, const sWalkRules& rules) {
    path.clear();
    if (rules.for_player && hasPointFlag(src, pointEnemyObject))
        return false;
    if (src == dst) {
        path = {src, src};
        m_dists[toPlace(src)] = 0.0f;
        return true;
    }
    UInt refused = 0;
    if (rules.use_gates)
        refused |= rules.for_player ? pointEnemyFence : pointPlayerFence;
    if (rules.for_player)
        refused |= pointEnemyObject;
    else if (rules.avoid_idols)
        refused |= pointIdol;
    const sRules found_rules{.refused_points = static_cast<std::uint8_t>(refused),
                             .refused_arcs = walled | (rules.for_player ? arcBits({ARC_ENEMY_ROAD}) : 0u),
                             .plain_arcs = paved,
                             .cross_country = rules.cross_country};
    return search(static_cast<UInt>(src), static_cast<UInt>(dst), found_rules) == dst && collectPath(src, dst, path);
}

Bool cPathSearch::getBestPathForDraggedRoad(Int src, Int dst, PATH_HOLDER& path) {
    constexpr std::uint8_t refused = pointEnemyFence | pointEnemyObject;
    path.clear();
    if (m_points[toPlace(src)].flags & refused)
        return false;
    if (src == dst) {
        path = {src, src};
        m_dists[toPlace(src)] = 0.0f;
        return true;
    }
    const sRules rules{.refused_points = refused, .refused_arcs = roadless};
    return search(static_cast<UInt>(src), static_cast<UInt>(dst), rules) == dst && collectPath(src, dst, path);
}

Bool cPathSearch::getBestPathForRoadPlan(Int src, PATH_HOLDER& path) {
    path.clear();
    if (hasPointFlag(src, pointEnemyObject))
        return false;
    const sRules rules{.refused_points = pointEnemyFence | pointEnemyObject,
                       .wanted_points = pointPlayerConnected,
                       .refused_arcs = roadless | arcBits({ARC_ENEMY_ROAD})};
    const Int found = search(static_cast<UInt>(src), 0, rules);
    return found != -1 && collectPath(src, found, path);
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

void cPathSearch::flood(Int src, std::uint32_t arc_types, std::uint8_t stopping_points, std::vector<char>& reached) {
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
    flood(src, player_net, pointEnemyFence | pointBunker, reached);
}

void cPathSearch::floodEnemy(Int src, std::vector<char>& reached) {
    flood(src, enemy_net, pointPlayerFence, reached);
}
