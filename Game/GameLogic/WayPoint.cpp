#include "Game/GameLogic/WayPoint.h"

#include <array>
#include <cmath>

#include "Engine/Ui/LoadView.h"
#include "Engine/Ui/Picture.h"
#include "Engine/core/Arch.h"
#include "Engine/core/CallStack.h"
#include "Engine/core/Keys.h"
#include "Engine/core/Timer.h"
#include "Game/GameLogic/Angles.h"
#include "Game/GameLogic/buildings/Catapult.h"
#include "Game/GameLogic/buildings/Idol.h"
#include "Game/GameLogic/roads/RoadPlan.h"
#include "Game/GameUI/Tactic/TacticMap.h"

using namespace Engine;

cWayPoint::cWayPoint(cView* parent)
    : cFieldObject<cLevelObject>(parent),
      aTarget(static_cast<cLevelObject&>(*this)),
      m_back_picture(new cPicture(this)),
      m_gate_picture(new cPicture(this)),
      m_enemy_gate_picture(new cPicture(this)) {
    m_back_picture->setFlat(true);
}

cWayPoint::~cWayPoint() = default;

void cWayPoint::loadXML(const iXML* xml) {
    ENGINE_MARK;
    cFieldObject<cLevelObject>::loadXML(xml);
    loadTargetXML(xml);
    readKey(*xml, u"center_offset", m_center_offset);
    readKey(*xml, u"arrangement_radius", m_arrangement_radius);
    readKey(*xml, u"distance_to_gates", m_distance_to_gates);
    Float delta = getDelta();
    readKey(*xml, u"arrangement_delta", delta);
    setDelta(delta);
    loadChild(*m_back_picture, xml, "Back");
    loadChild(*m_gate_picture, xml, "Gates");
    loadChild(*m_enemy_gate_picture, xml, "EnemyGates");
    m_gate_picture->hide();
    m_enemy_gate_picture->hide();
    m_back_picture->hide();
    m_gate_size = m_gate_picture->getSize();
    m_gate_time = m_gate_picture->getAnimLength() * 0.5f;
}

void cWayPoint::saveBinState(iArch& arch) {
    arch << m_index;
}

void cWayPoint::loadBinState(iArch& arch) {
    arch << m_index;
}

void cWayPoint::setInitState() {
    setPosition(getMap().toScreen(getMap().getPoint(m_index).pos) + m_center_offset);
    updateInitialVisualState();
    hide();
}

// What the graph says ------------------------------------------------------------------------------------------------

Int cWayPoint::countArcs(Int type) const {
    Int res = 0;
    for (const auto& [neighbour, arc] : getMap().getPoint(m_index).arcs)
        res += arc.type == type ? 1 : 0;
    return res;
}

Bool cWayPoint::isFree() const {
    return getMap().getPoint(m_index).building == nullptr;
}

Bool cWayPoint::hasRoadArc(Bool with_ground) const {
    return countArcs(ARC_PLAYER_ROAD) + countArcs(ARC_ENEMY_ROAD) + (with_ground ? countArcs(ARC_GROUND) : 0) > 0;
}

void cWayPoint::updateConnections() {
    const sPointInfo& point = getMap().getPoint(m_index);
    setConnections(point.player_connected, point.enemy_connected);
}

// Where it is --------------------------------------------------------------------------------------------------------

void cWayPoint::getPosition(Vector2& out, Bool local) const {
    const Vector2& position = cControl::getPosition();
    out = local ? position : getMap().toMap(position);
}

void cWayPoint::getCenter(Vector2& out) const {
    out = getMap().getPoint(m_index).pos;
}

void cWayPoint::getEllipsePosition(Vector2& out, Float angle) const {
    out = getMap().toScreen(getMap().getPoint(m_index).pos);
    if (hasEllipse())
        out += Vector2(std::cos(angle), std::sin(angle)) * m_arrangement_radius;
}

// Looks --------------------------------------------------------------------------------------------------------------

Bool cWayPoint::isNodeSeen() const {
    const Bool is_fence_end = m_gate_kind == 1 && !hasRoadArc(true);
    return isFree() && !m_idol && !m_catapult && !getMap().getPoint(m_index).isWaterPoint() && !is_fence_end;
}

void cWayPoint::updateView(Bool hide) {
    aTarget::updateView(hide);
    if (m_index == -1 || hide)
        return this->hide();
    updateVisualState();
    if (isNodeSeen())
        show();
    else
        this->hide();
    if (m_road_plan && isPlanOutdated())
        pointerLeft();
    if (!m_back_picture->isShow())
        m_back_picture->show();
    updateRoadPlan();
    setEnabled(!isGateClosed(false, true));
    setStatePicture(getState());
}

void cWayPoint::updateVisualState() {
    updateGatesVisualState();
    updateBridgesInfo();
    updateInitialVisualState();
}

void cWayPoint::updateBridgesInfo() {
    m_has_player_bridge = countArcs(ARC_PLAYER_BRIDGE) + countArcs(ARC_PLAYER_BRIDGE_SITE) > 0;
    m_has_enemy_bridge = countArcs(ARC_ENEMY_BRIDGE) + countArcs(ARC_ENEMY_BRIDGE_SITE) > 0;
}

String cWayPoint::getVisualStateName() const {
    constexpr std::array<const char*, 4> names{"wp_neutral", "wp_enemy", "wp_player", "wp_border"};
    const sPointInfo& point = getMap().getPoint(m_index);
    const char* name = names[(point.player_connected ? 2u : 0u) + (point.enemy_connected ? 1u : 0u)];
    if (m_player_gates || m_has_player_bridge)
        name = names[2];
    if (m_enemy_gates || m_has_enemy_bridge)
        name = names[1];
    if (m_road_in_work || m_fence_in_work)
        name = names[2];
    if (m_gate_kind == gate_stands && !hasRoadArc(true))
        name = "wp_hidden";
    return name;
}

void cWayPoint::updateInitialVisualState() {
    const String name = getVisualStateName();
    changeVisualState(name);
    setBackgroundVisualState(name);
}

void cWayPoint::setBackgroundVisualState(const String& id) {
    const cState* state = findState(id + "_base");
    if (!state)
        return;
    m_back_picture->cState::operator=(*state);
    m_back_picture->setDirty();
}
