#include "Game/GameLogic/Barrier.h"

#include <algorithm>
#include <cmath>

#include "Engine/core/Arch.h"
#include "Engine/core/CallStack.h"
#include "Game/GameLogic/roads/Road.h"
#include "Game/GameUI/Tactic/TacticMap.h"

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
