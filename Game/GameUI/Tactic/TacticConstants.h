#pragma once

#include "Game/GameLogic/ResourceCargo.h"
#include "Game/Types.h"

namespace Engine {
class iXML;
}

/// What is the same on all levels: the numbers of "GameUI/TacticMap.xml". Times are seconds, distances units.
struct sTacticConstants {
    /// Each key as it is called here but for those named below; a missing one leaves the default.
    void loadXML(const Engine::iXML* xml);

    Float global_pitch = 0.0f;  ///< the tilt that the map is seen under, radians; degrees in the file
    Float man_idle_time = 0.0f;
    Float clouds_period = 60.0f;        ///< "CloudsPeriod"
    Float clouds_possibility = 0.5f;    ///< "CloudsPossibility", of a cloud in each period, 0 to 1
    Float clouds_destination = 500.0f;  ///< "CloudsDestination": how far outside the screen clouds begin and end
    Int birds_possibility = 1;          ///< "BirdsPossibility": one bird in so many frames
    Float game_speed_factor = 1.0f;     ///< a quarter turn by "game_speed_period", radians a second
    Float max_game_speed = 1.0f;
    Float road_building_speed = 0.0f;
    Float anti_glue_distance = 20.0f;
    Float anti_glue_speed = 0.5f;
    Float tasks_process_delay = 0.25f;
    Float passby_distance = 10.0f * 10.0f;    ///< squared
    Float passby_buffer_zone = 0.8f;          ///< part of passby_distance in which nothing happens
    Float push_off_distance = 10.0f * 10.0f;  ///< squared
    Float push_off_time = 3.0f;
    Float pray_time = 2.0f;
    Float disappear_speed = 800.0f;
    Float new_level_effect_time = 2.0f;
    Float new_level_alpha_factor = 0.3f;
    Float new_level_startup_delta = 0.001f;
    Float new_level_show_bridges = 0.0f;  ///< in the file a part of new_level_effect_time
    Float new_level_hide_bridges = 0.0f;  ///< in the file a part of new_level_effect_time
    sResourceCargo road_cost;             ///< "RoadCost", of one section
    String land_base_dir;
    String top_tile_prefix;
    String bottom_tile_prefix;
};
