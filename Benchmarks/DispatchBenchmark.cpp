/// A tick of the dispatch: 200 free men and 100 goals that wait on a level of 500 points. 99 of the goals are builders'
/// that wait for goods, so all are asked; the last is ready, and either nobody takes it, so that all men are asked, or
/// the nearest does, and finds his way. The limit is 2 ms.
///
/// The peer is one search a man for his distance, and the men in their order. Both have to ask the same men in the same
/// order, for every point as the place to go to, which is looked at first.
#include <benchmark/benchmark.h>

#include "Benchmarks/CountAllocations.h"
#include "Game/GameLogic/buildings/UpgradableBuilding.h"
#include "Game/GameLogic/goals/UpgradeGoal.h"
#include "Tests/Support/DispatchLevel.h"

namespace {

constexpr std::size_t point_count = 500;
constexpr Int man_count = 200;
constexpr Int goal_count = 100;
constexpr double limit = 2e-3;  ///< seconds

/// The level with its goals; the last of them can be sent anywhere.
struct sScene {
    explicit sScene(Bool willing) {
        level.start(point_count, man_count);
        cTacticMap& map = level.getMap();
        auto* mill = static_cast<cUpgradableBuilding*>(level.getBuilding(cDispatchLevel::mill_point));
        mill->setUpgradeState(cUpgradableUnit::waitingForResources);
        for (Int i = 1; i < goal_count; ++i) {
            auto waiting = std::make_shared<cUpgradeGoal>();
            waiting->setDst(mill->getUnderPoint());
            waiting->setTransactionId(i);
            map.getGoals()->addGoal(std::move(waiting));
        }
        goal = std::make_shared<cAskingGoal>(willing);
        map.getGoals()->addGoal(goal);
    }
    void sendTo(Int point) {
        goal->setDst(point);
        goal->asked.clear();
    }
    /// The man who took the goal is free again, and it waits.
    void undo() {
        if (!goal->getMan())
            return;
        static_cast<cFriendMan*>(goal->getMan())->setTask(nullptr);
        goal->getMan()->setGlobalGoal(nullptr);
        goal->setMan(nullptr);
        level.getMap().getGoals()->addGoal(goal);
    }

    cDispatchLevel level;
    std::shared_ptr<cAskingGoal> goal;
};

Bool asksAsOneSearchAMan(sScene& scene) {
    for (Int point = 0; point < static_cast<Int>(point_count); ++point) {
        scene.sendTo(point);
        scene.level.getMap().process();
        if (scene.goal->asked != scene.level.sortByOneSearchAMan(point))
            return false;
    }
    return true;
}

template <class F>
void measure(benchmark::State& state, sScene& scene, F&& run) {
    Int point = 0;
    std::size_t allocated = 0;
    for (auto _ : state) {
        state.PauseTiming();
        scene.undo();
        scene.sendTo(point++ % static_cast<Int>(point_count));
        const std::size_t before = allocations;
        state.ResumeTiming();
        run();
        allocated += allocations - before;
    }
    state.counters["allocations"] = static_cast<double>(allocated) / static_cast<double>(state.iterations());
    // The time of a tick in parts of the limit.
    state.counters["of_limit"] = benchmark::Counter(static_cast<double>(state.iterations()) * limit,
                                                    benchmark::Counter::kIsRate | benchmark::Counter::kInvert);
}

/// @param state  1: the nearest man takes the goal; 0: nobody does
void tick(benchmark::State& state) {
    sScene scene(false);
    if (!asksAsOneSearchAMan(scene))
        return state.SkipWithError("other men are asked");
    scene.goal->willing = state.range(0) != 0;
    measure(state, scene, [&] { scene.level.getMap().process(); });
}

void oneSearchAMan(benchmark::State& state) {
    sScene scene(false);
    measure(state, scene,
            [&] { benchmark::DoNotOptimize(scene.level.sortByOneSearchAMan(scene.goal->getDst()).data()); });
}

}  // namespace

BENCHMARK(tick)->ArgName("taken")->Arg(0)->Arg(1)->Unit(benchmark::kMicrosecond);
BENCHMARK(oneSearchAMan)->Unit(benchmark::kMicrosecond);

BENCHMARK_MAIN();
