#include "Game/GameLogic/roads/Road.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "Engine/Ui/LoadView.h"
#include "Engine/Ui/ProgressFloat.h"
#include "Engine/Ui/Scavenger.h"
#include "Engine/core/Arch.h"
#include "Engine/core/CallStack.h"
#include "Game/GameLogic/WayPoint.h"
#include "Game/GameLogic/buildings/Building.h"
#include "Game/GameUI/Tactic/TacticMap.h"

using namespace Engine;

namespace {

constexpr Float least_length = 0.0001f;  ///< units: a shorter road has no direction
constexpr Float most_tiles = 1000.0f;    ///< of one road

}  // namespace

cRoad::cRoad(cView* parent)
    : cLevelObject(parent), aTarget(static_cast<cLevelObject&>(*this)), m_tile_template(new cProgressFloat(this)) {
    setAlpha(0.0f);  // the tiles are all that is seen of it
}

void cRoad::loadXML(const iXML* xml) {
    ENGINE_MARK;
    cLevelObject::loadXML(xml);
    loadTargetXML(xml);
    loadChild(*m_tile_template, xml, "TileTemplate");
    m_tile_template->hide();
}

void cRoad::saveBinState(iArch& arch) {
    serializeEnds(arch);
}

void cRoad::loadBinState(iArch& arch) {
    serializeEnds(arch);
}

// Its ends -----------------------------------------------------------------------------------------------------------

void cRoad::setConnectionPoint(Int p0, Int p1) {
    setEnds(p0, p1);
    calcRoadLength();
    setUpRoadBase();
}

Vector2 cRoad::getRoadPointPos(Int point) const {
    const sPointInfo& info = getMap().getPoint(point);
    const auto* building = dynamic_cast<const cBuilding*>(info.building);
    return building && building->getUnderPoint() == point ? building->getMapCenter() : info.pos;
}

void cRoad::calcRoadLength() {
    m_road_length = hasEnds() ? glm::distance(getRoadPointPos(getP0()), getRoadPointPos(getP1())) : 0.0f;
}

void cRoad::setUpRoadBase() {
    if (!hasEnds())
        return;
    const Vector2 way = getRoadPointPos(getP1()) - getRoadPointPos(getP0());
    Vector2 middle;
    getPosition(middle, true);
    setPosition(middle);
    setSize({m_road_length, m_tile_template->getSize().y});
    setAngle(-std::atan2(way.y, way.x));
}

void cRoad::getPosition(Vector2& out, Bool local) const {
    out = (getRoadPointPos(getP0()) + getRoadPointPos(getP1())) * 0.5f;
    if (local)
        out = getMap().toScreen(out);
}

void cRoad::getTargetPosition(Vector2& out, const Vector2& center, Float radius, Bool local) const {
    const Vector2 a = getRoadPointPos(getP0());
    const Vector2 b = getRoadPointPos(getP1());
    getSegmentTarget(center, radius, a, b, out);
    if (local)
        out = getMap().toScreen(out);
}

Bool cRoad::inDamageArea(const Vector2& center, Float radius) const {
    return isSegmentHit(center, radius, getRoadPointPos(getP0()), getRoadPointPos(getP1()));
}

void cRoad::damage() {
    ENGINE_MARK;
    aTarget::damage();
    getMap().deleteRoad(getP0(), getP1(), isEnemy(), true);
}

void cRoad::destroyMe() {
    ENGINE_MARK;
    aTarget::destroyMe();
    notifyDestroyed(0);
    getMap().unRegisterControl(this);
    getMap().setArcType(getP0(), getP1(), ARC_GROUND);
    for (const Int point : {getP0(), getP1()}) {
        if (cWayPoint* way_point = getMap().getPoint(point).way_point)
            way_point->updateView(false);
    }
    hide();
    disable();
    discard(static_cast<cView*>(this), here());
}

// Its tiles ----------------------------------------------------------------------------------------------------------

DXColor cRoad::getRoadColor() const {
    return m_tile_template->getColor();
}

void cRoad::updateView(Bool hide) {
    aTarget::updateView(hide);
    if (!hasEnds() || hide)
        return this->hide();
    if (!m_tiles_built)
        createTiles(getRoadPointPos(getP0()), getRoadPointPos(getP1()), getRoadColor(), false);
    show();
}

/// Where tiles lie, and how, between the two ends of their row.
struct cRoad::sTileRow {
    Vector2 start;      ///< on the screen
    Vector2 direction;  ///< of length 1
    Float length;       ///< units
    Float width;        ///< of a tile, units
    Float angle;        ///< radians
    cProgressFloat::eSide cut_side;
    DXColor color;
};

void cRoad::createTiles(const Vector2& from, const Vector2& to, const DXColor& color, Bool reverse) {
    const Vector2 way = to - from;
    const Float length = glm::length(way);
    const Float width = m_tile_template->getSize().x;
    m_tiles_built = true;
    if (!(length > least_length) || !(width > 0.0f))
        return deleteTiles();
    const Vector2 direction = way / length;
    // Controls turn against the clock; a tile that would stand on its head is turned round and filled from its end.
    Float angle = std::acos(std::clamp(direction.x, -1.0f, 1.0f)) * (direction.y > 0.0f ? -1.0f : 1.0f);
    const Bool turned = std::abs(angle) > std::numbers::pi_v<Float> * 0.5f;
    if (turned)
        angle += std::numbers::pi_v<Float>;
    const auto side = turned != reverse ? cProgressFloat::cutLeft : cProgressFloat::cutRight;
    const sTileRow row{getMap().toScreen(from), direction, length, width, angle, side, color};
    setTileCount(static_cast<std::size_t>(std::min(most_tiles, std::ceil(length / width))));
    for (std::size_t i = 0; i < m_tiles.size(); ++i)
        layTile(*m_tiles[i], row, width * static_cast<Float>(i));
}

void cRoad::layTile(cProgressFloat& tile, const sTileRow& row, Float begin) const {
    tile.setColor(row.color);
    tile.setAngle(row.angle);
    tile.setProgressMaxValue(row.width);
    tile.setProgressCurrentValue(std::min(row.width, row.length - begin));
    tile.setSide(row.cut_side);
    tile.setPosition(row.start + row.direction * (begin + row.width * 0.5f));
    tile.progressChanged();
    tile.show();
}

void cRoad::setTileCount(std::size_t count) {
    while (m_tiles.size() < count)
        m_tiles.push_back(new cProgressFloat(*m_tile_template));
    while (m_tiles.size() > count) {
        m_tiles.back()->hide();
        discard(static_cast<cView*>(m_tiles.back()), here());
        m_tiles.pop_back();
    }
}

void cRoad::deleteTiles() {
    setTileCount(0);
}

void cRoad::buildProcess(Float fraction) {
    const Vector2 from = getRoadPointPos(getP0());
    createTiles(from, from + (getRoadPointPos(getP1()) - from) * fraction, getRoadColor(), false);
}

Bool segmentCircle(const Vector2& center, Float radius, const Vector2& a, const Vector2& b, Vector2& out) {
    const Float length = glm::distance(a, b);
    if (!(length > 0.0f))
        return false;
    const Vector2 direction = (b - a) / length;
    const Vector2 from_center = a - center;
    const Float linear = 2.0f * glm::dot(direction, from_center);
    const Float discriminant = linear * linear - 4.0f * (glm::dot(from_center, from_center) - radius * radius);
    if (!(discriminant > 0.0f))
        return false;
    const Float root = std::sqrt(discriminant);
    const Float far_end = (root - linear) * 0.5f;
    const Float near_end = (-linear - root) * 0.5f;
    const auto counts = [length](Float t) { return t >= 0.0f && t <= length; };
    if (!counts(far_end) && !counts(near_end))
        return false;
    if (counts(far_end) && counts(near_end))
        out = a + direction * ((far_end + near_end) * 0.5f);
    else
        out = a + direction * (counts(far_end) ? far_end : near_end);
    return true;
}

void getSegmentTarget(const Vector2& center, Float radius, const Vector2& a, const Vector2& b, Vector2& out) {
    out = (a + b) * 0.5f;
    const Bool both_in = glm::distance(a, center) <= radius && glm::distance(b, center) <= radius;
    if (!both_in && glm::distance(out, center) > radius)
        segmentCircle(center, radius, a, b, out);
}

Bool isSegmentHit(const Vector2& center, Float radius, const Vector2& a, const Vector2& b) {
    Vector2 meeting;
    return segmentCircle(center, radius, a, b, meeting) || glm::distance((a + b) * 0.5f, center) <= radius;
}
