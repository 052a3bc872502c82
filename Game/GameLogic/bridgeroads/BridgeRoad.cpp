#include "Game/GameLogic/bridgeroads/BridgeRoad.h"

#include <algorithm>
#include <cmath>

#include "Engine/Ui/LoadView.h"
#include "Engine/Ui/OverlayButton.h"
#include "Engine/Ui/Scavenger.h"
#include "Engine/core/CallStack.h"
#include "Engine/core/Keys.h"
#include "Game/GameLogic/bridgeroads/BridgesPlan.h"
#include "Game/GameUI/Tactic/TacticMap.h"

using namespace Engine;

cBridgeRoad::cBridgeRoad(cView* parent)
    : cBarrier(parent),
      m_tile_place(new cOverlayButton(this)),
      m_tile(new cOverlayButton(this)),
      m_left(new cOverlayButton(this)),
      m_right(new cOverlayButton(this)),
      m_left_damaged(new cOverlayButton(this)),
      m_right_damaged(new cOverlayButton(this)) {
}

void cBridgeRoad::loadXML(const iXML* xml) {
    ENGINE_MARK;
    cBarrier::loadXML(xml);
    readKey(*xml, u"damaged_tile_length", m_damaged_tile_length);
    const std::pair<cOverlayButton*, const char*> templates[] = {
        {m_tile_place, "TileBridgePlace"},
        {m_tile, "TileBridge"},
        {m_left, "LeftBridge"},
        {m_right, "RightBridge"},
        {m_left_damaged, "LeftBridgeDamaged"},
        {m_right_damaged, "RightBridgeDamaged"},
    };
    for (const auto& [view, tag] : templates) {
        loadChild(*view, xml, tag);
        view->disable();
        view->hide();
    }
}

// Its order ----------------------------------------------------------------------------------------------------------

Int cBridgeRoad::findClosestPoint(const cMan& man, Int src) const {
    return findClosestOf(cBridgesPlan(const_cast<cBridgeRoad&>(*this)).getPoints(), man, src);
}

void cBridgeRoad::endWork() {
    setViewBuilt(false);
    cUpgradableUnit::finishUpgrade();
    clearUpgradeMen();
}

void cBridgeRoad::finishUpgrade() {
    ENGINE_MARK;
    endWork();
    getMap().updateView(false);
}

Bool cBridgeRoad::degrade(Int amount) {
    ENGINE_MARK;
    if (getUpgradeState() != idle)
        return false;
    setLevel(getLevel() - amount);
    if (getLevel() >= 1)
        return true;
    setLevel(0);
    setArc(getSiteArc());
    setViewBuilt(false);
    getMap().updateView(false);
    getMap().onFenceBuilt();
    return true;
}

void cEnemyBridgeRoad::upgrade() {
    ENGINE_MARK;
    setLevel(getLevel() + 1);
    setArc(ARC_ENEMY_BRIDGE);
    finishUpgrade();
    getMap().onFenceBuilt();
}

// Its looks ----------------------------------------------------------------------------------------------------------

void cBridgeRoad::updateView(Bool hide) {
    aTarget::updateView(hide);
    if (!hasEnds() || hide)
        return this->hide();
    if (!isViewBuilt()) {
        build();
        setViewBuilt(true);
    }
    show();
    setStatePicture(getState());
}

void cBridgeRoad::hoverPieces(Int state) {
    for (cOverlayButton* piece : m_pieces)
        piece->setStatePicture(static_cast<eButtonState>(state));
}

Bool cBridgeRoad::pointInRect(const Vector2& point) const {
    if (!hasEnds())
        return false;
    const Vector2 start = getEndPos(getP0());
    const Vector2 way = getEndPos(getP1()) - start;
    const Float part = glm::dot(point - start, way) / std::max(glm::dot(way, way), 1.0f);
    const Float half_width = m_tile->getSize().y * 0.5f;
    return part >= 0.0f && part <= 1.0f && glm::distance(point, start + way * part) <= half_width;
}

/// Laid from the left end, so that no piece stands on its head.
void cBridgeRoad::build() {
    for (cOverlayButton* piece : m_pieces) {
        piece->hide();
        discard(static_cast<cView*>(piece), here());
    }
    m_pieces.clear();
    Vector2 way = getEndPos(getP1()) - getEndPos(getP0());
    const Bool is_turned = way.x < 0.0f;
    if (is_turned)
        way = -way;
    const Float angle = -std::atan2(way.y, way.x);
    const cOverlayButton& proto = getLevel() > 0 ? *m_tile : *m_tile_place;
    const Float width = getLevel() == 0 && m_damaged_tile_length > 0.0f ? m_damaged_tile_length : proto.getSize().x;
    const Float end = m_left->getSize().x;
    const std::vector<Vector2> places = layPieces(width, end, end);
    for (const Vector2& place : places)
        createTile(proto, place, angle);
    if (getLevel() > 0 && places.size() > 1)
        closeGaps(glm::distance(places[0], places[1]));
    createEnds(angle, is_turned);
}

void cBridgeRoad::createTile(const cOverlayButton& proto, const Vector2& place, Float angle) {
    auto* piece = new cOverlayButton(proto);
    piece->setPosition(place);
    piece->setAngle(angle);
    piece->show();
    m_pieces.push_back(piece);
}

/// Planks that lie further apart than they are long are stretched to meet.
void cBridgeRoad::closeGaps(Float distance) {
    for (cOverlayButton* piece : m_pieces)
        piece->setSize({std::max(piece->getSize().x, distance), piece->getSize().y});
}

/// An end lies between its shore and the first piece.
void cBridgeRoad::createEnds(Float angle, Bool is_turned) {
    const Vector2 left = getEndPos(is_turned ? getP1() : getP0());
    const Vector2 right = getEndPos(is_turned ? getP0() : getP1());
    const cOverlayButton& left_end = getLevel() > 0 ? *m_left : *m_left_damaged;
    const cOverlayButton& right_end = getLevel() > 0 ? *m_right : *m_right_damaged;
    const Vector2 direction(std::cos(angle), -std::sin(angle));
    createTile(left_end, left + direction * (left_end.getSize().x * 0.5f), angle);
    createTile(right_end, right - direction * (right_end.getSize().x * 0.5f), angle);
}
