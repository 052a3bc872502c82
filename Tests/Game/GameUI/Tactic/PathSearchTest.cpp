#include "Game/GameUI/Tactic/PathSearch.h"

#include <gtest/gtest.h>

#include <array>
#include <functional>
#include <limits>
#include <random>

#include "Tests/Support/RandomGraph.h"

namespace {

/// What a search may do at an arc, told one by one.
using COST = std::function<Float(Int to, const sArcInfo& arc)>;  // below 0: refused

/// The slow way to the same answers: every round takes the nearest open point out of a list.
struct sReference {
    sReference(const POINTS& points, Int src, const COST& cost)
        : dists(points.size(), no_way), preds(points.size(), -1) {
        std::vector<Int> open(points.size());
        for (std::size_t i = 0; i < open.size(); ++i)
            open[i] = static_cast<Int>(i);
        dists[static_cast<std::size_t>(src)] = 0.0f;
        preds[static_cast<std::size_t>(src)] = src;
        while (!open.empty()) {
            const auto nearest = std::min_element(open.begin(), open.end(), [&](Int a, Int b) {
                return std::pair(dists[static_cast<std::size_t>(a)], a) <
                       std::pair(dists[static_cast<std::size_t>(b)], b);
            });
            const Int current = *nearest;
            open.erase(nearest);
            for (const auto& [neighbour, arc] : points[static_cast<std::size_t>(current)].arcs) {
                const Float price = cost(neighbour, arc);
                const Float alt = dists[static_cast<std::size_t>(current)] + price;
                if (price < 0.0f || !(alt < dists[static_cast<std::size_t>(neighbour)]))
                    continue;
                dists[static_cast<std::size_t>(neighbour)] = alt;
                preds[static_cast<std::size_t>(neighbour)] = current;
            }
        }
    }

    PATH_HOLDER getPath(Int src, Int dst) const {
        if (preds[static_cast<std::size_t>(dst)] == -1)
            return {};
        PATH_HOLDER path(1, dst);
        while (path.back() != src)
            path.push_back(preds[static_cast<std::size_t>(path.back())]);
        std::reverse(path.begin(), path.end());
        return path;
    }

    std::vector<Float> dists;
    std::vector<Int> preds;
};

Bool hasArcOf(const sPointInfo& point, Int type) {
    return std::any_of(point.arcs.begin(), point.arcs.end(), [&](const auto& arc) { return arc.second.type == type; });
}

/// Gives each arc another length, both its ends the same.
template <class DRAW>
void redrawLengths(POINTS& points, DRAW draw_length) {
    for (sPointInfo& point : points) {
        for (auto& [neighbour, arc] : point.arcs) {
            auto& other = points[static_cast<std::size_t>(neighbour)];
            arc.length = neighbour < point.index ? other.arcs[point.index].length : draw_length();
        }
    }
}

Int drawType(std::mt19937& chance) {
    return chance() % 2 ? Int{ARC_PLAYER_ROAD} : static_cast<Int>(chance() % arc_type_count);
}

POINTS makeGrid(Int width, Int height, std::mt19937& chance) {
    POINTS points(static_cast<std::size_t>(width * height));
    for (Int i = 0; i < width * height; ++i) {
        points[static_cast<std::size_t>(i)].index = i;
        points[static_cast<std::size_t>(i)].pos = {static_cast<Float>(i % width) * 30.0f,
                                                   static_cast<Float>(i / width) * 30.0f};
    }
    for (Int i = 0; i < width * height; ++i) {
        if (i % width > 0)
            addArc(points, i - 1, i, drawType(chance));
        if (i >= width)
            addArc(points, i - width, i, drawType(chance));
    }
    return points;
}

/// A graph that is hard in one of several ways: strewn, with many equal ways, with arcs of no length or of one that is
/// lost when it is added, with arcs that differ at their two ends.
POINTS makeHardGraph(std::uint32_t seed) {
    std::mt19937 chance(seed);
    const std::size_t size = 2 + chance() % (seed % 25 == 0 ? 299 : 40);
    if (seed % 6 == 0)
        return makeGrid(2 + static_cast<Int>(chance() % 7), 1 + static_cast<Int>(chance() % 9), chance);
    POINTS points = makeRandomGraph(size, seed, drawType);
    switch (seed % 6) {
        case 1:
            redrawLengths(points, [&] { return static_cast<Float>(chance() % 4); });
            break;
        case 2:
            redrawLengths(points, [&] { return static_cast<Float>(1 + chance() % 3) * 7.3f; });
            break;
        case 3:
            redrawLengths(points, [&] { return std::array{1e-6f, 0.0f, 0.003f, 20000.1f}[chance() % 4]; });
            break;
        case 4:
            for (sPointInfo& point : points) {
                for (auto& [neighbour, arc] : point.arcs)
                    arc.length *= chance() % 20 == 0 ? 0.5f : 1.0f;
            }
            break;
        default:
            break;
    }
    return points;
}

/// A hard graph with random things on its points.
struct sRandomLevel {
    explicit sRandomLevel(std::uint32_t seed) : points(makeHardGraph(seed)), things(points.size()) {
        search.build(points);
        std::mt19937 chance(seed + 1);
        for (std::size_t i = 0; i < points.size(); ++i) {
            things[i] = static_cast<UInt>(chance() % 12);
            search.setPointFlag(static_cast<Int>(i), pointEnemyObject, things[i] == 0);
            search.setPointFlag(static_cast<Int>(i), pointIdol, things[i] == 1);
            search.setPointFlag(static_cast<Int>(i), pointPlayerConnected, things[i] == 2);
        }
    }

    Int getPointCount() const { return static_cast<Int>(points.size()); }
    void setArcType(Int a, Int b, Int type) {
        points[static_cast<std::size_t>(a)].setArcType(b, type);
        points[static_cast<std::size_t>(b)].setArcType(a, type);
        search.setArcType(a, b, type);
    }
    Bool isEnemyObject(Int point) const { return things[static_cast<std::size_t>(point)] == 0; }
    Bool isConnected(Int point) const { return things[static_cast<std::size_t>(point)] == 2; }
    Bool isIdol(Int point) const { return things[static_cast<std::size_t>(point)] == 1; }
    Bool isGateClosed(Int point, Int fence) const { return hasArcOf(points[static_cast<std::size_t>(point)], fence); }

    POINTS points;
    std::vector<UInt> things;
    cPathSearch search;
};

void expectSlowWalk(sRandomLevel& level, Int src, Int dst, const sWalkRules& rules) {
    const auto cost = [&](Int to, const sArcInfo& arc) {
        const Int fence = rules.for_player ? ARC_ENEMY_FENCE : ARC_PLAYER_FENCE;
        if ((rules.use_gates && level.isGateClosed(to, fence)) || (rules.for_player && level.isEnemyObject(to)) ||
            (!rules.for_player && rules.avoid_idols && level.isIdol(to)))
            return -1.0f;
        switch (arc.type) {
            case 3:
            case 4:
            case 10:
            case 12:
                return -1.0f;
            case 2:
                return rules.for_player ? -1.0f : arc.length;
            case 1:
            case 7:
            case 11:
                return arc.length;
            default:
                return arc.length / rules.cross_country;
        }
    };
    const sReference walked(level.points, src, cost);
    PATH_HOLDER path;
    level.search.getBestPath(src, dst, path, rules);
    EXPECT_EQ(path, rules.for_player && level.isEnemyObject(src) ? PATH_HOLDER{} : walked.getPath(src, dst));
    for (const Int point : path)
        EXPECT_EQ(level.search.getDistance(point), walked.dists[static_cast<std::size_t>(point)]);
}

void expectSlowRoads(sRandomLevel& level, Int src, Int dst) {
    const auto drag = [&](Int to, const sArcInfo& arc) {
        const Bool refused = level.isGateClosed(to, ARC_ENEMY_FENCE) || level.isEnemyObject(to) || arc.type == 5 ||
                             arc.type == 6 || arc.type == 10;
        return refused ? -1.0f : arc.length;
    };
    const auto plan = [&](Int to, const sArcInfo& arc) { return arc.type == 2 ? -1.0f : drag(to, arc); };
    PATH_HOLDER path;
    level.search.getBestPathForDraggedRoad(src, dst, path);
    EXPECT_EQ(path, level.isEnemyObject(src) || level.isGateClosed(src, ARC_ENEMY_FENCE)
                        ? PATH_HOLDER{}
                        : sReference(level.points, src, drag).getPath(src, dst));

    const sReference planned(level.points, src, plan);
    Int nearest = -1;
    for (Int i = 0; i < level.getPointCount(); ++i) {
        const Float dist = planned.dists[static_cast<std::size_t>(i)];
        if (level.isConnected(i) && dist < no_way &&
            (nearest == -1 || dist < planned.dists[static_cast<std::size_t>(nearest)]))
            nearest = i;
    }
    level.search.getBestPathForRoadPlan(src, path);
    EXPECT_EQ(path.empty(), level.isEnemyObject(src) || nearest == -1);
    if (path.empty())
        return;
    EXPECT_EQ(level.search.getPathLength(path), planned.dists[static_cast<std::size_t>(nearest)]);
    EXPECT_EQ(path, planned.getPath(src, path.back()));
}

}  // namespace

// 0 --road-- 1 --road-- 2, and a short cut over bare ground, 0 -- 2
TEST(PathSearch, goesRoundByRoadWhenTheGroundIsSlow) {
    POINTS points(3);
    points[1].pos = {30.0f, 0.0f};
    points[2].pos = {30.0f, 30.0f};
    addArc(points, 0, 1, ARC_PLAYER_ROAD);
    addArc(points, 1, 2, ARC_PLAYER_ROAD);
    addArc(points, 0, 2, ARC_GROUND);
    cPathSearch search;
    search.build(points);
    PATH_HOLDER path;
    ASSERT_TRUE(search.getBestPath(0, 2, path, {.cross_country = 0.5f}));
    EXPECT_EQ(path, (PATH_HOLDER{0, 1, 2}));
    EXPECT_FLOAT_EQ(search.getPathLength(path), 60.0f);
    ASSERT_TRUE(search.getBestPath(0, 2, path, {.cross_country = 1.0f}));
    EXPECT_EQ(path, (PATH_HOLDER{0, 2}));

    search.setArcType(2, 1, ARC_GROUND);  // told from the other end
    EXPECT_FALSE(search.getBestPath(0, 2, path, {.cross_country = 0.0f}));
    EXPECT_TRUE(path.empty());
    ASSERT_TRUE(search.getBestPath(1, 1, path, {.cross_country = 0.0f}));
    EXPECT_EQ(path, (PATH_HOLDER{1, 1}));
    EXPECT_EQ(search.getPathLength(path), 0.0f);
}

// A square: two ways of one length from 0 to 3, over 1 and over 2.
TEST(PathSearch, takesTheLowerIndexAmongEqualWays) {
    POINTS points(4);
    points[1].pos = {30.0f, 0.0f};
    points[2].pos = {0.0f, 30.0f};
    points[3].pos = {30.0f, 30.0f};
    for (const auto& [a, b] : {std::pair(0, 2), std::pair(2, 3), std::pair(0, 1), std::pair(1, 3)})
        addArc(points, a, b, ARC_PLAYER_ROAD);
    cPathSearch search;
    search.build(points);
    PATH_HOLDER path;
    ASSERT_TRUE(search.getBestPath(0, 3, path, {}));
    EXPECT_EQ(path, (PATH_HOLDER{0, 1, 3}));
}

// Many questions to each level by two kinds of walkers, one of whom gets faster, with types of arcs changed now and
// then.
TEST(PathSearch, findsOnHardLevelsWhatTheSlowWayFinds) {
    for (std::uint32_t seed = 0; seed < 600; ++seed) {
        SCOPED_TRACE("seed " + std::to_string(seed));
        sRandomLevel level(seed);
        std::mt19937 chance(seed + 2);
        const auto draw = [&](Int limit) { return static_cast<Int>(chance() % static_cast<UInt>(limit)); };
        const Float speed = std::array{0.0f, 0.5f, 1.0f, 3.0f}[chance() % 4];
        for (Int i = 0; i < 75; ++i) {
            const Int src = draw(level.getPointCount());
            const Int dst = (src + 1 + draw(level.getPointCount() - 1)) % level.getPointCount();
            const Bool for_player = draw(2) == 0;
            expectSlowWalk(level, src, dst,
                           {.cross_country = for_player ? speed : 0.7f + static_cast<Float>(i / 25),
                            .for_player = for_player,
                            .use_gates = draw(2) == 0,
                            .avoid_idols = draw(2) == 0});
            if (i % 5 == 0)
                expectSlowRoads(level, src, dst);
            if (i % 18 == 17) {
                for (const auto& [neighbour, arc] : level.points[static_cast<std::size_t>(src)].arcs)
                    level.setArcType(src, neighbour, draw(arc_type_count));
            }
        }
    }
}

// 0 -- 1 -- 2, with lengths and speeds that no level should hold.
TEST(PathSearch, absurdLengthsAndSpeedsGiveNoWay) {
    constexpr Float nan = std::numeric_limits<Float>::quiet_NaN();
    constexpr Float endless = std::numeric_limits<Float>::infinity();
    PATH_HOLDER path;
    for (const Float length : {-1.0f, -endless, nan, endless, 1e30f, no_way}) {
        POINTS points(3);
        points[1].pos = {nan, 1e30f};
        for (const auto& [a, b] : {std::pair(0, 1), std::pair(1, 0), std::pair(1, 2), std::pair(2, 1)})
            points[static_cast<std::size_t>(a)].addArc(b, ARC_PLAYER_ROAD, a + b == 1 ? length : 1.0f, {});
        cPathSearch search;
        search.build(points);
        EXPECT_FALSE(search.getBestPath(0, 2, path, {})) << length;
        EXPECT_EQ(search.getPathLength(path), no_way);
        EXPECT_TRUE(search.getBestPath(1, 2, path, {})) << length;
        for (const Float speed : {0.0f, -1.0f, nan, 1e-30f}) {
            search.setArcType(1, 2, ARC_GROUND);
            EXPECT_FALSE(search.getBestPath(1, 2, path, {.cross_country = speed})) << speed;
        }
        EXPECT_TRUE(search.getBestPath(1, 2, path, {.cross_country = endless}));
        EXPECT_EQ(search.getPathLength(path), 0.0f);
    }
}

// 0 ==road== 1 ==road== 2 --enemy fence-- 3, and 1 --ground-- 4; then a chain far longer than any stack of calls.
TEST(PathSearch, floodsReachGatesAndDoNotPassThem) {
    POINTS points(5);
    addArc(points, 0, 1, ARC_PLAYER_ROAD);
    addArc(points, 1, 2, ARC_PLAYER_ROAD);
    addArc(points, 2, 3, ARC_ENEMY_FENCE);
    addArc(points, 3, 4, ARC_PLAYER_ROAD);
    addArc(points, 1, 4, ARC_GROUND);
    cPathSearch search;
    search.build(points);
    std::vector<char> reached(5);
    search.floodPlayer(0, reached);
    EXPECT_EQ(reached, (std::vector<char>{1, 1, 1, 0, 0}));
    search.setArcType(1, 4, ARC_PLAYER_BRIDGE);
    reached.assign(5, 0);
    search.floodPlayer(0, reached);
    EXPECT_EQ(reached, (std::vector<char>{1, 1, 1, 1, 1}));
    search.setPointFlag(1, pointBunker, true);
    reached.assign(5, 0);
    search.floodPlayer(0, reached);
    EXPECT_EQ(reached, (std::vector<char>{1, 1, 0, 0, 0}));

    POINTS chain(100000);
    for (Int i = 1; i < 100000; ++i)
        addArc(chain, i - 1, i, ARC_ENEMY_ROAD);
    search.build(chain);
    reached.assign(chain.size(), 0);
    search.floodEnemy(0, reached);
    EXPECT_EQ(std::count(reached.begin(), reached.end(), 1), 100000);
}

// A lane 0 -- 1 -- 2 with a fork at 1 to 3 and land at 2.
TEST(PathSearch, shipsFollowTheLaneToItsEnd) {
    POINTS points(5);
    addArc(points, 0, 1, ARC_WATER);
    addArc(points, 1, 3, ARC_WATER);
    addArc(points, 1, 2, ARC_WATER);
    addArc(points, 2, 4, ARC_GROUND);
    cPathSearch search;
    search.build(points);
    PATH_HOLDER path;
    EXPECT_EQ(search.getShipPath(0, path), 2);
    EXPECT_EQ(path, (PATH_HOLDER{0, 1, 2}));
    EXPECT_EQ(search.getShipPath(4, path), 4);
    EXPECT_EQ(path, PATH_HOLDER{4});

    const Int nearest = search.breadthSearch(0, 1u << ARC_WATER, [](Int point) { return point >= 2; });
    EXPECT_EQ(nearest, 2);
    EXPECT_EQ(search.breadthSearch(0, 1u << ARC_WATER, [](Int point) { return point == 4; }), -1);
}
