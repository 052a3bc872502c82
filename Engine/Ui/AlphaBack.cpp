#include "Engine/Ui/AlphaBack.h"

#include "Engine/Ui/Control.h"
#include "Engine/Ui/Scavenger.h"
#include "Engine/core/CallStack.h"
#include "Engine/core/Keys.h"
#include "Engine/core/Timer.h"

namespace Engine {

namespace {

/// The time of a fade of that length that starts where another, with some time left, is turned round.
Float turnRound(Float left, Float length, Float new_length) {
    return length > 0.0f ? (1.0f - left / length) * new_length : 0.0f;
}

}  // namespace

void cAlphaBack::loadXML(const iXML* xml) {
    ENGINE_MARK;
    cBack::loadXML(xml);
    readKey(*xml, u"ShowTime", m_show_time);
    readKey(*xml, u"HideTime", m_hide_time);
}

void cAlphaBack::setupAlpha(Float alpha) {
    m_alpha_value = alpha;
    getChildren().walk([alpha](cView* child) {
        if (child->getViewKind() >= control)
            static_cast<cControl*>(child)->setAlpha(alpha);
    });
}

void cAlphaBack::alphaShow() {
    if (m_mode == idle) {
        m_time_left = m_show_time;
        setupAlpha(0.0f);
    } else if (m_mode != showing) {
        m_time_left = turnRound(m_time_left, m_hide_time, m_show_time);
    }
    m_mode = showing;
    show();
}

void cAlphaBack::alphaHide() {
    fadeOut(hiding);
}

void cAlphaBack::alphaDiscard() {
    fadeOut(discarding);
}

void cAlphaBack::fadeOut(eMode mode) {
    if (m_mode == idle) {
        m_time_left = m_hide_time;
        setupAlpha(1.0f);
    } else if (m_mode == showing) {
        m_time_left = turnRound(m_time_left, m_show_time, m_hide_time);
    }
    m_mode = mode;
}

void cAlphaBack::process() {
    cBack::process();
    if (m_mode == idle)
        return;
    m_time_left -= cTimer::getInstance()->getStep();
    if (m_time_left <= 0.0f)
        endFade();
    else if (m_mode == showing)
        setupAlpha(1.0f - m_time_left / m_show_time);
    else
        setupAlpha(m_time_left / m_hide_time);
}

void cAlphaBack::endFade() {
    const eMode mode = m_mode;
    m_mode = idle;  // before the hooks, which may start the next fade
    if (mode == showing) {
        setupAlpha(1.0f);
        alphaShowed();
    } else if (mode == hiding) {
        setupAlpha(0.0f);
        alphaHided();
    } else {
        disable();
        discard(this, here());
    }
}

void cAlphaBack::hid() {
    cBack::hid();
    m_mode = idle;
}

}  // namespace Engine
