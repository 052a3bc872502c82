#include "Game/GameLogic/buildings/Catapult.h"

#include "Engine/Ui/LoadView.h"
#include "Engine/Ui/Picture.h"
#include "Engine/core/Arch.h"
#include "Engine/core/CallStack.h"
#include "Engine/core/Keys.h"
#include "Game/GameLogic/SavedValue.h"
#include "Game/GameLogic/WayPoint.h"
#include "Game/GameUI/Tactic/TacticMap.h"

using namespace Engine;

void cCatapultUpgrade::loadXML(const iXML* xml) {
    cUpgrade::loadXML(xml);
    readKey(*xml, u"DamageRadius", damage_radius);
    readKey(*xml, u"Height", height);
    loadChild(charge_cargo, xml, "ChargeCargo");
}

// Any catapult -------------------------------------------------------------------------------------------------------

cCatapult::cCatapult(cView* parent) : cPlacedBuilding(parent), m_damage_area(new cPicture(this)) {
    m_damage_area->setFlat(true);
}

void cCatapult::loadXML(const iXML* xml) {
    ENGINE_MARK;
    cPlacedBuilding::loadXML(xml);
    loadChild(*m_damage_area, xml, "DamageArea");
    m_damage_area->hide();
}

Bool cCatapult::initUnderWayPoint(Int index) {
    const Bool res = cPlacedBuilding::initUnderWayPoint(index);
    if (cWayPoint* way_point = getMap().getPoint(index).way_point)
        way_point->setCatapult(this);
    return res;
}

void cCatapult::leaveWayPoint(cWayPoint& way_point, Bool phantom) {
    if (way_point.getCatapult() == this)
        way_point.deleteCatapult(!phantom, true);
}

void cCatapult::destroyMe() {
    ENGINE_MARK;
    getMap().catapultEnded(*this);
    cPlacedBuilding::destroyMe();
}

void cCatapult::destroyPhantom() {
    getMap().catapultEnded(*this);
    cPlacedBuilding::destroyPhantom();
}

void cCatapult::shot(aTarget* target) {
    m_target = target;
    updateView(false);
}

// The player's -------------------------------------------------------------------------------------------------------

Float cPlayerCatapult::getDamageRadius() const {
    const cUpgrade* row = getUpgradeRow();
    return row ? static_cast<const cCatapultUpgrade*>(row)->damage_radius : 0.0f;
}

void cPlayerCatapult::showDamageArea() {
    const Float radius = getDamageRadius();
    getDamageArea().setSize({2.0f * radius, 2.0f * radius});
    getDamageArea().show();
    getMap().showTargets(this, true);
}

void cPlayerCatapult::hideDamageArea() {
    if (getMap().getCatapultOfTargets() == this && !getMap().areTargetsShown()) {
        getMap().hideTargets();
        getDamageArea().hide();
    }
    updateView(false);
}

void cPlayerCatapult::hovered() {
    cCatapult::hovered();
    if (isPlayerConnected() && !getTarget() && !getMap().areTargetsShown() && !getMap().isIdolInHand())
        showDamageArea();
}

void cPlayerCatapult::unhovered() {
    cCatapult::unhovered();
    if (isPlayerConnected())
        hideDamageArea();
}

void cPlayerCatapult::upgrade() {
    ENGINE_MARK;
    cCatapult::upgrade();
    if (getMap().getCatapultOfTargets() != this)
        return;
    getMap().setTargetsShown(false);
    hideDamageArea();
}

// The enemy's --------------------------------------------------------------------------------------------------------

void cEnemyCatapult::setInitState() {
    cCatapult::setInitState();
    setActive(false);
}

void cEnemyCatapult::damage() {
    ENGINE_MARK;
    takeHit();
    if (cWayPoint* way_point = getUnderWayPoint())
        way_point->deleteCatapult(true, true);
    getMap().showSitesAnew();
}

void cEnemyCatapult::loadXmlState(const iXML* xml) {
    ENGINE_MARK;
    cCatapult::loadXmlState(xml);
    setLevel(1);
    readKey(*xml, u"start_time", m_start_time);
    readKey(*xml, u"delay", m_delay);
    readKey(*xml, u"repeat", m_repeat);
    readKey(*xml, u"is_arc", m_is_arc);
    readKey(*xml, u"src_point", m_src_point);
    readKey(*xml, u"dst_point", m_dst_point);
}

void cEnemyCatapult::serialize(iArch& arch) {
    for (Float* time : {&m_clock, &m_start_time, &m_delay})
        serializeNumber(arch, *time);
    serializeBool(arch, m_repeat);
    serializeBool(arch, m_is_arc);
    arch << m_src_point << m_dst_point;
}

void cEnemyCatapult::saveBinState(iArch& arch) {
    cCatapult::saveBinState(arch);
    serialize(arch);
}

void cEnemyCatapult::loadBinState(iArch& arch) {
    cCatapult::loadBinState(arch);
    serialize(arch);
}
