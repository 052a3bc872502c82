#pragma once

#include "Game/Types.h"

class cArrangementUnit;
class iMovable;

/// How far a place of the screen is from a unit's ring, inside or outside of it; units.
Float getDistanceToRing(const cArrangementUnit& unit, const Vector2& place);
/// Is there a way to the ring from there, and not just a step?
Bool isAwayFromRing(const cArrangementUnit& unit, const Vector2& place);

/// Brings a man who walks round a ring onto it, since he is not always there when he begins: he was called back on his
/// way, or the building went whose ring it was. From afar he goes straight to the ring first; what is but a step is
/// made while he walks round.
class cRingApproach {
public:
    /// @param unit   whose ring it is
    /// @param angle  of his place there
    /// @param speed  units a second
    void start(const cArrangementUnit& unit, const iMovable& object, Float angle, Float speed);
    /// Is he still on his way to the ring?
    Bool isFar() const;
    Bool isThere() const { return m_offset == Vector2(0.0f, 0.0f); }
    /// One frame on his way.
    /// @param yaw    the direction in which he walks round
    /// @param step   seconds
    void process(const cArrangementUnit& unit, iMovable& object, Float angle, Float yaw, Float step);

private:
    Vector2 m_offset{0.0f, 0.0f};  ///< from his place on the ring to him, units
    Float m_speed = 0.0f;          ///< units a second
};
