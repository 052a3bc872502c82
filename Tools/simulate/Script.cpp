#include "Tools/simulate/Script.h"

#include <cmath>
#include <fstream>
#include <sstream>
#include <stdexcept>

namespace Simulate {

namespace {

/// False for a line without an action.
bool readLine(const std::string& text, sAction& action) {
    std::istringstream words(text.substr(0, text.find('#')));
    std::string time;
    if (!(words >> time))
        return false;
    std::size_t used = 0;
    try {
        action.time = std::stod(time, &used);
    } catch (const std::exception&) {
        used = 0;
    }
    if (used != time.size() || !std::isfinite(action.time) || action.time < 0.0)
        throw std::runtime_error("\"" + time + "\" is no time");
    for (std::string word; words >> word;)
        action.words.push_back(word);
    if (action.words.empty())
        throw std::runtime_error("there is no action");
    return true;
}

}  // namespace

std::vector<sAction> readScript(const std::string& path) {
    std::ifstream file(path);
    if (!file)
        throw std::runtime_error(path + ": can't be read");
    std::vector<sAction> res;
    int line = 0;
    for (std::string text; std::getline(file, text);) {
        sAction action;
        action.line = ++line;
        try {
            if (!readLine(text, action))
                continue;
            if (!res.empty() && action.time < res.back().time)
                throw std::runtime_error("its time lies before that of the line above");
        } catch (const std::exception& failure) {
            throw std::runtime_error(path + ", line " + std::to_string(line) + ": " + failure.what());
        }
        res.push_back(std::move(action));
    }
    return res;
}

}  // namespace Simulate
