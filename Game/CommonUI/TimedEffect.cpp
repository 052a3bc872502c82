#include "Game/CommonUI/TimedEffect.h"

#include <algorithm>

#include "Engine/Ui/LoadView.h"
#include "Engine/Ui/Scavenger.h"
#include "Engine/core/CallStack.h"
#include "Engine/core/Keys.h"
#include "Engine/core/Timer.h"
#include "Game/GameUI/Tactic/TacticMap.h"

using namespace Engine;

cTimedEffect::cTimedEffect(cView* parent, const String& path) : cSimpleEffect(parent) {
    ENGINE_MARK;
    loadView(*this, path);
}

void cTimedEffect::play(const String& path, const cControl& at) {
    auto* effect = new cTimedEffect(cTacticMap::getInstance()->getObjectsLayer(), path);
    effect->setPosition(at.getPosition() + effect->getPosition());
    effect->setDeep(at.getDeep() + effect->getDeep());
    effect->show();
    effect->enable();
}

void cTimedEffect::loadXML(const iXML* xml) {
    cSimpleEffect::loadXML(xml);
    readKey(*xml, u"show_alpha_time", m_show_alpha_time);
    readKey(*xml, u"time", m_time);
    readKey(*xml, u"hide_alpha_time", m_hide_alpha_time);
    if (m_show_alpha_time > 0.0f) {
        setAlpha(0.0f);
        m_show_rate = 1.0f / m_show_alpha_time;
    }
    if (m_hide_alpha_time > 0.0f)
        m_hide_rate = 1.0f / m_hide_alpha_time;
}

void cTimedEffect::process() {
    cSimpleEffect::process();
    const Float step = cTimer::getInstance()->getRealStep();
    if (m_show_alpha_time > 0.0f) {
        setAlpha(std::min(1.0f, getAlpha() + m_show_rate * step));
        m_show_alpha_time -= step;
    } else if (m_time > 0.0f) {
        setAlpha(1.0f);
        m_time -= step;
    } else if (m_hide_alpha_time > 0.0f) {
        setAlpha(std::max(0.0f, getAlpha() - m_hide_rate * step));
        m_hide_alpha_time -= step;
    } else {
        destroyMe();
    }
}

void cTimedEffect::destroyMe() {
    hide();
    disable();
    if (cTacticMap* map = cTacticMap::getInstance())
        map->unRegisterControl(this);
    discard(static_cast<cView*>(this), here());
}
