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

Bool cWayPoint::isGateClosed(Bool player_fences, Bool enemy_fences) const {
    const cPathSearch& search = getMap().getSearch();
    return (player_fences && search.hasPointFlag(m_index, pointPlayerFence)) ||
           (enemy_fences && search.hasPointFlag(m_index, pointEnemyFence));
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

void cWayPoint::setIdol(cIdol* idol) {
    m_idol = idol;
    getMap().setIdolFlag(m_index, idol != nullptr);
}

Bool cWayPoint::hasProposedIdol() const {
    return m_idol && m_idol->getLevel() == 0;
}

Bool cWayPoint::hasProposedCatapult() const {
    return m_catapult && m_catapult->getLevel() == 0;
}

Int cWayPoint::getFencesInfo(Int arc_type, Float& angle, Float& width) const {
    const sPointInfo& point = getMap().getPoint(m_index);
    std::array<Float, 2> directions{};
    Int count = 0;
    for (const auto& [neighbour, arc] : point.arcs) {
        if (arc.type != arc_type)
            continue;
        if (count == 2)
            throw "cWayPoint::getFencesInfo(): error in level design: there are more then two fence arcs in way point.";
        const Vector2 way = getMap().getPoint(neighbour).pos - point.pos;
        directions[static_cast<std::size_t>(count++)] = std::atan2(way.y, way.x);
    }
    if (count == 0)
        return 0;
    width = count == 2 ? angleDifference(directions[0], directions[1]) * 0.5f : 0.0f;
    angle = directions[0] + width;
    return count;
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

void cWayPoint::updateGatesVisualState() {
    struct sFences {
        Int count = 0;
        Float angle = 0.0f;
    };
    const auto find = [this](Int arc_type) {
        sFences res;
        Float width = 0.0f;
        res.count = getFencesInfo(arc_type, res.angle, width);
        return res;
    };
    const sFences player_fences = find(ARC_PLAYER_FENCE);
    const sFences player_sites = find(ARC_PLAYER_FENCE_SITE);
    const sFences enemy_fences = find(ARC_ENEMY_FENCE);
    const sFences enemy_sites = find(ARC_ENEMY_FENCE_SITE);
    const auto set = [this](Bool player, Int kind, Float angle) {
        m_player_gates = player;
        m_enemy_gates = !player;
        m_gate_kind = kind;
        showGatePicture(angle);
    };
    if (player_fences.count > 0)
        return set(true, player_fences.count, player_fences.angle);
    if (player_sites.count == 1 || (player_sites.count >= 2 && m_fence_in_work))
        return set(true, player_sites.count, player_sites.angle);
    if (enemy_fences.count > 0)
        return set(false, enemy_fences.count, enemy_fences.angle);
    if (enemy_sites.count >= 2 && !m_fence_in_work)
        return set(false, 1, enemy_sites.angle);
    if (enemy_sites.count > 0)
        return set(false, enemy_sites.count, enemy_sites.angle);
    m_gate_kind = 0;
    showGatePicture(0.0f);
}

void cWayPoint::showGatePicture(Float angle) {
    cPicture* seen = m_player_gates ? m_gate_picture : m_enemy_gate_picture;
    for (cPicture* gate : {m_gate_picture, m_enemy_gate_picture}) {
        if (gate != seen || m_gate_kind != gate_stands) {
            gate->hide();
            continue;
        }
        gate->setPosition(cControl::getPosition());
        gate->setAngle(-angle);
        gate->show();
    }
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

// Gates --------------------------------------------------------------------------------------------------------------

void cWayPoint::process() {
    cFieldObject<cLevelObject>::process();
    if (m_gate_state != gateShut)
        moveGates();
}

void cWayPoint::setGateTime(Float time) {
    m_gate_picture->setAnimTime(time);
    m_enemy_gate_picture->setAnimTime(time);
}

void cWayPoint::moveGates() {
    const Float step = cTimer::getInstance()->getStep();
    m_gate_timer -= step;
    setGateTime(m_gate_picture->getAnimTime() + step);
    if (m_gate_timer > 0.0f)
        return;
    if (m_gate_state == gateOpening) {
        m_gate_state = gateClosing;
        m_gate_timer = m_gate_time;
        setGateTime(m_gate_time);
    } else {
        m_gate_state = gateShut;
        setGateTime(0.0f);
    }
}

void cWayPoint::openGates() {
    if (m_gate_state == gateShut) {
        m_gate_timer = m_gate_time;
    } else if (m_gate_state == gateClosing) {
        // The animation closes as it opened, mirrored: as far from its end as it is now from its beginning.
        setGateTime(m_gate_picture->getAnimTime() + 2.0f * m_gate_timer);
        m_gate_timer = m_gate_time - m_gate_timer;
    } else {
        return;
    }
    m_gate_state = gateOpening;
}

void cWayPoint::closeGates() {
}
