#include "Game/CommonUI/NewControlEffect.h"

#include <algorithm>
#include <cmath>

#include "Engine/Ui/LoadView.h"
#include "Engine/Ui/Scavenger.h"
#include "Engine/core/CallStack.h"
#include "Engine/core/Keys.h"
#include "Game/CommonUI/Chance.h"
#include "Game/CommonUI/SprinkleEffect.h"
#include "Game/Ui/GameSounds.h"

using namespace Engine;

namespace {

constexpr UInt most_emitters = 1000;

}  // namespace

cNewControlEffect::cNewControlEffect(cView* parent, const sRect& rect, const String& path)
    : cControl(parent), m_rect(rect) {
    ENGINE_MARK;
    loadView(*this, path);
    setBlank(true);  // it has no picture of its own
    setPosition(getMiddle());
    mapToRect();
    makeEmitters(path);
    show();
    enable();
}

void cNewControlEffect::play(cView* parent, const cControl& around, const String& path, Float height) {
    const Vector2 half = around.getSize() * 0.5f;
    const Vector2 middle = around.getPosition() - Vector2(0.0f, height);
    const Vector2 from = middle - half;
    const Vector2 to = middle + half;
    auto* effect = new cNewControlEffect(parent, {from.x, from.y, to.x, to.y}, path);
    effect->setDeep(around.getDeep() + 1.0f);
}

void cNewControlEffect::loadXML(const iXML* xml) {
    ENGINE_MARK;
    cControl::loadXML(xml);
    readKey(*xml, u"EmittersCount", m_emitters_count);
    if (m_emitters_count > most_emitters)
        throw String("cNewControlEffect: " + std::to_string(m_emitters_count) + " emitters are too many");
    readKey(*xml, u"ParticlesCount", m_particles_count);
    readPeriod(*xml, m_period);
    readKey(*xml, u"SpeedModule", m_speed_module);
    String sound;
    if (readKey(*xml, u"Sound", sound))
        playGameSound(sound);
}

// The border ---------------------------------------------------------------------------------------------------------

void cNewControlEffect::mapToRect() {
    m_points.clear();
    if (m_emitters_count == 0)
        return;
    const Float border = 2.0f * (m_rect.right - m_rect.left + m_rect.bottom - m_rect.top);
    const Float start = drawBetween(0.0f, border);
    const Float step = border / static_cast<Float>(m_emitters_count);
    for (UInt i = 0; i < m_emitters_count; ++i)
        m_points.push_back(getBorderPoint(std::fmod(start + step * static_cast<Float>(i), border)));
}

/// @param way  from the top left corner to the right and round, units
Vector2 cNewControlEffect::getBorderPoint(Float way) const {
    const Float width = m_rect.right - m_rect.left;
    const Float height = m_rect.bottom - m_rect.top;
    if (way < width)
        return {m_rect.left + way, m_rect.top};
    way -= width;
    if (way < height)
        return {m_rect.right, m_rect.top + way};
    way -= height;
    if (way < width)
        return {m_rect.right - way, m_rect.bottom};
    return {m_rect.left, m_rect.bottom - (way - width)};
}

// Sparks -------------------------------------------------------------------------------------------------------------

void cNewControlEffect::makeEmitters(const String& path) {
    auto* prototype = new cSprinkleEffect(this, path);
    const Vector2 middle = getMiddle();
    Float farthest = 0.0f;
    for (const Vector2& point : m_points)
        farthest = std::max(farthest, glm::distance(point, middle));
    for (const Vector2& point : m_points) {
        auto* emitter = new cSprinkleEffect(*prototype);
        const Vector2 way = point - middle;
        if (glm::length(way) > 0.0f)
            emitter->setSpeed(way * (m_speed_module / farthest));  // its length by the way's
        emitter->setPeriod(m_period);
        emitter->setAlpha(0.0f);
        emitter->setPosition(middle);
        emitter->setDeep(getDeep());
        emitter->start(static_cast<UInt>(std::max(m_particles_count, 0)));
        emitter->show();
        emitter->enable();
    }
    discard(static_cast<cView*>(prototype), here());
}

/// An emitter ends with its last particle.
void cNewControlEffect::process() {
    cControl::process();
    if (!getChildren().empty())
        return;
    hide();
    disable();
    discard(static_cast<cView*>(this), here());
}
