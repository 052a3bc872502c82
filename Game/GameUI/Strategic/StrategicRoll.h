#pragma once

#include <vector>

#include "Game/Types.h"

namespace Engine {
class cControl;
}

/// How the map of levels comes closer as a level rolls out of it, and goes back as the level rolls back in: everything
/// grows about one place, which gets to the middle of the screen; the fog is blown apart from there.
class cStrategicRoll {
public:
    /// A picture of the land, where it is now. It outlives the roll.
    void addPicture(Engine::cControl& picture) { add(picture, false); }
    void addFog(Engine::cControl& fog) { add(fog, true); }

    /// @param time        seconds until the place has come to the middle
    /// @param scale       of the screen, that the place is grown from
    /// @param fog_factor  how fast fog grows, in parts of how fast land does
    void setEffectBegin(const Vector2& screen, Float time, const Vector2& place, Float scale, Float fog_factor);
    void advance(Float dt);  ///< seconds; below 0: back
    void restore();          ///< everything is where it was when it was added

    const Vector2& getMapSpeed() const { return m_map_speed; }    ///< of a picture in the middle, units a second
    const Vector2& getSizeSpeed() const { return m_size_speed; }  ///< of a picture as large as the screen

private:
    struct sPiece {
        Engine::cControl* picture;
        Bool is_fog;
        Vector2 position;  ///< its own
        Vector2 size;
        Vector2 direction{0.0f, 0.0f};  ///< units a second
        Vector2 growth{0.0f, 0.0f};
    };

    void add(Engine::cControl& picture, Bool is_fog);

    std::vector<sPiece> m_pieces;
    Vector2 m_map_speed{0.0f, 0.0f};
    Vector2 m_size_speed{0.0f, 0.0f};
};
