// The level in play without a screen: frames against the time that they stand for, and the nets of both sides worked
// out anew. Levels are made by chance, the same for one seed.
#include <benchmark/benchmark.h>

#include <random>

#include "Benchmarks/MadeLevel.h"
#include "Engine/core/Logic.h"

namespace {

constexpr double frame_seconds = 0.02;

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
