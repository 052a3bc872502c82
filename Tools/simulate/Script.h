#pragma once

#include <string>
#include <vector>

namespace Simulate {

/// One line of a script.
struct sAction {
    double time = 0.0;               ///< seconds of level time
    std::vector<std::string> words;  ///< one at least
    int line = 0;                    ///< in the file, from 1
};

/// Throws std::runtime_error with one line that names the file and the line, for a file that can't be read, a line
/// without time or action, and times that go back.
std::vector<sAction> readScript(const std::string& path);

}  // namespace Simulate
