#pragma once

#include <vector>

#include "Engine/Ui/Control.h"
#include "Game/Types.h"

/// Sparks that fly off all around a control which has just become possible. It runs by itself and is gone with the last
/// of them.
class cNewControlEffect : public Engine::cControl {
public:
    /// A place on the screen, logical units.
    struct sRect {
        Float left = 0.0f;
        Float top = 0.0f;
        Float right = 0.0f;
        Float bottom = 0.0f;
    };

    /// @param rect  of the control, whose border gives the sparks their directions
    /// @param path  of a file that has the keys of this class and those of the emitters (cSprinkleEffect)
    cNewControlEffect(Engine::cView* parent, const sRect& rect, const String& path);

    /// Lets it run around a control, in front of it.
    /// @param height  that the control is drawn above its place, units
    static void play(Engine::cView* parent, const Engine::cControl& around, const String& path, Float height = 0.0f);

    /// The keys of cControl, then "EmittersCount", "ParticlesCount" (of each emitter; 0: it never ends), "Frequency"
    /// (particles a second), "SpeedModule" (units a second, of the sparks that fly to the farthest points) and "Sound"
    /// (a game sound, played at once).
    /// Throws "cNewControlEffect: <n> emitters are too many" for more than 1000.
    void loadXML(const Engine::iXML* xml) override;
    void process() override;

    /// Chooses the points of the border, in equal steps from a random one.
    void mapToRect();
    const std::vector<Vector2>& getPoints() const { return m_points; }

private:
    Vector2 getMiddle() const { return {(m_rect.left + m_rect.right) * 0.5f, (m_rect.top + m_rect.bottom) * 0.5f}; }
    Vector2 getBorderPoint(Float way) const;
    void makeEmitters(const String& path);

    sRect m_rect;
    UInt m_emitters_count = 0;
    Int m_particles_count = 10;
    Float m_period = 1.0f / 300.0f;  ///< seconds between two particles of an emitter
    Float m_speed_module = 0.0f;     ///< units a second
    std::vector<Vector2> m_points;   ///< one for each emitter; those are the children of this view
};
