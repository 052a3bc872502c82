#include "Game/CommonUI/TailEffect.h"

#include <cmath>

#include "Engine/Ui/LoadView.h"
#include "Engine/core/CallStack.h"
#include "Engine/core/Keys.h"
#include "Game/CommonUI/Chance.h"
#include "Game/CommonUI/GlowEffect.h"

using namespace Engine;

cTailEffect::cTailEffect(cView* parent, const String& path)
    : cParticleSystemMy(parent), m_prototype(new cTailParticle(this)), m_glow(new cGlowEffect(this)) {
    ENGINE_MARK;
    setDestroyCheck([](const cTailParticle& particle) { return particle.isDead(); });
    loadView(*this, path);
    loadView(*m_glow, "Effects/GlowEffect.xml");
    m_glow->hide();
}

void cTailEffect::loadXML(const iXML* xml) {
    ENGINE_MARK;
    cParticleSystemMy::loadXML(xml);
    readPeriodKey(*xml);
    loadChild(*m_prototype, xml, "Particle");
    m_prototype->hide();
    m_live_time = Vector2(m_prototype->getLife());
    readKey(*xml, u"LiveTime", m_live_time);
    readKey(*xml, u"Radius", m_radius);
    readKey(*xml, u"Divergence", m_divergence);
    readKey(*xml, u"GlowShowTime", m_glow_show_time);
    readKey(*xml, u"GlowSize", m_glow_size);
    loadColors(*xml);
}

void cTailEffect::loadColors(const iXML& xml) {
    m_color_table.clear();
    const auto add_color = [this](const iXML& tag) {
        DXColor color = m_prototype->getColor();
        readKey(tag, u"Color", color);
        m_color_table.push_back(color);
    };
    iXML* table = nullptr;
    const UInt count = xml.get("ColorTable", table) ? table->getTagCount() : 0;
    for (UInt i = 0; i < count; ++i) {
        iXML* tag = nullptr;
        table->get(i, tag);
        add_color(*tag);
    }
    if (m_color_table.empty())
        add_color(xml);
}

void cTailEffect::activate(Float _activation_time) {
    startFor(_activation_time);
}

void cTailEffect::process() {
    cParticleSystemMy::process();
    if (isEmitting())
        addGlow();
}

void cTailEffect::addGlow() {
    auto* glow = new cGlowEffect(*m_glow);
    glow->setDeep(getDeep());
    glow->start(getPosition(), m_glow_show_time, m_glow_size);
}

cTailParticle* cTailEffect::generateParticle() {
    auto* particle = new cTailParticle(*m_prototype);
    particle->setLife(drawBetween(m_live_time.x, m_live_time.y));
    particle->setShrinkRate(particle->getLife() > 0.0f ? particle->getSize().x / particle->getLife() : 0.0f);
    const auto colors = static_cast<Float>(m_color_table.size());
    particle->setColor(m_color_table[static_cast<std::size_t>(colors * static_cast<Float>(Engine::random().next()) /
                                                              (cRandom::max_value + 1))]);
    const Float angle = drawAngle();
    const Vector2 place = Vector2(std::cos(angle), std::sin(angle)) * drawBetween(0.0f, m_radius);
    particle->setPosition(getPosition() + place);
    particle->setVelocity(place * m_divergence);
    particle->setDeep(getDeep());
    particle->show();
    particle->enable();
    return particle;
}
