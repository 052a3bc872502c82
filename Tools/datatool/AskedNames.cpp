#include "Tools/datatool/AskedNames.h"

#include <algorithm>
#include <set>
#include <sstream>

#include "Engine/core/FileManager.h"
#include "Game/GameLogic/LevelObject.h"
#include "Game/Ui/Game.h"
#include "Tools/datatool/Documents.h"

namespace Datatool {

using namespace Engine;

namespace {

/// What one type of object is asked for. A name's parts in braces become one name for each value:
/// "{level}" and "{raised}" each level of "Upgrades", from 0 and from 1; "{step}" and "{part}" the steps of what it
/// holds, 0 to "cargo_levels_amount" and without the last; "{full}" the steps from 1; "{stone}" the stones of a
/// charge, from 1; "{pray}" the walks of one who carries an idol.
struct sLooks {
    Int type;
    const char* names;
};

constexpr char mill_looks[] = "wait_state_upgrade_{level} unload_button_{step}";

constexpr sLooks looks_of_types[] = {
    {objectWayPoint,
     "wp_neutral wp_enemy wp_player wp_border wp_hidden wp_neutral_base wp_enemy_base wp_player_base wp_border_base"},
    {objectIdol, "wait_state_upgrade_{level} wait_state_upgrade_{raised}_carried"},
    {objectPlayerCatapult,
     "wait_state_upgrade_{level} wait_state_upgrade_{raised}_charged_{stone} "
     "wait_state_upgrade_{raised}_bullet_{stone} "
     "wait_state_upgrade_{raised}_shot wait_state_upgrade_{raised}_shotting_bullet"},
    {objectEnemyCatapult,
     "wait_state_upgrade_1 wait_state_upgrade_1_charged_1 wait_state_upgrade_1_bullet_1 wait_state_upgrade_1_shot "
     "wait_state_upgrade_1_shotting_bullet"},
    {objectStartPoint, "init_state normal_state"},
    {objectWarehouse, "wait_state_upgrade_{level} cargo_{full}"},
    {objectIronMill, mill_looks},
    {objectStoneMill, mill_looks},
    {objectWoodMill, mill_looks},
    {objectFoodMill, mill_looks},
    {objectBridge,
     "wait_state_upgrade_0 wait_state_upgrade_1 wait_state_upgrade_2 wait_state_upgrade_1_closing caravan_leaves "
     "cargo_{part} bridge_tile bridge_tile_broken golden_flag silver_flag blue_flag"},
    {objectBunker, "init_state destroyed_state"},
    {objectPort, "init_state"},
    {objectShop, "init_state"},
    {objectFriendMan,
     "walk_no_cargo wait_no_cargo i_am_free collision upgrade upgrade_tool build_road build_road_tool "
     "walk_with_money walk_with_food walk_with_wood walk_with_stone walk_with_iron walk_with_money_tool "
     "walk_with_food_tool walk_with_wood_tool walk_with_stone_tool walk_with_iron_tool"},
    {objectEnemyMan,
     "walk_no_cargo wait_no_cargo walk_with_bag walk_with_bag_tool steal_res walk_with_bomb walk_with_bomb_tool "
     "plant_bomb plant_bomb_tool build_fence build_fence_tool destroy_road destroy_road_tool pray_idol "
     "walk_and_pray_{pray} run_with_flag silver_flag golden_flag "
     "blue_flag"},
};

constexpr char sounds[] =
    "btn_clicked wrong_action building_upgrade build_road mining_food mining_wood mining_stone mining_iron "
    "new_resource warehouse_full market_action steal_item next_level destroy friend_falls caravan_coming caravan_load "
    "silver_fanfar gold_fanfar gold_missed silver_missed enemy_run destroy_road enemy_pray take_idol shot charged";

/// And "product_1" and so on, the plans of the markets.
constexpr char texts[] =
    "restart_game save_restored save_lost save_failed not_enough costs build upgrade road in_progress "
    "in_progress_of_building in_progress_of_improvement buy_plan market market_visit stock stock_empty load_caravan "
    "send_caravan caravan_ready loading sending golden_flag silver_flag blue_flag sure_exit sure_replay skip_tutorial "
    "replay level_damaged go_back";

std::vector<String> splitWords(const char* text) {
    std::istringstream words{std::string(text)};
    std::vector<String> res;
    for (std::string word; words >> word;)
        res.emplace_back(word);
    return res;
}

/// The values of a part in braces, first and last.
struct sRange {
    Int first = 0;
    Int last = -1;
};

/// The most stones that a row of a definition charges a catapult with; 1 where none is told.
Int getStones(const iXML& definition) {
    Int most = 1;
    forEachChild(definition, "Upgrades", [&](UInt, const iXML& row) {
        iXML* charge = nullptr;
        if (row.get("ChargeCargo", charge))
            most = std::max(most, readInt(*charge, u"Stone", 0));
    });
    return most;
}

constexpr Int most_steps = 100;  ///< a number beyond it is a slip, and told of as a hundred looks that are missing

sRange getRange(const std::string& part, const iXML& definition) {
    const Int top_level = std::max(static_cast<Int>(countChildren(definition, "Upgrades")) - 1, 0);
    const Int steps = std::clamp(readInt(definition, u"cargo_levels_amount", 0), 0, most_steps);
    if (part == "level" || part == "raised")
        return {part == "level" ? 0 : 1, top_level};
    if (part == "step" || part == "full")
        return {part == "step" ? 0 : 1, steps};
    if (part == "part")
        return {0, steps - 1};
    if (part == "stone")
        return {1, std::min(getStones(definition), most_steps)};
    return {0, std::clamp(readInt(definition, u"walk_and_pray_anim_amount", 0), 0, most_steps) - 1};
}

/// Each name that a pattern of the table stands for.
void expand(const std::string& pattern, const iXML& definition, std::vector<String>& res) {
    const std::size_t open = pattern.find('{');
    if (open == std::string::npos) {
        res.emplace_back(pattern);
        return;
    }
    const std::size_t close = pattern.find('}', open);
    const sRange range = getRange(pattern.substr(open + 1, close - open - 1), definition);
    for (Int i = range.first; i <= range.last; ++i) {
        std::string name = pattern.substr(0, open);
        name.append(std::to_string(i)).append(pattern, close + 1);
        expand(name, definition, res);
    }
}

/// The ids of a list's children, of each document of these that can be read.
std::set<String> readIds(std::initializer_list<const char*> files, const char* list) {
    std::set<String> ids;
    for (const char* file : files) {
        if (!cFileManager::getInstance()->isExist(file))
            continue;
        try {
            forEachChild(cDocument(file).get(), list, [&](UInt, const iXML& child) {
                String id;
                readKey(child, u"id", id);
                ids.insert(id);
            });
        } catch (const std::string&) {
            // that it can't be read is told where every document is
        }
    }
    return ids;
}

void checkLooks(const std::function<void(const String& file, const String& what)>& find) {
    for (Int type = 0; type <= objectDamagedRoad; ++type) {
        const char* file = cLevelObject::getDefinitionFile(type);
        if (!file || !cFileManager::getInstance()->isExist(file))
            continue;
        try {
            const cDocument document(file);
            const std::set<String> looks = readIds({file}, "States");
            for (const String& look : getAskedLooks(type, document.get())) {
                if (!looks.contains(look))
                    find(file, "tag \"States\" has none with the id \"" + look + "\", which the game asks for");
            }
        } catch (const std::string&) {
            // told where every document is
        }
    }
}

}  // namespace

std::vector<String> getAskedLooks(Int type, const iXML& definition) {
    std::vector<String> res;
    for (const sLooks& looks : looks_of_types) {
        if (looks.type != type)
            continue;
        for (const String& pattern : splitWords(looks.names))
            expand(pattern, definition, res);
    }
    return res;
}

std::vector<String> getAskedSounds() {
    return splitWords(sounds);
}

std::vector<String> getAskedTexts() {
    std::vector<String> res = splitWords(texts);
    for (UInt product = 1; product < cGame::product_count; ++product)
        res.push_back(String("product_") + std::to_string(product));
    return res;
}

void checkAskedNames(const std::function<void(const String& file, const String& what)>& find) {
    checkLooks(find);
    const auto check = [&](const std::vector<String>& asked, std::initializer_list<const char*> files,
                           const char* list) {
        const auto is_there = [](const char* file) { return cFileManager::getInstance()->isExist(file); };
        if (std::ranges::none_of(files, is_there))
            return;
        const std::set<String> ids = readIds(files, list);
        for (const String& id : asked) {
            if (!ids.contains(id))
                find(*files.begin(),
                     String("tag \"") + list + "\" has none with the id \"" + id + "\", which the game asks for");
        }
    };
    check(getAskedSounds(), {"Sounds/GameSounds.xml"}, "Sounds");
    check(getAskedTexts(), {"GameStrings.xml", "YesNoStrings.xml"}, "Strings");
}

}  // namespace Datatool
