#include "Game/CommonUI/FlyingNumber.h"

#include <algorithm>
#include <cstdlib>
#include <string>

#include "Engine/Ui/LoadView.h"
#include "Engine/Ui/Picture.h"
#include "Engine/Ui/Scavenger.h"
#include "Engine/Ui/TextLine.h"
#include "Engine/core/CallStack.h"
#include "Engine/core/Keys.h"
#include "Engine/core/Timer.h"
#include "Game/CommonUI/Chance.h"
#include "Game/GameUI/Tactic/TacticMap.h"

using namespace Engine;

cFlyingNumber::cFlyingNumber(cView* parent, Float x, Float y, Int amount, Int kind, Bool random)
    : cControl(parent), m_amount(amount), m_kind(kind), m_number(new cTextLine(this)) {
    ENGINE_MARK;
    cTacticMap* map = cTacticMap::getInstance();
    if (map && map->liesOnMap(parent)) {
        map->registerControl(this);
        map->addEffect(this);
    }
    loadView(*this, "Effects/FlyingNumber.xml");
    setBlank(true);  // it has no picture of its own
    Vector2 start = Vector2(x, y) + m_offset;
    if (random) {
        start.x += drawBetween(-m_random_radius, m_random_radius);
        start.y += drawBetween(-m_random_radius, m_random_radius);
    }
    setPosition(start);
    if (parent && parent->getViewKind() != cView::plainView)
        setDeep(static_cast<cControl*>(parent)->getDeep() + 1.0f);
    showAmount();
    m_time_left = m_fly_up_time;
    show();
    enable();
}

cFlyingNumber::~cFlyingNumber() {
    if (cTacticMap* map = cTacticMap::getInstance()) {
        map->unRegisterControl(this);
        map->removeEffect(this);
    }
}

void cFlyingNumber::loadXML(const iXML* xml) {
    ENGINE_MARK;
    cControl::loadXML(xml);
    readKey(*xml, u"offset", m_offset);
    readKey(*xml, u"random_radius", m_random_radius);
    readKey(*xml, u"fly_up_dir", m_way);
    Float time = m_fly_up_time;
    readKey(*xml, u"fly_up_time", time);
    if (time > 0.0f)
        m_fly_up_time = time;
    readKey(*xml, u"DisableTextColor", m_disable_text_color);
    loadChild(*m_number, xml, "Number");
    takePlace(*m_number);
    iXML* icons = nullptr;
    if (!xml->get("Icons", icons) || m_kind < 0 || static_cast<UInt>(m_kind) >= icons->getTagCount())
        return;
    iXML* tag = nullptr;
    icons->get(static_cast<UInt>(m_kind), tag);
    m_icon = new cPicture(this);
    m_icon->loadXML(tag);
    takePlace(*m_icon);
}

/// A part's place counts from the number's own.
void cFlyingNumber::takePlace(cControl& part) {
    part.setPosition(getPosition() + part.getPosition());
    part.setDeep(getDeep() + part.getDeep());
}

void cFlyingNumber::showAmount() {
    const LongLong amount = m_amount;
    WString text = amount < 1 ? u"-" : u"+";
    text += toWide(std::to_string(std::abs(amount)));
    m_number->setText(text);
    if (amount < 1)
        m_number->setColor(m_disable_text_color);
    m_number->show();
    m_number->enable();
    if (m_icon)
        m_icon->show();
}

void cFlyingNumber::setAlpha(const Float& alpha) {
    cControl::setAlpha(alpha);
    m_number->setAlpha(alpha);
    if (m_icon)
        m_icon->setAlpha(alpha);
}

void cFlyingNumber::process() {
    cControl::process();
    const Float step = cTimer::getInstance()->getRealStep();
    m_time_left -= step;
    if (m_time_left > 0.0f) {
        setPosition(getPosition() + m_way * (step / m_fly_up_time));
        setAlpha(std::max(0.0f, getAlpha() - step / m_fly_up_time));
        return;
    }
    hide();
    disable();
    discard(static_cast<cView*>(this), here());
}
