#include "Tools/datatool/LevelCheck.h"

#include <algorithm>
#include <array>
#include <set>
#include <utility>
#include <vector>

#include "Engine/core/FileManager.h"
#include "Game/GameLogic/LevelObject.h"
#include "Game/GameUI/Tactic/LevelFile.h"
#include "Game/GameUI/Tactic/LevelGraph.h"
#include "Game/GameUI/Tactic/TacticConstants.h"
#include "Game/Ui/Game.h"
#include "Tools/datatool/Documents.h"

namespace Datatool {

using namespace Engine;

namespace {

constexpr Int first_building = objectIdol;
constexpr Int last_building = objectShop;
constexpr UInt rows_of_a_bridge = 2;
constexpr UInt fences_at_a_point = 2;  ///< of one side

String tellArc(Int a, Int b) {
    return std::to_string(a) + " - " + std::to_string(b);
}

/// Looks at one level. What the game itself would refuse is thrown by the readers that it uses.
class cLevelCheck {
public:
    cLevelCheck(Int level, const iXML& tag, const COMPLAINT& complain)
        : m_level(level), m_tag(tag), m_file(level), m_complain(complain) {}

    void run(const sTacticConstants& constants) {
        m_file.readGraph(m_graph, m_size);
        m_building_of.assign(m_graph.getPoints().size(), -1);
        checkPlaces();
        checkArcs();
        checkBuildings();
        checkLonelyPoints();
        checkWayToWin();
        checkTiles(constants);
    }

private:
    void complain(const String& what) const { m_complain(cLevelFile::getName(m_level) + what); }
    void complain(const char* list, UInt index, const String& what) const {
        complain(String(", ") + list + " " + std::to_string(index) + ": " + what);
    }

    Bool isOnMap(const Vector2& place) const {
        return place.x >= 0.0f && place.y >= 0.0f && place.x <= m_size.x && place.y <= m_size.y;
    }

    void checkPlaces() {
        if (!(m_size.x > 0.0f) || !(m_size.y > 0.0f))
            complain(": \"Size\" is missing or nothing");
        for (const sPointInfo& point : m_graph.getPoints()) {
            if (!isOnMap(point.pos))
                complain("Points", static_cast<UInt>(point.index), "\"Pos\" lies outside of \"Size\"");
        }
    }

    void checkArcs() {
        std::set<std::pair<Int, Int>> pairs;
        forEachChild(m_tag, "Arcs", [&](UInt index, const iXML& tag) {
            const Int a = readInt(tag, u"p1", 0);
            const Int b = readInt(tag, u"p2", 0);
            if (!pairs.emplace(std::minmax(a, b)).second)
                complain("Arcs", index, "the arc " + tellArc(a, b) + " is there twice; the later one counts");
        });
        for (const sPointInfo& point : m_graph.getPoints()) {
            std::array<UInt, arc_type_count> fences{};
            for (const auto& [neighbour, arc] : point.arcs)
                ++fences[static_cast<std::size_t>(arc.type)];
            const auto check = [&](Int standing, Int site, const char* whose) {
                const UInt count = fences[static_cast<std::size_t>(standing)] + fences[static_cast<std::size_t>(site)];
                if (count > fences_at_a_point)
                    complain(
                        "Points", static_cast<UInt>(point.index),
                        std::to_string(count) + " fences of " + whose + " meet; gates can stand between two alone");
            };
            check(ARC_PLAYER_FENCE, ARC_PLAYER_FENCE_SITE, "the player");
            check(ARC_ENEMY_FENCE, ARC_ENEMY_FENCE_SITE, "the enemy");
        }
    }

    void requirePoint(UInt index, const iXML& tag, const char16_t* key, const char* name) const {
        const Int point = readInt(tag, key, -1);
        if (point != -1 && !m_graph.hasPoint(point))
            complain("Buildings", index,
                     String("\"") + name + "\" is " + std::to_string(point) + ", which is no point");
    }

    void requireLevel(UInt index, const iXML& tag, const char16_t* key, const char* name) const {
        const Int level = readInt(tag, key, -1);
        if (level < -1 || level >= cLevelFile::getLevelCount())
            complain("Buildings", index,
                     String("\"") + name + "\" is " + std::to_string(level) + ", which is no level");
    }

    void checkBuildings() {
        forEachChild(m_tag, "Buildings", [&](UInt index, const iXML& tag) {
            const Int type = readInt(tag, u"Type", -1);
            if (type < first_building || type > last_building)
                return complain("Buildings", index, "\"Type\" is " + std::to_string(type) + ", which is no building");
            Vector2 position{0.0f, 0.0f};
            readKey(tag, u"Position", position);
            if (!isOnMap(position))
                complain("Buildings", index, "\"Position\" lies outside of \"Size\"");
            checkUnderPoints(index, tag);
            checkOwnKeys(index, type, tag);
        });
    }

    void checkUnderPoints(UInt index, const iXML& tag) {
        forEachChild(tag, "Points", [&](UInt, const iXML& under) {
            const Int point = readInt(under, u"index", -1);
            if (!m_graph.hasPoint(point))
                return complain("Buildings", index, "there is no point " + std::to_string(point) + " to stand on");
            Int& building = m_building_of[static_cast<std::size_t>(point)];
            if (building != -1)
                complain(
                    "Buildings", index,
                    "point " + std::to_string(point) + " lies under building " + std::to_string(building) + " already");
            building = static_cast<Int>(index);
        });
        if (countChildren(tag, "Points") == 0)
            complain("Buildings", index, "it stands on no point");
    }

    void checkOwnKeys(UInt index, Int type, const iXML& tag) {
        if (type == objectStartPoint) {
            requireLevel(index, tag, u"PrevLevel", "PrevLevel");
            ++m_start_points;
            m_start_building = static_cast<Int>(index);
        } else if (type == objectBridge) {
            requireLevel(index, tag, u"NextLevel", "NextLevel");
            if (countChildren(tag, "Upgrades") >= rows_of_a_bridge)
                m_ways_out.push_back(static_cast<Int>(index));
            else
                complain("Buildings", index,
                         "a bridge needs two rows of \"Upgrades\", its repair and its caravan's load");
        } else if (type == objectBunker) {
            m_bunkers.insert(static_cast<Int>(index));
        } else if (type == objectEnemyCatapult) {
            requirePoint(index, tag, u"src_point", "src_point");
            requirePoint(index, tag, u"dst_point", "dst_point");
        } else if (type == objectShop || type == objectPort) {
            checkTrades(index, tag);
        }
        forEachChild(tag, "Tasks", [&](UInt, const iXML& task) {
            requirePoint(index, task, u"goal_src", "goal_src");
            requirePoint(index, task, u"goal_dst", "goal_dst");
            requirePoint(index, task, u"dock_number", "dock_number");
        });
    }

    void checkTrades(UInt index, const iXML& tag) const {
        std::set<String> ids;
        const auto read = [](const iXML& task, const char16_t* key) {
            String res;
            readKey(task, key, res);
            return res;
        };
        forEachChild(tag, "Tasks", [&](UInt, const iXML& task) {
            const String id = read(task, u"id");
            if (!ids.insert(id).second)
                complain("Buildings", index, "two trades are called \"" + id + "\"");
        });
        forEachChild(tag, "Tasks", [&](UInt, const iXML& task) {
            const String depends = read(task, u"depends");
            if (!depends.empty() && depends != "no" && !ids.contains(depends))
                complain("Buildings", index, "a trade depends on \"" + depends + "\", which is none of them");
            const Int product = readInt(task, u"product_id", -1);
            if (product < -1 || product >= static_cast<Int>(cGame::product_count))
                complain("Buildings", index, "there is no product " + std::to_string(product));
        });
    }

    void checkLonelyPoints() const {
        for (const sPointInfo& point : m_graph.getPoints()) {
            if (point.arcs.empty() && m_building_of[static_cast<std::size_t>(point.index)] == -1)
                complain("Points", static_cast<UInt>(point.index), "no arc leads there");
        }
    }

    /// What the player can walk or build, in the end: all but water and where only the enemy builds bridges.
    static Bool isOpen(Int arc_type) { return arc_type != ARC_WATER && arc_type != ARC_ENEMY_BRIDGE_SITE; }

    /// The points that the player can come to; what stands on several joins them, and a bunker shuts its own.
    std::vector<char> findReach(Int from) const {
        std::vector<std::vector<Int>> joined;
        for (std::size_t point = 0; point < m_building_of.size(); ++point) {
            if (m_building_of[point] == -1)
                continue;
            joined.resize(std::max(joined.size(), static_cast<std::size_t>(m_building_of[point]) + 1));
            joined[static_cast<std::size_t>(m_building_of[point])].push_back(static_cast<Int>(point));
        }
        std::vector<char> reached(m_building_of.size(), 0);
        std::vector<Int> open{from};
        const auto reach = [&](Int point) {
            if (m_bunkers.contains(m_building_of[static_cast<std::size_t>(point)]))
                return;
            if (!std::exchange(reached[static_cast<std::size_t>(point)], char{1}))
                open.push_back(point);
        };
        reached[static_cast<std::size_t>(from)] = 1;
        while (!open.empty()) {
            const Int point = open.back();
            open.pop_back();
            for (const auto& [neighbour, arc] : m_graph.getPoint(point).arcs) {
                if (isOpen(arc.type))
                    reach(neighbour);
            }
            if (const Int building = m_building_of[static_cast<std::size_t>(point)]; building != -1)
                std::ranges::for_each(joined[static_cast<std::size_t>(building)], reach);
        }
        return reached;
    }

    Int getPointOf(Int building) const {
        const auto found = std::ranges::find(m_building_of, building);
        return found == m_building_of.end() ? -1 : static_cast<Int>(found - m_building_of.begin());
    }

    void checkWayToWin() const {
        if (m_start_points != 1) {
            complain(m_start_points == 0 ? ": there is no start point"
                                         : ": " + std::to_string(m_start_points) + " start points; one is asked for");
            return;
        }
        const Int start = getPointOf(m_start_building);
        if (m_ways_out.empty()) {
            complain(": there is no bridge that can be loaded, so nobody can win it");
            return;
        }
        if (start == -1)
            return;
        const std::vector<char> reached = findReach(start);
        const Bool can_win = std::ranges::any_of(m_ways_out, [&](Int bridge) {
            const Int point = getPointOf(bridge);
            return point != -1 && reached[static_cast<std::size_t>(point)];
        });
        if (!can_win)
            complain(": no way leads from the start point to a bridge, so nobody can win it");
    }

    void checkTiles(const sTacticConstants& constants) const {
        enum eTileType : Int { landTile = 0, waterTile = 2 };

        std::set<String> missing;
        forEachChild(m_tag, "BackGround", [&](UInt index, const iXML& tag) {
            const Int type = readInt(tag, u"Type", -1);
            String name;
            readKey(tag, u"Picture", name);
            std::vector<String> pictures;
            if (type == landTile) {
                for (const String& prefix : {constants.bottom_tile_prefix, constants.top_tile_prefix})
                    pictures.push_back(constants.land_base_dir + prefix + name);
            } else if (type != waterTile && !name.empty()) {
                pictures.push_back(name);
            }
            for (const String& picture : pictures) {
                if (!cFileManager::getInstance()->isExist(picture) && missing.insert(picture).second)
                    complain("BackGround", index, "there is no picture \"" + picture + "\"");
            }
        });
    }

    Int m_level;
    const iXML& m_tag;
    cLevelFile m_file;
    const COMPLAINT& m_complain;
    cLevelGraph m_graph;
    Vector2 m_size{0.0f, 0.0f};
    std::vector<Int> m_building_of;  ///< by point; -1: none
    std::vector<Int> m_ways_out;     ///< bridges with what it takes to win
    std::set<Int> m_bunkers;
    Int m_start_building = -1;
    Int m_start_points = 0;
};

/// The prefixes of land tiles; their defaults where the map has no file that can be read.
sTacticConstants readConstants() {
    sTacticConstants constants;
    try {
        constants.loadXML(&cDocument("GameUI/TacticMap.xml").get());
    } catch (const std::string&) {
        // told where every document is
    }
    return constants;
}

}  // namespace

void checkLevels(const COMPLAINT& complain) {
    const cDocument document(cLevelFile::path);
    findUnknownKeys(cLevelFile::path, document.get(), complain);
    const sTacticConstants constants = readConstants();
    if (cLevelFile::getLevelCount() == 0)
        complain("there is no level in it");
    for (Int level = 0; level < cLevelFile::getLevelCount(); ++level) {
        iXML* tag = nullptr;
        document.get().get(static_cast<UInt>(level), tag);
        try {
            cLevelCheck(level, *tag, complain).run(constants);
        } catch (const std::string& text) {
            complain(text);
        } catch (const char* text) {
            complain(cLevelFile::getName(level) + ": " + text);
        }
    }
}

}  // namespace Datatool
