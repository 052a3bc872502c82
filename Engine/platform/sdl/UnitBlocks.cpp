#include "Engine/platform/sdl/UnitBlocks.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <glm/geometric.hpp>

namespace Engine::Platform {

void cUnitBlocks::clear() {
    m_bytes.clear();
    m_lights.clear();
}

std::size_t cUnitBlocks::beginBlock() {
    m_bytes.resize((m_bytes.size() + m_alignment - 1) / m_alignment * m_alignment);
    return m_bytes.size();
}

void cUnitBlocks::addRow(Float x, Float y, Float z, Float w) {
    const Float row[4] = {x, y, z, w};
    const std::size_t place = m_bytes.size();
    m_bytes.resize(place + sizeof(row));
    std::memcpy(&m_bytes[place], row, sizeof(row));
}

void cUnitBlocks::addMatrix(const Matrix& matrix) {
    for (int row = 0; row < 3; ++row)
        addRow(matrix[0][row], matrix[1][row], matrix[2][row], matrix[3][row]);
}

sUnitBlocks cUnitBlocks::add(const sUnitDraw& unit) {
    sUnitBlocks res;
    res.lights = addLights(unit.lights);
    res.surface = beginBlock();
    const sMaterial& material = *unit.material;
    for (const DXColor* color : {&material.diffuse, &material.ambient, &material.specular, &material.emissive})
        addRow(*color);
    addRow(material.power, unit.lights ? 1.0f : 0.0f, 0.0f, 0.0f);
    res.bones = beginBlock();
    for (const Matrix& matrix : unit.world)
        addMatrix(matrix);
    return res;
}

std::size_t cUnitBlocks::addLights(const sLightConfig* config) {
    const auto known = std::find_if(m_lights.begin(), m_lights.end(),
                                    [=](const sKnownLights& entry) { return entry.config == config; });
    if (known != m_lights.end())
        return known->place;

    const std::size_t place = beginBlock();
    const std::size_t count = config ? std::min<std::size_t>(config->lights.size(), sLightConfig::max_lights) : 0;
    addRow(config ? config->ambient : DXColor());
    addRow(static_cast<Float>(count), 0.0f, 0.0f, 0.0f);
    for (std::size_t i = 0; i < count; ++i)
        addLight(config->lights[i]);
    m_lights.push_back({config, place});
    return place;
}

void cUnitBlocks::addLight(const sLight& light) {
    const Float length = glm::length(light.direction);
    const Vector3 direction = length > 0.0f ? light.direction / length : Vector3(0.0f, 0.0f, -1.0f);
    const Bool weakens = light.attenuation0 != 0.0f || light.attenuation1 != 0.0f || light.attenuation2 != 0.0f;
    addRow(light.diffuse);
    addRow(light.specular);
    addRow(light.ambient);
    addRow(light.position.x, light.position.y, light.position.z, static_cast<Float>(light.type));
    addRow(direction.x, direction.y, direction.z, light.range);
    addRow(weakens ? light.attenuation0 : 1.0f, light.attenuation1, light.attenuation2, light.falloff);
    addRow(std::cos(light.theta * 0.5f), std::cos(light.phi * 0.5f), 0.0f, 0.0f);
}

void cUnitBlocks::close() {
    m_bytes.resize(m_bytes.size() + std::max(bones_size, lights_size));
}

}  // namespace Engine::Platform
