#include "Game/GameLogic/buildings/PlacedBuilding.h"

#include "Engine/Ui/Scavenger.h"
#include "Engine/core/CallStack.h"
#include "Engine/core/Keys.h"
#include "Game/GameLogic/WayPoint.h"
#include "Game/GameUI/Tactic/TacticMap.h"

using namespace Engine;

void cPlacedBuilding::loadXML(const iXML* xml) {
    ENGINE_MARK;
    cUpgradableBuilding::loadXML(xml);
    m_built_color = getColor();
    readKey(*xml, u"alfa_param", m_proposal_alpha);
    readKey(*xml, u"disabled_color", m_disabled_color);
}

// Its point ----------------------------------------------------------------------------------------------------------

void cPlacedBuilding::propose(Int point) {
    ENGINE_MARK;
    standOn(point);
    setInitState();
    setConnections(true, isEnemyConnected());
    enable();
    updateView(false);
    show();
}

void cPlacedBuilding::destroyPhantom() {
    vanish();
}

/// False without a way point.
Bool cPlacedBuilding::takeLeave(Bool phantom) {
    cWayPoint* way_point = getUnderWayPoint();
    if (!way_point)
        return false;
    leaveWayPoint(*way_point, phantom);
    getMap().showSitesAnew();
    return true;
}

// Its order ----------------------------------------------------------------------------------------------------------

Bool cPlacedBuilding::isUpgradeAllowed() {
    if (getLevel() == 0)
        setConnections(true, isEnemyConnected());
    return cUpgradableBuilding::isUpgradeAllowed();
}

void cPlacedBuilding::upgrade() {
    ENGINE_MARK;
    const Int level = getLevel();
    cUpgradableBuilding::upgrade();
    if (level != 0 || getLevel() != 1)
        return;
    getMap().setBuilding(getUnderPoint(), this);
    if (cWayPoint* way_point = getUnderWayPoint()) {
        way_point->deleteRoadPlan();
        way_point->hide();
        way_point->handOver();
    }
}

void cPlacedBuilding::finishUpgrade() {
    ENGINE_MARK;
    if (getLevel() == 0) {
        closeOrder();
        takeLeave(true);
    } else {
        cUpgradableBuilding::finishUpgrade();
    }
}

Bool cPlacedBuilding::degrade(Int amount) {
    ENGINE_MARK;
    if (!cUpgradableBuilding::degrade(amount))
        return false;
    if (getLevel() == 0)
        takeLeave(false);
    return true;
}

// Its looks ----------------------------------------------------------------------------------------------------------

void cPlacedBuilding::showProposal() {
    DXColor color = getUpgradeState() != idle || isUpgradeAllowed() ? m_built_color : m_disabled_color;
    color.a = m_proposal_alpha;
    setColor(color);
}

void cPlacedBuilding::updateView(Bool hide) {
    cUpgradableBuilding::updateView(hide);
    if (hide)
        return;
    if (getLevel() == 0)
        showProposal();
    else
        setColor(m_built_color);
}
