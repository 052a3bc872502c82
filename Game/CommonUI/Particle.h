#pragma once

#include "Engine/Ui/Picture.h"
#include "Game/Types.h"

/// One of many small pictures that fly off, fade and are gone. Its clock is real time, whatever the map's speed.
///
/// It is a child of the particle system that has made it, which discards it once it is dead.
class cParticle : public Engine::cPicture {
public:
    using cPicture::cPicture;

    /// The keys of cPicture, then "Gravity" (units / s^2, shared by all particles of the class: the last one read
    /// holds), "LiveTime" (seconds), "MaxScale" and "Speed" (units a second along both axes).
    void loadXML(const Engine::iXML* xml) override;
    /// Moves, resizes and fades it: full in sight for the first half of its life, then less and less.
    void process() override;

    void setVelocity(const Vector2& velocity) { m_velocity = velocity; }
    const Vector2& getVelocity() const { return m_velocity; }
    void setLife(Float seconds) { m_life = seconds; }
    Float getLife() const { return m_life; }
    Bool isDead() const { return m_elapsed >= m_life; }

protected:
    virtual Vector2& getGravity() const = 0;
    /// @param part  of its life that is over, 0 to 1
    virtual void resize(Float step, Float part) = 0;

    Float getMaxScale() const { return m_max_scale; }

private:
    Vector2 m_velocity{0.0f, 0.0f};  ///< units a second
    Float m_life = 1.0f;             ///< seconds
    Float m_elapsed = 0.0f;          ///< seconds since its birth
    Float m_max_scale = 3.0f;
};

/// A drop or a spark: it grows by "MaxScale" times its size until it dies.
class cWaterParticle : public cParticle {
public:
    using cParticle::cParticle;

    void loadXML(const Engine::iXML* xml) override;

protected:
    Vector2& getGravity() const override { return m_gravity; }
    void resize(Float step, Float part) override;

private:
    static inline Vector2 m_gravity{0.0f, 0.0f};

    Vector2 m_base_size{1.0f, 1.0f};
};

/// A piece of a tail: it shrinks at an even rate.
class cTailParticle : public cParticle {
public:
    using cParticle::cParticle;

    void setShrinkRate(Float rate) { m_rate = rate; }  ///< units a second

protected:
    Vector2& getGravity() const override { return m_gravity; }
    void resize(Float step, Float part) override;

private:
    static inline Vector2 m_gravity{0.0f, 0.0f};

    Float m_rate = 0.0f;
};

/// The key "Frequency" (particles a second, above 0, at most 10000) as the time between two of them; seconds stay as
/// they are without it.
void readPeriod(const Engine::iXML& xml, Float& seconds);
