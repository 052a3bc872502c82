#include "Game/CommonUI/IconText.h"

#include <algorithm>
#include <cmath>

#include "Engine/Ui/Picture.h"
#include "Engine/core/CallStack.h"
#include "Engine/core/Keys.h"
#include "Engine/core/Timer.h"
#include "Engine/core/iXML.h"

using namespace Engine;

namespace {

enum eIconFrame : UInt { enabledIcon = 0, disabledIcon = 1 };

}  // namespace

cIconText::cIconText(cView* parent) : cTextLine(parent), m_icon(new cPicture(this)) {
}

void cIconText::loadXML(const iXML* xml) {
    ENGINE_MARK;
    cTextLine::loadXML(xml);
    readKey(*xml, u"HasDisableView", m_has_disable_view);
    readKey(*xml, u"BlinkTime", m_blink_time);
    Float period = m_blink_period;
    if (readKey(*xml, u"BlinkPeriod", period) && period > 0.0f)
        m_blink_period = period;
    iXML* icon = nullptr;
    if (!xml->get("Icon", icon))
        throw "Can't find Icon";
    m_icon->loadXML(icon);
    m_icon->setPosition(getPosition() + m_icon->getPosition());
}

void cIconText::process() {
    cTextLine::process();
    if (!isBlinking())
        return;
    m_blink_left = std::max(0.0f, m_blink_left - cTimer::getInstance()->getRealStep());
    const Bool is_dark = std::fmod(m_blink_left, m_blink_period) > m_blink_period * 0.5f;
    m_icon->setAlpha(is_dark ? 0.0f : getAlpha());
}

void cIconText::hid() {
    cTextLine::hid();
    m_blink_left = 0.0f;
    m_icon->setAlpha(getAlpha());
}

void cIconText::blinkIcon() {
    m_blink_left = m_blink_time;
}

void cIconText::setAlpha(const Float& alpha) {
    cTextLine::setAlpha(alpha);
    m_icon->setAlpha(alpha);
}

void cIconText::setEnabledState(Bool enabled_state) {
    if (m_has_disable_view)
        m_icon->setAnimFrame(enabled_state ? enabledIcon : disabledIcon);
}
