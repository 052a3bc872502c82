#pragma once

#include <algorithm>
#include <memory>
#include <string>
#include <vector>

#include "Game/GameLogic/goals/GoalsList.h"
#include "Tests/Support/RandomGraph.h"
#include "Tests/Support/SmallLevel.h"

/// A goal that takes down whom it was offered to.
class cAskingGoal : public cGoal {
public:
    explicit cAskingGoal(Bool takes) : cGoal(goalUpgrade), willing(takes) {}

    Bool assign(cMan* man) override {
        asked.push_back(man);
        return willing && sendToDst(man);
    }

    Bool willing;
    std::vector<const cMan*> asked;
};

/// A level on a grid with men strewn over it, for whom the dispatch runs in every frame. A third of its arcs are roads;
/// fences of the enemy's bar some of the others. Many ways are as long as others but for the order of their arcs, so
/// that roundings show.
class cDispatchLevel : public cSmallLevel {
public:
    static constexpr Int mill_point = 1;

    void start(std::size_t points, Int men, std::uint32_t seed = 7) {
        getProgram().write("GameUI/TacticMap.xml",
                           "<Map global_pitch=\"50\" BirdsPossibility=\"0\" CloudsPossibility=\"0\" "
                           "new_level_effect_time=\"0.1\" man_idle_time=\"100000\" passby_distance=\"0\" "
                           "push_off_distance=\"0\" tasks_process_delay=\"0\"/>");
        cSmallLevel::start(makeLevel(points, seed));
        frames(100);  // the caravan comes, without men
        std::mt19937 chance(seed);
        for (Int i = 0; i < men; ++i)
            getMap().setUpInitMan(static_cast<Int>(chance() % points));
        barSomeWays(chance);
        frames(20);  // the dispatch has begun
    }

    /// What the dispatch has to come to: each man's way measured by itself. Those without one are left out.
    std::vector<const cMan*> sortByOneSearchAMan(Int target) {
        struct sEntry {
            Float distance;
            const cMan* man;
        };
        std::vector<sEntry> entries;
        PATH_HOLDER path;
        for (const cFriendMan* man : getMap().getFreeMenList()) {
            if (getMap().getBestPathByRoads(man, man->getPoint(), target, path, true, true, false))
                entries.push_back({getMap().getPathLength(path), man});
        }
        std::stable_sort(entries.begin(), entries.end(),
                         [](const sEntry& a, const sEntry& b) { return a.distance < b.distance; });
        std::vector<const cMan*> res;
        for (const sEntry& entry : entries)
            res.push_back(entry.man);
        return res;
    }

private:
    /// By fences that are there for the search alone.
    void barSomeWays(std::mt19937& chance) {
        for (const sPointInfo& point : getMap().getPoints()) {
            for (const auto& [neighbour, arc] : point.arcs) {
                if (point.index < neighbour && arc.type == ARC_GROUND && chance() % 60 == 0)
                    getMap().setArcType(point.index, neighbour, ARC_ENEMY_FENCE);
            }
        }
    }
    /// Neighbours are joined along rows, columns and one diagonal.
    static POINTS makeGrid(Int count, std::uint32_t seed) {
        constexpr Int columns = 25;
        std::mt19937 chance(seed);
        POINTS points(static_cast<std::size_t>(count));
        for (Int i = 0; i < count; ++i) {
            sPointInfo& point = points[static_cast<std::size_t>(i)];
            point.index = i;
            point.pos = {static_cast<Float>(50 + i % columns * 71), static_cast<Float>(50 + i / columns * 53)};
            for (const Int step : {1, columns, columns + 1}) {
                const Bool is_in_row = step == columns || i % columns > 0;
                if (i >= step && is_in_row)
                    addArc(points, i, i - step, chance() % 3 == 0 ? ARC_PLAYER_ROAD : ARC_GROUND);
            }
        }
        return points;
    }
    static std::string makeLevel(std::size_t count, std::uint32_t seed) {
        const POINTS points = makeGrid(static_cast<Int>(count), seed);
        const auto to_text = [](const Vector2& place) {
            return std::to_string(static_cast<Int>(place.x)) + "," + std::to_string(static_cast<Int>(place.y));
        };
        std::string list;
        std::string arcs;
        for (const sPointInfo& point : points) {
            list.append("<P Pos=\"").append(to_text(point.pos)).append("\"/>");
            for (const auto& [neighbour, arc] : point.arcs) {
                if (neighbour < point.index)
                    continue;
                arcs.append("<A Type=\"").append(std::to_string(arc.type)).append("\" p1=\"");
                arcs.append(std::to_string(point.index)).append("\" p2=\"").append(std::to_string(neighbour));
                arcs.append("\"/>");
            }
        }
        return "<L Size=\"2000,2000\"><Points>" + list + "</Points><Arcs>" + arcs + "</Arcs><Buildings>" +
               startPoint(to_text(points[0].pos), 0) + "<B Type=\"12\" Position=\"" + to_text(points[mill_point].pos) +
               "\"><Points><P index=\"" + std::to_string(mill_point) + "\"/></Points></B></Buildings></L>";
    }
};
