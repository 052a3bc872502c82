// From the start of the process to its first picture, and the most memory held on the way: the game beside a bare
// window. Real time; each iteration is a process of its own, waited for to its end.
#include <benchmark/benchmark.h>
#include <spawn.h>
#include <sys/resource.h>
#include <sys/wait.h>

#include <algorithm>
#include <chrono>
#include <string>

extern char** environ;

namespace {

/// Runs a program to its end; gives its peak memory in MiB, 0 if it failed.
double run(const std::string& program) {
    std::string path = program;
    char* const arguments[] = {path.data(), nullptr};
    pid_t child = 0;
    int status = 0;
    rusage usage{};
    if (posix_spawn(&child, path.c_str(), nullptr, nullptr, arguments, environ) != 0 ||
        wait4(child, &status, 0, &usage) != child || status != 0)
        return 0.0;
    return static_cast<double>(usage.ru_maxrss) / 1024.0;
}

void startUp(benchmark::State& state, const std::string& program) {
    double peak = 0.0;
    for (auto _ : state) {
        const auto begin = std::chrono::steady_clock::now();
        const double memory = run(program);
        state.SetIterationTime(std::chrono::duration<double>(std::chrono::steady_clock::now() - begin).count());
        if (memory == 0.0) {
            state.SkipWithError("the program failed");
            break;
        }
        peak = std::max(peak, memory);
    }
    state.counters["peak_MiB"] = peak;
}

const std::string folder = BRINDLE_BENCHMARK_DIR;

}  // namespace

BENCHMARK_CAPTURE(startUp, bare_window, folder + "/bare_window")->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(startUp, game, folder + "/game_start")->UseManualTime()->Unit(benchmark::kMillisecond);

BENCHMARK_MAIN();
