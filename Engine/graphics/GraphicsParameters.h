#pragma once

#include <vector>

#include "Engine/core/Types.h"

namespace Engine {

/// One light of a configuration.
struct sLight {
    Int type = 0;  ///< 1 point, 2 spot, 3 directional
    DXColor diffuse;
    DXColor specular;
    DXColor ambient;
    Vector3 position{0.0f};
    Vector3 direction{0.0f};
    Float range = 0.0f;
    Float falloff = 0.0f;
    Float attenuation0 = 0.0f;
    Float attenuation1 = 0.0f;
    Float attenuation2 = 0.0f;
    Float theta = 0.0f;  ///< inner cone, radians
    Float phi = 0.0f;    ///< outer cone, radians
};

/// The lights that a unit's light_table names.
struct sLightConfig {
    DXColor ambient;
    std::vector<sLight> lights;
};

/// What the renderer reads from the settings (the first four) and the constants, section "graphics" of each; the
/// lights from the constants' sections "lightConfig" and "lights0", "lights1" and so on.
struct sGraphicsParameters {
    UInt width = 800;   ///< logical screen
    UInt height = 600;  ///< logical screen
    Bool fullscreen = false;
    UInt reserve_sprite_count = 1024;  ///< sprites that a frame's buffers hold at start

    DXColor sys_font_color;
    Bool show_triangles = false;  ///< wireframe, and their number in the overlay
    Bool show_fps = false;
    Bool show_cursor_pos = false;
    DXColor back_color{0, 0, 0, 1};
    std::vector<sLightConfig> light_configs;

    /// Takes over what the settings and the constants hold, as far as these exist. Sizes and counts beyond all reason
    /// are left as they were.
    void read();
    /// Writes the first four to the settings, if these exist.
    void save() const;
};

}  // namespace Engine
