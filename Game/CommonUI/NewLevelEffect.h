#pragma once

#include "Game/Types.h"

namespace Engine {
class cControl;
}

/// The flight of one tile of a level's map between a place of the screen, where it is nothing, and its own.
class cNewLevelEffect {
public:
    /// @param view  outlives the effect
    explicit cNewLevelEffect(Engine::cControl& view) : m_view(&view) {}

    /// The tile stands at its own place; from here on it flies there from a given one, beginning with a first step.
    /// @param effect_time   seconds of the flight
    /// @param alpha_factor  the part of that time in which it comes into sight
    void setEffectBegin(Float effect_time, const Vector2& at, Float first_step, Float alpha_factor);
    void increase(Float step);  ///< seconds
    /// The tile stands at its own place; from here on it flies to where its first step had left it.
    void setEffectEnd(Float effect_time, Float alpha_factor);
    void restoreValues();  ///< it stands at its own place

private:
    struct sPlace {
        Vector2 position{0.0f, 0.0f};
        Vector2 size{0.0f, 0.0f};
        Vector3 rotation{0.0f, 0.0f, 0.0f};  ///< pitch, yaw, angle
    };

    sPlace getPlace() const;
    void setPlace(const sPlace& place);

    Engine::cControl* m_view;
    sPlace m_saved;  ///< its own
    sPlace m_first;  ///< after the first step
    sPlace m_speed;  ///< a second
    Float m_alpha_amount = 0.0f;
    Float m_alpha_speed = 0.0f;
    Float m_time = 0.0f;      ///< seconds since it began
    Float m_duration = 1.0f;  ///< of the change of alpha, seconds
};
