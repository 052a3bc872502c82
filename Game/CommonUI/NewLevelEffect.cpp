#include "Game/CommonUI/NewLevelEffect.h"

#include <algorithm>

#include "Engine/Ui/Control.h"

cNewLevelEffect::sPlace cNewLevelEffect::getPlace() const {
    return {m_view->getPosition(), m_view->getSize(), {m_view->getPitch(), m_view->getYaw(), m_view->getAngle()}};
}

void cNewLevelEffect::setPlace(const sPlace& place) {
    m_view->setPosition(place.position);
    m_view->setSize(place.size);
    m_view->setPitch(place.rotation.x);
    m_view->setYaw(place.rotation.y);
    m_view->setAngle(place.rotation.z);
}

void cNewLevelEffect::setEffectBegin(Float effect_time, const Vector2& at, Float first_step, Float alpha_factor) {
    m_time = 0.0f;
    m_alpha_amount = 1.0f;
    m_duration = effect_time * alpha_factor;
    m_alpha_speed = 1.0f / m_duration;
    m_view->setAlpha(0.0f);
    m_saved = getPlace();
    setPlace({at, Vector2(0.0f), Vector3(0.0f)});
    m_speed = {(m_saved.position - at) / effect_time, m_saved.size / effect_time, m_saved.rotation / effect_time};
    increase(first_step);
    m_first = getPlace();
}

void cNewLevelEffect::increase(Float step) {
    m_time += step;
    const Float part = m_time / m_duration;
    m_view->setAlpha(std::clamp(m_alpha_speed > 0.0f ? part : 1.0f - m_alpha_amount * part, 0.0f, 1.0f));
    const sPlace now = getPlace();
    setPlace({now.position + m_speed.position * step, now.size + m_speed.size * step,
              now.rotation + m_speed.rotation * step});
}

void cNewLevelEffect::setEffectEnd(Float effect_time, Float alpha_factor) {
    m_time = 0.0f;
    m_duration = effect_time;
    m_alpha_amount = alpha_factor;
    m_alpha_speed = -alpha_factor / effect_time;
    m_view->setAlpha(1.0f);
    const sPlace now = getPlace();
    m_speed = {(m_first.position - now.position) / effect_time, (m_first.size - now.size) / effect_time,
               (m_first.rotation - now.rotation) / effect_time};
}

void cNewLevelEffect::restoreValues() {
    m_view->setAlpha(1.0f);
    setPlace(m_saved);
}
