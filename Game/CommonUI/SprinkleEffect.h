#pragma once

#include "Game/CommonUI/ParticleSystemMy.h"

/// Sprays drops or sparks in one direction, more or less.
class cSprinkleEffect : public cParticleSystemMy<cWaterParticle> {
public:
    explicit cSprinkleEffect(Engine::cView* parent);
    cSprinkleEffect(Engine::cView* parent, const String& path);
    cSprinkleEffect(const cSprinkleEffect& other);
    cSprinkleEffect& operator=(const cSprinkleEffect&) = delete;

    /// The keys of cPicture, then "Frequency" (particles a second), "LiveTime" (seconds, the shortest and the longest
    /// of a particle), "RandAngle" (degrees to either side of its direction) and the child tag "Particle"
    /// (cWaterParticle).
    void loadXML(const Engine::iXML* xml) override;

    const Vector2& getSpeed() const { return m_prototype->getVelocity(); }
    void setSpeed(const Vector2& speed) { m_prototype->setVelocity(speed); }  ///< of particles to come, units a second

protected:
    cWaterParticle* generateParticle() override;

private:
    Vector2 m_live_time{1.0f, 1.0f};  ///< seconds, low and high
    Float m_rand_angle = 0.0f;        ///< radians
    cWaterParticle* m_prototype;      ///< a child of this view, never shown
};
