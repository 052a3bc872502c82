#include "Game/GameUI/Tactic/TacticConstants.h"

#include <algorithm>
#include <numbers>

#include <glm/trigonometric.hpp>

#include "Engine/Ui/LoadView.h"
#include "Engine/core/CallStack.h"
#include "Engine/core/Keys.h"
#include "Engine/core/iXML.h"

using namespace Engine;

void sTacticConstants::loadXML(const iXML* xml) {
    ENGINE_MARK;
    Float degrees = 0.0f;
    readKey(*xml, u"global_pitch", degrees);
    global_pitch = glm::radians(degrees);
    readKey(*xml, u"man_idle_time", man_idle_time);
    readKey(*xml, u"CloudsPeriod", clouds_period);
    readKey(*xml, u"CloudsPossibility", clouds_possibility);
    readKey(*xml, u"CloudsDestination", clouds_destination);
    readKey(*xml, u"BirdsPossibility", birds_possibility);
    Float game_speed_period = 0.0f;
    readKey(*xml, u"game_speed_period", game_speed_period);
    game_speed_factor = std::numbers::pi_v<Float> * 0.5f / (game_speed_period == 0.0f ? 1.0f : game_speed_period);
    readKey(*xml, u"max_game_speed", max_game_speed);
    readKey(*xml, u"road_building_speed", road_building_speed);
    readKey(*xml, u"anti_glue_distance", anti_glue_distance);
    readKey(*xml, u"anti_glue_speed", anti_glue_speed);
    readKey(*xml, u"tasks_process_delay", tasks_process_delay);
    for (const auto& [key, squared] :
         {std::pair(u"passby_distance", &passby_distance), std::pair(u"push_off_distance", &push_off_distance)}) {
        Float distance = 0.0f;
        if (readKey(*xml, key, distance))
            *squared = distance * distance;
    }
    readKey(*xml, u"passby_buffer_zone", passby_buffer_zone);
    readKey(*xml, u"push_off_time", push_off_time);
    readKey(*xml, u"pray_time", pray_time);
    readKey(*xml, u"disappear_speed", disappear_speed);
    readKey(*xml, u"new_level_effect_time", new_level_effect_time);
    readKey(*xml, u"new_level_alpha_factor", new_level_alpha_factor);
    readKey(*xml, u"new_level_startup_delta", new_level_startup_delta);
    readKey(*xml, u"new_level_show_bridges", new_level_show_bridges);
    readKey(*xml, u"new_level_hide_bridges", new_level_hide_bridges);
    new_level_show_bridges *= new_level_effect_time;
    new_level_hide_bridges *= new_level_effect_time;
    loadChild(road_cost, xml, "RoadCost");
    readKey(*xml, u"land_base_dir", land_base_dir);
    readKey(*xml, u"top_tile_prefix", top_tile_prefix);
    readKey(*xml, u"bottom_tile_prefix", bottom_tile_prefix);
}
