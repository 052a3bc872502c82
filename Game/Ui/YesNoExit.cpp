#include "Game/Ui/YesNoExit.h"

#include <algorithm>

#include <glm/geometric.hpp>

#include "Engine/Ui/LoadView.h"
#include "Engine/core/CallStack.h"
#include "Engine/core/Logic.h"
#include "Engine/core/Timer.h"
#include "Engine/input/Input.h"

using namespace Engine;

namespace {

constexpr Float flee_distance = 30.0f;   // how far from home the pointer pushes the button at most, units
constexpr Float fear_falloff = 0.0125f;  // 1 / the distance from which on the pointer is no threat, 80 units
constexpr Float flee_speed = 120.0f;     // units a second
constexpr Vector2 any_direction{1, 0};   // right under the pointer every way is away from it

Vector2 directionOf(const Vector2& way, Float length) {
    return length > 0.0f ? way / length : any_direction;
}

}  // namespace

Vector2 fleeFrom(const Vector2& pointer, const Vector2& button, const Vector2& home, Float dt) {
    const Vector2 away = button - pointer;
    const Float distance = glm::length(away);
    const Float push = std::max((1.0f - distance * fear_falloff) * flee_distance, 0.0f);
    const Vector2 way = home + directionOf(away, distance) * push - button;
    const Float length = glm::length(way);
    return button + directionOf(way, length) * std::min(length, dt * flee_speed);
}

cYesNoExit::cYesNoExit(cView* parent, fAnswer on_yes, fAnswer on_no)
    : cBack(nullptr),
      m_opener(parent),
      m_on_yes(on_yes),
      m_on_no(on_no),
      m_yes(new cTextButton(this)),
      m_no(new cTextButton(this)),
      m_text(new cTextLine(this)),
      m_bees{new cPicture(this), new cPicture(this), new cPicture(this)} {
    ENGINE_MARK;
    m_yes->setOnClick(onYes);
    m_yes->setOnHover(onHoverChange);
    m_yes->setOnUnhover(onHoverChange);
    m_no->setOnClick(onNo);
    m_no->setOnHover(onHoverChange);
    m_no->setOnUnhover(onHoverChange);
    loadView(*this, "UI/YesNoExit.xml");
    showBee(calmBee);
    hide();
}

void cYesNoExit::loadXML(const iXML* xml) {
    ENGINE_MARK;
    cBack::loadXML(xml);
    loadChild(*m_yes, xml, "YesButton");
    loadChild(*m_no, xml, "NoButton");
    loadChild(*m_text, xml, "Text");
    loadChild(*m_bees[calmBee], xml, "Bee0");
    loadChild(*m_bees[noBee], xml, "Bee1");
    loadChild(*m_bees[yesBee], xml, "Bee2");
    m_yes_home = m_yes->getPosition();
}

void cYesNoExit::enabled() {
    cBack::enabled();
    cInput::getInstance()->bind(Control::esc_release, onNo, m_no);
}

void cYesNoExit::disabled() {
    cBack::disabled();
    cInput::getInstance()->unbind(Control::esc_release, onNo, m_no);
}

void cYesNoExit::process() {
    ENGINE_MARK;
    cBack::process();
    if (m_yes->getState() == eButtonState::pressed)
        return;
    const Vector2& pointer = cLogic::getInstance()->getCursorPos();
    m_yes->setPosition(fleeFrom(pointer, m_yes->getPosition(), m_yes_home, cTimer::getInstance()->getRealStep()));
}

void cYesNoExit::showBee(eBee bee) {
    for (UInt i = 0; i < 3; ++i) {
        if (i == bee)
            m_bees[i]->show();
        else
            m_bees[i]->hide();
    }
}

/// One button may be left and the other entered in any order, so both are asked.
void cYesNoExit::onHoverChange(cView*) {
    cYesNoExit& self = *getInstance();
    if (self.m_yes->getState() == eButtonState::hovered)
        self.showBee(yesBee);
    else if (self.m_no->getState() == eButtonState::hovered)
        self.showBee(noBee);
    else
        self.showBee(calmBee);
}

void cYesNoExit::onYes(cView*) {
    getInstance()->m_on_yes(getInstance()->m_opener);
}

void cYesNoExit::onNo(cView*) {
    getInstance()->m_on_no(getInstance()->m_opener);
}
