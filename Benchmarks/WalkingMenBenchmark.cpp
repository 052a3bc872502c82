/// The pair test of a frame, 100 and 1,000 men who walk a level of 2,000 x 600 units, and 1,000 on one ten times as
/// wide: which of them are near each other, found with the grid and by comparing every man with every other one, and
/// the whole test with what the men do about it. Both ways have to find the same pairs in the same order, which is
/// looked at first.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <cmath>
#include <optional>
#include <random>

#include "Benchmarks/CountAllocations.h"
#include "Game/GameUI/Tactic/PairGrid.h"
#include "Game/GameUI/Tactic/WalkingMen.h"
#include "Tests/Support/SmallLevel.h"

namespace {

constexpr Int columns_per_screen = 30;
constexpr Int rows = 8;
constexpr Float distance = 12.0f;  ///< as in the small level
constexpr UInt frames_before = 60;

std::string toText(Int column, Int row) {
    return std::to_string(50 + column * 65) + "," + std::to_string(50 + row * 70);
}

/// Roads along a grid of points.
std::string makeLevel(Int columns) {
    std::string points;
    std::string arcs;
    const auto add_arc = [&arcs](Int a, Int b) {
        arcs.append("<A Type=\"1\" p1=\"").append(std::to_string(a)).append("\" p2=\"");
        arcs.append(std::to_string(b)).append("\"/>");
    };
    for (Int row = 0; row < rows; ++row) {
        for (Int column = 0; column < columns; ++column) {
            const Int index = row * columns + column;
            points.append("<P Pos=\"").append(toText(column, row)).append("\"/>");
            if (column > 0)
                add_arc(index - 1, index);
            if (row > 0)
                add_arc(index - columns, index);
        }
    }
    return "<L Size=\"" + std::to_string(columns * 65 + 50) + ",600\"><Points>" + points + "</Points><Arcs>" + arcs +
           "</Arcs><Buildings>" + startPoint(toText(0, 0), 0) + "</Buildings></L>";
}

/// That many men, on their way for a second.
struct sCrowd {
    sCrowd(Int count, Int width) {
        const Int columns = width * columns_per_screen;
        level.start(makeLevel(columns));
        level.frames(100);  // the caravan comes, without men
        std::mt19937 chance(3);
        const auto choose = [&] { return static_cast<Int>(chance() % static_cast<UInt>(rows * columns)); };
        for (Int i = 0; i < count; ++i)
            level.getMap().setUpInitMan(choose());
        for (cFriendMan* man : level.getMap().getMen())
            man->walkTo(choose(), false);
        level.frames(frames_before);
        for (const cFriendMan* man : level.getMap().getMen())
            places.push_back(man->getMovablePosition());
    }

    cSmallLevel level;
    std::vector<Vector2> places;
};

void compareAll(const std::vector<Vector2>& places, cPairGrid::PAIRS& pairs) {
    pairs.clear();
    for (UInt a = 0; a < places.size(); ++a) {
        for (UInt b = a + 1; b < places.size(); ++b) {
            const Vector2 way = places[a] - places[b];
            if (glm::dot(way, way) < distance * distance)
                pairs.emplace_back(a, b);
        }
    }
}

/// Runs it once to be warm, then counts.
template <class F>
void measure(benchmark::State& state, F&& run) {
    run();
    const std::size_t before = allocations;
    for (auto _ : state)
        run();
    state.counters["allocations"] = static_cast<double>(allocations - before) / static_cast<double>(state.iterations());
}

void grid(benchmark::State& state) {
    const sCrowd crowd(static_cast<Int>(state.range(0)), static_cast<Int>(state.range(1)));
    cPairGrid pairs;
    cPairGrid::PAIRS expected;
    compareAll(crowd.places, expected);
    if (pairs.findPairs(crowd.places, distance * distance) != expected)
        return state.SkipWithError("the pairs differ");
    measure(state, [&] { benchmark::DoNotOptimize(pairs.findPairs(crowd.places, distance * distance).data()); });
    state.counters["pairs"] = static_cast<double>(expected.size());
}

void everyPair(benchmark::State& state) {
    const sCrowd crowd(static_cast<Int>(state.range(0)), static_cast<Int>(state.range(1)));
    cPairGrid::PAIRS pairs;
    measure(state, [&] {
        compareAll(crowd.places, pairs);
        benchmark::DoNotOptimize(pairs.data());
    });
}

void wholeTest(benchmark::State& state) {
    sCrowd crowd(static_cast<Int>(state.range(0)), static_cast<Int>(state.range(1)));
    cWalkingMen walking_men;
    measure(state, [&] { walking_men.test(crowd.level.getMap()); });
}

void sizes(benchmark::internal::Benchmark* bench) {
    bench->ArgNames({"men", "width"})->Args({100, 1})->Args({1000, 10})->Args({1000, 1})->Unit(benchmark::kMicrosecond);
}

}  // namespace

BENCHMARK(grid)->Apply(sizes);
BENCHMARK(everyPair)->Apply(sizes);
BENCHMARK(wholeTest)->Apply(sizes);

BENCHMARK_MAIN();
