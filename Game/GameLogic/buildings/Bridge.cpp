#include "Game/GameLogic/buildings/Bridge.h"

#include <array>
#include <cstdio>

#include <glm/trigonometric.hpp>

#include "Engine/Ui/LoadView.h"
#include "Engine/Ui/Profile.h"
#include "Engine/core/Arch.h"
#include "Engine/core/CallStack.h"
#include "Engine/core/Keys.h"
#include "Engine/core/Timer.h"
#include "Game/GameLogic/SavedValue.h"
#include "Game/GameLogic/buildings/Caravan.h"
#include "Game/GameLogic/goals/Goal.h"
#include "Game/GameUI/Tactic/TacticMap.h"
#include "Game/GameUI/Tactic/Utils.h"
#include "Game/Ui/GameSounds.h"
#include "Game/Ui/GameStrings.h"

using namespace Engine;

namespace {

constexpr ULong least_upgrade = 36;  ///< bytes in a saved level
constexpr std::size_t least_rows = 2;
constexpr Float frame_end = 0.01f;  ///< seconds before an animation's end at which its last frame is seen for certain

constexpr Int harbour_level = 11;  ///< the last level before the crossing that takes a plan of its own
constexpr Int harbour_plan = 32;   ///< that product

}  // namespace

cBridge::cBridge(cView* parent)
    : cUpgradableBuilding(parent),
      m_way(*this),
      m_caravan(new cCaravan(*this)),
      m_goods(new cPicture(this)),
      m_clock(*this) {
}

void cBridge::loadXML(const iXML* xml) {
    ENGINE_MARK;
    cUpgradableBuilding::loadXML(xml);
    readKey(*xml, u"speed", m_speed);
    Float degrees = 0.0f;
    readKey(*xml, u"caravan_angle", degrees);
    m_caravan_angle = glm::radians(degrees);
    readKey(*xml, u"screen_margin", m_screen_margin);
    readKey(*xml, u"cargo_tip_offset", m_cargo_tip_offset);
    readKey(*xml, u"cargo_levels_amount", m_cargo_levels_amount);
    loadChild(*m_caravan, xml, "Caravan");
    loadChild(*m_goods, xml, "Goods");
    m_clock.loadXML(xml);
    m_way.loadXML(xml);
    m_caravan->disable();
    m_caravan->hide();
    m_goods->hide();
}

// Its state ----------------------------------------------------------------------------------------------------------

void cBridge::loadXmlState(const iXML* xml) {
    ENGINE_MARK;
    cUpgradableBuilding::loadXmlState(xml);
    loadUpgrades(xml);
    readKey(*xml, u"BridgeNumber", m_bridge_number);
    readKey(*xml, u"NextLevel", m_next_level);
    Float degrees = 0.0f;
    readKey(*xml, u"Angle", degrees);
    m_angle = glm::radians(degrees);
    m_clock.loadXmlState(xml);
}

void cBridge::serialize(iArch& arch) {
    arch << m_bridge_number;
    if (arch.isReading()) {
        m_upgrades.clear();
        for (Int left = readCount(arch, least_upgrade, "upgrades of a bridge"); left > 0; --left) {
            m_upgrades.push_back(makeUpgrade());
            m_upgrades.back()->serialize(arch);
        }
    } else {
        Int count = static_cast<Int>(m_upgrades.size());
        arch << count;
        for (const auto& upgrade : m_upgrades)
            upgrade->serialize(arch);
    }
    arch << m_next_level;
    serializeNumber(arch, m_angle);
    serializeBool(arch, m_passed);
    m_clock.serialize(arch);
}

void cBridge::saveBinState(iArch& arch) {
    cUpgradableBuilding::saveBinState(arch);
    serialize(arch);
}

void cBridge::loadBinState(iArch& arch) {
    ENGINE_MARK;
    cUpgradableBuilding::loadBinState(arch);
    serialize(arch);
}

void cBridge::requireTable() const {
    if (getLevel() < 0 || getLevel() > caravan_loaded)
        throw String("cBridge::setInitState(): no level ") + std::to_string(getLevel());
    if (m_upgrades.size() < least_rows)
        throw String("cBridge::setInitState(): ") + std::to_string(m_upgrades.size()) + " rows of upgrades are too few";
}

void cBridge::setInitState() {
    ENGINE_MARK;
    requireTable();
    cUpgradableBuilding::setInitState();
    setOnClick(onClick);
    layBridge();
    m_clock.begin(getMap().toMap(cControl::getPosition() + m_way.getWay()));
    updateGoodsVisualState();
    if (getLevel() == caravan_waits) {
        waitWithCaravan();
        m_caravan->setAnimTime(m_caravan->getAnimLength() - frame_end);
    } else if (getLevel() == caravan_loaded) {
        setOnClick(onLoadCaravan);
        enableBridge();
    }
}

void cBridge::layBridge() {
    cTacticMap& map = getMap();
    const Float left = map.toScreen({0.0f, 0.0f}).x;
    const Vector2 gate = cControl::getPosition();
    m_way.lay(gate, m_angle, left, left + map.getSize().x, m_screen_margin);
    m_caravan->setAngle(m_caravan_angle);
    showWayLook();
}

/// The planks of a broken bridge look otherwise, if the file has a look for them.
void cBridge::showWayLook() {
    if (const cState* look = findState(getLevel() < caravan_waits ? "bridge_tile_broken" : "bridge_tile"))
        m_way.setTileLook(*look);
}

// Frames -------------------------------------------------------------------------------------------------------------

void cBridge::process() {
    cUpgradableBuilding::process();
    const Float step = cTimer::getInstance()->getStep();
    if (!m_passed)
        m_clock.process(step);
    processCaravan(step, cTimer::getInstance()->getRealStep());
}

void cBridge::processCaravan(Float step, Float real_step) {
    if (m_closing) {
        m_caravan->animate(real_step);
        m_closing_time -= real_step;
        if (m_closing_time <= 0.0f) {
            m_closing = false;
            m_caravan->setAnimTime(m_caravan->getAnimLength() - frame_end);
        }
    }
    if (!m_moving)
        return;
    processAwardEffects();
    if (m_caravan->roll(step))
        return;
    m_moving = false;
    onCaravanLeft();
}

/// One in each quarter of the trip, as long as there are any.
void cBridge::processAwardEffects() {
    if (m_effects_left <= 0 || m_caravan->getRemaining() <= 0.0f)
        return;
    const Float done = m_caravan->getTripTime() - m_caravan->getRemaining();
    const Float quarter = m_caravan->getTripTime() * 0.25f;
    const auto count = static_cast<Float>(m_effects_done);
    if (done < count * quarter || done >= (count + 1.0f) * quarter)
        return;
    --m_effects_left;
    ++m_effects_done;
}

// The player's hand --------------------------------------------------------------------------------------------------

cBridge& cBridge::getBridge(cView* view) {
    auto* bridge = dynamic_cast<cBridge*>(view);
    return bridge ? *bridge : *static_cast<cBridge*>(view->getParent());
}

void cBridge::onClick(cView* view) {
    ENGINE_MARK;
    cBridge& bridge = getBridge(view);
    if (bridge.getLevel() < caravan_loaded)
        bridge.buildingClicked();
    else
        onGoClick(view);
}

void cBridge::onLoadCaravan(cView* view) {
    ENGINE_MARK;
    cBridge& bridge = getBridge(view);
    if (bridge.m_closing || !bridge.cBuilding::isPlayerConnected() || bridge.getUpgradeState() != idle)
        return;
    if (bridge.getLevel() < caravan_loaded)
        bridge.orderUpgradeByClick();
    else
        onGoClick(view);
}

void cBridge::orderUpgradeByClick() {
    if (!isUpgradeAllowed())
        return getMap().showLack(getPrice(), getNeededMen(goalUpgrade));
    if (!hasMandatoryUpgrades()) {
        unhovered();
        createUpgradeGoals();
        updateView(false);
        return;
    }
    playGameSound("wrong_action");
    if (!needsHarbourPlan())
        cUtils::oscillateShops();
}

void cBridge::onGoClick(cView* view) {
    ENGINE_MARK;
    cBridge& bridge = getBridge(view);
    if (bridge.getMap().isLocked())
        return;
    if (!bridge.hasMandatoryUpgrades())
        return bridge.goNextLevel();
    playGameSound("wrong_action");
    cUtils::oscillateShops();
}

Bool cBridge::hasMandatoryUpgrades() const {
    return !getMap().getUpgrades().empty() || (needsHarbourPlan() && getMap().getProduct(harbour_plan) < 1);
}

Bool cBridge::needsHarbourPlan() const {
    return cProfile::getInts()["CurrentLevel"] == harbour_level && m_next_level == harbour_level + 1;
}

void cBridge::goNextLevel() {
    ENGINE_MARK;
    if (hasMandatoryUpgrades())
        throw "cBridge::goNextLevel() - there are upgrade plans in shop";
    getMap().setLevelCompleted(true);
    getMap().loadNextLevel(m_next_level, m_upgrades[caravan_waits]->price);
}

// Its order ----------------------------------------------------------------------------------------------------------

Bool cBridge::createUpgradeGoals() {
    ENGINE_MARK;
    if (getMap().getNumberOfMen() < getNeededMen(goalUpgrade))
        throw "cBridge::createUpgradeGoals - there are not enough men to start upgrade";
    std::vector<cBuilding*> providers;
    getMap().getSortedResourceProviders(providers, getUnderPoint());
    orderUpgrade(
        providers, cControl::getPosition(), {1.0f, 0.0f},
        "cUpgradableBuilding::createUpgradeGoals(): there are not enough resources on the level to upgrade unit");
    updatePulse();
    return true;
}

void cBridge::addUpgradeResources(Int type, Int amount) {
    cUpgradableBuilding::addUpgradeResources(type, amount);
    if (getLevel() == 0)
        return;
    updateGoodsVisualState();
    playGameSound("new_resource");
}

void cBridge::finishUpgrade() {
    ENGINE_MARK;
    cUpgradableBuilding::finishUpgrade();
    hideProgress();
    updateGoodsVisualState();
    updatePulse();
}

void cBridge::upgrade() {
    ENGINE_MARK;
    const Int before = getLevel();
    cUpgradableBuilding::upgrade();
    if (getLevel() == before)
        return;  // others still work
    if (getLevel() == caravan_waits) {
        playGameSound("caravan_load");
        showWayLook();
        waitWithCaravan();
        m_closing = true;
        m_closing_time = m_caravan->getAnimLength();
        updatePulse();
    } else if (getLevel() == caravan_loaded) {
        onLoaded();
        hoverBridge(eButtonState::normal);
    }
}

/// It stands at the bridge, at the beginning of what it does to be ready.
void cBridge::waitWithCaravan() {
    m_caravan->setOnClick(onLoadCaravan);
    m_caravan->enable();
    m_caravan->show();
    if (const cState* look = findState(getVisualStateName() + "_closing"))
        m_caravan->setLook(*look);
    setOnClick(onLoadCaravan);
}

/// What lies on the caravan: one picture more with each part of the load.
void cBridge::updateGoodsVisualState() {
    const LongLong got = getUpgradeCargo().getCargo().total(true);
    const LongLong need = getPrice().total(true);
    const Int index = need > 0 ? static_cast<Int>(got * m_cargo_levels_amount / need) : m_cargo_levels_amount;
    const cState* look = nullptr;
    if (getLevel() == caravan_waits && got > 0 && index < m_cargo_levels_amount)
        look = findState(String("cargo_") + std::to_string(index));
    if (!look)
        return m_goods->hide();
    m_goods->cState::operator=(*look);
    m_goods->setDirty();
    m_goods->show();
}

/// The caravan draws the eye as long as it could be loaded.
void cBridge::updatePulse() {
    if (getLevel() >= caravan_loaded)
        return;
    const Bool pulse =
        getUpgradeState() == idle && isUpgradeAllowed() && (getLevel() < caravan_waits || !hasMandatoryUpgrades());
    if (pulse != m_caravan->isOscillating())
        m_caravan->setOscillating(pulse);
}

// Its caravan --------------------------------------------------------------------------------------------------------

void cBridge::onLoaded() {
    ENGINE_MARK;
    m_passed = true;
    m_clock.stop();
    m_caravan->setOscillating(true);
    if (getMark(false) == markSilver)
        playGameSound("silver_fanfar");
    else if (getMark(false) == markGold)
        playGameSound("gold_fanfar");
    startCaravan(true);
}

void cBridge::startCaravan(Bool pulse) {
    const Vector2 gate = cControl::getPosition();
    m_caravan->setOff(gate + m_way.getWay() - m_caravan->getPosition(), m_speed);
    m_effects_done = 0;
    m_effects_left = getMark(false) == markSilver ? 1 : getMark(false) == markGold ? 3 : 0;
    m_moving = true;
    enableBridge();
    if (const cState* look = findState("caravan_leaves"))
        m_caravan->setLook(*look);
    m_caravan->setOscillating(pulse);
    updateVisualState();
}

void cBridge::enableBridge() {
    m_way.listen(
        onGoClick, [](cView* view) { getBridge(view).hoverBridge(eButtonState::hovered); },
        [](cView* view) { getBridge(view).hoverBridge(eButtonState::normal); });
    m_caravan->setOnClick(onGoClick);
    m_way.pulse();
}

void cBridge::onCaravanLeft() {
    m_caravan->disable();
    m_caravan->setOscillating(false);
    m_caravan->setStatePicture(eButtonState::normal);
    m_caravan->hide();  // it has left the map, which may end before the screen does
    hoverBridge(eButtonState::normal);
}

WString cBridge::getTime(Int seconds) {
    constexpr Int hour = 3600;
    if (seconds < 0)
        seconds = 0;
    std::array<char, 8> text{};
    std::snprintf(text.data(), text.size(), "%02d:%02d", seconds % hour / 60, seconds % 60);
    return toWide(text.data());
}

// Its looks ----------------------------------------------------------------------------------------------------------

void cBridge::updateView(Bool hide) {
    cUpgradableBuilding::updateView(hide);
    if (!hide)
        updatePulse();
}

void cBridge::updateInfoTipCargo(sInfoTip& info) {
    const Bool repaired = getLevel() >= caravan_waits;
    if (getLevel() >= caravan_loaded) {
        info.text = getGameString("caravan_ready");
        info.position = {m_cargo_tip_offset.x, 20.0f};
        return;
    }
    if (getUpgradeState() != idle) {
        info.text = getGameString(repaired ? "sending" : "loading");
        return;
    }
    info.text = getGameString(repaired ? "send_caravan" : "load_caravan");
    info.cargo = getPrice().amounts;
    info.men = getNeededMen(goalUpgrade);
    info.compare_global = true;
    if (cBuilding::isPlayerConnected() && (!repaired || !hasMandatoryUpgrades()))
        info.position = m_cargo_tip_offset;
}

/// The plans that it waits for.
void cBridge::updateInfoTipPrice(sInfoTip& info) {
    if (getLevel() != caravan_waits || getUpgradeState() != idle || !hasMandatoryUpgrades())
        return;
    info.text = getGameString("buy_plan");
    info.use_products = true;
    for (const auto& [product, trade] : getMap().getUpgrades())
        info.products.push_back(product);
    if (needsHarbourPlan() && getMap().getProduct(harbour_plan) < 1)
        info.products.push_back(harbour_plan);
}
