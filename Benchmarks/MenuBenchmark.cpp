// A steady frame of the main menu: the real program on the real data, on a machine without a screen, so that only our
// own work counts. Limits: no allocation, and 1 % of a frame at 60 a second.
#include <benchmark/benchmark.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>

#include "Benchmarks/CountAllocations.h"
#include "Engine/Ui/ViewSets.h"
#include "Engine/core/Logic.h"
#include "Engine/platform/headless/HeadlessPlatform.h"
#include "Game/Entry.h"
#include "Game/Ui/MainMenu.h"

using namespace Engine;

namespace {

constexpr UInt frame_ms = 20;

/// The writable directory of a player who is known.
std::filesystem::path makeHome() {
    const auto home = std::filesystem::temp_directory_path() / "brindle_bench_menu";
    std::filesystem::remove_all(home);
    std::filesystem::create_directories(home / "brindle/Profiles");
    std::ofstream(home / "brindle/Profiles/profiles.xml")
        << "<Profiles NextID=\"2\" CurrentUser=\"Bench\" NowPlaying=\"0\"><Profile Name=\"Bench\" "
           "ID=\"1\"/></Profiles>";
    return home;
}

void steadyFrame(benchmark::State& state) {
    const auto home = makeHome();
    Platform::cHeadlessPlatform platform(BRINDLE_SOURCE_DIR "/brindle", String(home.string() + "/"));
    UInt settled = 0;  // frames since the last fade
    Bool measured = false;
    platform.setOnIdle([&] {
        platform.advance(frame_ms);
        settled = cMainMenu::getInstance() && UI::getTransparenty().empty() ? settled + 1 : 0;
        if (settled < 100 || measured)
            return;
        measured = true;
        const std::size_t before = allocations;
        for (auto _ : state) {
            platform.advance(frame_ms);
            cLogic::getInstance()->process();
        }
        state.counters["allocations"] =
            static_cast<double>(allocations - before) / static_cast<double>(state.iterations());
        platform.postMessage({Platform::eMessage::close, 0});
    });
    runGame(platform);
    if (!measured)
        state.SkipWithError("the main menu did not come up");
    std::filesystem::remove_all(home);
}

}  // namespace

BENCHMARK(steadyFrame)->Unit(benchmark::kMicrosecond);

BENCHMARK_MAIN();
