#include "Engine/graphics/GraphicsParameters.h"

#include "Engine/core/CallStack.h"
#include "Engine/core/Constants.h"
#include "Engine/core/Settings.h"

namespace Engine {

namespace {

constexpr Int max_side = 8192;                                          ///< of the logical screen, units
constexpr UInt max_reserve = 256 * 1024;                                ///< sprites; some 30 MB
constexpr Int max_lights = static_cast<Int>(sLightConfig::max_lights);  ///< and as many configurations

void readSide(cSettings& settings, const char* name, UInt& side) {
    Int value = 0;
    if (settings.getProperty("graphics", name, value) && value > 0 && value <= max_side)
        side = static_cast<UInt>(value);
}

/// The number under that name, 0 if it is absent or absurd.
Int readCount(cConstants& constants, const String& section) {
    Int count = 0;
    constants.getProperty(section, "count", count);
    return count > 0 && count <= max_lights ? count : 0;
}

sLight readLight(cConstants& constants, const String& section, const String& prefix) {
    sLight light;
    const auto read = [&](const char* name, auto& value) { constants.getProperty(section, prefix + name, value); };
    read("type", light.type);
    read("diffuse", light.diffuse);
    read("specular", light.specular);
    read("ambient", light.ambient);
    read("position", light.position);
    read("direction", light.direction);
    read("range", light.range);
    read("falloff", light.falloff);
    read("attenuation0", light.attenuation0);
    read("attenuation1", light.attenuation1);
    read("attenuation2", light.attenuation2);
    read("theta", light.theta);
    read("phi", light.phi);
    return light;
}

std::vector<sLightConfig> readLightConfigs(cConstants& constants) {
    std::vector<sLightConfig> configs(static_cast<std::size_t>(readCount(constants, "lightConfig")));
    for (std::size_t i = 0; i < configs.size(); ++i) {
        const String section = "lights" + std::to_string(i);
        constants.getProperty(section, "ambient", configs[i].ambient);
        const Int count = readCount(constants, section);
        for (Int j = 0; j < count; ++j)
            configs[i].lights.push_back(readLight(constants, section, "light_" + std::to_string(j) + "_"));
    }
    return configs;
}

}  // namespace

void sGraphicsParameters::read() {
    ENGINE_MARK;
    if (cSettings* settings = cSettings::getInstance()) {
        readSide(*settings, "width", width);
        readSide(*settings, "height", height);
        settings->getProperty("graphics", "fullscreen", fullscreen);
        UInt reserve = 0;
        if (settings->getProperty("graphics", "reserve_sprite_count", reserve) && reserve > 0 && reserve <= max_reserve)
            reserve_sprite_count = reserve;
    }
    if (cConstants* constants = cConstants::getInstance()) {
        constants->getProperty("graphics", "sys_font_color", sys_font_color);
        constants->getProperty("graphics", "show_triangles", show_triangles);
        constants->getProperty("graphics", "show_fps", show_fps);
        constants->getProperty("graphics", "show_cursor_pos", show_cursor_pos);
        constants->getProperty("graphics", "back_color", back_color);
        light_configs = readLightConfigs(*constants);
    }
}

void sGraphicsParameters::save() const {
    ENGINE_MARK;
    cSettings* settings = cSettings::getInstance();
    if (!settings)
        return;
    settings->setProperty("graphics", "width", static_cast<Int>(width));
    settings->setProperty("graphics", "height", static_cast<Int>(height));
    settings->setProperty("graphics", "fullscreen", fullscreen);
    settings->setProperty("graphics", "reserve_sprite_count", reserve_sprite_count);
}

}  // namespace Engine
