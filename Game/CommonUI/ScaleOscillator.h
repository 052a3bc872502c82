#pragma once

#include <cmath>
#include <numbers>

#include "Engine/core/Keys.h"
#include "Engine/core/Timer.h"
#include "Game/Types.h"

/// Makes a control pulse for a while, to draw the eye: over cOverlayButton, say.
template <class _Button>
class cScaleOscillator : public _Button {
public:
    using _Button::_Button;

    /// The keys of _Button, then "osc_scale_min_value" and "osc_scale_max_value" (the scale swings around their middle,
    /// to either side by their whole distance), "osc_scale_period" (seconds of one swing) and "osc_scale_time" (seconds
    /// of the whole).
    void loadXML(const Engine::iXML* xml) override {
        _Button::loadXML(xml);
        Float min_value = 1.0f;
        Float max_value = 1.0f;
        Engine::readKey(*xml, u"osc_scale_min_value", min_value);
        Engine::readKey(*xml, u"osc_scale_max_value", max_value);
        Float period = m_period;
        Engine::readKey(*xml, u"osc_scale_period", period);
        if (period > 0.0f)
            m_period = period;
        Engine::readKey(*xml, u"osc_scale_time", m_duration);
        m_centre = (max_value + min_value) * 0.5f;
        m_amplitude = std::abs(max_value - min_value);
    }

    void process() override {
        _Button::process();
        if (!m_oscillating)
            return;
        if (m_time >= m_duration) {
            setOscillating(false);
            return;
        }
        m_time += Engine::cTimer::getInstance()->getRealStep();
        const Float phase = m_time * 2.0f * std::numbers::pi_v<Float> / m_period;
        applyScale(std::sin(phase) * m_amplitude + m_centre);
    }

    Float getOscillationTime() const { return m_duration; }  ///< seconds of the whole
    Bool isOscillating() const { return m_oscillating; }
    void setOscillating(Bool oscillating) {
        m_oscillating = oscillating;
        m_time = 0.0f;
        if (!oscillating)
            applyScale(1.0f);
    }

private:
    void applyScale(Float scale) { this->setScale(Vector3(scale, scale, this->getScale().z)); }

    Float m_centre = 1.0f;
    Float m_amplitude = 0.0f;
    Float m_period = 1.0f;    ///< seconds
    Float m_duration = 0.0f;  ///< seconds
    Float m_time = 0.0f;      ///< seconds since it began
    Bool m_oscillating = false;
};
