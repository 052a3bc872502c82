#include "Game/GameLogic/Angles.h"

#include <cmath>
#include <numbers>

namespace {

constexpr Float pi = std::numbers::pi_v<Float>;

}  // namespace

Float angleDifference(Float from, Float to) {
    const Float difference = to - from;
    if (std::abs(difference) <= pi)
        return difference;
    const Float res = std::remainder(difference, 2.0f * pi);
    return std::isfinite(res) ? res : 0.0f;
}

void normalizeAngle(Float& angle) {
    angle = angleDifference(0.0f, angle);
}

Float vectorAngle(const Vector2& v) {
    return angleOf({v.x, -v.y});
}

Float angleOf(const Vector2& v) {
    const Float length = glm::length(v);
    if (!(length > 0.0f))
        return 0.0f;
    const Float x = v.x / length;
    if (x >= 1.0f)
        return 0.0f;
    if (x <= -1.0f)
        return pi;
    return v.y < 0.0f ? -std::acos(x) : std::acos(x);
}

Float projectedYaw(Float dx, Float dy, Float pitch) {
    return std::atan2((std::sin(pitch) + 1.0f) * dy, dx);
}

Float screenAngle(Float x, Float y, Float tilt) {
    return projectedYaw(x, y, tilt);
}
