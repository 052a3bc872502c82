/// One way from point to point over a random level's graph, 200 queries a round, beside Boost.Graph's A* (with the
/// straight line as its estimate), its Dijkstra that stops at the destination, and LEMON's Dijkstra that does so. All
/// roads, so that all search the same; ours applies every rule of a walker as well. The lengths are compared first.
#include <benchmark/benchmark.h>

#include <boost/graph/astar_search.hpp>
#include <boost/graph/compressed_sparse_row_graph.hpp>
#include <boost/graph/dijkstra_shortest_paths.hpp>
#include <cmath>
#include <optional>
#include <random>

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
struct sStraightLine : boost::astar_heuristic<BOOST_GRAPH, float> {
    sStraightLine(const POINTS& all, unsigned long dst) : points(&all), target(all[dst].pos) {}
    float operator()(unsigned long vertex) const { return glm::distance((*points)[vertex].pos, target) * 0.999f; }
    const POINTS* points;
    Vector2 target;
};

/// One graph in the three forms, and the questions.
struct sCase {
    explicit sCase(std::size_t count)
        : points(makeRandomGraph(count, 7, [](std::mt19937&) { return static_cast<Int>(ARC_PLAYER_ROAD); })),
          distances(count),
          predecessors(count) {
        ours.build(points);
        std::vector<std::pair<unsigned long, unsigned long>> edges;
        std::vector<sWeight> weights;
        std::vector<cLemonSearch::sArc> arcs;
        for (std::size_t i = 0; i < count; ++i) {
            for (const auto& [to, arc] : points[i].arcs) {
                edges.emplace_back(i, static_cast<unsigned long>(to));
                weights.push_back({arc.length});
                arcs.push_back({static_cast<int>(i), to, arc.length});
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
        ours.getBestPath(static_cast<Int>(src), static_cast<Int>(dst), path, {});
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
    sCase level(static_cast<std::size_t>(state.range(0)));
    for (const auto& [src, dst] : level.queries) {
        if (std::abs((level.*ASK)(src, dst) - level.askOurs(src, dst)) > 0.1f)
            return state.SkipWithError("the lengths differ");
    }
    for (auto _ : state) {
        for (const auto& [src, dst] : level.queries)
            benchmark::DoNotOptimize((level.*ASK)(src, dst));
    }
}

void sizes(benchmark::internal::Benchmark* bench) {
    bench->Arg(100)->Arg(500)->Arg(2000)->Unit(benchmark::kMicrosecond);
}

}  // namespace

BENCHMARK_TEMPLATE(searchAll, &sCase::askOurs)->Name("ours")->Apply(sizes);
BENCHMARK_TEMPLATE(searchAll, &sCase::askAStar)->Name("boostAStar")->Apply(sizes);
BENCHMARK_TEMPLATE(searchAll, &sCase::askBoost)->Name("boostDijkstra")->Apply(sizes);
BENCHMARK_TEMPLATE(searchAll, &sCase::askLemon)->Name("lemonDijkstra")->Apply(sizes);

BENCHMARK_MAIN();
