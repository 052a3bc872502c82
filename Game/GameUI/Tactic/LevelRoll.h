#pragma once

#include <vector>

#include "Game/CommonUI/NewLevelEffect.h"
#include "Game/Types.h"

/// The countdown of a level that rolls in or out, and the flight of its tiles.
///
/// It goes slowly at both ends: a frame's step is (sin(pi t / T) + delta) dt, t of T seconds being left.
class cLevelRoll {
public:
    enum eDirection { none, in, out };

    /// @param tiles  fly from the place to where they are, or back there; they outlive the roll
    /// @param time   T, seconds
    /// @param place  on the screen
    void start(eDirection direction, const std::vector<Engine::cControl*>& tiles, Float time, Float alpha_factor,
               Float startup_delta, const Vector2& place);
    /// One frame of dt seconds. Gives the step that was made.
    Float advance(Float dt);
    /// Puts the tiles where they belong and ends the roll.
    void finish();
    void clear();

    Bool isRunning() const { return m_direction != none; }
    Bool isRollingIn() const { return m_direction == in; }
    Bool isRollingOut() const { return m_direction == out; }
    Bool isAtEnd() const { return m_left <= 0.0f; }
    Float getLeft() const { return m_left; }  ///< seconds
    Float getTime() const { return m_time; }  ///< T, seconds

private:
    eDirection m_direction = none;
    Float m_time = 1.0f;
    Float m_left = 0.0f;
    Float m_startup_delta = 0.0f;
    std::vector<cNewLevelEffect> m_tiles;
};
