#include "Tools/simulate/Settings.h"

#include <cmath>
#include <functional>
#include <map>
#include <stdexcept>

namespace Simulate {

const char help[] = R"(simulate: play a level without a screen

  simulate --data DIR [--level N] [--home DIR] [--profile NAME] [--seed S] [--step SECONDS] [--until SECONDS]
           [--script FILE] [--report FILE] [--every SECONDS] [--set KEY=VALUE] [--draw]
           [--trace FILE]

  --data DIR       the data directory
  --level N        the level to enter; without it the player's own, for a new one 0
  --home DIR       the writable directory; without it a fresh one that goes again
  --profile NAME   the player
  --seed S         of the generator of chance; 1
  --step SECONDS   of one frame, 0.005 to 0.066, in whole milliseconds; 0.02
  --until SECONDS  of level time; 0 is the first frame in which the level takes input. A level that is left ends the run before
  --script FILE    what the player does: lines of "TIME ACTION", sorted by time, # for comments
  --report FILE    where the report goes, one JSON object; without it to standard output
  --every SECONDS  a report each so many seconds, one a line
  --set KEY=VALUE  writes a property of the player first; may come more than once
  --trace FILE     where the pointer and the keys are written down: a script of move, press, release and key alone, for
                   any other hand. A level is scrolled from end to end then, so that a slower hand meets the same places
  --draw           can draw (off-screen) what is played, where the action "shot" asks for it

Actions:
  click point N | click building TYPE K | click arc A B | click man K      drag point A point B
  click unload TYPE K | click upgrade TYPE K | click caravan TYPE K
  buy man|idol|catapult | trade TYPE K INDEX
  move X Y | press left|right | release left|right | key CODE press|release
  query path FROM TO CROSS_COUNTRY [player] [gates] [idols]
  query roadplan A | draggedroad A B | shippath A | freepoint A
  save | load | replay | map | goback | shot FILE

Exit status: 0 the run came to its end; 1 the data or the run is at fault; 2 wrong usage.
)";

namespace {

double toNumber(const std::string& option, const std::string& text) {
    try {
        std::size_t used = 0;
        const double res = std::stod(text, &used);
        if (used == text.size() && std::isfinite(res))
            return res;
    } catch (const std::exception&) {
    }
    throw std::invalid_argument(option + ": \"" + text + "\" is no number");
}

long toWhole(const std::string& option, const std::string& text, double low, double high) {
    const double res = toNumber(option, text);
    if (res != std::floor(res) || res < low || res > high)
        throw std::invalid_argument(option + ": \"" + text + "\" is not a whole number in its range");
    return static_cast<long>(res);
}

double toSeconds(const std::string& option, const std::string& text) {
    constexpr double longest = 1e6;
    const double res = toNumber(option, text);
    if (res < 0.0 || res > longest)
        throw std::invalid_argument(option + ": \"" + text + "\" is out of range");
    return res;
}

unsigned toStep(const std::string& option, const std::string& text) {
    const double milliseconds = toNumber(option, text) * 1000.0;
    const double whole = std::round(milliseconds);
    if (std::abs(whole - milliseconds) > 1e-6 || whole < 5.0 || whole > 66.0)
        throw std::invalid_argument(option + ": a step is a whole number of milliseconds, 0.005 to 0.066 seconds");
    return static_cast<unsigned>(whole);
}

std::pair<std::string, std::string> toProperty(const std::string& option, const std::string& text) {
    const std::size_t sign = text.find('=');
    if (sign == 0 || sign == std::string::npos)
        throw std::invalid_argument(option + ": \"" + text + "\" is no KEY=VALUE");
    return {text.substr(0, sign), text.substr(sign + 1)};
}

}  // namespace

sSettings readSettings(int argc, const char* const* argv) {
    sSettings res;
    const std::map<std::string, std::function<void(const std::string& option, const std::string& text)>> options{
        {"--data", [&](auto&, auto& text) { res.data = text; }},
        {"--level", [&](auto& option, auto& text) { res.level = static_cast<int>(toWhole(option, text, 0, 1e6)); }},
        {"--home", [&](auto&, auto& text) { res.home = text; }},
        {"--profile", [&](auto&, auto& text) { res.profile = text; }},
        {"--seed",
         [&](auto& option, auto& text) { res.seed = static_cast<unsigned>(toWhole(option, text, 0, 4294967295.0)); }},
        {"--step", [&](auto& option, auto& text) { res.step = toStep(option, text); }},
        {"--until", [&](auto& option, auto& text) { res.until = toSeconds(option, text); }},
        {"--script", [&](auto&, auto& text) { res.script = text; }},
        {"--report", [&](auto&, auto& text) { res.report = text; }},
        {"--trace", [&](auto&, auto& text) { res.trace = text; }},
        {"--every", [&](auto& option, auto& text) { res.every = toSeconds(option, text); }},
        {"--set", [&](auto& option, auto& text) { res.properties.push_back(toProperty(option, text)); }},
    };
    for (int i = 1; i < argc; ++i) {
        const std::string option = argv[i];
        if (option == "--draw") {
            res.draw = true;
            continue;
        }
        const auto found = options.find(option);
        if (found == options.end())
            throw std::invalid_argument("unknown option \"" + option + "\"");
        if (++i >= argc)
            throw std::invalid_argument(option + " needs a value");
        found->second(option, argv[i]);
    }
    if (res.data.empty())
        throw std::invalid_argument("--data is needed");
    if (res.profile.empty())
        throw std::invalid_argument("--profile needs a name");
    return res;
}

}  // namespace Simulate
