// simulate: plays a level without a screen, by a script, and reports what came of it.
#include <cmath>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <random>
#include <stdexcept>
#include <string_view>

#include "Engine/core/CallStack.h"
#include "Tools/simulate/Player.h"
#include "Tools/simulate/Report.h"
#include "Tools/simulate/Settings.h"
#include "Tools/simulate/Stage.h"
#include "Tools/simulate/Trace.h"

namespace {

constexpr int exit_done = 0;
constexpr int exit_failed = 1;
constexpr int exit_usage = 2;

/// The writable directory: a given one, or one of its own that goes with it.
class cHome {
public:
    explicit cHome(const std::string& given) : m_is_own(given.empty()) {
        if (m_is_own)
            m_path = std::filesystem::temp_directory_path() / ("simulate-" + std::to_string(std::random_device()()));
        else
            m_path = std::filesystem::absolute(given);
        std::filesystem::create_directories(m_path);
    }
    ~cHome() {
        std::error_code ignored;
        if (m_is_own)
            std::filesystem::remove_all(m_path, ignored);
    }
    cHome(const cHome&) = delete;
    cHome& operator=(const cHome&) = delete;
    const std::filesystem::path& getPath() const { return m_path; }

private:
    bool m_is_own;
    std::filesystem::path m_path;
};

void play(const Simulate::sSettings& settings, const std::filesystem::path& home, std::ostream& out) {
    std::vector<Simulate::sAction> actions;
    if (!settings.script.empty())
        actions = Simulate::readScript(settings.script);
    Simulate::cStage stage(settings, home);
    Simulate::cPlayer player(stage, std::move(actions), settings.script);
    if (!settings.trace.empty()) {
        stage.setMachine(std::make_unique<Simulate::cTrace>(stage.takeMachine(), settings.trace));
        player.setScrollsFar(true);
    }
    const double step = settings.step / 1000.0;
    double next_report = settings.every;
    const auto report = [&](double time, int indent) {
        out << makeReport(time, settings.seed, player).dump(indent) << '\n';
    };
    long frame = 0;
    double time = 0.0;
    for (; time < settings.until - step * 0.5 && stage.isLevelPlayed(); time = static_cast<double>(++frame) * step) {
        player.act(time);
        if (settings.every > 0.0 && time >= next_report - step * 0.5) {
            report(time, -1);
            next_report += settings.every;
        }
        stage.frame();
        if (stage.isLevelLeft())
            break;
        stage.waitForRoll();
    }
    if (!stage.isLevelLeft())
        player.act(time);
    report(time, settings.every > 0.0 ? -1 : 1);
    stage.waitForRoll();
}

int run(const Simulate::sSettings& settings) {
    const cHome home(settings.home);
    if (settings.report.empty()) {
        play(settings, home.getPath(), std::cout);
        return std::cout.flush() ? exit_done : exit_failed;
    }
    std::ofstream file(settings.report);
    if (!file)
        throw std::runtime_error(settings.report + ": can't be written");
    play(settings, home.getPath(), file);
    if (!file.flush())
        throw std::runtime_error(settings.report + ": can't be written");
    return exit_done;
}

int fail(std::string text) {
    for (char& c : text)
        c = c == '\n' ? ' ' : c;
    std::cerr << "simulate: " << text << '\n';
    return exit_failed;
}

}  // namespace

int main(int argc, char** argv) {
    if (argc == 2 && std::string_view(argv[1]) == "--help") {
        std::cout << Simulate::help;
        return exit_done;
    }
    Simulate::sSettings settings;
    try {
        settings = Simulate::readSettings(argc, argv);
    } catch (const std::invalid_argument& failure) {
        std::cerr << "simulate: " << failure.what() << "\nTry simulate --help.\n";
        return exit_usage;
    }
    try {
        return run(settings);
    } catch (...) {
        return fail(std::string(Engine::currentFailure()));
    }
}
