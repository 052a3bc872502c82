#include "Game/CommonUI/Greeter.h"

#include "Engine/core/CallStack.h"
#include "Engine/core/Keys.h"
#include "Engine/core/Random.h"
#include "Engine/core/ResourceManager.h"
#include "Engine/core/Timer.h"

using namespace Engine;

void cGreeter::loadXML(const iXML* xml) {
    ENGINE_MARK;
    cPicture::loadXML(xml);
    String greet;
    readKey(*xml, u"GreetAnimation", greet);
    Float length = m_greet_length;
    readKey(*xml, u"GreetLength", length);
    if (length > 0.0f)
        m_greet_length = length;
    readKey(*xml, u"PauseMin", m_pause_min);
    readKey(*xml, u"PauseMax", m_pause_max);
    m_idle = cResourceRef(getAnimation());
    m_idle_length = m_anim_length;
    m_greet =
        greet.empty() ? cResourceRef() : cResourceRef::adopt(cResourceManager::getInstance()->getAnimation(greet));
    startPause();
}

void cGreeter::process() {
    cPicture::process();
    if (!m_greet)
        return;
    m_left -= cTimer::getInstance()->getStep();
    if (m_left > 0.0f)
        return;
    if (m_greeting)
        startPause();
    else
        startGreeting();
}

void cGreeter::startPause() {
    const Float chance = static_cast<Float>(Engine::random().next()) / static_cast<Float>(cRandom::max_value);
    m_left = m_pause_min + (m_pause_max - m_pause_min) * chance;
    m_greeting = false;
    play(m_idle, m_idle_length);
}

void cGreeter::startGreeting() {
    m_left = m_greet_length;
    m_greeting = true;
    play(m_greet, m_greet_length);
}

void cGreeter::play(const cResourceRef& animation, Float length) {
    setAnimation(animation.get());
    m_anim_length = length;
    setAnimTime(0.0f);
}
