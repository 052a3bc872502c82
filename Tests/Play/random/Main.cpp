// randomplay DIR: lets a hand without a plan play all levels of a data directory, and looks after every frame whether
// they still add up.
#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <iostream>
#include <map>
#include <memory>
#include <random>
#include <stdexcept>
#include <string>
#include <string_view>

#include "Engine/Ui/Profile.h"
#include "Engine/core/CallStack.h"
#include "Game/GameLogic/buildings/StartPoint.h"
#include "Game/GameUI/Strategic/StrategicMap.h"
#include "Game/GameUI/Tactic/LevelFile.h"
#include "Tests/Play/random/RandomHand.h"
#include "Tests/Support/LevelAudit.h"
#include "Tests/Support/TempDirectory.h"

namespace {

constexpr int exit_done = 0;
constexpr int exit_failed = 1;
constexpr int exit_usage = 2;

constexpr char help[] = R"(randomplay: play all levels at random, and count

  randomplay DIR [--hours H] [--seed S] [--level N] [--verbose]

  DIR          the data directory
  --hours H    of level time, over all runs; 1
  --seed S     of the first run; each further one takes the next; 1
  --level N    this level alone
  --verbose    tells of each run

A run is ten minutes of one level, as a new player; every other one owns all plans. What it says of a failure (level,
seed) repeats it: randomplay DIR --level N --seed S.

Exit status: 0 nothing was found; 1 something was, or the data is at fault; 2 wrong usage.
)";

struct sOptions {
    std::string data;
    double hours = 1.0;
    unsigned seed = 1;
    int level = -1;  ///< -1: all of them
    bool verbose = false;
};

sOptions readOptions(int argc, char** argv) {
    sOptions res;
    const auto to_number = [](const std::string& text, double low, double high) {
        std::size_t used = 0;
        const double value = std::stod(text, &used);
        if (used != text.size() || !(value >= low && value <= high))
            throw std::invalid_argument(text);
        return value;
    };
    for (int i = 1; i < argc; ++i) {
        const std::string word = argv[i];
        const bool is_number = word == "--hours" || word == "--seed" || word == "--level";
        if (is_number && ++i >= argc)
            throw std::invalid_argument(word + " needs a value");
        if (word == "--hours")
            res.hours = to_number(argv[i], 0.0, 1e4);
        else if (word == "--seed")
            res.seed = static_cast<unsigned>(to_number(argv[i], 0.0, 4e9));
        else if (word == "--level")
            res.level = static_cast<int>(to_number(argv[i], 0.0, 1e6));
        else if (word == "--verbose")
            res.verbose = true;
        else if (res.data.empty() && !word.starts_with("--"))
            res.data = word;
        else
            throw std::invalid_argument("unknown word \"" + word + "\"");
    }
    if (res.data.empty())
        throw std::invalid_argument("the data directory is needed");
    return res;
}

constexpr unsigned step_ms = 20;
constexpr Float step = 0.02f;                ///< seconds
constexpr long frames_a_run = 10 * 60 * 50;  ///< ten minutes

/// What came of a run, or of all.
struct sCount {
    long frames = 0;
    long gestures = 0;
    long entered = 0;           ///< times that a level was
    std::map<Int, long> goals;  ///< jobs for one man that came of it, by type
    long men_bought = 0;
    long connected = 0;  ///< points of the player's net in the end
    long risen = 0;      ///< levels of all that stood in the end

    void add(const sCount& other) {
        frames += other.frames;
        gestures += other.gestures;
        entered += other.entered;
        for (const auto& [type, amount] : other.goals)
            goals[type] += amount;
        men_bought += other.men_bought;
        connected += other.connected;
        risen += other.risen;
    }
};

void print(const char* what, const sCount& count) {
    std::printf("%s: %ld frames, %ld gestures, entered %ld times; at the end %ld points, %ld levels, %ld men bought;",
                what, count.frames, count.gestures, count.entered, count.connected, count.risen, count.men_bought);
    std::printf(" goals");
    for (const auto& [type, amount] : count.goals)
        std::printf(" %d: %ld", type, amount);
    std::printf("\n");
    std::fflush(stdout);
}

/// One level, one seed, one new player.
class cRun {
public:
    cRun(const sOptions& options, int level, unsigned seed) : m_seed(seed), m_chance(seed) {
        constexpr int plans = 33;
        m_settings.data = options.data;
        m_settings.level = level;
        m_settings.seed = seed;
        m_settings.step = step_ms;
        for (int plan = 1; plan <= plans && seed % 2 == 1; ++plan)
            m_settings.properties.emplace_back("Product" + std::to_string(plan), "1");
    }

    void play(long frames) {
        startGame();
        while (m_count.frames < frames) {
            if (m_stage->takesInput() && m_chance() % frames_a_visit == 0)
                reenter();
            playFrame();
            if (m_count.frames % frames_a_gift == 0 && m_stage->takesInput())
                bringGoods();
        }
        countLevel();
    }

    const sCount& getCount() const { return m_count; }

    /// Where it is, for whoever wants to see it again.
    std::string describe() const {
        std::string res = "level " + std::to_string(*m_settings.level) + ", seed " + std::to_string(m_seed) +
                          ", frame " + std::to_string(m_count.frames) + ", after: ";
        if (m_hand) {
            for (const std::string& gesture : m_hand->getLast())
                res.append(gesture).append("; ");
        }
        return res;
    }

private:
    static constexpr long frames_a_gift = 3000;        ///< from the start point, for who has nothing left
    static constexpr unsigned frames_a_visit = 10000;  ///< until the level is left and entered again, on average

    void playFrame() {
        const UInt gestures = m_hand->getGestures();
        m_hand->act();
        m_count.gestures += m_hand->getGestures() - gestures;
        m_stage->frame();
        ++m_count.frames;
        const bool was_left = !m_stage->isLevelPlayed();
        if (was_left)
            comeBack();
        else
            require(m_audit.findFault(step));
    }

    static void require(const Engine::String& fault) {
        if (!fault.empty())
            throw fault;
    }

    /// What is in the writable directory goes on.
    void startGame() {
        m_hand.reset();
        m_stage.reset();
        m_stage = std::make_unique<Simulate::cStage>(m_settings, std::string(m_home.getPath()));
        m_hand = std::make_unique<cRandomHand>(*m_stage, m_chance());
        enterAnew();
    }

    void enterAnew() {
        m_hand->forget();
        m_audit.start();
        ++m_count.entered;
    }

    /// It was left for another one, for the map of levels or for the main menu, or it was started over.
    void comeBack() {
        if (!cStrategicMap::getInstance())
            return startGame();
        m_stage->waitForRoll();
        if (!m_stage->isLevelPlayed() || Engine::cProfile::getInts()["CurrentLevel"] != *m_settings.level)
            m_stage->enterLevel(*m_settings.level);
        enterAnew();
    }

    void reenter() {
        m_hand->forget();
        m_stage->enterLevel(*m_settings.level);
        require(m_audit.startAgain());
        ++m_count.entered;
    }

    /// So that there is something to do until the end.
    void bringGoods() {
        constexpr Int enough = 40;
        cStartPoint& start = *cTacticMap::getInstance()->getStartPoint();
        for (Int type = 0; type < resource_count; ++type)
            start.addResourceItems(type, std::max(enough - start.getCargo()[type], 0));
        cTacticMap::getInstance()->updateGlobalResources(true);
        m_audit.start();
    }

    void countLevel() {
        m_count.goals = m_audit.getGoalCounts();
        const cTacticMap& map = *cTacticMap::getInstance();
        m_count.men_bought += map.getLevelStat(statMenBought);
        for (const sPointInfo& point : map.getPoints())
            m_count.connected += point.player_connected ? 1 : 0;
        for (const cUpgradableUnit* unit : getUpgradableUnits())
            m_count.risen += unit->getLevel();
    }

    Engine::cTempDirectory m_home;
    Simulate::sSettings m_settings;
    unsigned m_seed;
    std::mt19937 m_chance;
    std::unique_ptr<Simulate::cStage> m_stage;
    std::unique_ptr<cRandomHand> m_hand;
    cLevelAudit m_audit;
    sCount m_count;
};

/// The engine that a run has started tells how many levels there are.
Int countLevels(const sOptions& options) {
    const Engine::cTempDirectory home;
    Simulate::sSettings settings;
    settings.data = options.data;
    settings.level = 0;
    const Simulate::cStage stage(settings, std::string(home.getPath()));
    return cLevelFile::getLevelCount();
}

int playAll(const sOptions& options) {
    const auto begin = std::chrono::steady_clock::now();
    const Int levels = countLevels(options);
    const long wanted = std::lround(options.hours * 3600.0 / static_cast<double>(step));
    sCount all;
    for (unsigned i = 0; all.frames < wanted; ++i) {
        const int level = options.level >= 0 ? options.level : static_cast<int>(i) % levels;
        cRun run(options, level, options.seed + i);
        try {
            run.play(std::min(frames_a_run, wanted - all.frames));
        } catch (...) {
            std::cerr << "randomplay: " << run.describe() << Engine::currentFailure() << '\n';
            return exit_failed;
        }
        all.add(run.getCount());
        if (options.verbose)
            print(run.describe().substr(0, run.describe().find(", frame")).c_str(), run.getCount());
    }
    print("all", all);
    const std::chrono::duration<double> taken = std::chrono::steady_clock::now() - begin;
    std::printf("%.2f hours of level time in %.0f s\n",
                static_cast<double>(all.frames) * static_cast<double>(step) / 3600.0, taken.count());
    return exit_done;
}

}  // namespace

int main(int argc, char** argv) {
    if (argc == 2 && std::string_view(argv[1]) == "--help") {
        std::cout << help;
        return exit_done;
    }
    sOptions options;
    try {
        options = readOptions(argc, argv);
    } catch (const std::logic_error& failure) {
        std::cerr << "randomplay: " << failure.what() << "\nTry randomplay --help.\n";
        return exit_usage;
    }
    try {
        return playAll(options);
    } catch (...) {
        std::cerr << "randomplay: " << Engine::currentFailure() << '\n';
        return exit_failed;
    }
}
