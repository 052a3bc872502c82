#pragma once

#include <list>

#include "Engine/Ui/Picture.h"
#include "Engine/Ui/Scavenger.h"
#include "Engine/core/CallStack.h"
#include "Engine/core/Timer.h"
#include "Game/CommonUI/Particle.h"
#include "Game/Types.h"

/// Emits particles one after the other, and is gone with the last of them. Its clock is real time.
///
/// A derived class makes the particles (generateParticle) and says when one is over (setDestroyCheck). A particle is a
/// child of its system and goes where that goes.
template <class _Particle>
class cParticleSystemMy : public Engine::cPicture {
public:
    using DESTROY_CHECK = Bool (*)(const _Particle& particle);

    using cPicture::cPicture;
    /// The copy has emitted nothing yet, and emits if the other one does.
    cParticleSystemMy(const cParticleSystemMy& other)
        : cPicture(other),
          m_particles_count(other.m_particles_count),
          m_emitting(other.m_emitting),
          m_mode(other.m_mode),
          m_destroy_check(other.m_destroy_check) {}

    /// Emits so many particles; with 0 it never ends.
    void start(UInt particles_count) {
        m_mode = countMode;
        m_particles_count = particles_count;
        m_emitted = 0;
        m_endless = particles_count == 0;
        m_emitting = true;
    }
    /// Emits for so many seconds.
    void startFor(Float time_limit) {
        m_mode = timeMode;
        m_time_limit = time_limit;
        m_time_passed = 0.0f;
        m_endless = false;
        m_emitting = true;
    }
    void stop() { m_emitting = false; }  ///< what flies, flies on

    /// Throws the plain string "Not set destroy verification function." without one.
    void process() override {
        ENGINE_MARK;
        cPicture::process();
        if (m_emitting)
            emit();
        if (!m_destroy_check)
            throw "Not set destroy verification function.";
        removeDead();
    }

    Bool isEmitting() const { return m_emitting; }
    UInt getEmitted() const { return m_emitted; }  ///< in count mode
    const std::list<_Particle*>& getParticles() const { return m_particles; }
    Float getPeriod() const { return m_period; }
    void setPeriod(Float seconds) { m_period = seconds; }  ///< between two particles, above 0

protected:
    /// A new particle, shown and enabled. One that can't be made now is null, and asked for again at once.
    virtual _Particle* generateParticle() = 0;
    void setDestroyCheck(DESTROY_CHECK check) { m_destroy_check = check; }
    void readPeriodKey(const Engine::iXML& xml) { readPeriod(xml, m_period); }

private:
    enum eMode : Int { countMode = 0, timeMode = 1 };

    void emit() {
        m_accumulated += Engine::cTimer::getInstance()->getRealStep();
        if (m_endless)
            endlessProcess();
        else if (m_mode == countMode)
            countProcess();
        else
            timeProcess();
    }
    void endlessProcess() {
        while (m_accumulated >= m_period) {
            m_accumulated -= m_period;
            addParticle();
        }
    }
    void countProcess() {
        while (m_emitting && m_accumulated >= m_period) {
            if (!addParticle())
                continue;
            m_accumulated -= m_period;
            ++m_emitted;
            m_emitting = m_emitted < m_particles_count;
        }
    }
    void timeProcess() {
        while (m_emitting && m_accumulated >= m_period) {
            m_accumulated -= m_period;
            m_time_passed += m_period;
            addParticle();
            m_emitting = m_time_passed < m_time_limit;
        }
    }
    Bool addParticle() {
        _Particle* particle = generateParticle();
        if (particle)
            m_particles.push_back(particle);
        return particle != nullptr;
    }
    void removeDead() {
        const auto removed = m_particles.remove_if([this](_Particle* particle) {
            const Bool is_over = m_destroy_check(*particle);
            if (is_over)
                end(particle);
            return is_over;
        });
        if (removed > 0 && m_particles.empty())
            end(this);
    }
    static void end(cPicture* picture) {
        picture->hide();
        picture->disable();
        Engine::discard(static_cast<Engine::cView*>(picture), Engine::here());
    }

    Float m_accumulated = 0.0f;     ///< seconds not yet paid in particles
    Float m_period = 1.0f / 15.0f;  ///< seconds
    UInt m_particles_count = 0;     ///< to emit in count mode
    UInt m_emitted = 0;
    Float m_time_limit = 0.0f;          ///< seconds
    Float m_time_passed = 0.0f;         ///< seconds
    std::list<_Particle*> m_particles;  ///< those that fly; children of this view
    Bool m_emitting = false;
    Bool m_endless = false;
    eMode m_mode = countMode;
    DESTROY_CHECK m_destroy_check = nullptr;
};
