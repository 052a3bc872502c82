#include "Game/GameLogic/buildings/Building.h"

#include <algorithm>
#include <cmath>

#include "Engine/Ui/LoadView.h"
#include "Engine/Ui/Picture.h"
#include "Engine/Ui/Scavenger.h"
#include "Engine/core/Arch.h"
#include "Engine/core/CallStack.h"
#include "Engine/core/Keys.h"
#include "Game/GameLogic/SavedValue.h"
#include "Game/GameLogic/WayPoint.h"
#include "Game/GameUI/Tactic/TacticMap.h"
#include "Game/Ui/GameSounds.h"
#include "Game/Ui/GameStrings.h"

using namespace Engine;

namespace {

constexpr Float radians_per_degree = 0.017453292f;
constexpr Float least_ellipse = 0.001f;  ///< half axis, units: nothing is divided by 0
constexpr Int most_goods = 100000;       ///< of all kinds in one store: each item may become a goal

}  // namespace

cBuilding::BUILDINGS& cBuilding::getList() {
    static auto* list = new BUILDINGS;
    return *list;
}

cBuilding::cBuilding(cView* parent)
    : cFieldObject<cLevelObject>(parent),
      aTarget(static_cast<cLevelObject&>(*this)),
      m_base(new cPicture(this)),
      m_shadow(new cPicture(this)) {
    m_base->setFlat(true);
    m_shadow->setFlat(true);
    getList().push_back(this);
}

cBuilding::~cBuilding() {
    std::erase(getList(), this);
}

void cBuilding::loadXML(const iXML* xml) {
    ENGINE_MARK;
    cFieldObject<cLevelObject>::loadXML(xml);
    loadCargoXML(xml, this);
    loadTargetXML(xml);
    loadChild(*m_base, xml, "Base");
    loadChild(*m_shadow, xml, "Shadow");
    readKey(*xml, u"ellipse_a", m_ellipse_a);
    readKey(*xml, u"ellipse_b", m_ellipse_b);
    m_ellipse_a = std::max(m_ellipse_a, least_ellipse);
    m_eccentricity = std::sqrt(std::max(0.0f, m_ellipse_a * m_ellipse_a - m_ellipse_b * m_ellipse_b)) / m_ellipse_a;
    m_focus_gap = (1.0f - m_eccentricity) * m_ellipse_a;
    Float delta = getDelta();
    readKey(*xml, u"arrangement_delta", delta);
    setDelta(delta);
    m_has_entrance = readKey(*xml, u"entrance_angle", m_entrance_angle);
    m_entrance_angle *= radians_per_degree;
}

// Its place ----------------------------------------------------------------------------------------------------------

void cBuilding::place(const Vector2& center) {
    m_center = center;
    setPosition(getMap().toScreen(center));
}

void cBuilding::getPosition(Vector2& out, Bool local) const {
    out = local ? getMap().toScreen(m_center) : m_center;
}

void cBuilding::getEllipsePosition(Vector2& out, Float angle) const {
    out = getMap().toScreen(m_center) + Vector2(m_ellipse_a * std::cos(angle), m_ellipse_b * std::sin(angle));
}

void cBuilding::standOn(Int point) {
    m_points = {point};
    const sPointInfo& info = getMap().getPoint(point);
    if (info.way_point)
        place(getMap().toMap(info.way_point->cControl::getPosition()));
    else
        place(info.pos);
}

Bool cBuilding::initUnderWayPoint(Int index) {
    cTacticMap& map = getMap();
    map.setBuilding(index, this);
    if (cWayPoint* way_point = map.getPoint(index).way_point)
        way_point->hide();
    return !map.getPoint(index).isWaterPoint();
}

cWayPoint* cBuilding::getUnderWayPoint() const {
    return m_points.empty() ? nullptr : getMap().getPoint(m_points.front()).way_point;
}

Bool cBuilding::isOnPoint(Int point) const {
    return std::find(m_points.begin(), m_points.end(), point) != m_points.end();
}

Bool cBuilding::isStore() const {
    return getType() == objectWarehouse || getType() == objectStartPoint;
}

Bool cBuilding::isProvider() const {
    switch (getType()) {
        case objectStoneMill:
        case objectIronMill:
        case objectFoodMill:
        case objectWoodMill:
            return true;
        default:
            return isStore();
    }
}

void cBuilding::connect() {
    for (const Int point : m_points)
        getMap().setPlayerConnected(point, true);
}

void cBuilding::clearUnderPoints() {
    cTacticMap& map = getMap();
    for (const Int point : m_points) {
        if (map.getPoint(point).building == this)
            map.setBuilding(point, nullptr);
        if (cWayPoint* way_point = map.getPoint(point).way_point)
            way_point->updateView(false);
    }
}

// Its state ----------------------------------------------------------------------------------------------------------

void cBuilding::loadXmlState(const iXML* xml) {
    ENGINE_MARK;
    cFieldObject<cLevelObject>::loadXmlState(xml);
    iXML* points = nullptr;
    if (xml->get("Points", points)) {
        for (UInt i = 0; i < points->getTagCount(); ++i) {
            iXML* tag = nullptr;
            points->get(i, tag);
            Int index = -1;
            readKey(*tag, u"index", index);
            requirePoint(index, "cBuilding::loadXmlState()");
            if (initUnderWayPoint(index))
                m_points.push_back(index);
        }
    }
    Vector2 center{0.0f, 0.0f};
    readKey(*xml, u"Position", center);
    place(center);
    sResourceCargo cargo;
    cargo.loadXML(xml);
    setCargo(cargo);
    requireGoods();
}

/// Who goes to a point goes to what stands there: one thing.
void cBuilding::requirePoint(Int index, const char* where) const {
    if (!getMap().hasPoint(index))
        throw String(where) + ": no point " + std::to_string(index) + " under the building";
    const cLevelObject* other = getMap().getPoint(index).building;
    if (other && other != this)
        throw String(where) + ": two buildings on point " + std::to_string(index);
}

void cBuilding::requireGoods() const {
    const Int goods = getCargo().total(false);
    if (goods > most_goods)
        throw String("cBuilding: ") + std::to_string(goods) + " goods in one store are too many";
}

void cBuilding::saveBinState(iArch& arch) {
    Int count = static_cast<Int>(m_points.size());
    arch << count;
    for (Int point : m_points)
        arch << point;
    cCargoStorage::saveBinState(arch);
    arch << m_center;
}

void cBuilding::loadBinState(iArch& arch) {
    ENGINE_MARK;
    for (Int left = readCount(arch, sizeof(Int), "points under a building"); left > 0; --left) {
        Int point = -1;
        arch << point;
        requirePoint(point, "cBuilding::loadBinState()");
        m_points.push_back(point);
        initUnderWayPoint(point);
    }
    cCargoStorage::loadBinState(arch);
    requireGoods();
    Vector2 center{0.0f, 0.0f};
    serializeNumber(arch, center);
    place(center);
}

void cBuilding::setInitState() {
    updateVisualState();
    hide();
}

void cBuilding::updateConnections() {
    Bool player = false;
    Bool enemy = false;
    for (const Int point : m_points) {
        player = player || getMap().getPoint(point).player_connected;
        enemy = enemy || getMap().getPoint(point).enemy_connected;
    }
    setConnections(player, enemy);
}

void cBuilding::destroyMe() {
    ENGINE_MARK;
    aTarget::destroyMe();
    notifyDestroyed(0);
    clearWorkingMen();
    clearUnderPoints();
    handOver();
    vanish();
}

void cBuilding::vanish() {
    hide();
    disable();
    std::erase(getList(), this);
    discard(static_cast<cView*>(this), here());
}

// The pointer --------------------------------------------------------------------------------------------------------

void cBuilding::hovered() {
    cFieldObject<cLevelObject>::hovered();
    if (cWayPoint* way_point = getUnderWayPoint())
        way_point->pointerCame();
}

void cBuilding::unhovered() {
    cFieldObject<cLevelObject>::unhovered();
    if (cWayPoint* way_point = getUnderWayPoint())
        way_point->pointerLeft();
}

void cBuilding::clicked() {
    ENGINE_MARK;
    cWayPoint* way_point = getUnderWayPoint();
    if (!isPlayerConnected() && way_point && !getMap().getRoadInDrag()) {
        if (way_point->pointerCame())
            way_point->processRoadPlan();
        if (!isActive())
            playGameSound("btn_clicked");
    }
    cFieldObject<cLevelObject>::clicked();
}

// Its looks ----------------------------------------------------------------------------------------------------------

void cBuilding::updateView(Bool hide) {
    cFieldObject<cLevelObject>::updateView(hide);
    aTarget::updateView(hide);
    if (hide)
        return;
    m_base->show();
    m_shadow->show();
    for (const Int point : m_points) {
        if (cWayPoint* way_point = getMap().getPoint(point).way_point)
            way_point->updateView(false);
    }
}

void cBuilding::updateVisualState() {
    const String name = getVisualStateName();
    const cState* state = findState(name);
    if (!state)
        return;
    cLevelObject::changeVisualState(*state);
    setBackgroundVisualState(name);
}

void cBuilding::setBackgroundVisualState(const String& id) {
    const cState* state = findState(id + "_base");
    if (!state)
        state = findState("common_base");
    if (!state)
        return;
    m_base->cState::operator=(*state);
    m_base->setDirty();
}

void cBuilding::updateInfoTipCargo(sInfoTip& info) {
    if (!isProvider() || !cLevelObject::isPlayerConnected())
        return;
    info.text = getGameString(getCargo().total(true) > 0 ? "stock" : "stock_empty");
    info.cargo = getCargo().amounts;
}

void cBuilding::updateInfoTipPrice(sInfoTip&) {
}
