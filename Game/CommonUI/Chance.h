#pragma once

#include <numbers>

#include "Engine/core/Random.h"
#include "Game/Types.h"

/// One draw of the game's generator as a number from low to high, both ends included.
inline Float drawBetween(Float low, Float high) {
    const Float chance = static_cast<Float>(Engine::random().next()) / static_cast<Float>(Engine::cRandom::max_value);
    return low + (high - low) * chance;
}

/// An angle of a full turn, radians; one draw.
inline Float drawAngle() {
    return drawBetween(0.0f, 2.0f * std::numbers::pi_v<Float>);
}
