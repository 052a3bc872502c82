#pragma once

#include "Game/Types.h"

/// Something that a cMoveTask can move: a man, a ship.
class iMovable {
public:
    virtual const Vector2& getMovablePosition() const = 0;  ///< on the screen
    virtual void setMovablePosition(const Vector2& position) = 0;
    /// Where it looks, radians with the clock; 0 is to the right.
    virtual Float getMovableYaw() const = 0;
    virtual void setMovableYaw(Float yaw) = 0;
    virtual const Float& getDeltaYaw() const = 0;      ///< the largest turn in one frame of a circle, radians
    virtual const Float& getTurnDistance() const = 0;  ///< the way on which it turns into its direction, units
    /// Units a second on the arc between two points; as on a road where they are one.
    virtual Float getMovingSpeed(Int src, Int dst) = 0;

protected:
    ~iMovable() = default;
};
