#include "Game/GameLogic/fences/Fence.h"

#include <algorithm>
#include <cmath>

#include "Engine/Ui/LoadView.h"
#include "Engine/Ui/OverlayButton.h"
#include "Engine/Ui/Scavenger.h"
#include "Engine/core/CallStack.h"
#include "Engine/core/Keys.h"
#include "Game/CommonUI/SimpleEffect.h"
#include "Game/GameLogic/WayPoint.h"
#include "Game/GameLogic/fences/FencePlan.h"
#include "Game/GameUI/Tactic/TacticMap.h"

using namespace Engine;

namespace {

constexpr Float dust_gap = 44.0f;      ///< units between two clouds of dust, which overlap
constexpr std::size_t most_dust = 12;  ///< clouds on one fence

/// A template is a pattern and nothing else.
void loadTemplate(cPicture& view, const iXML* xml, const char* tag) {
    loadChild(view, xml, tag);
    view.disable();
    view.hide();
}

template <class T>
void discardAll(std::vector<T*>& views) {
    for (T* view : views) {
        view->hide();
        discard(static_cast<cView*>(view), here());
    }
    views.clear();
}

}  // namespace

cFence::cFence(cView* parent)
    : cBarrier(parent),
      m_tile_fence(new cOverlayButton(this)),
      m_tile_place(new cOverlayButton(this)),
      m_fence_tower(new cPicture(this)) {
}

cFence::~cFence() = default;

void cFence::loadXML(const iXML* xml) {
    ENGINE_MARK;
    cBarrier::loadXML(xml);
    readKey(*xml, u"default_building_time", m_default_building_time);
    readKey(*xml, u"disabled_color", m_disabled_color);
    readKey(*xml, u"gate_gap", m_gate_gap);
    loadTemplate(*m_tile_fence, xml, "TileFence");
    loadTemplate(*m_tile_place, xml, "TileFencePlace");
    loadTemplate(*m_fence_tower, xml, "FenceTower");
}

void cFence::setInitState() {
    hide();
    if (getLevel() == 0)
        m_height = 0.0f;
}

// Its order ----------------------------------------------------------------------------------------------------------

Int cFence::findClosestPoint(const cMan& man, Int src) const {
    return findClosestOf(cFencePlan(const_cast<cFence&>(*this)).getPoints(), man, src);
}

void cFence::endWork() {
    m_growing = false;
    setViewBuilt(false);
    showDustEffect(false);
    cUpgradableUnit::finishUpgrade();
    clearUpgradeMen();
}

void cFence::finishUpgrade() {
    ENGINE_MARK;
    endWork();
    getMap().updateView(false);
}

Bool cFence::degrade(Int amount) {
    ENGINE_MARK;
    if (getUpgradeState() != idle)
        return false;
    setLevel(getLevel() - amount);
    if (getLevel() >= 1)
        return true;
    setLevel(0);
    setArc(getSiteArc());
    invalidateFences();
    getMap().updateView(false);
    getMap().onFenceBuilt();
    return true;
}

// Growing ------------------------------------------------------------------------------------------------------------

Float cFence::getFullHeight() const {
    return m_tile_fence->getSize().y;
}

void cFence::setGroundLevel(Float time) {
    ENGINE_MARK;
    if (m_growing)
        return;
    if (time <= 0.0f)
        time = m_default_building_time;
    m_height = 0.0f;
    m_growth_speed = getFullHeight() / time;
    build();
    for (const Int end : {getP0(), getP1()}) {
        if (cWayPoint* way_point = getMap().getPoint(end).way_point) {
            way_point->setGroundLevel(time);
            way_point->setFenceInWork(true);
        }
    }
    showDustEffect(true);
    m_growing = true;
}

void cFence::growingUp(Float dt) {
    m_height = std::min(m_height + dt * m_growth_speed, getFullHeight());
    updateTiles();
    for (const Int end : {getP0(), getP1()}) {
        if (cWayPoint* way_point = getMap().getPoint(end).way_point)
            way_point->growingUp(dt);
    }
}

void cFence::showDustEffect(Bool show) {
    discardAll(m_dust);
    if (!show)
        return;
    std::vector<Vector2> places = layPieces(dust_gap, getGap(getP0()), getGap(getP1()));
    if (places.size() > most_dust)
        places = layPieces(dust_gap * static_cast<Float>(places.size()) / static_cast<Float>(most_dust),
                           getGap(getP0()), getGap(getP1()));
    for (const Vector2& place : places) {
        auto* dust = new cSimpleEffect(this, "Effects/BuildFenceEffect.xml");
        // They don't puff all at once.
        dust->setAnimTime(dust->getAnimLength() * static_cast<Float>(m_dust.size() % 3) / 3.0f);
        dust->setDeep(place.y + dust->getDeep());
        dust->setPosition(place + dust->getPosition());
        dust->show();
        dust->enable();
        m_dust.push_back(dust);
    }
}

// Its looks ----------------------------------------------------------------------------------------------------------

void cFence::updateView(Bool hide) {
    aTarget::updateView(hide);
    if (!hasEnds() || hide)
        return this->hide();
    if (m_growing)
        return;
    if (!isViewBuilt()) {
        updateWayPoints();
        if (getLevel() == 0) {
            buildFencePlace();
        } else {
            m_height = getFullHeight();
            build();
        }
        show();
        setViewBuilt(true);
    }
    if (!isShow())
        show();
    setStatePicture(getState());
}

void cFence::updateWayPoints() {
    for (const Int end : {getP0(), getP1()}) {
        if (cWayPoint* way_point = getMap().getPoint(end).way_point)
            way_point->updateView(false);
    }
}

void cFence::setStatePicture(eButtonState state) {
    cBarrier::setStatePicture(state);
    if (!m_shows_site)
        return;
    const DXColor& color = looksDisabled() ? m_disabled_color : m_tile_place->getColor();
    for (cOverlayButton* tile : m_tiles)
        tile->setColor(color);
}

void cFence::hoverTiles(Int state) {
    for (cOverlayButton* tile : m_tiles)
        tile->setStatePicture(static_cast<eButtonState>(state));
}

Bool cFence::pointInRect(const Vector2& point) const {
    const Float below_foot = 10.0f;  ///< units at most
    return std::any_of(m_tiles.begin(), m_tiles.end(), [&point, below_foot](const cOverlayButton* tile) {
        const Vector2 half = tile->getSize() * 0.5f;
        const Vector2 way = point - tile->getPosition();
        const Float y = way.y - tile->getSkew() * way.x / tile->getSize().x;
        return std::abs(way.x) <= half.x && y >= -half.y && y <= std::min(half.y, below_foot);
    });
}

Int cFence::getGateKind(Int end) const {
    const cWayPoint* way_point = getMap().getPoint(end).way_point;
    return way_point ? way_point->getGateKind() : 0;
}

Float cFence::getGap(Int end) const {
    return getGateKind(end) == cWayPoint::gate_stands ? m_gate_gap : 0.0f;
}

Float cFence::getDeepAt(const Vector2& place, const cControl& proto) const {
    return place.y + proto.getDeep() - getDeep();
}

void cFence::deleteTiles() {
    discardAll(m_tiles);
    discardAll(m_towers);
}

cOverlayButton* cFence::createTile(const Vector2& place, const cOverlayButton& proto) {
    auto* tile = new cOverlayButton(proto);
    tile->setPosition(place);
    lean(*tile, proto.getSize().x);
    tile->setDeep(getDeepAt(place, proto));
    tile->show();
    return tile;
}

void cFence::createTower(Int end) {
    auto* tower = new cPicture(*m_fence_tower);
    const Vector2 place = getEndPos(end);
    tower->setPosition(place);
    tower->setDeep(getDeepAt(place, *m_fence_tower));
    tower->show();
    m_towers.push_back(tower);
}

/// A piece goes along with its line: one that runs up the screen is seen from its side, as broad as its posts.
void cFence::lean(cOverlayButton& tile, Float width) const {
    constexpr Float least_part = 0.4f;  ///< of its width
    const Vector2 way = getEndPos(getP1()) - getEndPos(getP0());
    const Vector2 part = way / std::max(glm::length(way), 1.0f) * (way.x < 0.0f ? -1.0f : 1.0f);
    tile.setSize({width * std::max(part.x, least_part), tile.getSize().y});
    tile.setSkew(width * part.y);
}

void cFence::create2DTiles(const cOverlayButton& proto) {
    for (const Vector2& place : layPieces(proto.getSize().x, getGap(getP0()), getGap(getP1())))
        m_tiles.push_back(createTile(place, proto));
}

void cFence::buildFencePlace() {
    deleteTiles();
    m_shows_site = true;
    create2DTiles(*m_tile_place);
}

void cFence::build() {
    deleteTiles();
    m_shows_site = false;
    create2DTiles(*m_tile_fence);
    for (const Int end : {getP0(), getP1()}) {
        if (getGateKind(end) == 1)
            createTower(end);
    }
    updateTiles();
}

/// Brings them to the height that they have now.
void cFence::updateTiles() {
    const Float part = getFullHeight() > 0.0f ? m_height / getFullHeight() : 1.0f;
    for (cOverlayButton* tile : m_tiles) {
        tile->setStatePicture(eButtonState::normal);  // what lights it up would keep its size
        tile->setSize({tile->getSize().x, m_tile_fence->getSize().y * part});
    }
    for (cPicture* tower : m_towers)
        tower->setSize({tower->getSize().x, m_fence_tower->getSize().y * part});
}
