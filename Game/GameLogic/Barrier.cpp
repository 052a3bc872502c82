#include "Game/GameLogic/Barrier.h"

#include <algorithm>
#include <cmath>

#include "Engine/Ui/ProgressFloat.h"
#include "Engine/core/Arch.h"
#include "Engine/core/CallStack.h"
#include "Engine/graphics/Graphics.h"
#include "Game/CommonUI/NewControlEffect.h"
#include "Game/GameLogic/WayPoint.h"
#include "Game/GameLogic/goals/Goal.h"
#include "Game/GameLogic/men/Man.h"
#include "Game/GameLogic/roads/DraggedRoad.h"
#include "Game/GameLogic/roads/Road.h"
#include "Game/GameLogic/roads/RoadPlan.h"
#include "Game/GameUI/Tactic/TacticMap.h"
#include "Game/Ui/GameStrings.h"

using namespace Engine;

namespace {

constexpr Float most_pieces = 200.0f;  ///< of one barrier

}  // namespace

cBarrier::cBarrier(cView* parent) : cLevelObject(parent), aTarget(static_cast<cLevelObject&>(*this)) {
    setAlpha(0.0f);  // the pieces are all that is seen of it
}

void cBarrier::loadXML(const iXML* xml) {
    ENGINE_MARK;
    cLevelObject::loadXML(xml);
    loadTargetXML(xml);
    loadUpgrades(xml);
}

void cBarrier::saveBinState(iArch& arch) {
    serializeEnds(arch);
}

void cBarrier::loadBinState(iArch& arch) {
    serializeEnds(arch);
}

void cBarrier::setConnectionPoint(Int p0, Int p1) {
    setEnds(p0, p1);
    Vector2 middle;
    getPosition(middle, true);
    setPosition(middle);
    setViewBuilt(false);
}

Bool cBarrier::isPlayerConnected() const {
    return hasEnds() && (getMap().getPoint(getP0()).player_connected || getMap().getPoint(getP1()).player_connected);
}

// A target -----------------------------------------------------------------------------------------------------------

void cBarrier::getPosition(Vector2& out, Bool local) const {
    out = (getMap().getPoint(getP0()).pos + getMap().getPoint(getP1()).pos) * 0.5f;
    if (local)
        out = getMap().toScreen(out);
}

void cBarrier::getTargetPosition(Vector2& out, const Vector2& center, Float radius, Bool local) const {
    const Vector2& a = getMap().getPoint(getP0()).pos;
    const Vector2& b = getMap().getPoint(getP1()).pos;
    getSegmentTarget(center, radius, a, b, out);
    if (local)
        out = getMap().toScreen(out);
}

Bool cBarrier::inDamageArea(const Vector2& center, Float radius) const {
    return getLevel() > 0 &&
           isSegmentHit(center, radius, getMap().getPoint(getP0()).pos, getMap().getPoint(getP1()).pos);
}

void cBarrier::damage() {
    ENGINE_MARK;
    aTarget::damage();
    degrade(1);
}

// Its work -----------------------------------------------------------------------------------------------------------

void cBarrier::loadWorkBar(const iXML* xml) {
    loadProgress(xml, this, "UpgradeTick");
    if (const cProgressFloat* bar = getProgressBar())
        m_progress_offset = bar->getPosition() - cControl::getPosition();
}

void cBarrier::addMan(cMan* man) {
    cUpgradableUnit::addMan(man);
    if (cProgressFloat* bar = getProgressBar())
        bar->setPosition(getEndPos(man->getPoint()) + m_progress_offset);
}

// Its level ----------------------------------------------------------------------------------------------------------

void cBarrier::updateInfoTipPrice(sInfoTip& info) {
    info.cargo = getPrice().amounts;
    info.compare_global = true;
}

void cBarrier::upgrade() {
    if (!countFinishedMan())
        return;
    setLevel(getLevel() + 1);
    setViewBuilt(false);
    finishUpgrade();
}

Bool cBarrier::degrade(Int amount) {
    if (getUpgradeState() != idle || getLevel() < 1)
        return false;
    setLevel(std::max(getLevel() - amount, 0));
    setViewBuilt(false);
    return true;
}

void cBarrier::setArc(Int type) {
    getMap().setArcType(getP0(), getP1(), type);
}

Int cBarrier::findClosestOf(const std::set<Int>& points, const cMan& man, Int src) const {
    Float best = no_way;
    Int res = -1;
    PATH_HOLDER path;
    for (const Int point : points) {
        if (!getMap().getBestPathByRoads(&man, src, point, path, true, true, false))
            continue;
        const Float length = getMap().getPathLength(path);
        if (length >= best)
            continue;
        best = length;
        res = point;
    }
    return res;
}

// The player's hand --------------------------------------------------------------------------------------------------

cWayPoint* cBarrier::getWayPoint() const {
    return hasEnds() ? getMap().getPoint(getP0()).way_point : nullptr;
}

Bool cBarrier::isOnScreen() const {
    const cGraphics* graphics = cGraphics::getInstance();
    const Vector2 place = cLevelObject::getPosition();
    return place.x >= 0.0f && place.y >= 0.0f && place.x < static_cast<Float>(graphics->getWidth()) &&
           place.y < static_cast<Float>(graphics->getHeight());
}

/// Nothing for one that can be got at already.
void cBarrier::proposeRoad() {
    cWayPoint* way_point = getWayPoint();
    if (!way_point || getMap().areTargetsShown())
        return;
    Int from = -1;
    if (cDraggedRoad* dragged = getMap().getRoadInDrag()) {
        dragged->hide();
        from = dragged->getP0();
    } else if (isPlayerConnected()) {
        return;
    }
    way_point->proposeRoadPlan(from);
    way_point->hideRoadPrice();
}

void cBarrier::showPossible(Bool possible) {
    if (possible && !isActive() && !getMap().isLocked() && isOnScreen())
        cNewControlEffect::play(this, *this, "Effects/UpAvailEffect.xml");
    setActive(possible);
    setStatePicture(getState());
}

void cBarrier::processRoad() {
    cWayPoint* way_point = getWayPoint();
    if (way_point && !getMap().getPoint(getP0()).player_connected)
        way_point->processRoadPlan();
}

void cBarrier::tellOrder(sInfoTip& info) const {
    if (!isShown() || !isEnabled())
        return;
    if (getUpgradeState() != idle) {
        info.text = getGameString(getLevel() == 0 ? "in_progress_of_building" : "in_progress_of_improvement");
        return;
    }
    if (getLevel() > 0)
        return;
    info.text = getGameString("build");
    info.cargo = getPrice().amounts;
    info.men = getNeededMen(goalUpgrade);
    info.compare_global = true;
}

void cBarrier::tellRoad(sInfoTip& info) const {
    const cWayPoint* way_point = getWayPoint();
    const cRoadPlan* plan = way_point ? way_point->getRoadPlan() : nullptr;
    if (getLevel() == 0 || isPlayerConnected() || !plan || !isShown() || !isEnabled())
        return;
    info.text = getGameString("road");
    info.cargo = plan->getPrice().amounts;
    info.compare_global = true;
}

// Its pieces ---------------------------------------------------------------------------------------------------------

Vector2 cBarrier::getEndPos(Int end) const {
    return getMap().toScreen(getMap().getPoint(end).pos);
}

std::vector<Vector2> cBarrier::layPieces(Float width, Float first_gap, Float last_gap) const {
    std::vector<Vector2> res;
    const Vector2 way = getEndPos(getP1()) - getEndPos(getP0());
    const Float whole = glm::length(way);
    const Float length = whole - first_gap - last_gap;
    if (!(width > 0.0f) || !(length > 0.0f))
        return res;
    const Vector2 direction = way / whole;
    const Vector2 start = getEndPos(getP0()) + direction * first_gap;
    const auto count = static_cast<std::size_t>(std::clamp(std::round(length / width), 1.0f, most_pieces));
    for (std::size_t i = 0; i < count; ++i)
        res.push_back(start + direction * (length * (static_cast<Float>(i) + 0.5f) / static_cast<Float>(count)));
    return res;
}
