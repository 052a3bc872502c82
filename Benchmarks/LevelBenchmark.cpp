// The level in play without a screen: frames against the time that they stand for, and the nets of both sides worked
// out anew. Levels are made by chance, the same for one seed.
#include <benchmark/benchmark.h>

#include <random>
#include <sstream>

#include "Engine/core/Logic.h"
#include "Tests/Support/RandomGraph.h"
#include "Tests/Support/SmallLevel.h"

namespace {

constexpr double frame_seconds = 0.02;

/// A level whose points lie as those of a graph by chance, all of it the player's but for every 10th arc.
std::string makeLevel(std::size_t points, Int men) {
    const POINTS graph = makeRandomGraph(points, 7, [](std::mt19937& chance) {
        return static_cast<Int>(chance() % 10 == 0 ? ARC_GROUND : ARC_PLAYER_ROAD);
    });
    std::ostringstream text;
    text << "<L Size=\"2000,2000\"><Points>";
    for (const sPointInfo& point : graph)
        text << "<P Pos=\"" << point.pos.x << ',' << point.pos.y << "\"/>";
    text << "</Points><Arcs>";
    for (const sPointInfo& point : graph) {
        for (const auto& [neighbour, arc] : point.arcs) {
            if (point.index < neighbour)
                text << "<A p1=\"" << point.index << "\" p2=\"" << neighbour << "\" Type=\"" << arc.type << "\"/>";
        }
    }
    text << "</Arcs><Buildings>" << startPoint("100,300", men) << "</Buildings></L>";
    return text.str();
}

/// Men who have arrived are sent on, so that all of them walk all the time.
void keepWalking(cTacticMap& map, std::mt19937& chance) {
    for (cFriendMan* man : map.getMen()) {
        if (man->isIdle())
            man->walkTo(static_cast<Int>(chance() % static_cast<std::uint32_t>(map.getPointCount())), false);
    }
}

void playLevel(benchmark::State& state) {
    cSmallLevel level;
    level.start(makeLevel(static_cast<std::size_t>(state.range(0)), static_cast<Int>(state.range(1))));
    Engine::cLogic::getInstance()->setDrawing(false);
    level.frames(500);  // the men are born
    std::mt19937 chance(1);
    for (auto _ : state) {
        keepWalking(level.getMap(), chance);
        level.frames(1);
    }
    state.counters["times_real_time"] =
        benchmark::Counter(frame_seconds, benchmark::Counter::kIsIterationInvariantRate);
    state.counters["men"] = static_cast<double>(level.getMap().getMen().size());
}

void makeConnectionMap(benchmark::State& state) {
    cSmallLevel level;
    level.start(makeLevel(static_cast<std::size_t>(state.range(0)), 5));
    for (auto _ : state)
        level.getMap().generateConnectionMap();
}

}  // namespace

BENCHMARK(playLevel)->Args({200, 50})->Unit(benchmark::kMicrosecond);
BENCHMARK(makeConnectionMap)->Arg(200)->Arg(2000)->Unit(benchmark::kMicrosecond);

BENCHMARK_MAIN();
