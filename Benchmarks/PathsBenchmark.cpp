/// One way from point to point over a random level's graph, 200 queries a round, beside Boost.Graph's A* (with the
/// straight line as its estimate), its Dijkstra that stops at the destination, and LEMON's Dijkstra that does so. Once
/// all arcs are roads; once they are of many types, for a man who walks at half his speed beside the roads. The peers
/// get a graph of what he may walk at what it costs him; ours applies the rules as it goes. The lengths are compared
/// first.
///
/// Then what comes before the first search: the graph built and the nets of both sides flooded, as a change of the
/// roads has it done, and the landmarks measured.
#include <benchmark/benchmark.h>

#include <array>
#include <boost/graph/astar_search.hpp>
#include <boost/graph/compressed_sparse_row_graph.hpp>
#include <boost/graph/dijkstra_shortest_paths.hpp>
#include <cmath>
#include <optional>
#include <random>

#include "Benchmarks/CountAllocations.h"
#include "Benchmarks/paths/LemonSearch.h"
#include "Game/GameUI/Tactic/PathSearch.h"
#include "Tests/Support/RandomGraph.h"

namespace {

constexpr Int query_count = 200;

struct sWeight {
    float length = 0.0f;
};
using BOOST_GRAPH = boost::compressed_sparse_row_graph<boost::directedS, boost::no_property, sWeight>;

/// Stops a search of Boost's at its destination.
struct sArrived {};
struct sStopVisitor : boost::default_astar_visitor {
    explicit sStopVisitor(unsigned long wanted) : dst(wanted) {}
    template <class G>
    void examine_vertex(unsigned long vertex, const G&) const {
        if (vertex == dst)
            throw sArrived{};
    }
    unsigned long dst;
};
struct sStopDijkstra : boost::dijkstra_visitor<> {
    explicit sStopDijkstra(unsigned long wanted) : dst(wanted) {}
    template <class G>
    void examine_vertex(unsigned long vertex, const G&) const {
        if (vertex == dst)
            throw sArrived{};
    }
    unsigned long dst;
};
/// A little less than the straight line, since each arc's length is rounded.
struct sStraightLine : boost::astar_heuristic<BOOST_GRAPH, float> {
    sStraightLine(const POINTS& all, unsigned long dst) : points(&all), target(all[dst].pos) {}
    float operator()(unsigned long vertex) const { return glm::distance((*points)[vertex].pos, target) * 0.999f; }
    const POINTS* points;
    Vector2 target;
};

constexpr sWalkRules walker{.cross_country = 0.5f};

Int drawType(std::mt19937& chance) {
    constexpr std::array rare{ARC_ENEMY_ROAD, ARC_PLAYER_FENCE_SITE, ARC_PLAYER_FENCE, ARC_PLAYER_BRIDGE_SITE};
    const auto drawn = chance() % 20;
    return drawn < 4 ? rare[drawn] : drawn < 12 ? ARC_PLAYER_ROAD : ARC_GROUND;
}

/// What the walker pays; below 0 where he may not go.
float getCost(const sArcInfo& arc) {
    switch (arc.type) {
        case ARC_PLAYER_ROAD:
            return arc.length;
        case ARC_GROUND:
        case ARC_PLAYER_FENCE_SITE:
            return arc.length / walker.cross_country;
        default:
            return -1.0f;
    }
}

POINTS makeLevel(std::size_t count, bool mixed) {
    return makeRandomGraph(count, 7, [&](std::mt19937& chance) { return mixed ? drawType(chance) : ARC_PLAYER_ROAD; });
}

/// One graph in the three forms, and the questions.
struct sCase {
    sCase(std::size_t count, bool mixed) : points(makeLevel(count, mixed)), distances(count), predecessors(count) {
        ours.build(points);
        std::vector<std::pair<unsigned long, unsigned long>> edges;
        std::vector<sWeight> weights;
        std::vector<cLemonSearch::sArc> arcs;
        for (std::size_t i = 0; i < count; ++i) {
            for (const auto& [to, arc] : points[i].arcs) {
                const float cost = getCost(arc);
                if (cost < 0.0f)
                    continue;
                edges.emplace_back(i, static_cast<unsigned long>(to));
                weights.push_back({cost});
                arcs.push_back({static_cast<int>(i), to, cost});
            }
        }
        lemon.emplace(static_cast<int>(count), arcs);
        boost_graph = BOOST_GRAPH(boost::edges_are_sorted, edges.begin(), edges.end(), weights.begin(), count);
        std::mt19937 chance(11);
        for (Int i = 0; i < query_count; ++i)
            queries.emplace_back(chance() % count, chance() % count);
    }

    /// As Boost.Graph wants its results.
    template <class T>
    auto toMap(std::vector<T>& values) const {
        return boost::make_iterator_property_map(values.begin(), boost::get(boost::vertex_index, boost_graph));
    }

    float askOurs(unsigned long src, unsigned long dst) {
        ours.getBestPath(static_cast<Int>(src), static_cast<Int>(dst), path, walker);
        return ours.getPathLength(path);
    }
    float askAStar(unsigned long src, unsigned long dst) {
        try {
            boost::astar_search(boost_graph, src, sStraightLine(points, dst),
                                boost::weight_map(boost::get(&sWeight::length, boost_graph))
                                    .distance_map(toMap(distances))
                                    .predecessor_map(toMap(predecessors))
                                    .visitor(sStopVisitor(dst)));
        } catch (const sArrived&) {
            return distances[dst];
        }
        return no_way;
    }
    float askBoost(unsigned long src, unsigned long dst) {
        try {
            boost::dijkstra_shortest_paths(boost_graph, src,
                                           boost::weight_map(boost::get(&sWeight::length, boost_graph))
                                               .distance_map(toMap(distances))
                                               .predecessor_map(toMap(predecessors))
                                               .visitor(sStopDijkstra(dst)));
        } catch (const sArrived&) {
            return distances[dst];
        }
        return no_way;
    }
    float askLemon(unsigned long src, unsigned long dst) {
        const float length = lemon->getLength(static_cast<int>(src), static_cast<int>(dst));
        return length < 0.0f ? no_way : length;
    }

    POINTS points;
    cPathSearch ours;
    PATH_HOLDER path;
    BOOST_GRAPH boost_graph;
    std::vector<float> distances;
    std::vector<unsigned long> predecessors;
    std::optional<cLemonSearch> lemon;
    std::vector<std::pair<unsigned long, unsigned long>> queries;
};

template <float (sCase::*ASK)(unsigned long, unsigned long)>
void searchAll(benchmark::State& state) {
    sCase level(static_cast<std::size_t>(state.range(0)), state.range(1) != 0);
    for (const auto& [src, dst] : level.queries) {
        if (std::abs((level.*ASK)(src, dst) - level.askOurs(src, dst)) > 0.1f)
            return state.SkipWithError("the lengths differ");
    }
    const std::size_t before = allocations;
    for (const auto& [src, dst] : level.queries)
        benchmark::DoNotOptimize((level.*ASK)(src, dst));
    state.counters["allocations"] = static_cast<double>(allocations - before);
    for (auto _ : state) {
        for (const auto& [src, dst] : level.queries)
            benchmark::DoNotOptimize((level.*ASK)(src, dst));
    }
}

/// Both nets are as large as they can be: insides of buildings carry either, and there is nothing else.
void buildAndFlood(benchmark::State& state) {
    const POINTS points = makeRandomGraph(static_cast<std::size_t>(state.range(0)), 7,
                                          [](std::mt19937&) { return Int{ARC_INSIDE_BUILDING}; });
    cPathSearch search;
    std::vector<char> player(points.size());
    std::vector<char> enemy(points.size());
    for (auto _ : state) {
        search.build(points);
        player.assign(points.size(), 0);
        enemy.assign(points.size(), 0);
        search.floodPlayer(0, player);
        search.floodEnemy(0, enemy);
        benchmark::DoNotOptimize(player.data());
        benchmark::DoNotOptimize(enemy.data());
    }
}

/// The first search after build() measures landmarks; between neighbours there is little else to it.
void firstSearch(benchmark::State& state) {
    const POINTS points = makeLevel(static_cast<std::size_t>(state.range(0)), true);
    cPathSearch search;
    PATH_HOLDER path;
    for (auto _ : state) {
        state.PauseTiming();
        search.build(points);
        state.ResumeTiming();
        search.getBestPath(0, points[0].arcs.begin()->first, path, {.cross_country = 1.0f});
    }
}

void sizes(benchmark::internal::Benchmark* bench) {
    bench->ArgNames({"points", "mixed"})->ArgsProduct({{100, 500, 2000}, {0, 1}})->Unit(benchmark::kMicrosecond);
}

}  // namespace

BENCHMARK_TEMPLATE(searchAll, &sCase::askOurs)->Name("ours")->Apply(sizes);
BENCHMARK_TEMPLATE(searchAll, &sCase::askAStar)->Name("boostAStar")->Apply(sizes);
BENCHMARK_TEMPLATE(searchAll, &sCase::askBoost)->Name("boostDijkstra")->Apply(sizes);
BENCHMARK_TEMPLATE(searchAll, &sCase::askLemon)->Name("lemonDijkstra")->Apply(sizes);
BENCHMARK(buildAndFlood)->Arg(2000)->Unit(benchmark::kMicrosecond);
BENCHMARK(firstSearch)->Arg(2000)->Unit(benchmark::kMicrosecond);

BENCHMARK_MAIN();
