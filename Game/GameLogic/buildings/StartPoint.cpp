#include "Game/GameLogic/buildings/StartPoint.h"

#include <string>
#include <utility>

#include <glm/trigonometric.hpp>

#include "Engine/Ui/LoadView.h"
#include "Engine/Ui/Scavenger.h"
#include "Engine/core/Arch.h"
#include "Engine/core/CallStack.h"
#include "Engine/core/Keys.h"
#include "Engine/core/Logic.h"
#include "Engine/core/Timer.h"
#include "Game/CommonUI/TimedEffect.h"
#include "Game/GameLogic/SavedValue.h"
#include "Game/GameLogic/buildings/Caravan.h"
#include "Game/GameLogic/men/FriendMan.h"
#include "Game/GameUI/Tactic/TacticMap.h"
#include "Game/Ui/GameSounds.h"
#include "Game/Ui/Screen.h"
#include "Game/Ui/YesNoExt.h"

using namespace Engine;

namespace {

constexpr Int most_men = 1000;  ///< that a level begins with

}  // namespace

cStartPoint::cStartPoint(cView* parent) : cBuilding(parent), m_way(*this), m_caravan(new cCaravan(*this)) {
}

void cStartPoint::loadXML(const iXML* xml) {
    ENGINE_MARK;
    cBuilding::loadXML(xml);
    readKey(*xml, u"speed", m_speed);
    Float degrees = 0.0f;
    readKey(*xml, u"caravan_angle", degrees);
    m_caravan_angle = glm::radians(degrees);
    readKey(*xml, u"screen_margin", m_screen_margin);
    loadChild(*m_caravan, xml, "Caravan");
    m_way.loadXML(xml);
}

void cStartPoint::loadXmlState(const iXML* xml) {
    ENGINE_MARK;
    cBuilding::loadXmlState(xml);
    Int capacity = 0;
    readKey(*xml, u"Capacity", capacity);
    setCapacity(capacity);
    readKey(*xml, u"PrevLevel", m_prev_level);
    readKey(*xml, u"MenAmount", m_men_amount);
    readKey(*xml, u"MaxAmount", m_max_amount);
    Float degrees = 0.0f;
    readKey(*xml, u"Angle", degrees);
    m_angle = glm::radians(degrees);
    loadChild(m_man_cost, xml, "ManCost");
    m_init_count = 0;
    requireMen();
}

void cStartPoint::requireMen() const {
    if (m_men_amount > most_men)
        throw String("cStartPoint: " + std::to_string(m_men_amount) + " men are too many");
}

void cStartPoint::serialize(iArch& arch) {
    arch << m_prev_level << m_men_amount << m_max_amount << m_init_count;
    serializeNumber(arch, m_angle);
    m_man_cost.serialize(arch);
    arch << m_men_born;
}

void cStartPoint::saveBinState(iArch& arch) {
    cBuilding::saveBinState(arch);
    serialize(arch);
}

void cStartPoint::loadBinState(iArch& arch) {
    ENGINE_MARK;
    cBuilding::loadBinState(arch);
    serialize(arch);
    requireMen();
}

void cStartPoint::setInitState() {
    ENGINE_MARK;
    ++m_init_count;
    const Float left = getMap().toScreen({0.0f, 0.0f}).x;
    m_way.lay(getPosition(), m_angle, left, left + getMap().getSize().x, m_screen_margin);
    m_caravan->setAngle(m_caravan_angle);
    cBuilding::setInitState();
    getMap().setMaximumOfMen(m_max_amount);
    if (m_prev_level > -1) {
        setOnClick(onGoBackClick);
        setOnHover(onGoBackHover);
        setOnUnhover(onGoBackUnHover);
        m_way.listen(onGoBackClick, onGoBackHover, onGoBackUnHover);
    }
    hide();
}

// The caravan --------------------------------------------------------------------------------------------------------

void cStartPoint::startCaravan() {
    ENGINE_MARK;
    const Vector2& way = m_way.getWay();
    m_caravan->setPosition(m_caravan->getPosition() + way);
    m_caravan->setOff(-way, m_speed);
    m_caravan->enable();
    m_caravan->show();
    m_coming = true;
    updateVisualState();
    playGameSound("caravan_coming");
}

void cStartPoint::hideCaravan() {
    m_caravan->hide();
    m_caravan->disable();
}

void cStartPoint::process() {
    cBuilding::process();
    const Float step = cTimer::getInstance()->getRealStep();
    if (!m_coming) {
        if (getFramesCount() > 1)
            setAnimTime(getAnimTime() + step);
        return;
    }
    if (!m_caravan->roll(step))
        onCaravanCame();
}

void cStartPoint::onCaravanCame() {
    ENGINE_MARK;
    m_coming = false;
    m_caravan->disable();
    m_caravan->setOscillating(false);
    updateVisualState();
    bornStartUpMen();
    getMap().showControlPanel();
}

void cStartPoint::bornStartUpMen() {
    for (Int i = 0; i < m_men_amount; ++i)
        getMap().setUpInitMan(getUnderPoint())->updateView(false);
    m_men_born = 1;
    getMap().updateGlobalResources(true);
}

Int cStartPoint::addResourceItems(Int type, Int amount) {
    cTimedEffect::play("Effects/NewProductEffect.xml", *this);
    if (amount > 0) {
        sResourceCargo cargo = getCargo();
        cargo.add(type, amount);
        setCargo(cargo);
        updateView(false);
    }
    updateCargoProgress();
    return amount;
}

void cStartPoint::updateInfoTipPrice(sInfoTip& info) {
    info.text = toWide(std::to_string(getCargo().total(false)) + "/" + std::to_string(getCapacity()));
}

// The way back -------------------------------------------------------------------------------------------------------

/// Not by a pointer over the control panel, or one that has left the screen through its upper edge.
Bool cStartPoint::isPointedAt() const {
    const Vector2& cursor = cLogic::getInstance()->getCursorPos();
    return cursor.y > 0.0f && !getMap().isPanelAt(cursor);
}

void cStartPoint::hoverBridge(eButtonState state) {
    if (m_prev_level != -1)
        m_way.hover(state);
}

void cStartPoint::onGoBackHover(cView*) {
    cStartPoint* start = cTacticMap::getInstance()->getStartPoint();
    if (start->isPointedAt())
        start->hoverBridge(eButtonState::hovered);
}

void cStartPoint::onGoBackUnHover(cView*) {
    cStartPoint* start = cTacticMap::getInstance()->getStartPoint();
    if (start && start->isPointedAt())
        start->hoverBridge(eButtonState::normal);
}

void cStartPoint::onGoBackClick(cView*) {
    cTacticMap* map = cTacticMap::getInstance();
    if (map->getStartPoint()->isPointedAt())
        map->goBack();
}

void cStartPoint::askToGoBack() {
    ENGINE_MARK;
    hoverBridge(eButtonState::normal);
    m_question = new cYesNoExt(&getMap());
    m_question->setText("go_back");
    m_question->setYes(onGoBackConfirmed);
    m_question->setNo(onGoBackDeclided);
    showScreen(*m_question);
}

/// It gives the map back at once: what is done with that next has the last word.
void cStartPoint::closeQuestion() {
    cYesNoExt* question = std::exchange(m_question, nullptr);
    question->disable();
    discard(static_cast<cView*>(question), here());
}

void cStartPoint::onGoBackConfirmed(cView*) {
    ENGINE_MARK;
    cTacticMap* map = cTacticMap::getInstance();
    map->getStartPoint()->closeQuestion();
    map->loadNextLevel(map->getStartPoint()->getPrevLevel(), {});
}

void cStartPoint::onGoBackDeclided(cView*) {
    ENGINE_MARK;
    cTacticMap* map = cTacticMap::getInstance();
    map->getStartPoint()->closeQuestion();
    map->resume();
}
