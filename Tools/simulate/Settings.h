#pragma once

#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace Simulate {

/// What the command line asks for.
struct sSettings {
    std::string data;                ///< the data directory
    std::optional<int> level;        ///< none: the player's own
    std::string home;                ///< the writable directory; empty: a fresh temporary one
    std::string profile = "Player";  ///< the player's name
    unsigned seed = 1;
    unsigned step = 20;  ///< milliseconds of one frame
    double until = 0.0;  ///< seconds of level time
    std::string script;  ///< a file; empty: nobody does anything
    std::string report;  ///< a file; empty: standard output
    std::string trace;   ///< a file; empty: what the hand does is not written down
    double every = 0.0;  ///< seconds between two lines of the report; 0: one at the end
    bool draw = false;   ///< on the platform that draws, without a display
    std::vector<std::pair<std::string, std::string>> properties;  ///< of the player, written first
};

/// Throws std::invalid_argument with one line for a command line that makes no sense.
sSettings readSettings(int argc, const char* const* argv);

extern const char help[];

}  // namespace Simulate
