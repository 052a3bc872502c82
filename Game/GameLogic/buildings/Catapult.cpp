#include "Game/GameLogic/buildings/Catapult.h"

#include "Engine/core/Arch.h"
#include "Engine/core/CallStack.h"
#include "Engine/core/Keys.h"
#include "Game/GameLogic/SavedValue.h"
#include "Game/GameLogic/WayPoint.h"
#include "Game/GameUI/Tactic/TacticMap.h"

using namespace Engine;

Bool cCatapult::initUnderWayPoint(Int index) {
    const Bool res = cUpgradableBuilding::initUnderWayPoint(index);
    if (cWayPoint* way_point = getMap().getPoint(index).way_point)
        way_point->setCatapult(this);
    return res;
}

void cEnemyCatapult::loadXmlState(const iXML* xml) {
    ENGINE_MARK;
    cCatapult::loadXmlState(xml);
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
