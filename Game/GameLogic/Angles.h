#pragma once

#include "Game/Types.h"

// Angles are radians. On the map they grow clockwise, since y points down.

/// to - from, brought into -pi .. pi by whole turns.
Float angleDifference(Float from, Float to);
/// Brings an angle into -pi .. pi.
void normalizeAngle(Float& angle);
/// The angle of a vector by the arc cosine of its direction's x, negative where y is above 0: as controls turn, against
/// the clock. 0 and pi where the direction is the x axis itself, and 0 for a vector of no length.
Float vectorAngle(const Vector2& v);
/// The same, negative where y is below 0: as the map turns, with the clock.
Float angleOf(const Vector2& v);
/// The direction on the ground of a way that is dx, dy long on a map seen under that pitch.
Float projectedYaw(Float dx, Float dy, Float pitch);
/// The angle of a direction on the tilted ground plane, for pictures.
Float screenAngle(Float x, Float y, Float tilt);
/// 1, 0 or -1.
constexpr Float signOf(Float x) {
    return x > 0.0f ? 1.0f : x < 0.0f ? -1.0f : 0.0f;
}
