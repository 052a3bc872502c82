#include "Game/GameLogic/men/tasks/RingApproach.h"

#include <cmath>
#include <numbers>

#include "Game/GameLogic/Angles.h"
#include "Game/GameLogic/ArrangementUnit.h"
#include "Game/GameLogic/Movable.h"

namespace {

constexpr Float one_step = 4.0f;  ///< units

Vector2 getPlace(const cArrangementUnit& unit, Float angle) {
    Vector2 res;
    unit.getEllipsePosition(res, angle);
    return res;
}

}  // namespace

Float getDistanceToRing(const cArrangementUnit& unit, const Vector2& place) {
    constexpr Float pi = std::numbers::pi_v<Float>;
    const Vector2 right = getPlace(unit, 0.0f);
    const Vector2 left = getPlace(unit, pi);
    const Vector2 center = (right + left) * 0.5f;
    const Vector2 half(right.x - center.x, getPlace(unit, pi * 0.5f).y - center.y);
    const Vector2 way = place - center;
    if (!(half.x > 0.0f) || !(half.y > 0.0f))
        return glm::length(way);
    const Float angle = std::atan2(way.y / half.y, way.x / half.x);
    return glm::distance(place, getPlace(unit, angle));
}

Bool isAwayFromRing(const cArrangementUnit& unit, const Vector2& place) {
    return getDistanceToRing(unit, place) > one_step;
}

void cRingApproach::start(const cArrangementUnit& unit, const iMovable& object, Float angle, Float speed) {
    m_speed = speed;
    m_offset = speed > 0.0f ? object.getMovablePosition() - getPlace(unit, angle) : Vector2(0.0f);
}

Bool cRingApproach::isFar() const {
    return glm::dot(m_offset, m_offset) > one_step * one_step;
}

void cRingApproach::process(const cArrangementUnit& unit, iMovable& object, Float angle, Float yaw, Float step) {
    const Float length = glm::length(m_offset);
    const Float way = m_speed * step;
    if (isFar()) {
        const Float present = object.getMovableYaw();
        const Float turn = angleDifference(present, angleOf(-m_offset));
        yaw = present + turn * (way < object.getTurnDistance() ? way / object.getTurnDistance() : 1.0f);
    }
    m_offset = length > way ? m_offset * (1.0f - way / length) : Vector2(0.0f);
    object.setMovablePosition(getPlace(unit, angle) + m_offset);
    object.setMovableYaw(yaw);
}
