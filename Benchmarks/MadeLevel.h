#pragma once

#include <random>
#include <sstream>
#include <string>

#include "Tests/Support/RandomGraph.h"
#include "Tests/Support/SmallLevel.h"

/// A level whose points lie as those of a graph by chance, all of it the player's but for every 10th arc.
/// @param buildings  beside the start point, for the level's "Buildings"
inline std::string makeLevel(std::size_t points, Int men, const std::string& buildings = {}) {
    const POINTS graph = makeRandomGraph(points, 7, [](std::mt19937& chance) {
        return static_cast<Int>(chance() % 10 == 0 ? ARC_GROUND : ARC_PLAYER_ROAD);
    });
    std::ostringstream text;
    text << "<L Size=\"2000,2000\"><Points>";
    for (const sPointInfo& point : graph)
        text << "<P Pos=\"" << point.pos.x << ',' << point.pos.y << "\"/>";
    text << "</Points><Arcs>";
    for (const sPointInfo& point : graph) {
        for (const auto& [neighbour, arc] : point.arcs) {
            if (point.index < neighbour)
                text << "<A p1=\"" << point.index << "\" p2=\"" << neighbour << "\" Type=\"" << arc.type << "\"/>";
        }
    }
    text << "</Arcs><Buildings>" << startPoint("100,300", men) << buildings << "</Buildings></L>";
    return text.str();
}
