/// A frame of the largest level that the game comes with, 100 men on it who all have something to do: what can be built
/// is ordered each second, something falls, and whoever is not needed walks about. Once without drawing, once with the
/// picture drawn off-screen by whatever draws here; a frame may take 16 ms. And that level entered from the map of
/// levels, until it begins to roll in with its first picture: 300 ms, when its files have been read before.
#include <benchmark/benchmark.h>

#include <chrono>
#include <random>

#include "Engine/Ui/Storage.h"
#include "Engine/core/Logic.h"
#include "Engine/graphics/Graphics.h"
#include "Game/GameLogic/WayPoint.h"
#include "Game/GameLogic/buildings/StartPoint.h"
#include "Game/GameLogic/buildings/UpgradableBuilding.h"
#include "Game/GameLogic/men/FriendMan.h"
#include "Game/GameUI/Strategic/StrategicMap.h"
#include "Game/GameUI/Tactic/TacticMap.h"
#include "Tests/Support/TempDirectory.h"
#include "Tools/simulate/Stage.h"

namespace {

constexpr Int level = 2;
constexpr std::size_t crowd = 100;
constexpr UInt frames_a_second = 50;
constexpr UInt seconds_before = 20;

cTacticMap& map() {
    return *cTacticMap::getInstance();
}

Simulate::sSettings makeSettings(bool draw) {
    Simulate::sSettings res;
    res.data = BRINDLE_SOURCE_DIR "/Data";
    res.level = level;
    res.draw = draw;
    return res;
}

class cBusyLevel {
public:
    explicit cBusyLevel(bool draw) : m_stage(makeSettings(draw), std::string(m_home.getPath())) {
        m_stage.setDrawing(draw);
        while (map().getMen().size() < crowd)
            map().setUpInitMan(map().getStartPoint()->getUnderPoint());
        for (UInt i = 0; i < seconds_before * frames_a_second; ++i)
            frame();
    }

    void frame() {
        if (m_frames++ % frames_a_second == 0)
            keepBusy();
        m_stage.frame();
        m_busy += map().getBusyMen().size();
    }

    double getBusyMen() const { return static_cast<double>(m_busy) / m_frames; }  ///< on average, with goals

private:
    void keepBusy() {
        for (Int type = 0; type < resource_count; ++type)
            map().getStartPoint()->addResourceItems(type, 10);
        std::vector<cUpgradableBuilding*> buildings;
        for (cBuilding* building : cBuilding::getStorage()) {
            if (auto* upgradable = dynamic_cast<cUpgradableBuilding*>(building))
                buildings.push_back(upgradable);
        }
        buildings[m_chance() % buildings.size()]->degrade(1);
        for (cUpgradableBuilding* building : buildings) {
            if (building->getUpgradeState() == cUpgradableUnit::idle && building->isUpgradeAllowed())
                building->createUpgradeGoals();
        }
        for (const auto& [number, way_point] : Engine::cStorage<cWayPoint>::getStorage()) {
            if (!map().getPoint(way_point->getIndex()).player_connected && way_point->proposeRoadPlan(-1))
                way_point->processRoadPlan();
            way_point->deleteRoadPlan();
        }
        for (cFriendMan* man : map().getMen()) {
            const auto point = static_cast<Int>(m_chance() % static_cast<UInt>(map().getPointCount()));
            if (man->isIdle() && map().getPoint(point).player_connected)
                man->walkTo(point, false);
        }
    }

    Engine::cTempDirectory m_home;
    Simulate::cStage m_stage;
    std::mt19937 m_chance{1};
    UInt m_frames = 0;
    std::size_t m_busy = 0;
};

void playFrames(benchmark::State& state, bool draw) {
    cBusyLevel busy(draw);
    for (auto _ : state)
        busy.frame();
    state.counters["men"] = static_cast<double>(map().getMen().size());
    state.counters["with_goals"] = busy.getBusyMen();
}

void frameWithoutDrawing(benchmark::State& state) {
    playFrames(state, false);
}

void frameDrawn(benchmark::State& state) {
    playFrames(state, true);
}

/// For the first time in a run of the program: the pictures of its land have yet to be read.
void enterLevel(benchmark::State& state) {
    for (auto _ : state) {
        const Engine::cTempDirectory home;
        auto settings = makeSettings(true);
        settings.level = 0;
        Simulate::cStage stage(settings, std::string(home.getPath()));
        stage.setDrawing(true);
        map().showStrategicMap();
        while (map().hasLevel())
            stage.frame();
        stage.frame();
        const auto begin = std::chrono::steady_clock::now();
        cStrategicMap::getInstance()->startLevel(level, false);
        while (!map().isRolling())
            stage.frame();
        stage.frame();
        state.SetIterationTime(std::chrono::duration<double>(std::chrono::steady_clock::now() - begin).count());
    }
}

}  // namespace

BENCHMARK(frameWithoutDrawing)->Iterations(5000)->Unit(benchmark::kMicrosecond);
BENCHMARK(frameDrawn)->Iterations(250)->UseRealTime()->MeasureProcessCPUTime()->Unit(benchmark::kMillisecond);

BENCHMARK(enterLevel)->Iterations(5)->UseManualTime()->Unit(benchmark::kMillisecond);

BENCHMARK_MAIN();
