#include "Game/CommonUI/Particle.h"

#include <algorithm>

#include "Engine/core/CallStack.h"
#include "Engine/core/Keys.h"
#include "Engine/core/Timer.h"

using namespace Engine;

namespace {

constexpr Float highest_frequency = 10000.0f;  ///< a frame is not to drown in particles

}  // namespace

void cParticle::loadXML(const iXML* xml) {
    ENGINE_MARK;
    cPicture::loadXML(xml);
    readKey(*xml, u"Gravity", getGravity());
    readKey(*xml, u"LiveTime", m_life);
    readKey(*xml, u"MaxScale", m_max_scale);
    readKey(*xml, u"Speed", m_velocity);
}

void cParticle::process() {
    cPicture::process();
    const Float step = cTimer::getInstance()->getRealStep();
    m_velocity += getGravity() * step;
    setPosition(getPosition() + m_velocity * step);
    m_elapsed += step;
    const Float part = m_elapsed < m_life ? m_elapsed / m_life : 1.0f;
    resize(step, part);
    setAlpha(std::min(1.0f, 2.0f - 2.0f * part));
}

void cWaterParticle::loadXML(const iXML* xml) {
    cParticle::loadXML(xml);
    m_base_size = getSize();
}

void cWaterParticle::resize(Float, Float part) {
    setSize(m_base_size * (1.0f + getMaxScale() * part));
}

void cTailParticle::resize(Float step, Float) {
    const Float loss = m_rate * step;
    setSize({std::max(0.0f, getSize().x - loss), std::max(0.0f, getSize().y - loss)});
}

void readPeriod(const iXML& xml, Float& seconds) {
    Float frequency = 0.0f;
    if (readKey(xml, u"Frequency", frequency) && frequency > 0.0f)
        seconds = 1.0f / std::min(frequency, highest_frequency);
}
