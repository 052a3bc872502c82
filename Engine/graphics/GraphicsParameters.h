#pragma once

#include <vector>

#include "Engine/core/Types.h"
#include "Engine/graphics/Lighting.h"

namespace Engine {

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
