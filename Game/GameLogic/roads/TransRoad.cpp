#include "Game/GameLogic/roads/TransRoad.h"

#include <utility>

#include "Engine/Ui/ProgressFloat.h"
#include "Engine/Ui/Scavenger.h"
#include "Engine/Ui/Storage.h"
#include "Engine/core/CallStack.h"
#include "Engine/core/Keys.h"
#include "Game/GameLogic/WayPoint.h"
#include "Game/GameLogic/buildings/Building.h"
#include "Game/GameLogic/goals/BuildRoadGoal.h"
#include "Game/GameLogic/goals/DeliveryGoal.h"
#include "Game/GameLogic/goals/GoalsList.h"
#include "Game/GameUI/Tactic/TacticMap.h"
#include "Game/GameUI/Tactic/Utils.h"

using namespace Engine;

cTransRoad::~cTransRoad() = default;

void cTransRoad::loadXML(const iXML* xml) {
    ENGINE_MARK;
    cRoad::loadXML(xml);
    readKey(*xml, u"alfa_param", m_alfa_param);
    readKey(*xml, u"disabled_color", m_disabled_color);
    loadProgress(xml, this);
    if (const cProgressFloat* bar = getProgressBar())
        m_progress_offset = bar->getPosition() - cControl::getPosition();
}

DXColor cTransRoad::getRoadColor() const {
    DXColor res = cRoad::getRoadColor();
    if (!m_allowed && !cUtils::isRoadInProgress(getP0(), getP1()))
        res = m_disabled_color;
    res.a = m_alfa_param;
    return res;
}

void cTransRoad::setAllowed(Bool allowed) {
    m_allowed = allowed;
    for (cProgressFloat* tile : getTiles())
        tile->setColor(getRoadColor());
}

// Its order ----------------------------------------------------------------------------------------------------------

Int cTransRoad::getNeededResources(Int type) const {
    return m_road_price[type] - getUpgradeCargo().getCargo()[type];
}

std::shared_ptr<cDeliveryGoal> cTransRoad::getNewDeliveryGoal() {
    return std::make_shared<cDeliveryRoadGoal>(-1, getP1(), -1, this);
}

Bool cTransRoad::keepsWaiting(const cGoal&, Long) const {
    return !m_started;
}

Bool cTransRoad::createUpgradeGoals() {
    ENGINE_MARK;
    cTacticMap& map = getMap();
    if (map.hasRoad(getP0(), getP1(), true) || cUtils::isRoadInProgress(getP0(), getP1()))
        return false;
    std::vector<cBuilding*> providers;
    map.getSortedResourceProviders(providers, getP1());
    if (providers.empty())
        return false;
    map.setArcType(getP0(), getP1(), ARC_ROAD_IN_PROGRESS);
    Vector2 middle;
    cRoad::getPosition(middle, true);
    orderGoods(providers, middle, {1.0f, 0.0f},
               "cRoadPlan::createBuildGoals(): there are not enough resources on the level to build road");
    orderBuilders(getOrder());
    return true;
}

std::shared_ptr<cGoal> cTransRoad::getNewBuilderGoal() {
    return std::make_shared<cBuildRoadGoal>(getP1(), this);
}

void cTransRoad::upgrade() {
    ENGINE_MARK;
    if (!countFinishedMan())
        return;
    buildSolid();
    finishUpgrade();
}

void cTransRoad::buildSolid() {
    cTacticMap& map = getMap();
    auto* road = static_cast<cRoad*>(cLevelObject::create(objectRoad, map));
    road->setConnectionPoint(getP0(), getP1());
    road->updateView(false);
    if (auto* building = dynamic_cast<cBuilding*>(map.getPoint(getP0()).building))
        building->connect();
    else
        map.setPlayerConnected(getP0(), true);
    if (cWayPoint* way_point = map.getPoint(getP0()).way_point)
        way_point->hideRoadPrice();
    map.setPlayerConnected(getP1(), true);
    map.setArcType(getP0(), getP1(), ARC_PLAYER_ROAD);
}

/// Built or called off, those beside it close up. It is then the next one's turn, unless another is still before it;
/// men get there over the land too.
void cTransRoad::leaveChain() {
    if (m_next) {
        m_next->m_prev = m_prev;
        if (!m_prev)
            m_next->setStarted(true);
    }
    if (m_prev)
        m_prev->m_next = m_next;
    m_next = nullptr;
    m_prev = nullptr;
}

void cTransRoad::finishUpgrade() {
    ENGINE_MARK;
    leaveChain();
    cUpgradableUnit::finishUpgrade();
    cTacticMap& map = getMap();
    if (map.getPoint(getP0()).getArcType(getP1()) == ARC_ROAD_IN_PROGRESS)
        map.setArcType(getP0(), getP1(), ARC_GROUND);
    destroyMe();
    map.updateView(false);
}

void cTransRoad::callOff() {
    ENGINE_MARK;
    if (!getMap().callOffOrder(*this))
        finishUpgrade();
}

void cTransRoad::destroyMe() {
    ENGINE_MARK;
    leaveSight();
    leaveChain();
    forgetGoals();
    getMap().unRegisterControl(this);
    hide();
    disable();
    std::erase_if(cStorage<cTransRoad>::getStorage(), [this](const auto& entry) { return entry.second == this; });
    discard(static_cast<cView*>(this), here());
}

void cTransRoad::showProgress(Float cur, Float max) {
    if (cProgressFloat* bar = getProgressBar())
        bar->setPosition(getMap().toScreen(getMap().getPoint(getP1()).pos) + m_progress_offset);
    cUpgradableUnit::showProgress(cur, max);
}
