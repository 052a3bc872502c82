// Leaving a level and coming back to it, without pictures: levels of so many points, a warehouse on each fifth and a
// man for each fourth. Each stands beside the time that a player does not notice.
#include <benchmark/benchmark.h>

#include "Benchmarks/MadeLevel.h"
#include "Engine/Ui/Profile.h"
#include "Engine/core/Logic.h"
#include "Game/Ui/Game.h"

namespace {

constexpr double save_limit = 0.005;  // seconds
constexpr double load_limit = 0.050;  // seconds

class cSavedGame {
public:
    explicit cSavedGame(std::int64_t points) {
        std::ostringstream buildings;
        for (std::int64_t i = 1; i <= points / 5; ++i)
            buildings << "<B Type=\"9\" Position=\"" << i * 40
                      << ",500\" Money=\"9\"><Upgrades><U Capacity=\"50\"/></Upgrades>"
                      << "<Points><P index=\"" << i << "\"/></Points></B>";
        Engine::cHeadlessProgram& program = m_level.getProgram();
        program.write("Game.xml", "<Game/>");
        m_level.prepare(makeLevel(static_cast<std::size_t>(points), static_cast<Int>(points / 4), buildings.str()));
        Engine::cProfile::open(u"Anna");
        (new cGame(nullptr, true))->setNoSave(false);
        Engine::cProfile::getInts()["CurrentLevel"] = 0;
        Engine::cLogic::getInstance()->setDrawing(false);
        getMap().initialize(false);
        program.frames(1000);  // the men are born
    }
    ~cSavedGame() { Engine::cProfile::close(); }

    cTacticMap& getMap() { return m_level.getMap(); }
    /// What was discarded goes.
    void frame() { m_level.frames(1); }
    void tell(benchmark::State& state, double limit) {
        state.counters["bytes"] = static_cast<double>(cGame::getInstance()->getSavedLevel(0)->getBytes().size());
        state.counters["men"] = static_cast<double>(getMap().getMen().size());
        state.counters["times_in_limit"] = benchmark::Counter(limit, benchmark::Counter::kIsIterationInvariantRate);
    }

private:
    cSmallLevel m_level;
};

void writeRecord(benchmark::State& state) {
    cSavedGame game(state.range(0));
    for (auto _ : state)
        game.getMap().saveBinLevel();
    game.tell(state, save_limit);
}

/// To the disk and through to it, with the save before it kept: each time something has changed.
void saveGame(benchmark::State& state) {
    cSavedGame game(state.range(0));
    for (auto _ : state) {
        game.getMap().addToLevelStat(statShopDeals, 1);
        game.getMap().saveBinLevel();
        cGame::getInstance()->saveLevels();
    }
    game.tell(state, save_limit);
}

void loadLevel(benchmark::State& state) {
    cSavedGame game(state.range(0));
    game.getMap().saveBinLevel();
    for (auto _ : state) {
        state.PauseTiming();
        game.getMap().clear();
        game.frame();
        state.ResumeTiming();
        game.getMap().initialize(false);
    }
    game.tell(state, load_limit);
}

}  // namespace

BENCHMARK(writeRecord)->Arg(60)->Arg(200)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(saveGame)->Arg(60)->Arg(200)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(loadLevel)->Arg(60)->Arg(200)->Unit(benchmark::kMillisecond)->UseRealTime();

BENCHMARK_MAIN();
