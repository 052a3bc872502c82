// The gate of a way point that a line of fences passes.
#include <algorithm>
#include <array>
#include <cmath>

#include "Engine/Ui/Picture.h"
#include "Engine/Ui/Scavenger.h"
#include "Engine/core/CallStack.h"
#include "Engine/core/Timer.h"
#include "Game/CommonUI/SimpleEffect.h"
#include "Game/GameLogic/Angles.h"
#include "Game/GameLogic/WayPoint.h"
#include "Game/GameUI/Tactic/TacticMap.h"

using namespace Engine;

// The fences that meet here ------------------------------------------------------------------------------------------

Bool cWayPoint::isGateClosed(Bool player_fences, Bool enemy_fences) const {
    const cPathSearch& search = getMap().getSearch();
    return (player_fences && search.hasPointFlag(m_index, pointPlayerFence)) ||
           (enemy_fences && search.hasPointFlag(m_index, pointEnemyFence));
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
        gate->setSize({m_gate_size.x, m_fence_in_work ? m_gate_rise : m_gate_size.y});
        gate->show();
    }
    showGateDust(m_fence_in_work && m_gate_kind == gate_stands);
}

// A gate that rises --------------------------------------------------------------------------------------------------

void cWayPoint::showGateDust(Bool show) {
    if (show == (m_build_effect != nullptr))
        return;
    if (!show) {
        m_build_effect->hide();
        discard(static_cast<cView*>(m_build_effect), here());
        m_build_effect = nullptr;
        return;
    }
    m_build_effect = new cSimpleEffect(this, "Effects/BuildFenceEffect.xml");
    const Vector2& place = cControl::getPosition();
    m_build_effect->setDeep(place.y + m_build_effect->getDeep());
    m_build_effect->setPosition(place + m_build_effect->getPosition());
    m_build_effect->show();
    m_build_effect->enable();
}

/// Both fences of the line tell it of the same frames: each brings it half of the way.
void cWayPoint::setGroundLevel(Float time) {
    m_gate_rise = 0.0f;
    m_gate_rise_speed = m_gate_size.y / time * 0.5f;
    m_gate_picture->setSize({m_gate_size.x, 0.0f});
    m_enemy_gate_picture->setSize({m_gate_size.x, 0.0f});
}

void cWayPoint::growingUp(Float dt) {
    if (m_gate_kind != gate_stands)
        return;
    m_gate_rise = std::min(m_gate_rise + dt * m_gate_rise_speed, m_gate_size.y);
    (m_player_gates ? m_gate_picture : m_enemy_gate_picture)->setSize({m_gate_size.x, m_gate_rise});
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
