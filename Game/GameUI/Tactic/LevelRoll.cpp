#include "Game/GameUI/Tactic/LevelRoll.h"

#include <algorithm>
#include <cmath>
#include <numbers>

void cLevelRoll::start(eDirection direction, const std::vector<Engine::cControl*>& tiles, Float time,
                       Float alpha_factor, Float startup_delta, const Vector2& place) {
    constexpr Float least_time = 0.001f;  // seconds: nothing is divided by 0
    constexpr Float least_factor = 0.001f;
    m_direction = direction;
    m_time = std::max(time, least_time);
    m_left = m_time;
    m_startup_delta = std::max(startup_delta, least_factor);  // else it would never begin
    m_tiles.clear();
    for (Engine::cControl* tile : tiles) {
        cNewLevelEffect& effect = m_tiles.emplace_back(*tile);
        effect.setEffectBegin(m_time, place, m_startup_delta, std::max(alpha_factor, least_factor));
        if (direction == out) {
            effect.restoreValues();
            effect.setEffectEnd(m_time, alpha_factor);
        }
    }
}

Float cLevelRoll::advance(Float dt) {
    const Float phase = std::numbers::pi_v<Float> / m_time * m_left;
    const Float step = (std::max(0.0f, std::sin(phase)) + m_startup_delta) * dt;
    m_left -= step;
    for (cNewLevelEffect& tile : m_tiles)
        tile.increase(step);
    return step;
}

void cLevelRoll::finish() {
    for (cNewLevelEffect& tile : m_tiles)
        tile.restoreValues();
    clear();
}

void cLevelRoll::clear() {
    m_direction = none;
    m_tiles.clear();
}
