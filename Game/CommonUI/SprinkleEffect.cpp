#include "Game/CommonUI/SprinkleEffect.h"

#include <cmath>

#include "Engine/Ui/LoadView.h"
#include "Engine/core/CallStack.h"
#include "Engine/core/Keys.h"
#include "Game/CommonUI/Chance.h"

using namespace Engine;

namespace {

constexpr Float radians_per_degree = 0.017453292f;

Vector2 turn(const Vector2& vector, Float angle) {
    const Float cosine = std::cos(angle);
    const Float sine = std::sin(angle);
    return {vector.x * cosine - vector.y * sine, vector.x * sine + vector.y * cosine};
}

}  // namespace

cSprinkleEffect::cSprinkleEffect(cView* parent) : cParticleSystemMy(parent), m_prototype(new cWaterParticle(this)) {
    setDestroyCheck([](const cWaterParticle& particle) { return particle.isDead(); });
}

cSprinkleEffect::cSprinkleEffect(cView* parent, const String& path) : cSprinkleEffect(parent) {
    ENGINE_MARK;
    loadView(*this, path);
}

cSprinkleEffect::cSprinkleEffect(const cSprinkleEffect& other)
    : cParticleSystemMy(other),
      m_live_time(other.m_live_time),
      m_rand_angle(other.m_rand_angle),
      m_prototype(new cWaterParticle(*other.m_prototype)) {
    m_prototype->setParent(this);
}

void cSprinkleEffect::loadXML(const iXML* xml) {
    ENGINE_MARK;
    cParticleSystemMy::loadXML(xml);
    readPeriodKey(*xml);
    Float degrees = 0.0f;
    if (readKey(*xml, u"RandAngle", degrees))
        m_rand_angle = degrees * radians_per_degree;
    loadChild(*m_prototype, xml, "Particle");
    m_prototype->hide();
    m_live_time = Vector2(m_prototype->getLife());
    readKey(*xml, u"LiveTime", m_live_time);
}

cWaterParticle* cSprinkleEffect::generateParticle() {
    auto* particle = new cWaterParticle(*m_prototype);
    particle->setVelocity(turn(m_prototype->getVelocity(), drawBetween(-m_rand_angle, m_rand_angle)));
    particle->setLife(drawBetween(m_live_time.x, m_live_time.y));
    particle->setPosition(getPosition());
    particle->setDeep(getDeep());
    particle->show();
    particle->enable();
    return particle;
}
